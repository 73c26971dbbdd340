#include "desktop/form_widgets.h"

#include <QApplication>
#include <QCheckBox>
#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <algorithm>
#include <utility>

#include "app/program.h"
#include "desktop/dialog_style.h"
#include "desktop/file_pictures.h"

namespace ostrinka {
namespace {

constexpr int kIconSize = 16, kMarkSize = 16;

void ShowTip(const Control& control, QWidget* widget) {
  if (control.tool_tip().empty() || control.Warning()) return;
  widget->setToolTip(ToQt(control.tool_tip()));
}

// The access key that the window added stays as long as the caption does.
void SetCaption(QAbstractButton& button, const QString& caption) {
  constexpr const char* kCaption = "ostrinka_caption";
  if (button.property(kCaption).toString() == caption) return;
  button.setProperty(kCaption, caption);
  button.setText(caption);
}

// Enter and the blank key both press a button that has the focus.
class PushField : public QPushButton {
 public:
  using QPushButton::QPushButton;
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
      click();
    } else {
      QPushButton::keyPressEvent(event);
    }
  }
};

QWidget* MakeButton(FieldHost& host, ButtonControl& control, QWidget* parent) {
  auto* button = new PushField(parent);
  button->setAutoDefault(false);
  button->setMinimumWidth(1);
  button->setIcon(host.look.Icon(control.icon));
  button->setIconSize({kIconSize, kIconSize});
  QObject::connect(button, &QPushButton::clicked, button, [&host, &control] {
    host.settle();
    if (const auto asks = host.confirm.find(&control); asks != host.confirm.end() && !asks->second()) return;
    control.UserPress();
  });
  Follow(control, button, [&host, &control, button] {
    SetCaption(*button, host.look.Text(control.caption_key));
    ShowTip(control, button);
  });
  return button;
}

// The model tells the state: it is shown again after every click, taken or not.
template <typename Box, typename Model>
Box* MakeBox(FieldHost& host, Model& control, QWidget* parent, bool (*state)(const Model&), void (*act)(Model&)) {
  auto* box = new Box(parent);
  box->setAutoExclusive(false);
  const auto show = [&host, &control, box, state] {
    SetCaption(*box, host.look.Text(control.caption_key));
    box->setChecked(state(control));
    ShowTip(control, box);
  };
  QObject::connect(box, &Box::clicked, box, [&host, &control, act, show, guard = QPointer<QWidget>(box)] {
    host.settle();
    act(control);
    if (guard) show();
  });
  Follow(control, box, show);
  return box;
}

QWidget* MakeLabel(FieldHost& host, LabelControl& control, unsigned flags, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setTextFormat(Qt::PlainText);
  label->setAlignment((flags & kRight ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
  if (flags & kStrong) label->setFont(host.look.BoldFont());
  label->setMinimumWidth(1);
  Follow(control, label, [&host, &control, label] {
    label->setText(control.Text().empty() ? host.look.Text(control.caption_key) : ToQt(control.Text()));
    label->setToolTip(label->text());
  });
  return label;
}

class FileList : public QListWidget {
 public:
  FileList(FieldHost& host, MemoControl& control, QWidget* parent) : QListWidget(parent), host_(host), control_(control) {
    setUniformItemSizes(true);
    setIconSize({kFilePictureSize, kFilePictureSize});
    setPalette(DialogStyle::Of(host.look).ListPalette());
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideMiddle);
    connect(this, &QListWidget::currentRowChanged, this, [this](int row) {
      if (!showing_ && row >= 0 && row != control_.selected()) control_.UserSelect(row);
    });
    connect(this, &QListWidget::itemDoubleClicked, this, [this] { Open(); });
  }
  void Show() {
    showing_ = true;
    const auto& items = control_.items();
    if (items != shown_) {
      clear();
      shown_ = items;
      for (const MemoControl::Item& item : items) {
        const QPixmap picture = FilePicture(KindOfFile(item.name), devicePixelRatioF());
        QIcon icon(picture);
        icon.addPixmap(picture, QIcon::Selected);  // untinted
        addItem(new QListWidgetItem(icon, ToQt(item.name)));
      }
    }
    setCurrentRow(control_.selected());
    showing_ = false;
  }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
      Open();
    } else {
      QListWidget::keyPressEvent(event);
    }
  }
  QSize sizeHint() const override { return {200, 3 * FieldHeight(*this) + 12}; }
  QSize minimumSizeHint() const override { return {80, 3 * FieldHeight(*this) + 12}; }

 private:
  void Open() {
    host_.settle();
    if (control_.CanAct() && control_.selected() >= 0) control_.DoubleClicked.Raise();
  }
  FieldHost& host_;
  MemoControl& control_;
  std::vector<MemoControl::Item> shown_;
  bool showing_ = false;
};

