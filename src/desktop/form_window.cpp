#include "desktop/form_window.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QStackedWidget>
#include <QTabBar>
#include <algorithm>
#include <utility>

#include "app/program.h"
#include "desktop/form_window_parts.h"
#include "desktop/key_map.h"

namespace ostrinka {
namespace {

// The code by which a form is asked for a key; 0 for one that stands for a letter or for nothing, or that the window sees to itself.
int CodeOf(const QKeyEvent& event) {
  const int code = KeyCodeOf(event.key());
  return code == kKeyTab || code == kKeyEscape || code == kKeyBlank ? 0 : code;
}

// Keys that a field works with itself; the form is not asked for them.
bool FieldNeeds(const Control& control, const QWidget& field, const QKeyEvent& event) {
  const int key = event.key();
  const bool ctrl = event.modifiers().testFlag(Qt::ControlModifier), shift = event.modifiers().testFlag(Qt::ShiftModifier);
  const bool up_or_down = key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
  const bool ends = key == Qt::Key_Home || key == Qt::Key_End;
  const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
  switch (control.kind()) {
    case ControlKind::kTextBox: {
      const bool edits = ends || key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Delete || key == Qt::Key_Backspace ||
                         (key == Qt::Key_Insert && (ctrl || shift));
      if (!static_cast<const TextBoxControl&>(control).MultiLine) return edits;
      return edits || up_or_down || (enter && !ctrl && (shift || TakesEnter(&field)));
    }
    case ControlKind::kCombo:
      return up_or_down || ends || key == Qt::Key_Backspace || key == Qt::Key_F4;
    case ControlKind::kCalendar:
      return up_or_down || key == Qt::Key_F4;
    case ControlKind::kMemo:
      return up_or_down || ends;
    case ControlKind::kButton:
      return enter && !ctrl;
    default:
      return false;
  }
}

}  // namespace

// --- showing what the model says

void FormWindow::Parts::ShowState() {
  for (const Control* control : builder.order()) ShowControl(*control);
  ShowSections();
  ShowPage();
}

void FormWindow::Parts::ShowControl(const Control& control) {
  const auto found = builder.fields().find(&control);
  if (found != builder.fields().end()) {
    const BuiltField& built = found->second;
    const QPointer<QWidget> field = built.field;
    for (QWidget* widget : {static_cast<QWidget*>(built.caption), built.field}) {
      if (!widget) continue;
      if (widget->isHidden() == control.Visible()) widget->setVisible(control.Visible());
      if (widget->isEnabledTo(widget->parentWidget()) != control.Enabled()) widget->setEnabled(control.Enabled());
    }
  }
  for (const Section& section : builder.sections()) {
    const bool concerned =
        section.when == &control || std::find(section.controls.begin(), section.controls.end(), &control) != section.controls.end();
    if (concerned) return ShowSections();
  }
}

void FormWindow::Parts::ShowSections() {
  for (const Section& section : builder.sections()) {
    bool shown = !section.when || section.when->Value() == section.when_value;
    if (shown && !section.controls.empty()) {
      shown = std::any_of(section.controls.begin(), section.controls.end(), [](const Control* control) { return control->Visible(); });
    }
    if (section.widget->isHidden() == shown) section.widget->setVisible(shown);
  }
}

void FormWindow::Parts::ShowPage() {
  showing = true;
  const QString title = form.title().empty() ? host.look.Text(form.title_key()) : ToQt(form.title());
  window.setWindowTitle(title);
  strip->update();
  const auto& all = form.pages();
  for (size_t i = 0; i < all.size(); ++i) {
    const int index = static_cast<int>(i);
    if (tabs) tabs->setTabVisible(index, all[i].visible);
    if (all[i].key != form.page()) continue;
    if (tabs) tabs->setCurrentIndex(index);
    pages->setCurrentIndex(index);
  }
  if (steps) ShowSteps();
  showing = false;
}

void FormWindow::Parts::ShowSteps() {
  steps->Refresh();
  const int at = pages->currentIndex() + 1, count = pages->count();
  const QString caption = host.look.Text(form.pages()[static_cast<size_t>(at - 1)].caption_key);
  window.setWindowTitle(window.windowTitle() + ": " + caption);
  page_title->setText(caption);
  page_place->setText(ToQt(program.Text("common.step", {std::to_string(at), std::to_string(count)})));
  for (ButtonControl* button : {form.steps()->next, form.steps()->finish}) {
    QWidget* field = window.WidgetOf(*button);
    field->setProperty(kPrimaryButton, button == Marked(kDefault));
    field->update();
  }
}

QWidget* FormWindow::Parts::FirstField() const {
  QWidget* option = nullptr;  // first of a group of options; the chosen one goes before it
  for (const Control* control : builder.order()) {
    const BuiltField& built = builder.fields().at(control);
    if (!control->CanAct() || built.page != form.page() || built.field->focusPolicy() == Qt::NoFocus) continue;
    const auto* box = dynamic_cast<const OptionBoxControl*>(control);
    if (!box || box->Value()) return option && !box ? option : built.field;
    if (!option) option = built.field;
  }
  return option;
}

void FormWindow::Parts::MoveFocus() {
  const auto found = builder.fields().find(form.focus());
  if (found == builder.fields().end()) {
    if (QWidget* first = FirstField()) first->setFocus(Qt::TabFocusReason);
    return;
  }
  const BuiltField& built = found->second;
  if (!built.page.empty() && built.page != form.page()) form.ShowPage(built.page);
  built.field->setFocus(Qt::TabFocusReason);
}

// --- closing

bool FormWindow::Parts::CanClose() {
  Settle();
  if (entered) entered->UserLeave();
  if (!form.IsOpen() || !form.AsksBeforeClosing() || !form.Dirty()) return true;
  return program.Message(form.UnsavedKey(), MessageKind::kQuestion) == Answer::kYes;
}

void FormWindow::Parts::Finish() {
  if (closing) return;
  closing = true;
  style.ShowAccessKeys(false);
  left = entered = nullptr;
  KeepPlace();
  window.done(0);
}

// --- what the person does

void FormWindow::Parts::Settle() {
  if (Control* control = std::exchange(left, nullptr)) control->UserLeave();
}

ButtonControl* FormWindow::Parts::Marked(unsigned flag) const {
  if (const StepButtons* lead = form.steps(); lead && flag == kDefault) return lead->next->Enabled() ? lead->next : lead->finish;
  for (const FormButton& entry : form.buttons()) {
    if (entry.flags & flag) return entry.button;
  }
  return flag == kCancel ? form.FindButton("btnCancel") : nullptr;
}

bool FormWindow::Parts::OnEnter(Control* control, QWidget* field) {
  if (control && (control->kind() == ControlKind::kButton || control->kind() == ControlKind::kMemo)) return false;
  if (field && TakesEnter(field)) return false;
  ButtonControl* button = Marked(kDefault);
  const bool low_box = control && control->kind() == ControlKind::kTextBox && static_cast<TextBoxControl*>(control)->MultiLine;
  if (button && button->CanAct() && !low_box) {
    Press(*button, control);
  } else {
    window.focusNextChild();
  }
  return true;
}

// Of a button that does not take the focus away from `control`.
void FormWindow::Parts::Press(ButtonControl& button, Control* control) {
  Settle();
  if (control) control->UserLeave();
  button.UserPress();
}

void FormWindow::Parts::StepPage(int step) {
  const auto& all = form.pages();
  const int count = static_cast<int>(all.size());
  int at = pages->currentIndex();
  for (int i = 0; i < count; ++i) {
    at = (at + step + count) % count;
    if (all[static_cast<size_t>(at)].visible) break;
  }
  if (at == pages->currentIndex()) return;
  if (entered) entered->UserLeave();
  form.UserShowPage(all[static_cast<size_t>(at)].key);
  if (QWidget* first = FirstField()) first->setFocus(Qt::TabFocusReason);
}

void FormWindow::Parts::ShowAccessKeys(bool shown) {
  style.ShowAccessKeys(shown);
  for (QWidget* child : window.findChildren<QWidget*>()) child->update();
}

bool FormWindow::Parts::OnKey(QKeyEvent& event, Control* control, QWidget* field) {
  Settle();
  const int key = event.key(), code = CodeOf(event);
  if (key == Qt::Key_Alt) ShowAccessKeys(true);
  if (key == Qt::Key_Escape) {
    window.reject();
    return true;
  }
  const bool ctrl = event.modifiers().testFlag(Qt::ControlModifier), alt = event.modifiers().testFlag(Qt::AltModifier);
  const bool tab = key == Qt::Key_Tab || key == Qt::Key_Backtab;
  if (tabs && ctrl && (tab || key == Qt::Key_PageDown || key == Qt::Key_PageUp)) {
    StepPage(key == Qt::Key_Backtab || key == Qt::Key_PageUp ? -1 : 1);
    return true;
  }
  if (const StepButtons* lead = form.steps(); lead && alt && (key == Qt::Key_Left || key == Qt::Key_Right)) {
    if (!event.isAutoRepeat()) Press(key == Qt::Key_Left ? *lead->previous : *lead->next, control);
    return true;
  }
  if (code == 0 || alt) return false;
  const QPointer<Parts> guard(this);
  if (!control || !FieldNeeds(*control, *field, event)) {
    if (code == kKeyEnter && event.isAutoRepeat()) return true;  // a key held down confirms once
    if (form.UserKey(code, ctrl)) return true;
    if (!guard) return true;
  }
  if (code == kKeyEnter && !ctrl && !event.modifiers().testFlag(Qt::ShiftModifier)) return OnEnter(control, field);
  return false;
}

bool FormWindow::Parts::eventFilter(QObject* object, QEvent* event) {
  const auto found = controls.find(object);
  Control* control = found == controls.end() ? nullptr : found->second;
  switch (event->type()) {
    case QEvent::KeyPress: {
      if (!object->isWidgetType()) return false;
      return OnKey(static_cast<QKeyEvent&>(*event), control, static_cast<QWidget*>(object));
    }
    case QEvent::KeyRelease:
      if (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Alt) ShowAccessKeys(false);
      break;
    case QEvent::FocusIn: {
      static_cast<QWidget*>(object)->update();
      if (!control) break;
      if (left == control) left = nullptr;  // only a list or another window stood before it
      entered = control;
      control->UserEnter();
      break;
    }
    case QEvent::FocusOut: {
      static_cast<QWidget*>(object)->update();
      const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
      if (!control || closing || reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason) break;
      Settle();
      entered = nullptr;
      left = control;
      // Not at once: the handlers may open a box, and the click or key that took the focus away is still on its way.
      QMetaObject::invokeMethod(
          this, [this] { Settle(); }, Qt::QueuedConnection);
      break;
    }
    case QEvent::MouseButtonPress:
      if (control && control->kind() == ControlKind::kTextBox && control->CanAct()) control->Clicked.Raise();
      break;
    case QEvent::MouseButtonDblClick:
      if (control && control->kind() == ControlKind::kTextBox && control->CanAct()) control->DoubleClicked.Raise();
      break;
    default:
      break;
  }
  return false;
}

// --- the window

FormWindow::FormWindow(Program& program, const Look& look, Form& form, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint), parts_(std::make_unique<Parts>(*this, program, look, form)) {
  setModal(true);
  parts_->Build();
  parts_->Connect();
  parts_->ShowState();
  parts_->GiveAccessKeys();
  parts_->Size();
  setAccessibleName(windowTitle());
}

FormWindow::~FormWindow() {
  // The fields go before the parts that they call, and raise nothing any more.
  parts_->closing = true;
  parts_->left = parts_->entered = nullptr;
  qDeleteAll(findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly));
}

