#include <gtest/gtest.h>

#include "base/text.h"
#include "support/script_session.h"

namespace ostrinka {
namespace {

const std::string kRates = std::string(kNewCompany) + "tab SŁOWNIKI\ncommand SŁOWNIK.STAWKIVAT\n";

// The row of a printed list that starts with `name`.
std::string RowOf(const ScriptSession& session, const std::string& name) {
  for (const std::string& line : Split(session.out, '\n')) {
    if (line.rfind(name + "\t", 0) == 0) return line;
  }
  return {};
}

TEST(Dictionaries, ANewRowOpensItsFirstCellAndEnterWalksToTheLast) {
  ScriptSession session;
  ASSERT_EQ(
      session.Run(
          kRates + "answer yes\ncommand SŁOWNIK.REKORD.DODAJ\nexpect-message msg.question.addnewrecord\n" +
          "expect-status mdi.message.dict.enter\nexpect txtEdit \"\"\nset txtEdit \"Stawka próbna\"\nkey 13\nset txtEdit P\nkey 13\n" +
          "expect txtEdit 0\nset txtEdit 12,5\nkey 13\nlist\nstatus"),
      0)
      << session.error;
  EXPECT_EQ(RowOf(session, "Stawka próbna"), "Stawka próbna\tP\t12,5") << session.out;
  EXPECT_EQ(session.out.back(), '\n');
  // Behind the last cell of the last row nothing is open.
  ScriptSession end;
  EXPECT_EQ(end.Run(kRates + "answer yes\ncommand SŁOWNIK.REKORD.DODAJ\nkey 13\nkey 13\nkey 13\nget txtEdit"), 2);
  EXPECT_TRUE(Contains(end.error, "no cell of a dictionary is open")) << end.error;
  ScriptSession refused;
  EXPECT_EQ(refused.Run(kRates + "answer no\ncommand SŁOWNIK.REKORD.DODAJ\nget txtEdit"), 2);
}

TEST(Dictionaries, AValueThatDoesNotConvertIsToldAndTheOldOneStays) {
  ScriptSession session;
  ASSERT_EQ(
      session.Run(kRates + "cell 1 1\nset txtEdit Pierwsza\ncell 1 3\nset txtEdit 22\ncell 1 3\nset txtEdit abc\nkey 13\nexpect-message "
                           "mdi.message.dict.error\nlist\nkey 13\nexpect txtEdit 22\ntab ZAKUP"),
      0)
      << session.error;
  EXPECT_TRUE(Contains(RowOf(session, "Pierwsza"), "\t22")) << session.out;
  EXPECT_TRUE(Contains(session.out, "message 16 "));
}

TEST(Dictionaries, NumbersKeepTheRangeOfTheirField) {
  // Days to pay: a 16-bit number.
  const struct {
    const char* typed;
    const char* stored;  // "" for a refusal
  } rows[] = {{"21", "21"}, {"32767", "32767"}, {"32768", ""}, {"", ""}, {"7,5", "8"}, {" 9 ", "9"}, {"-3", "-3"}};
  std::string script = std::string(kNewCompany) + "command SŁOWNIK.PŁATNOŚCI\n";
  for (const auto& row : rows) {
    script += "cell 1 2\nset txtEdit \"" + std::string(row.typed) + "\"\nrow 1\n";
    script += *row.stored ? std::string("cell 1 2\nexpect txtEdit ") + row.stored + "\n" : "expect-message mdi.message.dict.error\n";
  }
  ScriptSession session;
  EXPECT_EQ(session.Run(script), 0) << session.error;
}

TEST(Dictionaries, TheOpenCellIsWrittenBeforeAnythingElseAndForgottenByEsc) {
  std::string script = kRates;
  int number = 0;
  const char* const steps[] = {
      "command SŁOWNIK.WALUTY",    "tab ZAKUP", "row 2", "key 34", "key 119", "key 40", "cell 2 2", "key 9", "record 3",
      "command ABOUT\npress btnOK"};
  for (const char* step : steps) {
    const std::string name = "Nazwa" + std::to_string(++number);
    script += "cell 1 1\nset txtEdit " + name + "\n" + step + "\ncommand SŁOWNIK.STAWKIVAT\ncell 1 1\nexpect txtEdit " + name + "\n";
  }
  script += "set txtEdit Porzucona\nkey 27\ncell 1 1\nexpect txtEdit Nazwa" + std::to_string(number) + "\nset txtEdit Ostatnia";
  ScriptSession session;
  ASSERT_EQ(session.Run(script), 0) << session.error;
  ASSERT_EQ(session.Run("start\ncommand SŁOWNIK.STAWKIVAT\nlist"), 0) << session.error;
  EXPECT_FALSE(RowOf(session, "Ostatnia").empty()) << session.out;
}

TEST(Dictionaries, KeysOfTheOpenCellDoNotReachTheList) {
  ScriptSession session;
  // Delete clears the text while all of it is chosen; the keys of the caret end that; the record stays.
  ASSERT_EQ(
      session.Run(kRates + "list\necho ===\ncell 1 1\nset txtEdit Druga\ncell 1 1\nkey 36\nkey 35\nkey 46\nexpect txtEdit Druga\nkey 27\n"
                           "cell 1 1\nkey 46\nexpect txtEdit \"\"\nkey 27\ncell 1 1\nexpect txtEdit Druga\nkey 27\nlist"),
      0)
      << session.error;
  const size_t middle = session.out.find("===\n");
  EXPECT_EQ(Split(session.out.substr(0, middle), '\n').size(), Split(session.out.substr(middle + 4), '\n').size());
}

TEST(Dictionaries, ABooleanIsNegatedByAClickOrTheBlankKeyAndEnterPassesItOver) {
  ScriptSession session;
  ASSERT_EQ(session.Run(std::string(kNewCompany) + "command SŁOWNIK.PŁATNOŚCI\ncell 1 1\nset txtEdit Pierwsza\ncell 2 1\nset txtEdit "
                                                   "Druga\ntab ZAKUP\ntab SŁOWNIKI\nlist\necho ===\n"
                                                   "cell 1 4\nrow 2\nkey 32\nlist\ncell 1 3\nkey 13\nexpect txtEdit Druga"),
            0)
      << session.error;
  const auto mark = [&](const std::string& list, const std::string& name) {
    for (const std::string& line : Split(list, '\n')) {
      if (line.rfind(name, 0) == 0) return line.substr(line.rfind('\t') + 1);
    }
    return std::string();
  };
  const size_t middle = session.out.find("===");
  const std::string before = session.out.substr(0, middle), after = session.out.substr(middle);
  for (const char* name : {"Pierwsza", "Druga"}) {
    EXPECT_FALSE(mark(before, name).empty());
    EXPECT_NE(mark(before, name), mark(after, name)) << session.out;
  }
}

TEST(Dictionaries, ALinkIsChosenFromTheRecordsOfItsTable) {
  ScriptSession session;
  ASSERT_EQ(
      session.Run(
          std::string(kNewCompany) +
          "command SŁOWNIK.REGIONY\ncell 1 2\nset txtEdit Próba\ncell 1 3\nset txtEdit \"\"\nlist\necho ===\nkey 32\nset txtEdit #1\nlist\n"
          "command SŁOWNIK.PAŃSTWA\nlist"),
      0)
      << session.error;
  EXPECT_TRUE(Contains(session.out, "\tPróba\t\n")) << session.out;
  const std::string after = session.out.substr(session.out.find("==="));
  const size_t at = after.find("\tPróba\t") + std::string("\tPróba\t").size();
  const std::string country = after.substr(at, after.find('\n', at) - at);
  EXPECT_FALSE(country.empty());
  EXPECT_TRUE(Contains(after, "\n" + country + "\t")) << after;
}

TEST(Dictionaries, LettersBeyondTheFieldsLengthOrItsAlphabetAreNotTaken) {
  ScriptSession session;
  ASSERT_EQ(session.Run(kNewCompany), 0) << session.error;
  for (const char* typed : {"12345678901", "中", "a\\nb"}) {
    EXPECT_EQ(session.Run(std::string("start\ncommand SŁOWNIK.STAWKIVAT\ncell 1 2\nset txtEdit \"") + typed + "\""), 2) << typed;
    EXPECT_TRUE(Contains(session.error, "does not take")) << session.error;
  }
}

TEST(Dictionaries, DeletingAsksAndGoesToTheRowThatFollows) {
  ScriptSession session;
  ASSERT_EQ(
      session.Run(
          kRates +
          "cell 1 1\nset txtEdit Pierwsza\ncell 2 1\nset txtEdit Druga\ncell 3 1\nset txtEdit Trzecia\nrow 2\nanswer no\nkey 46\nlist\n"
          "echo ===\nanswer yes\nkey 46\nlist\nkey 13\nexpect txtEdit Trzecia"),
      0)
      << session.error;
  const size_t middle = session.out.find("===");
  EXPECT_TRUE(Contains(session.out.substr(0, middle), "Druga\t"));
  EXPECT_FALSE(Contains(session.out.substr(middle), "Druga\t"));
}

TEST(Dictionaries, WithoutADictionaryOnShowTheCommandsOnlyBeep) {
  ScriptSession session;
  EXPECT_EQ(session.Run(std::string(kNewCompany) +
                        "tab SŁOWNIKI\ncommand SŁOWNIK.REKORD.DODAJ\ncommand SŁOWNIK.REKORD.EDYTUJ\ncommand SŁOWNIK.REKORD.USUŃ"),
            0)
      << session.error;
  EXPECT_FALSE(Contains(session.out, "message")) << session.out;
}

}  // namespace
}  // namespace ostrinka
