#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QTimer>

#include "company/login_form.h"
#include "desktop/desktop_ui.h"
#include "desktop/form_window.h"
#include "desktop/message_window.h"
#include "desktop/person.h"
#include "masterdata/company_form.h"
#include "masterdata/connection_form.h"
#include "masterdata/create_database_form.h"
#include "masterdata/customer_form.h"
#include "masterdata/further_accounts_form.h"
#include "masterdata/goods_form.h"
#include "masterdata/individual_accounts_form.h"
#include "masterdata/wizard_form.h"
#include "sales/line_form.h"
#include "sales/sales_form.h"
#include "support/company.h"

namespace ostrinka {
namespace {

class ProgramsWindowsTest : public CompanyTest {
 protected:
  std::unique_ptr<Look> look = std::make_unique<Look>(program);
};

// Every laid-out field of a form has a name for those who cannot see it, no text is missing in the catalogue, and the window fits a small
// screen.
void ExpectFinished(Program& program, const Look& look, Form& form) {
  FormWindow window(program, look, form, nullptr);
  form.Open();
  window.show();
  QApplication::processEvents();
  EXPECT_LE(window.width(), 1366) << form.form_name();
  EXPECT_LE(window.height(), 740) << form.form_name();
  EXPECT_FALSE(window.windowTitle().startsWith('%')) << form.form_name();
  for (const Control* control : form.controls()) {
    const QWidget* field = window.WidgetOf(*control);
    if (control->kind() == ControlKind::kScrollBox) continue;
    ASSERT_TRUE(field) << form.form_name() << " lays out no " << control->name();
    if (field->focusPolicy() == Qt::NoFocus) continue;
    EXPECT_FALSE(field->accessibleName().isEmpty()) << form.form_name() << " " << control->name();
    EXPECT_FALSE(field->accessibleName().startsWith('%')) << form.form_name() << " " << field->accessibleName().toStdString();
  }
  for (const PageLayout& page : form.pages()) {
    if (!form.ShowPage(page.key)) continue;
    QApplication::processEvents();
    for (const QLabel* label : window.findChildren<QLabel*>()) {
      EXPECT_FALSE(label->text().startsWith('%')) << label->text().toStdString();
      if (!label->isVisible() || !label->buddy()) continue;
      EXPECT_GE(label->width(), label->sizeHint().width()) << label->text().toStdString();
    }
    for (const QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
      EXPECT_FALSE(button->text().startsWith('%')) << button->text().toStdString();
      const int words = button->fontMetrics().horizontalAdvance(button->text().remove('&'));
      EXPECT_TRUE(!button->isVisible() || button->width() >= words) << form.form_name() << " " << button->text().toStdString();
    }
  }
}

TEST_F(ProgramsWindowsTest, EveryFormOpensWithNamesTextsAndRoomForAll) {
  const int32_t customer = AddCustomer("Hotel"), article = AddArticle("Stół", 100, 122);
  frm_Kontrahenci_ customers(program);
  customers.reload_(EditMode::kEdit, customer);
  frm_TowUslugi_ goods(program);
  goods.reload_(EditMode::kEdit, article);
  frm_Dok_sprzed sales(program);
  sales.reload_();
  frm_Dok_add_TU line(program);
  line.reload_();
  frm_Admin_usr_ company(program);
  company.reload_();
  frm_Admin_usr_kdod_ accounts(program);
  accounts.reload_(program.company);
  frm_Admin_usr_konta_ individual(program);
  individual.reload_();
  frm_Admin_qdb_ connection(program);
  connection.reload_();
  frm_Admin_qdbc_ creation(program);
  creation.reload_();
  frm_Admin_bg_ wizard(program);
  wizard.reload_();
  LoginForm login(program);
  for (Form* form : std::initializer_list<Form*>{&customers, &goods, &sales, &line, &company, &accounts, &individual, &connection,
                                                 &creation, &wizard, &login}) {
    ExpectFinished(program, *look, *form);
  }
}

TEST_F(ProgramsWindowsTest, AQuestionAnswersToItsLettersAndLeavingItIsNo) {
  const struct {
    int key;
    const char* letter;
    Answer answer;
  } cases[] = {
      {Qt::Key_T, "t", Answer::kYes}, {Qt::Key_N, "n", Answer::kNo}, {Qt::Key_Escape, "", Answer::kNo}, {Qt::Key_Return, "", Answer::kYes}};
  for (const auto& test : cases) {
    MessageWindow box(*look, "?", MessageKind::kQuestion, nullptr);
    QTimer::singleShot(0, &box, [&] { TypeKey(box.focusWidget() ? *box.focusWidget() : box, test.key, {}, test.letter); });
    EXPECT_EQ(box.Run(), test.answer) << test.key;
  }
}

TEST_F(ProgramsWindowsTest, OnlyTemporaryFilesAndWebAddressesLeaveTheProgram) {
  DesktopUi ui;
  ui.Attach(program, *look);
  const std::string outside = "/etc/passwd";
  EXPECT_FALSE(ui.OpenWithSystem(outside));
  EXPECT_FALSE(ui.OpenWithSystem(platform.files.TemporaryFolder() + "../etc/passwd"));
  EXPECT_FALSE(ui.OpenWithSystem("file:///etc/passwd"));
  EXPECT_FALSE(ui.OpenWithSystem(""));
  // An address is never a file, wherever that lies.
  const std::string page = platform.files.TemporaryFolder() + "page.html";
  ASSERT_TRUE(platform.files.WriteAll(page, "<html>"));
  for (const std::string& address : {page, "file://" + page, std::string("file:///etc/passwd"), std::string("javascript:alert(1)"),
                                     std::string("page.html/.."), std::string()}) {
    EXPECT_FALSE(ui.OpenAddress(address)) << address;
  }
}

}  // namespace
}  // namespace ostrinka
