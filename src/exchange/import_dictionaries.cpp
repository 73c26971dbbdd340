#include "exchange/import_dictionaries.h"

#include <cmath>
#include <optional>

#include "base/text.h"
#include "company/tables.h"

namespace ostrinka {
namespace {

struct DictionaryRule {
  int table;
  const char* names[3];  // fields that name an entry, the foremost first; null for none
  bool grows;
};

constexpr DictionaryRule kRules[] = {
    {kGrupy, {"NAZWA"}, true},
    {kGrupaTU, {"NAZWA"}, true},
    {kJednMiary, {"SYMBOL", "NAZWA"}, true},
    {kPanstwa, {"NAZWA", "SKROT"}, true},
    {kRegiony, {"NAZWA"}, true},
    {kFormyPlatn, {"NAZWA"}, false},
    {kStawkiVat, {"SYMBOL", "NAZWA"}, false},
    {kWaluty, {"SYMBOL", "KODWAL", "NAZWA"}, false},
    {kKasyFisk, {"SYMBOL", "NAZWA"}, false},
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
  for (const char* name : rule->names) {
    if (name == nullptr) break;
    Table(program_, table).SCAN({FieldId(name)}, [&](int32_t record, const std::vector<Value>& values) {
      if (entries.first == 0) entries.first = record;
      Remember(entries, record, Trim(ToText(values[0])));
      return true;
    });
  }
  if (table != kStawkiVat) return entries;
  Table(program_, table).SCAN({FieldId("SYMBOL"), FieldId("WARTOSC")}, [&](int32_t record, const std::vector<Value>& values) {
    const double rate = DoubleOr0(values[1]);
    entries.rates[record] = rate;
    if (Percent(ToText(values[0]), true)) entries.percents.emplace_back(rate, record);
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
  return rule == nullptr ? 0 : Table(program_, table).FIELD_LEN(rule->names[0]);
}

int32_t ImportDictionaries::Add(int table, const std::string& text) {
  const DictionaryRule* rule = FindRule(table);
  if (rule == nullptr || !rule->grows) return 0;
  ClassQDBASE& dictionary = Table(program_, table);
  std::vector<Value> values(static_cast<size_t>(dictionary.FIELD_COUNT()));
  for (int n = 1; n <= dictionary.FIELD_COUNT(); ++n) {
    const std::string field = dictionary.FIELD_NAME(n);
    const bool unit = table == kJednMiary;
    if (field == rule->names[0] || (unit && field == "NAZWA")) values[static_cast<size_t>(n) - 1] = text;
    if (unit && field == "FORMAT") values[static_cast<size_t>(n) - 1] = std::string(kNewUnitFormat);
  }
  if (!dictionary.RECORD_ADD(values)) return 0;
  const int32_t added = dictionary.RECORD_ADDED();
  dictionary.RECORD_SHOW(added);
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
