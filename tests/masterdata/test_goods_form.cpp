#include "masterdata/goods_form.h"
#include "support/company.h"
#include "support/form_person.h"

namespace ostrinka {
namespace {

class GoodsFormTest : public CompanyTest {
 protected:
  void Open(EditMode mode, int32_t record = 0) {
    form.reload_(mode, record);
    form.Open();
  }
  // Net, gross, mark-up, margin and profit of a price set, as shown.
  std::string Prices(size_t i) {
    return form.txtNetto[i].Text() + " " + form.txtBrutto[i].Text() + " " + form.txtNarzut[i].Text() + " " + form.txtMarża[i].Text() + " " +
           form.txtZysk[i].Text();
  }
  frm_TowUslugi_ form{program};
};

TEST_F(GoodsFormTest, NewArticleStartsAsGoodsWithTheFirstRateTheFirstCurrencyAndNoAmounts) {
  Open(EditMode::kNew);
  EXPECT_EQ(form.txtRodzaj.Text(), "Towar");
  EXPECT_EQ(form.txtStawkaVAT.Text(), "22%");
  EXPECT_EQ(form.lblStawkaVAT.Text(), "Podatek podstawowy VAT 22% (22%)");
  EXPECT_EQ(form.txtWaluta.Text(), "PLN - Polski złoty");
  for (size_t i = 0; i < 3; ++i) EXPECT_EQ(Prices(i), "0 0 0 0 0");
  EXPECT_EQ(form.txtCenaZakupu.Text(), "0");
  EXPECT_FALSE(form.txtSubsTDay_.Enabled() || form.txtSubsEndAlert.Enabled() || form.txtSubsEndAlertDays.Enabled());
}

TEST_F(GoodsFormTest, LeavingAFieldMovesTheOthersOfItsPriceSet) {
  Open(EditMode::kNew);
  ASSERT_TRUE(Set(form.txtCenaZakupu, "80"));
  EXPECT_EQ(form.txtCenaZakupu.Text(), "80");
  EXPECT_EQ(Prices(0), "0 0 -100,00 -800000,00 -80,00");
  const struct {
    TextBoxControl& box;
    const char* text;
    const char* prices;
  } rows[] = {
      {form.txtNetto[1], "100", "100,00 122,00 25,00 20,00 20,00"},
      {form.txtBrutto[1], "244", "200,00 244,00 150,00 60,00 120,00"},
      {form.txtZysk[1], "10", "90,00 109,80 12,50 11,1111 10,00"},
      {form.txtMarża[1], "50", "160,00 195,20 100,00 50,00 80,00"},
      {form.txtNarzut[1], "50", "120,00 146,40 50,00 33,3333 40,00"},
      {form.txtNetto[1], "0", "0,01 0,0122 -99,9875 -799900,00 -79,99"},
      {form.txtBrutto[1], "-5", "0,0082 0,01 -99,9898 -799918,00 -79,9918"},
      {form.txtMarża[1], "100", "800000,00 976000,00 999900,00 99,99 799920,00"},
      {form.txtMarża[1], "250", "800000,00 976000,00 999900,00 99,99 799920,00"},
      {form.txtMarża[1], "-20", "80,00 97,60 0,00 0,00 0,00"},
      {form.txtZysk[1], "abc", "80,00 97,60 0,00 0,00 0,00"},
  };
  for (const auto& row : rows) {
    ASSERT_TRUE(Set(row.box, row.text));
    EXPECT_EQ(Prices(1), row.prices) << row.box.name() << " = " << row.text;
  }
  EXPECT_EQ(Prices(2), "0 0 -100,00 -800000,00 -80,00") << "another price set moves only with the purchase price";
}

TEST_F(GoodsFormTest, PurchasePriceKeepsTheNetPricesAndIsAtLeastAGrosz) {
  Open(EditMode::kNew);
  ASSERT_TRUE(Set(form.txtNetto[0], "50"));
  ASSERT_TRUE(Set(form.txtCenaZakupu, "0"));
  EXPECT_EQ(form.txtCenaZakupu.Text(), "0,01");
  EXPECT_EQ(Prices(0), "50,00 61,00 499900,00 99,98 49,99");
}

TEST_F(GoodsFormTest, RateMovesTheGrossPricesAndAnUnknownOneLeavesThem) {
  Open(EditMode::kNew);
  ASSERT_TRUE(Set(form.txtNetto[0], "10"));
  ASSERT_TRUE(Set(form.txtStawkaVAT, "7%"));
  EXPECT_EQ(form.txtBrutto[0].Text(), "10,70");
  EXPECT_EQ(form.txtNetto[0].Text(), "10,00");
  EXPECT_EQ(form.lblStawkaVAT.Text(), "Podatek VAT 7% (7%)");
  form.txtStawkaVAT.AddItem("99%", 99);
  ASSERT_TRUE(Set(form.txtStawkaVAT, "99%"));
  ASSERT_TRUE(Set(form.txtNetto[0], "20"));
  EXPECT_EQ(form.txtBrutto[0].Text(), "10,70");
}

TEST_F(GoodsFormTest, CurrencyChangeConvertsThePrices) {
  Open(EditMode::kNew);
  ASSERT_TRUE(Set(form.txtCenaZakupu, "35"));
  ASSERT_TRUE(Set(form.txtNetto[0], "70"));
  ASSERT_TRUE(Set(form.txtWaluta, "EUR - Euro"));
  EXPECT_EQ(form.txtCenaZakupu.Text(), "10,00");
  EXPECT_EQ(Prices(0), "20,00 24,40 100,00 50,00 10,00");
  ASSERT_TRUE(Set(form.txtWaluta, "PLN - Polski złoty"));
  EXPECT_EQ(form.txtCenaZakupu.Text(), "35,00");
  EXPECT_EQ(Prices(0), "70,00 85,40 100,00 50,00 35,00");
  EXPECT_TRUE(platform.ui.messages.empty());

  const int32_t worthless = Add(kWaluty, {{"KODWAL", Value(std::string("XXX"))}, {"NAZWA", Value(std::string("Bez kursu"))}});
  form.txtWaluta.AddItem("XXX - Bez kursu", worthless);
  ASSERT_TRUE(Set(form.txtWaluta, "XXX - Bez kursu"));
  EXPECT_EQ(MessageTexts().back(), program.Text("msg.info.noselcur"));
  EXPECT_EQ(form.txtNetto[0].Text(), "70,00");
  form.txtWaluta.SetListIndex(-1);
  form.txtWaluta.Changed.Raise();
  EXPECT_EQ(MessageTexts().back(), program.Text("msg.info.noselcurdef"));
  EXPECT_EQ(form.txtWaluta.Value(), 1);
  EXPECT_EQ(form.txtNetto[0].Text(), "70,00");
}

TEST_F(GoodsFormTest, ADeletedRateStillCountsAndIsShown) {
  const int32_t luxury =
      Add(kStawkiVat, {{"SYMBOL", Value(std::string("40%"))}, {"NAZWA", Value(std::string("Zbytek"))}, {"WARTOSC", Value(40.0)}});
  Add(kTowaryUslugi, {{"NAZWA", Value(std::string("Futro"))}, {"STAWKA_VAT", Value(luxury)}, {"WALUTA", Value(int32_t{1})}});
  ASSERT_TRUE(Table(program, kStawkiVat).RECORD_DELETE(luxury));
  Open(EditMode::kEdit, 1);
  EXPECT_EQ(form.txtStawkaVAT.Text(), "40%");
  EXPECT_EQ(form.lblStawkaVAT.Text(), "Zbytek (40%)");
  ASSERT_TRUE(Set(form.txtNetto[0], "100"));
  EXPECT_EQ(form.txtBrutto[0].Text(), "140,00");
  ASSERT_TRUE(Set(form.txtBrutto[0], "70"));
  EXPECT_EQ(form.txtNetto[0].Text(), "50,00");
  ASSERT_TRUE(form.btnSave.UserPress());
  EXPECT_EQ(At(kTowaryUslugi, 1).Int(".STAWKA_VAT"), luxury);
  EXPECT_EQ(At(kTowaryUslugi, 1).Real("DETAL_BRUTTO"), 70);

  // Of two rows of one symbol the one that the article has.
  const int32_t again =
      Add(kStawkiVat, {{"SYMBOL", Value(std::string("40%"))}, {"NAZWA", Value(std::string("Zbytek"))}, {"WARTOSC", Value(60.0)}});
  Open(EditMode::kNew);
  ASSERT_TRUE(Set(form.txtStawkaVAT, "#" + std::to_string(again)));
  ASSERT_TRUE(Set(form.txtNetto[0], "100"));
  EXPECT_EQ(form.txtBrutto[0].Text(), "160,00");
}

TEST_F(GoodsFormTest, PricesInADeletedCurrencyAreConvertedFromIt) {
  const int32_t crown =
      Add(kWaluty, {{"KODWAL", Value(std::string("SKK"))}, {"NAZWA", Value(std::string("Korona"))}, {"KURS", Value(0.5F)}});
  Add(kTowaryUslugi, {{"NAZWA", Value(std::string("Ser"))},
                      {"STAWKA_VAT", Value(int32_t{1})},
                      {"WALUTA", Value(crown)},
                      {"CENA_ZAKUPU", Value(20.0)},
                      {"DETAL_NETTO", Value(40.0)}});
  ASSERT_TRUE(Table(program, kWaluty).RECORD_DELETE(crown));
  Open(EditMode::kEdit, 1);
  EXPECT_EQ(form.txtWaluta.Text(), "SKK - Korona");
  ASSERT_TRUE(form.btnSave.UserPress());
  EXPECT_EQ(At(kTowaryUslugi, 1).Int(".WALUTA"), crown) << "saving keeps it";
  Open(EditMode::kEdit, 1);
  ASSERT_TRUE(Set(form.txtWaluta, "PLN - Polski złoty"));
  EXPECT_EQ(form.txtCenaZakupu.Text(), "10,00");
  EXPECT_EQ(form.txtNetto[0].Text(), "20,00");
  EXPECT_EQ(form.txtBrutto[0].Text(), "24,40");
  ASSERT_TRUE(Set(form.txtWaluta, "SKK - Korona"));
  EXPECT_EQ(form.txtNetto[0].Text(), "40,00");
  EXPECT_TRUE(platform.ui.messages.empty());
}

TEST_F(GoodsFormTest, AFieldThatWasOnlyPassedOverMovesNothing) {
  program.settings.SaveSettingValue(kCommon, "strFormat", "Currency", Value(std::string("0.00")));
  Open(EditMode::kNew);
  ASSERT_TRUE(Set(form.txtCenaZakupu, "3"));
  ASSERT_TRUE(Set(form.txtBrutto[0], "10,01"));
  const std::string before = Prices(0);
  EXPECT_EQ(before.substr(0, 10), "8,20 10,01");
  for (int round = 0; round < 2; ++round) {
    for (Control* field : std::initializer_list<Control*>{&form.txtCenaZakupu, &form.txtNetto[0], &form.txtBrutto[0], &form.txtNarzut[0],
                                                          &form.txtMarża[0], &form.txtZysk[0], &form.txtStawkaVAT}) {
      field->UserEnter();
      field->UserLeave();
      EXPECT_EQ(Prices(0), before) << field->name();
    }
  }
  form.txtNetto[1].UserEnter();
  form.txtNetto[1].UserLeave();
  EXPECT_EQ(form.txtNetto[1].Text() + " " + form.txtBrutto[1].Text(), "0,01 0,01") << "too small a price is replaced all the same";
  ASSERT_TRUE(Set(form.txtNetto[0], "8,20"));
  EXPECT_EQ(form.txtBrutto[0].Text(), "10,00") << "the same text put in counts";
}

TEST_F(GoodsFormTest, SavedArticleComesBackAsItWas) {
  Open(EditMode::kNew);
  ASSERT_TRUE(Set(form.txtNazwa, "Usługa roczna"));
  ASSERT_TRUE(Set(form.txtSymbol, "UR"));
  ASSERT_TRUE(Set(form.txtRodzaj, "Usługa"));
  ASSERT_TRUE(Set(form.txtJednostkaMiary, "godz."));
  ASSERT_TRUE(Set(form.txtStawkaVAT, "7%"));
  ASSERT_TRUE(Set(form.txtWaluta, "EUR - Euro"));
  ASSERT_TRUE(Set(form.txtCenaZakupu, "8"));
  ASSERT_TRUE(Set(form.txtNetto[0], "10"));
  ASSERT_TRUE(Set(form.txtNetto[2], "9,5"));
  ASSERT_TRUE(Set(form.txtSubscriptionON, "true"));
  ASSERT_TRUE(form.txtSubsTDay_.Enabled() && form.subs_label_.Visible() && !form.txtSubsEndAlertDays.Enabled());
  ASSERT_TRUE(Set(form.txtSubsTDay_, "-365"));
  EXPECT_EQ(form.txtSubsTDay_.Text(), "365");
  ASSERT_TRUE(Set(form.txtSubsEndAlert, "true"));
  ASSERT_TRUE(Set(form.txtSubsEndAlertDays, "#14"));
  ASSERT_TRUE(form.btnSave.UserPress());
  ASSERT_EQ(form.saved_record(), 1);
  ClassQDBASE& goods = At(kTowaryUslugi, 1);
  EXPECT_TRUE(goods.Flag("USLUGA"));
  EXPECT_EQ(goods.Text("@JEDNOSTKA_MIARY"), "godz.");
  EXPECT_EQ(goods.Text("@STAWKA_VAT"), "7%");
  EXPECT_EQ(goods.Int(".WALUTA"), 2);
  EXPECT_EQ(goods.Real("CENA_ZAKUPU"), 8);
  EXPECT_EQ(goods.Real("DETAL_NETTO"), 10);
  EXPECT_EQ(goods.Real("DETAL_BRUTTO"), 10.7);
  EXPECT_EQ(goods.Real("DETAL_NARZUT"), 25);
  EXPECT_EQ(goods.Real("DETAL_MARZA"), 20);
  EXPECT_EQ(goods.Real("DETAL_ZYSK"), 2);
  EXPECT_EQ(goods.Real("SPEC_NETTO"), 9.5);
  EXPECT_EQ(goods.Int("ABILOSCDNI"), 365);
  EXPECT_EQ(goods.Int("ABINFOKONIEC"), 14);

  const std::string before = Bytes(kTowaryUslugi);
  Open(EditMode::kEdit, 1);
  EXPECT_EQ(form.txtRodzaj.Text(), "Usługa");
  EXPECT_EQ(form.txtSubsEndAlertDays.Value(), 14);
  EXPECT_EQ(Prices(0), "10,00 10,70 25,00 20,00 2,00");
  ASSERT_TRUE(form.btnSave.UserPress());
  EXPECT_TRUE(Bytes(kTowaryUslugi) == before) << "saving an untouched article changes nothing";
  Open(EditMode::kEdit, 1);
  ASSERT_TRUE(Set(form.txtSubsEndAlert, "false"));
  ASSERT_TRUE(form.btnSave.UserPress());
  EXPECT_EQ(At(kTowaryUslugi, 1).Int("ABINFOKONIEC"), 0);
}

TEST_F(GoodsFormTest, TheDaysOfASubscriptionStayWithinTheField) {
  Open(EditMode::kNew);
  ASSERT_TRUE(Set(form.txtNazwa, "Opieka"));
  ASSERT_TRUE(Set(form.txtSubscriptionON, "true"));
  const std::pair<const char*, const char*> rows[] = {
      {"32767", "32767"}, {"32768", "32767"}, {"-9999999999", "32767"}, {"x", "0"}, {"1,6", "2"}};
  for (const auto& [typed, days] : rows) {
    ASSERT_TRUE(Set(form.txtSubsTDay_, typed));
    EXPECT_EQ(form.txtSubsTDay_.Text(), days) << typed;
  }
  form.txtSubsTDay_.SetText("70000");  // and not left
  ASSERT_TRUE(form.btnSave.UserPress());
  EXPECT_EQ(At(kTowaryUslugi, 1).Int("ABILOSCDNI"), 32767);
}

TEST_F(GoodsFormTest, AmountFormatIsThatOfTheSettings) {
  program.settings.SaveSettingValue(kCommon, "strFormat", "Currency", Value(std::string("0.0")));
  Open(EditMode::kNew);
  ASSERT_TRUE(Set(form.txtNetto[0], "10.26"));
  EXPECT_EQ(form.txtNetto[0].Text(), "10,3");
  EXPECT_EQ(form.txtBrutto[0].Text(), "12,5") << "of the price as typed";
}

}  // namespace
}  // namespace ostrinka
