#include "documents/numbering.h"

#include <algorithm>
#include <map>

#include "base/format.h"
#include "base/text.h"
#include "company/tables.h"
#include "documents/private_table.h"

namespace ostrinka {

bool has_option(std::string_view options, std::string_view word) {
  const std::string text = Upper(Trim(options)), wanted = Upper(Trim(word));
  return Contains(text, "+" + wanted) || Contains(text, wanted + "+");
}

namespace {

std::string TypeText(Program& program, int32_t type_record, const char* field) {
  ClassQDBASE& types = Table(program, kDokumentKat);
  return type_record >= 1 && types.RECORD_LOAD(type_record) ? types.Text(field) : std::string();
}

std::string TypeTextOfDocument(Program& program, int32_t record, const char* field) {
  KeepPositions keep(program, {kDokSprzed, kDokumentKat});
  ClassQDBASE& documents = Table(program, kDokSprzed);
  return documents.RECORD_LOAD(record) ? TypeText(program, documents.Int(".TYP"), field) : std::string();
}

bool HasOption(Program& program, int32_t record, std::string_view word) {
  return has_option(doc_options(program, record), word);
}

}  // namespace

std::string type_options(Program& program, int32_t type_record) {
  KeepPositions keep(program, {kDokumentKat});
  return Upper(Trim(TypeText(program, type_record, "OPCJE")));
}

std::string doc_options(Program& program, int32_t record) {
  return Upper(Trim(TypeTextOfDocument(program, record, "OPCJE")));
}
std::string doc_print_title(Program& program, int32_t record) {
  return TypeTextOfDocument(program, record, "DRUK_TYT");
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
  KeepPositions keep(program, {kDokSprzed});
  ClassQDBASE& documents = Table(program, kDokSprzed);
  return documents.RECORD_LOAD(record) && documents.Flag("ZDFISK");
}

std::string doc_number_text(Program& program, int32_t record) {
  KeepPositions keep(program, {kKontrahenci, kDokumentKat, kDokSprzed});
  ClassQDBASE& documents = Table(program, kDokSprzed);
  if (!documents.RECORD_LOAD(record)) return {};
  ClassQDBASE& customers = Table(program, kKontrahenci);
  const int32_t customer = documents.Int(".KONTRAHENT");
  const std::string group = customer >= 1 && customers.RECORD_LOAD(customer) ? Trim(customers.Text("@GRUPA")) : std::string();
  const Date issued = documents.Day("DATA_WYSTAWIENIA");

  std::string text = TypeText(program, documents.Int(".TYP"), "FORMAT");
  text = ReplaceAll(text, "[nr]", std::to_string(documents.Int("NR_DOK")));
  text = Trim(Lower(text));
  for (const char* part : {"yyyy", "yy", "mmmm", "mm", "dddd", "dd"}) {
    if (Contains(text, part)) text = ReplaceAll(text, part, FormatDate(issued, part, program.locale));
  }
  text = ReplaceAll(text, "_", "  ");
  text = Upper(text);
  return ReplaceAll(text, "[GR]", group);
}

std::string doc_reference_text(Program& program, int32_t record) {
  KeepPositions keep(program, {kDokSprzed});
  ClassQDBASE& documents = Table(program, kDokSprzed);
  if (!documents.RECORD_LOAD(record)) return {};
  const std::string day = FormatDate(documents.Day("DATA_WYSTAWIENIA"), ScreenDatePattern(program), program.locale);
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
  explicit Sets(Program& program) : types_(Table(program, kDokumentKat)) {}
  // Nothing for a document whose type cannot be loaded: it belongs to no set.
  std::optional<int32_t> Of(int32_t type) {
    const auto known = known_.find(type);
    if (known != known_.end()) return known->second;
    std::optional<int32_t> set;
    if (type >= 1 && types_.RECORD_LOAD(type)) set = types_.Int("ZESTAW");
    return known_[type] = set;
  }

 private:
  ClassQDBASE& types_;
  std::map<int32_t, std::optional<int32_t>> known_;
};

// The largest number in the set `set` among the documents of the period, `skip` left out; 0 when none is above 0. One pass: to order the
// documents of a year takes longer than to read them.
int32_t LargestInSet(PrivateTable& documents, const Period& period, Sets& sets, std::optional<int32_t> set, int32_t skip) {
  int32_t largest = 0;
  documents.Walk({"DATA_WYSTAWIENIA", "NR_DOK", "TYP"}, [&](int32_t, const std::vector<Value>& values) {
    const int32_t number = Int32Or0(values[1]);
    if (number > largest && (skip < 1 || number != skip) && period.Holds(DateOr0(values[0])) && sets.Of(Int32Or0(values[2])) == set) {
      largest = number;
    }
    return true;
  });
  return largest;
}

}  // namespace

int32_t next_number(Program& program, int table, Date issued, int32_t type_record, int32_t skip) {
  if (table < 1 || table > kTableSlots) return 0;
  KeepPositions keep(program, {kDokumentKat});
  Sets sets(program);
  const auto set = sets.Of(type_record);
  if (!set) return 0;
  const bool monthly = Contains(Upper(Table(program, kDokumentKat).Text("OPCJE")), "+NM");
  PrivateTable documents(program, table);
  const int32_t largest = LargestInSet(documents, Period(issued, monthly), sets, set, skip);
  return largest == INT32_MAX ? largest : largest + 1;
}

int32_t new_document_id(Program& program) {
  PrivateTable documents(program, kDokSprzed);
  for (;;) {
    const auto id = static_cast<int32_t>(program.platform.random.Fraction() * (1 << 30));
    if (id >= 1 && documents.table().SELECTION("!", "ID_DOK = " + std::to_string(id), "", ordAsc) == 0) return id;
  }
}

CorrectionRule may_be_corrected(Program& program, int32_t record) {
  const std::string options = doc_options(program, record);
  for (const char* word : {"R", "PF", "FK"}) {
    if (has_option(options, word)) return CorrectionRule::kTypeForbids;
  }
  KeepPositions keep(program, {kDokSprzed});
  ClassQDBASE& documents = Table(program, kDokSprzed);
  const int32_t correction = documents.RECORD_LOAD(record) ? documents.Int("KOREKTA") : 0;
  return correction >= 1 && documents.RECORD_EXIST(correction) ? CorrectionRule::kHasOneAlready : CorrectionRule::kAllowed;
}

}  // namespace ostrinka
