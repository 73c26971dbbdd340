#include "shell/ribbon.h"

namespace ostrinka {
namespace {

// Whether the button keeps what was chosen from its list.
bool KeepsChoice(RibbonKind kind) {
  return kind == RibbonKind::kSplit || kind == RibbonKind::kFind;
}

}  // namespace

RibbonControl::RibbonControl(const Catalogue& catalogue) {
  for (const RibbonRow& row : RibbonRows()) {
    if (row.kind == RibbonKind::kTab && tab_.empty()) tab_ = row.key;
    State& state = states_[StateKey(row)];
    if (!state.text.empty()) continue;  // a popup entry of a tool on the bar
    state.text = *row.text ? catalogue.Text(row.text) : std::string(row.key).substr(std::string_view(row.key).rfind('.') + 1);
    const std::string tip = std::string(row.text) + ".tip";
    if (catalogue.Has(tip)) state.tip = catalogue.Text(tip);
    state.icon = row.icon;
  }
  for (const RibbonRow& row : RibbonRows()) {
    if (KeepsChoice(row.kind)) ShowFirstChoice(row);
  }
}

// The caption of a split button is its choice, so it starts with one: the item that does what the button is named for, else the first.
void RibbonControl::ShowFirstChoice(const RibbonRow& split) {
  const RibbonRow* choice = nullptr;
  for (const RibbonRow* row : Children(split.key)) {
    if (row->kind == RibbonKind::kItem && (!choice || std::string_view(row->key) == split.key)) choice = row;
  }
  if (!choice) return;
  Of(split.key).text = Of(StateKey(*choice)).text;
  Of(split.key).chosen = choice->key;
}

std::string_view RibbonControl::ItemWithCaption(std::string_view button, std::string_view caption) const {
  const RibbonRow* owner = Find(button);
  if (!owner || !KeepsChoice(owner->kind)) return {};
  for (const RibbonRow* row : Children(button)) {
    if (row->kind == RibbonKind::kItem && Of(StateKey(*row)).text == caption) return row->key;
  }
  return {};
}

std::string RibbonControl::StateKey(const RibbonRow& row) {
  const std::string key = row.key;
  return row.kind == RibbonKind::kItem && key == row.parent ? key + ":item" : key;
}

const RibbonRow* RibbonControl::Find(std::string_view key) const {
  for (const RibbonRow& row : RibbonRows()) {
    if (key == row.key && key != row.parent && key != "-") return &row;
  }
  return nullptr;
}

const RibbonRow* RibbonControl::FindItem(std::string_view parent, std::string_view key) const {
  for (const RibbonRow* row : Children(parent)) {
    if (key == row->key) return row;
  }
  return nullptr;
}

std::vector<const RibbonRow*> RibbonControl::Children(std::string_view parent) const {
  std::vector<const RibbonRow*> rows;
  for (const RibbonRow& row : RibbonRows()) {
    const bool child = row.kind == RibbonKind::kItem || row.kind == RibbonKind::kMode || row.kind == RibbonKind::kToggle;
    if (child && parent == row.parent) rows.push_back(&row);
  }
  return rows;
}

const RibbonControl::State& RibbonControl::Of(std::string_view key) const {
  static const State none;
  const auto found = states_.find(key);
  return found == states_.end() ? none : found->second;
}

RibbonControl::State& RibbonControl::Of(std::string_view key) {
  return states_[std::string(key)];
}

bool RibbonControl::TabID(std::string_view key) {
  const RibbonRow* row = Find(key);
  if (!row || row->kind != RibbonKind::kTab) return false;
  tab_ = key;
  Changed();
  return true;
}

std::string RibbonControl::ButtonText(std::string_view key) const {
  return Of(key).text;
}
bool RibbonControl::ButtonChecked(std::string_view key) const {
  return Of(key).checked;
}
bool RibbonControl::ButtonEnabled(std::string_view key) const {
  return Of(key).enabled;
}
std::string RibbonControl::ButtonToolTip(std::string_view key) const {
  return Of(key).tip;
}
std::string RibbonControl::GetButtonIcon(std::string_view key) const {
  return Of(key).icon;
}
bool RibbonControl::ToolbarVisible(std::string_view key) const {
  return Of(key).visible;
}

void RibbonControl::ButtonText(std::string_view key, std::string text) {
  State& state = Of(key);
  state.chosen = ItemWithCaption(key, text);
  state.text = std::move(text);
  Changed();
}

std::string_view RibbonControl::ChosenItem(std::string_view button) const {
  return Of(button).chosen;
}

void RibbonControl::ChooseItem(const RibbonRow& item) {
  State& button = Of(item.parent);
  button.text = Of(StateKey(item)).text;
  button.icon = item.icon;
  button.chosen = item.key;
  Changed();
}
void RibbonControl::ButtonChecked(std::string_view key, bool checked) {
  Of(key).checked = checked;
  Changed();
}
void RibbonControl::ButtonEnabled(std::string_view key, bool enabled) {
  Of(key).enabled = enabled;
  Changed();
}
void RibbonControl::ButtonToolTip(std::string_view key, std::string tip) {
  Of(key).tip = std::move(tip);
  Changed();
}
void RibbonControl::SetButtonIcon(std::string_view key, std::string icon) {
  Of(key).icon = std::move(icon);
  Changed();
}
void RibbonControl::ToolbarVisible(std::string_view key, bool visible) {
  Of(key).visible = visible;
  Changed();
}

void RibbonControl::ClearPopupMenu(std::string_view key) {
  Of(key).list.clear();
}

void RibbonControl::AddListItem(std::string_view key, std::string item_key, std::string caption) {
  Of(key).list.emplace_back(std::move(item_key), std::move(caption));
}

const std::vector<std::pair<std::string, std::string>>& RibbonControl::ListItems(std::string_view key) const {
  return Of(key).list;
}

void RibbonControl::StatusBarText(std::string text) {
  status_ = std::move(text);
  Changed();
}

void RibbonControl::FindText(std::string text) {
  find_ = std::move(text);
  Changed();
}

void RibbonControl::AltState(bool on) {
  alt_ = on;
  Changed();
}

}  // namespace ostrinka
