// The house's levels, read from the includes themselves.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

// From the ground up: a folder includes itself and those before it. What stands after `startup` is included by nobody below.
const std::vector<std::string> kLevels = {"base",    "platform", "app",   "shell/controls", "engine",     "company",         "documents",
                                          "reports", "exchange", "print", "fiscal",         "masterdata", "documents/forms", "shell",
                                          "startup"};
const std::vector<std::string> kEdges = {"platform/posix", "script", "desktop"};

struct Include {
  std::string file, folder, target, target_folder;  // folder names as in kLevels; an empty target_folder is a system header
};

// The longest known folder that the path starts with; "" when there is none.
std::string FolderOf(const std::string& path) {
  std::string best;
  for (const auto* names : {&kLevels, &kEdges}) {
    for (const std::string& name : *names) {
      if (path.starts_with(name + "/") && name.size() > best.size()) best = name;
    }
  }
  return best;
}

std::vector<Include> ReadIncludes(const fs::path& source) {
  static const std::regex pattern(R"(^\s*#\s*include\s*([<"])([^>"]+)[>"])");
  std::vector<Include> includes;
  for (const auto& entry : fs::recursive_directory_iterator(source)) {
    const std::string extension = entry.path().extension().string();
    if (!entry.is_regular_file() || (extension != ".h" && extension != ".cpp" && extension != ".inc")) continue;
    const std::string file = fs::relative(entry.path(), source).generic_string();
    std::ifstream in(entry.path());
    std::smatch match;
    for (std::string line; std::getline(in, line);) {
      if (!std::regex_search(line, match, pattern)) continue;
      const bool own = match[1] == "\"";
      includes.push_back({file, FolderOf(file), match[2], own ? FolderOf(match[2]) : ""});
      if (own && includes.back().target_folder.empty()) includes.back().target_folder = "?";
    }
  }
  return includes;
}

// Whether a file of `folder` may include one of `target`.
bool Allowed(const std::string& folder, const std::string& target) {
  if (folder == target || folder == "desktop") return true;
  const auto level = std::find(kLevels.begin(), kLevels.end(), folder);
  const auto target_level = std::find(kLevels.begin(), kLevels.end(), target);
  if (folder == "platform/posix") return target == "base" || target == "platform";
  if (folder == "script") return target == "platform/posix" || target_level != kLevels.end();
  return level != kLevels.end() && target_level != kLevels.end() && target_level <= level;
}

class Layers : public testing::Test {
 protected:
  const std::vector<Include> includes_ = ReadIncludes(OSTRINKA_SOURCE "/src");
};

TEST_F(Layers, EveryFileLiesInAKnownFolderAndIncludesByItsPathBelowSrc) {
  ASSERT_GT(includes_.size(), 100u);
  for (const Include& include : includes_) {
    EXPECT_NE(include.folder, "") << include.file;
    const bool generated = include.folder == "desktop" && include.target.ends_with(".moc");
    if (include.target_folder.empty() || generated) continue;
    EXPECT_NE(include.target_folder, "?") << include.file << " includes " << include.target;
    EXPECT_TRUE(fs::exists(fs::path(OSTRINKA_SOURCE "/src") / include.target)) << include.file << " includes " << include.target;
  }
}

TEST_F(Layers, AFolderIncludesOnlyItselfAndFoldersBelow) {
  for (const Include& include : includes_) {
    if (include.target_folder.empty() || include.target_folder == "?") continue;
    EXPECT_TRUE(Allowed(include.folder, include.target_folder)) << include.file << " includes " << include.target;
  }
}

TEST_F(Layers, FoldersIncludeEachOtherWithoutACycle) {
  std::map<std::string, std::set<std::string>> edges;
  for (const Include& include : includes_) {
    if (!include.target_folder.empty() && include.target_folder != include.folder) edges[include.folder].insert(include.target_folder);
  }
  // Folders that nothing left needs are taken away until none is left; what stays is a cycle.
  for (bool removed = true; removed;) {
    removed = false;
    for (auto edge = edges.begin(); edge != edges.end();) {
      const bool leaf =
          std::none_of(edge->second.begin(), edge->second.end(), [&](const std::string& target) { return edges.count(target) > 0; });
      if (leaf) {
        edge = edges.erase(edge);
        removed = true;
      } else {
        ++edge;
      }
    }
  }
  for (const auto& [folder, targets] : edges) {
    for (const std::string& target : targets) {
      if (edges.count(target)) ADD_FAILURE() << "in a cycle: " << folder << " includes " << target;
    }
  }
}

TEST_F(Layers, OnlyTheDesktopFolderIncludesTheToolkit) {
  static const std::regex toolkit("^(Q[A-Z][A-Za-z0-9]*|Qt[A-Za-z0-9]*/.*|q[a-z0-9_]+\\.h)$");
  for (const Include& include : includes_) {
    if (include.folder == "desktop") continue;
    const bool of_toolkit = include.target_folder.empty() && std::regex_match(include.target, toolkit);
    EXPECT_FALSE(of_toolkit) << include.file << " includes " << include.target;
  }
}

TEST(LayerRules, TellAllowedFromForbidden) {
  EXPECT_TRUE(Allowed("documents/forms", "documents"));
  EXPECT_FALSE(Allowed("documents", "documents/forms"));
  EXPECT_FALSE(Allowed("base", "app"));
  EXPECT_FALSE(Allowed("shell/controls", "engine"));
  EXPECT_TRUE(Allowed("script", "platform/posix"));
  EXPECT_FALSE(Allowed("startup", "platform/posix"));
  EXPECT_FALSE(Allowed("shell", "script"));
  EXPECT_FALSE(Allowed("script", "desktop"));
  EXPECT_EQ(FolderOf("documents/forms/editor.h"), "documents/forms");
  EXPECT_EQ(FolderOf("shell/controls/form.h"), "shell/controls");
  EXPECT_EQ(FolderOf("editor.h"), "");
}

}  // namespace
