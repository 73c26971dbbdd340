// A dialog as a model: its controls by name, its layout as data, its life.
//
// A form's constructor registers every control with the name that the system knows it by, declares pages, rows and buttons, and connects
// the rules to the controls' events. A renderer turns any form into a window; a script drives it by the names.
#pragma once

#include <array>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "controls/controls.h"
#include "controls/key_codes.h"
#include "platform/user_interface.h"

namespace ostrinka {

// Flags of a cell in the layout.
enum CellFlags : unsigned {
  kPlain = 0,
  kStretch = 1,   // takes the free height of the page
  kCollapse = 2,  // its row takes no room while the control is hidden
  kStrong = 4,    // bold
  kRight = 8,     // right-aligned content
  kInline = 16,   // caption before the field instead of above it
  kTall = 32,     // a text box of several lines, in which Enter makes a new one
};

struct Cell {
  std::string caption_key;  // "" for none; a check box, option box or button shows its own caption
  Control* control;         // null leaves a gap
  int span = 12;            // of the 12 columns
  unsigned flags = kPlain;
  Cell(std::string key, Control& field, int columns = 12, unsigned bits = kPlain)
      : caption_key(std::move(key)), control(&field), span(columns), flags(bits) {}
  explicit Cell(int gap) : control(nullptr), span(gap) {}  // a gap of so many columns
};

class GroupLayout;

// One element of a page, drawn from top to bottom.
struct LayoutItem {
  enum class Kind { kRow, kSide, kMatrix, kTable, kFiles, kInfo } kind = Kind::kRow;
  std::vector<Cell> cells;                     // kRow; kFiles: the list and its buttons
  std::vector<GroupLayout> groups;             // kSide: groups side by side; a single group stands alone
  std::vector<std::string> heads;              // kMatrix: column captions
  std::vector<std::vector<Control*>> columns;  // kMatrix: control arrays, one a column
  std::vector<std::string> row_captions;       // kMatrix: caption keys of the rows, may be empty
  Control* table = nullptr;                    // kTable: a TableControl; its scroll bar is the window's own
  std::string text_key;                        // kInfo: a paragraph of explanation; kFiles: the caption
  unsigned flags = kPlain;
  const ComboControl* when = nullptr;  // shown only while this list has the value below
  int32_t when_value = 0;
};

// A framed group, or the whole of a page.
class GroupLayout {
 public:
  GroupLayout() = default;
  explicit GroupLayout(std::string caption_key, int span = 12) : caption_key_(std::move(caption_key)), span_(span) {}

  GroupLayout& Row(std::vector<Cell> cells);
  GroupLayout& Side(std::vector<GroupLayout> groups);
  GroupLayout& Matrix(std::vector<std::string> heads, std::vector<std::vector<Control*>> columns,
                      std::vector<std::string> row_captions = {});
  GroupLayout& Table(TableControl& table, unsigned flags = kStretch);
  GroupLayout& Files(MemoControl& list, ButtonControl& add, ButtonControl& remove, ButtonControl& open, std::string caption_key = {});
  GroupLayout& Info(std::string text_key);
  // What is added after this shows only while `list` has `value`; When(list, value) again changes it, Always() ends it.
  GroupLayout& When(const ComboControl& list, int32_t value);
  GroupLayout& Always();

  const std::string& caption_key() const { return caption_key_; }
  int span() const { return span_; }
  const std::vector<LayoutItem>& items() const { return items_; }

