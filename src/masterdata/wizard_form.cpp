#include "masterdata/wizard_form.h"

#include "base/text.h"
#include "company/company_fields.h"
#include "company/table_definitions.h"
#include "exchange/import_check.h"
#include "masterdata/company_data.h"
#include "masterdata/postal.h"

namespace ostrinka {
namespace {

constexpr const char* kFactoryLogin = "kreda";
constexpr size_t kDatabaseStep = 1, kImportStep = 2, kCompanyStep = 3;
constexpr const char* kProbe = "ostrinka.tmp";  // written and removed to see whether a folder takes files

}  // namespace

frm_Admin_bg_::frm_Admin_bg_(Program& program)
    : Form("frm_Admin_bg_", "bg.title"), program_(program), place_(program, dbLocal, txtDbPath, btnBrowse, "bg.lbl.path") {
  RegisterControls();
  LayOut();
  Connect();
}

void frm_Admin_bg_::RegisterControls() {
  Register("dbLocal", dbLocal);
  Register("txtDbPath", txtDbPath);
  Register("btnBrowse", btnBrowse);
  Register("userName", userName);
  Register("userPassword1", userPassword1);
  Register("userPassword2", userPassword2);
  Register("dbImport", dbImport);
  Register("txtImportPath", txtImportPath);
  Register("btnImportBrowse", btnImportBrowse);
  for (const CompanyBox& entry : CompanyBoxList()) Register(entry.name, this->*entry.box);
  Register("btnPrev", btnPrev);
  Register("btnNext", btnNext);
  Register("btnOk", btnOk);
  Register("btnCancel", btnCancel);
  dbLocal[0].caption_key = "bg.database.dbloc.default";
  dbLocal[1].caption_key = "bg.database.dbloc.remote";
  dbImport[0].caption_key = "bg.database.import.nothing";
  dbImport[1].caption_key = "bg.database.import.import1";
  dbImport[2].caption_key = "bg.database.import.import2";
  dbImport[0].JoinGroup({&dbImport[1], &dbImport[2]});
  dbImport[1].JoinGroup({&dbImport[0], &dbImport[2]});
  dbImport[2].JoinGroup({&dbImport[0], &dbImport[1]});
  btnBrowse.caption_key = btnImportBrowse.caption_key = "bg.btn.browse";
  btnBrowse.icon = btnImportBrowse.icon = "btnbrowse.ico";
  btnOk.icon = "btnsave.ico";
  btnCancel.icon = "btncancel.ico";
  userPassword1.PasswordChar = userPassword2.PasswordChar = U'*';
}

void frm_Admin_bg_::LayOut() {
  Page("WELCOME", "bg.page.welcome")
      .Info("bg.welcome.text")
      .Side({GroupLayout("bg.grp.need").Info("bg.welcome.need")})
      .Side({GroupLayout("bg.grp.keys").Info("bg.welcome.keys")});
  Page("DATABASE", "bg.page.database")
      .Info("bg.database.text")
      .Side({GroupLayout("bg.grp.place")
                 .Row({{"", dbLocal[0], 12}})
                 .Row({{"", dbLocal[1], 12}})
                 .Row({{"bg.lbl.path", txtDbPath, 9}, {"", btnBrowse, 3}})})
      .Side({GroupLayout("bg.grp.login")
                 .Info("bg.login.text")
                 .Row({{"bg.lbl.user", userName, 4}, {"bg.lbl.password", userPassword1, 4}, {"bg.lbl.password2", userPassword2, 4}})});
  Page("IMPORT", "bg.page.import")
      .Info("bg.import.text")
      .Side({GroupLayout("bg.grp.import")
                 .Row({{"", dbImport[0], 12}})
                 .Row({{"", dbImport[1], 12}})
                 .Row({{"", dbImport[2], 12}})
                 .Row({{"bg.lbl.importpath", txtImportPath, 9}, {"", btnImportBrowse, 3}})})
      .Side({GroupLayout("bg.grp.columns").Info("bg.import.columns").Info("bg.import.customers").Info("bg.import.articles")});
  LayOutCompany();
  Buttons({{"bg.btn.prev", btnPrev}, {"bg.btn.next", btnNext}, {"bg.btn.ok", btnOk}, {"bg.btn.cancel", btnCancel, kCancel}});
  Steps({&btnPrev, &btnNext, &btnOk});
}

void frm_Admin_bg_::LayOutCompany() {
  Page("COMPANY", "bg.page.company")
      .Info("bg.company.text")
      .Row({{"usr.lbl.name", txtNazwaFirmy, 8}, {"usr.lbl.place", txtMiejsceWystDok, 4}})
      .Side(AddressAndNumbers())
      .Side({GroupLayout("usr.grp.bank", 6)
                 .Row({{"usr.lbl.bank", txtBank, 8}, {"usr.lbl.swift", txtSWIFT, 4}})
                 .Row({{"usr.lbl.account", txtKonto, 12}}),
             GroupLayout("usr.grp.contact", 6)
                 .Row({{"usr.lbl.phone", txtTelefon, 6}, {"usr.lbl.fax", txtFaks, 6}})
                 .Row({{"usr.lbl.email", txtEMail, 6}, {"usr.lbl.www", txtWWW, 6}})});
}

void frm_Admin_bg_::Connect() {
  for (const CompanyBox& entry : CompanyBoxList()) {
    (this->*entry.box).Changed += [this] {
      typed_company_ = true;
      CheckNumbers();
    };
  }
  for (TextBoxControl* box : {&txtKodPocztowy, &txtMiejscowość}) box->Left += [this] { TownLeft(); };
  for (OptionBoxControl& option : dbImport) option.Clicked += [this] { ImportChosen(); };
  btnImportBrowse.Clicked += [this] { BrowseImport(); };
  PageChanged += [this] { Go(Current()); };
  btnPrev.Clicked += [this] { Go(Current() - 1); };  // disabled at the first
  btnNext.Clicked += [this] { Next(); };
  btnOk.Clicked += [this] { Finish(); };
  btnCancel.Clicked += [this] { Close(); };
}

void frm_Admin_bg_::reload_() {
  finished_ = typed_company_ = false;
  new_company_ = true;
  met_ = created_ = doubted_numbers_ = "";
  place_.Show(ReadDatabasePlace(program_));
  dbLocal[0].SetToolTip(program_.ResolveFolder(kDefaultDatabasePath));
  for (TextBoxControl* box : {&userName, &userPassword1, &userPassword2}) box->SetText(kFactoryLogin);
  dbImport[0].SetValue(true);
  txtImportPath.SetText("");
  ImportChosen();
  CompanyLoad(program_);
  for (const CompanyBox& entry : CompanyBoxList()) LimitToField(program_, entry.column, this->*entry.box, entry.length);
  ShowCompany(program_.company);
  for (const PageLayout& page : pages()) SetPageDone(page.key, false);
  Go(0);
  SetDirty(false);
}

// --- from step to step

size_t frm_Admin_bg_::Current() const {
  for (size_t step = 0; step < pages().size(); ++step) {
    if (pages()[step].key == page()) return step;
  }
  return 0;
}

void frm_Admin_bg_::Go(size_t step) {
  Control* const first[] = {&btnNext, &dbLocal[dbLocal[0].Value() ? 0 : 1],
                            &dbImport[dbImport[0].Value()   ? 0
                                      : dbImport[1].Value() ? 1
                                                            : 2],
                            &txtNazwaFirmy};
  const bool last = step + 1 == pages().size();
  btnPrev.SetEnabled(step > 0);
  btnNext.SetEnabled(!last);
  ShowPage(pages()[step].key);
  SetFocus(*first[step]);
}

void frm_Admin_bg_::Next() {
  const size_t step = Current();
  if (Check(step)) Go(step + 1);
}

void frm_Admin_bg_::Finish() {
  for (size_t step = 0; step < pages().size(); ++step) {
    if (!Check(step)) return;
  }
  // Whoever finishes early has not seen yet that the company needs a name.
  if (Current() != kCompanyStep && Trim(txtNazwaFirmy.Text()).empty()) return Go(kCompanyStep);
  if (!CreateCompany() || !OpenCompany()) return;
  StoreCompany();
  StoreFormats();
  Import();
  finished_ = true;
  SetDirty(false);
  Close();
}

// --- what a step must hold

bool frm_Admin_bg_::Check(size_t step) {
  const bool fine = step == kDatabaseStep  ? CheckDatabase()
                    : step == kImportStep  ? CheckImport()
                    : step == kCompanyStep ? CheckCompany()
                                           : true;
  SetPageDone(pages()[step].key, fine);
  return fine;
}

bool frm_Admin_bg_::Refuse(size_t step, TextBoxControl& field, const std::string& text, MessageKind kind) {
  if (Current() != step) Go(step);
  program_.ShowMessage(text, kind);
  field.SelectAllOnEntry = true;
  SetFocus(field);
  return false;
}

bool frm_Admin_bg_::CheckDatabase() {
  const auto refuse = [this](TextBoxControl& field, const char* key, MessageKind kind) {
    return Refuse(kDatabaseStep, field, program_.Text(key), kind);
  };
  const std::string user = Trim(userName.Text()), password = Trim(userPassword1.Text()), again = Trim(userPassword2.Text());
  std::string folder = place_.Read().Folder();
  if (folder.empty()) return refuse(txtDbPath, "bg.msg.nofolder", MessageKind::kInformation);
  folder = program_.ResolveFolder(folder);
  for (TextBoxControl* box : {&userName, &userPassword1, &userPassword2}) {
    if (Trim(box->Text()).empty()) return refuse(*box, "msg.info.dbcreatetypeuserandpass", MessageKind::kInformation);
  }
  if (password != again) return refuse(userPassword2, "msg.info.dbcreatepass", MessageKind::kInformation);
  if (!CanWrite(folder)) {
    return Refuse(kDatabaseStep, txtDbPath, program_.Text("bg.msg.unwritable", {folder}), MessageKind::kError);
  }
  new_company_ = folder == created_ || !program_.platform.files.FileExists(folder + TableFile(kFirma));
  if (new_company_ || MeetCompany(folder, user, password)) return true;
  return refuse(userPassword1, "bg.msg.otherlogin", MessageKind::kError);
}

// Tries the folder, or the nearest one above it that exists: nothing is made before the end.
bool frm_Admin_bg_::CanWrite(const std::string& folder) {
  FileSystem& files = program_.platform.files;
  std::string nearest = folder;
  while (!files.FolderExists(nearest)) {
    const size_t end = nearest.find_last_not_of('/');
    if (end == std::string::npos || files.FileExists(nearest.substr(0, end + 1))) return false;
    const size_t slash = nearest.find_last_of('/', end);
    nearest = slash == std::string::npos ? "./" : nearest.substr(0, slash + 1);
  }
  const std::string probe = nearest + kProbe;
  if (files.FileExists(probe)) return true;
  const bool written = files.Open(probe, OpenMode::kCreate) != nullptr;
  files.Remove(probe);
  return written;
}

// A company that lies there already keeps what it holds: its details come into the fields, so that finishing does not empty them. False
// when the login is not its own.
bool frm_Admin_bg_::MeetCompany(const std::string& folder, const std::string& user, const std::string& password) {
  ClassQDBASE table(program_.platform);
  if (!table.DATABASE_OPEN(folder + TableFile(kFirma), user, password, false, false, false)) return false;
  if (met_ == folder) return true;
  met_ = folder;
  const bool filled = table.RECORD_COUNT() >= 1 && table.RECORD_LOAD(1);
  if (filled) TakeDetails(table);
  const std::string name = Trim(txtNazwaFirmy.Text());
  program_.Message("bg.msg.existing", MessageKind::kInformation, {filled && !name.empty() ? "\r\n" + name : ""});
  return true;
}

// What the person typed counts; the rest is as the company has it.
void frm_Admin_bg_::TakeDetails(ClassQDBASE& firma) {
  CompanyRecord record = Typed();
  for (const CompanyField& field : CompanyFields()) {
    const std::string text = Trim(firma.Text(field.table_field));
    std::string& shown = field.member(record);
    if (!text.empty() && (!typed_company_ || shown.empty())) shown = text;
  }
  ShowCompany(record);
}

CompanyRecord frm_Admin_bg_::Typed() const {
  CompanyRecord record = record_;
  for (const CompanyBox& entry : CompanyBoxList()) record.*entry.member = Trim((this->*entry.box).Text());
  return record;
}

bool frm_Admin_bg_::CheckImport() {
  if (dbImport[0].Value()) return true;
  const std::string file = Trim(txtImportPath.Text());
  if (file.empty()) return Refuse(kImportStep, txtImportPath, program_.Text("bg.msg.nofile"), MessageKind::kInformation);
  if (!program_.platform.files.FileExists(file)) {
    return Refuse(kImportStep, txtImportPath, program_.Text("bg.msg.filemissing", {file}), MessageKind::kError);
  }
  const std::string fault = dbImport[1].Value() ? CustomersFileFault(program_, file) : ArticlesFileFault(program_, file);
  return fault.empty() || Refuse(kImportStep, txtImportPath, fault, MessageKind::kError);
}

// A doubtful number is told once: foreign accounts and old numbers do not check, and are right all the same.
bool frm_Admin_bg_::CheckCompany() {
  const std::string numbers = TxtNIP.Text() + "\n" + txtRegon.Text() + "\n" + txtKonto.Text();
  if (numbers == doubted_numbers_) return true;
  for (TextBoxControl* box : {&TxtNIP, &txtRegon, &txtKonto}) {
    if (!box->Warning()) continue;
    doubted_numbers_ = numbers;
    return Refuse(kCompanyStep, *box, box->warning_tip() + "\r\n" + program_.Text("bg.msg.doubtful"), MessageKind::kWarning);
  }
  return true;
}

// --- fields

void frm_Admin_bg_::ShowCompany(const CompanyRecord& record) {
  record_ = record;
  for (const CompanyBox& entry : CompanyBoxList()) (this->*entry.box).SetText(record_.*entry.member);
  CheckNumbers();
}

// The marks of the company dialog; a field that was not filled yet has none.
void frm_Admin_bg_::CheckNumbers() {
  MarkNumbers(program_, txtKonto, TxtNIP, txtRegon);
  for (TextBoxControl* box : {&txtKonto, &TxtNIP, &txtRegon}) {
    if (Trim(box->Text()).empty()) box->SetWarning(false);
  }
}

// Of the postal code and the town the one that is empty follows from the other; documents are issued in the town, unless told otherwise.
void frm_Admin_bg_::TownLeft() {
  const std::string code = Trim(txtKodPocztowy.Text()), town = Trim(txtMiejscowość.Text());
  const auto& postal = program_.Part<PostalTable>();
  if (town.empty() && !code.empty()) txtMiejscowość.SetText(postal.TownOfCode(code));
  if (code.empty() && !town.empty()) txtKodPocztowy.SetText(postal.CodeOfTown(town));
  if (Trim(txtMiejsceWystDok.Text()).empty()) txtMiejsceWystDok.SetText(Trim(txtMiejscowość.Text()));
}

void frm_Admin_bg_::ImportChosen() {
  const bool file = !dbImport[0].Value();
  txtImportPath.SetEnabled(file);
  btnImportBrowse.SetEnabled(file);
}

void frm_Admin_bg_::BrowseImport() {
  const std::optional<std::string> file = program_.platform.ui.AskOpenFile(
      {{program_.Text("bg.filter.import"), {"*.csv", "*.txt"}}, {program_.Text("common.filter.allfiles"), {"*"}}});
  if (!file || file->empty()) return;
  txtImportPath.SetText(*file);
  SetDirty(true);
}

}  // namespace ostrinka
