// The main window's logic: the dispatcher that takes every command by its key, the list on show, the keys.
//
// A front end shows `ribbon` and `list`, hands in what the person does through the User... operations, and draws again when the interface
// is asked to. What a command does stands in the files commands_<subsystem>.cpp.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "app/main_view.h"
#include "shell/command.h"
#include "shell/dictionary_editor.h"
#include "shell/ribbon.h"
#include "shell/shown_list.h"
#include "shell/window_placement.h"

namespace ostrinka {

class MainWindow : public MainView {
 public:
  explicit MainWindow(Program& program);
  ~MainWindow() override;

  RibbonControl ribbon;
  ShownList list;
  DictionaryEditor dictionary;  // the cell of a dictionary that is open over the list
  ReportPeriod report_period;
  WindowPlacement placement;  // where the front end puts the window; its zoom is that of the last save
  // Ends the program; set by start-up.
  std::function<void()> on_exit;

  // What the person does. False: no such key, or it is disabled or hidden.
  bool UserCommand(std::string_view key, int argument = -1);
  bool UserItem(std::string_view parent, std::string_view key);
  bool UserTab(std::string_view key);
  bool UserKey(int code);  // by the key's code; false when the key means nothing here
  bool UserRow(int row);   // row from 1 of the list on show
  bool UserRecord(int32_t record);
  bool UserCell(int row, int column);  // a click on a cell: row as above, column from 1 of those on show; in a dictionary it edits
  void UserDoubleClick();
  void UserSortByColumn(int column);  // a click on a header, column from 1 of those on show
  void Zoom(double zoom);             // of the list

  ClassQDBASE* ViewTable() { return list.Table(); }  // of the list on show; null when none is open
  void save_window_();                               // keeps placement and zoom in the settings

  // MainView
  void ref_() override;
  void refresh_tasks_() override;
  PrintMode TickedPrintMode() override;
  bool GppTicked() override;
  void ScrollShow_(bool show) override;
  void ResetXRSC_() override;
  void SET_QDB_() override;
  void StatusText(const std::string& text) override;

 private:
  bool Run(std::string_view key, int argument);
  bool RunRecordCommand(std::string_view what);  // .DODAJ, .EDYTUJ or .USUŃ of the tab in front
  bool AltLetter(int code);
  bool MoveKey(int code);
  void FillList();
  void ShowFiscalEntry();
  // Does something that may let events run, and holds commands back meanwhile.
  template <typename Action>
  void WithoutCommands(Action action);

  Program& program_;
  CommandContext context_;
  bool running_ = false;
};

}  // namespace ostrinka
