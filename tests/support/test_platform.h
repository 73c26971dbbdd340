// The surroundings of a program under test: real files in a temporary folder of its own, everything else told or recorded.
#pragma once

#include <stdlib.h>

#include <deque>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "platform/platform.h"
#include "platform/recording_canvas.h"
#include "support/failing_files.h"

namespace ostrinka {

class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "ostrinka-test-XXXXXX").string();
    path_ = std::string(mkdtemp(pattern.data())) + "/";
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::permissions(path_, std::filesystem::perms::owner_all, ignored);
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  const std::string& path() const { return path_; }
  std::string operator/(const std::string& name) const { return path_ + name; }

 private:
  std::string path_;
};

// Puts the built catalogues into an application's folder.
inline void CopyCatalogues(const std::string& application_folder) {
  for (const char* name : {"program.lang", "printdoc.lang", "printdocen.lang"}) {
    std::filesystem::copy_file(std::string(OSTRINKA_SOURCE "/resources/") + name, application_folder + name);
  }
}

// Plays the person in front of the kind of modal that the function assigned takes: [](Form& form) { ... }.
class ModalHook {
 public:
  ModalHook& operator=(std::nullptr_t) {
    play_ = nullptr;
    return *this;
  }
  template <typename Function>
  requires(!std::is_same_v<std::decay_t<Function>, ModalHook>) ModalHook& operator=(Function function) {
    Set(std::function(std::move(function)));
    return *this;
  }
  // False when nobody plays this kind.
  bool Play(Modal& modal) const { return play_ && play_(modal); }

 private:
  template <typename Shown>
  void Set(std::function<void(Shown&)> play) {
    play_ = [play = std::move(play)](Modal& modal) {
      auto* shown = dynamic_cast<Shown*>(&modal);
      if (shown) play(*shown);
      return shown != nullptr;
    };
  }
  std::function<bool(Modal&)> play_;
};

class TestUserInterface : public UserInterface {
 public:
  std::vector<std::pair<std::string, MessageKind>> messages;
  std::deque<Answer> answers;  // for questions, in order; kNo when none is left
  std::deque<std::optional<std::string>> file_answers;
  std::vector<FileFilter> save_filters;  // of the last save dialog
  size_t proposed_filter = 0;
  std::optional<size_t> chosen_filter;  // what the person picks there; what is proposed when empty
  ModalHook on_modal, on_preview;       // play the person in front of a form, and of the print preview
  std::vector<std::string> status, opened;
  int beeps = 0, turns = 0, redraws = 0;
  bool ended = false, window_shown = false;

  void ShowModal(Modal& modal) override {
    if (!on_modal.Play(modal)) on_preview.Play(modal);
  }
  Answer ShowMessage(const std::string& text, MessageKind kind) override {
    messages.emplace_back(text, kind);
    if (kind != MessageKind::kQuestion) return Answer::kOk;
    if (answers.empty()) return Answer::kNo;
    Answer answer = answers.front();
    answers.pop_front();
    return answer;
  }
  std::optional<std::string> NextFile() {
    if (file_answers.empty()) return std::nullopt;
    std::optional<std::string> answer = file_answers.front();
    file_answers.pop_front();
    return answer;
  }
  std::optional<std::string> AskOpenFile(const std::vector<FileFilter>&) override { return NextFile(); }
  std::optional<std::string> AskSaveFile(const std::vector<FileFilter>& filters, const std::string&, size_t& filter) override {
    save_filters = filters;
    proposed_filter = filter;
    filter = chosen_filter.value_or(filter);
    return NextFile();
  }
  std::optional<std::string> AskFolder(const std::string&) override { return NextFile(); }
  void ShowStatus(const std::string& text) override { status.push_back(text); }
  std::function<void()> on_turn;  // what happens while a long work lets events run
  void TurnEvents() override {
    ++turns;
    if (on_turn) on_turn();
  }
  void Beep() override { ++beeps; }
  int busy = 0;
  void SetBusy(bool on) override { busy += on ? 1 : -1; }
  void ShowSplash(bool) override {}
  void ShowMainWindow() override { window_shown = true; }
  void RedrawMainWindow() override { ++redraws; }
  void StartMainTimer(int) override {}
  void StopMainTimer() override {}
  bool OpenWithSystem(const std::string& target) override {
    opened.push_back(target);
    return true;
  }
  bool OpenAddress(const std::string& target) override { return OpenWithSystem(target); }
  int steps_to_end = -1;  // questions whether the program is to end until the answer is yes; -1 never
  bool EndWanted() override { return steps_to_end == 0 || (steps_to_end > 0 && --steps_to_end == 0); }
  void EndProgram() override { ended = true; }
  std::function<void(bool skin)> on_appearance;
  void AppearanceChanged(bool skin) override {
    if (on_appearance) on_appearance(skin);
  }
};

