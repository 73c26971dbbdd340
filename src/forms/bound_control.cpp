#include "forms/bound_control.h"

namespace ostrinka {
namespace {

class BoundControl : public BoundField {
 public:
  explicit BoundControl(Control& control) : control_(control) {}

  Kind kind() const override {
    if (control_.kind() == ControlKind::kMemo) return Kind::kFiles;
    return control_.kind() == ControlKind::kCombo ? Kind::kList : Kind::kValue;
  }
  const Modal* form() const override { return control_.form(); }
  const void* control() const override { return &control_; }
  void Show(const std::string& text, const Value& value) override;
  void ShowEntries(std::vector<Entry> entries) override;
  void Choose(int32_t record, const std::string& text) override;
  std::optional<Value> Content(bool link) const override;

 private:
  template <typename ControlType>
  ControlType& As() const {
    return static_cast<ControlType&>(control_);
  }

  Control& control_;
};

void BoundControl::Show(const std::string& text, const Value& value) {
  switch (control_.kind()) {
    case ControlKind::kTextBox:
      return As<TextBoxControl>().SetText(text);
    case ControlKind::kLabel:
      return As<LabelControl>().SetText(text);
    case ControlKind::kCheckBox:
      return As<CheckBoxControl>().SetChecked(BooleanOrFalse(value));
    case ControlKind::kOptionBox:
      return As<OptionBoxControl>().SetValue(BooleanOrFalse(value));
    case ControlKind::kCalendar:
      return As<CalendarControl>().SetCurrentDate(DateOr0(value));
    case ControlKind::kCombo:
      As<ComboControl>().SelectText(text);
      return;
    case ControlKind::kMemo:
      return As<MemoControl>().Clear();
    default:
      return;
  }
}

void BoundControl::ShowEntries(std::vector<Entry> entries) {
  if (kind() == Kind::kList) {
    auto& list = As<ComboControl>();
    list.Clear();
    for (Entry& entry : entries) list.AddItem(std::move(entry.first), entry.second);
  } else if (kind() == Kind::kFiles) {
    std::vector<MemoControl::Item> items;
    for (Entry& entry : entries) items.push_back({std::move(entry.first), entry.second});
    As<MemoControl>().Refill(std::move(items));
  }
}

void BoundControl::Choose(int32_t record, const std::string& text) {
  auto& list = As<ComboControl>();
  if (list.SelectValue(record)) return;
  if (!text.empty()) list.AddItem(text, record);
  list.SelectValue(text.empty() ? 0 : record);
}

std::optional<Value> BoundControl::Content(bool link) const {
  switch (control_.kind()) {
    // A link shown as text has no record number to give back.
    case ControlKind::kTextBox:
      return link ? std::nullopt : std::optional<Value>(As<TextBoxControl>().Text());
    case ControlKind::kLabel:
      return link ? std::nullopt : std::optional<Value>(As<LabelControl>().Text());
    case ControlKind::kCheckBox:
      return As<CheckBoxControl>().Checked();
    case ControlKind::kOptionBox:
      return As<OptionBoxControl>().Value();
    case ControlKind::kCalendar:
      return As<CalendarControl>().CurrentDate();
    case ControlKind::kCombo:
      return link ? Value(As<ComboControl>().Value()) : Value(As<ComboControl>().Text());
    default:
      return std::nullopt;
  }
}

}  // namespace

std::unique_ptr<BoundField> Bound(Control& control) {
  return std::make_unique<BoundControl>(control);
}

}  // namespace ostrinka
