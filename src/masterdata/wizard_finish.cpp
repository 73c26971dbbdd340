// What the first-run wizard does at its end: the tables, the company's details and formats, the rows of a file.
#include "base/text.h"
#include "company/ost_engine.h"
#include "company/tables.h"
#include "masterdata/company_data.h"
#include "masterdata/wizard_form.h"

namespace ostrinka {
namespace {

constexpr size_t kDatabaseStep = 1;

struct FormatDefault {
  const char* field;
  const char* pattern;
};
constexpr FormatDefault kFormats[] = {{"FORMAT_DATA_EKR", "dd mmmm yyyy"}, {"FORMAT_DATA_WYD", "dd-mm-yyyy"}, {"FORMAT_PROCENTY", "0\\%"}};

}  // namespace

bool frm_Admin_bg_::CreateCompany() {
  const DatabasePlace place = place_.Read();
  const std::string folder = program_.ResolveFolder(place.Folder());
  const std::string user = Trim(userName.Text()), password = Trim(userPassword1.Text());
  bool done = false;
  program_.platform.ui.SetBusy(true);
  // Tables that this wizard made a moment ago are no news.
  if (program_.platform.files.MakeFolders(folder)) OSTEngine(program_).create_(folder, user, password, folder == created_, done);
  program_.platform.ui.SetBusy(false);
  if (!done) return Refuse(kDatabaseStep, txtDbPath, program_.Text("msg.info.dbcreateerror"), MessageKind::kError);
  if (created_ != folder) program_.Message("msg.info.dbcreateok", MessageKind::kPlain);
  if (new_company_) created_ = folder;
  const bool stored = SaveDatabasePlace(program_, place) && SaveDatabaseLogin(program_, user, password) &&
                      program_.settings.SaveSettingValue(kCommon, "dbLogin", "login", Value(false)) &&
                      program_.settings.SaveSettingValue(kCommon, "system", "fRun", Value(false));
  return stored || Refuse(kDatabaseStep, userName, program_.Text("bg.msg.settings", {program_.settings.folder()}), MessageKind::kError);
}

bool frm_Admin_bg_::OpenCompany() {
  OSTEngine engine(program_);
  if (program_.database_open) engine.close_(false);
  bool opened = false;
  engine.open_(false, opened);
  program_.database_open = opened;
  if (opened) return true;
  const std::string text = program_.Text("msg.info.cantopendatabase") + "\r\n" + program_.Text("msg.info.pleasecheckuserandpass");
  return Refuse(kDatabaseStep, userPassword1, text, MessageKind::kError);
}

void frm_Admin_bg_::StoreCompany() {
  record_ = Typed();
  if (!CompanySave(program_, record_)) program_.Message("bg.msg.companynotsaved", MessageKind::kError);
}

// A company that was there before keeps the formats that it has.
void frm_Admin_bg_::StoreFormats() {
  ClassQDBASE& firma = Table(program_, kFirma);
  if (!firma.RECORD_LOAD(1)) return;
  for (const FormatDefault& format : kFormats) {
    if (new_company_ || Trim(firma.Text(format.field)).empty()) firma.FIELD(format.field, Value(std::string(format.pattern)));
  }
  firma.RECORD_SAVE(1);
}

void frm_Admin_bg_::Import() {}

}  // namespace ostrinka
