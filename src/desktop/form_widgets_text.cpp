// Text boxes of one line and of several. What the model does not take never enters the field.
#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QValidator>
#include <algorithm>

#include "app/program.h"
#include "base/text.h"
#include "desktop/dialog_style.h"
#include "desktop/form_widgets.h"

namespace ostrinka {
namespace {

constexpr int kLowLines = 2, kTallLines = 4, kPadding = 4;

class ModelValidator : public QValidator {
 public:
  ModelValidator(const TextBoxControl& control, QObject* parent) : QValidator(parent), control_(control) {}
  State validate(QString& text, int&) const override { return control_.Takes(FromQt(text)) ? Acceptable : Invalid; }

 private:
  const TextBoxControl& control_;
};

class LetterValidator : public QValidator {
 public:
  using QValidator::QValidator;
  State validate(QString& text, int&) const override {
    const std::u32string letters = CodePoints(FromQt(text));
    return std::all_of(letters.begin(), letters.end(), [](char32_t letter) { return Cp1250Byte(letter).has_value(); }) ? Acceptable
                                                                                                                       : Invalid;
  }
};

// The ground that a form gives a field for a moment.
void ShowGround(const FieldHost& host, const TextBoxControl& control, QWidget* field) {
  QPalette palette = field->parentWidget() ? field->parentWidget()->palette() : QPalette();
  if (control.BackColorIndex != 0) palette.setColor(QPalette::Base, host.look.Colour(static_cast<SkinColour>(control.BackColorIndex)));
  if (palette.color(QPalette::Base) == field->palette().color(QPalette::Base)) return;
  field->setPalette(palette);
  field->repaint();  // before the form goes on
}

// Whether the focus comes by the person's will, not back from a menu or another program.
bool EntersToType(const QFocusEvent& event) {
  return event.reason() != Qt::PopupFocusReason && event.reason() != Qt::ActiveWindowFocusReason;
}

class LineField : public QLineEdit {
 public:
  LineField(FieldHost& host, TextBoxControl& control, QWidget* parent) : QLineEdit(parent), host_(host), control_(control) {
    setValidator(new ModelValidator(control, this));
    setTextMargins(kPadding, 0, 0, 0);
    if (control.PasswordChar != 0) {
      setProperty(kPasswordSign, static_cast<int>(control.PasswordChar));
      setEchoMode(Password);
      QEvent styled(QEvent::StyleChange);  // makes the field ask for its sign again
      QApplication::sendEvent(this, &styled);
    }
    connect(this, &QLineEdit::inputRejected, this, [this] { host_.Beep(); });
    connect(this, &QLineEdit::textEdited, this, [this](const QString& text) {
      if (!control_.UserSet(FromQt(text))) Show();
    });
  }
  void Show() {
    const QString shown = ToQt(control_.Text());
    if (text() != shown) {
      const bool all = hasFocus() && hasSelectedText() && selectedText() == text();
      setText(shown);
      if (all) {
        selectAll();
      } else if (!hasFocus()) {
        setCursorPosition(0);  // a long text shows its beginning
      }
    }
    ShowGround(host_, control_, this);
  }
  QSize minimumSizeHint() const override { return {28, FieldHeight(*this)}; }
  QSize sizeHint() const override { return {80, FieldHeight(*this)}; }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (event->matches(QKeySequence::Paste) && !isReadOnly()) {
      // The line ends of a copied cell or line are no part of the text.
      insert(QApplication::clipboard()->text().trimmed().replace('\r', QString()).replace('\n', ' ').replace('\t', ' '));
    } else {
      QLineEdit::keyPressEvent(event);
    }
  }
  void focusInEvent(QFocusEvent* event) override {
    QLineEdit::focusInEvent(event);
    if (control_.SelectAllOnEntry && EntersToType(*event)) selectAll();
  }

