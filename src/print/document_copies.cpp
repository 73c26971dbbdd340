#include "print/document_copies.h"

#include <span>

#include "documents/numbering.h"
#include "print/sales_document_layout.h"

namespace ostrinka {
namespace {

struct CopyToPrint {
  const char* label_key;  // null for none
  bool is_original;
};
using Copies = std::span<const CopyToPrint>;

constexpr CopyToPrint kOriginalAndCopy[] = {{"sdoc.ct.org", true}, {"sdoc.ct.cop", false}};
constexpr CopyToPrint kOriginalAndTwoCopies[] = {{"sdoc.ct.org", true}, {"sdoc.ct.cop", false}, {"sdoc.ct.cop", false}};
constexpr CopyToPrint kOriginalCopyInOne[] = {{"sdoc.ct.coo", true}};
constexpr CopyToPrint kOriginal[] = {{"sdoc.ct.org", true}};
constexpr CopyToPrint kCopy[] = {{"sdoc.ct.cop", true}};
constexpr CopyToPrint kDuplicate[] = {{"sdoc.ct.dup", true}};
constexpr CopyToPrint kProForma[] = {{nullptr, true}};

constexpr float kTotalInset = 14;  // of the stamped total, from the right and the lower edge of the sheet

// Empty for a number that is no mode.
Copies CopiesOfMode(PrintMode mode) {
  switch (mode) {
    case PrintMode::kOriginalAndCopy:
      return kOriginalAndCopy;
    case PrintMode::kOriginalAndTwoCopies:
      return kOriginalAndTwoCopies;
    case PrintMode::kOriginalCopyInOne:
      return kOriginalCopyInOne;
    case PrintMode::kOriginal:
      return kOriginal;
    case PrintMode::kCopy:
      return kCopy;
    case PrintMode::kDuplicate:
      return kDuplicate;
  }
  return {};
}

}  // namespace

void AppendDocument(PrintJob& job, const DocumentCopy& copy) {
  const int32_t first = job.print->Page() + 1;
  job.print->CLEAR_PAGE_NUMBER_();
  PrintSalesDocument(job, copy);
  StampPageTotals(*job.print, first);
}

bool AppendCopies(PrintJob& job, int32_t record, PrintMode mode) {
  const bool pro_forma = is_pro_forma(job.program, record);
  const Copies copies = pro_forma ? Copies(kProForma) : CopiesOfMode(mode);
  for (const CopyToPrint& copy : copies) {
    AppendDocument(job, {record, copy.is_original, copy.label_key ? job.program.Text(copy.label_key) : ""});
  }
  return !copies.empty();
}

void StampPageTotals(ClassPRINT& print, int32_t first) {
  print.FONT_NAME("Arial CE");
  print.FONT_SIZE(10);
  print.FONT_BOLD(false);
  const int32_t total = print.Page() - first + 1;
  for (int32_t page = first; page <= print.Page(); ++page) {
    print.MAX_PAGE(page, print.Page_Width(page) - kTotalInset, print.Page_Height(page) - kTotalInset, total);
  }
}

}  // namespace ostrinka
