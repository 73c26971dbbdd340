#include "documents/numbering.h"

#include <map>

#include "base/format.h"
#include "base/text.h"
#include "books/books.h"
#include "books/dictionary_rows.h"
#include "books/rows.h"

namespace ostrinka {

bool has_option(std::string_view options, std::string_view word) {
  const std::string text = Upper(Trim(options)), wanted = Upper(Trim(word));
  return Contains(text, "+" + wanted) || Contains(text, wanted + "+");
}

namespace {

template <typename T>
T OfType(Program& program, int32_t record, const Column<T>& column) {
  return ReadColumn(program, column, ReadColumn(program, document_columns::kType, record));
}

bool HasOption(Program& program, int32_t record, std::string_view word) {
  return has_option(doc_options(program, record), word);
}

}  // namespace

std::string type_options(Program& program, int32_t type_record) {
  return Upper(Trim(ReadColumn(program, document_type_columns::kOptions, type_record)));
}

int32_t first_type_with(Program& program, std::string_view word) {
  int32_t first = 0;
  const auto visit = [&](int32_t record, const std::string& options) {
    if (has_option(options, word)) first = record;
    return first == 0;
  };
  EachOf(program, kDokumentKat, visit, document_type_columns::kOptions);
  return first;
}

std::string doc_options(Program& program, int32_t record) {
  return Upper(Trim(OfType(program, record, document_type_columns::kOptions)));
}
std::string doc_print_title(Program& program, int32_t record) {
  return OfType(program, record, document_type_columns::kPrintTitle);
}
bool is_pro_forma(Program& program, int32_t record) {
  return HasOption(program, record, "PF");
}
bool is_bill(Program& program, int32_t record) {
  return HasOption(program, record, "R");
}
bool is_receipt(Program& program, int32_t record) {
  return HasOption(program, record, "PA");
}
bool is_correction(Program& program, int32_t record) {
  return HasOption(program, record, "FK");
}

bool is_fiscalised(Program& program, int32_t record) {
  return ReadColumn(program, document_columns::kFiscalised, record);
}

std::string doc_number_text(Program& program, int32_t record) {
  const auto document = Read<SalesDocument>(program, record);
  if (!document) return {};
  const std::string group = Trim(LinkText(program, customer_columns::kGroup, document->customer));

  std::string text = ReadColumn(program, document_type_columns::kNumberFormat, document->type);
  // kept: the template counts in small letters and is printed in capitals, so "[GR]" comes last: a group keeps its own letters
  text = ReplaceAll(text, "[nr]", std::to_string(document->number));
  text = Trim(Lower(text));
  for (const char* part : {"yyyy", "yy", "mmmm", "mm", "dddd", "dd"}) {
    if (Contains(text, part)) text = ReplaceAll(text, part, FormatDate(document->issued, part, program.locale));
  }
  text = ReplaceAll(text, "_", "  ");
  text = Upper(text);
  return ReplaceAll(text, "[GR]", group);
}

std::string doc_reference_text(Program& program, int32_t record) {
  const auto document = Read<SalesDocument>(program, record);
  if (!document) return {};
  const std::string day = FormatDate(document->issued, ScreenDatePattern(program), program.locale);
  return doc_print_title(program, record) + " " + doc_number_text(program, record) + " z dnia " + day;
}

namespace {

// The days of a year, or of one of its months.
struct Period {
  Period(Date day, bool monthly) {
    const YearMonthDay ymd = day.Ymd();
    const int next_month = monthly ? ymd.month + 1 : 13;
    from = Date::FromYmd(ymd.year, monthly ? ymd.month : 1, 1).value_or(Date());
    to = Date::FromYmd(ymd.year + (next_month > 12 ? 1 : 0), next_month > 12 ? 1 : next_month, 1);
  }
  bool Holds(Date day) const { return day >= from && (!to || day < *to); }

  Date from;
  std::optional<Date> to;  // the day behind; nothing lies behind the last year that a date can have
};

// The sets of the types, each type looked up once.
class Sets {
 public:
  explicit Sets(Program& program) : program_(program) {}
  // Nothing for a document whose type cannot be read: it belongs to no set.
  std::optional<int16_t> Of(int32_t type) {
    const auto known = known_.find(type);
    if (known != known_.end()) return known->second;
    const auto row = Read<DocumentType>(program_, type);
    return known_[type] = row ? std::optional(row->set) : std::nullopt;
  }

 private:
  Program& program_;
  std::map<int32_t, std::optional<int16_t>> known_;
};

}  // namespace

int32_t next_number(Program& program, int table, Date issued, int32_t type_record, int32_t skip) {
  if (table < 1 || table > kTableSlots) return 0;
  Sets sets(program);
  const auto set = sets.Of(type_record);
  if (!set) return 0;
  const Period period(issued, Contains(type_options(program, type_record), "+NM"));
  int32_t largest = 0;
  // One pass: to order the documents of a year takes longer than to read them.
  const auto visit = [&](int32_t, Date day, int32_t number, int32_t type) {
    if (number > largest && (skip < 1 || number != skip) && period.Holds(day) && sets.Of(type) == set) largest = number;
    return true;
  };
  EachOf(program, table, visit, document_columns::kIssued, document_columns::kNumber, document_columns::kType);
  return largest == INT32_MAX ? largest : largest + 1;
}

int32_t new_document_id(Program& program) {
  for (;;) {
    const auto id = static_cast<int32_t>(program.platform.random.Fraction() * (1 << 30));
    bool taken = id < 1;
    const auto visit = [&](int32_t, int32_t other) { return !(taken = taken || other == id); };
    if (!taken) EachOf(program, kDokSprzed, visit, document_columns::kIdentity);
    if (!taken) return id;
  }
}

CorrectionRule may_be_corrected(Program& program, int32_t record) {
  const std::string options = doc_options(program, record);
  for (const char* word : {"R", "PF", "FK"}) {
    if (has_option(options, word)) return CorrectionRule::kTypeForbids;
  }
  const int32_t correction = ReadColumn(program, document_columns::kCorrection, record);
  return IsLive(program, kDokSprzed, correction) ? CorrectionRule::kHasOneAlready : CorrectionRule::kAllowed;
}

}  // namespace ostrinka
