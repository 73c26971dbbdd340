#include "desktop/main_window_view.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QKeyEvent>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>

#include "app/program.h"
#include "desktop/dialog_style.h"
#include "desktop/key_map.h"

namespace ostrinka {
namespace {

constexpr int kFrame = 4, kLeastWidth = 1024, kLeastHeight = 640;
constexpr int kNormal = 0, kMaximised = 2, kNeverPlaced = 4;  // states of a window's place

}  // namespace

MainWindowView::MainWindowView(Program& program, MainWindow& window, const Look& look)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint | Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint),
      program_(program),
      window_(window),
      look_(look),
      edges_(*this, kFrame),
      title_(new WindowStrip(look, this)),
      ribbon_(new RibbonView(program, window, look, this)),
      list_(new ListView(program, window, look, this)),
      status_(new StatusBar(window, look, this)),
      tips_(new KeyTipLayer(look, this)) {
  setWindowTitle(look_.Text("common.title"));
  setFont(look_.WindowFont());
  setMinimumSize(kLeastWidth, kLeastHeight);
  setMouseTracking(true);
  auto* column = new QVBoxLayout(this);
  column->setSpacing(0);
  column->setContentsMargins(kFrame, kFrame, kFrame, kFrame);
  column->addWidget(title_);
  column->addWidget(ribbon_);
  column->addWidget(list_, 1);
  column->addWidget(status_);
  list_->show_menu = [this](const QPoint& at) { ribbon_->OpenTabMenu(at); };
  list_->setFocus();
  qApp->installEventFilter(this);
}

MainWindowView::~MainWindowView() {
  qApp->removeEventFilter(this);
}

void MainWindowView::ShowInPlace() {
  if (isVisible()) {
    Refresh();
    return;
  }
  const WindowPlacement& place = window_.placement;
  const QScreen* screen = QGuiApplication::primaryScreen();
  const QRect area = screen ? screen->availableGeometry() : QRect(0, 0, kLeastWidth, kLeastHeight);
  QRect frame(static_cast<int>(place.left), static_cast<int>(place.top), static_cast<int>(place.width), static_cast<int>(place.height));
  frame.setSize(frame.size().expandedTo(minimumSize()).boundedTo(area.size().expandedTo(minimumSize())));
  const QScreen* under = QGuiApplication::screenAt(frame.center());
  if (place.state == kNeverPlaced || !under) frame.moveCenter(area.center());
  if (frame.top() < area.top()) frame.moveTop(area.top());
  setGeometry(frame);
  look_.WindowTransparency(*this);
  if (place.state == kMaximised) {
    showMaximized();
  } else {
    show();
  }
  list_->setFocus();
  Refresh();
}

void MainWindowView::Refresh() {
  title_->SetCompany(program_.database_open ? ToQt(program_.company.S_NAZWA) : QString());
  ribbon_->Refresh();
  list_->Refresh();
  ClassQDBASE* table = program_.database_open ? window_.ViewTable() : nullptr;
  status_->Refresh(list_->CurrentRow(), table ? table->MAX_ROWS() : -1);
  if (window_.ribbon.AltState() && tips_->isVisible()) tips_->Show(ribbon_->KeyTips());
}

void MainWindowView::LookChanged() {
  DialogStyle::Install(look_);
  list_->LookChanged();
  ribbon_->LookChanged();
  for (QWidget* widget : QApplication::allWidgets()) {
    if (widget == this || qobject_cast<QDialog*>(widget)) look_.WindowTransparency(*widget);
    widget->update();
  }
}

void MainWindowView::Tick() {
  KeepPlace();
}

void MainWindowView::KeepPlace() {
  if (!isVisible() || isMinimized()) return;
  WindowPlacement& place = window_.placement;
  place.state = isMaximized() ? kMaximised : kNormal;
  const QRect area = isMaximized() && normalGeometry().isValid() ? normalGeometry() : geometry();
  place.left = static_cast<float>(area.left());
  place.top = static_cast<float>(area.top());
  place.width = static_cast<float>(area.width());
  place.height = static_cast<float>(area.height());
}

void MainWindowView::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (!InFront()) return;
  KeepPlace();
  window_.UserCommand("EXIT");
}

void MainWindowView::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::WindowStateChange) {
    const int frame = isMaximized() || isFullScreen() ? 0 : kFrame;
    layout()->setContentsMargins(frame, frame, frame, frame);
    title_->Refresh();
  }
  if (event->type() != QEvent::ActivationChange) return;
  title_->Refresh();
  update();
  ribbon_->update();
  status_->update();
  if (!isActiveWindow()) {
    alt_pressed_ = false;
    if (!QApplication::activePopupWidget()) EnterAltState(false);
    return;
  }
  // Another workstation may have changed the table meanwhile.
  ClassQDBASE* table = program_.database_open && InFront() ? window_.ViewTable() : nullptr;
  if (table && table->TABLE_REFRESH()) window_.ref_();
}

void MainWindowView::resizeEvent(QResizeEvent*) {
  if (tips_->isVisible()) tips_->Show(ribbon_->KeyTips());
}

