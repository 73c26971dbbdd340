#include "exchange/import_dictionaries.h"

#include <cmath>
#include <optional>

#include "base/text.h"
#include "books/books.h"
#include "books/columns.h"
#include "books/dictionary_rows.h"

namespace ostrinka {
namespace {

struct DictionaryRule {
  int table;
  Column<std::string> names[3];  // that name an entry, the foremost first; a null name for none
  bool grows;
};

constexpr DictionaryRule kRules[] = {
    {kGrupy, {group_columns::kName}, true},
    {kGrupaTU, {article_group_columns::kName}, true},
    {kJednMiary, {unit_columns::kSymbol, unit_columns::kName}, true},
    {kPanstwa, {country_columns::kName, country_columns::kShort}, true},
    {kRegiony, {region_columns::kName}, true},
    {kFormyPlatn, {payment_form_columns::kName}, false},
    {kStawkiVat, {vat_rate_columns::kSymbol, vat_rate_columns::kName}, false},
    {kWaluty, {currency_columns::kSymbol, currency_columns::kCode, currency_columns::kName}, false},
    {kKasyFisk, {cash_register_columns::kSymbol, cash_register_columns::kName}, false},
};

constexpr char kNewUnitFormat[] = "#2";  // a quantity of a new unit may have a fraction
constexpr double kSamePercent = 1e-6;

const DictionaryRule* FindRule(int table) {
  for (const DictionaryRule& rule : kRules) {
    if (rule.table == table) return &rule;
  }
  return nullptr;
}

std::string Folded(std::string_view text) {
  std::string kept;
  for (const char letter : FoldPolish(text)) {
    if (letter != ' ' && letter != '.') kept += letter;
  }
  return kept;
}

// 22 of "22%" and "22,0 %"; nothing of "zw".
std::optional<double> Percent(std::string_view text, bool sign_needed) {
  const std::string trimmed = Trim(text);
  const bool sign = !trimmed.empty() && trimmed.back() == '%';
  if (sign_needed && !sign) return std::nullopt;
  return ReadNumber(std::string_view(trimmed).substr(0, trimmed.size() - (sign ? 1 : 0)));
}

}  // namespace

void ImportDictionaries::Remember(Entries& entries, int32_t record, const std::string& text) {
  if (text.empty()) return;
  entries.exact.emplace(text, record);
  if (const std::string folded = Folded(text); !folded.empty()) entries.folded.emplace(folded, record);
}

ImportDictionaries::Entries& ImportDictionaries::Of(int table) {
  const auto [found, is_new] = tables_.try_emplace(table);
  Entries& entries = found->second;
  const DictionaryRule* rule = FindRule(table);
  if (!is_new || rule == nullptr) return entries;
  for (const Column<std::string>& name : rule->names) {
    if (name.name == nullptr) break;
    const auto note = [&](int32_t record, const std::string& text) {
      if (entries.first == 0) entries.first = record;
      Remember(entries, record, Trim(text));
      return true;
    };
    EachOf(program_, table, note, name);
  }
  if (table != kStawkiVat) return entries;
  EachRow<VatRate>(program_, [&](int32_t record, const VatRate& rate) {
    entries.rates[record] = rate.percent;
    if (Percent(rate.symbol, true)) entries.percents.emplace_back(rate.percent, record);
    return true;
  });
  return entries;
}

int32_t ImportDictionaries::Find(int table, const std::string& text) {
  const Entries& entries = Of(table);
  if (const auto same = entries.exact.find(Trim(text)); same != entries.exact.end()) return same->second;
  if (const auto alike = entries.folded.find(Folded(text)); alike != entries.folded.end()) return alike->second;
  if (const std::optional<double> percent = Percent(text, false)) {
    for (const auto& [rate, record] : entries.percents) {
      if (std::fabs(rate - *percent) < kSamePercent) return record;
    }
  }
  return 0;
}

bool ImportDictionaries::Grows(int table) const {
  const DictionaryRule* rule = FindRule(table);
  return rule != nullptr && rule->grows;
}

int32_t ImportDictionaries::NameLength(int table) {
  const DictionaryRule* rule = FindRule(table);
  return rule == nullptr ? 0 : Table(program_, table).FIELD_LEN(rule->names[0].name);
}

int32_t ImportDictionaries::Add(int table, const std::string& text) {
  const DictionaryRule* rule = FindRule(table);
  if (rule == nullptr || !rule->grows) return 0;
  ColumnValues values;
  values.Set(rule->names[0], text);
  if (table == kJednMiary) values.Set(unit_columns::kName, text).Set(unit_columns::kFormat, kNewUnitFormat);
  const int32_t added = ostrinka::Add(program_, table, values);
  if (added < 1) return 0;
  Table(program_, table).RECORD_SHOW(added);
  Remember(Of(table), added, text);
  return added;
}

int32_t ImportDictionaries::First(int table) {
  return Of(table).first;
}

double ImportDictionaries::Rate(int32_t record) {
  const Entries& rates = Of(kStawkiVat);
  const auto found = rates.rates.find(record);
  return found == rates.rates.end() ? 0 : found->second;
}

}  // namespace ostrinka
