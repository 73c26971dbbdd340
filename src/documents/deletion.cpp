#include "documents/deletion.h"

#include "books/books.h"
#include "books/rows.h"

namespace ostrinka {

using namespace document_columns;

namespace {

ColumnValues Emptied() {
  ColumnValues nothing;
  for (const Column<Link>& link : {kType, kCustomer, kIssuer, kPaymentForm}) nothing.Set(link, 0);
  for (const Column<int32_t>& number : {kNumber, kIdentity, kCorrects, kCorrection}) nothing.Set(number, 0);
  for (const Column<double>& total : {kNet, kGross}) nothing.Set(total, 0);
  return nothing;
}

}  // namespace

DeletionOutcome DeleteSalesDocument(Program& program, int32_t record) {
  const int32_t correction = ReadColumn(program, kCorrection, record);
  if (IsLive(program, kDokSprzed, correction)) return DeletionOutcome::kHasCorrection;
  // A corrected document may have got another correction since.
  int32_t corrected = ReadColumn(program, kCorrects, record);
  if (ReadColumn(program, kCorrection, corrected) != record) corrected = 0;
  if (corrected >= 1 && !StoreColumn(program, kCorrection, corrected, 0)) return DeletionOutcome::kNotWritten;
  if (!Store(program, kDokSprzed, record, Emptied())) {
    // The disk that refused the emptying may refuse this too: the correction then merely stands unlinked.
    if (corrected >= 1) static_cast<void>(StoreColumn(program, kCorrection, corrected, record));
    return DeletionOutcome::kNotWritten;
  }
  return Table(program, kDokSprzed).RECORD_DELETE(record) ? DeletionOutcome::kDeleted : DeletionOutcome::kNotWritten;
}

}  // namespace ostrinka
