// The main window's logic: one dispatcher that takes every command by its key, the list on show, the guards and selections.
//
// A front end shows `ribbon` and the list of ViewTable(), hands in what the person does through the User... operations, and draws again
// when the interface is asked to.
#pragma once

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "app/main_view.h"
#include "company/tables.h"
#include "shell/dictionary_editor.h"
#include "shell/ribbon.h"

namespace ostrinka {

class MainWindow;
class frm_Dok_sprzed;

// What a command needs before it runs.
enum class Needs : unsigned char { kNothing, kDatabase };

struct Command {
  std::string_view key;
  Needs needs;
  void (MainWindow::*run)(const Command& command, int argument);
  int table = 0;            // number of the table it acts on
  const char* detail = "";  // what the handler reads: a message key, a range of letters, a tab
};

class MainWindow : public MainView {
 public:
  explicit MainWindow(Program& program);
  ~MainWindow() override;

  RibbonControl ribbon;
  DictionaryEditor dictionary;  // the cell of a dictionary that is open over the list

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

  // The list on show.
  int ViewTableNumber() const;  // 0 for none
  ClassQDBASE* ViewTable();     // null when none is open
  TableLook Look() const;
  // The column, from 1 of those on show, that the list is ordered by, and ordAsc or ordDesc; 0 for none.
  std::pair<int, int> ViewOrder();
  // Whether a choice keeps records off the list on show.
  bool ViewFiltered() const { return ViewTableNumber() > 0 && filtered_[static_cast<size_t>(ViewTableNumber())]; }
  int first_row() const { return first_row_; }
  void FirstRow(int row) { first_row_ = row; }
  double zoom() const { return zoom_; }
  void Zoom(double zoom);

  // Place of the window, kept in the settings; state 4 is that of a window never placed.
  struct Placement {
    float left = 0, top = 0, width = 1180, height = 760;
    int state = 4;
  };
  Placement placement;
  void save_window_();
  void read_window_();

  // Period of the reports.
  bool ReportAllDates = false;
  Date ReportDateFrom, ReportDateTo;

  int16_t CurrentTable = kDokSprzed;
  int DictionaryTable = 0, ReportTable = 0;

  // MainView
  void ref_() override;
  void refresh_tasks_() override;
  PrintMode TickedPrintMode() override;
  bool GppTicked() override;
  void ScrollShow_(bool show) override;
  bool ViewShown() const { return view_shown_; }
  void ResetXRSC_() override;
  void SET_QDB_() override;
  void StatusText(const std::string& text) override;

  // The commands with their handlers, in no particular order.
  static const std::vector<Command>& Commands();
  // Whether a command's function is part of this version.
  static bool IsBuilt(const Command& command);

  // Handlers of the table of commands.
  void AddDocument(const Command& command, int argument);
  void AddCorrection(const Command& command, int argument);
  void AddCustomer(const Command& command, int argument);
  void AddArticle(const Command& command, int argument);
  void EditRecord(const Command& command, int argument);
  void CloneRecord(const Command& command, int argument);
  void DeleteRecord(const Command& command, int argument);
  void MoveRecord(const Command& command, int argument);
  void FindRecords(const Command& command, int argument);
  void SortRecords(const Command& command, int argument);
  void AlphabetRange(const Command& command, int argument);
  void PeriodToday(const Command& command, int argument);
  void PeriodCurrent(const Command& command, int argument);
  void PeriodLast(const Command& command, int argument);
  void PeriodAll(const Command& command, int argument);
  void ReportPeriodToday(const Command& command, int argument);
  void ReportPeriodCurrent(const Command& command, int argument);
  void ReportPeriodLast(const Command& command, int argument);
  void ReportPeriodAll(const Command& command, int argument);
  void PrintDocument(const Command& command, int argument);
  void PickDictionary(const Command& command, int argument);
  void AddDictionaryRecord(const Command& command, int argument);
  void EditDictionaryRecord(const Command& command, int argument);
  void DeleteDictionaryRecord(const Command& command, int argument);
  void CompanyData(const Command& command, int argument);
  void DatabaseConnection(const Command& command, int argument);
  void InterfaceOptions(const Command& command, int argument);
  void About(const Command& command, int argument);
  void Exit(const Command& command, int argument);
  void NotBuilt(const Command& command, int argument);

  // Ends the program; set by start-up.
  std::function<void()> on_exit;

 private:
  struct SortState {
    std::string field;  // as SELECTION takes it; "" none
    int order = ordAsc;
  };

  bool Run(std::string_view key, int argument);
  const Command* FindCommand(std::string_view key) const;
  int32_t CurrentRecord(int table);  // 0 when the list has no current row
  void TickPeriod(const Command& command);
  void RerunReport();
  std::string PeriodPrefix(const Command& command) const;
  // Of the tools of a tab, named by its key: those of the period, and the letters.
  void ClearPeriod(std::string_view tab);
  void ClearLetters(std::string_view tab);
  void Chosen(const Command& command, bool filtered);
  void RebuildCurrencyChoice();
  void PickMode(const RibbonRow& row);
  void ToggleGpp();
  void ShowFiscalEntry();
  void Refuse(const char* message_key);
  void Fail();  // says that something could not be written
  void EditSalesDocument(frm_Dok_sprzed& form);
  void PreviewJob(const std::string& subject);

  Program& program_;
  bool running_ = false, view_shown_ = true;
  int first_row_ = 1;
  double zoom_ = 1;
  std::array<std::weak_ptr<ClassQDBASE>, kTableSlots + 1> selected_;  // tables whose records were selected once
  std::array<bool, kTableSlots + 1> filtered_{};
  std::array<SortState, kTableSlots + 1> sort_, shown_order_;  // what the next search keeps to; what the list shows now
  std::map<std::pair<int, int>, int> column_order_;            // last direction by table and field
};

}  // namespace ostrinka
