#include "print/print_run.h"

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/text.h"
#include "company/tables.h"
#include "documents/numbering.h"
#include "print/sales_document_layout.h"

namespace ostrinka {
namespace {

struct CopyToPrint {
  const char* label_key;  // null for none
  bool is_original;
};

constexpr CopyToPrint kOriginalAndCopy[] = {{"sdoc.ct.org", true}, {"sdoc.ct.cop", false}};
constexpr CopyToPrint kOriginalAndTwoCopies[] = {{"sdoc.ct.org", true}, {"sdoc.ct.cop", false}, {"sdoc.ct.cop", false}};
constexpr CopyToPrint kOriginalCopyInOne[] = {{"sdoc.ct.coo", true}};
constexpr CopyToPrint kOriginal[] = {{"sdoc.ct.org", true}};
constexpr CopyToPrint kCopy[] = {{"sdoc.ct.cop", true}};
constexpr CopyToPrint kDuplicate[] = {{"sdoc.ct.dup", true}};
constexpr CopyToPrint kProForma[] = {{nullptr, true}};

constexpr const char* kPrintSection = "Print";  // of kOstrinka
constexpr const char* kKindKey = "PdfKind";     // 0 fonts by name, 1 fonts embedded
constexpr const char* kToldKey = "PdfFontsTold";

using Copies = std::span<const CopyToPrint>;
constexpr Copies kCopiesOfMode[] = {kOriginalAndCopy, kOriginalAndTwoCopies, kOriginalCopyInOne, kOriginal, kCopy, kDuplicate};

ClassPRINT& NewJob(Program& program) {
  CurrentPrintJob(program) = std::make_shared<ClassPRINT>(program);
  CurrentPrintJob(program)->SetFldStyle(program.settings.Integer(kCommon, "prgSettings", "DocStyle", 0));
  return *CurrentPrintJob(program);
}

void PrintCopies(Program& program, ClassPRINT& print, int32_t record, Copies copies) {
  bool first = true;
  for (const CopyToPrint& copy : copies) {
    if (!first) print.CLEAR_PAGE_NUMBER_();
    first = false;
    PrintSalesDocument(program, print, record, copy.is_original, copy.label_key ? program.Text(copy.label_key) : "");
    StampPageTotals(program);
  }
}

bool WriteEmbedded(Program& program, const std::string& path) {
  EmbeddedPdf& pdf = *program.platform.embedded_pdf;
  ClassPRINT& job = *CurrentPrintJob(program);
  if (!pdf.Start(path)) return false;
  for (int32_t page = 1; page <= job.Page(); ++page) {
    double pixels_per_mm = 0;
    Canvas* sheet = pdf.StartPage(job.Page_Width(page), job.Page_Height(page), pixels_per_mm);
    if (!sheet) return false;
    job.PRINT_PAGE_(page, sheet, pixels_per_mm);
  }
  return pdf.Finish();
}

// The stated kind only names its fonts: who lacks them hears of the other kind, once.
void TellOfFonts(Program& program) {
  if (!program.platform.embedded_pdf || program.platform.embedded_pdf->HasArial()) return;
  if (program.settings.Boolean(kOstrinka, kPrintSection, kToldKey, false)) return;
  program.settings.SaveSettingValue(kOstrinka, kPrintSection, kToldKey, true);
  program.Message("msg.info.pdffonts", MessageKind::kInformation);
}

}  // namespace

void BuildDocumentJob(Program& program, int32_t record, int mode, bool save_pdf) {
  ClassQDBASE& documents = Table(program, kDokSprzed);
  documents.RECORD_POSITION(record);
  documents.RECORD_LOAD(record);
  const std::string options = doc_options(program, record);
  ClassPRINT& print = NewJob(program);
  if (has_option(options, "PF")) {
    PrintCopies(program, print, record, kProForma);
  } else if (mode >= 0 && static_cast<size_t>(mode) < std::size(kCopiesOfMode)) {
    PrintCopies(program, print, record, kCopiesOfMode[mode]);
  } else {
    program.Message("msg.info.error", MessageKind::kError);
  }
  if (save_pdf) SaveJobAsPdf(program);
}

void StampPageTotals(Program& program) {
  if (!CurrentPrintJob(program)) return;
  ClassPRINT& print = *CurrentPrintJob(program);
  print.FONT_NAME("Arial CE");
  print.FONT_SIZE(10);
  print.FONT_BOLD(false);
  const int32_t total = Int32Or0(print.PAGE_NUMBER_());
  for (int32_t page = 1; page <= print.Page(); ++page) print.MAX_PAGE(page, print.Page_Width(0) - 14, print.Page_Height(0) - 14, total);
}

void SaveJobAsPdf(Program& program) {
  if (!CurrentPrintJob(program)) return;
  std::vector<FileFilter> kinds = {{"Portable Document Format (*.pdf)", {"*.pdf"}}};
  if (program.platform.embedded_pdf) kinds.push_back({program.Text("prntpv.pdf.embedded"), {"*.pdf"}});
  const int32_t last = program.settings.Integer(kOstrinka, kPrintSection, kKindKey, 0);
  size_t kind = last > 0 && static_cast<size_t>(last) < kinds.size() ? static_cast<size_t>(last) : 0;
  const std::optional<std::string> answer = program.platform.ui.AskSaveFile(kinds, "", kind);
  std::string path = ReplaceAll(answer.value_or(""), std::string_view("\0", 1), "");
  if (path.empty()) return;
  if (path.size() < 4 || Lower(path.substr(path.size() - 4)) != ".pdf") path += ".pdf";
  if (kinds.size() > 1) program.settings.SaveSettingValue(kOstrinka, kPrintSection, kKindKey, static_cast<int32_t>(kind));
  program.Status(program.Text("mdi.pdf.pleasewait"));
  const bool written = kind == 0 ? CurrentPrintJob(program)->MAKE_PDF(path) : WriteEmbedded(program, path);
  program.Status("");
  if (!written) program.Message("msg.info.error", MessageKind::kError);
  if (written && kind == 0) TellOfFonts(program);
}

bool RunPrinter(Program& program) {
  if (!CurrentPrintJob(program)) return false;
  const std::shared_ptr<ClassPRINT> job = CurrentPrintJob(program);
  Printer& printer = program.platform.printer;
  const Printer::State state = printer.Query();
  if (state != Printer::State::kReady || !printer.StartDocument("Velmora.Ostrinka")) {
    program.Message(state == Printer::State::kMissing ? "msg.info.printernotfound" : "msg.info.printerror", MessageKind::kError);
    return false;
  }
  program.platform.ui.SetBusy(true);  // what is pressed meanwhile waits
  for (int32_t page = 1; page <= job->Page(); ++page) {
    program.Status(program.Text("prntpv.printing", {std::to_string(page), std::to_string(job->Page())}));
    program.platform.ui.TurnEvents();
    double pixels_per_mm = 0;
    Canvas* sheet = printer.StartPage(job->Page_Width(page) > job->Page_Height(page), pixels_per_mm);
    if (!sheet) continue;
    job->PRINT_PAGE_(page, sheet, pixels_per_mm);
    printer.EndPage();
  }
  const std::string name = printer.Name();
  const bool sent = printer.EndDocument();
  program.platform.ui.SetBusy(false);
  program.Status(sent ? program.Text("prntpv.printed", {name}) : "");
  return true;
}

bool PrintOneDocument(Program& program, int32_t record, int mode) {
  BuildDocumentJob(program, record, mode, /*save_pdf=*/false);
  return RunPrinter(program);
}

bool ReadFooterFlag(Program& program) {
  std::string content;
  if (!program.platform.files.ReadAll(program.DatabaseFolder() + "data.ini", content, int64_t{1} << 20)) return true;
  bool shown = true;
  for (const std::string& line : Paragraphs(content)) {
    const std::string word = TrimWhite(Upper(line));
    if (word == "FFV-") shown = false;
    if (word == "FFV+") shown = true;
  }
  return shown;
}

}  // namespace ostrinka
