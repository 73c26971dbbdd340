// What a form's window is made of; shared by the files that build it and that run it.
#pragma once

#include <QObject>
#include <QPointer>
#include <map>
#include <vector>

#include "desktop/dialog_style.h"
#include "desktop/form_layout.h"
#include "desktop/form_steps.h"
#include "desktop/form_window.h"
#include "desktop/title_strip.h"

class QKeyEvent;
class QLabel;
class QStackedWidget;
class QTabBar;
class QVBoxLayout;
class QWidget;

namespace ostrinka {

struct FormWindow::Parts : public QObject {
  Parts(FormWindow& owner, Program& p, const Look& look, Form& f)
      : window(owner), program(p), form(f), host{p, look, f}, builder(host), style(DialogStyle::Install(look)) {
    host.settle = [this] { Settle(); };
  }

  FormWindow& window;
  Program& program;
  Form& form;
  FieldHost host;
  FormBuilder builder;
  DialogStyle& style;
  TitleStrip* strip = nullptr;
  QTabBar* tabs = nullptr;
  StepList* steps = nullptr;  // of a form in steps, with the title of the page and its place among them
  QLabel *page_title = nullptr, *page_place = nullptr;
  QStackedWidget* pages = nullptr;
  std::map<const QObject*, Control*> controls;  // by their widgets
  Control* left = nullptr;                      // was left, and its event is still due
  Control* entered = nullptr;                   // has the focus
  bool showing = false, closing = false;
  std::vector<Connection> connections;  // to the form and its controls

  void Build();
  void BuildPages(QVBoxLayout& column);
  void BuildSteps(QVBoxLayout& column);
  QWidget* BuildPageTitle(QWidget* parent);
  void BuildButtons(QVBoxLayout& column);
  void Connect();
  void GiveAccessKeys();
  void Size();
  void Place();
  void KeepPlace();
  void Start();

  void ShowState();
  void ShowControl(const Control& control);
  void ShowSections();
  void ShowPage();
  void ShowSteps();
  void MoveFocus();
  bool CanClose();
  void Finish();

  void Settle();
  bool OnKey(QKeyEvent& event, Control* control, QWidget* field);
  bool OnEnter(Control* control, QWidget* field);
  void Press(ButtonControl& button, Control* control);
  void StepPage(int step);
  void ShowAccessKeys(bool shown);
  ButtonControl* Marked(unsigned flag) const;
  QWidget* FirstField() const;
  bool eventFilter(QObject* object, QEvent* event) override;
};

}  // namespace ostrinka