class TestClock : public Clock {
 public:
  Date now = *Date::FromYmd(2008, 3, 5);
  Date Now() override { return now; }
};

class TestRandom : public Random {
 public:
  double Fraction() override { return static_cast<double>(engine_()) / 4294967296.0; }

 private:
  std::mt19937 engine_{1};
};

class TestWaiter : public Waiter {
 public:
  void Wait(int) override {}
};

// A printer that notes what it is asked and keeps its sheets; missing until `state` says otherwise. Sheet `failing` gets no surface.
class TestPrinter : public NoPrinter {
 public:
  State state = State::kMissing;
  int failing = 0;
  std::vector<std::string> calls;
  std::vector<std::unique_ptr<RecordingCanvas>> sheets;

  State Query() override { return state; }
  std::string Name() override { return "Biuro"; }
  bool StartDocument(const std::string& name) override {
    calls.push_back(name);
    return state == State::kReady;
  }
  Canvas* StartPage(bool landscape, double& pixels_per_mm) override {
    calls.push_back(landscape ? "landscape" : "portrait");
    pixels_per_mm = 10;
    sheets.push_back(std::make_unique<RecordingCanvas>(landscape ? 2970 : 2100, landscape ? 2100 : 2970));
    return static_cast<int>(sheets.size()) == failing ? nullptr : sheets.back().get();
  }
  bool EndDocument() override {
    calls.push_back("finished");
    return true;
  }
};

class NoPictures : public PictureDecoder {
 public:
  std::optional<Picture> Decode(const std::string&) override { return std::nullopt; }
};

class NoDownload : public Download {
 public:
  bool Fetch(const std::string&, const std::string&, int64_t) override { return false; }
};

class NoSerial : public SerialPort {
 public:
  bool Open(const std::string&, int) override { return false; }
  bool Write(const std::string&) override { return false; }
  int64_t Read(void*, size_t, int) override { return -1; }
  void Close() override {}
};

// `platform` has its application folder in `folder`/app/ and its per-user settings in `folder`/user/.
struct TestPlatform {
  TemporaryFolder folder;
  FailingFileSystem files;
  TestUserInterface ui;
  TestClock clock;
  TestRandom random;
  TestWaiter waiter;
  TestPrinter printer;
  NoPictures pictures;
  NoDownload download;
  NoSerial serial;
  Platform platform{files, ui, clock, random, waiter, printer, pictures, download, serial, folder / "app/", folder / "user/"};
  // The same surroundings with another file system, printer or decoder of pictures.
  Platform With(FileSystem& other) {
    return {other, ui, clock, random, waiter, printer, pictures, download, serial, folder / "app/", folder / "user/"};
  }
  Platform With(Printer& other) {
    return {files, ui, clock, random, waiter, other, pictures, download, serial, folder / "app/", folder / "user/"};
  }
  Platform With(PictureDecoder& other) {
    return {files, ui, clock, random, waiter, printer, other, download, serial, folder / "app/", folder / "user/"};
  }

  TestPlatform() {
    files.MakeFolder(folder / "app");
    files.MakeFolder(folder / "user");
  }
};

}  // namespace ostrinka
