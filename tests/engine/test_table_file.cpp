#include <sys/wait.h>
#include <unistd.h>

#include "engine/table_fixture.h"

namespace ostrinka {
namespace {

std::string Scrambled(std::string text) {
  text.resize(16, ' ');
  for (char& c : text) c = static_cast<char>(255 - static_cast<uint8_t>(c));
  return text;
}

TEST_F(TableTest, NewFileHasOneOwnerNoFieldsAndNoRecords) {
  Create(path);
  const std::string bytes = Bytes(path);
  ASSERT_EQ(bytes.size(), 33807u);
  EXPECT_EQ(bytes.substr(0, 3), "QDB");
  EXPECT_EQ(LoadLe<int16_t>(&bytes[3]), 1);
  EXPECT_EQ(LoadLe<int16_t>(&bytes[5]), 0);
  EXPECT_EQ(bytes.substr(7, 16), Scrambled("kreda"));
  EXPECT_EQ(static_cast<uint8_t>(bytes[7 + 5]), 223);  // a blank
  EXPECT_EQ(bytes.substr(23, 16), Scrambled("kreda"));
  EXPECT_EQ(LoadLe<int32_t>(&bytes[39]), 1024);
  EXPECT_EQ(LoadLe<int16_t>(&bytes[43]), -1);
  EXPECT_EQ(LoadLe<int16_t>(&bytes[45]), 0);
  EXPECT_EQ(bytes.find_first_not_of('\0', 47), std::string::npos);
}

TEST_F(TableTest, FieldSlotsAndRecordsLieWhereTheFormatHasThem) {
  auto table = Create(path);
  ASSERT_TRUE(table->FIELD_ADD("Ilość_$", kInteger, 7, "", ""));
  ASSERT_TRUE(table->FIELD_ADD("NAZWA", kText, 5, "", ""));
  ASSERT_TRUE(table->FIELD_ADD("GRUPA", kLink, 0, "grupy.ovd", "NAZWA"));
  ASSERT_TRUE(table->RECORD_ADD({int16_t{-2}, std::string("żuk"), 9}));
  const std::string bytes = Bytes(path);
  const char* slot = &bytes[10247];
  EXPECT_EQ(std::string(slot, 16), ToCp1250("ILOŚĆ_$         "));
  EXPECT_EQ(LoadLe<int32_t>(slot + 16), 3);
  EXPECT_EQ(LoadLe<int32_t>(slot + 20), 0);  // a length belongs to texts only
  EXPECT_EQ(LoadLe<int32_t>(slot + 24), 1);
  EXPECT_EQ(LoadLe<int32_t>(slot + 92 + 24), 3);
  EXPECT_EQ(LoadLe<int32_t>(slot + 184 + 24), 8);
  EXPECT_EQ(std::string(slot + 184 + 28, 9), "grupy.ovd");
  EXPECT_EQ(std::string(slot + 184 + 37, 39), std::string(39, ' '));
  EXPECT_EQ(std::string(slot + 184 + 76, 16), "NAZWA           ");
  EXPECT_EQ(LoadLe<int32_t>(&bytes[33803]), 1);
  EXPECT_EQ(table->RECORD_LENGTH(), 13);
  EXPECT_EQ(bytes.substr(33807), std::string("\0\0\xFE\xFF\xBFuk\0\0\x09\0\0\0", 13));
}

TEST_F(TableTest, OpeningRefusesWhatIsNoLogin) {
  Goods();
  const struct {
    const char *user, *password, *detail;
  } rows[] = {
      {"", "kreda", "Invalid user name or password"},
      {"kreda", "", "Invalid user name or password"},
      {"kreda", "12345678901234567", "Invalid user name or password"},
      {"123", "kreda", "Invalid user name or password"},
      {"kre da", "kreda", "Invalid user name or password"},
      {"kreda", "kré", "Invalid user name or password"},
      {"KREDA", "kreda", "Invalid user name or password"},
      {"kreda", "kredA", "Invalid user name or password"},
  };
  for (const auto& row : rows) {
    auto table = Closed();
    EXPECT_FALSE(table->DATABASE_OPEN(path, row.user, row.password, false, true, false)) << row.user;
    EXPECT_EQ(table->last_error_code(), 15);
    EXPECT_EQ(table->last_error(), std::string("Can't open database < ") + row.detail + " >");
    EXPECT_FALSE(table->IsOpen());
  }
  EXPECT_TRUE(Opens(path, "  kreda ", " kreda "));
  for (const std::string& missing : {std::string(), surroundings.folder / "brak.ovd", surroundings.folder.path()}) {
    auto table = Closed();
    EXPECT_FALSE(table->DATABASE_OPEN(missing, "kreda", "kreda", false, false, false));
    EXPECT_EQ(table->last_error(), "Can't open database < - none - >");
  }
}

TEST_F(TableTest, ErrorsReachTheEventOnlyWhenAsked) {
  auto table = Closed();
  std::vector<std::string> told;
  table->error_event = [&](int code, const std::string& message) { told.push_back(std::to_string(code) + " " + message); };
  table->DErr(5, "");
  table->ShowErrMsg = true;
  table->DErr(30, "x");
  table->DErr(999, "unknown code");
  EXPECT_THAT(told, ElementsAre("30 Can't delete field < x >"));
  EXPECT_EQ(table->last_error_code(), 999);
}

TEST_F(TableTest, TheRecordCountComesFromTheFilesLength) {
  Goods();
  const int32_t length = 2 + 20 + 8 + 4 + 8 + 2;
  const std::string header = Bytes(path).substr(0, 33807);
  const struct {
    int64_t behind;
    int32_t records;
  } rows[] = {{0, 0}, {length - 1, 0}, {length, 1}, {length * 3 / 2, 1}, {length * 2, 2}};
  for (const auto& row : rows) {
    SetBytes(path, header + std::string(row.behind, '\0'));
    auto table = Open(path);
    EXPECT_EQ(table->RECORD_COUNT(), row.records) << row.behind;
    EXPECT_EQ(LoadLe<int32_t>(Bytes(path).data() + 33803), row.records);
  }
  // A torn record is written over by the next one.
  SetBytes(path, header + std::string(length * 3 / 2, 'x'));
  auto table = Open(path);
  AddGoods(*table, "Hak", "1", 1, "2008-01-01");
  EXPECT_EQ(Bytes(path).size(), 33807u + 2 * length);
  EXPECT_EQ(table->RECORD_COUNT(), 2);
}

TEST_F(TableTest, UnderscoreMagicOpensAndOtherMagicDoesNot) {
  Goods();
  std::string bytes = Bytes(path);
  bytes.replace(0, 3, "_DB");
  SetBytes(path, bytes);
  EXPECT_TRUE(Opens(path));
  bytes.replace(0, 3, "QDC");
  SetBytes(path, bytes);
  auto table = Closed();
  EXPECT_FALSE(table->DATABASE_OPEN(path, "kreda", "kreda", false, false, false));
  EXPECT_EQ(table->last_error(), "Can't open database < Invalid file format >");
}

TEST_F(TableTest, CreatingReplacesAFileThatNobodyUsesAndOpensOneInUse) {
  auto first = FilledGoods();
  auto second = Closed();
  EXPECT_TRUE(second->DATABASE_OPEN(path, "kreda", "kreda", true, false, false));
  EXPECT_EQ(second->RECORD_COUNT(), 5);  // the other object still has it open
  first.reset();
  EXPECT_TRUE(second->DATABASE_OPEN(path, "kreda", "kreda", true, false, false));
  EXPECT_EQ(second->FIELD_COUNT(), 0);
  auto nowhere = Closed();
  EXPECT_FALSE(nowhere->DATABASE_OPEN(surroundings.folder / "no/such/t.ovd", "kreda", "kreda", true, false, false));
  EXPECT_EQ(nowhere->last_error_code(), 0);
  EXPECT_THAT(nowhere->last_error(), testing::EndsWith("< #No such file or directory >"));
}

TEST_F(TableTest, DebugLinesNameTheOperationAndHideThePassword) {
  Goods();
  auto table = Closed();
  std::vector<std::string> lines;
  table->debug_event = [&](const std::string& line, bool start) { lines.push_back((start ? "+" : "-") + line); };
  table->DATABASE_OPEN(path, "kreda", "kreda", false, false, false);
  EXPECT_TRUE(table->RECORD_ADD());
  table->SELECTION("~", "*", "CENA", 3);
  table->RECORD_POSITION(1);
  table->DATABASE_CLOSE();
  EXPECT_THAT(
      lines, ElementsAre("+DATABASE_OPEN(" + path + ", kreda, *****)", "-...OK", "+RECORD_ADD", "-...OK", "+SELECTION(~, *, CENA, ordDesc)",
                         "-...OK", "+RECORD_POSITION = 1", "-...OK", "+DATABASE_CLOSE", "-...OK"));
}

TEST_F(TableTest, OwnersKeepTheUsers) {
  auto table = Goods();
  EXPECT_TRUE(table->USER_ADD("Zażółć", "hasło_1", kReadWrite));
  EXPECT_TRUE(table->USER_ADD("gość", "g", 0));
  const struct {
    const char *name, *password;
    int code;
    const char* detail;
  } refused[] = {
      {"gość", "inne", 10, "Can't create field < User 'gość' already exist >"},
      {"42", "x", 35, "Can't create user < Invalid user name or password >"},
      {"x", "", 35, "Can't create user < Invalid user name or password >"},
      {"x y", "x", 35, "Can't create user < Invalid user name or password >"},
      {"abcdefghijklmnopq", "x", 35, "Can't create user < Invalid user name or password >"},
  };
  for (const auto& row : refused) {
    EXPECT_FALSE(table->USER_ADD(row.name, row.password, kOwner));
    EXPECT_EQ(table->last_error_code(), row.code);
    EXPECT_EQ(table->last_error(), row.detail);
  }
  EXPECT_EQ(table->USER_COUNT(), 3);
  EXPECT_EQ(table->USER_NAME(2), "Zażółć");
  EXPECT_EQ(table->USER_PASS(2), "hasło_1");
  EXPECT_EQ(table->USER_NAME(0), "kreda");
  EXPECT_EQ(table->USER_TYPE(4), 256);
  EXPECT_TRUE(table->LOGIN_EXIST());

  auto guest = Closed();
  ASSERT_TRUE(guest->DATABASE_OPEN(path, "gość", "g", false, false, false));
  EXPECT_FALSE(guest->RECORD_ADD());
  EXPECT_EQ(guest->last_error(), "Can't create record < Permission denied >");
  EXPECT_FALSE(guest->FIELD("NAZWA", Value(std::string("x"))));
  EXPECT_EQ(guest->last_error(), "Can't save field < Permission denied >");
  EXPECT_FALSE(guest->USER_DELETE(1));
  EXPECT_EQ(guest->last_error(), "Can't create user < Permission denied >");
  EXPECT_FALSE(guest->FIELD_ADD("A", kByte, 0, "", ""));
  EXPECT_EQ(guest->last_error_code(), 29);

  EXPECT_FALSE(table->USER_DELETE(1)) << "the login itself";
  EXPECT_FALSE(table->USER_DELETE(4));
  EXPECT_EQ(table->last_error(), "Can't delete user < - none - >");
  EXPECT_TRUE(table->USER_DELETE(2));
  EXPECT_EQ(table->USER_NAME(2), "gość");
  EXPECT_TRUE(table->USER_SET(2, "gość", "nowe", kReadWrite));
  EXPECT_FALSE(Opens(path, "gość", "g"));
  EXPECT_TRUE(Opens(path, "gość", "nowe"));
}

TEST_F(TableTest, TheTwoHundredFiftySeventhUserIsRefused) {
  auto table = Create(path);
  for (int i = 2; i <= 256; ++i) ASSERT_TRUE(table->USER_ADD("u" + std::to_string(i), "p", kReadWrite));
  EXPECT_FALSE(table->USER_ADD("last", "p", kReadWrite));
  EXPECT_EQ(table->last_error(), "Can't create user < - none - >");
  EXPECT_TRUE(Opens(path, "u256", "p"));
}

TEST_F(TableTest, RefreshClearsTheFlagAndTheStampOnce) {
  Goods();
  std::string bytes = Bytes(path);
  StoreLe<int16_t>(&bytes[7 + 38], -1);
  SetBytes(path, bytes);
  auto table = Open(path);
  EXPECT_TRUE(table->TABLE_REFRESH());
  EXPECT_EQ(LoadLe<int16_t>(Bytes(path).data() + 7 + 38), 0);
  EXPECT_FALSE(table->TABLE_REFRESH());
  bytes = Bytes(path);
  StoreLe<int32_t>(&bytes[33799], 0x7ABCDEF1);
  SetBytes(path, bytes);
  EXPECT_TRUE(table->TABLE_REFRESH());
  EXPECT_EQ(LoadLe<int32_t>(Bytes(path).data() + 33799), 0);
  EXPECT_FALSE(table->TABLE_REFRESH());
}

TEST_F(TableTest, AChangeOfItsOwnIsNoneOfAnothers) {
  TestRandom same;  // gives the first object of these surroundings its number too
  const auto own = static_cast<int32_t>(same.Fraction() * 256 * 256 * 256);
  auto table = Goods();
  const auto stamped = [&](int32_t stamp) {
    std::string bytes = Bytes(path);
    StoreLe<int32_t>(&bytes[33799], stamp);
    SetBytes(path, bytes);
    return table->TABLE_REFRESH();
  };
  ASSERT_GT(own, 1);
  EXPECT_FALSE(stamped(own));
  EXPECT_EQ(LoadLe<int32_t>(Bytes(path).data() + 33799), own) << "left for the others to see";
  EXPECT_TRUE(stamped(own - 1));
  EXPECT_EQ(LoadLe<int32_t>(Bytes(path).data() + 33799), 0);
}

// Runs `body` in a second process and gives its answer.
template <typename Body>
int InAnotherProcess(Body body) {
  const pid_t child = fork();
  if (child == 0) _exit(body());
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST_F(TableTest, AnotherProcessIsKeptFromLockedRecordsAndStructure) {
  auto table = FilledGoods();
  ASSERT_TRUE(table->RECORD_LOCK(2));
  const int answers = InAnotherProcess([&] {
    auto other = Closed();
    if (!other->DATABASE_OPEN(path, "kreda", "kreda", false, true, false)) return 100;
    int result = other->RECORD_LOCK(2) ? 1 : 0;
    result |= other->RECORD_LOCK(3) ? 2 : 0;
    result |= other->RECORD_LOAD(2) ? 4 : 0;
    result |= other->FIELD_ADD("NOWE", kByte, 0, "", "") ? 8 : 0;
    result |= other->last_error() == "Can't add field < - none - >" ? 16 : 0;
    result |= other->RECORD_ADD() ? 32 : 0;
    return result;
  });
  EXPECT_EQ(answers, 2 | 4 | 16 | 32);
  EXPECT_EQ(table->RECORD_COUNT(), 6) << "sees what the other appended";
  EXPECT_TRUE(table->RECORD_LOAD(6));
  EXPECT_TRUE(table->RECORD_UNLOCK(2));
  // A second object of this process on the same file comes and goes without taking the lock of the first along.
  ASSERT_TRUE(table->RECORD_LOCK(3));
  Open(path);
  EXPECT_EQ(InAnotherProcess([&] { return Open(path)->RECORD_LOCK(3) ? 1 : 0; }), 0);
}

TEST_F(TableTest, AFilePutInTheTablesPlaceIsWrittenToInsteadOfTheLostOne) {
  auto table = FilledGoods();
  SetBytes(path + ".copy", Bytes(path));
  surroundings.files.Rename(path + ".copy", path);
  ASSERT_TRUE(table->RECORD_LOAD(1));
  EXPECT_TRUE(table->FIELD("NAZWA", Value(std::string("Szpadel"))));
  ASSERT_TRUE(table->RECORD_SAVE(1));
  AddGoods(*table, "Hak", "1", 1, "2008-01-01");
  auto other = Open(path);
  EXPECT_EQ(other->RECORD_COUNT(), 6);
  ASSERT_TRUE(other->RECORD_LOAD(1));
  EXPECT_EQ(other->Text("NAZWA"), "Szpadel");
}

}  // namespace
}  // namespace ostrinka
