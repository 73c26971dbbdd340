// The lists and menus of the ribbon, and its key tips.
#include "desktop/ribbon_view.h"

namespace ostrinka {

// Key tips of the main menu's entries begin with "M", which opens it; the letter behind that chooses in it.
void RibbonView::OpenMainMenu(bool by_keyboard) {
  std::vector<PopupEntry> entries;
  for (const RibbonRow& row : RibbonRows()) {
    if (row.kind != RibbonKind::kMainMenu || !window_.ribbon.PopupMenuVisible(row.key)) continue;
    if (!*row.text) {
      entries.push_back({PopupEntry::Kind::kSeparator, row.key, {}, {}, {}, {}, false, true});
      continue;
    }
    QString letter = LetterOf(row);
    if (letter.size() > 1) letter = letter.right(1);
    const bool usable = Usable(row.key);
    entries.push_back({PopupEntry::Kind::kItem, row.key, ToQt(window_.ribbon.ButtonText(row.key)), ToQt(row.icon), letter,
                       usable ? QString() : look_.Text("common.notbuilt"), false, usable});
  }
  main_menu_.Fill(entries);
  if (by_keyboard && !main_menu_.actions().isEmpty()) main_menu_.setActiveAction(main_menu_.actions().first());
  Popup(main_menu_, menu_button_->mapToGlobal(QPoint(0, menu_button_->height())), menu_button_);
}

void RibbonView::OpenTabMenu(const QPoint& global) {
  std::vector<PopupEntry> entries;
  for (const RibbonRow& row : RibbonRows()) {
    if (row.kind != RibbonKind::kPopup || window_.ribbon.TabID() != row.parent || !window_.ribbon.PopupMenuVisible(row.key)) continue;
    const bool separator = !*row.text, usable = separator || Usable(row.key);
    entries.push_back({separator ? PopupEntry::Kind::kSeparator : PopupEntry::Kind::kItem,
                       row.key,
                       look_.Text(row.text),
                       ToQt(row.icon),
                       {},
                       usable ? QString() : look_.Text("common.notbuilt"),
                       false,
                       usable});
  }
  if (entries.empty()) return;
  tab_menu_.Fill(entries);
  Popup(tab_menu_, global, nullptr);
}

std::vector<PopupEntry> RibbonView::ListOf(std::string_view parent) const {
  std::vector<PopupEntry> entries;
  using enum PopupEntry::Kind;
  for (const auto& [key, caption] : window_.ribbon.ListItems(parent)) {
    entries.push_back({kRadio, key, ToQt(caption), {}, {}, {}, caption == window_.ribbon.ButtonText(parent), true});
  }
  RibbonKind before = RibbonKind::kItem;
  const bool usable = Usable(parent);
  for (const RibbonRow* row : window_.ribbon.Children(parent)) {
    if (row->kind != before) entries.push_back({kSeparator, "-", {}, {}, {}, {}, false, true});
    before = row->kind;
    const PopupEntry::Kind kind = row->kind == RibbonKind::kMode ? kRadio : row->kind == RibbonKind::kToggle ? kTick : kItem;
    const bool alone = row->kind == RibbonKind::kItem && window_.ribbon.Find(parent)->kind == RibbonKind::kTool;
    const bool can = alone ? Usable(row->key) : usable;
    entries.push_back({kind,
                       row->key,
                       look_.Text(row->text),
                       ToQt(row->icon),
                       {},
                       can ? QString() : look_.Text("common.notbuilt"),
                       kind != kItem && window_.ribbon.ButtonChecked(row->key),
                       can});
  }
  return entries;
}

void RibbonView::OpenList(std::string_view parent) {
  const std::vector<PopupEntry> entries = ListOf(parent);
  RibbonButton* button = Button(parent);
  if (entries.empty() || !button) return;
  list_.Fill(entries);
  list_.chosen = [this, owner = std::string(parent)](const std::string& key) { window_.UserItem(owner, key); };
  list_.setMinimumWidth(button->width());
  Popup(list_, button->mapToGlobal(QPoint(0, button->height())), button);
}

void RibbonView::Popup(PopupView& menu, const QPoint& at, RibbonButton* owner) {
  if (owner) {
    owner->list_open = true;
    owner->update();
    QObject::connect(
        &menu, &QMenu::aboutToHide, owner,
        [owner] {
          owner->list_open = false;
          owner->setDown(false);
          owner->update();
        },
        Qt::SingleShotConnection);
  }
  menu.popup(at);
}

std::vector<KeyTip> RibbonView::KeyTips() const {
  std::vector<KeyTip> tips;
  RibbonView* self = const_cast<RibbonView*>(this);
  tips.push_back({"M", menu_button_, [self] { self->OpenMainMenu(true); }, {}});
  std::set<QString> taken{"M"};
  for (const auto* list : {&tabs_, &tools_}) {
    for (const Tool& tool : *list) {
      const QString letters = LetterOf(*tool.row).toUpper();
      if (letters.isEmpty() || !tool.button->isVisible() || !taken.insert(letters).second) continue;
      if (tool.row->kind == RibbonKind::kFind) {
        QLineEdit* field = FindField();
        tips.push_back({letters, field, [field] { field->setFocus(Qt::ShortcutFocusReason), field->selectAll(); }, {}});
        continue;
      }
      QAbstractButton* button = tool.button;
      tips.push_back({letters, button, [button] { button->click(); }, tool.button->drop});
      if (tool.arrow >= 0) tips.back().run = [button] { button->setFocus(Qt::ShortcutFocusReason); };
      if (tool.row->kind == RibbonKind::kCombo) tips.back().run = tool.button->drop;
    }
  }
  for (const auto& [row, first] : alphabets_) {
    RibbonButton* button = first;
    const QString letters = LetterOf(*row).toUpper();
    if (button->isVisible() && taken.insert(letters).second) {
      tips.push_back({letters, button, [button] { button->setFocus(Qt::ShortcutFocusReason); }, {}});
    }
  }
  return tips;
}

}  // namespace ostrinka
