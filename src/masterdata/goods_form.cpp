#include "masterdata/goods_form.h"

#include <cmath>

#include "base/text.h"
#include "company/tables.h"
#include "documents/goods_prices.h"

namespace ostrinka {
namespace {

enum Kind : int32_t { kGoods = 0, kService = 1 };

struct BoxField {
  TextBoxControl frm_TowUslugi_::*box;
  const char* name;
  const char* field;
};

constexpr BoxField kBoxes[] = {
    {&frm_TowUslugi_::txtSymbol, "txtSymbol", "SYMBOL"}, {&frm_TowUslugi_::txtNazwa, nullptr, "NAZWA"},
    {&frm_TowUslugi_::txtOpis, "txtOpis", "OPIS"},       {&frm_TowUslugi_::txtPKWiU, "txtPKWiU", "PKWIU"},
    {&frm_TowUslugi_::txtSWW, "txtSWW", "SWW"},          {&frm_TowUslugi_::txtWWW, nullptr, "ADRES_WWW"},
    {&frm_TowUslugi_::txtUwagi, "txtUwagi", "UWAGI"},
};

struct PriceField {
  frm_TowUslugi_::PriceFields frm_TowUslugi_::*boxes;
  const char* name;
  const char* suffix;
};

constexpr const char* kSetNames[frm_TowUslugi_::kPriceSets] = {"DETAL", "HURT", "SPEC"};
constexpr PriceField kPrices[] = {
    {&frm_TowUslugi_::txtNetto, "txtNetto", "_NETTO"},    {&frm_TowUslugi_::txtBrutto, "txtBrutto", "_BRUTTO"},
    {&frm_TowUslugi_::txtNarzut, "txtNarzut", "_NARZUT"}, {&frm_TowUslugi_::txtMarża, "txtMarża", "_MARZA"},
    {&frm_TowUslugi_::txtZysk, "txtZysk", "_ZYSK"},
};

struct ReminderChoice {
  int32_t days;
  const char* key;
};
constexpr ReminderChoice kReminders[] = {{7, "sdoc.abn.rem.7"}, {14, "sdoc.abn.rem.14"}, {31, "sdoc.abn.rem.31"}};

constexpr double kLongestSubscription = 32767;  // what the field of the table holds

std::string RateName(ClassQDBASE& rates) {
  return Trim(rates.Text("NAZWA")) + " (" + Trim(rates.Text("SYMBOL")) + ")";
}

std::string CurrencyName(ClassQDBASE& currencies) {
  const std::string code = Trim(currencies.Text("KODWAL")), name = Trim(currencies.Text("NAZWA"));
  return code.empty() && name.empty() ? std::string() : code + " - " + name;
}

}  // namespace

frm_TowUslugi_::frm_TowUslugi_(Program& program) : RecordEditor(program, kTowaryUslugi, "frm_TowUslugi_", "product") {
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

void frm_TowUslugi_::reload_(int mode, int32_t record) {
  Fill(mode, mode == 2 ? record : 0);
}

void frm_TowUslugi_::clone_(int32_t record) {
  Fill(1, record);
}

void frm_TowUslugi_::Fill(int mode, int32_t record) {
  FillLists();
  ClearFields();
  StartNew();
  if (Begin(mode, record)) ShowRecord();
  currency_shown_ = txtWaluta.Value();
  ShowRateName();
  ShowSubscription();
  Ready();
}

void frm_TowUslugi_::FillLists() {
  txtRodzaj.Clear();
  txtRodzaj.AddItem("Towar", kGoods);
  txtRodzaj.AddItem("Usługa", kService);
  FillFromTable(program_, kGrupaTU, txtGrupa, "NAZWA", true);
  FillFromTable(program_, kJednMiary, txtJednostkaMiary, "SYMBOL", true);
  FillFromTable(program_, kStawkiVat, txtStawkaVAT, "SYMBOL", false);
  FillFromTable(program_, kWaluty, txtWaluta, CurrencyName, false);
  txtSubsEndAlertDays.Clear();
  for (const ReminderChoice& choice : kReminders) txtSubsEndAlertDays.AddItem(program_.Text(choice.key), choice.days);
}

void frm_TowUslugi_::ClearFields() {
  for (const BoxField& entry : kBoxes) {
    LimitToField(table(), entry.field, this->*entry.box);
    (this->*entry.box).SetText("");
  }
  for (const PriceField& entry : kPrices) {
    for (TextBoxControl& box : this->*entry.boxes) box.SetText("0");
  }
  txtCenaZakupu.SetText("0");
  txtSubsTDay_.SetText("0");
}

void frm_TowUslugi_::StartNew() {
  txtRodzaj.SelectValue(kGoods);
  txtGrupa.SelectValue(0);
  txtJednostkaMiary.SelectValue(0);
  txtStawkaVAT.SetListIndex(0);
  txtWaluta.SetListIndex(0);
  txtSubscriptionON.SetChecked(false);
  txtSubsEndAlert.SetChecked(false);
  txtSubsEndAlertDays.SetListIndex(0);
}

void frm_TowUslugi_::ShowRecord() {
  ClassQDBASE& goods = table();
  for (const BoxField& entry : kBoxes) (this->*entry.box).SetText(Trim(goods.Text(entry.field)));
  txtRodzaj.SelectValue(goods.Flag("USLUGA") ? kService : kGoods);
  ShowLink(goods, "GRUPA", txtGrupa);
  ShowLink(goods, "JEDNOSTKA_MIARY", txtJednostkaMiary);
  ShowLink(goods, "STAWKA_VAT", txtStawkaVAT);
  ShowCurrency(goods.Int(".WALUTA"));
  Write(txtCenaZakupu, goods.Real("CENA_ZAKUPU"));
  for (const PriceField& entry : kPrices) {
    for (size_t i = 0; i < kPriceSets; ++i) Write((this->*entry.boxes)[i], goods.Real(std::string(kSetNames[i]) + entry.suffix));
  }
  txtSubscriptionON.SetChecked(goods.Flag("ABONAMENT"));
  txtSubsTDay_.SetText(FormatNumber(Value(goods.Int("ABILOSCDNI")), "0"));
  const int32_t reminder = goods.Int("ABINFOKONIEC");
  txtSubsEndAlert.SetChecked(reminder > 0);
  if (reminder > 0) txtSubsEndAlertDays.SelectValue(reminder);
}

// A deleted currency too: the prices are in it.
void frm_TowUslugi_::ShowCurrency(int32_t record) {
  ClassQDBASE& currencies = Table(program_, kWaluty);
  SelectOrAdd(txtWaluta, record, record > 0 && currencies.RECORD_LOAD(record) ? CurrencyName(currencies) : std::string());
}

void frm_TowUslugi_::save_() {
  ClassQDBASE& goods = table();
  goods.FIELD("USLUGA", Value(txtRodzaj.Value() == kService));
  SaveLink(goods, "GRUPA", txtGrupa);
  for (const BoxField& entry : kBoxes) goods.FIELD(entry.field, Value(Trim((this->*entry.box).Text())));
  SaveLink(goods, "JEDNOSTKA_MIARY", txtJednostkaMiary);
  goods.FIELD("CENA_ZAKUPU", Value(Amount(txtCenaZakupu)));
  SaveLink(goods, "STAWKA_VAT", txtStawkaVAT);
  SaveLink(goods, "WALUTA", txtWaluta);
  for (const PriceField& entry : kPrices) {
    for (size_t i = 0; i < kPriceSets; ++i) {
      goods.FIELD(std::string(kSetNames[i]) + entry.suffix, Value(Amount((this->*entry.boxes)[i])));
    }
  }
  NormaliseDays();
  goods.FIELD("ABONAMENT", Value(txtSubscriptionON.Checked()));
  goods.FIELD("ABILOSCDNI", Value(Int32Or0(Value(Amount(txtSubsTDay_)))));
  if (!txtSubsEndAlert.Checked()) {
    goods.FIELD("ABINFOKONIEC", Value(int32_t{0}));
  } else if (txtSubsEndAlertDays.ListIndex() >= 0) {
    goods.FIELD("ABINFOKONIEC", Value(txtSubsEndAlertDays.Value()));
  }
}

void frm_TowUslugi_::ShowRateName() {
  ClassQDBASE& rates = Table(program_, kStawkiVat);
  const int32_t record = txtStawkaVAT.Value();
  lblStawkaVAT.SetText(record > 0 && rates.RECORD_LOAD(record) ? RateName(rates) : std::string());
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
