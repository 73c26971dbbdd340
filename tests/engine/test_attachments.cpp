#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "engine/table_fixture.h"
#include "support/failing_files.h"

namespace ostrinka {
namespace {

class AttachmentTest : public TableTest {
 protected:
  std::unique_ptr<ClassQDBASE> table;
  std::string memo = path + ".memo";

  void SetUp() override {
    EXPECT_TRUE(Goods()->FIELD_ADD("PLIKI", kMemo, 0, "", ""));
    auto goods = Open(path);
    AddGoods(*goods, "Hak", "1", 1, "2008-01-01");
    AddGoods(*goods, "Młot", "1", 1, "2008-01-01");
    goods.reset();
    table = Open(path);
  }
  bool Attach(int32_t record, const std::string& name, const std::string& content) {
    SetBytes(surroundings.folder / name, content);
    return table->RECORD_POSITION(record) && table->MEMO_ADD("PLIKI", surroundings.folder / name);
  }
  // What opening an attachment gives: its content, or "-" when it fails.
  std::string Opened(int32_t record, int index) {
    table->RECORD_POSITION(record);
    surroundings.ui.opened.clear();
    if (!table->MEMO_EXEC("pliki", index)) return "-";
    const std::string file = surroundings.ui.opened.at(0), content = Bytes(file);
    std::filesystem::remove(file);
    return std::filesystem::path(file).filename().string() + ": " + content;
  }
};

TEST_F(AttachmentTest, AnEntryLiesInTheCompanionAsTheFormatHasIt) {
  ASSERT_TRUE(Attach(2, "umowa ź.txt", "hello"));
  const std::string bytes = Bytes(memo);
  ASSERT_EQ(bytes.size(), 291u);
  EXPECT_EQ(bytes.substr(0, 12), ToCp1250("umowa ź.txt") + " ");
  EXPECT_EQ(bytes[255], ' ');
  EXPECT_EQ(LoadLe<int32_t>(&bytes[256]), 5);
  EXPECT_EQ(LoadLe<int16_t>(&bytes[260]), -1);
  EXPECT_EQ(bytes.substr(262, 16), "PLIKI           ");
  EXPECT_EQ(LoadLe<int32_t>(&bytes[278]), 2);
  EXPECT_EQ(LoadLe<int32_t>(&bytes[282]), 292);
  EXPECT_EQ(bytes.substr(286), "hello");
  table->RECORD_LOAD(2);
  EXPECT_EQ(table->Int("PLIKI"), 1);
  EXPECT_EQ(Opened(2, 1), "umowa ź.txt: hello");
  EXPECT_EQ(Opened(1, 1), "-") << "of another record";
}

TEST_F(AttachmentTest, SizesAreBounded) {
  EXPECT_FALSE(Attach(1, "empty", ""));
  EXPECT_FALSE(Attach(1, "large", std::string(10'000'001, 'x')));
  EXPECT_FALSE(table->MEMO_ADD("PLIKI", surroundings.folder / "missing"));
  EXPECT_EQ(Bytes(memo).size(), 0u);
  EXPECT_TRUE(Attach(1, "just", std::string(10'000'000, 'x')));
  EXPECT_FALSE(table->MEMO_ADD("NAZWA", surroundings.folder / "just"));
  EXPECT_FALSE(table->MEMO_ADD("BRAK", surroundings.folder / "just"));
  EXPECT_EQ(table->last_error(), "Can't read record < Invalid field name >");
}

TEST_F(AttachmentTest, AFreedBlockIsUsedAgainAndCompressionGivesTheRestBack) {
  Attach(1, "a", "aaaaaaaaaa");
  Attach(2, "b", "bbbb");
  Attach(1, "c", "cc");
  EXPECT_FALSE(table->MEMO_DEL("PLIKI", 2)) << "it belongs to record 2";
  EXPECT_TRUE(table->MEMO_DEL("PLIKI", 1));
  EXPECT_EQ(Opened(1, 1), "-");
  const size_t size = Bytes(memo).size();
  Attach(2, "d", "ddd");
  EXPECT_EQ(Bytes(memo).size(), size);
  EXPECT_EQ(Opened(2, 1), "d: ddd");
  EXPECT_EQ(Opened(2, 2), "b: bbbb");
  EXPECT_TRUE(table->MEMO_DEL("PLIKI", 2));
  auto other = Closed();
  const size_t with_gaps = Bytes(memo).size();
  EXPECT_TRUE(other->MEMO_FILE_COMPRESS_(memo)) << "left alone: another table has it open";
  EXPECT_EQ(Bytes(memo).size(), with_gaps);
  table.reset();
  EXPECT_TRUE(other->MEMO_FILE_COMPRESS_(memo));
  table = Open(path);
  EXPECT_EQ(Bytes(memo).size(), 286u * 2 + 3 + 2);
  EXPECT_FALSE(surroundings.files.FileExists(memo + ".temp"));
  EXPECT_EQ(Opened(2, 1), "d: ddd");
  EXPECT_EQ(Opened(1, 2), "c: cc");
  const std::string compact = Bytes(memo);
  EXPECT_TRUE(table->MEMO_FILE_COMPRESS_());
  EXPECT_TRUE(Bytes(memo) == compact);
}

TEST_F(AttachmentTest, AHostileChainEndsAndANameLosesItsFolders) {
  Attach(1, "a", "aaaa");
  Attach(1, "b", "bbbb");
  const std::string good = Bytes(memo);
  const struct {
    const char* what;
    size_t at;
    int32_t value;
  } rows[] = {
      {"second points to the first", 290 + 282, 1}, {"second points to itself", 290 + 282, 291},
      {"first points into itself", 282, 100},       {"negative", 282, -5},
      {"size beyond the file", 256, 1 << 30},       {"negative size", 256, -1},
  };
  for (const auto& row : rows) {
    std::string bytes = good;
    StoreLe<int32_t>(&bytes[row.at], row.value);
    SetBytes(memo, bytes);
    EXPECT_EQ(Opened(1, 3), "-") << row.what;
    Opened(1, 1);
    EXPECT_TRUE(Attach(2, "c", "cc")) << row.what;
    static_cast<void>(table->MEMO_DEL("PLIKI", 1));  // what is left of the chain may lack it
    table->MEMO_FILE_COMPRESS_();
  }
  for (size_t length = 0; length < good.size(); length += 37) {
    SetBytes(memo, good.substr(0, length));
    EXPECT_EQ(Opened(1, 2), "-") << length;
    EXPECT_TRUE(Attach(2, "c", "cc"));
  }
  std::string bytes = good;
  bytes.replace(0, 20, "..\\../x/etc/evil.txt");
  SetBytes(memo, bytes);
  EXPECT_EQ(Opened(1, 1), "evil.txt: aaaa");
  bytes.replace(0, 20, "..                  ");
  SetBytes(memo, bytes);
  EXPECT_EQ(Opened(1, 1), "-");
}

TEST_F(AttachmentTest, TwoWorkstationsThatAttachAtTheSameTimeLoseNothing) {
  constexpr int kEach = 40;
  std::vector<pid_t> children;
  for (const int32_t record : {1, 2}) {
    SetBytes(surroundings.folder / "scan", std::string(1000, static_cast<char>('0' + record)));
    const pid_t child = fork();
    if (child == 0) {
      auto own = Closed();
      int added = 0;
      if (own->DATABASE_OPEN(path, "kreda", "kreda", false, false, false) && own->RECORD_POSITION(record)) {
        for (int i = 0; i < kEach; ++i) {
          // The waiter of the tests does not wait.
          for (int attempt = 0; attempt < 10000; ++attempt) {
            if (!own->MEMO_ADD("PLIKI", surroundings.folder / "scan")) continue;
            ++added;
            break;
          }
        }
      }
      _exit(added == kEach ? 0 : 1);
    }
    children.push_back(child);
  }
  for (const pid_t child : children) {
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
  }
  int found = 0;
  for (int index = 1; index <= 2 * kEach + 1; ++index) found += Opened(1, index) != "-" || Opened(2, index) != "-";
  EXPECT_EQ(found, 2 * kEach);
}

TEST_F(AttachmentTest, AnEntryLargerThanAnyAttachmentIsNotRead) {
  Attach(1, "a", "aaaa");
  constexpr int32_t kHuge = 1'900'000'000;
  std::string bytes = Bytes(memo);
  StoreLe<int32_t>(&bytes[256], kHuge);
  SetBytes(memo, bytes);
  std::filesystem::resize_file(memo, static_cast<uintmax_t>(kHuge) + 286);  // a hole: it takes no room
  EXPECT_EQ(Opened(1, 1), "-");
}

TEST_F(AttachmentTest, AChainCutShortStillTakesWhatComes) {
  Attach(1, "a", "aaaa");
  Attach(1, "b", "bbbb");
  SetBytes(memo, Bytes(memo).substr(0, 290 + 288));
  ASSERT_TRUE(Attach(1, "c", "cc"));
  EXPECT_EQ(Opened(1, 3), "c: cc");
  EXPECT_EQ(Opened(1, 1), "a: aaaa");
}

TEST_F(AttachmentTest, BytesTooFewForAnEntrySwallowNothing) {
  for (const size_t length : {1, 100, 285}) {
    SetBytes(memo, std::string(length, 'x'));
    ASSERT_TRUE(Attach(1, "a", "aaaa") && Attach(1, "b", "bb")) << length;
    EXPECT_EQ(Opened(1, 1), "a: aaaa") << length;
    EXPECT_EQ(Opened(1, 2), "b: bb") << length;
  }
}

TEST_F(AttachmentTest, WhatIsToldAsNotAddedIsNotThere) {
  FailingFileSystem files;
  Platform platform = surroundings.With(files);
  ClassQDBASE full(platform);
  ASSERT_TRUE(full.DATABASE_OPEN(path, "kreda", "kreda", false, false, false) && full.RECORD_POSITION(1));
  Attach(1, "a", "aaaa");
  const std::string before = Bytes(memo);
  for (int64_t room = 0; room < 286 + 4; room += 17) {
    files.room = room;
    EXPECT_FALSE(full.MEMO_ADD("PLIKI", surroundings.folder / "a"));
    EXPECT_TRUE(Bytes(memo) == before) << room;
  }
  // Nor is it told so when it is there: the record that marks it is written first.
  files.room = -1;
  full.ForReadingOnly();
  EXPECT_FALSE(full.MEMO_ADD("PLIKI", surroundings.folder / "a"));
  EXPECT_TRUE(Bytes(memo) == before);
}

TEST_F(AttachmentTest, TheLongestNamesCanBeOpened) {
  const std::string longest(251, 'n');
  ASSERT_TRUE(Attach(1, longest + ".txt", "content"));
  EXPECT_EQ(Opened(1, 1), longest + ".txt: content");
  // Polish letters take a byte in the entry and two in a file's name.
  std::string bytes = Bytes(memo);
  bytes.replace(0, 251, ToCp1250([] {
                  std::string letters;
                  for (int i = 0; i < 251; ++i) letters += "ż";
                  return letters;
                }()));
  SetBytes(memo, bytes);
  const std::string opened = Opened(1, 1);
  EXPECT_THAT(opened, testing::EndsWith("ż.txt: content"));
  EXPECT_EQ(opened.find(':'), 254u);
}

TEST_F(AttachmentTest, WhatWasOpenedLiesInAFolderOfTheUsersOwnAndIsGoneAtTheEnd) {
  ASSERT_TRUE(Attach(1, "a", "aaaa"));
  std::string file;
  {
    PosixFileSystem files;
    Platform platform = surroundings.With(files);
    ClassQDBASE own(platform);
    ASSERT_TRUE(own.DATABASE_OPEN(path, "kreda", "kreda", false, false, false) && own.RECORD_POSITION(1));
    surroundings.ui.opened.clear();
    ASSERT_TRUE(own.MEMO_EXEC("PLIKI", 1));
    file = surroundings.ui.opened.at(0);
    struct stat folder, status;
    ASSERT_EQ(stat(std::filesystem::path(file).parent_path().c_str(), &folder), 0);
    ASSERT_EQ(stat(file.c_str(), &status), 0);
    EXPECT_EQ(folder.st_mode & 0777, 0700u);
    EXPECT_EQ(folder.st_uid, geteuid());
    EXPECT_EQ(status.st_mode & 0777, 0600u);
    // A process that was forked leaves it alone.
    const pid_t child = fork();
    if (child == 0) {
      files.RemoveTemporaryFolder();
      _exit(0);
    }
    waitpid(child, nullptr, 0);
    EXPECT_EQ(Bytes(file), "aaaa");
  }
  EXPECT_FALSE(std::filesystem::exists(std::filesystem::path(file).parent_path()));
}

TEST_F(AttachmentTest, AHoleTakesOnlyWhatFitsIntoIt) {
  Attach(1, "a", std::string(10, 'a'));
  Attach(2, "b", "bbbb");
  ASSERT_TRUE(table->RECORD_POSITION(1) && table->MEMO_DEL("PLIKI", 1));
  const size_t size = Bytes(memo).size();
  ASSERT_TRUE(Attach(1, "c", std::string(11, 'c')));
  EXPECT_EQ(Bytes(memo).size(), size + 286 + 11) << "behind the others";
  EXPECT_EQ(Opened(2, 2), "b: bbbb") << "not written over";
  EXPECT_EQ(Opened(1, 3), "c: " + std::string(11, 'c'));
  ASSERT_TRUE(Attach(1, "d", std::string(10, 'd')));
  EXPECT_EQ(Bytes(memo).size(), size + 286 + 11) << "just as large as the hole";
  EXPECT_EQ(Opened(1, 1), "d: " + std::string(10, 'd'));
  EXPECT_EQ(Opened(2, 2), "b: bbbb");
}

}  // namespace
}  // namespace ostrinka
