#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTimer>
#include <vector>

#include "desktop/form_window.h"
#include "desktop/person.h"
#include "masterdata/individual_accounts_form.h"
#include "support/company.h"

namespace ostrinka {
namespace {

class ThreeRows : public TableSource {
 public:
  int current = 1;
  int Rows() override { return 3; }
  int Columns() override { return 1; }
  std::string CellText(int row, int) override { return "row " + std::to_string(row); }
  int CurrentRow() override { return current; }
  void SelectRow(int row) override { current = row; }
  void Draw(Canvas& canvas, int, int, double, const std::vector<int>&) override {
    canvas.FillRect({0, 0, canvas.Width(), canvas.Height()}, 0xFFFFFF);
  }
  // A head of 20 and rows of 20.
  bool HitTest(double, double y, int& row, int& column) override {
    row = static_cast<int>(y / 20);
    column = 1;
    return row >= 1 && row <= 3;
  }
  int ColumnWidthOf(int) override { return width; }
  void SetColumnWidthOf(int, int to) override { width = to; }
  std::string HeadingOf(int) override { return "Rows"; }
  int width = 100;
};

// A form with one of each kind, which writes down what happens to it.
class Sampler : public Form {
 public:
  TextBoxControl name, notes, nip, hidden;
  ComboControl kind, other;
  CalendarControl day;
  CheckBoxControl tick;
  TableControl table;
  ThreeRows rows;
  ButtonControl ok, cancel;
  std::vector<std::string> log;
  std::vector<int> keys;
  int takes_key = 0;
  bool asks = false;

  explicit Sampler(unsigned ok_flags = kNoFlags) : Form("Sampler", "customer.title") {
    const std::pair<const char*, Control*> all[] = {{"name", &name},   {"notes", &notes}, {"nip", &nip},      {"hidden", &hidden},
                                                    {"kind", &kind},   {"other", &other}, {"day", &day},      {"tick", &tick},
                                                    {"table", &table}, {"ok", &ok},       {"cancel", &cancel}};
    for (const auto& [key, control] : all) {
      Register(key, *control);
      control->Changed += [this, key = std::string(key)] { log.push_back(key + " changed"); };
      control->Left += [this, key = std::string(key)] { log.push_back(key + " left"); };
      control->Clicked += [this, key = std::string(key)] { log.push_back(key + " clicked"); };
      control->DoubleClicked += [this, key = std::string(key)] { log.push_back(key + " double"); };
    }
    notes.MultiLine = true;
    table.source = &rows;
    for (int i = 1; i <= 3; ++i) other.AddItem("entry " + std::to_string(i), i);
    other.SetListIndex(0);
    Page("STD", "customer.tab.std")
        .Row({{"customer.lbl.name", name, 6}, {"customer.lbl.nip", nip, 6}})
        .Row({{"customer.lbl.symbol", hidden, 12, kCollapse}})
        .Row({{"customer.lbl.group", kind, 4}, {"customer.lbl.country", other, 4}, {"sdoc.lbl.mdate", day, 4}})
        .When(other, 2)
        .Row({{"", tick, 12}})
        .Always()
        .Table(table)
        .Row({{"customer.lbl.notes", notes, 12, kTall}});
    Buttons({{"customer.btn.ok", ok, ok_flags}, {"customer.btn.cancel", cancel, kCancel}});
    cancel.Clicked += [this] { Close(); };
  }
  bool AsksBeforeClosing() const override { return asks; }
  bool UserKey(int code, bool ctrl) override {
    keys.push_back(ctrl ? -code : code);
    return code == takes_key;
  }
  bool Logged(const std::string& what) const { return std::count(log.begin(), log.end(), what) > 0; }
};

class FormWindowTest : public CompanyTest {
 protected:
  void Open(Form& form) {
    window = std::make_unique<FormWindow>(program, *look, form, nullptr);
    form.Open();
    window->show();
    window->activateWindow();
    QApplication::processEvents();
  }
  QWidget& At(const Control& control) { return *window->WidgetOf(control); }
  void Enter(const Control& control) {
    At(control).setFocus(Qt::TabFocusReason);
    QApplication::processEvents();
  }
  void Type(const Control& control, const QString& text) {
    for (const QChar letter : text) TypeKey(At(control), letter.toUpper().unicode(), {}, QString(letter));
  }
  void Press(int key, Qt::KeyboardModifiers with = {}) {
    ASSERT_TRUE(QApplication::focusWidget());
    TypeKey(*QApplication::focusWidget(), key, with);
    QApplication::processEvents();
  }
  std::string Focus() {
    for (const char* name : {"name", "notes", "nip", "hidden", "kind", "other", "day", "tick", "table", "ok", "cancel"}) {
      if (&At(*sampler.Find(name)) == QApplication::focusWidget()) return name;
    }
    return "none";
  }

