#include "engine/condition.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "base/bytes.h"
#include "base/format.h"
#include "base/text.h"
#include "engine/record_codec.h"
#include "engine/text_key.h"

namespace ostrinka {
namespace {

constexpr char kQuotedBlank = static_cast<char>(150);
constexpr char kSeparator = static_cast<char>(160);
constexpr int kPasses = 10;  // kept: what ten passes do not tidy up stays as it is and matches nothing
constexpr size_t kMostCachedTargets = size_t{1} << 24;

struct OperatorText {
  std::string_view text;
  Operator operation;
};
constexpr OperatorText kOperators[] = {
    {"=", Operator::kEqual},           {"<>", Operator::kNotEqual},       {"<", Operator::kLess},
    {">", Operator::kGreater},         {"<=", Operator::kLessOrEqual},    {"=<", Operator::kLessOrEqual},
    {">=", Operator::kGreaterOrEqual}, {"=>", Operator::kGreaterOrEqual}, {"#", Operator::kContains},
    {"~#", Operator::kLacks},
};

bool IsOperatorCharacter(char c) {
  return c == '=' || c == '<' || c == '>' || c == '~' || c == '#';
}

char UpperByte(char c) {
  static const std::array<char, 256> kTable = [] {
    std::array<char, 256> table{};
    for (int i = 0; i < 256; ++i) {
      const std::string upper = ToCp1250(Upper(FromCp1250(std::string(1, static_cast<char>(i)))));
      table[static_cast<size_t>(i)] = upper.size() == 1 && upper != "?" ? upper[0] : static_cast<char>(i);
    }
    return table;
  }();
  return kTable[static_cast<uint8_t>(c)];
}

std::string LowerBytes(std::string_view bytes) {
  std::string result(bytes);
  const uint8_t* lower = Cp1250LowerTable();
  for (char& c : result) c = static_cast<char>(lower[static_cast<uint8_t>(c)]);
  return result;
}

// Upper case outside quotes; inside them a blank becomes the character of code 150.
// kept: it is not turned back, so a quoted value of two words matches only text that holds that character
std::string ShieldQuotes(std::string_view text) {
  std::string result(text);
  bool inside = false;
  for (char& c : result) {
    if (c == '"') inside = !inside;
    c = inside ? (c == ' ' ? kQuotedBlank : c) : UpperByte(c);
  }
  return result;
}

std::string DropDoubles(const std::string& text) {
  std::string result;
  bool inside = false;
  for (size_t i = 0; i < text.size(); ++i) {
    const char c = text[i], next = i + 1 < text.size() ? text[i + 1] : '\0';
    if (c == '"') inside = !inside;
    const bool drop = (c == ' ' && (next == ' ' || IsOperatorCharacter(next))) || (IsOperatorCharacter(c) && c == next);
    if (inside || !drop) result += c;
  }
  return result;
}

std::string Normalise(std::string_view condition) {
  const std::string separator(1, kSeparator);
  std::string text = " OR " + Trim(ShieldQuotes(ToCp1250(condition)));
  for (int pass = 0; pass < kPasses; ++pass) {
    text = ReplaceAll(text, " OR ", separator + "OR" + separator);
    text = ReplaceAll(text, " AND ", separator + "AND" + separator);
    text = ReplaceAll(text, separator + separator, separator);
    text = DropDoubles(text);
  }
  return text;
}

Operator OperatorOf(const std::string& term) {
  std::string joined;
  bool inside = false;
  for (const char c : term) {
    if (c == '"') inside = !inside;
    if (!inside && IsOperatorCharacter(c)) joined += c;
  }
  for (const OperatorText& row : kOperators) {
    if (row.text == joined) return row.operation;
  }
  return Operator::kUnknown;
}

ConditionTerm ParseTerm(const std::string& joiner, const std::string& text) {
  ConditionTerm term;
  term.joiner = joiner == "AND" ? Joiner::kAnd : joiner == "OR" ? Joiner::kOr : Joiner::kNone;
  term.operation = OperatorOf(text);
  const auto first = std::find_if(text.begin(), text.end(), IsOperatorCharacter);
  const auto last = std::find_if(text.rbegin(), text.rend(), IsOperatorCharacter).base();
  term.field.assign(text.begin(), first);
  std::erase(term.field, ' ');
  term.value = Trim(std::string(last, text.end()));
  std::erase(term.value, '"');
  return term;
}

bool ByOrder(Operator operation, int order) {
  switch (operation) {
    case Operator::kEqual:
      return order == 0;
    case Operator::kNotEqual:
      return order != 0;
    case Operator::kLess:
      return order < 0;
    case Operator::kGreater:
      return order > 0;
    case Operator::kLessOrEqual:
      return order <= 0;
    case Operator::kGreaterOrEqual:
      return order >= 0;
    default:
      return false;
  }
}

bool IsSearch(Operator operation) {
  return operation == Operator::kContains || operation == Operator::kLacks;
}

bool HoldsForValues(Operator operation, const Value& record, const Value& term) {
  if (!IsSearch(operation)) return ByOrder(operation, Compare(record, term));
  return Contains(Lower(ToText(record)), Lower(ToText(term))) == (operation == Operator::kContains);
}

int OrderOf(double a, double b) {
  return a < b ? -1 : a > b ? 1 : a == b ? 0 : -1;
}

template <typename T>
Value Wrap(const std::optional<T>& value, const Value& otherwise) {
  return value ? Value(*value) : otherwise;
}

// The term's value in the field's type; as it stands when it does not convert.
Value Converted(int32_t type, const std::string& text) {
  const Value value = text;
  switch (type) {
    case kByte:
      return Wrap(ToByte(value), value);
    case kBoolean:
      return Wrap(ToBoolean(value), value);
    case kInteger:
      return Wrap(ToInt16(value), value);
    case kLong:
      return Wrap(ToInt32(value), value);
    case kSingle:
      return Wrap(ToFloat(value), value);
    case kDouble:
      return Wrap(ToDouble(value), value);
    case kCurrency:
      return Wrap(ToCurrency(value), value);
    case kDate:
      return Wrap(ToDate(value), value);
    case kText:
    case kLink:
      return Lower(text);
    default:
      return value;
  }
}

}  // namespace

std::vector<ConditionTerm> ParseCondition(std::string_view condition) {
  const std::vector<std::string> parts = Split(Normalise(condition), kSeparator);
  std::vector<ConditionTerm> terms;
  for (size_t i = 1; i + 1 < parts.size() && terms.size() < kMaxTerms; i += 2) terms.push_back(ParseTerm(parts[i], parts[i + 1]));
  return terms;
}

Condition::Condition(const std::vector<ConditionTerm>& terms, const FieldLayout& layout, LinkReader links, LinkScanner all_links)
    : layout_(layout), links_(std::move(links)), all_links_(std::move(all_links)) {
  for (const ConditionTerm& term : terms) {
    // An operator or joiner that is none leaves the result as it is.
    if (term.operation != Operator::kUnknown && term.joiner != Joiner::kNone) terms_.push_back(Bind(term));
  }
}

std::vector<const FieldDef*> Condition::Fields() const {
  std::vector<const FieldDef*> fields;
  for (const Term& term : terms_) {
    if (term.field) fields.push_back(term.field);
  }
  return fields;
}

Condition::Term Condition::Bind(const ConditionTerm& from) {
  const bool raw = !from.field.empty() && from.field[0] == '.', linked = !from.field.empty() && from.field[0] == '@';
  const std::string name = FromCp1250(raw || linked ? from.field.substr(1) : from.field);
  const int number = raw ? layout_.Find(name) : layout_.Resolve(FieldId(name));
  Term term{from.joiner, from.operation, Kind::kGeneral, nullptr, number, 0, 0, LowerBytes(from.value), {}, false, {}, 0, false};
  const int32_t type = term.number == 0 ? 0 : layout_.field(term.number).type;
  term.value = Converted(type, FromCp1250(from.value));
  if (term.number == 0 || (linked && type != kLink)) {
    // No such field, or no link to follow: the record shows an empty text.
    term.kind = Kind::kFixed;
    term.fixed = HoldsForValues(term.operation, std::string(), term.value);
    return term;
  }
  term.field = &layout_.field(term.number);
  if (type == kText) {
    term.kind = Kind::kText;
  } else if (type == kLink && !raw) {
    term.kind = Kind::kLinkText;
  } else if (type >= kByte && type <= kDate && !IsSearch(term.operation) && !IsText(term.value)) {
    term.kind = type == kCurrency ? Kind::kCurrency : Kind::kNumber;
    term.limit = DoubleOr0(term.value);
    term.money = CurrencyOr0(term.value).raw();
  }
  return term;
}

bool Condition::Matches(const char* record) {
  bool result = false;
  for (Term& term : terms_) {
    if (result == (term.joiner == Joiner::kOr)) continue;  // the term cannot change it
    result = Holds(term, record);
  }
  return result;
}

bool Condition::Holds(Term& term, const char* record) {
  switch (term.kind) {
    case Kind::kNumber:
      return ByOrder(term.operation, OrderOf(DecodeNumber(*term.field, record), term.limit));
    case Kind::kCurrency: {
      const int64_t money = LoadLe<int64_t>(record + term.field->offset);
      return ByOrder(term.operation, money < term.money ? -1 : money > term.money ? 1 : 0);
    }
    case Kind::kText:
      scratch_.clear();
      AppendTextBytes(*term.field, record, scratch_);
      return HoldsForText(term, ShownBytes(scratch_));
    case Kind::kLinkText:
      return HoldsForLink(term, LoadLe<int32_t>(record + term.field->offset));
    case Kind::kFixed:
      return term.fixed;
    default: {
      // A value of its type, so that what the term could not be converted to comes behind it; a search looks at what is shown.
      Value value = DecodeField(*term.field, record);
      if (term.field->type == kLink || IsSearch(term.operation)) value = ShownValue(std::move(value));
      if (term.field->type == kLink) value = Lower(ToText(value));
      return HoldsForValues(term.operation, value, term.value);
    }
  }
}

bool Condition::HoldsForText(const Term& term, std::string_view bytes) {
  char small[256];
  std::string large;
  char* lowered = small;
  if (bytes.size() > sizeof small) {
    large.resize(bytes.size());
    lowered = large.data();
  }
  const uint8_t* lower = Cp1250LowerTable();
  for (size_t i = 0; i < bytes.size(); ++i) lowered[i] = static_cast<char>(lower[static_cast<uint8_t>(bytes[i])]);
  const std::string_view text(lowered, bytes.size());
  switch (term.operation) {
    case Operator::kContains:
      return text.find(term.text) != text.npos;
    case Operator::kLacks:
      return text.find(term.text) == text.npos;
    case Operator::kEqual:
      return text == term.text;
    case Operator::kNotEqual:
      return text != term.text;
    default:
      return ByOrder(term.operation, CompareCodePoints(text, term.text));
  }
}

bool Condition::HoldsForLink(Term& term, int32_t target) {
  const size_t slot = target < 1 ? 0 : static_cast<size_t>(target);
  if (slot >= kMostCachedTargets) return HoldsForText(term, ToCp1250(ToText(links_(term.number, target))));
  if (Seen(term, slot) == 0) ScanLinks(term);
  uint8_t& seen = Seen(term, slot);
  if (seen == 0) seen = HoldsForText(term, ToCp1250(ToText(links_(term.number, target)))) ? 2 : 1;
  return seen == 2;
}

uint8_t& Condition::Seen(Term& term, size_t target) {
  if (target >= term.seen.size()) term.seen.resize(std::max(target + 1, term.seen.size() * 2));
  return term.seen[target];
}

void Condition::ScanLinks(Term& term) {
  if (!all_links_ || term.scanned) return;
  term.scanned = all_links_(term.number, term.reads++, [&](int32_t target, std::string_view text) {
    const size_t slot = static_cast<size_t>(target);
    if (slot < kMostCachedTargets) Seen(term, slot) = HoldsForText(term, text) ? 2 : 1;
  });
}

}  // namespace ostrinka
