#include "print/print_run.h"

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "base/text.h"
#include "company/tables.h"
#include "print/document_copies.h"

namespace ostrinka {
namespace {

constexpr const char* kPrintSection = "Print";  // of kOstrinka
constexpr const char* kKindKey = "PdfKind";     // 0 fonts by name, 1 fonts embedded
constexpr const char* kToldKey = "PdfFontsTold";

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

// Files that the person was told of in this run of the program.
struct ToldPictures {
  std::set<std::string> paths;
};

void TellOfLogo(Program& program, const PrintJob& job) {
  if (job.unreadable_logo.empty() || !program.Part<ToldPictures>().paths.insert(job.unreadable_logo).second) return;
  program.Message("msg.info.logounreadable", MessageKind::kWarning);
}

}  // namespace

void BuildDocumentJob(Program& program, int32_t record, PrintMode mode, bool save_pdf) {
  ClassQDBASE& documents = Table(program, kDokSprzed);
  documents.RECORD_POSITION(record);
  documents.RECORD_LOAD(record);
  PrintJob job = NewPrintJob(program);
  if (!AppendCopies(job, record, mode)) program.Message("msg.info.error", MessageKind::kError);
  TellOfLogo(program, job);
  if (save_pdf) SaveJobAsPdf(program);
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

bool PrintOneDocument(Program& program, int32_t record, PrintMode mode) {
  BuildDocumentJob(program, record, mode, /*save_pdf=*/false);
  return RunPrinter(program);
}

}  // namespace ostrinka
