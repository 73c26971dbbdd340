// A list that drops down or pops up: lists of split buttons, the main menu, the menu of a tab.
#pragma once

#include <QMenu>
#include <memory>
#include <vector>

#include "desktop/ribbon_painter.h"

class QProxyStyle;

namespace ostrinka {

struct PopupEntry {
  enum class Kind { kItem, kRadio, kTick, kSeparator } kind = Kind::kItem;
  std::string key;  // what `chosen` is given
  QString caption, icon, letter, tip;
  bool checked = false, enabled = true;
};

class PopupView : public QMenu {
 public:
  PopupView(const Look& look, const QString& name, QWidget* parent);
  ~PopupView() override;

  // Separators at the ends and beside each other are left out.
  void Fill(const std::vector<PopupEntry>& entries);
  std::function<void(const std::string& key)> chosen;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  const Look& look_;
  std::unique_ptr<QProxyStyle> style_;
};

}  // namespace ostrinka
