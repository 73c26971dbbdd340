#include "company/tables.h"

#include <algorithm>

#include "base/text.h"
#include "company/table_definitions.h"

namespace ostrinka {
namespace {

// Slot of the closed object that stands in for a table which is not open.
constexpr int kStandIn = 0;

bool IsLetter(char32_t letter) {
  constexpr std::u32string_view kPolish = U"ąćęłńóśźż";
  return (letter >= U'a' && letter <= U'z') || kPolish.find(letter) != std::u32string_view::npos;
}

std::string WithoutLetters(std::string_view pattern) {
  std::u32string kept;
  for (char32_t letter : CodePoints(Lower(pattern))) {
    if (!IsLetter(letter)) kept += letter;
  }
  return Trim(FromCodePoints(kept));
}

std::string CurrencyPattern(Program& program, int32_t currency, bool with_sign, const char* field, const char* setting,
                            const char* fallback) {
  ClassQDBASE& currencies = Table(program, kWaluty);
  const bool known = currency >= 1 && currencies.IsOpen() && currency <= currencies.RECORD_COUNT();
  std::string pattern = known ? currencies.TextOf(currency, field) : "";
  // A currency just added has no pattern yet.
  if (Trim(pattern).empty()) pattern = program.settings.Text(kCommon, "strFormat", setting, fallback);
  return with_sign ? pattern : WithoutLetters(pattern);
}

std::string DatePattern(Program& program, const char* field, const char* fallback) {
  ClassQDBASE& company = Table(program, kFirma);
  if (!company.IsOpen()) return fallback;
  std::string pattern = company.TextOf(1, field);
  return pattern.empty() ? fallback : pattern;
}

}  // namespace

ClassQDBASE& Table(Program& program, int number) {
  if (number >= 1 && number <= kTableSlots && OpenTable(program, number)) return *OpenTable(program, number);
  std::shared_ptr<ClassQDBASE>& stand_in = OpenTable(program, kStandIn);
  if (!stand_in) stand_in = std::make_shared<ClassQDBASE>(program.platform);
  return *stand_in;
}

bool TableIsOpen(const Program& program, int number) {
  if (number < 1 || number > kTableSlots) return false;
  const std::shared_ptr<ClassQDBASE>& table = OpenTable(program, number);
  return table && table->IsOpen();
}

bool AnyTableOpen(const Program& program) {
  const auto& tables = program.Part<OpenTables>().by_number;
  return std::any_of(tables.begin() + 1, tables.end(), [](const auto& table) { return table != nullptr; });
}

bool OpenPrivate(Program& program, int number, ClassQDBASE& table, bool links) {
  ClassQDBASE& shared = Table(program, number);
  if (!shared.IsOpen()) return false;
  if (!table.DATABASE_OPEN(shared.DATABASE_PATH(), shared.USER_NAME(0), shared.USER_PASS(0), false, false, links)) return false;
  if (shared.LOGIN_TYPE() == kInvalidUser) table.ForReadingOnly();
  table.ForgetPosition();
  return true;
}

std::string PricePattern(Program& program, int32_t currency, bool with_sign) {
  return CurrencyPattern(program, currency, with_sign, "FORMAT", "Currency", "0.00##");
}

std::string AmountPattern(Program& program, int32_t currency, bool with_sign) {
  return CurrencyPattern(program, currency, with_sign, "FORMATNCH", "CurrencyP", "0.00");
}

std::string ScreenDatePattern(Program& program) {
  return DatePattern(program, "FORMAT_DATA_EKR", "dd-mm-yyyy");
}
std::string PrintDatePattern(Program& program) {
  return DatePattern(program, "FORMAT_DATA_WYD", "dd-mm-yy");
}

}  // namespace ostrinka
