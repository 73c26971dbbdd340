#include "engine/table_fixture.h"
#include "support/failing_files.h"

namespace ostrinka {
namespace {

TEST_F(TableTest, FieldDefinitionsAreRefusedWithTheirReasons) {
  auto table = Goods();
  const struct {
    const char* name;
    int type, length;
    const char *file, *field, *message;
  } rows[] = {
      {"42", kLong, 0, "", "", "Can't create field < Invalid field name >"},
      {"A-B", kLong, 0, "", "", "Can't create field < Invalid field name >"},
      {"A", kLink, 0, "x.ovd", " ", "Can't create field < Invalid link value >"},
      {"A", kLong, 0, "x.ovd", "", "Can't create field < Wrong number of arguments or invalid property assigment >"},
      {"", kLong, 0, "", "", "Can't create field < - none - >"},
      {"abcdefghijklmnopq", kLong, 0, "", "", "Can't create field < - none - >"},
      {"A", kText, 0, "", "", "Can't create field < Bad field length >"},
      {"A", kText, 65537, "", "", "Can't create field < Bad field length >"},
      {" nazwa", kText, 5, "", "", "Can't create field < Field 'NAZWA' already exist >"},
  };
  for (const auto& row : rows) {
    EXPECT_FALSE(table->FIELD_ADD(row.name, row.type, row.length, row.file, row.field)) << row.message;
    EXPECT_EQ(table->last_error(), row.message);
  }
  EXPECT_EQ(table->FIELD_COUNT(), 5);
  EXPECT_TRUE(table->FIELD_ADD("ąćęłńóśźż_$", kText, 65536, "", ""));
  EXPECT_EQ(table->FIELD_NAME(6), "ĄĆĘŁŃÓŚŹŻ_$");
  auto closed = Closed();
  EXPECT_FALSE(closed->FIELD_ADD("A", kByte, 0, "", ""));
  EXPECT_EQ(closed->last_error(), "Can't create field < - none - >");
}

TEST_F(TableTest, TwoHundredFiftySixFieldsFit) {
  auto table = Create(path);
  for (int i = 1; i <= 256; ++i) ASSERT_TRUE(table->FIELD_ADD("F" + std::to_string(i), kByte, 0, "", ""));
  EXPECT_FALSE(table->FIELD_ADD("F257", kByte, 0, "", ""));
  ASSERT_TRUE(table->RECORD_ADD(std::vector<Value>(256, Value(7))));
  table = Open(path);
  ASSERT_TRUE(table->RECORD_LOAD(1));
  EXPECT_EQ(table->Int("F256"), 7);
  EXPECT_EQ(table->RECORD_LENGTH(), 258);
}

TEST_F(TableTest, AddingAFieldKeepsEveryRecordAndStartsItAtZero) {
  auto table = FilledGoods();
  EXPECT_TRUE(table->RECORD_DELETE(4));
  const std::string before = Bytes(path);
  ASSERT_TRUE(table->FIELD_ADD("UWAGI", kText, 3, "", ""));
  const std::string after = Bytes(path);
  ASSERT_EQ(after.size(), 33807u + 5 * 47);
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(after.substr(33807 + i * 47, 47), before.substr(33807 + i * 44, 44) + std::string(3, '\0')) << i;
  }
  EXPECT_EQ(LoadLe<int32_t>(&after[33803]), 5);
  for (const char* companion : {".temp", ".new", ".try"}) EXPECT_FALSE(surroundings.files.FileExists(path + companion));
  EXPECT_FALSE(table->RECORD_EXIST(4));
  AddGoods(*table, "Hak", "1", 1, "2008-01-01");
  EXPECT_EQ(table->RECORD_COUNT(), 6);
}

TEST_F(TableTest, DeletingAFieldClosesTheGap) {
  auto table = FilledGoods();
  ASSERT_TRUE(table->FIELD_DELETE("cena"));
  EXPECT_EQ(table->RECORD_LENGTH(), 36);
  table = Open(path);
  EXPECT_EQ(Texts(*table, "NAZWA"), (std::vector<std::string>{"Łopata", "Kowalski młot", "Ćwiek", "Zamek", "Montaż"}));
  EXPECT_EQ(Texts(*table, "ILOSC"), (std::vector<std::string>{"3", "10", "500", "1", "2"}));
  EXPECT_EQ(Texts(*table, "USLUGA")[4], "True");
  EXPECT_EQ(LoadLe<int32_t>(Bytes(path).data() + 10247 + 92 + 24), 21) << "the position of the field that moved down";
  EXPECT_FALSE(table->FIELD_DELETE("CENA"));
  EXPECT_EQ(table->last_error(), "Can't read record < Invalid field name >");
  EXPECT_FALSE(table->FIELD_DELETE(5));
  EXPECT_EQ(table->last_error(), "Can't read record < Invalid field number >");
}

TEST_F(TableTest, ALargeTableIsReshapedInBlocks) {
  auto table = Create(path);
  EXPECT_TRUE(table->FIELD_ADD("A", kLong, 0, "", ""));
  EXPECT_TRUE(table->FIELD_ADD("T", kText, 4000, "", ""));
  EXPECT_TRUE(table->RECORD_ADD({1, std::string("first")}));
  std::string bytes = Bytes(path);
  const std::string record = bytes.substr(33807);
  std::string many;
  for (int i = 1; i <= 3001; ++i) {
    many += record;
    StoreLe<int32_t>(&many[many.size() - record.size() + 2], i);
  }
  SetBytes(path, bytes.substr(0, 33807) + many);
  table = Open(path);
  ASSERT_TRUE(table->FIELD_ADD("B", kDouble, 0, "", ""));
  ASSERT_TRUE(table->FIELD_DELETE("T"));
  EXPECT_EQ(table->RECORD_COUNT(), 3001);
  EXPECT_EQ(table->SELECTION("*", "B <> 0", "", ordAsc), 0);
  for (const int n : {1, 261, 262, 263, 3001}) {
    ASSERT_TRUE(table->RECORD_LOAD(n));
    EXPECT_EQ(table->Int("A"), n);
  }
}

TEST_F(TableTest, RenamingAndRedefining) {
  auto table = FilledGoods();
  EXPECT_TRUE(table->FIELD_RENAME("cena", "Ceną", false));
  EXPECT_EQ(table->FIELD_NAME(2), "CENĄ");
  EXPECT_FALSE(table->FIELD_RENAME("CENĄ", "nazwa", false));
  EXPECT_EQ(table->last_error(), "Can't rename field < Field 'NAZWA' already exist >");
  EXPECT_FALSE(table->FIELD_RENAME("CENĄ", "a b", false));
  EXPECT_EQ(table->last_error(), "Can't create field < Invalid field name >");
  EXPECT_TRUE(table->FIELD_SET(2, "X", kByte, 0)) << "true, though records keep it from changing";
  EXPECT_EQ(table->FIELD_TYPE(2), kCurrency);
  EXPECT_FALSE(table->FIELD_SET(6, "X", kByte, 0));
  {
    auto other = Open(path);
    EXPECT_FALSE(table->FIELD_RENAME("CENĄ", "CENA", false)) << "another has it open";
    EXPECT_TRUE(table->FIELD_RENAME("CENĄ", "CENA", true));
  }
  auto empty = Create(surroundings.folder / "pusta.ovd");
  EXPECT_TRUE(empty->FIELD_ADD("A", kByte, 0, "", ""));
  EXPECT_TRUE(empty->FIELD_ADD("B", kByte, 0, "", ""));
  EXPECT_TRUE(empty->FIELD_SET(1, "A", kText, 10));
  EXPECT_EQ(empty->RECORD_LENGTH(), 13);
  EXPECT_TRUE(empty->FIELD_DELETE("A"));
  EXPECT_THAT(empty->columns(), ElementsAre(1));
}

TEST_F(TableTest, ALinkFieldIsOpenAsSoonAsItIsAddedAndMovesWithItsNumber) {
  auto groups = Create(surroundings.folder / "grupy.ovd");
  EXPECT_TRUE(groups->FIELD_ADD("OPIS", kText, 10, "", ""));
  EXPECT_TRUE(groups->RECORD_ADD({std::string("stal")}));
  auto table = FilledGoods();
  ASSERT_TRUE(table->FIELD_ADD("GRUPA", kLink, 0, "grupy.ovd", "OPIS"));
  table->RECORD_LOAD(1);
  EXPECT_TRUE(table->FIELD("GRUPA", Value(1)));
  EXPECT_TRUE(table->RECORD_SAVE(1));
  table->RECORD_LOAD(1);
  EXPECT_EQ(table->Text("@GRUPA"), "stal");
  ASSERT_TRUE(table->FIELD_DELETE("CENA"));
  table->RECORD_LOAD(1);
  EXPECT_EQ(table->Text("@GRUPA"), "stal");
  EXPECT_EQ(table->Text("NAZWA"), "Łopata");
}

TEST_F(TableTest, AWholeNewTableBesideOneThatIsGoneOrHeadlessTakesItsPlace) {
  FilledGoods();
  const std::string whole = Bytes(path);
  const auto finished = [&](const std::string& table, const std::string& made) {
    std::filesystem::remove(path);
    if (!table.empty()) SetBytes(path, table);
    SetBytes(path + ".new", made);
    SetBytes(path + ".temp", whole);
    const bool done = ClassQDBASE::FinishChange(surroundings.files, path);
    EXPECT_EQ(surroundings.files.FileExists(path + ".new"), !done);
    EXPECT_EQ(surroundings.files.FileExists(path + ".temp"), !done);
    return done;
  };
  EXPECT_TRUE(finished("", whole));
  EXPECT_TRUE(finished(std::string(3, '\0') + whole.substr(3), whole));
  EXPECT_TRUE(finished(whole.substr(0, 20000), whole));
  EXPECT_EQ(Texts(*Open(path), "NAZWA").size(), 5u);
  EXPECT_FALSE(finished("", whole.substr(0, whole.size() - 1))) << "the last record is not whole";
  EXPECT_FALSE(finished("", whole.substr(0, 33000)));
  EXPECT_FALSE(finished("", "")) << "nothing was written yet";
  EXPECT_FALSE(finished(whole, whole)) << "the table is there";
  const auto other = Open(path + ".new");
  std::filesystem::remove(path);
  EXPECT_FALSE(ClassQDBASE::FinishChange(surroundings.files, path)) << "another program is writing it";
}

TEST_F(TableTest, ALinkUnderTheNameOfACompanionIsNotFollowed) {
  auto table = FilledGoods();
  const std::string victim = surroundings.folder / "victim";
  SetBytes(victim, "mine");
  for (const char* companion : {".temp", ".new"}) std::filesystem::create_symlink(victim, path + companion);
  EXPECT_TRUE(table->FIELD_ADD("PLIKI", kMemo, 0, "", ""));
  std::filesystem::create_symlink(victim, path + ".memo");
  SetBytes(surroundings.folder / "a", "aaaa");
  EXPECT_TRUE(table->RECORD_POSITION(1));
  EXPECT_FALSE(table->MEMO_ADD("PLIKI", surroundings.folder / "a"));
  std::filesystem::remove(path + ".memo");
  EXPECT_TRUE(table->MEMO_ADD("PLIKI", surroundings.folder / "a") && table->MEMO_ADD("PLIKI", surroundings.folder / "a"));
  EXPECT_TRUE(table->MEMO_DEL("PLIKI", 1));
  std::filesystem::create_symlink(victim, path + ".memo.temp");
  EXPECT_TRUE(table->MEMO_FILE_COMPRESS_());
  EXPECT_EQ(Bytes(victim), "mine");
}

TEST_F(TableTest, ATableLeftUnderAnotherNameIsNeitherOverwrittenNorLost) {
  auto table = FilledGoods();
  SetBytes(path + ".try", "the only copy");
  EXPECT_FALSE(table->FIELD_ADD("NOWE", kDouble, 0, "", ""));
  EXPECT_EQ(table->last_error(), "Can't add field < - none - >");
  EXPECT_FALSE(table->FIELD_RENAME("CENA", "NOWA", false));
  EXPECT_EQ(Bytes(path + ".try"), "the only copy");
  ClassQDBASE::PutBack(surroundings.files, path);
  EXPECT_EQ(Bytes(path + ".try"), "the only copy") << "a table of that name is there";
  const SoleUse alone(*table);
  ASSERT_TRUE(alone.held());
  std::filesystem::rename(path, path + ".try");
  ClassQDBASE::PutBack(surroundings.files, path);
  EXPECT_FALSE(surroundings.files.FileExists(path)) << "another object is about to put it back itself";
  table->DATABASE_CLOSE();
  ClassQDBASE::PutBack(surroundings.files, path);
  EXPECT_EQ(Texts(*Open(path), "NAZWA").size(), 5u);
  EXPECT_FALSE(surroundings.files.FileExists(path + ".try"));
}

TEST_F(TableTest, SoleUseIsKeptOverSeveralChanges) {
  auto table = FilledGoods();
  auto other = Open(path);
  EXPECT_FALSE(SoleUse(*table).held());
  other.reset();
  {
    const SoleUse alone(*table);
    const SoleUse within(*table);
    ASSERT_TRUE(alone.held() && within.held());
    const auto nobody_else = [&](bool changed) { return changed && !Opens(path); };
    EXPECT_TRUE(nobody_else(table->FIELD_ADD("CENA_2", kDouble, 0, "", "")));
    EXPECT_TRUE(nobody_else(table->UPDATE(true)));
    EXPECT_TRUE(nobody_else(table->RECORD_LOAD(1) && table->FIELD("CENA_2", 1.5) && table->RECORD_SAVE(1)));
    EXPECT_TRUE(nobody_else(table->FIELD_DELETE("CENA")));
    EXPECT_TRUE(nobody_else(table->FIELD_RENAME("CENA_2", "CENA", false)));
    { const SoleUse inner(*table); }
    EXPECT_FALSE(Opens(path));
  }
  ASSERT_TRUE(Opens(path));
  other = Open(path);
  ASSERT_TRUE(other->RECORD_LOAD(1));
  EXPECT_EQ(other->Real("CENA"), 1.5);
}

TEST_F(TableTest, ATornRecordDoesNotBecomeRecordsOfAShorterShape) {
  for (const bool redefine : {false, true}) {
    auto table = Create(path);
    EXPECT_TRUE(table->FIELD_ADD("A", kText, 100, "", ""));
    EXPECT_TRUE(table->FIELD_ADD("B", kLong, 0, "", ""));
    SetBytes(path, Bytes(path) + std::string(60, 'x'));
    ASSERT_EQ(table->RECORD_COUNT(), 0);
    {
      auto other = Open(path);
      EXPECT_FALSE(redefine ? table->FIELD_SET(1, "A", kByte, 0) : table->FIELD_DELETE("A")) << "it may be another's to finish";
    }
    EXPECT_TRUE(redefine ? table->FIELD_SET(1, "A", kByte, 0) : table->FIELD_DELETE("A"));
    EXPECT_EQ(table->RECORD_LENGTH(), redefine ? 7 : 6);
    EXPECT_EQ(table->RECORD_COUNT(), 0);
    EXPECT_TRUE(table->RECORD_ADD());
    EXPECT_EQ(Bytes(path).size(), 33807u + static_cast<size_t>(table->RECORD_LENGTH()));
    table.reset();
    std::filesystem::remove(path);
  }
}

TEST_F(TableTest, RecordsAreWrittenInTheShapeThatAnotherGaveTheEmptyTable) {
  Goods();
  auto first = Open(path), second = Open(path);
  ASSERT_TRUE(second->FIELD_DELETE("ILOSC") && second->FIELD_ADD("UWAGI", kText, 10, "", ""));
  ASSERT_TRUE(first->RECORD_ADD({std::string("Hak"), std::string("1,50"), std::string("2008-01-15"), true, std::string("nowy")}));
  EXPECT_EQ(first->RECORD_LENGTH(), second->RECORD_LENGTH());
  ASSERT_TRUE(second->RECORD_LOAD(1));
  EXPECT_EQ(second->Text("NAZWA") + "|" + second->Text("CENA") + "|" + second->Text("UWAGI"), "Hak|1,5|nowy");
  // One that has seen the table empty and only changes what is there now.
  std::filesystem::remove(path);
  Goods();
  auto third = Open(path);
  second = Open(path);
  ASSERT_TRUE(second->FIELD_DELETE("NAZWA") && second->RECORD_ADD({std::string("2"), 7}));
  ASSERT_TRUE(second->RECORD_ADD({std::string("3"), 8}));
  ASSERT_TRUE(third->RECORD_DELETE(2));
  ASSERT_TRUE(third->RECORD_LOAD(1) && third->FIELD("ILOSC", 9) && third->RECORD_SAVE(1));
  ASSERT_TRUE(second->RECORD_LOAD(1));
  EXPECT_EQ(second->Text("CENA") + "|" + second->Text("ILOSC"), "2|9");
  EXPECT_TRUE(second->RECORD_EXIST(1));
  EXPECT_FALSE(second->RECORD_EXIST(2));
}

TEST_F(TableTest, LeftOverCompanionsDoNotGetIntoTheNextChange) {
  auto table = FilledGoods();
  SetBytes(path + ".temp", std::string(100000, 'x'));
  SetBytes(path + ".new", std::string(100000, 'x'));
  ASSERT_TRUE(table->FIELD_ADD("NOWE", kDouble, 0, "", ""));
  EXPECT_EQ(table->RECORD_COUNT(), 5);
  EXPECT_EQ(Bytes(path).size(), 33807u + 5 * 52);
}

TEST_F(TableTest, AFieldIsDeletedByItsNameWhereAnotherPutIt) {
  Goods();
  auto first = Open(path), second = Open(path);
  ASSERT_TRUE(second->FIELD_DELETE("NAZWA") && second->FIELD_ADD("UWAGI", kText, 10, "", ""));
  ASSERT_TRUE(first->FIELD_DELETE("ILOSC"));
  const auto names = [](ClassQDBASE& table) {
    std::string all;
    for (int n = 1; n <= table.FIELD_COUNT(); ++n) all += table.FIELD_NAME(n) + " ";
    return all;
  };
  EXPECT_EQ(names(*first), "CENA DATA USLUGA UWAGI ");
  EXPECT_EQ(names(*Open(path)), "CENA DATA USLUGA UWAGI ");
  EXPECT_FALSE(first->FIELD_DELETE("NAZWA")) << "the other did that";
  EXPECT_EQ(first->last_error(), "Can't read record < Invalid field name >");
  EXPECT_EQ(names(*first), "CENA DATA USLUGA UWAGI ");
}

}  // namespace
}  // namespace ostrinka
