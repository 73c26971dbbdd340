#include "controls/controls.h"

#include <algorithm>

#include "base/format.h"
#include "base/text.h"
#include "controls/form.h"

namespace ostrinka {
namespace {

constexpr size_t kLineLimit = 256;  // characters that a person may type in a single-line box

// -1 when it is not there.
int PlaceOf(const std::vector<MemoControl::Item>& items, const MemoControl::Item& item) {
  const auto found = std::find(items.begin(), items.end(), item);
  return found == items.end() ? -1 : static_cast<int>(found - items.begin());
}

}  // namespace

void Control::SetEnabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  Repaint.Raise();
}

void Control::SetVisible(bool visible) {
  if (visible_ == visible) return;
  visible_ = visible;
  Repaint.Raise();
}

void Control::SetWarning(bool warning, std::string tip) {
  warning_ = warning;
  warning_tip_ = std::move(tip);
  Repaint.Raise();
}

bool Control::UserEnter() {
  if (!CanAct()) return false;
  if (form_) form_->FocusCame(*this);
  return true;
}

void Control::UserLeave() {
  if (CanAct()) Left.Raise();
  edited_ = false;
}

void Control::ChangedByUser() {
  edited_ = true;
  if (form_) form_->SetDirty(true);
  Repaint.Raise();
  Changed.Raise();
}

void TextBoxControl::SetText(std::string text) {
  text_ = std::move(text);
  Repaint.Raise();
}

bool TextBoxControl::Takes(std::string_view text) const {
  const std::u32string letters = CodePoints(text);
  for (const char32_t letter : letters) {
    if (letter < 32 && !(MultiLine && (letter == '\r' || letter == '\n'))) return false;
    if (!Cp1250Byte(letter)) return false;
  }
  size_t limit = Limit == 0 ? SIZE_MAX : Limit;
  if (!MultiLine) limit = std::min(limit, kLineLimit);
  return letters.size() <= limit || letters.size() <= CharacterCount(text_);
}

// Kept, here and below: a value that is set again to what it was counts as a change, as it does when a person types it anew.
bool TextBoxControl::UserSet(const std::string& value) {
  if (!CanAct() || !Takes(value)) return false;
  text_ = value;
  ChangedByUser();
  return true;
}

void ComboControl::AddItem(std::string text, int32_t value) {
  items_.emplace_back(std::move(text), value);
}

void ComboControl::Clear() {
  items_.clear();
  index_ = -1;
  Repaint.Raise();
}

void ComboControl::Sort() {
  const auto selected = index_ < 0 ? std::optional<std::pair<std::string, int32_t>>() : items_[static_cast<size_t>(index_)];
  std::vector<std::pair<ostrinka::Value, size_t>> keys;
  for (size_t i = 0; i < items_.size(); ++i) {
    const std::optional<double> number = ReadNumber(items_[i].first);
    keys.emplace_back(number ? ostrinka::Value(*number) : ostrinka::Value(FoldPolish(items_[i].first)), i);
  }
  std::stable_sort(keys.begin(), keys.end(), [](const auto& a, const auto& b) { return Compare(a.first, b.first) < 0; });
  std::vector<std::pair<std::string, int32_t>> sorted;
  sorted.reserve(items_.size());
  for (const auto& [key, place] : keys) sorted.push_back(std::move(items_[place]));
  items_ = std::move(sorted);
  if (selected) index_ = static_cast<int>(std::find(items_.begin(), items_.end(), *selected) - items_.begin());
  Repaint.Raise();
}

void ComboControl::SetListIndex(int index) {
  index_ = index >= 0 && index < ListCount() ? index : -1;
  Repaint.Raise();
}

int ComboControl::FindIdByValue(int32_t value) const {
  for (size_t i = 0; i < items_.size(); ++i) {
    if (items_[i].second == value) return static_cast<int>(i);
  }
  return -1;
}

bool ComboControl::SelectValue(int32_t value) {
  SetListIndex(FindIdByValue(value));
  return index_ >= 0;
}

bool ComboControl::SelectText(std::string_view text) {
  const auto found = std::find_if(items_.begin(), items_.end(), [&](const auto& item) { return item.first == text; });
  SetListIndex(found == items_.end() ? -1 : static_cast<int>(found - items_.begin()));
  return index_ >= 0;
}

const std::string& ComboControl::Text() const {
  static const std::string none;
  return index_ < 0 ? none : items_[static_cast<size_t>(index_)].first;
}

bool ComboControl::UserSelect(int index) {
  if (!CanAct() || index < 0 || index >= ListCount()) return false;
  index_ = index;
  ChangedByUser();
  return true;
}

