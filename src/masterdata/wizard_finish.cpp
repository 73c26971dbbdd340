// What the first-run wizard does at its end: the tables, the company's details and formats, the rows of a file.
#include <algorithm>

#include "base/text.h"
#include "books/books.h"
#include "books/columns.h"
#include "company/ost_engine.h"
#include "exchange/import.h"
#include "masterdata/company_data.h"
#include "masterdata/wizard_form.h"

namespace ostrinka {
namespace {

constexpr size_t kDatabaseStep = 1;
constexpr size_t kShownSentences = 8;

struct FormatDefault {
  Column<std::string> column;
  const char* pattern;
};
constexpr FormatDefault kFormats[] = {
    {company_columns::kScreenDate, "dd mmmm yyyy"}, {company_columns::kPrintDate, "dd-mm-yyyy"}, {company_columns::kPercentages, "0\\%"}};

// As many sentences as a box has room for, each on a line of its own, and how many more there are.
void AddSentences(Program& program, std::string& text, const char* heading_key, int rows, const std::vector<std::string>& sentences) {
  if (rows == 0) return;
  text += "\r\n\r\n" + program.Text(heading_key, {std::to_string(rows)});
  const size_t shown = std::min(sentences.size(), kShownSentences);
  for (size_t i = 0; i < shown; ++i) text += "\r\n" + sentences[i];
  const int more = rows - static_cast<int>(shown);
  if (more > 0) text += "\r\n" + program.Text("bg.import.more", {std::to_string(more)});
}

std::string Summary(Program& program, const ImportResult& result) {
  std::string text;
  if (!result.error.empty()) text = result.error + "\r\n";
  text += program.Text("bg.import.added", {std::to_string(result.added)});
  AddSentences(program, text, "bg.import.leftout", result.rows_left_out, result.left_out);
  AddSentences(program, text, "bg.import.doubtful", result.rows_doubtful, result.doubtful);
  std::string columns;
  for (const std::string& heading : result.ignored_columns) columns += (columns.empty() ? "" : ", ") + heading;
  if (!columns.empty()) text += "\r\n\r\n" + program.Text("bg.import.ignored", {columns});
  return text;
}

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
  const std::string text = program_.Text("msg.info.cantopendatabase") + "\r\n" + program_.Text("msg.info.pleasecheckuserandpass") +
                           (engine.reason().empty() ? "" : "\r\n\r\n" + engine.reason());
  return Refuse(kDatabaseStep, userPassword1, text, MessageKind::kError);
}

void frm_Admin_bg_::StoreCompany() {
  record_ = Typed();
  if (!CompanySave(program_, record_)) program_.Message("bg.msg.companynotsaved", MessageKind::kError);
}

// A company that was there before keeps the formats that it has.
void frm_Admin_bg_::StoreFormats() {
  ColumnValues values;
  for (const FormatDefault& format : kFormats) {
    if (new_company_ || Trim(ReadColumn(program_, format.column, 1)).empty()) values.Set(format.column, format.pattern);
  }
  if (!Store(program_, kFirma, 1, values)) program_.Message("bg.msg.companynotsaved", MessageKind::kError);
}

void frm_Admin_bg_::Import() {
  if (dbImport[0].Value()) return;
  const std::string file = Trim(txtImportPath.Text());
  program_.platform.ui.SetBusy(true);
  const ImportResult result = dbImport[1].Value() ? ImportCustomers(program_, file) : ImportArticles(program_, file);
  program_.platform.ui.SetBusy(false);
  const bool whole = result.error.empty() && result.rows_left_out == 0;
  program_.ShowMessage(Summary(program_, result), whole ? MessageKind::kInformation : MessageKind::kWarning);
}

}  // namespace ostrinka
