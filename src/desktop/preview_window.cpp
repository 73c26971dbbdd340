#include "desktop/preview_window.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPointer>
#include <QScreen>
#include <algorithm>

#include "desktop/dialog_style.h"
#include "desktop/window_strip.h"

namespace ostrinka {
namespace {

constexpr int kFrame = 4, kToolbar = 40, kFoot = 28, kMaximised = 2;
constexpr QSize kLeast(640, 420), kUsual(900, 1000);
constexpr int kEdgeOfScreen = 16;  // that a window never placed leaves free

struct KeyRow {
  int key;
  const char* command;
};
constexpr KeyRow kCtrlKeys[] = {{Qt::Key_P, "PRINT"},      {Qt::Key_S, "MAKEPDF"},   {Qt::Key_0, "ZOOM.100"},
                                {Qt::Key_Minus, "ZOOM.-"}, {Qt::Key_Plus, "ZOOM.+"}, {Qt::Key_Equal, "ZOOM.+"}};

// The ground of the toolbar, as the ribbon's.
class Ground : public QWidget {
 public:
  Ground(const Look& look, QWidget* parent) : QWidget(parent), look_(look) {}

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    RibbonPainter paint(painter, look_);
    painter.fillRect(rect(), paint.colours().panel);
    paint.Hairline({0, height() - 1.0}, {static_cast<double>(width()), height() - 1.0}, paint.colours().panel_edge);
  }

 private:
  const Look& look_;
};

// The ground of the line at the bottom, as the main window's.
class Foot : public QWidget {
 public:
  Foot(const Look& look, QWidget* parent) : QWidget(parent), look_(look) {}

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    RibbonPainter paint(painter, look_);
    painter.fillRect(rect(), paint.colours().strip);
    paint.Part(rect(), isActiveWindow() ? "statusbar.std.02.bmp" : "statusbar.dis.02.bmp");
    paint.Hairline({0, 0}, {static_cast<double>(width()), 0}, paint.colours().title_edge);
  }

 private:
  const Look& look_;
};

// A line between two groups of tools.
class Divider : public QWidget {
 public:
  Divider(const Look& look, QWidget* parent) : QWidget(parent), look_(look) { setFixedSize(9, kToolbar - 14); }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    RibbonPainter paint(painter, look_);
    paint.Hairline({4, 0}, {4, static_cast<double>(height())}, paint.colours().panel_edge);
  }

 private:
  const Look& look_;
};

}  // namespace

PreviewWindow::PreviewWindow(const Look& look, frm_DocPreview& preview, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint | Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint),
      look_(look),
      preview_(preview),
      edges_(*this, kFrame),
      strip_(new WindowStrip(look, this, /*minimises=*/false)),
      sheets_(new SheetView(preview, look, this)) {
  DialogStyle::Install(look);
  setModal(true);
  setFont(look.WindowFont());
  setMinimumSize(kLeast);
  setMouseTracking(true);
  setWindowTitle(look.Text("prntpv.title"));
  setAccessibleName(windowTitle() + " " + ToQt(preview.subject));
  strip_->SetCompany(ToQt(preview.subject));
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kFrame, kFrame, kFrame, kFrame);
  column->setSpacing(0);
  column->addWidget(strip_);
  column->addWidget(MakeToolbar());
  column->addWidget(sheets_, 1);
  column->addWidget(MakeFoot());
  // The pointer of the edges is theirs alone.
  for (QWidget* part : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) part->setCursor(Qt::ArrowCursor);
  sheets_->moved = [this] { Refresh(); };
  sheets_->zoom_asked = [this](int steps) {
    for (; steps > 0; --steps) Command("ZOOM.+");
    for (; steps < 0; ++steps) Command("ZOOM.-");
  };
  repaint_ = preview.Repaint.Connect([this] {
    sheets_->ZoomChanged();
    Refresh();
  });
  closed_ = preview.Closed.Connect([this] { done(0); });
  sheets_->setFocus();
  Refresh();
}

QWidget* PreviewWindow::MakeToolbar() {
  auto* bar = new Ground(look_, this);
  bar->setFixedHeight(kToolbar);
  auto* line = new QHBoxLayout(bar);
  line->setContentsMargins(6, 0, 6, 1);
  line->setSpacing(2);
  for (const PreviewCommand& row : frm_DocPreview::Commands()) {
    if (row.key == "ZOOM.100") line->addWidget(new Divider(look_, bar));
    if (row.key == "CLOSE") line->addStretch(1);
    auto* button = new RibbonButton(look_, RibbonButton::Shape::kSmall, bar);
    const QString caption = look_.Text(row.caption_key);
    button->SetIconName(row.icon);
    button->SetCaptions({caption});
    button->Show(caption, true, false, true);
    button->setToolTip(look_.Text(row.tip_key));
    connect(button, &QAbstractButton::clicked, this, [this, key = row.key] { Command(key); });
    line->addWidget(button, 0, Qt::AlignVCenter);
    buttons_.emplace_back(row.key, button);
  }
  return bar;
}