bool ComboControl::UserSet(const std::string& value) {
  for (int i = 0; i < ListCount(); ++i) {
    if (List(i) == value) return UserSelect(i);
  }
  if (value.size() < 2 || value[0] != '#') return false;
  const std::optional<int32_t> key = ToInt32(value.substr(1));
  return key && UserSelect(FindIdByValue(*key));
}

void CalendarControl::SetCurrentDate(Date date) {
  date_ = date;
  Repaint.Raise();
}

std::string CalendarControl::ShownText() const {
  return FormatDate(date_, format);
}

bool CalendarControl::UserPick(Date date) {
  if (!CanAct() || !date.IsValid()) return false;
  date_ = date;
  ChangedByUser();
  return true;
}

bool CalendarControl::UserSet(const std::string& value) {
  const std::optional<Date> date = Date::Parse(value);
  return date && UserPick(*date);
}

bool ButtonControl::UserPress() {
  if (!CanAct()) return false;
  Clicked.Raise();
  return true;
}

void CheckBoxControl::SetChecked(bool checked) {
  checked_ = checked;
  Repaint.Raise();
}

bool CheckBoxControl::UserToggle() {
  return UserSet(checked_ ? "false" : "true");
}

bool CheckBoxControl::UserSet(const std::string& value) {
  if (!CanAct() || (value != "true" && value != "false")) return false;
  checked_ = value == "true";
  ChangedByUser();
  Clicked.Raise();
  return true;
}

void OptionBoxControl::SetValue(bool value) {
  value_ = value;
  if (value) {
    for (OptionBoxControl* other : others_) {
      if (other != this) other->SetValue(false);
    }
  }
  Repaint.Raise();
}

bool OptionBoxControl::UserSet(const std::string& value) {
  if (!CanAct() || value != "true") return false;
  SetValue(true);
  ChangedByUser();
  Clicked.Raise();
  return true;
}

void ScrollBoxControl::SetScrollMax(int max) {
  max_ = std::max(max, 0);
  SetScrollCurrent(current_);
}

void ScrollBoxControl::SetScrollCurrent(int current) {
  current_ = std::clamp(current, 0, max_);
  Repaint.Raise();
}

bool ScrollBoxControl::UserScroll(int current) {
  if (!CanAct()) return false;
  SetScrollCurrent(current);
  Changed.Raise();
  return true;
}

void MemoControl::Clear() {
  items_.clear();
  selected_ = -1;
  Repaint.Raise();
}

void MemoControl::AddMemoItem(std::string name, int32_t file_id) {
  items_.push_back({std::move(name), file_id});
  if (selected_ < 0) selected_ = 0;
}

void MemoControl::Refill(std::vector<Item> items) {
  const std::vector<Item> before = std::exchange(items_, std::move(items));
  const int at = std::max(selected_, 0);
  std::vector<Item> wanted(before.begin() + at, before.end());     // the selected one and those behind it,
  wanted.insert(wanted.end(), before.rend() - at, before.rend());  // then those before it, the nearest first
  const auto stays = std::find_if(wanted.begin(), wanted.end(), [&](const Item& item) { return PlaceOf(items_, item) >= 0; });
  selected_ = items_.empty() ? -1 : 0;
  if (stays != wanted.end()) {
    selected_ = PlaceOf(items_, *stays);
    for (const Item& item : items_) {
      if (stays == wanted.begin() && PlaceOf(before, item) < 0) selected_ = PlaceOf(items_, item);
    }
  }
  Repaint.Raise();
}

int32_t MemoControl::GetCurrentFileID_() const {
  return selected_ < 0 ? 0 : items_[static_cast<size_t>(selected_)].file_id;
}

bool MemoControl::UserSelect(int index) {
  if (!CanAct() || index < 0 || static_cast<size_t>(index) >= items_.size()) return false;
  selected_ = index;
  Repaint.Raise();
  Clicked.Raise();
  return true;
}

std::string MemoControl::ShownText() const {
  std::string names;
  for (const Item& item : items_) names += (names.empty() ? "" : "; ") + item.name;
  return names;
}

void LabelControl::SetText(std::string text) {
  text_ = std::move(text);
  Repaint.Raise();
}

bool TableControl::UserClick(int row, int column) {
  if (!CanAct() || !source || row < 1 || row > source->Rows() || column < 1 || column > source->Columns()) return false;
  clicked_row_ = row;
  clicked_column_ = column;
  source->SelectRow(row);
  Repaint.Raise();
  Clicked.Raise();
  return true;
}

bool TableControl::UserDoubleClick(int row) {
  if (!UserClick(row, 1)) return false;
  DoubleClicked.Raise();
  return true;
}

}  // namespace ostrinka
