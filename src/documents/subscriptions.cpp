#include "documents/subscriptions.h"

#include "company/tables.h"
#include "documents/lines.h"
#include "documents/numbering.h"
#include "documents/private_table.h"

namespace ostrinka {

std::vector<int32_t> due_tasks(Program& program) {
  std::vector<int32_t> due;
  if (!program.database_open) return due;
  const double today = program.platform.clock.Now().WithoutTime().days();
  PrivateTable documents(program, kDokSprzed);
  documents.Walk({"ABN_KONIEC", "ABN_HIDE", "ABN_KONIEC_DATA", "ABN_KONIEC_DNI"}, [&](int32_t record, const std::vector<Value>& values) {
    if (BooleanOrFalse(values[0]) && !BooleanOrFalse(values[1]) && DateOr0(values[2]).days() - Int32Or0(values[3]) <= today)
      due.push_back(record);
    return true;
  });
  return due;
}

int32_t due_task_count(Program& program) {
  return static_cast<int32_t>(due_tasks(program).size());
}

int32_t make_follow_up(Program& program, int32_t source, int32_t type, bool& paid) {
  const Date today = program.platform.clock.Now().WithoutTime();
  ClassQDBASE& documents = Table(program, kDokSprzed);
  const auto refuse = [&program] {
    program.platform.ui.Beep();
    return 0;
  };
  if (!documents.RECORD_LOAD(source)) return refuse();
  if (type < 1) type = documents.Int(".TYP");
  const int32_t number = next_number(program, kDokSprzed, today, type, 0);
  const int32_t id = new_document_id(program);
  if (!documents.RECORD_ADD()) return refuse();
  const int32_t record = documents.RECORD_ADDED();
  if (!documents.RECORD_LOAD(source)) return refuse();
  const double period = documents.Day("ABN_KONIEC_DATA").days() - documents.Day("DATA_SPRZEDAZY").days();
  const int32_t source_id = documents.Int("ID_DOK");
  documents.FIELD("TYP", type);
  documents.FIELD("ZDFISK", false);
  documents.FIELD("ID_DOK", id);
  documents.FIELD("NR_DOK", number);
  // The link between a document and its correction is one to one: a copy has neither.
  documents.FIELD("KOREKTA", int32_t{0});
  documents.FIELD("DOTYCZY", int32_t{0});
  documents.FIELD("DATA_WYSTAWIENIA", today);
  documents.FIELD("DATA_SPRZEDAZY", today);
  documents.FIELD("ABN_KONIEC_DATA", Date(today.days() + period));
  documents.FIELD("TERMIN_ZAPLATY", PaymentDueDate(program, today, documents.Int(".FORMA_PLATNOSCI")));
  if (paid) documents.FIELD("ZAPLACONO", false);
  if (!documents.RECORD_SAVE(record)) return refuse();
  CopyLines(program, source_id, id);
  documents.RECORD_SHOW(record);
  return record;
}

}  // namespace ostrinka
