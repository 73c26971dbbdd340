// Printing of documents and lists.
#include <string>

#include "documents/numbering.h"
#include "print/doc_preview.h"
#include "print/print_run.h"
#include "shell/commands.h"
#include "shell/print_choice.h"

namespace ostrinka {
namespace {

// A job that came out empty has told why.
void PreviewJob(CommandContext& context, const std::string& subject) {
  frm_DocPreview preview(context.program);
  if (preview.Pages() == 0) return;
  preview.subject = subject;
  context.program.platform.ui.ShowModal(preview);
}

// The current sales document to the printer, the preview or a file.
void PrintDocument(CommandContext& context, const Command& command, int) {
  Program& program = context.program;
  const int32_t record = context.list.CurrentRecord(command.table);
  if (record == 0) {
    context.Tell(command.detail);
    return;
  }
  const PrintMode mode = TickedPrintMode(context.ribbon);
  switch (ChosenOutput(context.ribbon, command.key)) {
    case PrintOutput::kPdf:
      BuildDocumentJob(program, record, mode, /*save_pdf=*/true);
      break;
    case PrintOutput::kPreview:
      BuildDocumentJob(program, record, mode, /*save_pdf=*/false);
      PreviewJob(context, doc_print_title(program, record) + " " + doc_number_text(program, record));
      break;
    case PrintOutput::kPrinter:
      PrintOneDocument(program, record, mode);
      break;
  }
}

constexpr Needs kDb = Needs::kDatabase;
constexpr Command kRows[] = {
    {"SPRZEDAŻ.DRUKUJ", kDb, PrintDocument, kDokSprzed, "msg.info.nodocstoprint"},
    {"SPRZEDAŻ.DRUKUJ.S_", kDb, NotBuilt, kDokSprzed},
    {"SPRZEDAŻ.DRUKUJ.L_", kDb, NotBuilt, kDokSprzed},
    {"SPRZEDAŻ.DRUKUJ.ADR", kDb, NotBuilt, kDokSprzed},
    {"ZAKUP.DRUKUJ", kDb, NotBuilt, kDokZakupu},
    {"KONTRAHENCI.DRUKUJ", kDb, NotBuilt, kKontrahenci},
    {"TOWARYUSŁUGI.DRUKUJ", kDb, NotBuilt, kTowaryUslugi},
    {"ZESTAWIENIA.DRUKUJ", kDb, NotBuilt},
    {"SPRZEDAŻ.USTAWWYDRUK", Needs::kNothing, NotBuilt},
    {"ZAKUP.USTAWWYDRUK", Needs::kNothing, NotBuilt},
    {"KONTRAHENCI.USTAWWYDRUK", Needs::kNothing, NotBuilt},
    {"TOWARYUSŁUGI.USTAWWYDRUK", Needs::kNothing, NotBuilt},
    {"ZESTAWIENIA.USTAWWYDRUK", Needs::kNothing, NotBuilt},
};

}  // namespace

std::span<const Command> PrintingCommands() {
  return kRows;
}

}  // namespace ostrinka
