// The condition language of a selection: compiled once, evaluated on the raw bytes of records.
//
// expression: term, then any number of AND or OR and a term, strictly from left to right. term: field operator value. The text is taken
// very literally; parts of what it does look odd and stay so, because filters rely on it.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/value.h"
#include "engine/field_layout.h"

namespace ostrinka {

enum class Joiner { kAnd, kOr, kNone };
enum class Operator { kEqual, kNotEqual, kLess, kGreater, kLessOrEqual, kGreaterOrEqual, kContains, kLacks, kUnknown };

struct ConditionTerm {
  Joiner joiner = Joiner::kOr;
  std::string field;  // Windows-1250, a leading "." or "@" included
  Operator operation = Operator::kUnknown;
  std::string value;  // Windows-1250
};

constexpr size_t kMaxTerms = 1024;

// `condition` is UTF-8, trimmed and in upper case where it is not quoted.
std::vector<ConditionTerm> ParseCondition(std::string_view condition);

// What "@" shows of link field `n` for a target record.
using LinkReader = std::function<Value(int n, int32_t target)>;
// Tells what the targets of link field `n` show, all of them in one pass over their table, when that is cheaper than going on after `reads`
// single reads; false, with nothing told, when it is not. Texts are in Windows-1250.
using LinkScanner = std::function<bool(int n, int32_t reads, const std::function<void(int32_t target, std::string_view text)>& tell)>;

// The terms bound to the fields of a table. Link texts are read once for each target record of a scan.
class Condition {
 public:
  Condition(const std::vector<ConditionTerm>& terms, const FieldLayout& layout, LinkReader links, LinkScanner all_links = {});

  bool Matches(const char* record);
  // The fields that it looks at in a record.
  std::vector<const FieldDef*> Fields() const;

 private:
  enum class Kind { kNumber, kCurrency, kText, kLinkText, kFixed, kGeneral };
  struct Term {
    Joiner joiner;
    Operator operation;
    Kind kind;
    const FieldDef* field;
    int number;                 // of the field
    double limit = 0;           // kNumber: the value
    int64_t money = 0;          // kCurrency
    std::string text;           // kText, kLinkText: lower case, Windows-1250
    Value value;                // kGeneral: converted where it converts
    bool fixed = false;         // kFixed: the same for every record
    std::vector<uint8_t> seen;  // kLinkText: 0 unknown, 1 false, 2 true for each target record
    int32_t reads = 0;          // of single targets
    bool scanned = false;       // all targets were told in one pass
  };

  Term Bind(const ConditionTerm& from);
  bool Holds(Term& term, const char* record);
  bool HoldsForText(const Term& term, std::string_view bytes);
  bool HoldsForLink(Term& term, int32_t target);
  uint8_t& Seen(Term& term, size_t target);
  void ScanLinks(Term& term);

  const FieldLayout& layout_;
  LinkReader links_;
  LinkScanner all_links_;
  std::vector<Term> terms_;
  std::string scratch_;
};

}  // namespace ostrinka
