#include "masterdata/customer_form.h"

#include "base/text.h"
#include "company/tables.h"
#include "masterdata/postal.h"

namespace ostrinka {
namespace {

struct BoxField {
  TextBoxControl frm_Kontrahenci_::*box;
  const char* name;
  const char* field;
};

constexpr BoxField kBoxes[] = {
    {&frm_Kontrahenci_::txtSymbol, "txtSymbol", "SYMBOL"},
    {&frm_Kontrahenci_::txtUlica, "txtUlica", "ULICA"},
    {&frm_Kontrahenci_::txtNrDomu, "txtNrDomu", "NR_DOMU"},
    {&frm_Kontrahenci_::txtNrLokalu, "txtNrLokalu", "NR_LOKALU"},
    {&frm_Kontrahenci_::txtKodPocztowy, "txtKodPocztowy", "KOD_POCZTOWY"},
    {&frm_Kontrahenci_::txtMiejscowość, "txtMiejscowość", "MIEJSCOWOSC"},
    {&frm_Kontrahenci_::txtBank, "txtBank", "BANK_NAZWA"},
    {&frm_Kontrahenci_::txtSWIFT, "txtSWIFT", "BANK_SWIFT"},
    {&frm_Kontrahenci_::txtNrKonta, "txtNrKonta", "BANK_RACHUNEK"},
    {&frm_Kontrahenci_::txtTelefon, "txtTelefon", "TELEFON"},
    {&frm_Kontrahenci_::txtTelKom, "txtTelKom", "TEL_KOM"},
    {&frm_Kontrahenci_::txtFaks, "txtFaks", "FAKS"},
    {&frm_Kontrahenci_::TxtNIP, "TxtNIP", "NIP"},
    {&frm_Kontrahenci_::txtNIPEU, "txtNIPEU", "NIP_EU"},
    {&frm_Kontrahenci_::txtKRS, "txtKRS", "KRS"},
    {&frm_Kontrahenci_::txtRegon, "txtRegon", "REGON"},
    {&frm_Kontrahenci_::txtEMail, "txtEMail", "ADRES_EMAIL"},
    {&frm_Kontrahenci_::txtUwagi, "txtUwagi", "UWAGI"},
};

struct ListField {
  ComboControl frm_Kontrahenci_::*list;
  const char* name;
  const char* field;
  int table;
  bool blank_first;
  bool sorted;
};

constexpr ListField kLists[] = {
    {&frm_Kontrahenci_::txtGrupa, "txtGrupa", "GRUPA", kGrupy, true, false},
    {&frm_Kontrahenci_::txtPaństwo, "txtPaństwo", "PANSTWO", kPanstwa, true, true},
    {&frm_Kontrahenci_::txtWojewództwo, "txtWojewództwo", "WOJEWODZTWO", kRegiony, true, true},
    {&frm_Kontrahenci_::txtFormaPłat, "txtFormaPłat", "D_FORMA_PLAT", kFormyPlatn, false, false},
};

constexpr int32_t kFirstRegionCode = 2;

}  // namespace

frm_Kontrahenci_::frm_Kontrahenci_(Program& program) : RecordEditor(program, kKontrahenci, "frm_Kontrahenci_", "customer") {
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

void frm_Kontrahenci_::reload_(int mode, int32_t record) {
  FillLists();
  ClearFields();
  StartLists();
  if (Begin(mode, mode == 2 ? record : 0)) ShowRecord();
  Ready();
}

void frm_Kontrahenci_::clone_(int32_t record) {
  FillLists();
  ClearFields();
  StartLists();
  if (Begin(1, record)) ShowRecord();
  Ready();
}

void frm_Kontrahenci_::FillLists() {
  for (const ListField& entry : kLists) {
    FillFromTable(program_, entry.table, this->*entry.list, "NAZWA", entry.blank_first);
    if (entry.sorted) (this->*entry.list).Sort();
  }
}

void frm_Kontrahenci_::ClearFields() {
  LimitToField(table(), "NAZWA", txtNazwa);
  LimitToField(table(), "ADRES_WWW", txtWWW);
  for (TextBoxControl* box : {&txtNazwa, &txtWWW}) box->SetText("");
  for (const BoxField& entry : kBoxes) {
    TextBoxControl& box = this->*entry.box;
    LimitToField(table(), entry.field, box);
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

void frm_Kontrahenci_::ShowRecord() {
  ClassQDBASE& customers = table();
  txtNazwa.SetText(Trim(customers.Text("NAZWA")));
  txtWWW.SetText(Trim(customers.Text("ADRES_WWW")));
  for (const BoxField& entry : kBoxes) (this->*entry.box).SetText(Trim(customers.Text(entry.field)));
  for (const ListField& entry : kLists) ShowLink(customers, entry.field, this->*entry.list);
  CheckNumbers();
}

void frm_Kontrahenci_::save_() {
  ClassQDBASE& customers = table();
  customers.FIELD("NAZWA", Value(Trim(txtNazwa.Text())));
  customers.FIELD("ADRES_WWW", Value(Trim(txtWWW.Text())));
  for (const BoxField& entry : kBoxes) customers.FIELD(entry.field, Value(Trim((this->*entry.box).Text())));
  for (const ListField& entry : kLists) SaveLink(customers, entry.field, this->*entry.list);
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
  ClassQDBASE& regions = Table(program_, kRegiony);
  const int32_t count = regions.RECORD_COUNT();
  for (int32_t record = 1; record <= count; ++record) {
    if (!regions.RECORD_EXIST(record) || !regions.RECORD_LOAD(record) || regions.Int("KOD") != code) continue;
    const int region = txtWojewództwo.FindIdByValue(record);
    if (region >= 0) txtWojewództwo.SetListIndex(region);
    const int country = txtPaństwo.FindIdByValue(regions.Int(".PANSTWO"));
    if (country >= 0) txtPaństwo.SetListIndex(country);
    return;
  }
}

void frm_Kontrahenci_::RegionChosen() {
  if (txtWojewództwo.Value() != 0) return;
  txtKodPocztowy.SetText("");
  txtMiejscowość.SetText("");
}

}  // namespace ostrinka
