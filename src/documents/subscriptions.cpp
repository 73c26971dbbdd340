#include "documents/subscriptions.h"

#include "books/books.h"
#include "books/rows.h"
#include "documents/lines.h"
#include "documents/numbering.h"

namespace ostrinka {

using namespace document_columns;

std::vector<int32_t> due_tasks(Program& program) {
  std::vector<int32_t> due;
  if (!program.database_open) return due;
  const double today = program.platform.clock.Now().WithoutTime().days();
  const auto visit = [&](int32_t record, bool ends, bool hidden, Date end, int32_t days) {
    if (ends && !hidden && end.days() - days <= today) due.push_back(record);
    return true;
  };
  EachOf(program, kDokSprzed, visit, kSubscriptionEnds, kTaskHidden, kSubscriptionEnd, kReminderDays);
  return due;
}

int32_t due_task_count(Program& program) {
  return static_cast<int32_t>(due_tasks(program).size());
}

int32_t make_follow_up(Program& program, int32_t source, int32_t type, bool& paid) {
  const Date today = program.platform.clock.Now().WithoutTime();
  const auto document = Read<SalesDocument>(program, source);
  if (!document) return 0;
  if (type < 1) type = document->type;
  const int32_t number = next_number(program, kDokSprzed, today, type, 0);
  const int32_t id = new_document_id(program);
  const double period = document->subscription_end.days() - document->sold.days();
  ColumnValues changes;
  changes.Set(kType, type).Set(kFiscalised, false).Set(kIdentity, id).Set(kNumber, number);
  // The link between a document and its correction is one to one: a copy has neither.
  changes.Set(kCorrection, 0).Set(kCorrects, 0);
  changes.Set(kIssued, today).Set(kSold, today).Set(kSubscriptionEnd, Date(today.days() + period));
  changes.Set(kDue, PaymentDueDate(program, today, document->payment_form));
  if (paid) changes.Set(kPaid, false);
  const int32_t record = AddCopy(program, kDokSprzed, source, changes);
  if (record < 1) return 0;
  ClassQDBASE& documents = Table(program, kDokSprzed);
  if (!CopyLines(program, document->identity, id)) {
    // A document without some of its lines would look like a whole one.
    static_cast<void>(documents.RECORD_DELETE(record));
    return 0;
  }
  documents.RECORD_SHOW(record);
  return record;
}

}  // namespace ostrinka
