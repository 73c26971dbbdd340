// Commands on customers and articles: a row names the editor that opens.
#include "masterdata/customer_form.h"
#include "masterdata/goods_form.h"
#include "shell/commands.h"
#include "shell/record_commands.h"

namespace ostrinka {
namespace {

template <typename Editor>
void AddIn(CommandContext& context, const Command&, int) {
  Editor form(context.program);
  form.reload_(EditMode::kNew);
  context.Show(form);
}

// A new record filled from the current one.
template <typename Editor>
void CloneIn(CommandContext& context, const Command& command, int) {
  const int32_t record = RecordToEdit(context, command.table);
  if (record == 0) return;
  Editor form(context.program);
  form.clone_(record);
  context.Show(form);
}

template <typename Editor>
void EditIn(CommandContext& context, const Command& command, int) {
  const int32_t record = RecordToEdit(context, command.table);
  if (record == 0) return;
  Editor form(context.program);
  form.reload_(EditMode::kEdit, record);
  context.Show(form);
}

constexpr Command kRows[] = {
    {"KONTRAHENT.DODAJ", Needs::kDatabase, AddIn<frm_Kontrahenci_>, kKontrahenci},
    {"KONTRAHENT.DODAJ.KLONUJ", Needs::kDatabase, CloneIn<frm_Kontrahenci_>, kKontrahenci},
    {"KONTRAHENT.EDYTUJ", Needs::kDatabase, EditIn<frm_Kontrahenci_>, kKontrahenci},
    {"KONTRAHENT.USUŃ", Needs::kDatabase, DeleteRecord, kKontrahenci},
    {"KONTRAHENT.REC", Needs::kDatabase, MoveRecord, kKontrahenci},
    {"TOWARUSŁUGA.DODAJ", Needs::kDatabase, AddIn<frm_TowUslugi_>, kTowaryUslugi},
    {"TOWARUSŁUGA.DODAJ.KLONUJ", Needs::kDatabase, CloneIn<frm_TowUslugi_>, kTowaryUslugi},
    {"TOWARUSŁUGA.EDYTUJ", Needs::kDatabase, EditIn<frm_TowUslugi_>, kTowaryUslugi},
    {"TOWARUSŁUGA.USUŃ", Needs::kDatabase, DeleteRecord, kTowaryUslugi},
    {"TOWARUSŁUGA.REC", Needs::kDatabase, MoveRecord, kTowaryUslugi},
};

}  // namespace

std::span<const Command> MasterdataCommands() {
  return kRows;
}

}  // namespace ostrinka
