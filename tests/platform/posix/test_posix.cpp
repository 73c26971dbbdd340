#include <fcntl.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <pty.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstring>
#include <thread>

#include "platform/posix/posix_system.h"
#include "support/test_platform.h"

namespace ostrinka {
namespace {

class PosixTest : public ::testing::Test {
 protected:
  TemporaryFolder folder;
  PosixFileSystem files;
};

TEST_F(PosixTest, LocksBelongToTheOpenFileAndReachOtherProcesses) {
  const auto first = files.Open(folder / "t", OpenMode::kCreate);
  auto second = files.Open(folder / "t", OpenMode::kReadWrite);
  ASSERT_TRUE(first->Lock(100, 10, true));
  EXPECT_FALSE(second->Lock(105, 1, true));
  EXPECT_TRUE(second->Lock(110, 1, true));
  second.reset();  // closing another open file of this process releases nothing of the first
  const pid_t child = fork();
  if (child == 0) {
    PosixFileSystem own;
    const auto file = own.Open(folder / "t", OpenMode::kReadWrite);
    _exit(file->Lock(100, 10, true) ? 1 : file->Lock(110, 1, true) ? 0 : 2);
  }
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_EQ(WEXITSTATUS(status), 0);
}

TEST_F(PosixTest, AReplacedFileIsNoLongerNamedByItsPath) {
  ASSERT_TRUE(files.WriteAll(folder / "a", "1"));
  const auto open = files.Open(folder / "a", OpenMode::kReadWrite);
  EXPECT_TRUE(open->StillNamed());
  ASSERT_TRUE(files.WriteAll(folder / "b", "2"));
  ASSERT_TRUE(files.Rename(folder / "b", folder / "a"));
  EXPECT_FALSE(open->StillNamed());
}

TEST_F(PosixTest, WhatTheProgramMakesForItselfFollowsNoLink) {
  ASSERT_TRUE(files.WriteAll(folder / "victim", "mine"));
  std::filesystem::create_symlink(folder / "victim", folder / "link");
  std::filesystem::create_symlink(folder / "nowhere", folder / "dangling");
  for (const OpenMode mode : {OpenMode::kNew, OpenMode::kNewPrivate, OpenMode::kCompanion}) {
    EXPECT_EQ(files.Open(folder / "link", mode), nullptr);
    EXPECT_EQ(files.Open(folder / "dangling", mode), nullptr);
  }
  EXPECT_FALSE(files.FileExists(folder / "nowhere"));
  EXPECT_EQ(files.Open(folder / "victim", OpenMode::kNew), nullptr);
  EXPECT_NE(files.Open(folder / "victim", OpenMode::kCompanion), nullptr);
  // A neighbour that is taken already: the next one.
  std::filesystem::create_symlink(folder / "victim", folder / "a~1");
  const std::string long_name(255, 'n');
  for (const std::string& name : {std::string("a"), long_name}) {
    ASSERT_TRUE(files.WriteAll(folder / name, "new", {.for_user_alone = true})) << name;
    struct stat status;
    ASSERT_EQ(stat((folder / name).c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600u);
  }
  std::string content;
  ASSERT_TRUE(files.ReadAll(folder / "victim", content));
  EXPECT_EQ(content, "mine");
  EXPECT_FALSE(files.RenameAside(folder / "a", folder / "dangling"));
  EXPECT_FALSE(files.RenameAside(folder / "a", folder / "victim"));
  EXPECT_TRUE(files.RenameAside(folder / "a", folder / "b"));
}

TEST_F(PosixTest, ProgramsThatWriteOneFileAtTheSameTimeLeaveAWholeOne) {
  const std::string values[] = {std::string(20000, 'a'), std::string(30000, 'b')};
  ASSERT_TRUE(files.WriteAll(folder / "setting", values[0]));
  std::vector<pid_t> children;
  for (const std::string& value : values) {
    const pid_t child = fork();
    if (child == 0) {
      PosixFileSystem own;
      bool good = true;
      for (int i = 0; i < 300; ++i) good = own.WriteAll(folder / "setting", value, {.flush = false}) && good;
      _exit(good ? 0 : 1);
    }
    children.push_back(child);
  }
  for (int i = 0; i < 1000; ++i) {
    std::string content;
    ASSERT_TRUE(files.ReadAll(folder / "setting", content));
    ASSERT_TRUE(content == values[0] || content == values[1]) << content.size();
  }
  for (const pid_t child : children) {
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
  }
  EXPECT_EQ(files.ListFiles(folder.path()), std::vector<std::string>{"setting"});
}

TEST_F(PosixTest, AFileThatMayNotGrowIsAFullDiskAndEndsNothing) {
  const pid_t child = fork();
  if (child == 0) {
    PosixFileSystem own;
    const rlimit limit{4096, 4096};
    setrlimit(RLIMIT_FSIZE, &limit);
    const auto file = own.Open(folder / "t", OpenMode::kCreate);
    const std::string content(10000, 'x');
    const bool told = file && !file->WriteAt(0, content.data(), content.size()) && file->LastError() == std::strerror(ENOSPC);
    _exit(told ? 0 : 1);
  }
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
}

TEST_F(PosixTest, TheTemporaryFolderIsNewAfterSomeoneTookIt) {
  const std::string first = files.TemporaryFolder();
  EXPECT_EQ(files.TemporaryFolder(), first);
  std::filesystem::permissions(first, std::filesystem::perms(0777));
  const std::string second = files.TemporaryFolder();
  EXPECT_NE(second, first);
  std::filesystem::remove(second);
  std::filesystem::create_directory_symlink(first, second.substr(0, second.size() - 1));
  const std::string third = files.TemporaryFolder();
  EXPECT_NE(third, second);
  std::filesystem::remove(second.substr(0, second.size() - 1));
  std::filesystem::remove(first);
}

TEST_F(PosixTest, AViewFollowsTheFileAndSurvivesItsLoss) {
  constexpr size_t kLength = 64 * 1024;
  ASSERT_TRUE(files.WriteAll(folder / "t", std::string(kLength, 'a')));
  const auto file = files.Open(folder / "t", OpenMode::kReadWrite);
  EXPECT_EQ(file->View(0, kLength), nullptr);  // the first pass is better copied
  const auto view = file->View(0, kLength);
  ASSERT_NE(view, nullptr) << "the temporary folder is on no local file system";
  EXPECT_EQ(std::string(view.get(), kLength), std::string(kLength, 'a'));
  EXPECT_EQ(file->View(1, kLength), nullptr);

  const pid_t child = fork();
  if (child == 0) {
    PosixFileSystem own;
    const auto other = own.Open(folder / "t", OpenMode::kReadWrite);
    _exit(other->WriteAt(10, "bcd", 3) && other->WriteAt(kLength, "efgh", 4) ? 0 : 1);
  }
  int status = 0;
  waitpid(child, &status, 0);
  ASSERT_EQ(WEXITSTATUS(status), 0);
  EXPECT_EQ(std::string(view.get() + 10, 3), "bcd");
  const auto longer = file->View(kLength - 2, 6);
  ASSERT_NE(longer, nullptr);
  EXPECT_EQ(std::string(longer.get(), 6), "aaefgh");

  // Someone cuts the file off in the middle of a pass: zeros instead of a fault, and what is left is seen by the next.
  ASSERT_EQ(truncate((folder / "t").c_str(), 20), 0);
  EXPECT_EQ(view.get()[kLength - 1], 0);
  EXPECT_EQ(file->View(0, kLength), nullptr);
  const auto rest = file->View(0, 20);
  ASSERT_NE(rest, nullptr);
  EXPECT_EQ(std::string(rest.get() + 10, 3), "bcd");
  const auto same_file = files.Open(folder / "t", OpenMode::kRead);
  EXPECT_NE(same_file->View(0, 20), nullptr);  // mapped already
  files.DropViews();
  EXPECT_EQ(std::string(rest.get() + 10, 3), "bcd");
  EXPECT_EQ(file->View(0, 20), nullptr);
}

TEST_F(PosixTest, FoldersAreNoFilesAndBothSlashesSeparate) {
  ASSERT_TRUE(files.MakeFolders((folder / "x\\y") + "\\z\\"));
  std::string error;
  EXPECT_EQ(files.Open(folder / "x/y", OpenMode::kRead, &error), nullptr);
  EXPECT_FALSE(error.empty());
  ASSERT_TRUE(files.WriteAll(folder / "x\\f", "abc"));
  EXPECT_EQ(files.FileSize(folder / "x/f"), 3);
  EXPECT_EQ(files.ListFiles(folder / "x"), std::vector<std::string>{"f"});
  std::string content;
  EXPECT_FALSE(files.ReadAll(folder / "x/f", content, 2));
}

TEST_F(PosixTest, SerialPortTalksToATerminal) {
  int master = -1, slave = -1;
  char name[256];
  ASSERT_EQ(openpty(&master, &slave, name, nullptr, nullptr), 0);
  PosixSerialPort port;
  ASSERT_TRUE(port.Open(name, 19200));
  ASSERT_TRUE(port.Write(std::string("\x1BP\0#", 4)));
  char sent[8];
  EXPECT_EQ(read(master, sent, sizeof sent), 4);
  EXPECT_EQ(std::string(sent, 4), std::string("\x1BP\0#", 4));
  ASSERT_EQ(write(master, "\r\n", 2), 2);
  EXPECT_EQ(port.Read(sent, sizeof sent, 1000), 2);
  EXPECT_EQ(std::string(sent, 2), "\r\n");
  EXPECT_EQ(port.Read(sent, 1, 1), 0);
  EXPECT_FALSE(port.Open(folder / "no-port", 9600));
  close(master);
  close(slave);
}

// Answers one request on a loopback port with the given bytes.
class OneAnswer {
 public:
  explicit OneAnswer(std::string answer) {
    listener_ = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    if (bind(listener_, reinterpret_cast<sockaddr*>(&address), size) != 0 || listen(listener_, 1) != 0) std::abort();
    getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size);
    port = ntohs(address.sin_port);
    thread_ = std::thread([this, answer] {
      const int connection = accept(listener_, nullptr, nullptr);
      char request[4096];
      if (read(connection, request, sizeof request) > 0 && write(connection, answer.data(), answer.size()) < 0) std::abort();
      close(connection);
    });
  }
  ~OneAnswer() {
    thread_.join();
    close(listener_);
  }
  std::string Url() const { return "http://127.0.0.1:" + std::to_string(port) + "/dir.txt"; }
  int port = 0;

 private:
  int listener_;
  std::thread thread_;
};

TEST_F(PosixTest, ADownloadCountsOnlyWhenItIsCompleteAndSuccessful) {
  const struct {
    const char* answer;
    bool counts;
  } rows[] = {{"HTTP/1.0 200 OK\r\nContent-Length: 5\r\n\r\nhello", true},
              {"HTTP/1.0 200 OK\r\nContent-Length: 9\r\n\r\nhello", false},
              {"HTTP/1.0 404 Not Found\r\nContent-Length: 5\r\n\r\nhello", false},
              {"HTTP/1.0 200 OK\r\nContent-Length: 11\r\n\r\nhello world", false}};
  for (const auto& row : rows) {
    files.Remove(folder / "d");
    OneAnswer server(row.answer);
    HttpDownload download(files);
    EXPECT_EQ(download.Fetch(server.Url(), folder / "d", 10), row.counts) << row.answer;
    EXPECT_EQ(files.FileExists(folder / "d"), row.counts);
  }
}

}  // namespace
}  // namespace ostrinka
