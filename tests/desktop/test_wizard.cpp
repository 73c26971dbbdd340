// The first-run wizard in its window, by keyboard.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <memory>

#include "desktop/dialog_style.h"
#include "desktop/form_window.h"
#include "desktop/person.h"
#include "desktop/screen_check.h"
#include "masterdata/wizard_form.h"
#include "support/company.h"

namespace ostrinka {
namespace {

class WizardWindowTest : public ProgramTest {
 protected:
  ~WizardWindowTest() override { window.reset(); }
  void Open() {
    window.reset();  // before its form
    look = std::make_unique<Look>(program);
    DialogStyle::Install(*look);
    form = std::make_unique<frm_Admin_bg_>(program);
    form->reload_();
    window = std::make_unique<FormWindow>(program, *look, *form, nullptr);
    form->Open();
    window->show();
    window->activateWindow();
    window->WidgetOf(*form->focus())->setFocus(Qt::TabFocusReason);  // as Run does
    QApplication::processEvents();
  }
  void Press(int key, Qt::KeyboardModifiers with = {}, const QString& text = {}) {
    ASSERT_TRUE(window->focusWidget());
    TypeKey(*window->focusWidget(), key, with, text);
    QApplication::processEvents();
  }
  void Type(const QString& text) {
    for (const QChar letter : text) Press(letter.toUpper().unicode(), {}, QString(letter));
  }
  std::string Focus() const {
    for (const Control* control : form->controls()) {
      if (window->WidgetOf(*control) == window->focusWidget()) return control->name();
    }
    return "none";
  }
  bool Primary(const ButtonControl& button) const { return window->WidgetOf(button)->property(kPrimaryButton).toBool(); }

  std::unique_ptr<Look> look;
  std::unique_ptr<frm_Admin_bg_> form;
  std::unique_ptr<FormWindow> window;
};

TEST_F(WizardWindowTest, AGroupOfOptionsIsEnteredAtTheChosenOne) {
  Open();
  Press(Qt::Key_Return);
  ASSERT_TRUE(form->dbLocal[1].UserSet("true"));
  form->txtDbPath.SetText(platform.folder / "firma");
  Press(Qt::Key_Right, Qt::AltModifier);
  EXPECT_EQ(form->page(), "IMPORT");
  Press(Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(Focus(), "dbLocal(1)");
}

TEST_F(WizardWindowTest, KeysLeadThroughTheStepsAndTheLastOneFinishes) {
  Open();
  EXPECT_EQ(Focus(), "btnNext");
  EXPECT_FALSE(window->WidgetOf(form->btnPrev)->isEnabled());
  Press(Qt::Key_Return);
  EXPECT_EQ(form->page(), "DATABASE");
  EXPECT_EQ(Focus(), "dbLocal(0)");
  Press(Qt::Key_Return);
  EXPECT_EQ(form->page(), "IMPORT");
  Press(Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(form->page(), "DATABASE");
  EXPECT_TRUE(Primary(form->btnNext));
  Press(Qt::Key_Right, Qt::AltModifier);
  Press(Qt::Key_Right, Qt::AltModifier);
  EXPECT_EQ(form->page(), "COMPANY");
  EXPECT_EQ(Focus(), "txtNazwaFirmy");
  EXPECT_FALSE(window->WidgetOf(form->btnNext)->isEnabled());
  EXPECT_TRUE(Primary(form->btnOk) && !Primary(form->btnNext) && !Primary(form->btnPrev));
  Type("Żak");
  EXPECT_FALSE(platform.files.FileExists(platform.folder / "app/data/firma.ovd"));
  Press(Qt::Key_Return);
  EXPECT_TRUE(form->finished());
  EXPECT_FALSE(form->IsOpen());
  EXPECT_EQ(program.company.S_NAZWA, "Żak");
  EXPECT_TRUE(platform.files.FileExists(platform.folder / "app/data/firma.ovd"));
}

TEST_F(WizardWindowTest, ADoubtfulFieldHasTheFocusAndItsTextIsSelected) {
  Open();
  Press(Qt::Key_Return);
  auto& again = static_cast<QLineEdit&>(*window->WidgetOf(form->userPassword2));
  again.setFocus(Qt::TabFocusReason);
  Type("x");
  window->WidgetOf(form->userName)->setFocus(Qt::TabFocusReason);
  Press(Qt::Key_Return);
  EXPECT_EQ(form->page(), "DATABASE");
  ASSERT_EQ(platform.ui.messages.size(), 1u);
  EXPECT_EQ(platform.ui.messages[0].first, program.Text("msg.info.dbcreatepass"));
  EXPECT_EQ(Focus(), "userPassword2");
  EXPECT_TRUE(again.hasSelectedText());
  Type("kreda");
  Press(Qt::Key_Return);
  EXPECT_EQ(form->page(), "IMPORT");
}

TEST_F(WizardWindowTest, LeavingAsksWhenSomethingWasTyped) {
  Open();
  Press(Qt::Key_Return);
  Press(Qt::Key_Escape);
  EXPECT_FALSE(form->IsOpen());
  EXPECT_TRUE(platform.ui.messages.empty());
  Open();
  Press(Qt::Key_Return);
  window->WidgetOf(form->userName)->setFocus(Qt::TabFocusReason);
  Type("a");
  Press(Qt::Key_Escape);  // answered with no
  EXPECT_TRUE(form->IsOpen());
  ASSERT_EQ(platform.ui.messages.size(), 1u);
  EXPECT_EQ(platform.ui.messages[0].first, program.Text("bg.msg.cancel"));
  platform.ui.answers = {Answer::kYes};
  Press(Qt::Key_Escape);
  EXPECT_FALSE(form->IsOpen());
  EXPECT_FALSE(form->finished());
}

TEST_F(WizardWindowTest, AClickOnAStepGoesBackButNeverAhead) {
  Open();
  Press(Qt::Key_Return);
  Press(Qt::Key_Return);
  std::vector<QAbstractButton*> steps;
  for (const PageLayout& page : form->pages()) {
    for (auto* button : window->findChildren<QAbstractButton*>()) {
      if (button->text() == look->Text(page.caption_key)) steps.push_back(button);
    }
  }
  ASSERT_EQ(steps.size(), 4u);
  EXPECT_TRUE(steps[0]->accessibleName().endsWith(look->Text("common.step.done")));
  ClickAt(*steps[3], {20, 20});
  EXPECT_EQ(form->page(), "IMPORT");
  ClickAt(*steps[0], {20, 20});
  EXPECT_EQ(form->page(), "WELCOME");
  ClickAt(*steps[1], {20, 20});
  EXPECT_EQ(form->page(), "WELCOME") << "what was done is still gone through with its checks";
}

TEST_F(WizardWindowTest, EveryStepIsFitToBeSeenOnASmallScreenInEverySkin) {
  for (const int32_t skin : {0, 1, 2}) {
    program.settings.SaveSettingValue(kCommon, "GUI", "Skin", skin);
    Open();
    EXPECT_LE(window->width(), 1366);
    EXPECT_LE(window->height(), 740);
    for (const PageLayout& page : form->pages()) {
      form->UserShowPage(page.key);
      QApplication::processEvents();
      EXPECT_EQ(ScreenFaults(*window), QStringList()) << page.key << " " << skin;
    }
  }
}

}  // namespace
}  // namespace ostrinka
