// The house's levels, read from the includes themselves.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

// A row of the table of levels, from the ground up.
struct Level {
  std::string folder, uses, what;
  bool MayUse(const std::string& other) const { return (" " + uses + " ").find(" " + other + " ") != std::string::npos; }
};

std::vector<Level> ReadLevels() {
  static const std::regex row(R"(^([a-z/]+) \| ([a-z/ -]+) \| (.+)$)");
  std::vector<Level> levels;
  std::ifstream in(OSTRINKA_SOURCE "/cmake/layers.txt");
  std::smatch match;
  for (std::string line; std::getline(in, line);) {
    if (std::regex_match(line, match, row)) levels.push_back({match[1], match[2], match[3]});
  }
  return levels;
}
const std::vector<Level> kLevels = ReadLevels();

// An include, or a forward declaration of what another folder defines.
struct Include {
  std::string file, folder, target, target_folder;  // folder names as in the table; an empty target_folder is a system header
};

// The longest known folder that the path starts with; "" when there is none.
std::string FolderOf(const std::string& path) {
  std::string best;
  for (const Level& level : kLevels) {
    if (path.starts_with(level.folder + "/") && level.folder.size() > best.size()) best = level.folder;
  }
  return best;
}

// Calls `visit` with every source file's path below src/ and its lines.
template <typename Visit>
void ForEachSource(const fs::path& source, Visit visit) {
  for (const auto& entry : fs::recursive_directory_iterator(source)) {
    const std::string extension = entry.path().extension().string();
    if (!entry.is_regular_file() || (extension != ".h" && extension != ".cpp" && extension != ".inc")) continue;
    std::ifstream in(entry.path());
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    visit(fs::relative(entry.path(), source).generic_string(), lines);
  }
}

std::vector<Include> ReadIncludes(const fs::path& source) {
  static const std::regex pattern(R"(^\s*#\s*include\s*([<"])([^>"]+)[>"])");
  std::vector<Include> includes;
  ForEachSource(source, [&](const std::string& file, const std::vector<std::string>& lines) {
    std::smatch match;
    for (const std::string& line : lines) {
      if (!std::regex_search(line, match, pattern)) continue;
      const bool own = match[1] == "\"";
      includes.push_back({file, FolderOf(file), match[2], own ? FolderOf(match[2]) : ""});
      if (own && includes.back().target_folder.empty()) includes.back().target_folder = "?";
    }
  });
  return includes;
}

// Types that a file declares without defining them, with the folder that does.
std::vector<Include> ReadForwardDeclarations(const fs::path& source) {
  static const std::regex definition(R"(^(?:class|struct|enum class|enum) (\w+)[^;()]*\{)");
  static const std::regex declaration(R"(^\s*(?:class|struct|enum class) (\w+)(?: : \w+)?;)");
  static const std::regex elaborated(R"([(<,]\s*(?:const )?(?:class|struct) (\w+)\s*[&*>])");
  std::map<std::string, std::set<std::string>> defined;  // folders by the type's name
  std::vector<Include> found;
  ForEachSource(source, [&](const std::string& file, const std::vector<std::string>& lines) {
    std::smatch match;
    for (const std::string& line : lines) {
      if (std::regex_search(line, match, definition)) defined[match[1]].insert(FolderOf(file));
      if (std::regex_search(line, match, declaration) || std::regex_search(line, match, elaborated)) {
        found.push_back({file, FolderOf(file), match[1], ""});
      }
    }
  });
  std::vector<Include> across;
  for (Include& name : found) {
    const std::set<std::string>& folders = defined[name.target];
    if (folders.empty() || folders.count(name.folder)) continue;
    name.target_folder = *folders.begin();
    across.push_back(name);
  }
  return across;
}