class Mark : public QWidget {
 public:
  Mark(const Look& look, QWidget* field) : QWidget(field), look_(look) {
    setFixedSize(kMarkSize, kMarkSize);
    setCursor(Qt::ArrowCursor);
    field->installEventFilter(this);
    hide();
  }
  void Place() {
    const QWidget* field = parentWidget();
    const int top = std::min((field->height() - kMarkSize) / 2, (FieldHeight(*field) - kMarkSize) / 2);
    move(field->width() - kMarkSize - 5, top);
  }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Resize) Place();
    return false;
  }
  void paintEvent(QPaintEvent*) override { QPainter(this).drawPixmap(0, 0, WarningPicture(look_, kMarkSize, devicePixelRatioF())); }

 private:
  const Look& look_;
};

// A connection for as long as the widget lives that it belongs to.
class Kept : public QObject {
 public:
  Kept(QObject* owner, Connection connection) : QObject(owner), connection_(std::move(connection)) {}

 private:
  Connection connection_;
};

}  // namespace

void FieldHost::Beep() const {
  program.platform.ui.Beep();
}

void Follow(Control& control, QWidget* widget, const std::function<void()>& show) {
  // The guard is for the moment in which a widget goes: it may lose the focus while the connection, a child of it, is still there.
  const QPointer<QWidget> guard(widget);
  new Kept(widget, control.Repaint.Connect([guard, show] {
    if (guard) show();
  }));
  show();
}

bool TakesEnter(const QWidget* field) {
  return field && field->property(kTallField).toBool();
}

int FieldHeight(const QWidget& widget) {
  return widget.fontMetrics().height() + 10;
}

QPixmap WarningPicture(const Look& look, int size, double ratio) {
  const QIcon icon = look.Icon("error.ico");
  if (!icon.isNull()) return icon.pixmap(QSize(size, size), ratio);
  QPixmap picture(QSize(size, size) * ratio);
  picture.setDevicePixelRatio(ratio);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(size / 16.0, size / 16.0);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(0xC0, 0x28, 0x1E));
  painter.drawEllipse(QRectF(1, 1, 14, 14));
  painter.setPen(QPen(Qt::white, 2, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(QPointF(8, 4.5), QPointF(8, 8.7));
  painter.drawPoint(QPointF(8, 11.7));
  return picture;
}

void AttachMark(FieldHost& host, Control& control, QWidget* field, const std::function<void(int)>& room) {
  auto* mark = new Mark(host.look, field);
  Follow(control, mark, [&control, field, mark, room] {
    const bool shown = control.Warning();
    const QString tip = shown ? ToQt(control.warning_tip()) : ToQt(control.tool_tip());
    mark->setToolTip(tip);
    field->setToolTip(tip);
    field->setAccessibleDescription(tip);
    if (shown != mark->isHidden()) return;
    mark->Place();
    mark->setVisible(shown);
    room(shown ? kMarkSize + 2 : 0);
  });
}

QWidget* MakeFileList(FieldHost& host, MemoControl& control, QWidget* parent) {
  auto* list = new FileList(host, control, parent);
  Follow(control, list, [list] { list->Show(); });
  return list;
}

QWidget* MakeField(FieldHost& host, Control& control, unsigned flags, QWidget* parent) {
  switch (control.kind()) {
    case ControlKind::kTextBox: {
      auto& box = static_cast<TextBoxControl&>(control);
      return box.MultiLine ? MakeTextField(host, box, flags, parent) : MakeLineField(host, box, flags, parent);
    }
    case ControlKind::kCombo:
      return MakeListField(host, static_cast<ComboControl&>(control), parent);
    case ControlKind::kCalendar:
      return MakeDayField(host, static_cast<CalendarControl&>(control), parent);
    case ControlKind::kButton:
      return MakeButton(host, static_cast<ButtonControl&>(control), parent);
    case ControlKind::kCheckBox:
      return MakeBox<QCheckBox, CheckBoxControl>(
          host, static_cast<CheckBoxControl&>(control), parent, [](const CheckBoxControl& box) { return box.Checked(); },
          [](CheckBoxControl& box) { box.UserToggle(); });
    case ControlKind::kOptionBox:
      return MakeBox<QRadioButton, OptionBoxControl>(
          host, static_cast<OptionBoxControl&>(control), parent, [](const OptionBoxControl& box) { return box.Value(); },
          [](OptionBoxControl& box) {
            if (!box.Value()) box.UserSet("true");
          });
    case ControlKind::kMemo:
      return MakeFileList(host, static_cast<MemoControl&>(control), parent);
    case ControlKind::kLabel:
      return MakeLabel(host, static_cast<LabelControl&>(control), flags, parent);
    case ControlKind::kTable:
      return MakeTableField(host, static_cast<TableControl&>(control), parent);
    default:
      return nullptr;  // the scroll bars of tables are the window's own
  }
}

}  // namespace ostrinka
