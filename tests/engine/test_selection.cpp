#include <filesystem>

#include "engine/condition.h"
#include "engine/table_fixture.h"

namespace ostrinka {
namespace {

TEST_F(TableTest, ConditionsChooseRecords) {
  auto table = FilledGoods();
  // 1 Łopata 12,50 3 2008-01-15; 2 Kowalski młot 7 10 2008-02-01; 3 Ćwiek 0,05 500 2008-03-05; 4 Zamek 99,99 1 2007-12-31;
  // 5 Montaż 150 2 2008-03-05 service
  const struct {
    const char* condition;
    std::vector<int32_t> records;
  } rows[] = {
      {"", {1, 2, 3, 4, 5}},
      {"NAZWA # \"kow\"", {2}},
      {"nazwa#kow", {2}},
      {"NAZWA # \"ŁOP\"", {1}},
      {"NAZWA ~# \"a\"", {3}},
      {"NAZWA = zamek", {4}},
      {"NAZWA <> zamek", {1, 2, 3, 5}},
      {"NAZWA < m", {2}},  // by code points: Ć and Ł stand behind Z
      {"NAZWA >= \"ł\"", {1}},
      {"CENA > 12,5", {4, 5}},
      {"CENA >= 12.50", {1, 4, 5}},
      {"CENA => 12.50 AND CENA =< 99,99", {1, 4}},
      {"DATA_WYST = 1", {}},  // no such field: an empty text
      {"DATA_WYST = \"\"", {1, 2, 3, 4, 5}},
      {"DATA >= 2008-01-15 AND DATA <= 2008-02-01", {1, 2}},
      {"DATA = 05-03-2008", {3, 5}},
      {"DATA = nonsense", {}},
      {"DATA <> nonsense", {1, 2, 3, 4, 5}},
      {"DATA >", {}},  // a number comes before a text
      {"DATA > 1000-nonsense", {}},
      {"DATA < 1000-nonsense", {1, 2, 3, 4, 5}},
      {"DATA # -03-", {3, 5}},
      {"ILOSC = 3 OR CENA = 7 AND USLUGA = true", {}},  // from left to right
      {"ILOSC = 3 OR USLUGA = tak AND DATA = 2008-03-05", {5}},
      {"USLUGA = tak AND DATA = 2008-03-05 OR ILOSC = 3", {1, 5}},
      {"ILOSC=1 OR   ILOSC   =   2", {4, 5}},
      {"ILOSC == 1", {4}},
      {"ILOSC = = 1", {4}},  // the signs meet once the blank between them is gone
      {"ILOSC >< 1", {}},    // no operator: the result stays false
      {"ILOSC = 1 OR ILOSC >< 7", {4}},
      {"ILOSC # 0", {2, 3}},  // 10 and 500
      {".ILOSC = 10", {2}},
      {"@ILOSC = 10", {}},
      {"3 = 500", {3}},           // a field by its number
      {"NAZWA # \"ski m\"", {}},  // a quoted blank matches the character of code 150 only
      {"NAZWA # ski m", {2}},
      {"NAZWA # \"x=zam\"", {4}},  // the value starts behind the last operator character, quoted or not
      {"(ILOSC = 1)", {}},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(table->SELECTION("~", row.condition, "", ordAsc), static_cast<int32_t>(row.records.size())) << row.condition;
    EXPECT_EQ(table->selection(), row.records) << row.condition;
  }
}

TEST_F(TableTest, AQuotedBlankMatchesTheDashThatItBecomes) {
  auto table = FilledGoods();
  AddGoods(*table, "stal–brąz", "1", 1, "2008-01-01");  // U+2013 is the character of code 150
  EXPECT_EQ(table->SELECTION("~", "NAZWA # \"l b\"", "", ordAsc), 1);
  EXPECT_THAT(table->selection(), ElementsAre(6));
}

TEST(ConditionText, ATermIsTakenApartLiterally) {
  const struct {
    const char *text, *field;
    Operator operation;
    const char* value;
  } rows[] = {
      {"A B = x", "AB", Operator::kEqual, "X"},    {"a <= \"Dwa\"", "A", Operator::kLessOrEqual, "Dwa"},
      {"A ~# b", "A", Operator::kLacks, "B"},      {"A ~ # b", "A", Operator::kLacks, "B"},
      {"A # \"<\"", "A", Operator::kContains, ""}, {"A", "A", Operator::kUnknown, "A"},
  };
  for (const auto& row : rows) {
    const std::vector<ConditionTerm> terms = ParseCondition(row.text);
    ASSERT_EQ(terms.size(), 1u) << row.text;
    EXPECT_EQ(terms[0].field, row.field) << row.text;
    EXPECT_EQ(terms[0].operation, row.operation) << row.text;
    EXPECT_EQ(terms[0].value, row.value) << row.text;
  }
  std::string many = "A = 1";
  for (int i = 0; i < 2000; ++i) many += " OR A = 1";
  EXPECT_EQ(ParseCondition(many).size(), 1024u);
}

TEST_F(TableTest, AConditionOnALinkComparesThroughItsTarget) {
  auto groups = Create(surroundings.folder / "grupy.ovd");
  EXPECT_TRUE(groups->FIELD_ADD("OPIS", kText, 20, "", ""));
  for (const char* name : {"Kowalski", "Żak", "abakus", "10"}) EXPECT_TRUE(groups->RECORD_ADD({std::string(name)}));
  auto table = Create(path);
  EXPECT_TRUE(table->FIELD_ADD("GRUPA", kLink, 0, "grupy.ovd", "OPIS"));
  for (const int target : {1, 2, 3, 4, 0, 99, 1}) EXPECT_TRUE(table->RECORD_ADD({target}));
  const struct {
    const char* condition;
    std::vector<int32_t> records;
  } rows[] = {
      {"GRUPA # \"KOW\"", {1, 7}}, {"@GRUPA = żak", {2}},    {".GRUPA = 3", {3}},
      {"GRUPA = 10", {4}},         {"GRUPA = \"\"", {5, 6}}, {".GRUPA < 3", {1, 2, 5, 7}},  // as texts, which is the same here
  };
  for (const auto& row : rows) {
    table->SELECTION("*", row.condition, "", ordAsc);
    EXPECT_EQ(table->selection(), row.records) << row.condition;
  }
  table->SELECTION("*", "*", "@GRUPA", ordAsc);
  EXPECT_EQ(Texts(*table, "@GRUPA"), (std::vector<std::string>{"", "", "10", "Kowalski", "Kowalski", "abakus", "Żak"})) << "not folded";
  table->SELECTION("*", "*", "GRUPA", ordDesc);
  EXPECT_THAT(Texts(*table, "GRUPA"), ElementsAre("99", "4", "3", "2", "1", "1", "0"));
}

TEST_F(TableTest, ALongScanFindsThroughALinkWhatSingleReadsFind) {
  constexpr int kTargets = 300, kRecords = 700;
  auto groups = Create(surroundings.folder / "grupy.ovd");
  EXPECT_TRUE(groups->FIELD_ADD("OPIS", kText, 20, "", ""));
  for (int i = 1; i <= kTargets; ++i)
    EXPECT_TRUE(groups->RECORD_ADD({std::string(i % 7 == 0 ? "  Kowalska " : i % 7 == 1 ? " 12 " : i % 7 == 2 ? "" : "Żak")}));
  EXPECT_TRUE(groups->RECORD_DELETE(7));  // a link shows a deleted record all the same
  auto table = Create(path);
  EXPECT_TRUE(table->FIELD_ADD("GRUPA", kLink, 0, "grupy.ovd", "OPIS"));
  for (int i = 0; i < kRecords; ++i) EXPECT_TRUE(table->RECORD_ADD({i % (kTargets + 5)}));  // some lead behind the last target
  for (const char* condition : {"GRUPA # \"KOW\"", "GRUPA = kowalska", "GRUPA = \"\"", "GRUPA # 12", "GRUPA ~# żak", "GRUPA > l"}) {
    std::vector<int32_t> singly;  // a record at a time reads its target alone
    for (int32_t n = 1; n <= kRecords; ++n) {
      if (table->SELECTION("*", condition, "", ordAsc, n, n) == 1) singly.push_back(n);
    }
    EXPECT_FALSE(singly.empty()) << condition;
    table->SELECTION("*", condition, "", ordAsc);
    EXPECT_EQ(table->selection(), singly) << condition;
  }
}

TEST_F(TableTest, OrdersFoldTextsAndLeaveTheRestToTheirSize) {
  auto table = FilledGoods();
  AddGoods(*table, "ćma", "-5", -7, "1999-12-31");
  AddGoods(*table, "102", "2", 4, "2008-03-06");
  AddGoods(*table, "11", "2,01", 5, "2008-03-07");
  const struct {
    const char* field;
    int order;
    std::vector<int32_t> records;
  } rows[] = {
      {"NAZWA", ordAsc, {7, 8, 6, 3, 2, 1, 5, 4}}, {"nazwa", ordDesc, {4, 5, 1, 2, 3, 6, 8, 7}}, {"CENA", ordAsc, {6, 3, 7, 8, 2, 1, 4, 5}},
      {"2", ordDesc, {5, 4, 1, 2, 8, 7, 3, 6}},    {"ILOSC", 7, {6, 4, 5, 1, 7, 8, 2, 3}},  // anything but 2 sorts upwards
      {"!", ordDesc, {1, 2, 3, 4, 5, 6, 7, 8}},    {"", ordAsc, {1, 2, 3, 4, 5, 6, 7, 8}},       {"", ordDesc, {8, 7, 6, 5, 4, 3, 2, 1}},
      {"", 7, {8, 7, 6, 5, 4, 3, 2, 1}},  // but anything but 1 scans downwards
  };
  for (const auto& row : rows) {
    EXPECT_EQ(table->SELECTION("~", "*", row.field, row.order), 8);
    EXPECT_EQ(table->selection(), row.records) << row.field << " " << row.order;
  }
  table->SELECTION("~", "ILOSC > 2", "", ordAsc);
  EXPECT_EQ(table->SELECTION("~", "~", "CENA", ordDesc), 0) << "a kept selection counts as none";
  EXPECT_THAT(table->selection(), ElementsAre(1, 2, 8, 7, 3));
}

TEST_F(TableTest, ALongSortIsRight) {
  auto table = Create(path);
  EXPECT_TRUE(table->FIELD_ADD("N", kLong, 0, "", ""));
  for (int i = 0; i < 1000; ++i) EXPECT_TRUE(table->RECORD_ADD({(i * 7919) % 1009}));
  table->SELECTION("*", "*", "N", ordDesc);
  const auto texts = Texts(*table, "N");
  ASSERT_EQ(texts.size(), 1000u);
  EXPECT_TRUE(std::is_sorted(texts.rbegin(), texts.rend(), [](auto& a, auto& b) { return std::stoi(a) < std::stoi(b); }));
}

TEST_F(TableTest, RangesColumnsAndTheSpecialSigns) {
  auto table = FilledGoods();
  EXPECT_TRUE(table->RECORD_DELETE(3));
  EXPECT_EQ(table->SELECTION("CENA, brak, nazwa", "*", "", ordAsc, 2, 4), 2);
  EXPECT_THAT(table->selection(), ElementsAre(2, 4));
  EXPECT_THAT(table->columns(), ElementsAre(2, 1));
  EXPECT_EQ(table->SELECTION("~", "*", "", ordDesc, -5, 99), 4);
  EXPECT_THAT(table->selection(), ElementsAre(5, 4, 2, 1));
  EXPECT_EQ(table->MAX_COLUMNS(), 2);
  EXPECT_EQ(table->SELECTION("!", "!", "", ordAsc), 0);
  EXPECT_THAT(table->selection(), IsEmpty());
  EXPECT_THAT(table->columns(), IsEmpty());
  EXPECT_EQ(table->SELECTION("", "", "", ordAsc, 4, 2), 0);
  table->ShowErrMsg = true;
  int errors = 0;
  table->error_event = [&](int, const std::string&) { ++errors; };
  table->SELECTION("BRAK", "BRAK = 1", "BRAK", ordAsc);
  EXPECT_EQ(errors, 0);
  EXPECT_TRUE(table->ShowErrMsg);
}

TEST_F(TableTest, AQueryLeavesTheBufferOfAnEditorAlone) {
  auto table = FilledGoods();
  table->RECORD_LOAD(1);
  EXPECT_TRUE(table->FIELD("NAZWA", Value(std::string("Szpadel"))));
  table->SELECTION("~", "NAZWA # z", "NAZWA", ordAsc);
  EXPECT_EQ(table->Text("NAZWA"), "Szpadel");
  EXPECT_TRUE(table->RECORD_SAVE(1));
  table->RECORD_LOAD(1);
  EXPECT_EQ(table->Text("NAZWA"), "Szpadel");
}

TEST_F(TableTest, RecordsWiderThanABlockAreScannedBothWays) {
  auto table = Create(path);
  for (int i = 0; i < 5; ++i) ASSERT_TRUE(table->FIELD_ADD("T" + std::to_string(i), kText, 65536, "", ""));
  for (int i = 0; i < 4; ++i)
    EXPECT_TRUE(table->RECORD_ADD({Value(), Value(), Value(), Value(), std::string(65535, 'a') + std::to_string(i)}));
  EXPECT_EQ(table->SELECTION("*", "T4 # a2", "", ordAsc), 1);
  EXPECT_THAT(table->selection(), ElementsAre(3));
  EXPECT_EQ(table->SELECTION("*", "*", "", ordDesc), 4);
  EXPECT_THAT(table->selection(), ElementsAre(4, 3, 2, 1));
}

// Every pass but the first reads in place; another program may add to the file, change it, or cut it off meanwhile.
TEST_F(TableTest, LaterPassesSeeWhatOthersWrite) {
  auto table = Create(path);
  ASSERT_TRUE(table->FIELD_ADD("NAZWA", kText, 400, "", ""));
  constexpr int kRecords = 6000;
  for (int i = 1; i <= kRecords; ++i) ASSERT_TRUE(table->RECORD_ADD({"towar" + std::to_string(i)}));
  for (const int order : {ordAsc, ordDesc, ordAsc}) {
    ASSERT_EQ(table->SELECTION("*", "NAZWA # \"towar59\"", "", order), 111);
    EXPECT_EQ(table->selection().front(), order == ordAsc ? 59 : 5999);
  }
  auto other = Open(path);
  ASSERT_TRUE(other->RECORD_ADD({"towar59 nowy"}));
  ASSERT_TRUE(other->RECORD_LOAD(59));
  EXPECT_TRUE(other->FIELD("NAZWA", "inny"));
  ASSERT_TRUE(other->RECORD_SAVE(59));
  ASSERT_EQ(other->SELECTION("*", "NAZWA # \"towar59\"", "", ordDesc), 111);
  EXPECT_EQ(other->selection().front(), kRecords + 1);
  EXPECT_EQ(other->selection().back(), 590);

  const auto whole = static_cast<int64_t>(std::filesystem::file_size(path));
  table->progress = [&](int percent) {
    if (percent > 50) std::filesystem::resize_file(path, static_cast<size_t>(whole / 4));
  };
  const int found = table->SELECTION("*", "*", "", ordAsc);
  EXPECT_GT(found, kRecords / 2);
  EXPECT_LT(found, kRecords);
  table->progress = nullptr;
  EXPECT_LT(table->SELECTION("*", "*", "", ordDesc), kRecords / 2);
}

TEST_F(TableTest, NumbersStandBeforeTextsInTheOrder) {
  auto sizes = Create(surroundings.folder / "rozmiary.ovd");
  EXPECT_TRUE(sizes->FIELD_ADD("MM", kLong, 0, "", ""));
  for (const int size : {10, -3, 200}) EXPECT_TRUE(sizes->RECORD_ADD({size}));
  auto table = Create(path);
  EXPECT_TRUE(table->FIELD_ADD("ROZMIAR", kLink, 0, "rozmiary.ovd", "MM"));
  for (const int target : {99, 3, 1, 98, 2}) EXPECT_TRUE(table->RECORD_ADD({target}));  // of no target a text is shown, the empty one
  table->SELECTION("*", "*", "@ROZMIAR", ordAsc);
  const std::vector<int32_t> rising = table->selection();
  EXPECT_EQ(std::vector<int32_t>(rising.begin(), rising.begin() + 3), (std::vector<int32_t>{5, 3, 2}));
  table->SELECTION("*", "*", "@ROZMIAR", ordDesc);
  const std::vector<int32_t> falling = table->selection();
  EXPECT_EQ(std::vector<int32_t>(falling.end() - 3, falling.end()), (std::vector<int32_t>{2, 3, 5}));
}

}  // namespace
}  // namespace ostrinka