// Whether a file of `folder` may include one of `target`.
bool Allowed(const std::string& folder, const std::string& target) {
  const auto level = std::find_if(kLevels.begin(), kLevels.end(), [&](const Level& row) { return row.folder == folder; });
  return folder == target || (level != kLevels.end() && level->MayUse(target));
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

TEST_F(Layers, AFolderIncludesOnlyItselfAndWhatTheTableNames) {
  for (const Include& include : includes_) {
    if (include.target_folder.empty() || include.target_folder == "?") continue;
    EXPECT_TRUE(Allowed(include.folder, include.target_folder)) << include.file << " includes " << include.target;
  }
}

TEST_F(Layers, NoFolderDeclaresWhatItMayNotInclude) {
  for (const Include& name : ReadForwardDeclarations(OSTRINKA_SOURCE "/src")) {
    EXPECT_TRUE(Allowed(name.folder, name.target_folder)) << name.file << " declares " << name.target << " of " << name.target_folder;
  }
}

// What is left when whatever leads to nothing that is left, or is reached from nothing that is left, has been taken away, again and again:
// the rings and what lies between them.
std::map<std::string, std::set<std::string>> Rings(std::map<std::string, std::set<std::string>> edges) {
  for (bool removed = true; removed;) {
    std::set<std::string> reached;
    for (const auto& [from, targets] : edges) reached.insert(targets.begin(), targets.end());
    removed = std::erase_if(edges, [&](const auto& edge) {
                const auto& [from, targets] = edge;
                return !reached.count(from) ||
                       std::none_of(targets.begin(), targets.end(), [&](const std::string& target) { return edges.count(target) > 0; });
              }) > 0;
  }
  return edges;
}

TEST_F(Layers, TheUnitsOfAFolderIncludeEachOtherWithoutARing) {
  // A unit is a header with the sources of its name, or of its name and a word more: form_window_build.cpp belongs to form_window.h.
  std::set<std::string> headers;
  for (const Include& include : includes_) {
    if (include.file.ends_with(".h")) headers.insert(include.file.substr(0, include.file.size() - 2));
  }
  const auto unit = [&](const std::string& file) {
    std::string stem = file.substr(0, file.rfind('.'));
    for (std::string shorter = stem; shorter.find('_') != std::string::npos && !headers.count(stem);) {
      shorter = shorter.substr(0, shorter.rfind('_'));
      if (headers.count(shorter)) stem = shorter;
    }
    return stem;
  };
  // Below them a face and its private parts may know each other: ClassQDBASE and its state.
  const std::set<std::string> watched = {"books",  "documents", "reports",    "exchange", "print",
                                         "fiscal", "forms",     "masterdata", "sales",    "shell"};
  std::map<std::string, std::set<std::string>> edges;
  for (const Include& include : includes_) {
    const std::string from = unit(include.file), to = unit(include.target);
    if (include.folder == include.target_folder && watched.count(include.folder) && from != to) edges[from].insert(to);
  }
  const auto rings = Rings(edges);
  for (const auto& [from, targets] : rings) {
    for (const std::string& target : targets) {
      if (rings.count(target)) ADD_FAILURE() << "in a ring: " << from << " includes " << target;
    }
  }
}

TEST(LayerTable, IsInTheOrderOfItsLevelsAndStandsInTheDescriptionOfTheHouse) {
  ASSERT_GT(kLevels.size(), 15u);
  std::ifstream in(OSTRINKA_SOURCE "/ARCHITECTURE.md");
  std::vector<std::string> rows;
  for (std::string line; std::getline(in, line);) {
    if (line.starts_with("| `")) rows.push_back(line);
  }
  ASSERT_GE(rows.size(), kLevels.size());
  std::string below = " - ";
  for (size_t i = 0; i < kLevels.size(); ++i) {
    const Level& level = kLevels[i];
    EXPECT_EQ(rows[i], "| `" + level.folder + "` | " + level.what + " |");
    std::istringstream uses(level.uses);
    for (std::string used; uses >> used;) EXPECT_NE(below.find(" " + used + " "), std::string::npos) << level.folder << " uses " << used;
    below += level.folder + " ";
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
  EXPECT_TRUE(Allowed("sales", "documents"));
  EXPECT_FALSE(Allowed("documents", "sales"));
  EXPECT_FALSE(Allowed("base", "app"));
  EXPECT_FALSE(Allowed("exchange", "print"));
  EXPECT_TRUE(Allowed("script", "platform/posix"));
  EXPECT_FALSE(Allowed("startup", "platform/posix"));
  EXPECT_FALSE(Allowed("shell", "script"));
  EXPECT_FALSE(Allowed("script", "desktop"));
  EXPECT_EQ(FolderOf("platform/posix/posix_files.h"), "platform/posix");
  EXPECT_EQ(FolderOf("editor.h"), "");
  EXPECT_EQ(Rings({{"a", {"b"}}, {"b", {"c"}}, {"c", {"b"}}, {"d", {"e"}}}).count("b"), 1u);
  EXPECT_EQ(Rings({{"d", {"e"}}, {"e", {"f"}}}).size(), 0u);
}

}  // namespace