void MainWindowView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  RibbonPainter paint(painter, look_);
  const FrameColours& colours = paint.colours();
  painter.fillRect(rect(), colours.title);
  // The ground of the strip reaches to the edges of the window.
  paint.Part(QRectF(0, 0, width(), title_->geometry().bottom() + 1), isActiveWindow() ? "title.std.04.bmp" : "title.dis.04.bmp");
  const std::string border = isActiveWindow() ? "border.std." : "border.dis.";
  const double top = title_->geometry().bottom() + 1, side = height() - top - kFrame;
  if (!isMaximized()) {
    paint.Part({0, top, kFrame, side}, border + "01.bmp");
    paint.Part({width() - double{kFrame}, top, kFrame, side}, border + "02.bmp");
    paint.Part({0, height() - double{kFrame}, kFrame, kFrame}, border + "03.bmp");
    paint.Part({kFrame, height() - double{kFrame}, width() - 2.0 * kFrame, kFrame}, border + "04.bmp");
    paint.Part({width() - double{kFrame}, height() - double{kFrame}, kFrame, kFrame}, border + "05.bmp");
  }
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setPen(isActiveWindow() ? MixOf(colours.title_edge, look_.Accent(), 0.35) : colours.title_edge);
  if (!isMaximized()) painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

bool MainWindowView::InFront() const {
  return isVisible() && !QApplication::activeModalWidget() && !QApplication::activePopupWidget();
}

// Keys that act wherever the focus is in the window.
bool MainWindowView::WindowKey(const QKeyEvent& event) {
  const int key = event.key();
  if (event.modifiers() & Qt::ControlModifier) {
    if (key == Qt::Key_Plus || key == Qt::Key_Equal) return window_.Zoom(window_.list.zoom() + 0.1), true;
    if (key == Qt::Key_Minus) return window_.Zoom(window_.list.zoom() - 0.1), true;
    if (key == Qt::Key_0) return window_.Zoom(1), true;
    if (key == Qt::Key_F && ribbon_->FindField()) return ribbon_->FindField()->setFocus(Qt::ShortcutFocusReason), true;
    return false;
  }
  if (event.modifiers() & (Qt::AltModifier | Qt::ShiftModifier)) return false;
  if (key == Qt::Key_F1 || (key >= Qt::Key_F5 && key <= Qt::Key_F10)) return window_.UserKey(KeyCodeOf(key)), true;
  return false;
}

void MainWindowView::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && !list_->hasFocus()) {
    list_->setFocus();
  } else if (!WindowKey(*event)) {
    QWidget::keyPressEvent(event);
  }
}

void MainWindowView::EnterAltState(bool on) {
  alt_letters_.clear();
  if (window_.ribbon.AltState() != on) window_.ribbon.AltState(on);
  if (on) {
    tips_->Show(ribbon_->KeyTips());
  } else {
    tips_->Hide();
  }
}

// A key in the Alt state: the letters that the program takes itself first, then those of the key tips; anything else ends the state.
void MainWindowView::AltKey(const QKeyEvent& event) {
  if (event.key() == Qt::Key_Shift || event.key() == Qt::Key_Alt) return;
  const QString letters = alt_letters_ + event.text().toUpper();
  if (event.key() == Qt::Key_Escape || letters == alt_letters_) {
    EnterAltState(false);
    return;
  }
  constexpr std::string_view kTaken = "FSZKTUP";
  const bool shift = event.modifiers() & Qt::ShiftModifier;
  bool begins = false;
  const KeyTip* found = tips_->Find(letters, begins);
  const bool tab = found && letters[0].isDigit();
  if (alt_letters_.isEmpty() && !shift && letters.size() == 1 && kTaken.find(letters[0].toLatin1()) != std::string_view::npos) {
    tips_->Hide();
    window_.UserKey(letters[0].unicode());  // ends the state
    return;
  }
  if (found) {
    const KeyTip tip = *found;
    const bool usable = tip.widget->isEnabled();
    if (!tab) EnterAltState(false);
    if (usable)
      (shift && tip.drop ? tip.drop : tip.run)();
    else
      program_.platform.ui.Beep();
    if (tab) EnterAltState(true);
  } else if (begins) {
    alt_letters_ = letters;
  } else {
    program_.platform.ui.Beep();
    EnterAltState(false);
  }
}

bool MainWindowView::eventFilter(QObject* object, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::MouseButtonPress:
    case QEvent::Wheel:
      break;
    default:
      return false;
  }
  const auto* widget = object->isWidgetType() ? static_cast<QWidget*>(object) : nullptr;
  if (!widget || widget->window() != this || !InFront()) return false;
  const bool alt = window_.ribbon.AltState();
  if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::Wheel) {
    alt_pressed_ = false;
    if (alt) EnterAltState(false);
    return false;
  }
  const auto* key = static_cast<QKeyEvent*>(event);
  if (event->type() == QEvent::ShortcutOverride) return false;
  if (event->type() == QEvent::KeyPress) {
    if (key->key() == Qt::Key_Alt) {
      alt_pressed_ = !(key->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier | Qt::MetaModifier));
      return true;
    }
    alt_pressed_ = false;
    if (!alt) return false;
    AltKey(*key);
    return true;
  }
  if (key->key() == Qt::Key_Alt && alt_pressed_ && !key->isAutoRepeat()) {
    alt_pressed_ = false;
    EnterAltState(!alt);
    return true;
  }
  return alt;
}

}  // namespace ostrinka
