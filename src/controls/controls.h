// The field controls of the dialogs as plain models: state and events, no painting.
//
// A person's actions come through the User... operations, which refuse a disabled or hidden control and raise the events. What the program
// writes itself (SetText, SetChecked, ...) raises none. Repaint() tells a window that shows the control to draw it anew.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/date.h"
#include "controls/event.h"
#include "platform/canvas.h"

namespace ostrinka {

class Form;

enum class ControlKind { kTextBox, kCombo, kCalendar, kButton, kCheckBox, kOptionBox, kScrollBox, kMemo, kLabel, kTabs, kTable };

class Control {
 public:
  explicit Control(ControlKind kind) : kind_(kind) {}
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  ControlKind kind() const { return kind_; }
  const std::string& name() const { return name_; }
  Form* form() const { return form_; }
  bool Enabled() const { return enabled_; }
  bool Visible() const { return visible_; }
  bool Warning() const { return warning_; }
  void SetEnabled(bool enabled);
  void SetVisible(bool visible);
  // The red mark beside a doubtful entry; `tip` is its text.
  void SetWarning(bool warning, std::string tip = {});
  const std::string& warning_tip() const { return warning_tip_; }
  void SetToolTip(std::string tip) { tool_tip_ = std::move(tip); }
  const std::string& tool_tip() const { return tool_tip_; }
  bool CanAct() const { return enabled_ && visible_; }

  // Raised by the person: after a change of the value; when the focus is lost; by a click or a press; by a double click.
  Event Changed, Left, Clicked, DoubleClicked;
  // Raised by any change of state, for the window that shows the control.
  Event Repaint;

  // The value as a text, as a script reads it.
  virtual std::string ShownText() const { return {}; }
  // What a script's `set` does between entering and leaving: changes the value as a person would, once. False when it does not take it.
  virtual bool UserSet(const std::string& value) {
    (void)value;
    return false;
  }
  // The focus comes to the control: the form knows it by its focus(). False when it cannot.
  bool UserEnter();
  void UserLeave();
  // Whether the person changed the value since the control was left last, be it to the value it had: what a rule of leaving asks that must
  // not touch a field which was only passed over.
  bool Edited() const { return edited_; }

 protected:
  friend class Form;
  // What every change by a person ends with: the form counts as changed, the window draws, the rules run.
  void ChangedByUser();
  std::string name_;
  Form* form_ = nullptr;

 private:
  ControlKind kind_;
  bool enabled_ = true, visible_ = true, warning_ = false, edited_ = false;
  std::string warning_tip_, tool_tip_;
};

class TextBoxControl : public Control {
 public:
  TextBoxControl() : Control(ControlKind::kTextBox) {}
  const std::string& Text() const { return text_; }
  // Written by the program: taken as it is, whatever its length.
  void SetText(std::string text);
  bool MultiLine = false;
  char32_t PasswordChar = 0;
  // Characters a person may type; a single-line box takes at most 256 whatever this says. 0 is no limit of the field.
  size_t Limit = 0;
  // Set for a moment by a form to draw attention to the field; 0 leaves the ground to the skin.
  int BackColorIndex = 0;
  bool SelectAllOnEntry = false;

  std::string ShownText() const override { return text_; }
  // Whether a person may put `text` in: every letter stands in Windows-1250, no control character but a line end in a multi-line box, and
  // the length is within the limit or does not grow.
  bool Takes(std::string_view text) const;
  bool UserSet(const std::string& value) override;

 private:
  std::string text_;
};

class ComboControl : public Control {
 public:
  ComboControl() : Control(ControlKind::kCombo) {}
  void AddItem(std::string text, int32_t value);
  void Clear();
  // Ordered by the folded text; numeric texts stay first, in the order of their numbers.
  void Sort();
  int ListCount() const { return static_cast<int>(items_.size()); }
  const std::string& List(int index) const { return items_[static_cast<size_t>(index)].first; }
  int32_t ListValue(int index) const { return items_[static_cast<size_t>(index)].second; }
  int ListIndex() const { return index_; }  // from 0; -1 none
  void SetListIndex(int index);             // out of range is none
  int FindIdByValue(int32_t value) const;   // -1 when absent
  // Selects by value or by exact text; none selected when absent. False then.
  bool SelectValue(int32_t value);
  bool SelectText(std::string_view text);
  // The value of the selected item, 0 when none.
  int32_t Value() const { return index_ < 0 ? 0 : ListValue(index_); }
  const std::string& Text() const;

  std::string ShownText() const override { return Text(); }
  // A list's entry by its text, or "#K" by its value.
  bool UserSet(const std::string& value) override;
  bool UserSelect(int index);

