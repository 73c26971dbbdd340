// The keys of the main window.
#include <algorithm>

#include "controls/key_codes.h"
#include "shell/commands.h"
#include "shell/main_window.h"
#include "shell/tabs.h"

namespace ostrinka {
namespace {

// What a letter does after Alt: the tab that comes to the front, and the command that runs there.
struct AltKey {
  int code;
  std::string_view tab, command;
};
constexpr AltKey kLetters[] = {
    {'F', "SPRZEDAŻ", "SPRZEDAŻ.DODAJ"},      {'S', "SPRZEDAŻ", "SPRZEDAŻ.DODAJ"},        {'Z', "ZAKUP", "ZAKUP.DODAJ"},
    {'K', "KONTRAHENCI", "KONTRAHENT.DODAJ"}, {'T', "TOWARYUSŁUGI", "TOWARUSŁUGA.DODAJ"}, {'U', "TOWARYUSŁUGI", ""}};

}  // namespace

bool MainWindow::UserKey(int code) {
  if (code == kKeyAlt) {
    ribbon.AltState(!ribbon.AltState());
    return true;
  }
  if (ribbon.AltState()) return AltLetter(code);
  if (dictionary.UserKey(code, false)) return true;
  dictionary.VSC_GOTO_END_();
  const bool dictionaries = list.CurrentTable == kDictionariesTab;
  if (code == kKeyBlank) return dictionaries && dictionary.ChangeMark(list.DictionaryTable, list.CurrentRecord(list.DictionaryTable));
  if (code == kKeyEnter) return RunRecordCommand(".EDYTUJ");
  if (code == kKeyInsert) return RunRecordCommand(".DODAJ");
  if (code == kKeyDelete) return RunRecordCommand(".USUŃ");
  if (code == kKeyF1) return Run("HELP", -1);
  if (code >= kKeyF5 && code < kKeyF5 + static_cast<int>(Tabs().size())) return UserTab(Tabs()[static_cast<size_t>(code - kKeyF5)].key);
  return code >= kKeyPageUp && code <= kKeyDown && MoveKey(code);
}

// A report has no records to work on.
bool MainWindow::RunRecordCommand(std::string_view what) {
  const Tab* tab = FindTab(ribbon.TabID());
  return tab && tab->table != kReportsTab && Run(std::string(tab->record_prefix) + std::string(what), -1);
}

bool MainWindow::AltLetter(int code) {
  ribbon.AltState(false);
  if (code == 'P') return list.CurrentTable != kDictionariesTab && Run(ribbon.TabID() + ".DRUKUJ", -1);
  for (const AltKey& key : kLetters) {
    if (key.code != code) continue;
    UserTab(key.tab);
    if (!key.command.empty()) Run(key.command, -1);
    return true;
  }
  return false;
}

bool MainWindow::MoveKey(int code) {
  ClassQDBASE* table = list.Table();
  if (!table) return false;
  if (code == kKeyPageUp || code == kKeyPageDown) {
    // A page is what the last drawing had room for.
    const auto& rows = table->selection();
    const auto here = std::find(rows.begin(), rows.end(), table->RECORD_POSITION());
    const int row = here == rows.end() ? 1 : static_cast<int>(here - rows.begin()) + 1;
    const int page = std::max(table->TABLE_ROWS(), 1);
    return UserRow(std::clamp(code == kKeyPageUp ? row - page : row + page, 1, std::max(table->MAX_ROWS(), 1)));
  }
  constexpr int kArrows[] = {3, 0, 1, 1, 2, 2};  // of End, Home, left, up, right, down
  list.Move(list.TableNumber(), kArrows[code - kKeyEnd]);
  ref_();
  return true;
}

}  // namespace ostrinka
