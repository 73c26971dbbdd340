// The ribbon of the main window as widgets: tabs and, below them, the toolbars of the tab on show. Reads RibbonControl, hands events to
// MainWindow.
#pragma once

#include <QHash>
#include <QLineEdit>
#include <QStackedWidget>
#include <functional>
#include <set>
#include <vector>

#include "desktop/popup_view.h"
#include "desktop/ribbon_button.h"
#include "shell/main_window.h"

class QHBoxLayout;

namespace ostrinka {

// A key tip: the letters, the widget they stand on, and what they do.
struct KeyTip {
  QString letters;
  QWidget* widget;
  std::function<void()> run, drop;  // `drop` opens the list of a split button; may be empty
};

class RibbonView : public QWidget {
 public:
  RibbonView(Program& program, MainWindow& window, const Look& look, QWidget* parent);

  // Takes over the states of the model.
  void Refresh();
  // The icons may be others now.
  void LookChanged();
  // Whether the person can use a key now: enabled in the model, and its function part of this version.
  bool Usable(std::string_view key) const;
  void OpenMainMenu(bool by_keyboard);
  void OpenTabMenu(const QPoint& global);
  void OpenList(std::string_view parent);
  std::vector<KeyTip> KeyTips() const;  // of what is on show
  RibbonButton* Button(std::string_view key) const;
  QLineEdit* FindField() const;  // of the tab on show; null when it has none
  void SetTight(bool tight);
  int NaturalWidth() const;  // of the tab on show

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  struct Tool {
    const RibbonRow* row;
    RibbonButton* button;
    int arrow = -1;  // of the four arrows: 0 first to 3 last
  };
  void AddTab(const RibbonRow& tab);
  QWidget* AddBar(const RibbonRow& bar, QWidget* panel);
  void AddTool(const RibbonRow& row, QHBoxLayout& layout, QWidget* bar);
  void AddArrows(const RibbonRow& row, QHBoxLayout& layout, QWidget* bar);
  void AddSearch(const RibbonRow& find, QHBoxLayout& layout, QWidget* bar);
  void AddCombo(const RibbonRow& row, QHBoxLayout& layout, QWidget* bar);
  RibbonButton* MakeButton(const RibbonRow& row, RibbonButton::Shape shape, QWidget* parent, int arrow = -1);
  QStringList CaptionsOf(const RibbonRow& row) const;
  QString CaptionOf(const RibbonRow& row) const;
  QString TipOf(const RibbonRow& row) const;
  QString LetterOf(const RibbonRow& row) const;
  std::vector<PopupEntry> ListOf(std::string_view parent) const;
  void Popup(PopupView& menu, const QPoint& at, RibbonButton* owner);
  void ShowTip(const Tool& tool);
  void Run(const Tool& tool);

  Program& program_;
  MainWindow& window_;
  const Look& look_;
  std::set<std::string, std::less<>> built_;
  RibbonButton* menu_button_;
  QWidget* tab_row_;
  QStackedWidget* panels_;
  std::vector<Tool> tools_, tabs_;
  std::vector<std::pair<std::string, QWidget*>> bars_;                 // toolbars by key
  std::vector<std::pair<std::string, QLineEdit*>> searches_;           // find fields by tab
  std::vector<std::pair<const RibbonRow*, RibbonButton*>> alphabets_;  // each with its first letter
  QHash<QString, QWidget*> panel_of_;
  QHash<const RibbonButton*, std::string> told_tips_;
  PopupView main_menu_, tab_menu_, list_;
};

}  // namespace ostrinka
