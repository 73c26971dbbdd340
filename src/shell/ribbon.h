// RibbonControl: the command bar of the main window as a model. Keys, states and captions; no painting and no knowledge of what a key does.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/catalogue.h"
#include "shell/ribbon_table.h"

namespace ostrinka {

class RibbonControl {
 public:
  // Fills the bar from the table, captions from the catalogue.
  explicit RibbonControl(const Catalogue& catalogue);

  // The row of a key that is not an item of its own parent; null for an unknown key.
  const RibbonRow* Find(std::string_view key) const;
  const RibbonRow* FindItem(std::string_view parent, std::string_view key) const;
  std::vector<const RibbonRow*> Children(std::string_view parent) const;  // items, modes and flags of a split button

  const std::string& TabID() const { return tab_; }
  bool TabID(std::string_view key);  // false for an unknown tab

  // The caption. That of a split button is its choice: the item that bears a new caption becomes the chosen one.
  std::string ButtonText(std::string_view key) const;
  void ButtonText(std::string_view key, std::string text);
  // Key of the item that a split button or a find button was left on; "" for any other button, and for a caption that is no item's.
  std::string_view ChosenItem(std::string_view button) const;
  // The button of an item takes its caption and icon.
  void ChooseItem(const RibbonRow& item);
  bool ButtonChecked(std::string_view key) const;
  void ButtonChecked(std::string_view key, bool checked);
  bool ButtonEnabled(std::string_view key) const;
  void ButtonEnabled(std::string_view key, bool enabled);
  std::string ButtonToolTip(std::string_view key) const;
  void ButtonToolTip(std::string_view key, std::string tip);
  std::string GetButtonIcon(std::string_view key) const;
  void SetButtonIcon(std::string_view key, std::string icon);
  bool ToolbarVisible(std::string_view key) const;
  void ToolbarVisible(std::string_view key, bool visible);
  // Entries of the lists, the popup menus and the main menu.
  bool PopupMenuChecked(std::string_view key) const { return ButtonChecked(key); }
  void PopupMenuChecked(std::string_view key, bool checked) { ButtonChecked(key, checked); }
  bool PopupMenuVisible(std::string_view key) const { return ToolbarVisible(key); }
  void PopupMenuVisible(std::string_view key, bool visible) { ToolbarVisible(key, visible); }

  // Entries of a list that is filled while the program runs: key and caption.
  void ClearPopupMenu(std::string_view key);
  void AddListItem(std::string_view key, std::string item_key, std::string caption);
  const std::vector<std::pair<std::string, std::string>>& ListItems(std::string_view key) const;

  const std::string& StatusBarText() const { return status_; }
  void StatusBarText(std::string text);
  const std::string& FindText() const { return find_; }  // of @FIND
  void FindText(std::string text);
  bool AltState() const { return alt_; }
  void AltState(bool on);

  // Asks the window to draw the bar anew.
  std::function<void()> Repaint;

 private:
  struct State {
    std::string text, tip, icon;
    std::string_view chosen;  // key of the item whose caption `text` is
    bool checked = false, enabled = true, visible = true;
    std::vector<std::pair<std::string, std::string>> list;
  };
  // An item that bears its parent's key keeps its state under "key:item".
  static std::string StateKey(const RibbonRow& row);
  void ShowFirstChoice(const RibbonRow& split);
  std::string_view ItemWithCaption(std::string_view button, std::string_view caption) const;
  const State& Of(std::string_view key) const;
  State& Of(std::string_view key);
  void Changed() const {
    if (Repaint) Repaint();
  }

  std::map<std::string, State, std::less<>> states_;
  std::string tab_, status_, find_;
  bool alt_ = false;
};

}  // namespace ostrinka
