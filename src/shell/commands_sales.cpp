// Commands on sales documents; those that print them are in commands_printing.cpp.
#include "documents/deletion.h"
#include "documents/numbering.h"
#include "print/print_run.h"
#include "sales/sales_form.h"
#include "shell/commands.h"
#include "shell/record_commands.h"

namespace ostrinka {
namespace {

void OpenEditor(CommandContext& context, frm_Dok_sprzed& form) {
  form.print_document = [&program = context.program](int32_t record, PrintMode mode) { PrintOneDocument(program, record, mode); };
  form.reload_();
  context.Show(form);
}

// Without a current document it ends without a word (kept: it never told, unlike the other commands).
void AddCorrection(CommandContext& context, const Command&, int) {
  Program& program = context.program;
  const int32_t record = context.list.CurrentRecord(kDokSprzed);
  if (record == 0) return;
  const CorrectionRule rule = may_be_corrected(program, record);
  if (rule != CorrectionRule::kAllowed) {
    const char* key = rule == CorrectionRule::kTypeForbids ? "sdocs.msg.cantcreatecdc" : "sdocs.msg.thisdochascdc";
    context.window.StatusText(program.Text(key));
    context.Tell(key);
    return;
  }
  frm_Dok_sprzed form(program);
  form.Mode = EditMode::kNew;
  form.CorrectionFlag = true;
  form.CorrectedRecord = record;
  OpenEditor(context, form);
}

// The split button stays on what was added last: an invoice or a correction.
void AddDocument(CommandContext& context, const Command& command, int argument) {
  if (context.ribbon.ChosenItem(command.key) == "SPRZEDAŻ.DODAJ.FAKTURAKORYGUJĄCA") {
    AddCorrection(context, command, argument);
    return;
  }
  frm_Dok_sprzed form(context.program);
  form.Mode = EditMode::kNew;
  OpenEditor(context, form);
}

void EditDocument(CommandContext& context, const Command& command, int) {
  const int32_t record = RecordToEdit(context, command.table);
  if (record == 0) return;
  if (is_fiscalised(context.program, record)) {
    context.Tell("msg.info.canteditfsik");
    return;
  }
  frm_Dok_sprzed form(context.program);
  form.Mode = EditMode::kEdit;
  OpenEditor(context, form);
}

void DeleteDocument(CommandContext& context, const Command& command, int) {
  const int32_t record = RecordToDelete(context, command.table);
  if (record == 0) return;
  const DeletionOutcome outcome = DeleteSalesDocument(context.program, record);
  if (outcome == DeletionOutcome::kHasCorrection) {
    context.window.StatusText(context.program.Text("sdocs.msg.thisdochascdc.delorg"));
    context.Beep();
    return;
  }
  if (outcome == DeletionOutcome::kNotWritten) context.Fail();
  context.window.refresh_tasks_();
}

constexpr Command kRows[] = {
    {"SPRZEDAŻ.DODAJ", Needs::kDatabase, AddDocument, kDokSprzed},
    {"SPRZEDAŻ.DODAJ.KOREKTA", Needs::kDatabase, AddCorrection, kDokSprzed},
    {"SPRZEDAŻ.DODAJ.KLONUJ", Needs::kDatabase, NotBuilt, kDokSprzed},
    {"SPRZEDAŻ.DODAJ.KLONUJ.S", Needs::kDatabase, NotBuilt, kDokSprzed},
    {"SPRZEDAŻ.EDYTUJ", Needs::kDatabase, EditDocument, kDokSprzed},
    {"SPRZEDAŻ.USUŃ", Needs::kDatabase, DeleteDocument, kDokSprzed},
    {"SPRZEDAŻ.REC", Needs::kDatabase, MoveRecord, kDokSprzed},
    {"SPRZEDAŻ.FISKALIZUJ", Needs::kDatabase, NotBuilt, kDokSprzed},
};

}  // namespace

std::span<const Command> SalesCommands() {
  return kRows;
}

}  // namespace ostrinka
