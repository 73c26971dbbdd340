#include "desktop/list_editor.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>
#include <algorithm>
#include <iterator>

#include "desktop/key_map.h"

namespace ostrinka {
namespace {

constexpr int kBeside = 28;       // room beside the text, so that the caret and the next letters show
constexpr int kLeastBox = 140;    // width of a list
constexpr int kTextMargin = 2;    // puts the text where the list has it
constexpr int kOutside = -10000;  // where the field of a cell waits that was scrolled away

// The keys that leave the open cell.
constexpr int kTaken[] = {kKeyTab, kKeyEnter, kKeyEscape, kKeyUp, kKeyDown, kKeyPageUp, kKeyPageDown};

}  // namespace

ListEditor::ListEditor(Program& program, MainWindow& window, const Look& look, QWidget& list, Places places)
    : QObject(&list), window_(window), list_(list), places_(std::move(places)), host_{program, look, window.dictionary} {
  line_ = qobject_cast<QLineEdit*>(MakeLineField(host_, window.dictionary.txtEdit, kPlain, &list));
  line_->setFrame(false);
  line_->setTextMargins(kTextMargin, 1, 0, 0);
  box_ = qobject_cast<QComboBox*>(MakeListField(host_, window.dictionary.txtLink, &list));
  for (QWidget* field : {static_cast<QWidget*>(line_), static_cast<QWidget*>(box_)}) {
    field->installEventFilter(this);
    field->hide();
  }
  connect(line_, &QLineEdit::textChanged, this, [this] {
    if (Field() == line_) Place(line_->font());
  });
  box_->view()->installEventFilter(this);
}

QWidget* ListEditor::Field() const {
  switch (window_.dictionary.cell()) {
    case DictionaryEditor::Cell::kText:
      return line_;
    case DictionaryEditor::Cell::kList:
      return box_;
    default:
      return nullptr;
  }
}

void ListEditor::TakeFocus() {
  if (QWidget* field = Field(); field && list_.hasFocus()) field->setFocus(Qt::OtherFocusReason);
}

QRect ListEditor::Area() const {
  const QWidget* field = Field();
  return field && field->isVisible() ? field->geometry() : QRect();
}

void ListEditor::Refresh(const QFont& font) {
  QWidget* field = Field();
  for (QWidget* other : {static_cast<QWidget*>(line_), static_cast<QWidget*>(box_)}) {
    if (other == field || other->isHidden()) continue;
    const bool had_focus = other->hasFocus();
    other->hide();
    if (had_focus && !field) list_.setFocus();
  }
  if (!field) return;
  const DictionaryEditor& model = window_.dictionary;
  const bool opened = shown_ != model.openings();
  shown_ = model.openings();
  if (opened) {
    places_.reveal(model.record(), model.column());
    field->setAccessibleName(ToQt(model.Heading()));
    line_->setAlignment((model.OfNumber() ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
  }
  Place(font);
  if (!opened) return;
  field->show();
  field->raise();
  field->setFocus(Qt::OtherFocusReason);
  line_->selectAll();
  if (field == box_) box_->showPopup();
}

void ListEditor::Place(const QFont& font) {
  QWidget* field = Field();
  if (field->font() != font) field->setFont(font);
  QRect area = places_.area(window_.dictionary.record(), window_.dictionary.column());
  if (area.isEmpty()) {
    field->move(kOutside, kOutside);
    return;
  }
  // As wide as its text needs, where there is room: to the right, of numbers to the left.
  const int wanted = field == box_ ? kLeastBox : line_->fontMetrics().horizontalAdvance(line_->text()) + kBeside;
  const int missing = std::max(wanted - area.width(), 0);
  if (field == line_ && line_->alignment() & Qt::AlignRight) {
    area.setLeft(std::max(area.left() - missing, 0));
  } else {
    area.setRight(std::max(std::min(area.right() + missing, list_.width() - 20), area.right()));
  }
  if (field->geometry() == area) return;
  field->setGeometry(area);
  list_.update();
}

bool ListEditor::Key(const QKeyEvent& event) {
  if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) return false;
  if (event.key() == Qt::Key_Backtab) {
    window_.dictionary.NextCell(false);
    return true;
  }
  const int code = KeyCodeOf(event.key());
  if (std::find(std::begin(kTaken), std::end(kTaken), code) == std::end(kTaken)) return false;
  window_.UserKey(code);
  return true;
}

bool ListEditor::eventFilter(QObject* object, QEvent* event) {
  if (object == box_->view()) {
    // The list is the cell: it is over when the list closes, after the entry that was picked has come.
    if (event->type() == QEvent::Hide) {
      QTimer::singleShot(0, this, [this] {
        if (window_.dictionary.cell() == DictionaryEditor::Cell::kList && !box_->view()->isVisible()) window_.dictionary.Cancel();
      });
    }
    return false;
  }
  if (event->type() == QEvent::KeyPress) return Key(*static_cast<QKeyEvent*>(event));
  return false;
}

}  // namespace ostrinka
