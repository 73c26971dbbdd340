#include "masterdata/customer_form.h"

#include "base/text.h"
#include "books/dictionary_rows.h"
#include "books/rows.h"
#include "masterdata/postal.h"

namespace ostrinka {
namespace {

struct BoxField {
  TextBoxControl frm_Kontrahenci_::*box;
  const char* name;
  Column<std::string> column;
};

constexpr BoxField kBoxes[] = {
    {&frm_Kontrahenci_::txtSymbol, "txtSymbol", customer_columns::kSymbol},
    {&frm_Kontrahenci_::txtUlica, "txtUlica", customer_columns::kStreet},
    {&frm_Kontrahenci_::txtNrDomu, "txtNrDomu", customer_columns::kHouse},
    {&frm_Kontrahenci_::txtNrLokalu, "txtNrLokalu", customer_columns::kFlat},
    {&frm_Kontrahenci_::txtKodPocztowy, "txtKodPocztowy", customer_columns::kPostalCode},
    {&frm_Kontrahenci_::txtMiejscowość, "txtMiejscowość", customer_columns::kTown},
    {&frm_Kontrahenci_::txtBank, "txtBank", customer_columns::kBank},
    {&frm_Kontrahenci_::txtSWIFT, "txtSWIFT", customer_columns::kSwift},
    {&frm_Kontrahenci_::txtNrKonta, "txtNrKonta", customer_columns::kAccount},
    {&frm_Kontrahenci_::txtTelefon, "txtTelefon", customer_columns::kPhone},
    {&frm_Kontrahenci_::txtTelKom, "txtTelKom", customer_columns::kMobile},
    {&frm_Kontrahenci_::txtFaks, "txtFaks", customer_columns::kFax},
    {&frm_Kontrahenci_::TxtNIP, "TxtNIP", customer_columns::kTaxNumber},
    {&frm_Kontrahenci_::txtNIPEU, "txtNIPEU", customer_columns::kEuTaxNumber},
    {&frm_Kontrahenci_::txtKRS, "txtKRS", customer_columns::kRegister},
    {&frm_Kontrahenci_::txtRegon, "txtRegon", customer_columns::kStatistical},
    {&frm_Kontrahenci_::txtEMail, "txtEMail", customer_columns::kEmail},
    {&frm_Kontrahenci_::txtUwagi, "txtUwagi", customer_columns::kNotes},
};

struct ListField {
  ComboControl frm_Kontrahenci_::*list;
  const char* name;
  Column<Link> column;
  Column<std::string> shown;  // of the table that it leads to
  bool blank_first;
  bool sorted;
};

constexpr ListField kLists[] = {
    {&frm_Kontrahenci_::txtGrupa, "txtGrupa", customer_columns::kGroup, group_columns::kName, true, false},
    {&frm_Kontrahenci_::txtPaństwo, "txtPaństwo", customer_columns::kCountry, country_columns::kName, true, true},
    {&frm_Kontrahenci_::txtWojewództwo, "txtWojewództwo", customer_columns::kRegion, region_columns::kName, true, true},
    {&frm_Kontrahenci_::txtFormaPłat, "txtFormaPłat", customer_columns::kPaymentForm, payment_form_columns::kName, false, false},
};

constexpr int32_t kFirstRegionCode = 2;

}  // namespace

frm_Kontrahenci_::frm_Kontrahenci_(Program& program) : RecordEditor(program, customer_columns::kFiles, "frm_Kontrahenci_", "customer") {
  RegisterControls();
  LayOut();
  Connect();
}

void frm_Kontrahenci_::RegisterControls() {
  for (const BoxField& entry : kBoxes) Register(entry.name, this->*entry.box);
  for (const ListField& entry : kLists) Register(entry.name, this->*entry.list);
  txtUwagi.MultiLine = true;
  btnFindCity.caption_key = "customer.btn.postcode";
  btnMAILgo.caption_key = "customer.btn.mail";
  btnMAILgo.icon = "btnmail.ico";
  Register("btnFindCity", btnFindCity);
  Register("btnMAILgo", btnMAILgo);
}

void frm_Kontrahenci_::LayOut() {
  Page("STD", "customer.tab.std")
      .Row({{"customer.lbl.name", txtNazwa, 12}})
      .Row({{"customer.lbl.symbol", txtSymbol, 3}, {"customer.lbl.group", txtGrupa, 5}, {"customer.lbl.nip", TxtNIP, 4}})
      .Side({GroupLayout("customer.grp.address", 7)
                 .Row({{"customer.lbl.street", txtUlica, 6}, {"customer.lbl.house", txtNrDomu, 3}, {"customer.lbl.local", txtNrLokalu, 3}})
                 .Row({{"customer.lbl.postcode", txtKodPocztowy, 3}, {"customer.lbl.city", txtMiejscowość, 6}, {"", btnFindCity, 3}})
                 .Row({{"customer.lbl.region", txtWojewództwo, 6}, {"customer.lbl.country", txtPaństwo, 6}}),
             GroupLayout("customer.grp.numbers", 5)
                 .Row({{"customer.lbl.nipeu", txtNIPEU, 6}, {"customer.lbl.regon", txtRegon, 6}})
                 .Row({{"customer.lbl.krs", txtKRS, 12}})
                 .Row({{"customer.lbl.payform", txtFormaPłat, 12}})})
      .Side({GroupLayout("customer.grp.bank", 7)
                 .Row({{"customer.lbl.bank", txtBank, 8}, {"customer.lbl.swift", txtSWIFT, 4}})
                 .Row({{"customer.lbl.account", txtNrKonta, 12}}),
             GroupLayout("customer.grp.contact", 5)
                 .Row({{"customer.lbl.phone", txtTelefon, 6}, {"customer.lbl.mobile", txtTelKom, 6}})
                 .Row({{"customer.lbl.fax", txtFaks, 6}})});
  Page("OTH", "customer.tab.oth")
      .Row({{"customer.lbl.email", txtEMail, 9}, {"", btnMAILgo, 3}})
      .Row({{"customer.lbl.www", txtWWW, 9}, {"", btnWWWgo, 3}})
      .Row({{"customer.lbl.notes", txtUwagi, 12, kStretch}})
      .Files(memoCONTROL_, memoAdd_, memoDel_, memoExec_, "customer.lbl.files");
}

void frm_Kontrahenci_::Connect() {
  for (TextBoxControl* box : {&TxtNIP, &txtNIPEU, &txtNrKonta, &txtRegon}) box->Changed += [this] { CheckNumbers(); };
  for (Event* event : {&txtKodPocztowy.Changed, &txtKodPocztowy.Clicked}) *event += [this] { LastCityField = 1; };
  for (Event* event : {&txtMiejscowość.Changed, &txtMiejscowość.Clicked}) *event += [this] { LastCityField = 2; };
  txtWojewództwo.Changed += [this] { RegionChosen(); };
  btnFindCity.Clicked += [this] { FindCity(); };
  btnMAILgo.Clicked += [this] { program_.platform.ui.OpenAddress(MailAddress(Trim(txtEMail.Text()))); };
}

void frm_Kontrahenci_::reload_(EditMode mode, int32_t record) {
  Fill(mode, mode == EditMode::kEdit ? record : 0);
}

void frm_Kontrahenci_::clone_(int32_t record) {
  Fill(EditMode::kNew, record);
}

void frm_Kontrahenci_::Fill(EditMode mode, int32_t record) {
  FillLists();
  ClearFields();
  StartLists();
  Begin(mode, record);
  ShowRecord(record);
  Ready();
}

void frm_Kontrahenci_::FillLists() {
  for (const ListField& entry : kLists) {
    FillFromTable(program_, entry.shown, this->*entry.list, entry.blank_first);
    if (entry.sorted) (this->*entry.list).Sort();
  }
}

void frm_Kontrahenci_::ClearFields() {
  LimitToField(program_, customer_columns::kName, txtNazwa);
  LimitToField(program_, customer_columns::kWeb, txtWWW);
  for (TextBoxControl* box : {&txtNazwa, &txtWWW}) box->SetText("");
  for (const BoxField& entry : kBoxes) {
    TextBoxControl& box = this->*entry.box;
    LimitToField(program_, entry.column, box);
    box.SetText("");
    box.SetWarning(false);
  }
  LastCityField = 0;
}

// A new customer lives where the settings say, and nowhere while they say nothing.
void frm_Kontrahenci_::StartLists() {
  for (const ListField& entry : kLists) (this->*entry.list).SelectValue(0);
  const std::string country = program_.settings.Text(kCommon, "prgSettings", "KHCountry");
  const std::string region = program_.settings.Text(kCommon, "prgSettings", "KHRegion");
  if (!txtPaństwo.SelectText(country)) txtPaństwo.SelectValue(0);
  if (!txtWojewództwo.SelectText(region)) txtWojewództwo.SelectValue(0);
}

void frm_Kontrahenci_::ShowRecord(int32_t record) {
  const auto customer = Read<Customer>(program_, record);
  if (!customer) return;
  txtNazwa.SetText(Trim(customer->name));
  txtWWW.SetText(Trim(customer->web));
  for (const BoxField& entry : kBoxes) (this->*entry.box).SetText(Trim(ReadColumn(program_, entry.column, record)));
  for (const ListField& entry : kLists) ShowLink(program_, entry.column, record, this->*entry.list);
  CheckNumbers();
}

ColumnValues frm_Kontrahenci_::save_() {
  ColumnValues values;
  values.Set(customer_columns::kName, Trim(txtNazwa.Text()));
  values.Set(customer_columns::kWeb, Trim(txtWWW.Text()));
  for (const BoxField& entry : kBoxes) values.Set(entry.column, Trim((this->*entry.box).Text()));
  for (const ListField& entry : kLists) SaveLink(values, entry.column, this->*entry.list);
  return values;
}

void frm_Kontrahenci_::CheckNumbers() {
  MarkNumbers(program_, txtNrKonta, TxtNIP, txtRegon);
}

void frm_Kontrahenci_::FindCity() {
  const int last = LastCityField;
  LastCityField = 0;
  if (last == 0) return;
  const auto& postal = program_.Part<PostalTable>();
  const bool by_town = last == 2;
  const std::string town = Trim(txtMiejscowość.Text()), code = Trim(txtKodPocztowy.Text());
  const std::string found = by_town ? postal.CodeOfTown(town, code) : postal.TownOfCode(code);
  if (!found.empty()) (by_town ? txtKodPocztowy : txtMiejscowość).SetText(found);
  ShowRegionOf(Trim(txtKodPocztowy.Text()));
  SetDirty(true);
}

void frm_Kontrahenci_::ShowRegionOf(const std::string& postal_code) {
  const int32_t code = PostalTable::RegionOfCode(postal_code);
  if (code < kFirstRegionCode) return;
  EachRow<Region>(program_, [&](int32_t record, const Region& row) {
    if (row.code != code) return true;
    const int region = txtWojewództwo.FindIdByValue(record);
    if (region >= 0) txtWojewództwo.SetListIndex(region);
    const int country = txtPaństwo.FindIdByValue(row.country);
    if (country >= 0) txtPaństwo.SetListIndex(country);
    return false;
  });
}

// kept: without a region the place goes too, since it lay in the region that was taken away
void frm_Kontrahenci_::RegionChosen() {
  if (txtWojewództwo.Value() != 0) return;
  txtKodPocztowy.SetText("");
  txtMiejscowość.SetText("");
}

}  // namespace ostrinka
