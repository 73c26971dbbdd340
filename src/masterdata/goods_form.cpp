#include "masterdata/goods_form.h"

#include <cmath>

#include "base/text.h"
#include "books/dictionary_rows.h"
#include "books/rows.h"
#include "documents/goods_prices.h"

namespace ostrinka {
namespace {

constexpr int32_t kGoodsKind = 0, kServiceKind = 1;

struct BoxField {
  TextBoxControl frm_TowUslugi_::*box;
  const char* name;
  Column<std::string> column;
};

constexpr BoxField kBoxes[] = {
    {&frm_TowUslugi_::txtSymbol, "txtSymbol", article_columns::kSymbol},  {&frm_TowUslugi_::txtNazwa, nullptr, article_columns::kName},
    {&frm_TowUslugi_::txtOpis, "txtOpis", article_columns::kDescription}, {&frm_TowUslugi_::txtPKWiU, "txtPKWiU", article_columns::kCode},
    {&frm_TowUslugi_::txtSWW, "txtSWW", article_columns::kSww},           {&frm_TowUslugi_::txtWWW, nullptr, article_columns::kWeb},
    {&frm_TowUslugi_::txtUwagi, "txtUwagi", article_columns::kNotes},
};

struct PriceField {
  frm_TowUslugi_::PriceFields frm_TowUslugi_::*boxes;
  const char* name;
  Column<double> article_columns::PriceSet::*column;
};

constexpr PriceField kPrices[] = {
    {&frm_TowUslugi_::txtNetto, "txtNetto", &article_columns::PriceSet::net},
    {&frm_TowUslugi_::txtBrutto, "txtBrutto", &article_columns::PriceSet::gross},
    {&frm_TowUslugi_::txtNarzut, "txtNarzut", &article_columns::PriceSet::markup},
    {&frm_TowUslugi_::txtMarża, "txtMarża", &article_columns::PriceSet::margin},
    {&frm_TowUslugi_::txtZysk, "txtZysk", &article_columns::PriceSet::profit},
};
static_assert(frm_TowUslugi_::kPriceSets == article_columns::kPriceSets.size());

struct ReminderChoice {
  int32_t days;
  const char* key;
};
constexpr ReminderChoice kReminders[] = {{7, "sdoc.abn.rem.7"}, {14, "sdoc.abn.rem.14"}, {31, "sdoc.abn.rem.31"}};

constexpr double kLongestSubscription = 32767;  // what the field of the table holds

std::string CurrencyName(const CurrencyRow& currency) {
  const std::string code = Trim(currency.code), name = Trim(currency.name);
  return code.empty() && name.empty() ? std::string() : code + " - " + name;
}

}  // namespace

frm_TowUslugi_::frm_TowUslugi_(Program& program) : RecordEditor(program, article_columns::kFiles, "frm_TowUslugi_", "product") {
  RegisterControls();
  LayOut();
  Connect();
}

void frm_TowUslugi_::RegisterControls() {
  for (const BoxField& entry : kBoxes) {
    if (entry.name) Register(entry.name, this->*entry.box);
  }
  Register("txtRodzaj", txtRodzaj);
  Register("txtGrupa", txtGrupa);
  Register("txtJednostkaMiary", txtJednostkaMiary);
  Register("txtCenaZakupu", txtCenaZakupu);
  Register("txtStawkaVAT", txtStawkaVAT);
  Register("lblStawkaVAT", lblStawkaVAT);
  Register("txtWaluta", txtWaluta);
  for (const PriceField& entry : kPrices) Register(entry.name, this->*entry.boxes);
  Register("txtSubscriptionON", txtSubscriptionON);
  Register("subs_label_", subs_label_);
  Register("txtSubsTDay_", txtSubsTDay_);
  Register("sdays_label_", sdays_label_);
  Register("txtSubsEndAlert", txtSubsEndAlert);
  Register("txtSubsEndAlertDays", txtSubsEndAlertDays);
  txtOpis.MultiLine = true;
  txtUwagi.MultiLine = true;
  txtSubscriptionON.caption_key = "product.subscriptiongoodservice";
  txtSubsEndAlert.caption_key = "product.lbl.subsalert";
  subs_label_.caption_key = "product.lbl.subslength";
  sdays_label_.caption_key = "product.lbl.days";
}

void frm_TowUslugi_::LayOut() {
  Page("STD", "product.tab.std")
      .Row({{"product.lbl.name", txtNazwa, 12}})
      .Row({{"product.lbl.symbol", txtSymbol, 3}, {"product.lbl.kind", txtRodzaj, 3}, {"product.lbl.group", txtGrupa, 6}})
      .Row({{"product.lbl.unit", txtJednostkaMiary, 3}, {"product.lbl.pkwiu", txtPKWiU, 5}, {"product.lbl.sww", txtSWW, 4}})
      .Row({{"product.lbl.currency", txtWaluta, 6}, {"product.lbl.vat", txtStawkaVAT, 2}, {"", lblStawkaVAT, 4}})
      .Row({{"product.lbl.purchase", txtCenaZakupu, 3, kRight}})
      .Matrix({"product.lbl.net", "product.lbl.gross", "product.lbl.markup", "product.lbl.margin", "product.lbl.profit"},
              {ControlsOf(txtNetto), ControlsOf(txtBrutto), ControlsOf(txtNarzut), ControlsOf(txtMarża), ControlsOf(txtZysk)},
              {"product.lbl.retail", "product.lbl.wholesale", "product.lbl.special"})
      .Row({{"product.lbl.desc", txtOpis, 12, kStretch}});
  Page("OTH", "product.tab.oth")
      .Row({{"", txtSubscriptionON, 5}, {"", subs_label_, 3, kRight}, {"", txtSubsTDay_, 2, kRight}, {"", sdays_label_, 2}})
      .Row({{"", txtSubsEndAlert, 8}, {"", txtSubsEndAlertDays, 4}})
      .Row({{"product.lbl.www", txtWWW, 9}, {"", btnWWWgo, 3}})
      .Row({{"product.lbl.notes", txtUwagi, 12, kStretch}})
      .Files(memoCONTROL_, memoAdd_, memoDel_, memoExec_, "product.lbl.files");
}

void frm_TowUslugi_::Connect() {
  txtCenaZakupu.Left += [this] { PurchaseLeft(); };
  for (size_t i = 0; i < kPriceSets; ++i) {
    txtNetto[i].Left += [this, i] { NetLeft(i); };
    txtBrutto[i].Left += [this, i] { GrossLeft(i); };
    txtZysk[i].Left += [this, i] { ProfitLeft(i); };
    txtMarża[i].Left += [this, i] { MarginLeft(i); };
    txtNarzut[i].Left += [this, i] { MarkupLeft(i); };
  }
  txtStawkaVAT.Left += [this] { RateLeft(); };
  txtStawkaVAT.Changed += [this] { ShowRateName(); };
  txtWaluta.Changed += [this] { CurrencyChosen(); };
  txtSubscriptionON.Changed += [this] { ShowSubscription(); };
  txtSubsEndAlert.Changed += [this] { ShowSubscription(); };
  txtSubsTDay_.Left += [this] { NormaliseDays(); };
}

void frm_TowUslugi_::reload_(EditMode mode, int32_t record) {
  Fill(mode, mode == EditMode::kEdit ? record : 0);
}

void frm_TowUslugi_::clone_(int32_t record) {
  Fill(EditMode::kNew, record);
}

void frm_TowUslugi_::Fill(EditMode mode, int32_t record) {
  FillLists();
  ClearFields();
  StartNew();
  Begin(mode, record);
  ShowRecord(record);
  currency_shown_ = txtWaluta.Value();
  ShowRateName();
  ShowSubscription();
  Ready();
}

void frm_TowUslugi_::FillLists() {
  txtRodzaj.Clear();
  txtRodzaj.AddItem("Towar", kGoodsKind);
  txtRodzaj.AddItem("Usługa", kServiceKind);
  FillFromTable(program_, article_group_columns::kName, txtGrupa, true);
  FillFromTable(program_, unit_columns::kSymbol, txtJednostkaMiary, true);
  FillFromTable(program_, vat_rate_columns::kSymbol, txtStawkaVAT, false);
  FillFromRows<CurrencyRow>(program_, txtWaluta, CurrencyName, false);
  txtSubsEndAlertDays.Clear();
  for (const ReminderChoice& choice : kReminders) txtSubsEndAlertDays.AddItem(program_.Text(choice.key), choice.days);
}

void frm_TowUslugi_::ClearFields() {
  for (const BoxField& entry : kBoxes) {
    LimitToField(program_, entry.column, this->*entry.box);
    (this->*entry.box).SetText("");
  }
  for (const PriceField& entry : kPrices) {
    for (TextBoxControl& box : this->*entry.boxes) box.SetText("0");
  }
  txtCenaZakupu.SetText("0");
  txtSubsTDay_.SetText("0");
}

void frm_TowUslugi_::StartNew() {
  txtRodzaj.SelectValue(kGoodsKind);
  txtGrupa.SelectValue(0);
  txtJednostkaMiary.SelectValue(0);
  txtStawkaVAT.SetListIndex(0);
  txtWaluta.SetListIndex(0);
  txtSubscriptionON.SetChecked(false);
  txtSubsEndAlert.SetChecked(false);
  txtSubsEndAlertDays.SetListIndex(0);
}

void frm_TowUslugi_::ShowRecord(int32_t record) {
  using namespace article_columns;
  const auto article = Read<Article>(program_, record);
  if (!article) return;
  for (const BoxField& entry : kBoxes) (this->*entry.box).SetText(Trim(ReadColumn(program_, entry.column, record)));
  txtRodzaj.SelectValue(article->service ? kServiceKind : kGoodsKind);
  ShowLink(program_, kGroup, record, txtGrupa);
  ShowLink(program_, kUnit, record, txtJednostkaMiary);
  ShowLink(program_, kRate, record, txtStawkaVAT);
  ShowCurrency(article->currency);
  Write(txtCenaZakupu, article->purchase_price);
  for (const PriceField& entry : kPrices) {
    for (size_t i = 0; i < article_columns::kPriceSets.size(); ++i) {
      Write((this->*entry.boxes)[i], ReadColumn(program_, article_columns::kPriceSets[i].*entry.column, record));
    }
  }
  txtSubscriptionON.SetChecked(article->subscription);
  txtSubsTDay_.SetText(FormatNumber(Value(int32_t{article->subscription_days}), "0"));
  const int32_t reminder = article->reminder_days;
  txtSubsEndAlert.SetChecked(reminder > 0);
  if (reminder > 0) txtSubsEndAlertDays.SelectValue(reminder);
}

// A deleted currency too: the prices are in it.
void frm_TowUslugi_::ShowCurrency(int32_t record) {
  const auto currency = Read<CurrencyRow>(program_, record);
  SelectOrAdd(txtWaluta, record, currency ? CurrencyName(*currency) : std::string());
}

ColumnValues frm_TowUslugi_::save_() {
  using namespace article_columns;
  ColumnValues values;
  values.Set(kService, txtRodzaj.Value() == kServiceKind);
  SaveLink(values, kGroup, txtGrupa);
  for (const BoxField& entry : kBoxes) values.Set(entry.column, Trim((this->*entry.box).Text()));
  SaveLink(values, kUnit, txtJednostkaMiary);
  values.Set(kPurchasePrice, Amount(txtCenaZakupu));
  SaveLink(values, kRate, txtStawkaVAT);
  SaveLink(values, kCurrencyLink, txtWaluta);
  for (const PriceField& entry : kPrices) {
    for (size_t i = 0; i < article_columns::kPriceSets.size(); ++i) {
      values.Set(article_columns::kPriceSets[i].*entry.column, Amount((this->*entry.boxes)[i]));
    }
  }
  NormaliseDays();
  values.Set(kSubscription, txtSubscriptionON.Checked());
  values.Set(kSubscriptionDays, static_cast<int16_t>(Amount(txtSubsTDay_)));
  if (!txtSubsEndAlert.Checked()) {
    values.Set(kReminderDays, 0);
  } else if (txtSubsEndAlertDays.ListIndex() >= 0) {
    values.Set(kReminderDays, static_cast<int16_t>(txtSubsEndAlertDays.Value()));
  }
  return values;
}

void frm_TowUslugi_::ShowRateName() {
  const auto rate = Read<VatRate>(program_, txtStawkaVAT.Value());
  lblStawkaVAT.SetText(rate ? Trim(rate->name) + " (" + Trim(rate->symbol) + ")" : std::string());
}

void frm_TowUslugi_::ShowSubscription() {
  const bool on = txtSubscriptionON.Checked();
  subs_label_.SetVisible(on);
  sdays_label_.SetVisible(on);
  txtSubsTDay_.SetEnabled(on);
  txtSubsEndAlert.SetEnabled(on);
  txtSubsEndAlertDays.SetEnabled(on && txtSubsEndAlert.Checked());
}

void frm_TowUslugi_::NormaliseDays() {
  const double days = std::min(std::abs(Amount(txtSubsTDay_)), kLongestSubscription);
  txtSubsTDay_.SetText(FormatNumber(Value(Int32Or0(Value(days))), "0"));
}

}  // namespace ostrinka
