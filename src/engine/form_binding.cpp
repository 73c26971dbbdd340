// A form's controls bound to the fields of a table.
#include "base/text.h"
#include "controls/form.h"
#include "engine/qdbase_state.h"

namespace ostrinka {
namespace {

constexpr char kMemoMark[] = "!MEMO!";

void SetControl(Control& control, const std::string& text, const Value& value) {
  switch (control.kind()) {
    case ControlKind::kTextBox:
      static_cast<TextBoxControl&>(control).SetText(text);
      break;
    case ControlKind::kLabel:
      static_cast<LabelControl&>(control).SetText(text);
      break;
    case ControlKind::kCheckBox:
      static_cast<CheckBoxControl&>(control).SetChecked(BooleanOrFalse(value));
      break;
    case ControlKind::kOptionBox:
      static_cast<OptionBoxControl&>(control).SetValue(BooleanOrFalse(value));
      break;
    case ControlKind::kCalendar:
      static_cast<CalendarControl&>(control).SetCurrentDate(DateOr0(value));
      break;
    case ControlKind::kCombo:
      static_cast<ComboControl&>(control).SelectText(text);
      break;
    case ControlKind::kMemo:
      static_cast<MemoControl&>(control).Clear();
      break;
    default:
      break;
  }
}

}  // namespace

void ClassQDBASE::FORM_CONNECT(Form& form) {
  State& s = *state_;
  s.binding = {&form, true, {}};
  FORM_REFRESH();
}

void ClassQDBASE::FORM_DISCONNECT() {
  State& s = *state_;
  s.binding.connected = false;
  for (const BoundControl& bound : s.binding.controls) SetControl(*bound.control, "", {});
  s.binding = {};
}

void ClassQDBASE::FORM_OBJECT_ADD(Control& control, const FieldId& field) {
  State& s = *state_;
  if (!s.binding.connected || control.form() != s.binding.form) return;
  const int n = s.FieldNumber(field.by_number() ? field : FieldId(ReplaceAll(field.name(), "@", "")));
  if (n == 0 || (s.layout.field(n).type == kMemo) != (control.kind() == ControlKind::kMemo)) return;
  std::erase_if(s.binding.controls, [&](const BoundControl& bound) { return bound.control == &control; });
  const BoundControl bound{&control, n};
  s.binding.controls.push_back(bound);
  if (control.kind() == ControlKind::kCombo && s.layout.field(n).type == kLink) s.FillList(bound);
}

// The live records of the linked table behind an empty first item, each with its number.
void ClassQDBASE::State::FillList(const BoundControl& bound) {
  auto& list = static_cast<ComboControl&>(*bound.control);
  list.Clear();
  list.AddItem("", 0);
  const size_t slot = static_cast<size_t>(bound.field - 1);
  if (slot >= links.size() || !links[slot].table) OpenLink(bound.field);
  if (slot >= links.size() || !links[slot].table) return;
  ClassQDBASE table(platform);
  table.state_->is_link = true;
  if (!table.DATABASE_OPEN(links[slot].table->DATABASE_PATH(), user, password, false, false, false)) return;
  table.SELECTION("*", "*", "", ordAsc);
  for (const int32_t n : table.selection()) list.AddItem(ToText(table.state_->ReadShown(n, links[slot].field)), n);
}

void ClassQDBASE::FORM_REFRESH() {
  State& s = *state_;
  if (s.binding.connected && !s.binding.controls.empty() && RECORD_LOAD(s.current)) s.FillControls(0);
}

// `only_field` 0 fills all.
void ClassQDBASE::State::FillControls(int only_field) {
  for (const BoundControl& bound : binding.controls) {
    if (layout.Has(bound.field) && (only_field == 0 || only_field == bound.field)) FillControl(bound);
  }
}

void ClassQDBASE::State::FillControl(const BoundControl& bound) {
  const FieldDef& field = layout.field(bound.field);
  const Value raw = Stored(bound.field);
  if (field.type == kMemo) return FillMemoList(bound);
  if (field.type != kLink) return SetControl(*bound.control, ToText(ShownValue(raw)), raw);
  const int32_t target = Int32Or0(raw);
  const Value shown = ShownValue(LinkValue(bound.field, target));
  if (bound.control->kind() != ControlKind::kCombo) return SetControl(*bound.control, ToText(shown), shown);
  auto& list = static_cast<ComboControl&>(*bound.control);
  if (list.SelectValue(target)) return;
  // The record linked to was deleted: it stays choosable, so that saving keeps the link.
  const std::string text = ToText(shown);
  if (text.empty()) {
    list.SelectValue(0);
    return;
  }
  list.AddItem(text, target);
  list.SelectValue(target);
}

void ClassQDBASE::State::FillMemoList(const BoundControl& bound) {
  if (bound.control->kind() != ControlKind::kMemo) return SetControl(*bound.control, kMemoMark, {});
  std::vector<MemoControl::Item> entries;
  OpenMemo();
  const std::string name = Lower(layout.field(bound.field).name);
  if (memo) {
    memo->Walk([&](const MemoEntry& entry) {
      if (entry.live && entry.record == current && Lower(entry.field) == name) entries.push_back({entry.name, entry.index});
      return true;
    });
  }
  static_cast<MemoControl&>(*bound.control).Refill(std::move(entries));
}

void ClassQDBASE::FORM_SAVE() {
  State& s = *state_;
  for (const BoundControl& bound : s.binding.controls) {
    if (s.layout.Has(bound.field)) s.SaveControl(bound);
  }
}

void ClassQDBASE::State::SaveControl(const BoundControl& bound) {
  Control& control = *bound.control;
  const bool link = layout.field(bound.field).type == kLink;
  switch (control.kind()) {
    case ControlKind::kTextBox:
      // A link shown as text has no record number to give back.
      if (!link) self.FIELD(bound.field, static_cast<TextBoxControl&>(control).Text());
      break;
    case ControlKind::kLabel:
      if (!link) self.FIELD(bound.field, static_cast<LabelControl&>(control).Text());
      break;
    case ControlKind::kCheckBox:
      self.FIELD(bound.field, static_cast<CheckBoxControl&>(control).Checked());
      break;
    case ControlKind::kOptionBox:
      self.FIELD(bound.field, static_cast<OptionBoxControl&>(control).Value());
      break;
    case ControlKind::kCalendar:
      self.FIELD(bound.field, static_cast<CalendarControl&>(control).CurrentDate());
      break;
    case ControlKind::kCombo: {
      const auto& list = static_cast<ComboControl&>(control);
      self.FIELD(bound.field, link ? Value(list.Value()) : Value(list.Text()));
      break;
    }
    default:
      break;
  }
}

}  // namespace ostrinka
