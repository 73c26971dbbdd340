// Keys and the mouse, as the tests of the window send them.
#pragma once

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWidget>

namespace ostrinka {

inline void SendKey(QWidget& to, QEvent::Type type, int key, Qt::KeyboardModifiers with = {}, const QString& text = {}) {
  QKeyEvent event(type, key, with, text);
  QCoreApplication::sendEvent(&to, &event);
}

inline void TypeKey(QWidget& to, int key, Qt::KeyboardModifiers with = {}, const QString& text = {}) {
  SendKey(to, QEvent::KeyPress, key, with, text);
  SendKey(to, QEvent::KeyRelease, key, with, text);
}

inline void SendMouse(QWidget& to, QEvent::Type type, QPoint at, Qt::MouseButton button = Qt::LeftButton) {
  const bool held = type == QEvent::MouseButtonPress || type == QEvent::MouseMove;
  QMouseEvent event(type, at, to.mapToGlobal(at), type == QEvent::MouseMove ? Qt::NoButton : button, held ? button : Qt::NoButton, {});
  QCoreApplication::sendEvent(&to, &event);
}

inline void ClickAt(QWidget& to, QPoint at) {
  SendMouse(to, QEvent::MouseButtonPress, at);
  SendMouse(to, QEvent::MouseButtonRelease, at);
}

}  // namespace ostrinka
