#include "print/sales_document_layout.h"

#include "documents/numbering.h"
#include "print/invoice_layout.h"

namespace ostrinka {
namespace {

// Layouts in the order in which their tests are asked; one without a test takes what is left.
constexpr struct {
  bool (*test)(Program& program, int32_t record);
  void (*print)(Program& program, ClassPRINT& print, const DocumentCopy& copy);
} kLayouts[] = {
    {nullptr, PrintInvoice},
};

}  // namespace

void PrintSalesDocument(Program& program, ClassPRINT& print, int32_t record, bool is_original, const std::string& copy_label) {
  for (const auto& layout : kLayouts) {
    if (layout.test && !layout.test(program, record)) continue;
    layout.print(program, print, {record, is_original, copy_label});
    return;
  }
}

}  // namespace ostrinka