 private:
  std::vector<std::pair<std::string, int32_t>> items_;
  int index_ = -1;
};

class CalendarControl : public Control {
 public:
  CalendarControl() : Control(ControlKind::kCalendar) {}
  Date CurrentDate() const { return date_; }
  void SetCurrentDate(Date date);
  std::string format = "dd-mm-yyyy";  // of the closed field
  std::string ShownText() const override;
  bool UserSet(const std::string& value) override;  // yyyy-mm-dd
  bool UserPick(Date date);

 private:
  Date date_;
};

class ButtonControl : public Control {
 public:
  ButtonControl() : Control(ControlKind::kButton) {}
  std::string caption_key;  // catalogue key
  std::string icon;         // file name in the folder of icons
  bool UserPress();
};

// Value of a check box or of one option of a group.
class CheckBoxControl : public Control {
 public:
  CheckBoxControl() : Control(ControlKind::kCheckBox) {}
  bool Checked() const { return checked_; }
  void SetChecked(bool checked);
  std::string caption_key;
  std::string ShownText() const override { return checked_ ? "true" : "false"; }
  bool UserSet(const std::string& value) override;  // "true" or "false"
  bool UserToggle();

 private:
  bool checked_ = false;
};

// One of a group of which a single one is set: the others of the group are cleared by SetValue(true) and by the person.
class OptionBoxControl : public Control {
 public:
  OptionBoxControl() : Control(ControlKind::kOptionBox) {}
  bool Value() const { return value_; }
  void SetValue(bool value);
  void JoinGroup(std::vector<OptionBoxControl*> others) { others_ = std::move(others); }
  std::string caption_key;
  std::string ShownText() const override { return value_ ? "true" : "false"; }
  bool UserSet(const std::string& value) override;  // "true" only

 private:
  bool value_ = false;
  std::vector<OptionBoxControl*> others_;
};

class ScrollBoxControl : public Control {
 public:
  ScrollBoxControl() : Control(ControlKind::kScrollBox) {}
  int ScrollMax() const { return max_; }
  int ScrollCurrent() const { return current_; }
  void SetScrollMax(int max);
  void SetScrollCurrent(int current);  // held within 0 and the maximum
  bool HorizontalScroll = false;
  bool UserScroll(int current);

 private:
  int max_ = 0, current_ = 0;
};

// A list of attachments.
class MemoControl : public Control {
 public:
  MemoControl() : Control(ControlKind::kMemo) {}
  struct Item {
    std::string name;
    int32_t file_id;
    bool operator==(const Item&) const = default;
  };
  void Clear();
  void AddMemoItem(std::string name, int32_t file_id);
  // Puts these entries in the place of the ones before. The selected entry stays so, unless another one has come beside it: then that one.
  // Where the selected one is gone, the next is selected, or the last; a list that shared none with these starts on its first.
  void Refill(std::vector<Item> items);
  const std::vector<Item>& items() const { return items_; }
  int32_t GetCurrentFileID_() const;  // 0 when none is selected
  int selected() const { return selected_; }
  bool UserSelect(int index);
  std::string ShownText() const override;  // names joined by "; "

 private:
  std::vector<Item> items_;
  int selected_ = -1;
};

class LabelControl : public Control {
 public:
  LabelControl() : Control(ControlKind::kLabel) {}
  std::string caption_key;  // a fixed text of the catalogue, or empty
  const std::string& Text() const { return text_; }
  void SetText(std::string text);
  std::string ShownText() const override { return text_; }

 private:
  std::string text_;
};

// The table on a form: whoever fills it hands in this face of it. Rows count from 1 within the selection, columns from 1.
class TableSource {
 public:
  virtual ~TableSource() = default;
  virtual int Rows() = 0;
  virtual int Columns() = 0;
  virtual std::string CellText(int row, int column) = 0;
  virtual int CurrentRow() = 0;  // 0 when none
  virtual void SelectRow(int row) = 0;
  // Draws from `first_row` and answers later hit tests for this surface. `widths` are those of this drawing, by the columns, in place of
  // the kept ones; empty for these.
  virtual void Draw(Canvas& canvas, int first_row, int first_column, double zoom, const std::vector<int>& widths) = 0;
  // The cell under a point of the last drawing; false when none.
  virtual bool HitTest(double x, double y, int& row, int& column) = 0;
  virtual int ColumnWidthOf(int column) = 0;  // as it is kept
  virtual void SetColumnWidthOf(int column, int width) = 0;
  virtual std::string HeadingOf(int column) = 0;
};

class TableControl : public Control {
 public:
  TableControl() : Control(ControlKind::kTable) {}
  TableSource* source = nullptr;  // not owned; null shows an empty table
  int clicked_column() const { return clicked_column_; }
  int clicked_row() const { return clicked_row_; }
  // Row and column from 1; false when out of range. A click selects the row, then raises Clicked.
  bool UserClick(int row, int column);
  bool UserDoubleClick(int row);

 private:
  int clicked_row_ = 0, clicked_column_ = 0;
};

}  // namespace ostrinka
