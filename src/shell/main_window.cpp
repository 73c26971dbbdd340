#include "shell/main_window.h"

#include <algorithm>
#include <utility>

#include "company/column_widths.h"
#include "documents/subscriptions.h"
#include "masterdata/connection_form.h"
#include "shell/commands.h"
#include "shell/print_choice.h"
#include "shell/selection_ticks.h"
#include "shell/tabs.h"

namespace ostrinka {

MainWindow::MainWindow(Program& program)
    : ribbon(program.catalogue),
      list(program),
      dictionary(program),
      placement(ReadPlacement(program)),
      program_(program),
      context_{program,
               *this,
               ribbon,
               list,
               dictionary,
               report_period,
               [this](std::string_view tab) { UserTab(tab); },
               [this] {
                 if (on_exit) on_exit();
               }} {
  program_.main_view = this;
  list.Zoom(placement.zoom);
  StartPrintChoice(program_, ribbon);
  ribbon.ButtonChecked("ZESTAWIENIA.OKRES.WSZYSTKIE", true);
  const bool exports = program_.settings.Integer(kCommon, "GUI", "ShMenuExp", 0) == 1;
  ribbon.PopupMenuVisible("EXPORT", exports);
  ribbon.PopupMenuVisible("EK.BRK", exports);
  ribbon.PopupMenuVisible("STREM", false);
  ribbon.PopupMenuVisible("STR1", false);
  ShowFiscalEntry();
  ribbon.Repaint = [this] { program_.platform.ui.RedrawMainWindow(); };
}

MainWindow::~MainWindow() {
  if (program_.main_view == this) program_.main_view = nullptr;
}

// Only a company with a fiscal printer has the entry.
void MainWindow::ShowFiscalEntry() {
  const bool printer = program_.settings.Integer(kCommon, "prgSettings", "FPModel", 0) > 0;
  for (const char* entry : {"SPRZEDAŻ.FISKALIZUJ", "SPRZEDAŻ.FP"}) ribbon.PopupMenuVisible(entry, printer);
}

bool MainWindow::UserCommand(std::string_view key, int argument) {
  const RibbonRow* row = ribbon.Find(key);
  if (row && (!ribbon.ButtonEnabled(key) || !ribbon.ToolbarVisible(key))) return false;
  if (row && (row->kind == RibbonKind::kItem || row->kind == RibbonKind::kMode || row->kind == RibbonKind::kToggle)) {
    return UserItem(row->parent, key);
  }
  return Run(key, argument);
}

bool MainWindow::UserItem(std::string_view parent, std::string_view key) {
  for (const auto& [item, caption] : ribbon.ListItems(parent)) {
    if (item != key) continue;
    ribbon.ButtonText(parent, caption);
    return Run(key, -1);
  }
  const RibbonRow* row = ribbon.FindItem(parent, key);
  const RibbonRow* owner = ribbon.Find(parent);
  if (!row || !owner || !ribbon.ButtonEnabled(parent)) return false;
  if (row->kind == RibbonKind::kMode) {
    TickPrintMode(ribbon, *row);
    return true;
  }
  if (row->kind == RibbonKind::kToggle) {
    ToggleTransferForm(program_, ribbon);
    return true;
  }
  if (owner->kind != RibbonKind::kSplit && owner->kind != RibbonKind::kFind) return Run(key, -1);
  ribbon.ChooseItem(*row);
  return Run(parent, -1);
}

bool MainWindow::Run(std::string_view key, int argument) {
  dictionary.VSC_GOTO_END_();
  if (TakeReportCurrency(context_, key)) return true;
  const Command* command = FindCommand(key);
  if (!command) {
    program_.platform.ui.Beep();
    return false;
  }
  // While a command runs and lets events turn, another one waits for the person to press it again.
  if (running_) return true;
  if (command->needs == Needs::kDatabase && !program_.database_open) {
    program_.Message("msg.info.dbnotopen", MessageKind::kWarning);
    return true;
  }
  StatusText("");  // what the last command said is over
  running_ = true;
  command->run(context_, *command, argument);
  running_ = false;
  if (program_.main_view != this) return true;  // the program ended
  if (key.starts_with("SET.")) ShowFiscalEntry();
  ref_();
  return true;
}

template <typename Action>
void MainWindow::WithoutCommands(Action action) {
  const bool before = std::exchange(running_, true);
  action();
  running_ = before;
}

bool MainWindow::UserTab(std::string_view key) {
  dictionary.VSC_GOTO_END_();
  if (!ribbon.TabID(key)) return false;
  StatusText("");
  const Tab* tab = FindTab(key);
  list.CurrentTable = tab ? tab->table : int16_t{0};
  list.first_row = 1;
  ScrollShow_(true);
  if (list.CurrentTable == kReportsTab) FillReportCurrencies(context_);
  ref_();
  return true;
}

bool MainWindow::UserRow(int row) {
  dictionary.VSC_GOTO_END_();
  ClassQDBASE* table = list.Table();
  if (!table || row < 1 || row > table->MAX_ROWS()) return false;
  table->RECORD_POSITION(table->selection()[static_cast<size_t>(row - 1)]);
  ref_();
  return true;
}

bool MainWindow::UserRecord(int32_t record) {
  dictionary.VSC_GOTO_END_();
  ClassQDBASE* table = list.Table();
  if (!table || !table->RECORD_SELECT(record)) return false;
  table->RECORD_POSITION(record);
  ref_();
  return true;
}

bool MainWindow::UserCell(int row, int column) {
  if (!UserRow(row)) return false;
  ClassQDBASE& table = *list.Table();
  if (column < 1 || column > table.MAX_COLUMNS()) return false;
  if (list.CurrentTable == kDictionariesTab) dictionary.Click(list.DictionaryTable, table.RECORD_POSITION(), column);
  return true;
}

void MainWindow::UserDoubleClick() {
  if (list.CurrentTable > 0) {
    RunRecordCommand(".EDYTUJ");
  } else {
    program_.platform.ui.Beep();
  }
}

void MainWindow::UserSortByColumn(int column) {
  dictionary.VSC_GOTO_END_();
  bool sorted = false;
  WithoutCommands([&] { sorted = list.OrderByColumn(column); });
  if (sorted) ref_();
}

void MainWindow::Zoom(double zoom) {
  list.Zoom(zoom);
  ref_();
}

void MainWindow::ref_() {
  ClassQDBASE* table = list.Table();
  if (list.New()) FillList();
  list.first_row = std::clamp(list.first_row, 1, table ? std::max(table->MAX_ROWS(), 1) : 1);
  program_.platform.ui.RedrawMainWindow();
}

// A list is filled when it is first shown, not at the opening of the company.
void MainWindow::FillList() {
  for (const Tab& tab : Tabs()) {
    if (tab.table != list.TableNumber()) continue;
    ClearPeriod(ribbon, tab.key);
    ClearLetters(ribbon, tab.key);
  }
  WithoutCommands([this] { list.Fill(); });  // a large table lets events run
}

void MainWindow::refresh_tasks_() {
  constexpr char kTasks[] = "STREM";
  const int32_t count = due_task_count(program_);
  ribbon.PopupMenuVisible(kTasks, count > 0);
  ribbon.PopupMenuVisible("STR1", count > 0);
  ribbon.ButtonText(kTasks, program_.Text("mdi.tasks", {std::to_string(count)}));
}

PrintMode MainWindow::TickedPrintMode() {
  return ostrinka::TickedPrintMode(ribbon);
}

bool MainWindow::GppTicked() {
  return TransferFormTicked(ribbon);
}

void MainWindow::ScrollShow_(bool show) {
  list.visible = show;
  program_.platform.ui.RedrawMainWindow();
}

void MainWindow::ResetXRSC_() {
  list.ForgetDirections();
}

void MainWindow::SET_QDB_() {
  if (program_.database_open) SaveColumnWidths(program_);  // another company may be opened
  frm_Admin_qdb_ form(program_);
  form.reload_();
  program_.platform.ui.ShowModal(form);
}

void MainWindow::StatusText(const std::string& text) {
  ribbon.StatusBarText(text);
  program_.Status(text);
}

void MainWindow::save_window_() {
  placement.zoom = list.zoom();
  SavePlacement(program_, placement);
}

}  // namespace ostrinka
