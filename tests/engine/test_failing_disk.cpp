#include <filesystem>
#include <functional>

#include "engine/table_fixture.h"
#include "support/failing_files.h"

namespace ostrinka {
namespace {

class FailingDiskTest : public TableTest {
 protected:
  using Call = FailingFileSystem::Call;
  FailingFileSystem files;
  Platform platform = surroundings.With(files);
  ClassQDBASE table{platform};
  void SetUp() override {
    FilledGoods();
    ASSERT_TRUE(table.DATABASE_OPEN(path, "kreda", "kreda", false, true, false));
  }
};

TEST_F(FailingDiskTest, AnAddedRecordIsTakenBackWhole) {
  const std::string before = Bytes(path);
  for (const int64_t room : {0, 1, 20, 43}) {
    files.room = room;
    EXPECT_FALSE(table.RECORD_ADD({std::string("Hak")})) << room;
    EXPECT_EQ(table.last_error(), "No space left on device < #No space left on device >");
    EXPECT_TRUE(Bytes(path) == before);
    EXPECT_EQ(table.RECORD_COUNT(), 5);
  }
  files.room = -1;
  EXPECT_TRUE(table.RECORD_ADD({std::string("Hak")}));
}

TEST_F(FailingDiskTest, AStructureChangeThatBreaksOffAnywhereLeavesTheTable) {
  const std::string before = Bytes(path);
  const int64_t old_size = static_cast<int64_t>(before.size()), new_size = old_size + 5 * 8;
  for (const int64_t room : {int64_t{0}, old_size - 1, old_size + 100, old_size + new_size - 1}) {
    files.room = room;
    EXPECT_FALSE(table.FIELD_ADD("NOWE", kDouble, 0, "", "")) << room;
    EXPECT_EQ(table.last_error(), "No space left on device < #No space left on device >");
    EXPECT_TRUE(Bytes(path) == before) << room;
    EXPECT_TRUE(table.IsOpen());
    EXPECT_EQ(table.FIELD_COUNT(), 5);
    EXPECT_TRUE(files.FileExists(path + ".temp"));
  }
  // Both companions and not a byte more; what the failed ones left goes first.
  files.room = old_size + new_size;
  files.steps.clear();
  EXPECT_TRUE(table.FIELD_ADD("NOWE", kDouble, 0, "", ""));
  EXPECT_EQ(Bytes(path).size(), static_cast<size_t>(new_size));
  EXPECT_THAT(files.steps, ElementsAre("rename " + path, "rename " + path + ".try", "remove " + path + ".temp", "remove " + path + ".new",
                                       "flush " + path + ".new", "remove " + path + ".temp", "rename " + path + ".new"));
}

TEST_F(FailingDiskTest, AReadOnlyFolderRefusesOpeningAndCreating) {
  files.read_only = true;
  ClassQDBASE other(platform);
  EXPECT_FALSE(other.DATABASE_OPEN(path, "kreda", "kreda", false, false, false));
  EXPECT_EQ(other.last_error_code(), 15);
  EXPECT_FALSE(other.DATABASE_OPEN(surroundings.folder / "nowa.ovd", "kreda", "kreda", true, false, false));
  EXPECT_EQ(other.last_error_code(), 0);
  EXPECT_FALSE(other.IsOpen());
}

TEST_F(FailingDiskTest, ARecordWhoseOverwriteFailsStandsAsItWas) {
  const std::string before = Bytes(path);
  ASSERT_TRUE(table.RECORD_LOAD(2) && table.FIELD("NAZWA", std::string("Młotek")) && table.FIELD("ILOSC", 11));
  files.Fail(Call::kWrite);
  EXPECT_FALSE(table.RECORD_SAVE(2));
  EXPECT_EQ(table.last_error(), "Input/output error < #Input/output error >");
  EXPECT_EQ(files.Due(), 0);
  EXPECT_TRUE(Bytes(path) == before) << "the half that was written is taken back";
  EXPECT_TRUE(table.RECORD_SAVE(2)) << "the buffer still holds what is to be saved";
  ASSERT_TRUE(table.RECORD_LOAD(2));
  EXPECT_EQ(table.Text("NAZWA") + "|" + table.Text("ILOSC"), "Młotek|11");
}

TEST_F(FailingDiskTest, EveryWriterSaysThatItsWriteFailed) {
  const struct {
    const char* what;
    std::function<bool()> write;
  } writers[] = {
      {"add", [&] { return table.RECORD_ADD({std::string("Hak")}); }},
      {"add, the count", [&] { return files.Fail(Call::kWrite, 2), table.RECORD_ADD({std::string("Hak")}); }},
      {"delete", [&] { return table.RECORD_DELETE(1); }},
      {"rename a field", [&] { return table.FIELD_RENAME("CENA", "NOWA", false); }},
      {"user", [&] { return table.USER_ADD("ola", "ola", kReadWrite); }},
  };
  for (const auto& writer : writers) {
    files.Fail(Call::kWrite);
    EXPECT_FALSE(writer.write()) << writer.what;
    EXPECT_EQ(table.last_error_code(), 0) << writer.what;
    EXPECT_EQ(files.Due(), 0) << writer.what;
    EXPECT_EQ(table.RECORD_COUNT(), 5) << writer.what;
  }
}

TEST_F(FailingDiskTest, AChangeThatIsNotBroughtToTheDiskIsNone) {
  const std::string before = Bytes(path);
  files.Fail(Call::kFlush);
  EXPECT_FALSE(table.FIELD_ADD("NOWE", kDouble, 0, "", ""));
  EXPECT_TRUE(Bytes(path) == before) << "the new file was not on the disk: the old one stays";
  EXPECT_THAT(files.removed, testing::Not(testing::Contains(path)));
  EXPECT_EQ(table.FIELD_COUNT(), 5);
  files.Fail(Call::kFlush);
  EXPECT_FALSE(table.FIELD_RENAME("CENA", "NOWA", false)) << "nothing may be said to be done";
  files.Fail(Call::kRename);
  EXPECT_FALSE(table.FIELD_ADD("NOWE", kDouble, 0, "", ""));
  files.Fail(Call::kLock);
  EXPECT_FALSE(table.RECORD_LOCK(2));
  files.Fail(Call::kOpen);
  ClassQDBASE other(platform);
  EXPECT_FALSE(other.DATABASE_OPEN(path, "kreda", "kreda", false, false, false));
  EXPECT_EQ(files.Due(), 0);
}

TEST_F(FailingDiskTest, ACompressedAttachmentFileIsOnTheDiskBeforeItTakesItsPlace) {
  ASSERT_TRUE(table.FIELD_ADD("PLIKI", kMemo, 0, "", "") && table.RECORD_POSITION(1));
  const std::string memo = path + ".memo";
  for (const char* name : {"a", "b"}) {
    SetBytes(surroundings.folder / name, std::string(100, *name));
    ASSERT_TRUE(table.MEMO_ADD("PLIKI", surroundings.folder / name));
  }
  ASSERT_TRUE(table.MEMO_DEL("PLIKI", 1));
  const std::string before = Bytes(memo);
  files.Fail(Call::kFlush);
  EXPECT_FALSE(table.MEMO_FILE_COMPRESS_());
  EXPECT_TRUE(Bytes(memo) == before);
  EXPECT_FALSE(files.FileExists(memo + ".temp"));
  files.steps.clear();
  EXPECT_TRUE(table.MEMO_FILE_COMPRESS_());
  EXPECT_THAT(files.steps, ElementsAre("remove " + memo + ".temp", "flush " + memo + ".temp", "rename " + memo + ".temp"));
  EXPECT_EQ(Bytes(memo).size(), 386u);
}

}  // namespace
}  // namespace ostrinka
