// The catalogues as they are supplied, held against the code that asks them.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "base/text.h"

namespace {

namespace fs = std::filesystem;
using ostrinka::Lower;
using ostrinka::TrimWhite;

using Entries = std::vector<std::pair<std::string, std::string>>;

std::string ReadFile(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

// As the program reads it: the first "=" at position 2 or later splits a line, comments have none.
Entries ReadCatalogue(const std::string& name) {
  Entries entries;
  std::ifstream in(std::string(OSTRINKA_SOURCE "/resources/") + name);
  for (std::string line; std::getline(in, line);) {
    line = TrimWhite(line);
    const size_t sign = line.find('=', 1);
    if (sign != std::string::npos) entries.emplace_back(TrimWhite(line.substr(0, sign)), TrimWhite(line.substr(sign + 1)));
  }
  return entries;
}

std::set<std::string> Keys(const Entries& entries) {
  std::set<std::string> keys;
  for (const auto& [key, text] : entries) keys.insert(key);
  return keys;
}

// The literal texts of a source file, comments passed over.
std::vector<std::string> Literals(const std::string& code) {
  static const std::regex token(R"re(//[^\n]*|/\*[\s\S]*?\*/|'(?:\\.|[^'\\\n])'|"((?:\\.|[^"\\\n])*)")re");
  std::vector<std::string> literals;
  for (std::sregex_iterator match(code.begin(), code.end(), token), end; match != end; ++match) {
    if ((*match)[0].str().front() == '"') literals.push_back((*match)[1]);
  }
  return literals;
}

class Catalogues : public testing::Test {
 protected:
  const Entries program_ = ReadCatalogue("program.lang"), polish_ = ReadCatalogue("printdoc.lang"),
                english_ = ReadCatalogue("printdocen.lang");
};

TEST_F(Catalogues, EveryKeyThatTheCodeNamesHasAText) {
  std::set<std::string> known = Keys(program_);
  known.merge(Keys(polish_));
  std::set<std::string> families;
  for (const std::string& key : known) families.insert(key.substr(0, key.find('.')));
  static const std::regex form(R"(^[a-z]+(\.[A-Za-z0-9_-]+)+$)");
  static const std::regex file_name(R"(.*\.(ico|bmp|lang|ini|skin|bin|info|pdf|xml|csv|txt|tmp|cpp|h|[0-9][0-9])$)");

  size_t seen = 0;
  for (const auto& entry : fs::recursive_directory_iterator(OSTRINKA_SOURCE "/src")) {
    const std::string extension = entry.path().extension().string();
    if (extension != ".cpp" && extension != ".h") continue;
    for (const std::string& literal : Literals(ReadFile(entry.path()))) {
      if (!std::regex_match(literal, form) || std::regex_match(literal, file_name) || !families.count(literal.substr(0, literal.find('.'))))
        continue;
      ++seen;
      EXPECT_TRUE(known.count(Lower(literal))) << entry.path().filename() << " asks for " << literal;
    }
  }
  EXPECT_GT(seen, 0u);
}

TEST_F(Catalogues, ThePrintCataloguesHaveTheSameKeys) {
  const std::set<std::string> polish = Keys(polish_), english = Keys(english_);
  std::vector<std::string> differing;
  std::set_symmetric_difference(polish.begin(), polish.end(), english.begin(), english.end(), std::back_inserter(differing));
  EXPECT_EQ(differing, std::vector<std::string>());
}

TEST_F(Catalogues, HoldEachKeyOnceInLowerCaseAndFitTheReader) {
  static const std::regex form(R"(^[a-z]+(\.[a-z0-9_-]+)+$)");
  for (const Entries* entries : {&program_, &polish_, &english_}) {
    EXPECT_GT(entries->size(), 100u);
    EXPECT_LE(entries->size(), 2048u);
    std::set<std::string> seen;
    for (const auto& [key, text] : *entries) {
      EXPECT_TRUE(seen.insert(key).second) << "twice: " << key;
      EXPECT_TRUE(std::regex_match(key, form)) << key;
      EXPECT_NE(text, "") << key;
    }
  }
  // The program catalogue is searched first: a print key in it would hide the English text.
  const std::set<std::string> program = Keys(program_);
  for (const auto& [key, text] : polish_) EXPECT_FALSE(program.count(key)) << "on the screen and on paper: " << key;
}

TEST_F(Catalogues, TextsAreUtf8WithLettersOfTheCodePageAndTheSameArgumentsInBothLanguages) {
  static const std::regex argument(R"(\{[0-9]\}|%p)");
  const auto arguments = [](const std::string& text) {
    std::multiset<std::string> found;
    for (std::sregex_iterator match(text.begin(), text.end(), argument), end; match != end; ++match) found.insert(match->str());
    return found;
  };
  for (const char* name : {"program.lang", "printdoc.lang", "printdocen.lang"}) {
    const std::string bytes = ReadFile(fs::path(OSTRINKA_SOURCE "/resources") / name);
    ASSERT_TRUE(ostrinka::IsUtf8(bytes)) << name;
    EXPECT_EQ(ostrinka::FromCp1250(ostrinka::ToCp1250(bytes)), bytes) << name;
  }
  std::map<std::string, std::string> english(english_.begin(), english_.end());
  for (const auto& [key, text] : polish_) EXPECT_EQ(arguments(text), arguments(english[key])) << key;
}

TEST_F(Catalogues, PrintedTextsHoldNoCharacterThatSharesItsGlyphWithAnother) {
  const std::u32string shared = U"\u00A0\u2013\u2026\u00A7\u201E";
  for (const Entries* entries : {&polish_, &english_}) {
    for (const auto& [key, text] : *entries) {
      EXPECT_EQ(ostrinka::CodePoints(text).find_first_of(shared), std::u32string::npos) << key << ": " << text;
    }
  }
}

TEST_F(Catalogues, ItemsOfOneSplitButtonDiffer) {
  const std::map<std::string, std::string> texts(program_.begin(), program_.end());
  const std::vector<std::vector<std::string>> buttons = {
      {"mdi.doc.add.inv", "mdi.doc.add.cor"},
      {"mdi.sort.asc.name", "mdi.sort.desc.name", "mdi.sort.records"},
      {"mdi.records.find", "mdi.records.showall"},
      {"mdi.seldate.currentweek", "mdi.seldate.currentmonth", "mdi.seldate.currentquart", "mdi.seldate.currentyear"},
      {"mdi.seldate.lastweek", "mdi.seldate.lastmonth", "mdi.seldate.lastquart", "mdi.seldate.lastyear"},
      {"mdi.print.print", "mdi.print.preview", "mdi.print.topdf", "mdi.print.mode.ocs", "mdi.print.mode.o2c", "mdi.print.mode.ocm",
       "mdi.print.mode.oo", "mdi.print.mode.co", "mdi.print.mode.dup", "mdi.print.mode.apf"},
      {"mdi.prints.print", "mdi.prints.preview", "mdi.prints.topdf"},
      {"mdi.printl.print", "mdi.printl.preview", "mdi.prints.topdf"},
      {"mdi.report.swa", "mdi.report.swk", "mdi.report.swg", "mdi.report.ws.d", "mdi.report.ws.m"},
      {"mdi.report.nwf", "mdi.report.nwk"},
      {"adps.ctype.1", "adps.ctype.2"},
      {"adps.prtype.detal", "adps.prtype.hurt", "adps.prtype.spec"},
      {"sdoc.status.np", "sdoc.status.ok", "sdoc.autonumer"},
  };
  for (const auto& keys : buttons) {
    std::set<std::string> captions;
    for (const std::string& key : keys) {
      ASSERT_TRUE(texts.count(key)) << key;
      EXPECT_TRUE(captions.insert(texts.at(key)).second) << key << " has the caption of another item: " << texts.at(key);
    }
  }
}

// The tab of "mdi.tool.<tab>.<tool>"; the currency list of the reports says "report".
std::string TabOfTool(const std::string& key) {
  const std::string tab = key.substr(9, key.find('.', 9) - 9);
  return tab == "report" ? "reports" : tab;
}

// The tips of one tab stand on the screen together with those of the main menu and with the window's own letters.
TEST_F(Catalogues, KeyTipsOfATabAreFreeOfEachOthersBeginnings) {
  std::map<std::string, std::vector<std::pair<std::string, std::string>>> tabs;  // (tip, key) by tab
  std::vector<std::pair<std::string, std::string>> everywhere;
  for (const auto& [key, text] : program_) {
    if (!key.starts_with("mdi.") || !key.ends_with(".key")) continue;
    if (key.starts_with("mdi.tool."))
      tabs[TabOfTool(key)].emplace_back(text, key);
    else
      everywhere.emplace_back(text, key);
  }
  EXPECT_EQ(tabs.size(), 6u);
  for (auto& [tab, tips] : tabs) {
    tips.insert(tips.end(), everywhere.begin(), everywhere.end());
    for (const auto& [tip, key] : tips) {
      // "P" is the letter of printing itself.
      EXPECT_TRUE(std::string("FSZKTU").find(tip) == std::string::npos && (tip != "P" || key.ends_with(".print.key"))) << key;
      for (const auto& [other, other_key] : tips) EXPECT_FALSE(key != other_key && other.starts_with(tip)) << key << " and " << other_key;
    }
  }
}

}  // namespace
