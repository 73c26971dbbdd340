// The widgets that stand for the field controls: each shows the state of its model and hands on what the person does.
#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <map>

#include "controls/form.h"
#include "desktop/look.h"

class QKeyEvent;
class QLineEdit;

namespace ostrinka {

// What the fields of one window share.
struct FieldHost {
  Program& program;
  const Look& look;
  Form& form;
  // Raises what is still due of the field that was left; called before anything that a person does takes effect.
  std::function<void()> settle = [] {};
  // What the person is asked before a button does its work, by the button; a no leaves it undone.
  std::map<const ButtonControl*, std::function<bool()>> confirm = {};
  void Beep() const;
};

// The widget of a control, with `caption` for the captions that a control shows itself. Null for a kind without one.
QWidget* MakeField(FieldHost& host, Control& control, unsigned flags, QWidget* parent);

// Calls `show` now and whenever the control asks to be drawn, as long as `widget` stands.
void Follow(Control& control, QWidget* widget, const std::function<void()>& show);

// A box of several lines in which Enter makes a new line; in the low ones it goes to the next field, and Shift+Enter makes the line.
bool TakesEnter(const QWidget* field);

// Of one kind each; MakeField chooses.
QWidget* MakeLineField(FieldHost& host, TextBoxControl& control, unsigned flags, QWidget* parent);
QWidget* MakeTextField(FieldHost& host, TextBoxControl& control, unsigned flags, QWidget* parent);
QWidget* MakeListField(FieldHost& host, ComboControl& control, QWidget* parent);
QWidget* MakeDayField(FieldHost& host, CalendarControl& control, QWidget* parent);
QWidget* MakeTableField(FieldHost& host, TableControl& control, QWidget* parent);
QWidget* MakeFileList(FieldHost& host, MemoControl& control, QWidget* parent);

// The red mark of a doubtful entry, within the right end of `field`; `room` is told how many pixels it takes, 0 when it is away.
void AttachMark(FieldHost& host, Control& control, QWidget* field, const std::function<void(int)>& room);
QPixmap WarningPicture(const Look& look, int size, double ratio);

// The height of a field of one line, in the pixels of the layout.
int FieldHeight(const QWidget& widget);

// A line of text that no form knows takes only the letters that the tables can hold; any other is refused with `beep`.
void TakeLettersOfTables(QLineEdit& field, std::function<void()> beep);

inline constexpr const char* kTallField = "ostrinka_tall";  // property: takes Enter as a line end

}  // namespace ostrinka
