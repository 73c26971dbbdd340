#include "desktop/message_window.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include "desktop/dialog_style.h"
#include "desktop/title_strip.h"

namespace ostrinka {
namespace {

constexpr int kPicture = 36, kMargin = 20, kNarrowest = 340, kWidestText = 460;

struct Kind {
  MessageKind kind;
  const char* title_key;
  const char* icon;
  QRgb colour;
};
constexpr Kind kKinds[] = {
    {MessageKind::kPlain, "common.title", "", 0},
    {MessageKind::kError, "common.title.error", "msg.error.ico", 0xFFC0281E},
    {MessageKind::kWarning, "common.title.warning", "msg.warning.ico", 0xFFD98A00},
    {MessageKind::kQuestion, "common.title.question", "msg.warning.ico", 0xFFD98A00},
    {MessageKind::kInformation, "common.title.info", "msg.info.ico", 0xFF1F6FD0},
};

const Kind& RowOf(MessageKind kind) {
  for (const Kind& row : kKinds) {
    if (row.kind == kind) return row;
  }
  return kKinds[0];
}

// The text area of a box with the ground that its labels stand on.
class Body : public QWidget {
 public:
  Body(const Look& look, QWidget* parent) : QWidget(parent), look_(look) {}

 protected:
  void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(rect(), DialogStyle::Of(look_).colours().card); }

 private:
  const Look& look_;
};

}  // namespace

QPixmap MessagePicture(const Look& look, MessageKind kind, int size, double ratio) {
  const Kind& row = RowOf(kind);
  if (row.colour == 0) return {};
  const QIcon icon = look.Icon(row.icon);
  if (!icon.isNull()) return icon.pixmap(QSize(size, size), ratio);
  QPixmap picture(QSize(size, size) * ratio);
  picture.setDevicePixelRatio(ratio);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(size / 36.0, size / 36.0);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(row.colour));
  const QPen stroke(Qt::white, 3.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
  if (kind == MessageKind::kWarning || kind == MessageKind::kQuestion) {
    QPainterPath sign;
    sign.moveTo(18, 3);
    sign.lineTo(34, 32);
    sign.lineTo(2, 32);
    sign.closeSubpath();
    painter.setPen(QPen(QColor(row.colour), 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(sign);
    painter.setPen(stroke);
    painter.drawLine(QPointF(18, 13), QPointF(18, 21));
    painter.drawPoint(QPointF(18, 27));
    return picture;
  }
  painter.drawEllipse(QRectF(1, 1, 34, 34));
  painter.setPen(stroke);
  painter.setBrush(Qt::NoBrush);
  if (kind == MessageKind::kError) {
    painter.drawLine(QPointF(12, 12), QPointF(24, 24));
    painter.drawLine(QPointF(24, 12), QPointF(12, 24));
  } else {
    painter.drawPoint(QPointF(18, 10.5));
    painter.drawLine(QPointF(18, 17), QPointF(18, 26));
  }
  return picture;
}

MessageWindow::MessageWindow(const Look& look, const QString& text, MessageKind kind, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint),
      look_(look),
      answer_(kind == MessageKind::kQuestion ? Answer::kNo : Answer::kOk) {
  const DialogStyle& style = DialogStyle::Install(look);
  setModal(true);
  setFont(look.WindowFont());
  setPalette(style.Palette());
  setWindowTitle(look.Text(RowOf(kind).title_key));
  setAccessibleName(windowTitle());
  setAccessibleDescription(text);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(1, 1, 1, 1);
  column->setSpacing(0);
  column->addWidget(new TitleStrip(look, this, [this] { reject(); }));
  auto* body = new Body(look, this);
  auto* row = new QHBoxLayout(body);
  row->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  row->setSpacing(kMargin - 4);
  const QPixmap picture = MessagePicture(look, kind, kPicture, devicePixelRatioF());
  if (!picture.isNull()) {
    auto* icon = new QLabel(body);
    icon->setPixmap(picture);
    row->addWidget(icon, 0, Qt::AlignTop);
  }
  auto* words = new QLabel(text, body);
  words->setTextFormat(Qt::PlainText);
  words->setWordWrap(true);
  words->setMinimumHeight(picture.isNull() ? 0 : kPicture);
  words->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  words->setTextInteractionFlags(Qt::TextSelectableByMouse);
  words->setFocusPolicy(Qt::NoFocus);
  const int natural = words->fontMetrics().boundingRect(QRect(0, 0, 4000, 4000), Qt::TextExpandTabs, text).width() + 6;
  words->setFixedWidth(std::clamp(natural, kNarrowest - 2 * kMargin - kPicture, kWidestText));
  row->addWidget(words, 1);
  column->addWidget(body, 1);
  buttons_ = new QHBoxLayout;
  buttons_->setContentsMargins(kMargin, 12, 12, 12);
  buttons_->setSpacing(8);
  buttons_->addStretch(1);
  column->addLayout(buttons_);
  if (kind == MessageKind::kQuestion) {
    AddButton("common.yes", Answer::kYes, true);
    AddButton("common.no", Answer::kNo, false);
  } else {
    AddButton("common.ok", Answer::kOk, true);
  }
  layout()->setSizeConstraint(QLayout::SetFixedSize);
}

void MessageWindow::AddButton(const char* caption_key, Answer answer, bool primary) {
  QString caption = look_.Text(caption_key);
  if (!caption.contains('&')) caption.prepend('&');
  auto* button = new QPushButton(caption, this);
  button->setProperty(kBarButton, true);
  button->setProperty(kPrimaryButton, primary);
  button->setAutoDefault(true);
  button->setAccessibleName(look_.Text(caption_key));
  connect(button, &QPushButton::clicked, this, [this, answer] {
    answer_ = answer;
    accept();
  });
  buttons_->addWidget(button);
  if (primary) button->setFocus();
}

void MessageWindow::keyPressEvent(QKeyEvent* event) {
  // The letters that begin the captions answer without Alt.
  for (QPushButton* button : findChildren<QPushButton*>()) {
    const QString caption = button->text().remove('&');
    if (!event->text().isEmpty() && caption.startsWith(event->text(), Qt::CaseInsensitive)) return button->click();
    const bool side = event->key() == Qt::Key_Left || event->key() == Qt::Key_Right;
    if (side && !button->hasFocus()) return button->setFocus(Qt::TabFocusReason);
  }
  QDialog::keyPressEvent(event);
}

void MessageWindow::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const DialogStyle& style = DialogStyle::Of(look_);
  style.PaintGround(painter, rect(), true);
  painter.setPen(style.colours().strip_bottom);
  painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
}

Answer MessageWindow::Run() {
  adjustSize();
  const QScreen* screen = parentWidget() ? parentWidget()->screen() : QGuiApplication::primaryScreen();
  const QRect room = screen->availableGeometry(), over = parentWidget() ? parentWidget()->window()->geometry() : room;
  QPoint at = over.center() - rect().center();
  at.setX(std::clamp(at.x(), room.left(), std::max(room.left(), room.right() - width())));
  at.setY(std::clamp(at.y(), room.top(), std::max(room.top(), room.bottom() - height())));
  move(at);
  look_.WindowTransparency(*this);
  exec();
  return answer_;
}

}  // namespace ostrinka