 private:
  FieldHost& host_;
  TextBoxControl& control_;
};

QString FromLines(const std::string& text) {
  return ToQt(text).replace("\r\n", "\n");
}
std::string ToLines(QString text) {
  return FromQt(text.replace('\n', "\r\n"));
}

class TextField : public QPlainTextEdit {
 public:
  TextField(FieldHost& host, TextBoxControl& control, int lines, QWidget* parent)
      : QPlainTextEdit(parent), host_(host), control_(control), lines_(lines) {
    setTabChangesFocus(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    document()->setDocumentMargin(5);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setProperty(kTallField, lines >= kTallLines);
    connect(this, &QPlainTextEdit::textChanged, this, [this] {
      const QString typed = toPlainText();
      if (typed == FromLines(control_.Text())) return;
      if (!control_.UserSet(ToLines(typed))) Show();
    });
  }
  void Show() {
    const QString shown = FromLines(control_.Text());
    if (toPlainText() != shown) {
      setPlainText(shown);
      if (hasFocus() && control_.SelectAllOnEntry) selectAll();
    }
    ShowGround(host_, control_, this);
  }
  QSize minimumSizeHint() const override { return {60, Height(lines_)}; }
  QSize sizeHint() const override { return {120, Height(lines_)}; }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const QString typed = enter ? QString('\n') : event->text();
    const bool letter = enter || (!typed.isEmpty() && typed[0].isPrint() && !event->modifiers().testFlag(Qt::ControlModifier));
    if (letter && !Takes(typed)) {
      host_.Beep();
      return;
    }
    if (enter) {  // Shift+Enter is a line end like any other
      insertPlainText("\n");
      ensureCursorVisible();
    } else {
      QPlainTextEdit::keyPressEvent(event);
    }
  }
  void focusInEvent(QFocusEvent* event) override {
    QPlainTextEdit::focusInEvent(event);
    if (control_.SelectAllOnEntry && EntersToType(*event)) selectAll();
  }
  // Letters put together from several keys.
  void inputMethodEvent(QInputMethodEvent* event) override {
    if (event->commitString().isEmpty() || Takes(event->commitString())) {
      QPlainTextEdit::inputMethodEvent(event);
    } else {
      QInputMethodEvent nothing;  // ends what was begun
      QPlainTextEdit::inputMethodEvent(&nothing);
      host_.Beep();
    }
  }
  void insertFromMimeData(const QMimeData* source) override {
    if (source->hasText() && Takes(source->text().replace("\r\n", "\n"))) {
      insertPlainText(source->text().replace("\r\n", "\n"));
    } else {
      host_.Beep();
    }
  }

 private:
  int Height(int lines) const { return lines * fontMetrics().lineSpacing() + 14; }
  bool Takes(const QString& typed) const {
    const QTextCursor cursor = textCursor();
    QString text = toPlainText();
    text.replace(cursor.selectionStart(), cursor.selectionEnd() - cursor.selectionStart(), typed);
    return control_.Takes(ToLines(text));
  }
  FieldHost& host_;
  TextBoxControl& control_;
  int lines_;
};

}  // namespace

void TakeLettersOfTables(QLineEdit& field, std::function<void()> beep) {
  field.setValidator(new LetterValidator(&field));
  QObject::connect(&field, &QLineEdit::inputRejected, &field, std::move(beep));
}

QWidget* MakeLineField(FieldHost& host, TextBoxControl& control, unsigned flags, QWidget* parent) {
  auto* field = new LineField(host, control, parent);
  if (flags & kRight) field->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  Follow(control, field, [field] { field->Show(); });
  AttachMark(host, control, field, [field](int room) { field->setTextMargins(kPadding, 0, room + (room > 0 ? 2 : 0), 0); });
  return field;
}

QWidget* MakeTextField(FieldHost& host, TextBoxControl& control, unsigned flags, QWidget* parent) {
  auto* field = new TextField(host, control, flags & (kStretch | kTall) ? kTallLines : kLowLines, parent);
  if (flags & kStretch) field->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  Follow(control, field, [field] { field->Show(); });
  AttachMark(host, control, field, [](int) {});
  return field;
}

}  // namespace ostrinka