 private:
  LayoutItem& Add(LayoutItem::Kind kind);
  std::string caption_key_;
  int span_ = 12;
  std::vector<LayoutItem> items_;
  const ComboControl* when_ = nullptr;
  int32_t when_value_ = 0;
};

struct PageLayout {
  std::string key;          // as the form knows it: "STD"
  std::string caption_key;  // catalogue key of the tab
  GroupLayout content;
  bool visible = true;
  bool done = false;  // of a form in steps: the step is finished
};

enum ButtonFlags : unsigned { kNoFlags = 0, kDefault = 1, kCancel = 2 };
struct FormButton {
  std::string caption_key;
  ButtonControl* button;
  unsigned flags;
  FormButton(std::string key, ButtonControl& control, unsigned bits = kNoFlags)
      : caption_key(std::move(key)), button(&control), flags(bits) {}
};

// The buttons that lead through a form whose pages are steps.
struct StepButtons {
  ButtonControl *previous, *next, *finish;
};

class Form : public Modal {
 public:
  // `name` is the form's class name; `title_key` the catalogue key of its title.
  Form(std::string name, std::string title_key);
  ~Form() override = default;
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  const std::string& form_name() const { return form_name_; }
  const std::string& title_key() const { return title_key_; }
  // A title given by the program instead of the key's text.
  void SetTitle(std::string title);
  const std::string& title() const { return title_; }

  // Looks a control up by name; an element of an array is "txtNetto(0)". Null when absent.
  Control* Find(std::string_view name) const;
  const std::vector<Control*>& controls() const { return controls_; }  // in the order of registration
  ButtonControl* FindButton(std::string_view name_or_caption_key) const;

  const std::vector<PageLayout>& pages() const { return pages_; }
  const std::vector<FormButton>& buttons() const { return buttons_; }
  // Current page by its key; false when there is none such or it is hidden.
  bool ShowPage(std::string_view key);
  const std::string& page() const { return current_page_; }
  void SetPageVisible(std::string_view key, bool visible);
  Event PageChanged;  // raised by the person's choice of a page
  bool UserShowPage(std::string_view key);

  // Whether the pages are steps that follow one another: the window lists them at its left with the current one marked and those that are
  // done ticked; Enter goes on, or finishes where nothing follows. Null for a form whose pages stand side by side.
  const StepButtons* steps() const { return steps_.next ? &steps_ : nullptr; }
  void SetPageDone(std::string_view key, bool done);

  // Closes the form: ShowModal returns.
  void Close() {
    open_ = false;
    Closed.Raise();
  }
  bool IsOpen() const { return open_; }
  void Open() { open_ = true; }
  Event Closed, Repaint;

  // Whether a person changed something since the form was filled; the window asks before it throws that away.
  bool Dirty() const { return dirty_; }
  void SetDirty(bool dirty) { dirty_ = dirty; }
  virtual bool AsksBeforeClosing() const { return false; }
  virtual std::string UnsavedKey() const { return "common.unsaved"; }  // of the question

  // The control that has the focus: the one a form asks to move to, later the one that the person entered.
  void SetFocus(Control& control);
  Control* focus() const { return focus_; }
  void FocusCame(Control& control) { focus_ = &control; }
  Event FocusAsked;

  // A key that the form takes before its fields do, by its code (controls/key_codes.h), with Ctrl or not. True when taken. A form that
  // then acts on what its fields hold leaves the focused one first.
  virtual bool UserKey(int code, bool ctrl) {
    (void)code;
    (void)ctrl;
    return false;
  }

  // Section of the settings in which the window's place is kept, "" for none.
  std::string place_section;

 protected:
  void Register(std::string name, Control& control);
  template <typename ControlType, size_t N>
  void Register(const std::string& name, std::array<ControlType, N>& controls) {
    for (size_t i = 0; i < N; ++i) Register(name + "(" + std::to_string(i) + ")", controls[i]);
  }
  GroupLayout& Page(std::string key, std::string caption_key);
  GroupLayout& Page(std::string caption_key) { return Page("STD", std::move(caption_key)); }
  void Buttons(std::vector<FormButton> buttons);
  // Makes the pages steps; the three stand among the buttons.
  void Steps(const StepButtons& buttons) { steps_ = buttons; }

 private:
  std::string form_name_, title_key_, title_, current_page_;
  std::vector<Control*> controls_;
  std::map<std::string, Control*, std::less<>> by_name_;
  std::vector<PageLayout> pages_;
  std::vector<FormButton> buttons_;
  StepButtons steps_{};
  Control* focus_ = nullptr;
  bool open_ = false, dirty_ = false;
};

}  // namespace ostrinka