QWidget* PreviewWindow::MakeFoot() {
  auto* foot = new Foot(look_, this);
  foot->setFixedHeight(kFoot);
  auto* line = new QHBoxLayout(foot);
  line->setContentsMargins(14, 0, 12, 0);
  line->setSpacing(24);
  const auto label = [&](SkinColour colour) {
    auto* made = new QLabel(foot);
    QPalette palette = made->palette();
    palette.setColor(QPalette::WindowText, look_.Colour(colour));
    made->setPalette(palette);
    made->setTextFormat(Qt::PlainText);
    return made;
  };
  line->addWidget(place_ = label(SkinColour::kTabText));
  line->addWidget(status_ = label(SkinColour::kMenuText), 1);
  line->addWidget(percent_ = label(SkinColour::kTabText));
  status_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  return foot;
}

RibbonButton* PreviewWindow::Button(std::string_view command) const {
  for (const auto& [key, button] : buttons_) {
    if (key == command) return button;
  }
  return nullptr;
}

void PreviewWindow::Refresh() {
  for (const auto& [key, button] : buttons_) {
    const bool enabled = preview_.Enabled(key);
    // A button at its end gives the focus to the sheets, not to the next button.
    if (!enabled && button->hasFocus()) sheets_->setFocus();
    button->setEnabled(enabled);
  }
  place_->setText(ToQt(preview_.PlaceText(sheets_->CurrentPage())));
  percent_->setText(ToQt(preview_.PercentText()));
}

void PreviewWindow::ShowStatus(const QString& text) {
  status_->setText(status_->fontMetrics().elidedText(text.trimmed(), Qt::ElideRight, status_->width()));
  status_->repaint();
}

void PreviewWindow::Command(std::string_view key) {
  if (key == "CLOSE") KeepPlace();
  ShowStatus({});
  preview_.UserCommand(key);
}

// --- where it stands

void PreviewWindow::Place() {
  const QScreen* screen = parentWidget() ? parentWidget()->screen() : QGuiApplication::primaryScreen();
  const auto& kept = preview_.placement;
  QRect frame;
  if (kept) {
    frame = QRectF(kept->left, kept->top, kept->width, kept->height).toRect();
    if (const QScreen* under = QGuiApplication::screenAt(frame.center())) screen = under;
  }
  const QRect room = screen->availableGeometry();
  if (!kept) {
    frame.setSize(kUsual.boundedTo(room.size() - QSize(2 * kEdgeOfScreen, 2 * kEdgeOfScreen)));
    frame.moveCenter(parentWidget() ? parentWidget()->window()->geometry().center() : room.center());
  }
  frame.setSize(frame.size().boundedTo(room.size()).expandedTo(minimumSize()));
  frame.moveLeft(std::clamp(frame.left(), room.left(), std::max(room.left(), room.right() + 1 - frame.width())));
  frame.moveTop(std::clamp(frame.top(), room.top(), std::max(room.top(), room.bottom() + 1 - frame.height())));
  setGeometry(frame);
  if (kept && kept->state == kMaximised) setWindowState(Qt::WindowMaximized);
}

void PreviewWindow::KeepPlace() {
  const QRect area = isMaximized() && normalGeometry().isValid() ? normalGeometry() : geometry();
  preview_.placement = {static_cast<float>(area.left()), static_cast<float>(area.top()), static_cast<float>(area.width()),
                        static_cast<float>(area.height()), isMaximized() ? kMaximised : 0};
}

void PreviewWindow::Run() {
  look_.WindowTransparency(*this);
  Place();
  if (preview_.IsOpen()) exec();
}

// --- events

void PreviewWindow::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if (event->modifiers() & Qt::ControlModifier) {
    for (const KeyRow& row : kCtrlKeys) {
      if (row.key != key) continue;
      // A key held down prints once.
      if (!event->isAutoRepeat() || std::string_view(row.command).starts_with("ZOOM")) Command(row.command);
      return;
    }
    if (key == Qt::Key_PageDown || key == Qt::Key_PageUp) return sheets_->StepPage(key == Qt::Key_PageDown ? 1 : -1);
  }
  if (event->modifiers() & Qt::AltModifier) return QDialog::keyPressEvent(event);
  const bool shift = event->modifiers() & Qt::ShiftModifier;
  if (sheets_->ScrollByKey(key != Qt::Key_Space ? key : shift ? Qt::Key_PageUp : Qt::Key_PageDown)) return;
  QDialog::keyPressEvent(event);
}

void PreviewWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  Command("CLOSE");
}

void PreviewWindow::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::WindowStateChange && layout()) {
    const int frame = isMaximized() ? 0 : kFrame;
    layout()->setContentsMargins(frame, frame, frame, frame);
    strip_->Refresh();
  }
  if (event->type() != QEvent::ActivationChange) return;
  for (QWidget* part : findChildren<QWidget*>()) part->update();
  update();
}

void PreviewWindow::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  RibbonPainter paint(painter, look_);
  const FrameColours& colours = paint.colours();
  painter.fillRect(rect(), colours.title);
  paint.Part(QRectF(0, 0, width(), strip_->geometry().bottom() + 1), isActiveWindow() ? "title.std.04.bmp" : "title.dis.04.bmp");
  if (isMaximized()) return;
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setPen(isActiveWindow() ? MixOf(colours.title_edge, look_.Accent(), 0.35) : colours.title_edge);
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace ostrinka
