// The keys of commands and of the ribbon that the code names, held against the tables: a misspelt one does nothing when the program runs.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "print/doc_preview.h"
#include "shell/commands.h"
#include "shell/ribbon_table.h"
#include "shell/tabs.h"

namespace ostrinka {
namespace {

namespace fs = std::filesystem;

std::set<std::string> KnownKeys() {
  std::set<std::string> keys;
  for (const RibbonRow& row : RibbonRows()) keys.insert(row.key);
  for (const Command& command : AllCommands()) keys.emplace(command.key);
  for (const Tab& tab : Tabs()) keys.emplace(tab.record_prefix);
  for (const PreviewCommand& command : frm_DocPreview::Commands()) keys.emplace(command.key);
  return keys;
}

// Whether a text has the form of a key of several parts, or of a part with the point before it: capitals with points between them.
bool LooksLikeAKey(const std::string& text) {
  static const std::regex part(R"(^\.?[A-Z][^. a-z%/:\\]*(\.[^. a-z%/:\\]+)*$)");
  return text.find('.') != std::string::npos && std::regex_match(text, part) && Upper(text) == text;
}

// Whether `part`, which begins with a point, stands in a key between points or at its end.
bool IsPartOfAKey(const std::set<std::string>& keys, const std::string& part) {
  return std::any_of(keys.begin(), keys.end(), [&](const std::string& key) {
    const size_t at = key.find(part);
    return at != std::string::npos && (at + part.size() == key.size() || key[at + part.size()] == '.');
  });
}

std::string ReadSource(const fs::path& path) {
  static const std::regex comment(R"re(//[^\n]*)re");
  std::ifstream in(path);
  return std::regex_replace(std::string(std::istreambuf_iterator<char>(in), {}), comment, "");
}

// The texts that a source hands to an operation that takes a key first, by themselves or as a constant of the same source.
std::vector<std::string> KeysHandedOver(const std::string& code) {
  static const std::regex call(
      R"re(\b(?:ButtonText|ButtonChecked|ButtonEnabled|ButtonToolTip|[GS]etButtonIcon|ToolbarVisible|PopupMenu(?:Checked|Visible)|ClearPopupMenu|AddListItem|ListItems|ChosenItem|ribbon\.Find|FindItem|Children|TabID|User(?:Command|Item|Tab)|Run|FindCommand|IsBuilt|FindTab|show_tab|TickPeriod|TickLetters)\((?:"([^"]+)"|(k[A-Z]\w*)))re");
  static const std::regex constant(R"re(constexpr (?:const char\*|std::string_view) (k\w+) = "([^"]*)")re");
  std::map<std::string, std::string> constants;
  for (std::sregex_iterator match(code.begin(), code.end(), constant), end; match != end; ++match) constants[(*match)[1]] = (*match)[2];
  std::vector<std::string> keys;
  for (std::sregex_iterator match(code.begin(), code.end(), call), end; match != end; ++match) {
    if ((*match)[1].matched) keys.push_back((*match)[1]);
    if (const auto found = constants.find((*match)[2]); found != constants.end()) keys.push_back(found->second);
  }
  return keys;
}

// Every key, or part of one, that the source names.
std::set<std::string> KeysNamed(const std::string& code) {
  static const std::regex literal(R"re("((?:\\.|[^"\\\n])*)")re");
  std::set<std::string> keys;
  for (std::sregex_iterator match(code.begin(), code.end(), literal), end; match != end; ++match) {
    if (LooksLikeAKey((*match)[1])) keys.insert((*match)[1]);
  }
  for (const std::string& key : KeysHandedOver(code)) keys.insert(key);
  return keys;
}

TEST(Keys, ThatTheCodeNamesStandInTheTables) {
  const std::set<std::string> known = KnownKeys();
  size_t seen = 0;
  for (const char* folder : {"shell", "startup", "script", "desktop"}) {
    for (const auto& entry : fs::recursive_directory_iterator(fs::path(OSTRINKA_SOURCE "/src") / folder)) {
      if (entry.path().extension() != ".cpp" && entry.path().extension() != ".h") continue;
      if (entry.path().filename() == "ribbon_table.cpp") continue;  // the table itself
      for (const std::string& key : KeysNamed(ReadSource(entry.path()))) {
        EXPECT_TRUE(key[0] == '.' ? IsPartOfAKey(known, key) : known.count(key) > 0) << entry.path().filename() << " names " << key;
        ++seen;
      }
    }
  }
  EXPECT_GT(seen, 150u);
}

TEST(Keys, AreFoundInSourcesHoweverTheyAreNamed) {
  const std::set<std::string> named = KeysNamed(R"re(
      constexpr const char* kEntry = "STREN";
      if (IsBuilt(kEntry)) window.UserCommand("EXITT");
      for (const char* key : {"EK.BRKK", ".OKRES.DZISIAY"}) Use(tab + key);
      Read("DATA_WYSTAWIENIA", "mdi.print.print", "Windows\\MDI", ".skin", "1.5", "A. B");
  )re");
  EXPECT_EQ(named, (std::set<std::string>{"STREN", "EXITT", "EK.BRKK", ".OKRES.DZISIAY"}));
  const std::set<std::string> known = KnownKeys();
  EXPECT_TRUE(IsPartOfAKey(known, ".OKRES.BIEŻĄCY"));
  EXPECT_FALSE(IsPartOfAKey(known, ".OKRES.BIEŻĄ"));
}

}  // namespace
}  // namespace ostrinka
