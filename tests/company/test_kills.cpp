// A company whose program is killed, or whose disk runs full, at any place of its creation, its upgrade and the work with it.
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

#include "company/killed_files.h"
#include "company/old_company.h"
#include "company/table_check.h"

namespace ostrinka {
namespace {

namespace fs = std::filesystem;
using End = KilledFileSystem::End;

class KillTest : public OldCompanyTest {
 protected:
  using Content = std::map<std::string, std::string>;
  KilledFileSystem files;
  Platform platform = surroundings.With(files);
  std::string saved = surroundings.folder / "saved";

  void SetUp() override {
    OldCompanyTest::SetUp();
    files.watched = folder;
  }
  Content FolderContent() {
    Content content;
    for (const std::string& name : surroundings.files.ListFiles(folder)) content[name] = FolderTest::Content(name);
    return content;
  }
  static std::string Differences(const Content& a, const Content& b) {
    std::string names;
    for (const auto& [name, bytes] : a) {
      if (!b.count(name) || b.at(name) != bytes) names += name + " ";
    }
    for (const auto& [name, bytes] : b) {
      if (!a.count(name)) names += "+" + name + " ";
    }
    return names;
  }
  void StartFrom(const std::string& from) {
    fs::remove_all(folder);
    if (from.empty()) {
      fs::create_directory(folder);
    } else {
      fs::copy(from, folder, fs::copy_options::recursive);
    }
    surroundings.ui.messages.clear();
  }
  // Runs `work` on the watched files until change number `n`. False when it came to its end before.
  bool RunUntil(int n, End end, const std::function<void(Program&)>& work) {
    files.left = n;
    files.end = end;
    bool ended = false;
    if (end == End::kKill) {
      const pid_t child = fork();
      if (child == 0) {
        Program other(platform);
        work(other);
        _exit(0);
      }
      int status = 0;
      waitpid(child, &status, 0);
      ended = WIFSIGNALED(status);
      EXPECT_TRUE(ended || WEXITSTATUS(status) == 0);
    } else {
      Program other(platform);
      work(other);
      ended = files.left == 0;
      OSTEngine(other).close_(false);
    }
    files.left = -1;
    return ended;
  }
  // As a person would: opening, and where there is no company yet, creating it.
  std::string OpenAgain() {
    if (Open()) return "";
    if (!Exists("firma.ovd") && !Create()) return "not created";
    bool ok = false;
    OSTEngine engine(program);
    engine.open_(true, ok);
    return ok ? "" : "not opened: " + engine.reason();
  }
  std::string Lacking() {
    std::string names;
    for (const TableDefinition& table : TableDefinitions()) names += Shortcomings(Table(program, table.number), table);
    return names;
  }
  // The end of `work` after a break at every `step`th change and one more opening: the folder of an unbroken run, byte by byte.
  void SameEndFromEveryBreak(const std::string& from, int step, const std::function<void(Program&)>& work) {
    StartFrom(from);
    ASSERT_FALSE(RunUntil(1'000'000, End::kNoMoreChanges, work));
    ASSERT_EQ(OpenAgain(), "");
    ASSERT_EQ(Lacking(), "");
    Close();
    const Content unbroken = FolderContent();
    ASSERT_GE(unbroken.size(), 29u);
    for (const End end : {End::kKill, End::kFullDisk}) {
      int breaks = 0;
      for (int n = 1; ++breaks; n += step) {
        StartFrom(from);
        if (!RunUntil(n, end, work)) break;
        ASSERT_EQ(OpenAgain(), "") << n;
        ASSERT_EQ(Lacking(), "") << n;
        Close();
        ASSERT_EQ(Differences(unbroken, FolderContent()), "")
            << "broken off at change " << n << (end == End::kKill ? ", killed" : ", full");
      }
      EXPECT_GT(breaks, 20);
    }
  }
};

void OpenCompany(Program& program) {
  bool ok = false;
  OSTEngine(program).open_(true, ok);
}

TEST_F(KillTest, ACompanyWhoseCreationBrokeOffAnywhereBecomesTheSame) {
  SameEndFromEveryBreak("", 10, [this](Program& program) {
    bool ok = false;
    OSTEngine(program).create_(folder, "kreda", "kreda", true, ok);
    if (ok) OpenCompany(program);
  });
}

TEST_F(KillTest, AnUpgradeThatBrokeOffAnywhereEndsAsAnUnbrokenOne) {
  ASSERT_TRUE(Create());
  for (const OlderShape& shape : OlderShapes()) MakeOlder(shape);
  fs::copy(folder, saved, fs::copy_options::recursive);
  SameEndFromEveryBreak(saved, 10, OpenCompany);
}

TEST_F(KillTest, AnUpgradeThatIsToEndStopsBetweenTwoChangesAndIsRepeated) {
  ASSERT_TRUE(Create());
  for (const OlderShape& shape : OlderShapes()) MakeOlder(shape);
  fs::copy(folder, saved, fs::copy_options::recursive);
  ASSERT_TRUE(Open());
  Close();
  const Content unbroken = FolderContent();
  int stops = 0;
  for (int n = 1;; n += 10, ++stops) {
    StartFrom(saved);
    surroundings.ui.steps_to_end = n;
    const bool opened = Open();
    const bool asked = surroundings.ui.steps_to_end == 0;
    surroundings.ui.steps_to_end = -1;
    EXPECT_TRUE(surroundings.ui.messages.empty());
    if (!asked) break;
    ASSERT_EQ(CountOpenTables(), opened ? 28u : 0u);
    for (const char* companion : {".temp", ".new", ".try"}) {
      for (const TableDefinition& table : TableDefinitions()) ASSERT_FALSE(Exists(std::string(table.file) + companion)) << n;
    }
    ASSERT_TRUE(Open()) << n;
    Close();
    ASSERT_EQ(Differences(unbroken, FolderContent()), "") << n;
  }
  EXPECT_GT(stops, 5);
}

void Work(Program& program, const std::string& scan) {
  OpenCompany(program);
  ClassQDBASE &customers = Table(program, kKontrahenci), &sales = Table(program, kDokSprzed), &lines = Table(program, kSprzedane);
  for (int32_t i = 1; i <= 6; ++i) {
    static_cast<void>(customers.RECORD_ADD());
    const int32_t n = customers.RECORD_ADDED();
    customers.RECORD_POSITION(n);
    customers.RECORD_LOAD(n);
    static_cast<void>(customers.FIELD("NAZWA", std::string("Odbiorca")));
    static_cast<void>(customers.RECORD_SAVE(n));
    static_cast<void>(customers.MEMO_ADD("MEMO_", scan));
    if (i % 3 == 0) static_cast<void>(customers.MEMO_DEL("MEMO_", 1));
    static_cast<void>(sales.RECORD_ADD({int32_t{1}, i, i * 100}));
    static_cast<void>(lines.RECORD_ADD({i * 100, int32_t{1}}));
  }
  OSTEngine(program).close_(true);
}

TEST_F(KillTest, WorkThatBrokeOffAnywhereLeavesACompanyThatOpensAndTakesAttachments) {
  ASSERT_TRUE(Create() && Open());
  Close();
  fs::copy(folder, saved, fs::copy_options::recursive);
  const std::string scan = surroundings.folder / "scan.txt", second = surroundings.folder / "second.txt";
  ASSERT_TRUE(surroundings.files.WriteAll(scan, std::string(3000, 's')) && surroundings.files.WriteAll(second, "second"));
  for (const End end : {End::kKill, End::kFullDisk}) {
    for (int n = 1;; n += 5) {
      StartFrom(saved);
      if (!RunUntil(n, end, [&](Program& program) { Work(program, scan); })) break;
      ASSERT_EQ(OpenAgain(), "") << n;
      ASSERT_EQ(Lacking(), "") << n;
      EXPECT_TRUE(surroundings.ui.messages.empty()) << n << surroundings.ui.messages[0].first;
      ClassQDBASE& customers = Table(program, kKontrahenci);
      ASSERT_TRUE(customers.RECORD_ADD());
      const int32_t record = customers.RECORD_ADDED();
      ASSERT_TRUE(customers.RECORD_POSITION(record) && customers.RECORD_LOAD(record) && customers.MEMO_ADD("MEMO_", second)) << n;
      int found = 0;
      for (int index = 1; index <= 10; ++index) found += customers.MEMO_EXEC("MEMO_", index);
      EXPECT_EQ(found, 1) << n;
      Close(true);
    }
  }
}

}  // namespace
}  // namespace ostrinka
