// Runs a script: a person's steps in a text file, one a line, on the whole program without a window.
//
// The runner is the user interface that the program asks: a modal form reads the steps that follow until it closes, message boxes print
// themselves and take queued answers.
#pragma once

#include <deque>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "controls/form.h"
#include "platform/user_interface.h"
#include "script/script_platform.h"
#include "startup/startup.h"

namespace ostrinka {

struct ScriptOptions {
  std::string application_folder;  // with a closing slash
  std::optional<Date> day;
  std::optional<uint64_t> seed;
};

class ScriptRunner : public UserInterface {
 public:
  ScriptRunner(const ScriptOptions& options, std::ostream& out, std::ostream& error);

  // Runs a whole script. 0: all ran; 1: an expectation failed; 2: a wrong script.
  int Run(const std::string& script);

  // The words of a line; nothing when a quote is not closed.
  static std::optional<std::vector<std::string>> Words(const std::string& line);

  void ShowModal(Modal& modal) override;
  Answer ShowMessage(const std::string& text, MessageKind kind) override;
  std::optional<std::string> AskOpenFile(const std::vector<FileFilter>& filters) override;
  std::optional<std::string> AskSaveFile(const std::vector<FileFilter>& filters, const std::string& proposal, size_t& filter) override;
  std::optional<std::string> AskFolder(const std::string& title) override;
  void ShowStatus(const std::string& text) override { status_ = text; }
  void TurnEvents() override {}
  void Beep() override {}
  void SetBusy(bool) override {}
  void ShowSplash(bool) override {}
  void ShowMainWindow() override {}
  void RedrawMainWindow() override {}
  void StartMainTimer(int) override {}
  void StopMainTimer() override {}
  bool OpenWithSystem(const std::string& target) override;
  bool OpenAddress(const std::string& target) override;
  void EndProgram() override {}

 private:
  using WordList = std::vector<std::string>;
  enum class Where { kAnywhere, kWindow, kForm };  // what a step acts on
  struct Step {
    const char* name;
    size_t least, most;  // words behind the name
    Where where;
    void (ScriptRunner::*run)(const WordList& words);
  };
  static const std::vector<Step>& Steps();

  bool NextStep();  // false at the end or after a failure
  void Execute(const WordList& words);
  void Wrong(const std::string& what);
  void Unmet(const std::string& what, const std::string& expected, const std::string& actual);
  void Fail(int status, const std::string& text);

  void DoSetting(const WordList& words);
  void DoCreateDatabase(const WordList& words);
  void DoStart(const WordList& words);
  void DoCommand(const WordList& words);
  void DoItem(const WordList& words);
  void DoTab(const WordList& words);
  void DoRow(const WordList& words);
  void DoRecord(const WordList& words);
  void DoCell(const WordList& words);
  void DoKey(const WordList& words);
  void DoAlt(const WordList& words);
  void DoSet(const WordList& words);
  void DoPress(const WordList& words);
  void DoClick(const WordList& words);
  void DoDouble(const WordList& words);
  void DoPage(const WordList& words);
  void DoAnswer(const WordList& words);
  void DoFile(const WordList& words);
  void DoExpect(const WordList& words);
  void DoExpectEnabled(const WordList& words);
  void DoExpectRows(const WordList& words);
  void DoExpectMessage(const WordList& words);
  void DoExpectStatus(const WordList& words);
  void DoGet(const WordList& words);
  void DoList(const WordList& words);
  void DoFields(const WordList& words);
  void DoStatus(const WordList& words);
  void DoPages(const WordList& words);
  void DoEcho(const WordList& words);
  void DoQuit(const WordList& words);

  Form* FrontForm() { return forms_.empty() ? nullptr : forms_.back(); }
  Control* FieldOf(const std::string& name);
  TableControl* TableOf(const WordList& words, size_t at);
  std::optional<std::string> ValueOf(const std::string& field);
  std::string TextOf(const std::string& key_or_text) const;
  std::optional<int> Number(const std::string& word);
  std::vector<std::string> RowsOnShow(const WordList& words, size_t at);
  std::optional<std::string> NextFile();
  void Print(const std::string& line);

  std::ostream& out_;
  std::ostream& error_;
  ScriptPlatform surroundings_;
  Program program_;
  Startup startup_;
  std::vector<std::string> lines_;
  size_t line_ = 0;  // of the step that runs, from 1
  int status_code_ = 0;
  bool quit_ = false;
  std::vector<Form*> forms_;
  std::deque<Answer> answers_;
  std::deque<std::string> files_;
  std::deque<std::string> messages_;  // since the last check
  std::string status_;
};

}  // namespace ostrinka
