// The tab of dictionaries: which one is on show, adding, editing and deleting its rows in place.
#include "shell/commands.h"
#include "shell/tabs.h"

namespace ostrinka {
namespace {

constexpr const char* kTab = "SŁOWNIKI";
constexpr std::string_view kError = "mdi.message.dict.error";

bool TabInFront(const CommandContext& context) {
  return context.list.CurrentTable == kDictionariesTab;
}

void Pick(CommandContext& context, const Command& command, int) {
  if (!TabInFront(context)) context.show_tab(kTab);
  for (const Command& other : DictionaryCommands()) {
    if (other.run == Pick) context.ribbon.ButtonChecked(other.key, other.key == command.key);
  }
  context.list.DictionaryTable = command.table;
  context.list.first_row = 1;
}

void AddRecord(CommandContext& context, const Command&, int) {
  const int dictionary = context.list.DictionaryTable;
  if (!TableIsOpen(context.program, dictionary)) return context.Beep();
  if (!context.Ask("msg.question.addnewrecord")) return;
  if (!TabInFront(context)) context.show_tab(kTab);
  ClassQDBASE& table = Table(context.program, dictionary);
  if (!table.RECORD_ADD()) return context.Fail(kError);
  context.list.KeepOrder(dictionary, {});
  context.list.List(dictionary, "*", {});
  table.MOVE_LAST();
  context.window.ref_();
  context.dictionary.Click(dictionary, table.RECORD_POSITION(), 1);
}

void EditRecord(CommandContext& context, const Command&, int) {
  const int dictionary = context.list.DictionaryTable;
  if (!TabInFront(context) || !TableIsOpen(context.program, dictionary)) return context.Beep();
  const int32_t record = context.list.CurrentRecord(dictionary);
  if (record == 0) return context.Tell("msg.info.norecordstoedit");
  context.dictionary.Edit(dictionary, record);
}

// Nothing asks whether the record is in use (kept: documents go on reading it through their links).
void DeleteRecord(CommandContext& context, const Command&, int) {
  const int dictionary = context.list.DictionaryTable;
  if (!TableIsOpen(context.program, dictionary)) return context.Beep();
  const int32_t record = context.list.CurrentRecord(dictionary);
  if (record == 0) return context.Tell("msg.info.norecordstodel");
  if (!context.Ask("msg.question.deleterecord")) return;
  ClassQDBASE& table = Table(context.program, dictionary);
  table.RECORD_POSITION(record);
  if (!table.RECORD_DELETE(record)) return context.Fail(kError);
  // The row that took the place of the deleted one becomes the current one.
  const int32_t neighbour = table.RECORD_POSITION();
  context.list.List(dictionary, "*", context.list.KeptOrder(dictionary));
  if (table.RECORD_SELECT(neighbour)) table.RECORD_POSITION(neighbour);
}

constexpr Command kRows[] = {
    {"SŁOWNIK.STAWKIVAT", Needs::kDatabase, Pick, kStawkiVat},
    {"SŁOWNIK.DOKUMENTY", Needs::kDatabase, Pick, kDokumentKat},
    {"SŁOWNIK.TOWARY", Needs::kDatabase, Pick, kGrupaTU},
    {"SŁOWNIK.KONTRAHENCI", Needs::kDatabase, Pick, kGrupy},
    {"SŁOWNIK.PŁATNOŚCI", Needs::kDatabase, Pick, kFormyPlatn},
    {"SŁOWNIK.JMIARY", Needs::kDatabase, Pick, kJednMiary},
    {"SŁOWNIK.PRACOWNICY", Needs::kDatabase, Pick, kPracownicy},
    {"SŁOWNIK.PAŃSTWA", Needs::kDatabase, Pick, kPanstwa},
    {"SŁOWNIK.REGIONY", Needs::kDatabase, Pick, kRegiony},
    {"SŁOWNIK.WALUTY", Needs::kDatabase, Pick, kWaluty},
    {"SŁOWNIK.WALUTY.UPG.NBP", Needs::kDatabase, NotBuilt, kWaluty},
    {"SŁOWNIK.REKORD.DODAJ", Needs::kDatabase, AddRecord},
    {"SŁOWNIK.REKORD.EDYTUJ", Needs::kDatabase, EditRecord},
    {"SŁOWNIK.REKORD.USUŃ", Needs::kDatabase, DeleteRecord},
};

}  // namespace

std::span<const Command> DictionaryCommands() {
  return kRows;
}

}  // namespace ostrinka
