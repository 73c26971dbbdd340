#include "print/sales_document_layout.h"

#include "print/invoice_layout.h"

namespace ostrinka {
namespace {

// Layouts in the order in which their tests are asked; one without a test takes what is left.
constexpr struct {
  bool (*test)(Program& program, int32_t record);
  void (*print)(PrintJob& job, const DocumentCopy& copy);
} kLayouts[] = {
    {nullptr, PrintInvoice},
};

}  // namespace

void PrintSalesDocument(PrintJob& job, const DocumentCopy& copy) {
  for (const auto& layout : kLayouts) {
    if (layout.test && !layout.test(job.program, copy.record)) continue;
    layout.print(job, copy);
    return;
  }
}

}  // namespace ostrinka