void FormWindow::Run() {
  parts_->host.look.WindowTransparency(*this);
  parts_->Start();
  if (parts_->form.IsOpen()) exec();
}

QWidget* FormWindow::WidgetOf(const Control& control) const {
  const auto found = parts_->builder.fields().find(&control);
  return found == parts_->builder.fields().end() ? nullptr : found->second.field;
}

void FormWindow::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  parts_->style.PaintGround(painter, rect(), false);
  painter.setPen(parts_->style.colours().strip_bottom);
  painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
  // What a field had already went through its filter.
  const QWidget* field = focusWidget();
  const bool asked = field && (field == parts_->tabs || parts_->controls.count(field) > 0);
  if (!asked && parts_->OnKey(*event, nullptr, nullptr)) return;
  QWidget::keyPressEvent(event);  // NOLINT(bugprone-parent-virtual-call): QDialog would close by Escape and press its own default button
}

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  reject();
}

void FormWindow::reject() {
  if (parts_->closing || !parts_->CanClose()) return;
  // The cancel button does what else belongs to leaving; a form without one just closes.
  ButtonControl* cancel = parts_->Marked(kCancel);
  const QPointer<FormWindow> guard(this);
  if (parts_->form.IsOpen() && cancel && cancel->CanAct()) cancel->UserPress();
  if (guard && parts_->form.IsOpen() && !parts_->closing) parts_->form.Close();
}

}  // namespace ostrinka