  Sampler sampler;
  std::unique_ptr<Look> look = std::make_unique<Look>(program);
  std::unique_ptr<FormWindow> window;
};

TEST_F(FormWindowTest, TypedTextReachesTheModelLetterByLetterAndARefusedLetterIsNotShown) {
  sampler.name.Limit = 4;
  Open(sampler);
  Enter(sampler.name);
  Type(sampler.name, "żó");
  EXPECT_EQ(sampler.name.Text(), "żó");
  EXPECT_EQ(std::count(sampler.log.begin(), sampler.log.end(), "name changed"), 2);
  EXPECT_TRUE(sampler.Dirty());
  Type(sampler.name, "Ω");  // no letter of the code page
  EXPECT_EQ(platform.ui.beeps, 1);
  Type(sampler.name, "łwia");
  EXPECT_EQ(platform.ui.beeps, 3);
  EXPECT_EQ(sampler.name.Text(), "żółw");
  EXPECT_EQ(static_cast<QLineEdit&>(At(sampler.name)).text(), "żółw");
  Enter(sampler.notes);
  Type(sampler.notes, "aΩb");
  EXPECT_EQ(sampler.notes.Text(), "ab");
  EXPECT_EQ(static_cast<QPlainTextEdit&>(At(sampler.notes)).toPlainText(), "ab");
  EXPECT_EQ(std::count(sampler.log.begin(), sampler.log.end(), "name left"), 1);
  EXPECT_FALSE(sampler.Logged("notes left"));
}

TEST_F(FormWindowTest, WhatTheModelChangesShowsAtOnce) {
  Open(sampler);
  auto& field = static_cast<QLineEdit&>(At(sampler.nip));
  sampler.nip.SetText("526");
  EXPECT_EQ(field.text(), "526");
  sampler.nip.SetWarning(true, "wrong");
  EXPECT_EQ(field.toolTip(), "wrong");
  EXPECT_EQ(field.accessibleDescription(), "wrong");
  sampler.nip.SetWarning(false);
  EXPECT_EQ(field.accessibleDescription(), "");
  sampler.nip.SetEnabled(false);
  EXPECT_FALSE(field.isEnabled());
  const int before = At(sampler.kind).mapTo(window.get(), QPoint()).y();
  sampler.hidden.SetVisible(false);
  QApplication::processEvents();
  EXPECT_LT(At(sampler.kind).mapTo(window.get(), QPoint()).y(), before) << "a collapsed row takes no room";
  EXPECT_FALSE(At(sampler.tick).isVisible());
  sampler.other.SetListIndex(1);
  EXPECT_TRUE(At(sampler.tick).isVisible()) << "the part that belongs to the second entry";
}

TEST_F(FormWindowTest, TabAndEnterGoThroughTheFieldsInTheOrderOfTheLayout) {
  Open(sampler);
  Enter(sampler.name);
  std::string order;
  for (int i = 0; i < 7; ++i) {
    order += Focus() + " ";
    Press(i < 3 ? Qt::Key_Tab : Qt::Key_Return);
  }
  EXPECT_EQ(order, "name nip hidden kind other day table ");
  EXPECT_EQ(Focus(), "notes");
  Press(Qt::Key_Return);
  EXPECT_EQ(Focus(), "notes") << "a tall box takes Enter as a line end";
  EXPECT_EQ(sampler.notes.Text(), "\r\n");
  EXPECT_FALSE(sampler.Logged("ok clicked"));
  Enter(sampler.ok);
  Press(Qt::Key_Return);
  EXPECT_TRUE(sampler.Logged("ok clicked"));
}

TEST_F(FormWindowTest, EnterPressesTheDefaultButtonOnceTheFieldIsLeft) {
  Sampler small(kDefault);
  Open(small);
  Enter(small.name);
  Press(Qt::Key_Return);
  EXPECT_EQ(small.log, (std::vector<std::string>{"name left", "ok clicked"}));
  window.reset();
}

TEST_F(FormWindowTest, TheFormTakesKeysThatItsFieldsDoNotNeed) {
  Open(sampler);
  sampler.takes_key = kKeyEnter;
  Enter(sampler.name);
  Press(Qt::Key_Return, Qt::ControlModifier);
  Press(Qt::Key_Insert);
  Press(Qt::Key_Delete);
  Press(Qt::Key_Home);
  EXPECT_EQ(sampler.keys, (std::vector<int>{-kKeyEnter, kKeyInsert})) << "Delete and Home belong to the text";
  EXPECT_EQ(Focus(), "name") << "a key that the form took moves nothing";
  Enter(sampler.table);
  Press(Qt::Key_Delete);
  EXPECT_EQ(sampler.keys.back(), kKeyDelete);
  EXPECT_EQ(sampler.keys.size(), 3U) << "each key is asked once";
}

TEST_F(FormWindowTest, AListOpensWithTheBlankKeyAndIsSearchedByTyping) {
  for (int i = 0; i < 20000; ++i) sampler.kind.AddItem("Klient " + std::to_string(i), i + 1);
  sampler.kind.AddItem("Żaglowiec", 30000);
  sampler.kind.AddItem("Firma Łódka", 30001);
  Open(sampler);
  auto& list = static_cast<QComboBox&>(At(sampler.kind));
  Enter(sampler.kind);
  Type(sampler.kind, "zag");
  EXPECT_EQ(sampler.kind.Text(), "Żaglowiec") << "Polish letters are found by their base letters";
  EXPECT_EQ(list.currentText(), "Żaglowiec");
  TypeKey(list, Qt::Key_Backspace);
  TypeKey(list, Qt::Key_Backspace);
  TypeKey(list, Qt::Key_Backspace);
  Type(sampler.kind, "lod");
  EXPECT_EQ(sampler.kind.Value(), 30001) << "the beginning of any word";
  Enter(sampler.name);
  Enter(sampler.kind);
  TypeKey(list, Qt::Key_Space, {}, " ");
  EXPECT_FALSE(list.view()->isVisible()) << "within a word that was begun the blank belongs to it";
  TypeKey(list, Qt::Key_F4);
  EXPECT_TRUE(list.view()->isVisible());
  list.hidePopup();
  Enter(sampler.other);
  TypeKey(At(sampler.other), Qt::Key_Space, {}, " ");
  EXPECT_TRUE(static_cast<QComboBox&>(At(sampler.other)).view()->isVisible());
  static_cast<QComboBox&>(At(sampler.other)).hidePopup();
  auto& other = static_cast<QComboBox&>(At(sampler.other));
  TypeKey(other, Qt::Key_Down);  // a change of this list is heard, so that it is made in the open list
  EXPECT_EQ(other.view()->currentIndex().row(), 1);
  EXPECT_EQ(sampler.other.Value(), 1);
  EXPECT_FALSE(sampler.Logged("other changed"));
  TypeKey(*other.view(), Qt::Key_Return);
  EXPECT_EQ(sampler.other.Value(), 2);
  EXPECT_TRUE(sampler.Logged("other changed"));
  sampler.other.Clear();
  sampler.other.AddItem("alone", 9);
  sampler.other.SetListIndex(0);
  EXPECT_EQ(static_cast<QComboBox&>(At(sampler.other)).currentText(), "alone") << "filled anew";
}

TEST_F(FormWindowTest, ADateIsPickedInItsMonthAndNeverTyped) {
  sampler.day.SetCurrentDate(*Date::Parse("2008-01-31"));
  Open(sampler);
  Enter(sampler.day);
  Type(sampler.day, "5");
  EXPECT_EQ(sampler.day.CurrentDate().Iso(), "2008-01-31");
  const auto pick = [&](std::initializer_list<int> keys) {
    TypeKey(At(sampler.day), Qt::Key_F4);
    QWidget* month = QApplication::activePopupWidget();
    if (!month) return std::string("not opened");
    for (const int key : keys) TypeKey(*month, key, {}, key >= '0' && key <= '9' ? QString(QChar(key)) : QString());
    if (QApplication::activePopupWidget()) return std::string("still open");
    return sampler.day.CurrentDate().Iso();
  };
  EXPECT_EQ(pick({Qt::Key_PageDown, Qt::Key_Return}), "2008-02-29") << "the last day of a shorter month";
  EXPECT_EQ(pick({Qt::Key_Right, Qt::Key_Down, Qt::Key_Return}), "2008-03-08");
  EXPECT_EQ(pick({Qt::Key_1, Qt::Key_9, Qt::Key_Return}), "2008-03-19");
  EXPECT_EQ(pick({Qt::Key_Up, Qt::Key_Escape}), "2008-03-19");
  EXPECT_EQ(std::count(sampler.log.begin(), sampler.log.end(), "day changed"), 3);
  EXPECT_EQ(static_cast<QComboBox&>(At(sampler.day)).currentText(), "19-03-2008");
}

TEST_F(FormWindowTest, LeavingAsksOnlyWhatWasChangedAndNotSaved) {
  sampler.asks = true;
  Open(sampler);
  Enter(sampler.name);
  Press(Qt::Key_Escape);
  EXPECT_FALSE(sampler.IsOpen());
  EXPECT_TRUE(platform.ui.messages.empty());
  Open(sampler);
  Enter(sampler.name);
  Type(sampler.name, "x");
  platform.ui.answers = {Answer::kNo};
  Press(Qt::Key_Escape);
  EXPECT_TRUE(sampler.IsOpen());
  EXPECT_EQ(platform.ui.messages.size(), 1U);
  platform.ui.answers = {Answer::kYes};
  static_cast<QAbstractButton&>(At(sampler.cancel)).click();
  EXPECT_FALSE(sampler.IsOpen()) << "the cancel button asks the same";
  EXPECT_EQ(platform.ui.messages.size(), 2U);
}

TEST_F(FormWindowTest, ATableFollowsArrowsAndTheMouse) {
  Open(sampler);
  Enter(sampler.table);
  Press(Qt::Key_Down);
  Press(Qt::Key_Down);
  Press(Qt::Key_Down);
  EXPECT_EQ(sampler.rows.current, 3);
  QWidget& surface = *static_cast<QAbstractScrollArea&>(At(sampler.table)).viewport();
  ClickAt(surface, {10, 25});
  EXPECT_EQ(sampler.rows.current, 1);
  EXPECT_TRUE(sampler.Logged("table clicked"));
  SendMouse(surface, QEvent::MouseButtonDblClick, {10, 45});
  EXPECT_EQ(sampler.rows.current, 2);
  EXPECT_TRUE(sampler.Logged("table double"));
}

TEST_F(FormWindowTest, AccountsOfManyCustomersAreTypedInARowEachOverTheOldOne) {
  for (const char* name : {"Hotel", "Stolarnia", "Zajazd"}) AddCustomer(name);
  frm_Admin_usr_konta_ form(program);
  form.reload_();
  Open(form);
  ASSERT_EQ(QApplication::focusWidget(), &At(form.txtZnajdź));
  Type(form.txtZnajdź, "a");
  EXPECT_EQ(form.SQL_Pic.source->Rows(), 2);
  Press(Qt::Key_Return);
  for (const char* account : {"12", "34"}) {
    ASSERT_EQ(QApplication::focusWidget(), &At(form.txtKontoIndywidualne));
    Type(form.txtKontoIndywidualne, account);
    Press(Qt::Key_Return);
  }
  ASSERT_EQ(QApplication::focusWidget(), &At(form.txtZnajdź)) << "after the last one found";
  for (const char* account : {"5", "6"}) {
    Type(form.txtZnajdź, "Hotel");
    EXPECT_EQ(form.txtZnajdź.Text(), "Hotel") << "typed over what was there";
    Press(Qt::Key_Return);
    Type(form.txtKontoIndywidualne, account);
    Press(Qt::Key_Return);
  }
  std::string stored;
  for (int32_t customer : {1, 2, 3}) {
    ASSERT_TRUE(Table(program, kKontrahenci).RECORD_LOAD(customer));
    stored += "/" + Table(program, kKontrahenci).Text("KONTO_INDYW_RACH");
  }
  EXPECT_EQ(stored, "/6/12/34");
}

TEST_F(FormWindowTest, RunReturnsWhenTheFormClosesAndFormsStandInsideEachOther) {
  Sampler inner;
  sampler.ok.Clicked += [&] {
    FormWindow nested(program, *look, inner, QApplication::activeModalWidget());
    QTimer::singleShot(0, &nested, [&inner] { inner.cancel.UserPress(); });
    nested.Run();
    EXPECT_TRUE(sampler.IsOpen());
    sampler.Close();
  };
  FormWindow outer(program, *look, sampler, nullptr);
  QTimer::singleShot(0, &outer, [this] { sampler.ok.UserPress(); });
  outer.Run();
  EXPECT_FALSE(inner.IsOpen());
  EXPECT_FALSE(sampler.IsOpen());
}

TEST_F(FormWindowTest, AWindowThatIsGoneListensNoMore) {
  Sampler again;
  for (int time = 0; time < 3; ++time) {
    Open(again);
    EXPECT_TRUE(again.Repaint.IsHeard() && again.Closed.IsHeard() && again.name.Repaint.IsHeard());
    window.reset();
    EXPECT_FALSE(again.Repaint.IsHeard() || again.Closed.IsHeard() || again.FocusAsked.IsHeard());
    for (Control* control : again.controls()) EXPECT_FALSE(control->Repaint.IsHeard()) << control->name();
    again.name.SetText("nobody looks");
  }
}

TEST_F(FormWindowTest, ATableIsFittedForTheEyeAndKeptByTheHand) {
  Open(sampler);
  QApplication::processEvents();
  EXPECT_EQ(sampler.rows.width, 100) << "drawn over the whole width, kept as it was";
  QWidget& surface = *static_cast<QAbstractScrollArea&>(At(sampler.table)).viewport();
  const QPoint border(surface.width() - 1, 5);
  SendMouse(surface, QEvent::MouseButtonPress, border);
  SendMouse(surface, QEvent::MouseMove, border - QPoint(90, 0));
  SendMouse(surface, QEvent::MouseButtonRelease, border - QPoint(90, 0));
  EXPECT_NEAR(sampler.rows.width, (surface.width() - 90) / 1.125, 8);
  window->resize(window->width() + 100, window->height());
  QApplication::processEvents();
  EXPECT_NEAR(sampler.rows.width, (surface.width() - 190) / 1.125, 8) << "from then on the person's";
}

}  // namespace
}  // namespace ostrinka
