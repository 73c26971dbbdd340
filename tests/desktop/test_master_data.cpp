#include <QAbstractItemView>
#include <QComboBox>
#include <QFocusEvent>
#include <QLineEdit>

#include "desktop/clerk.h"
#include "masterdata/further_accounts_form.h"
#include "masterdata/goods_form.h"

namespace ostrinka {
namespace {

class MasterDataTest : public ClerkTest {
 protected:
  void SetUp() override {
    ClerkTest::SetUp();
    OpenWindow();
  }
  // An article with three price sets whose texts are rounded to the grosz.
  void OpenArticle() {
    program.settings.SaveSettingValue(kCommon, "strFormat", "Currency", std::string("0.00"));
    Add(kTowaryUslugi, {{"NAZWA", std::string("Lampa")},
                        {"STAWKA_VAT", kVat22},
                        {"WALUTA", kZloty},
                        {"CENA_ZAKUPU", 9.99},
                        {"DETAL_NETTO", 8.20492},
                        {"DETAL_BRUTTO", 10.01},
                        {"HURT_NETTO", 9.99},
                        {"HURT_BRUTTO", 12.19},
                        {"SPEC_NETTO", 7.0},
                        {"SPEC_BRUTTO", 8.54}});
    article.reload_(EditMode::kEdit, 1);
    Show(article);
  }
  void Show(Form& form) {
    Then([this, &form] { platform.ui.ShowModal(form); });
  }
  void Enter(const char* control) {
    Then([this, control] { front->WidgetOf(*front_form->Find(control))->setFocus(Qt::TabFocusReason); });
  }
  void Tab(int times) {
    for (int i = 0; i < times; ++i) Press(Qt::Key_Tab);
  }
  QComboBox& List(const Control& control) { return *static_cast<QComboBox*>(front->WidgetOf(control)); }
  std::string Prices() {
    std::string all = article.txtCenaZakupu.Text();
    for (size_t i = 0; i < frm_TowUslugi_::kPriceSets; ++i) all += " " + article.txtNetto[i].Text() + " " + article.txtBrutto[i].Text();
    return all;
  }
  frm_TowUslugi_ article{program};
};

constexpr char kPrices[] = "9,99 8,20 10,01 9,99 12,19 7,00 8,54";

TEST_F(MasterDataTest, PassingOverAnArticleWithTabMovesNoPrice) {
  OpenArticle();
  Tab(40);  // once around and more
  Then([&] {
    EXPECT_EQ(Prices(), kPrices);
    EXPECT_FALSE(article.Dirty());
  });
  Enter("txtNetto(0)");
  Then([&] { static_cast<QLineEdit*>(front->focusWidget())->selectAll(); });
  Type("20");
  Then([&] {
    // To another program and back: the entry still counts.
    for (const QEvent::Type type : {QEvent::FocusOut, QEvent::FocusIn}) {
      QFocusEvent event(type, Qt::ActiveWindowFocusReason);
      QApplication::sendEvent(front->focusWidget(), &event);
    }
  });
  Tab(1);
  Then([&] {
    EXPECT_EQ(article.txtBrutto[0].Text(), "24,40");
    platform.ui.answers = {Answer::kYes};
  });
  Press(Qt::Key_Escape);
  Work();
}

TEST_F(MasterDataTest, ArrowsInAListThatMovesOtherFieldsChooseOnlyWhatIsConfirmed) {
  Add(kWaluty, {{"KODWAL", std::string("XXX")}, {"NAZWA", std::string("Bez kursu")}});
  OpenArticle();
  Enter("txtWaluta");
  Press(Qt::Key_Down);
  Then([&] {
    QAbstractItemView& entries = *List(article.txtWaluta).view();
    ASSERT_TRUE(entries.isVisible());
    EXPECT_EQ(entries.currentIndex().row(), 1) << "the key moved on";
    for (const int key : {Qt::Key_End, Qt::Key_Up, Qt::Key_Down, Qt::Key_Home, Qt::Key_Return}) TypeKey(entries, key);
    EXPECT_FALSE(entries.isVisible());
    EXPECT_EQ(Prices(), kPrices);
    EXPECT_TRUE(platform.ui.messages.empty());
  });
  Press(Qt::Key_Down);
  Then([&] {
    TypeKey(*List(article.txtWaluta).view(), Qt::Key_Return);
    EXPECT_EQ(article.txtWaluta.Value(), kEuro);
    EXPECT_EQ(article.txtNetto[2].Text(), "2,00");
  });
  // A list that moves nothing else is worked closed.
  Enter("txtRodzaj");
  Press(Qt::Key_Down);
  Then([&] {
    EXPECT_FALSE(List(article.txtRodzaj).view()->isVisible());
    EXPECT_EQ(article.txtRodzaj.Text(), "Usługa");
    platform.ui.answers = {Answer::kYes};
  });
  Press(Qt::Key_Escape);
  Work();
}

TEST_F(MasterDataTest, FurtherAccountsThatWereTypedAreNotLostUnasked) {
  frm_Admin_usr_kdod_ accounts(program);
  accounts.reload_(program.company);
  Show(accounts);
  Enter("txtKonto_d1_");
  Type("12");
  Press(Qt::Key_Escape);  // answered with no
  Then([&] {
    EXPECT_TRUE(accounts.IsOpen());
    EXPECT_EQ(accounts.txtKonto_d1_.Text(), "12");
    ASSERT_EQ(platform.ui.messages.size(), 1u);
    EXPECT_EQ(platform.ui.messages[0].first, program.Text("common.unsaved"));
    platform.ui.answers = {Answer::kYes};
  });
  Press(Qt::Key_Escape);
  Work();
  EXPECT_FALSE(accounts.accepted());
}

}  // namespace
}  // namespace ostrinka
