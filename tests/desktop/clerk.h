// A person at the keyboard in front of the real windows: keys go one by one to whatever has the focus, through forms that open before
// forms.
#pragma once

#include <QApplication>
#include <QEventLoop>
#include <QTimer>
#include <deque>
#include <functional>
#include <memory>

#include "desktop/form_window.h"
#include "desktop/main_window_view.h"
#include "desktop/person.h"
#include "documents/trade.h"

namespace ostrinka {

// A company on real tables with its main window; every form that the program shows is a real window before it.
class ClerkTest : public Trade {
 protected:
  void SetUp() override {
    look = std::make_unique<Look>(program);
    window = std::make_unique<MainWindow>(program);
  }
  void TearDown() override {
    platform.ui.on_modal = nullptr;
    window->ribbon.Repaint = nullptr;
    view.reset();
  }
  // Once the company is filled.
  void OpenWindow() {
    view = std::make_unique<MainWindowView>(program, *window, *look);
    window->ribbon.Repaint = [this] { view->Refresh(); };
    view->setGeometry(0, 0, 1200, 700);
    view->show();
    view->activateWindow();
    view->list().setFocus();
    window->UserTab("SPRZEDAŻ");
    view->Refresh();
    platform.ui.on_modal = [this](Form& form) {
      FormWindow* const before = front;
      Form* const form_before = front_form;
      FormWindow shown(program, *look, form, QApplication::activeModalWidget() ? QApplication::activeModalWidget() : view.get());
      front = &shown;
      front_form = &form;
      shown.Run();
      front = before;
      front_form = form_before;
    };
  }

  struct Stroke {
    int key = 0;
    Qt::KeyboardModifiers with = {};
    QString text = {};
    std::function<void()> look_on = {};  // no key: what is checked, or done otherwise, at this point
  };
  void Press(int key, Qt::KeyboardModifiers with = {}) { todo.push_back({key, with}); }
  void Type(const QString& text) {
    for (const QChar letter : text) todo.push_back({letter.toUpper().unicode(), {}, QString(letter)});
  }
  void Then(std::function<void()> look_on) { todo.push_back({0, {}, {}, std::move(look_on)}); }

  // Works through what was written down; gives the number of keys.
  int Work() {
    int strokes = 0;
    QEventLoop loop;
    std::function<void()> next = [&] {
      if (todo.empty()) {
        if (!front) return loop.quit();
        ADD_FAILURE() << front_form->form_name() << " was left open, in " << Focus();
        QTimer::singleShot(kPause, &loop, next);
        return front_form->Close();
      }
      const Stroke stroke = todo.front();
      todo.pop_front();
      QTimer::singleShot(kPause, &loop, next);  // first: the stroke may open a form and return only when it closes
      if (stroke.look_on) return stroke.look_on();
      ++strokes;
      TypeKey(Target(), stroke.key, stroke.with, stroke.text);
    };
    QTimer::singleShot(kPause, &loop, next);
    loop.exec();
    return strokes;
  }
  QWidget& Target() {
    QWidget* window_in_front = QApplication::activeModalWidget() ? QApplication::activeModalWidget() : view.get();
    if (QApplication::activeWindow() != window_in_front) QApplication::setActiveWindow(window_in_front);  // as a window manager does
    return window_in_front->focusWidget() ? *window_in_front->focusWidget() : *window_in_front;
  }
  // Name of the control of the form in front that has the focus.
  std::string Focus() {
    for (const Control* control : front_form->controls()) {
      if (front->WidgetOf(*control) == front->focusWidget()) return control->name();
    }
    return "none";
  }

  static constexpr int kPause = 2;  // ms; lets a window that closed go
  std::deque<Stroke> todo;
  std::unique_ptr<Look> look;
  std::unique_ptr<MainWindow> window;
  std::unique_ptr<MainWindowView> view;
  FormWindow* front = nullptr;
  Form* front_form = nullptr;
};

}  // namespace ostrinka
