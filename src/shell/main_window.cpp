#include "shell/main_window.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "company/column_widths.h"
#include "documents/subscriptions.h"
#include "masterdata/connection_form.h"

namespace ostrinka {
namespace {

constexpr std::string_view kPlace = "Windows\\MDI";

// Tabs in the order of the keys F5 to F10, with the table that each shows.
struct TabTable {
  std::string_view tab;
  int16_t table;
};
constexpr TabTable kTabs[] = {{"SPRZEDAŻ", kDokSprzed},        {"ZAKUP", kDokZakupu}, {"KONTRAHENCI", kKontrahenci},
                              {"TOWARYUSŁUGI", kTowaryUslugi}, {"ZESTAWIENIA", -1},   {"SŁOWNIKI", -2}};

constexpr double kLeastZoom = 0.5, kMostZoom = 2;  // of the list; beyond them it cannot be read

// Prefix of the record commands of a tab.
std::string RecordPrefix(std::string_view tab) {
  if (tab == "KONTRAHENCI") return "KONTRAHENT";
  if (tab == "TOWARYUSŁUGI") return "TOWARUSŁUGA";
  if (tab == "SŁOWNIKI") return "SŁOWNIK.REKORD";
  return std::string(tab);
}

}  // namespace

MainWindow::MainWindow(Program& program) : ribbon(program.catalogue), dictionary(program), program_(program) {
  program_.main_view = this;
  ribbon.ButtonChecked("SPRZEDAŻ.TRYBDRUKU_ORG", true);
  ribbon.ButtonChecked("SPRZEDAŻ.TRYBDRUKU_ORG.S_", true);
  ribbon.ButtonChecked("SPRZEDAŻ.GPP", program_.settings.Boolean(kOstrinka, "Menu", "GPP", false));
  ribbon.ButtonChecked("ZESTAWIENIA.OKRES.WSZYSTKIE", true);
  const bool exports = program_.settings.Integer(kCommon, "GUI", "ShMenuExp", 0) == 1;
  ribbon.PopupMenuVisible("EXPORT", exports);
  ribbon.PopupMenuVisible("EK.BRK", exports);
  ribbon.PopupMenuVisible("STREM", false);
  ribbon.PopupMenuVisible("STR1", false);
  ShowFiscalEntry();
  ribbon.Repaint = [this] { program_.platform.ui.RedrawMainWindow(); };
  read_window_();
}

// Only a company with a fiscal printer has the entry.
void MainWindow::ShowFiscalEntry() {
  const bool printer = program_.settings.Integer(kCommon, "prgSettings", "FPModel", 0) > 0;
  for (const char* entry : {"SPRZEDAŻ.FISKALIZUJ", "SPRZEDAŻ.FP"}) ribbon.PopupMenuVisible(entry, printer);
}

MainWindow::~MainWindow() {
  if (program_.main_view == this) program_.main_view = nullptr;
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
  const std::string& list_parent = std::string(parent);
  for (const auto& [item, caption] : ribbon.ListItems(list_parent)) {
    if (item != key) continue;
    ribbon.ButtonText(parent, caption);
    return Run(key, -1);
  }
  const RibbonRow* row = ribbon.FindItem(parent, key);
  const RibbonRow* owner = ribbon.Find(parent);
  if (!row || !owner || !ribbon.ButtonEnabled(parent)) return false;
  if (row->kind == RibbonKind::kMode) {
    PickMode(*row);
    return true;
  }
  if (row->kind == RibbonKind::kToggle) {
    ToggleGpp();
    return true;
  }
  if (owner->kind != RibbonKind::kSplit && owner->kind != RibbonKind::kFind) return Run(key, -1);
  ribbon.ButtonText(parent, program_.Text(row->text));
  ribbon.SetButtonIcon(parent, row->icon);
  return Run(parent, -1);
}

void MainWindow::PickMode(const RibbonRow& row) {
  for (const RibbonRow* sibling : ribbon.Children(row.parent)) {
    if (sibling->kind == RibbonKind::kMode) ribbon.ButtonChecked(sibling->key, sibling->key == row.key);
  }
}

void MainWindow::ToggleGpp() {
  const bool ticked = !ribbon.ButtonChecked("SPRZEDAŻ.GPP");
  ribbon.ButtonChecked("SPRZEDAŻ.GPP", ticked);
  program_.settings.SaveSettingValue(kOstrinka, "Menu", "GPP", ticked);
}

bool MainWindow::UserTab(std::string_view key) {
  dictionary.VSC_GOTO_END_();
  if (!ribbon.TabID(key)) return false;
  StatusText("");
  CurrentTable = 0;
  for (const TabTable& row : kTabs) {
    if (row.tab == key) CurrentTable = row.table;
  }
  first_row_ = 1;
  ScrollShow_(true);
  if (key == "ZESTAWIENIA") RebuildCurrencyChoice();
  ref_();
  return true;
}

void MainWindow::RebuildCurrencyChoice() {
  constexpr std::string_view kList = "ZESTAWIENIA.WALUTA";
  ribbon.ClearPopupMenu(kList);
  if (!program_.database_open) return;
  ClassQDBASE& currencies = Table(program_, kWaluty);
  const KeepPositions keep(program_, {kWaluty});
  if (!currencies.RECORD_LOAD(1)) return;
  ribbon.AddListItem(kList, "ZESTAWIENIA.WALUTA.1", program_.Text("mdi.tool.report.currency") + " " + currencies.Text("KODWAL"));
  for (int32_t n = 1; n <= currencies.RECORD_COUNT(); ++n) {
    if (!currencies.RECORD_EXIST(n) || !currencies.RECORD_LOAD(n)) continue;
    ribbon.AddListItem(kList, "ZESTAWIENIA.WALUTA." + std::to_string(n), currencies.Text("KODWAL") + " - " + currencies.Text("NAZWA"));
  }
  // The button shows the currency that the reports are counted in.
  const std::string chosen = "ZESTAWIENIA.WALUTA." + std::to_string(program_.settings.Integer(kOstrinka, "Reports", "Currency", 1));
  const auto& items = ribbon.ListItems(kList);
  for (auto item = items.rbegin(); item != items.rend(); ++item) {
    if (item->first == chosen || item->first == items.front().first) {
      ribbon.ButtonText(kList, item->second);
      break;
    }
  }
}

int MainWindow::ViewTableNumber() const {
  return CurrentTable == -1 ? ReportTable : CurrentTable == -2 ? DictionaryTable : CurrentTable;
}

ClassQDBASE* MainWindow::ViewTable() {
  const int number = ViewTableNumber();
  return number > 0 && TableIsOpen(program_, number) ? &Table(program_, number) : nullptr;
}

TableLook MainWindow::Look() const {
  TableLook look;
  look.zoom = zoom_;
  return look;
}

std::pair<int, int> MainWindow::ViewOrder() {
  ClassQDBASE* table = ViewTable();
  if (!table) return {0, ordAsc};
  const SortState& sort = shown_order_[static_cast<size_t>(ViewTableNumber())];
  for (int column = 1; column <= table->MAX_COLUMNS(); ++column) {
    const std::string name = table->FIELD_NAME(table->columns()[static_cast<size_t>(column - 1)]);
    if (!sort.field.empty() && (sort.field == name || sort.field == "@" + name)) return {column, sort.order};
  }
  return {0, ordAsc};
}

bool MainWindow::UserRow(int row) {
  dictionary.VSC_GOTO_END_();
  ClassQDBASE* table = ViewTable();
  if (!table || row < 1 || row > table->MAX_ROWS()) return false;
  table->RECORD_POSITION(table->selection()[static_cast<size_t>(row - 1)]);
  ref_();
  return true;
}

bool MainWindow::UserRecord(int32_t record) {
  dictionary.VSC_GOTO_END_();
  ClassQDBASE* table = ViewTable();
  if (!table || !table->RECORD_SELECT(record)) return false;
  table->RECORD_POSITION(record);
  ref_();
  return true;
}

void MainWindow::UserDoubleClick() {
  if (CurrentTable > 0) {
    Run(RecordPrefix(ribbon.TabID()) + ".EDYTUJ", -1);
  } else {
    program_.platform.ui.Beep();
  }
}

void MainWindow::UserSortByColumn(int column) {
  dictionary.VSC_GOTO_END_();
  ClassQDBASE* table = ViewTable();
  if (!table || column < 1 || column > table->MAX_COLUMNS()) return;
  const int number = ViewTableNumber(), field = table->columns()[static_cast<size_t>(column - 1)];
  int& direction = column_order_[{number, field}];
  direction = direction == ordAsc ? ordDesc : ordAsc;
  const std::string name = (table->FIELD_TYPE(field) == kLink ? "@" : "") + table->FIELD_NAME(field);
  sort_[static_cast<size_t>(number)] = shown_order_[static_cast<size_t>(number)] = {name, direction};
  const bool before = std::exchange(running_, true);
  table->SELECTION("~", "~", name, direction);
  running_ = before;
  ref_();
}

bool MainWindow::UserKey(int code) {
  constexpr int kEnter = 13, kAlt = 18, kBlank = 32, kInsert = 45, kDelete = 46, kF1 = 112, kF5 = 116;
  if (code == kAlt) {
    ribbon.AltState(!ribbon.AltState());
    return true;
  }
  if (ribbon.AltState()) {
    ribbon.AltState(false);
    struct AltKey {
      int code;
      std::string_view tab, command;
    };
    constexpr AltKey kLetters[] = {
        {'F', "SPRZEDAŻ", "SPRZEDAŻ.DODAJ"},      {'S', "SPRZEDAŻ", "SPRZEDAŻ.DODAJ"},        {'Z', "ZAKUP", "ZAKUP.DODAJ"},
        {'K', "KONTRAHENCI", "KONTRAHENT.DODAJ"}, {'T', "TOWARYUSŁUGI", "TOWARUSŁUGA.DODAJ"}, {'U', "TOWARYUSŁUGI", ""}};
    if (code == 'P') return CurrentTable != -2 && Run(ribbon.TabID() + ".DRUKUJ", -1);
    for (const AltKey& key : kLetters) {
      if (key.code != code) continue;
      UserTab(key.tab);
      if (!key.command.empty()) Run(key.command, -1);
      return true;
    }
    return false;
  }
  if (dictionary.UserKey(code, false)) return true;
  dictionary.VSC_GOTO_END_();
  const std::string prefix = RecordPrefix(ribbon.TabID());
  if (code == kBlank) return CurrentTable == -2 && dictionary.ChangeMark(DictionaryTable, CurrentRecord(DictionaryTable));
  if (code == kEnter || code == kInsert || code == kDelete) {
    if (CurrentTable == -1) return false;
    return Run(prefix + (code == kEnter ? ".EDYTUJ" : code == kInsert ? ".DODAJ" : ".USUŃ"), -1);
  }
  if (code == kF1) return Run("HELP", -1);
  if (code >= kF5 && code < kF5 + static_cast<int>(std::size(kTabs))) return UserTab(kTabs[code - kF5].tab);
  if (code < 33 || code > 40) return false;
  ClassQDBASE* table = ViewTable();
  if (!table) return false;
  if (code == 33 || code == 34) {
    // A page is what the last drawing had room for.
    const auto& rows = table->selection();
    const auto here = std::find(rows.begin(), rows.end(), table->RECORD_POSITION());
    const int row = here == rows.end() ? 1 : static_cast<int>(here - rows.begin()) + 1;
    const int page = std::max(table->TABLE_ROWS(), 1);
    return UserRow(std::clamp(code == 33 ? row - page : row + page, 1, std::max(table->MAX_ROWS(), 1)));
  }
  constexpr int kMoves[] = {3, 0, 1, 1, 2, 2};  // End, Home, left, up, right, down
  MoveRecord({prefix, Needs::kDatabase, nullptr, ViewTableNumber()}, kMoves[code - 35]);
  ref_();
  return true;
}

void MainWindow::ref_() {
  const int number = ViewTableNumber();
  ClassQDBASE* table = ViewTable();
  // A table opened anew may lie where the old one did: only the owner tells them apart.
  if (table && selected_[static_cast<size_t>(number)].lock() != OpenTable(program_, number)) {
    // A list is filled when it is first shown, not at the opening of the company.
    selected_[static_cast<size_t>(number)] = OpenTable(program_, number);
    sort_[static_cast<size_t>(number)] = shown_order_[static_cast<size_t>(number)] = {};
    filtered_[static_cast<size_t>(number)] = false;
    for (const TabTable& row : kTabs) {
      if (row.table != number) continue;
      ClearPeriod(row.tab);
      ClearLetters(row.tab);
    }
    const bool before = std::exchange(running_, true);  // a large table lets events run
    table->SELECTION("~", "*", "", ordAsc);
    running_ = before;
    if (!table->RECORD_SELECT(table->RECORD_POSITION()) && table->MAX_ROWS() > 0) table->RECORD_POSITION(table->selection()[0]);
  }
  first_row_ = std::clamp(first_row_, 1, table ? std::max(table->MAX_ROWS(), 1) : 1);
  program_.platform.ui.RedrawMainWindow();
}

void MainWindow::refresh_tasks_() {
  const int32_t count = due_task_count(program_);
  ribbon.PopupMenuVisible("STREM", count > 0);
  ribbon.PopupMenuVisible("STR1", count > 0);
  ribbon.ButtonText("STREM", program_.Text("mdi.tasks", {std::to_string(count)}));
}

PrintMode MainWindow::TickedPrintMode() {
  constexpr std::pair<const char*, PrintMode> kModes[] = {{"SPRZEDAŻ.TRYBDRUKU_OCO", PrintMode::kOriginalAndCopy},
                                                          {"SPRZEDAŻ.TRYBDRUKU_O2C", PrintMode::kOriginalAndTwoCopies},
                                                          {"SPRZEDAŻ.TRYBDRUKU_RCO", PrintMode::kOriginalCopyInOne},
                                                          {"SPRZEDAŻ.TRYBDRUKU_ORG", PrintMode::kOriginal},
                                                          {"SPRZEDAŻ.TRYBDRUKU_COP", PrintMode::kCopy},
                                                          {"SPRZEDAŻ.TRYBDRUKU_DUP", PrintMode::kDuplicate}};
  for (const auto& [key, mode] : kModes) {
    if (ribbon.ButtonChecked(key)) return mode;
  }
  return PrintMode::kOriginal;
}

bool MainWindow::GppTicked() {
  return ribbon.ButtonChecked("SPRZEDAŻ.GPP");
}

void MainWindow::ScrollShow_(bool show) {
  view_shown_ = show;
  program_.platform.ui.RedrawMainWindow();
}

void MainWindow::ResetXRSC_() {
  column_order_.clear();
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

void MainWindow::Zoom(double zoom) {
  zoom_ = std::clamp(zoom, kLeastZoom, kMostZoom);
  ref_();
}

void MainWindow::read_window_() {
  const auto number = [&](std::string_view key, float fallback) {
    const float value = ToFloat(program_.settings.GetSettingValue(kOstrinka, kPlace, key, fallback)).value_or(fallback);
    return std::isfinite(value) && std::fabs(value) < 100000 ? value : fallback;
  };
  placement.width = std::max(number("Width", placement.width), 640.0f);
  placement.height = std::max(number("Height", placement.height), 400.0f);
  placement.left = number("Left", placement.left);
  placement.top = number("Top", placement.top);
  const float percent = number("Zoom", 100);
  zoom_ = percent < 10 ? 1.0 : std::clamp(percent / 100.0, kLeastZoom, kMostZoom);
  placement.state = program_.settings.Integer(kOstrinka, kPlace, "WinState", placement.state);
}

void MainWindow::save_window_() {
  const std::pair<std::string_view, Value> values[] = {
      {"Left", placement.left},     {"Top", placement.top},        {"Width", placement.width},
      {"Height", placement.height}, {"WinState", placement.state}, {"Zoom", static_cast<int32_t>(std::lround(zoom_ * 100))}};
  for (const auto& [key, value] : values) program_.settings.SaveSettingValue(kOstrinka, kPlace, key, value);
}

}  // namespace ostrinka
