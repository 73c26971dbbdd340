#include "desktop/screen_check.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabBar>

#include "desktop/ribbon_button.h"

namespace ostrinka {
namespace {

QString Plain(QString text) {
  return text.replace("&&", "\x01").remove('&').replace('\x01', '&');
}

// What `widget` shows of its own; entries that a person made are none of it.
QStringList TextsOf(const QWidget& widget) {
  QStringList texts{widget.toolTip(), widget.accessibleName(), widget.accessibleDescription(), widget.windowTitle()};
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) texts << label->text();
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) texts << Plain(button->text());
  if (const auto* button = dynamic_cast<const RibbonButton*>(&widget)) texts << button->caption();
  if (const auto* field = qobject_cast<const QLineEdit*>(&widget)) texts << field->placeholderText() << field->text();
  if (const auto* list = qobject_cast<const QComboBox*>(&widget)) texts << list->currentText();
  if (const auto* tabs = qobject_cast<const QTabBar*>(&widget)) {
    for (int i = 0; i < tabs->count(); ++i) texts << Plain(tabs->tabText(i));
  }
  return texts;
}

// A text of several lines is as wide as its longest.
int WidthOf(const QFontMetrics& metrics, const QString& text) {
  int width = 0;
  for (const QString& line : text.split('\n')) width = std::max(width, metrics.horizontalAdvance(line));
  return width;
}

// The text that does not fit, or an empty one.
QString CutText(const QWidget& widget) {
  const QFontMetrics metrics = widget.fontMetrics();
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
    const QString text = label->textFormat() == Qt::PlainText ? label->text() : Plain(label->text());
    const bool high = label->wordWrap() && label->heightForWidth(label->width()) > label->height();
    return high || (!label->wordWrap() && WidthOf(metrics, text) > label->contentsRect().width()) ? text : QString();
  }
  if (const auto* button = dynamic_cast<const RibbonButton*>(&widget)) {
    return button->width() < button->minimumSizeHint().width() ? button->caption() : QString();
  }
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
    const int icon = button->icon().isNull() ? 0 : button->iconSize().width() + 4;
    return WidthOf(metrics, Plain(button->text())) + icon > button->width() ? Plain(button->text()) : QString();
  }
  if (const auto* tabs = qobject_cast<const QTabBar*>(&widget)) {
    for (int i = 0; i < tabs->count(); ++i) {
      if (tabs->isTabVisible(i) && metrics.horizontalAdvance(Plain(tabs->tabText(i))) > tabs->tabRect(i).width()) return tabs->tabText(i);
    }
  }
  return {};
}

bool IsPart(const QWidget& widget) {
  return qobject_cast<const QLabel*>(&widget) || qobject_cast<const QAbstractButton*>(&widget) || qobject_cast<const QLineEdit*>(&widget) ||
         qobject_cast<const QComboBox*>(&widget) || qobject_cast<const QPlainTextEdit*>(&widget);
}

QString NameOf(const QWidget& widget) {
  for (const QString& text : TextsOf(widget)) {
    if (!text.isEmpty()) return "\"" + text + "\"";
  }
  return widget.metaObject()->className();
}

}  // namespace

QStringList ScreenFaults(const QWidget& window) {
  QStringList faults;
  QList<QWidget*> all = window.findChildren<QWidget*>();
  all.prepend(const_cast<QWidget*>(&window));
  for (const QWidget* widget : all) {
    if (!widget->isVisible()) continue;
    for (const QString& text : TextsOf(*widget)) {
      if (text.startsWith('%')) faults << "not translated: " + text;
    }
    if (const QString cut = CutText(*widget); !cut.isEmpty()) faults << "cut off: \"" + cut + "\"";
    const QWidget* holder = widget->parentWidget();
    if (!holder || IsPart(*holder) || !IsPart(*widget)) continue;
    if (!holder->rect().contains(widget->geometry())) faults << "outside its frame: " + NameOf(*widget);
    for (const QObject* other : holder->children()) {
      const auto* beside = other->isWidgetType() ? static_cast<const QWidget*>(other) : nullptr;
      if (!beside || beside == widget || beside < widget || !beside->isVisible() || !IsPart(*beside)) continue;
      if (beside->geometry().intersects(widget->geometry())) faults << NameOf(*widget) + " covers " + NameOf(*beside);
    }
  }
  return faults;
}

}  // namespace ostrinka
