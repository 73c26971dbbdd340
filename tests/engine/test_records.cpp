#include "engine/table_fixture.h"

namespace ostrinka {
namespace {

TEST_F(TableTest, ValuesOfEveryTypeComeBackAsTheyWerePut) {
  auto table = Create(path);
  const struct {
    const char* name;
    FieldType type;
    Value put;
    Value back;
  } rows[] = {
      {"A", kByte, 255, uint8_t{255}},
      {"B", kBoolean, std::string("tak"), true},
      {"C", kInteger, std::string("-32768"), int16_t{-32768}},
      {"D", kLong, 2147483647.0, int32_t{2147483647}},
      {"E", kSingle, std::string("4,2345"), 4.2345f},
      {"F", kDouble, std::string("0.1"), 0.1},
      {"G", kCurrency, std::string("-12,3456"), Currency::FromRaw(-123456)},
      {"I", kText, std::string("Zażółć gęślą jaźń €"), std::string("Zażółć gęślą jaźń €")},
      {"J", kMemo, 1, int32_t{1}},
  };
  std::vector<Value> values;
  for (const auto& row : rows) {
    ASSERT_TRUE(table->FIELD_ADD(row.name, row.type, 30, "", "")) << table->last_error();
    values.push_back(row.put);
  }
  ASSERT_TRUE(table->FIELD_ADD("H", kDate, 0, "", ""));
  values.emplace_back(std::string("2008-03-05"));
  ASSERT_TRUE(table->RECORD_ADD(values)) << table->last_error();
  for (int pass = 0; pass < 2; ++pass) {
    ASSERT_TRUE(table->RECORD_LOAD(1));
    for (const auto& row : rows) EXPECT_EQ(table->FIELD(row.name), row.back) << row.name;
    EXPECT_EQ(table->FIELD("H"), Value(std::string("2008-03-05"))) << "a date comes as text";
    EXPECT_EQ(table->FieldRaw("H"), Value(*Date::FromYmd(2008, 3, 5)));
    ASSERT_TRUE(table->RECORD_SAVE(1));
  }
}

TEST_F(TableTest, AValueThatDoesNotConvertLeavesTheFileAsItWas) {
  auto table = FilledGoods();
  const std::string before = Bytes(path);
  EXPECT_FALSE(table->RECORD_ADD({std::string("x"), std::string("not a price")}));
  EXPECT_EQ(table->last_error_code(), 0);
  EXPECT_THAT(table->last_error(), testing::HasSubstr("< #"));
  ASSERT_TRUE(table->RECORD_LOAD(1));
  EXPECT_TRUE(table->FIELD("ILOSC", Value(1e12)));
  EXPECT_TRUE(table->FIELD("NAZWA", Value(std::string("x"))));
  EXPECT_FALSE(table->RECORD_SAVE(1));
  EXPECT_FALSE(table->RECORD_ADD(std::vector<Value>(6)));
  EXPECT_EQ(table->last_error(), "Can't create record < Too many arguments >");
  EXPECT_TRUE(Bytes(path) == before);
}

TEST_F(TableTest, OverlongTextSpillsWithinItsRecordOnly) {
  auto table = Create(path);
  EXPECT_TRUE(table->FIELD_ADD("A", kText, 3, "", ""));
  EXPECT_TRUE(table->FIELD_ADD("B", kText, 4, "", ""));
  ASSERT_TRUE(table->RECORD_ADD({std::string("one")}));
  ASSERT_TRUE(table->RECORD_ADD({std::string("two")}));
  ASSERT_TRUE(table->RECORD_ADD({std::string("abcdefghijklmnop")}));
  EXPECT_EQ(Bytes(path).substr(33807 + 18), std::string("\0\0abcdefg", 9));
  ASSERT_TRUE(table->RECORD_ADD({std::string("ABCDEF"), std::string("x")}));
  ASSERT_TRUE(table->RECORD_LOAD(4));
  EXPECT_EQ(table->Text("B"), "xEF");
  // Saving puts every field anew.
  EXPECT_TRUE(table->FIELD("B", Value(std::string("y"))));
  EXPECT_TRUE(table->RECORD_SAVE(4));
  ASSERT_TRUE(table->RECORD_LOAD(1));
  EXPECT_TRUE(table->FIELD("A", Value(std::string("0123456789"))));
  EXPECT_TRUE(table->RECORD_SAVE(1));
  EXPECT_EQ(Bytes(path).substr(33807, 18), std::string("\0\0"
                                                       "012\0\0\0\0"
                                                       "\0\0two\0\0\0\0",
                                                       18));
  EXPECT_EQ(Bytes(path).substr(33807 + 27), std::string("\0\0"
                                                        "ABCy\0\0\0",
                                                        9));
}

TEST_F(TableTest, NullsInATextAreDroppedAndEmptyEntriesBecomeZero) {
  auto table = FilledGoods();
  std::string bytes = Bytes(path);
  bytes.replace(33807 + 2, 6, std::string("\0a\0b\0c", 6));
  SetBytes(path, bytes);
  ASSERT_TRUE(table->RECORD_LOAD(1));
  EXPECT_EQ(table->Text("NAZWA"), "abc");
  for (const char* name : {"NAZWA", "CENA", "ILOSC", "DATA", "USLUGA"}) EXPECT_TRUE(table->FIELD(name, Value()));
  ASSERT_TRUE(table->RECORD_SAVE(1));
  EXPECT_EQ(Bytes(path).substr(33807, 44), std::string(44, '\0'));
}

TEST_F(TableTest, NullsWithinATextEndItOnlyWhereNothingElseFollows) {
  auto table = Create(path);
  EXPECT_TRUE(table->FIELD_ADD("A", kText, 4, "", ""));
  EXPECT_TRUE(table->FIELD_ADD("B", kText, 4, "", ""));
  const struct {
    std::string stored, shown;
  } rows[] = {
      {std::string("ab\0\0", 4), "ab"}, {std::string("a\0\0b", 4), "ab"}, {std::string("\0\0\0b", 4), "b"},
      {std::string("abc\0", 4), "abc"}, {std::string("\0a\0\0", 4), "a"}, {std::string("abcd", 4), "abcd"},
      {std::string("\0\0\0\0", 4), ""},
  };
  for (size_t i = 0; i < std::size(rows); ++i) EXPECT_TRUE(table->RECORD_ADD({std::string(), std::string("zz")}));
  std::string bytes = Bytes(path);
  for (size_t i = 0; i < std::size(rows); ++i) bytes.replace(33807 + i * 10 + 2, 4, rows[i].stored);
  SetBytes(path, bytes);
  for (int32_t n = 1; n <= static_cast<int32_t>(std::size(rows)); ++n) {
    const std::string& shown = rows[static_cast<size_t>(n) - 1].shown;
    ASSERT_TRUE(table->RECORD_LOAD(n));
    EXPECT_EQ(table->Text("A") + "|" + table->Text("B"), shown + "|zz") << n;
    EXPECT_EQ(table->SELECTION("~", "A = \"" + shown + "\"", "", ordAsc, n, n), 1) << n;
  }
}

TEST_F(TableTest, AFailedLoadForgetsTheBufferSoThatASaveChangesNothing) {
  auto table = FilledGoods();
  const std::string before = Bytes(path);
  ASSERT_TRUE(table->RECORD_LOAD(1));
  EXPECT_FALSE(table->RECORD_LOAD(6));
  EXPECT_EQ(table->last_error(), "Can't read record < - none - >");
  EXPECT_EQ(table->FIELD("NAZWA"), Value(std::string()));
  EXPECT_TRUE(table->RECORD_SAVE(2));
  EXPECT_TRUE(Bytes(path) == before);
}

TEST_F(TableTest, FieldsAreFoundByNumberNameAndNumberText) {
  auto table = FilledGoods();
  ASSERT_TRUE(table->RECORD_LOAD(2));
  for (const FieldId& id : {FieldId(1), FieldId("NAZWA"), FieldId(" nazwa "), FieldId("1"), FieldId(".NAZWA")}) {
    EXPECT_EQ(table->Text(id), "Kowalski młot") << id.name();
  }
  EXPECT_EQ(table->FIELD(6), Value(std::string()));
  EXPECT_EQ(table->last_error(), "Can't read record < Invalid field number >");
  table->FIELD("BRAK");
  EXPECT_EQ(table->last_error(), "Can't read record < Invalid field name >");
  EXPECT_EQ(table->Text("@1"), "") << "no link";
  EXPECT_EQ(table->FIELD_TYPE(".cena"), kCurrency);
  for (const int number : {0, -1, INT32_MIN, 6}) {
    EXPECT_FALSE(table->FIELD_EXISTS(number));
    EXPECT_EQ(table->last_error(), "Can't read record < Invalid field number >") << number;
  }
  EXPECT_EQ(table->FIELD_TYPE(".3") + table->FIELD_LEN(".1"), 0) << "only a name stands behind a point";
  EXPECT_EQ(table->Text(".1"), "");
  EXPECT_EQ(table->last_error(), "Can't read record < Invalid field name >");
}

TEST_F(TableTest, DeletingMarksTheRecordAndStepsToTheNext) {
  auto table = FilledGoods();
  ASSERT_TRUE(table->RECORD_POSITION(2));
  EXPECT_TRUE(table->RECORD_DELETE(2));
  EXPECT_EQ(table->RECORD_POSITION(), 3);
  EXPECT_THAT(table->selection(), ElementsAre(1, 3, 4, 5));
  EXPECT_EQ(Bytes(path).substr(33807 + 44, 2), std::string("\1\0", 2));
  EXPECT_FALSE(table->RECORD_EXIST(2));
  EXPECT_TRUE(table->RECORD_LOAD(2)) << "stays readable";
  EXPECT_FALSE(table->RECORD_DELETE(2));
  EXPECT_EQ(table->last_error(), "Can't read record < Record 2 doesn't exist >");
  EXPECT_TRUE(table->RECORD_DELETE(5));
  EXPECT_EQ(table->RECORD_POSITION(), 4) << "the new last entry";
  for (const int n : {1, 3, 4}) EXPECT_TRUE(table->RECORD_DELETE(n));
  EXPECT_THAT(table->selection(), IsEmpty());
  EXPECT_FALSE(table->MOVE_NEXT());
  EXPECT_FALSE(table->MOVE_FIRST());
  ASSERT_TRUE(table->RECORD_LOAD(3));
  EXPECT_TRUE(table->RECORD_SAVE(3, true));
  EXPECT_EQ(table->SELECTION("*", "*", "", ordAsc), 1);
  EXPECT_THAT(table->selection(), ElementsAre(3));
}

TEST_F(TableTest, WalkingSkipsWhatIsGoneAndFindsItsWayBackIntoTheSelection) {
  auto table = FilledGoods();
  auto other = Open(path);
  EXPECT_TRUE(other->RECORD_DELETE(2));
  EXPECT_TRUE(table->MOVE_FIRST());
  EXPECT_EQ(table->RECORD_POSITION(), 1);
  EXPECT_TRUE(table->MOVE_NEXT());
  EXPECT_EQ(table->RECORD_POSITION(), 3) << "2 was deleted by another";
  EXPECT_TRUE(table->MOVE_LAST());
  EXPECT_EQ(table->RECORD_POSITION(), 5);
  EXPECT_FALSE(table->MOVE_NEXT());
  EXPECT_TRUE(table->MOVE_PREV());
  EXPECT_EQ(table->RECORD_POSITION(), 4);

  table->SELECTION("~", "ILOSC >= 3", "ILOSC", ordDesc);  // 3 (500), 1 (3)
  EXPECT_THAT(table->selection(), ElementsAre(3, 1));
  table->RECORD_POSITION(4);
  EXPECT_TRUE(table->MOVE_PREV());
  EXPECT_EQ(table->RECORD_POSITION(), 3) << "the largest entry below 4";
  table->RECORD_POSITION(4);
  EXPECT_FALSE(table->MOVE_NEXT()) << "no entry above 4";
  EXPECT_EQ(table->RECORD_POSITION(), 4);
  EXPECT_TRUE(table->RECORD_SHOW(4));
  EXPECT_FALSE(table->RECORD_SHOW(4));
  EXPECT_THAT(table->selection(), ElementsAre(3, 1, 4));
  EXPECT_FALSE(table->RECORD_POSITION(2));
  EXPECT_EQ(table->RECORD_POSITION(), 4);
}

TEST_F(TableTest, ARecordAddedIsKnownByItsNumberWhateverOthersAdd) {
  auto mine = FilledGoods(), other = Open(path);
  const int32_t before = mine->RECORD_COUNT();
  ASSERT_TRUE(mine->RECORD_ADD());
  ASSERT_TRUE(other->RECORD_ADD());
  EXPECT_EQ(mine->RECORD_COUNT(), before + 2);
  EXPECT_EQ(mine->RECORD_ADDED(), before + 1);
  EXPECT_EQ(other->RECORD_ADDED(), before + 2);
}

TEST_F(TableTest, RecordsThatAnotherAddedCountAtOnce) {
  auto mine = FilledGoods(), other = Open(path);
  AddGoods(*other, "Hak", "1", 1, "2008-01-01");
  ASSERT_TRUE(mine->RECORD_LOAD(6)) << "beyond what was counted last";
  EXPECT_EQ(mine->Text("NAZWA"), "Hak");
  EXPECT_TRUE(mine->RECORD_EXIST(6));
  AddGoods(*other, "Gwóźdź", "1", 1, "2008-01-01");
  ASSERT_TRUE(mine->RECORD_LOAD(1));
  EXPECT_TRUE(mine->RECORD_POSITION(7)) << "what was read since may have brought it";
  AddGoods(*other, "Wkręt", "1", 1, "2008-01-01");
  ASSERT_TRUE(mine->RECORD_SHOW(8) && mine->RECORD_POSITION(5));
  EXPECT_TRUE(mine->MOVE_NEXT());
  EXPECT_EQ(mine->RECORD_POSITION(), 8);
  EXPECT_FALSE(mine->RECORD_EXIST(9));
  EXPECT_FALSE(mine->RECORD_LOAD(9));
}

TEST_F(TableTest, FromADeletedRecordTheNearestOneFollows) {
  auto table = FilledGoods();
  table->SELECTION("~", "ILOSC <> 10", "ILOSC", ordAsc);  // without the second
  EXPECT_THAT(table->selection(), ElementsAre(4, 5, 1, 3));
  ASSERT_TRUE(table->RECORD_POSITION(2) && table->RECORD_DELETE(2));
  EXPECT_EQ(table->RECORD_POSITION(), 2) << "it was not among them";
  EXPECT_TRUE(table->MOVE_NEXT());
  EXPECT_EQ(table->RECORD_POSITION(), 3) << "the least entry above 2, not the first";
  table->SELECTION("~", "ILOSC = 3 OR ILOSC = 1", "ILOSC", ordAsc);
  EXPECT_THAT(table->selection(), ElementsAre(4, 1));
  ASSERT_TRUE(table->RECORD_POSITION(5));
  EXPECT_TRUE(table->MOVE_PREV());
  EXPECT_EQ(table->RECORD_POSITION(), 4) << "the largest below 5";
}

TEST_F(TableTest, ANewRecordIsOutsideTheSelectionUntilShown) {
  auto table = FilledGoods();
  AddGoods(*table, "Hak", "1", 1, "2008-01-01");
  EXPECT_EQ(table->MAX_ROWS(), 5);
  EXPECT_FALSE(table->RECORD_SELECT(6));
  EXPECT_TRUE(table->RECORD_SHOW(6));
  EXPECT_TRUE(table->RECORD_SELECT(6));
}

TEST_F(TableTest, LinksShowTheTargetAlsoWhenItIsDeleted) {
  auto groups = Create(surroundings.folder / "grupy.ovd");
  EXPECT_TRUE(groups->FIELD_ADD("OPIS", kText, 10, "", ""));
  EXPECT_TRUE(groups->FIELD_ADD("NADRZ", kLink, 0, "grupy.ovd", "OPIS"));
  EXPECT_TRUE(groups->RECORD_ADD({std::string("stal"), 0}));
  EXPECT_TRUE(groups->RECORD_ADD({std::string("drewno"), 1}));
  auto table = Create(path);
  EXPECT_TRUE(table->FIELD_ADD("GRUPA", kLink, 0, "C:\\elsewhere\\grupy.ovd", "opis"));
  EXPECT_TRUE(table->FIELD_ADD("NAD", kLink, 0, "grupy.ovd", "NADRZ"));
  EXPECT_TRUE(table->FIELD_ADD("BRAK", kLink, 0, "niema.ovd", "OPIS"));
  EXPECT_TRUE(table->FIELD_ADD("POLE", kLink, 0, "grupy.ovd", "NIEMA"));
  EXPECT_TRUE(table->RECORD_ADD({2, 2, 1, 1}));
  EXPECT_TRUE(table->RECORD_ADD({9, 0, 0, 0}));
  EXPECT_TRUE(groups->RECORD_DELETE(2));
  table = Open(path, true);
  ASSERT_TRUE(table->RECORD_LOAD(1));
  EXPECT_EQ(table->Text("@GRUPA"), "drewno");
  EXPECT_EQ(table->Text("@1"), "drewno");
  EXPECT_EQ(table->FIELD("GRUPA"), Value(int32_t{2}));
  EXPECT_EQ(table->Text("@NAD"), "") << "a chain ends at the first linked table";
  EXPECT_EQ(table->Text("@BRAK"), "");
  EXPECT_EQ(table->Text("@POLE"), "");
  ASSERT_TRUE(table->RECORD_LOAD(2));
  EXPECT_EQ(table->Text("@GRUPA"), "") << "no such target";
  // What the other workstation changes is seen at once.
  groups->RECORD_LOAD(2);
  EXPECT_TRUE(groups->FIELD("OPIS", Value(std::string("dąb"))));
  EXPECT_TRUE(groups->RECORD_SAVE(2));
  table->RECORD_LOAD(1);
  EXPECT_EQ(table->Text("@GRUPA"), "dąb");
}

}  // namespace
}  // namespace ostrinka
