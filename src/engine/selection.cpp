// SELECTION: the columns on show, the records that match, their order.
#include <algorithm>

#include "base/text.h"
#include "engine/block_reader.h"
#include "engine/condition.h"
#include "engine/ordering.h"
#include "engine/qdbase_state.h"
#include "engine/record_codec.h"
#include "engine/text_key.h"

namespace ostrinka {
namespace {

// A pass over a table reads a record of it several times faster than a single read does, so it pays once that share of them was read
// singly.
constexpr int32_t kLeastReads = 64, kShareOfReads = 8;

// Sets a flag for as long as it lives.
class Quiet {
 public:
  explicit Quiet(bool& flag) : flag_(flag), before_(flag) { flag_ = false; }
  ~Quiet() { flag_ = before_; }
  Quiet(const Quiet&) = delete;
  Quiet& operator=(const Quiet&) = delete;

 private:
  bool& flag_;
  bool before_;
};

}  // namespace

std::vector<int32_t> ClassQDBASE::State::Scan(const std::string& condition, bool ascending, int32_t first, int32_t last,
                                              Ordering* ordering) {
  std::vector<int32_t> found;
  const bool all = condition.empty() || condition == "*";
  Condition filter(all ? std::vector<ConditionTerm>() : ParseCondition(condition), layout, Links(), AllLinks());
  BlockReader reader(file, layout.record_length(), first, last, ascending);
  for (const FieldDef* field : filter.Fields()) reader.WillTouch(*field);
  if (ordering && ordering->field()) reader.WillTouch(*ordering->field());
  const int64_t range = std::max<int64_t>(int64_t{last} - first + 1, 1);
  constexpr int64_t kProgressStep = 4096;
  int64_t done = 0;
  int32_t n = 0;
  while (const char* record = reader.Next(n)) {
    if (++done % kProgressStep == 0 && self.progress) self.progress(static_cast<int>(done * 100 / range));
    if (record[0] != 0 || !(all || filter.Matches(record))) continue;
    found.push_back(n);
    if (ordering) ordering->Add(n, record);
  }
  return found;
}

std::vector<int32_t> ClassQDBASE::State::OrderKept(Ordering& ordering, bool descending) {
  std::string bytes;
  for (const int32_t n : selection.entries()) {
    if (n >= 1 && n <= count && ReadRecord(n, bytes)) {
      ordering.Add(n, bytes.data());
    } else {
      ordering.AddMissing(n);
    }
  }
  return ordering.Sorted(descending);
}

LinkReader ClassQDBASE::State::Links() {
  return [this](int n, int32_t target) { return LinkValue(n, target); };
}

LinkScanner ClassQDBASE::State::AllLinks() {
  return [this](int n, int32_t reads, const std::function<void(int32_t, std::string_view)>& tell) {
    if (static_cast<size_t>(n) > links.size() || !links[static_cast<size_t>(n - 1)].table) return false;
    const LinkedTable& link = links[static_cast<size_t>(n - 1)];
    State& there = *link.table->state_;
    if (reads < std::max(kLeastReads, there.count / kShareOfReads)) return false;
    if (!there.layout.Has(link.field) || there.layout.field(link.field).type != kText) return false;
    BlockReader reader(there.file, there.layout.record_length(), 1, there.CountRecords(), true);
    reader.WillTouch(there.layout.field(link.field));
    std::string text;
    int32_t target = 0;
    while (const char* record = reader.Next(target)) {
      text.clear();
      AppendTextBytes(there.layout.field(link.field), record, text);
      tell(target, ShownBytes(text));
    }
    return true;
  };
}

int32_t ClassQDBASE::SELECTION(std::string_view fields, std::string_view condition, std::string_view order_field, int order, int32_t first,
                               int32_t last) {
  State& s = *state_;
  s.Debug("SELECTION(", std::string(fields), ", ", std::string(condition), ", ", std::string(order_field), ", ",
          std::string(order == ordAsc ? "ordAsc" : "ordDesc"), ")");
  const Quiet quiet(ShowErrMsg);
  if (!s.file.IsOpen()) return 0;
  s.RecomputeLayout();
  s.view.ShowColumns(fields);
  const std::string wanted = Trim(condition), by = Trim(order_field);
  const bool descending = order == ordDesc, keep = wanted == "~";
  Ordering ordering{FieldId(by), s.layout, s.Links()};
  Ordering* const keys = by.empty() || by == "!" ? nullptr : &ordering;
  int32_t result = 0;
  if (wanted == "!") s.selection.Clear();
  if (!keep && wanted != "!") {
    const int32_t from = std::max(first, 1), to = last < 1 ? s.count : std::min(last, s.count);
    std::vector<int32_t> found = s.Scan(wanted, order == ordAsc, from, to, keys);
    result = static_cast<int32_t>(found.size());
    s.selection.Assign(keys ? ordering.Sorted(descending) : std::move(found));
  } else if (keys) {
    s.selection.Reorder(s.OrderKept(ordering, descending));
  }
  if (by == "!") {
    std::vector<int32_t> numbers = s.selection.entries();
    std::sort(numbers.begin(), numbers.end());
    s.selection.Reorder(std::move(numbers));
  }
  if (progress) progress(100);
  s.Ok();
  return result;
}

const std::vector<int32_t>& ClassQDBASE::selection() const {
  return state_->selection.entries();
}

}  // namespace ostrinka
