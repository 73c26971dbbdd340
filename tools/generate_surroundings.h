// The surroundings of a program that runs by itself: real files, nobody in front of it. Messages go to standard error.
#pragma once

#include <cstdio>
#include <string>

#include "script/script_platform.h"

namespace ostrinka {

class NobodyThere : public UserInterface {
 public:
  void ShowModal(Modal&) override {}
  Answer ShowMessage(const std::string& text, MessageKind) override {
    std::fprintf(stderr, "%s\n", text.c_str());
    return Answer::kOk;
  }
  std::optional<std::string> AskOpenFile(const std::vector<FileFilter>&) override { return std::nullopt; }
  std::optional<std::string> AskSaveFile(const std::vector<FileFilter>&, const std::string&, size_t&) override { return std::nullopt; }
  std::optional<std::string> AskFolder(const std::string&) override { return std::nullopt; }
  void ShowStatus(const std::string&) override {}
  void TurnEvents() override {}
  void Beep() override {}
  void SetBusy(bool) override {}
  void ShowSplash(bool) override {}
  void ShowMainWindow() override {}
  void RedrawMainWindow() override {}
  void StartMainTimer(int) override {}
  void StopMainTimer() override {}
  bool OpenWithSystem(const std::string&) override { return false; }
  bool OpenAddress(const std::string&) override { return false; }
  void EndProgram() override {}
};

// `application_folder` with a closing slash; the settings lie in its "user-settings/".
struct Surroundings {
  explicit Surroundings(const std::string& application_folder) : script(application_folder, ui, Date::FromYmd(2008, 12, 31), 2008) {}

  NobodyThere ui;
  ScriptPlatform script;
};

}  // namespace ostrinka
