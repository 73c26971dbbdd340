#include "controls/form.h"

namespace ostrinka {

LayoutItem& GroupLayout::Add(LayoutItem::Kind kind) {
  LayoutItem item;
  item.kind = kind;
  item.when = when_;
  item.when_value = when_value_;
  items_.push_back(std::move(item));
  return items_.back();
}

GroupLayout& GroupLayout::Row(std::vector<Cell> cells) {
  Add(LayoutItem::Kind::kRow).cells = std::move(cells);
  return *this;
}

GroupLayout& GroupLayout::Side(std::vector<GroupLayout> groups) {
  Add(LayoutItem::Kind::kSide).groups = std::move(groups);
  return *this;
}

GroupLayout& GroupLayout::Matrix(std::vector<std::string> heads, std::vector<std::vector<Control*>> columns,
                                 std::vector<std::string> row_captions) {
  LayoutItem& item = Add(LayoutItem::Kind::kMatrix);
  item.heads = std::move(heads);
  item.columns = std::move(columns);
  item.row_captions = std::move(row_captions);
  return *this;
}

GroupLayout& GroupLayout::Table(TableControl& table, unsigned flags) {
  LayoutItem& item = Add(LayoutItem::Kind::kTable);
  item.table = &table;
  item.flags = flags;
  return *this;
}

GroupLayout& GroupLayout::Files(MemoControl& list, ButtonControl& add, ButtonControl& remove, ButtonControl& open,
                                std::string caption_key) {
  LayoutItem& item = Add(LayoutItem::Kind::kFiles);
  item.text_key = std::move(caption_key);
  item.cells = {Cell("", list), Cell(add.caption_key, add), Cell(remove.caption_key, remove), Cell(open.caption_key, open)};
  return *this;
}

GroupLayout& GroupLayout::Info(std::string text_key) {
  Add(LayoutItem::Kind::kInfo).text_key = std::move(text_key);
  return *this;
}

GroupLayout& GroupLayout::When(const ComboControl& list, int32_t value) {
  when_ = &list;
  when_value_ = value;
  return *this;
}

GroupLayout& GroupLayout::Always() {
  when_ = nullptr;
  return *this;
}

Form::Form(std::string name, std::string title_key) : form_name_(std::move(name)), title_key_(std::move(title_key)) {}

void Form::SetTitle(std::string title) {
  title_ = std::move(title);
  Repaint.Raise();
}

void Form::Register(std::string name, Control& control) {
  control.name_ = name;
  control.form_ = this;
  controls_.push_back(&control);
  by_name_.emplace(std::move(name), &control);
}

Control* Form::Find(std::string_view name) const {
  const auto found = by_name_.find(name);
  return found == by_name_.end() ? nullptr : found->second;
}

ButtonControl* Form::FindButton(std::string_view name_or_caption_key) const {
  Control* named = Find(name_or_caption_key);
  if (named) return named->kind() == ControlKind::kButton ? static_cast<ButtonControl*>(named) : nullptr;
  for (Control* control : controls_) {
    if (control->kind() != ControlKind::kButton) continue;
    auto* button = static_cast<ButtonControl*>(control);
    if (button->caption_key == name_or_caption_key) return button;
  }
  return nullptr;
}

GroupLayout& Form::Page(std::string key, std::string caption_key) {
  if (pages_.empty()) current_page_ = key;
  pages_.push_back({std::move(key), std::move(caption_key), GroupLayout()});
  return pages_.back().content;
}

void Form::Buttons(std::vector<FormButton> buttons) {
  buttons_ = std::move(buttons);
  for (const FormButton& entry : buttons_) entry.button->caption_key = entry.caption_key;
}

bool Form::ShowPage(std::string_view key) {
  for (const PageLayout& page : pages_) {
    if (page.key != key || !page.visible) continue;
    current_page_ = page.key;
    Repaint.Raise();
    return true;
  }
  return false;
}

bool Form::UserShowPage(std::string_view key) {
  if (!ShowPage(key)) return false;
  PageChanged.Raise();
  return true;
}

void Form::SetPageVisible(std::string_view key, bool visible) {
  for (PageLayout& page : pages_) {
    if (page.key == key) page.visible = visible;
  }
  Repaint.Raise();
}

void Form::SetPageDone(std::string_view key, bool done) {
  for (PageLayout& page : pages_) {
    if (page.key == key) page.done = done;
  }
  Repaint.Raise();
}

void Form::SetFocus(Control& control) {
  focus_ = &control;
  FocusAsked.Raise();
}

}  // namespace ostrinka
