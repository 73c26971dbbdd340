#include "company/ost_engine.h"

#include <utility>

#include "base/text.h"
#include "company/firma_record.h"
#include "company/list_columns.h"
#include "company/login_form.h"
#include "company/table_check.h"
#include "company/table_definitions.h"
#include "company/version_file.h"

namespace ostrinka {
namespace {

constexpr double kLastStep = 100;

bool EndsWith(std::string_view text, std::string_view end) {
  return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

LoginResult AskLogin(Program& program) {
  program.login = {};
  if (program.settings.Boolean(kCommon, "dbLogin", "login", false)) {
    LoginForm form(program);
    program.platform.ui.ShowModal(form);
  } else {
    program.login = {program.settings.Text(kCommon, "dbLogin", "username"), program.settings.Text(kCommon, "dbLogin", "password"), true};
  }
  return program.login;
}

// Names of what a broken-off structure change left beside the tables, and of attachments without their table, one a line.
std::string LeftOvers(Program& program, const std::string& folder) {
  std::string names;
  for (const std::string& name : program.platform.files.ListFiles(folder)) {
    const bool aside = name.find(kAsideSuffix) != std::string::npos;
    if (EndsWith(name, ".memo.temp")) continue;  // of a compression, which leaves the attachments as they were until it is done
    if (!aside && !EndsWith(name, ".temp") && !EndsWith(name, ".new") && !EndsWith(name, ".try")) continue;
    for (const TableDefinition& table : TableDefinitions()) {
      if (StartsWith(name, std::string(table.file) + ".")) names += (names.empty() ? "" : "\r\n") + name;
    }
  }
  return names;
}

void CloseTables(Program& program) {
  for (int number = 1; number <= kTableSlots; ++number) {
    std::shared_ptr<ClassQDBASE>& table = OpenTable(program, number);
    if (table) table->DATABASE_CLOSE();
    table.reset();
  }
}

// The hourglass for as long as it lives: while it shows, the window takes nothing from the person.
class Hourglass {
 public:
  explicit Hourglass(UserInterface* ui) : ui_(ui) {
    if (ui_) ui_->SetBusy(true);
  }
  ~Hourglass() {
    if (ui_) ui_->SetBusy(false);
  }
  Hourglass(const Hourglass&) = delete;
  Hourglass& operator=(const Hourglass&) = delete;

 private:
  UserInterface* ui_;
};

// A selection over a table that is large enough to be felt tells how far it is, under the hourglass.
void ShowProgress(Program& program, ClassQDBASE& table) {
  table.progress = [&program, told = false](int percent) mutable {
    constexpr int kDone = 100;
    UserInterface& ui = program.platform.ui;
    if (percent >= kDone && !told) return;
    told = percent < kDone;
    ui.SetBusy(told);
    program.Status(told ? program.Text("mdi.pleasewait") + " " + std::to_string(percent) + " %" : std::string());
    ui.TurnEvents();
  };
}

void PrepareTable(Program& program, int number, ClassQDBASE& table) {
  ShowProgress(program, table);
  if (number != kFirma) {
    ShowListColumns(program, number, table);
    return;
  }
  EnsureCompanyRecord(program, table);  // a login that may only read does without
  table.SELECTION("*", "*", "", ordAsc);
  table.MOVE_FIRST();
  TakeCompanyDetails(program, table);
}

// The last three steps are 98, 99 and 100.
double OpeningPercent(size_t step) {
  constexpr size_t kBefore = kTableCount - 3;
  const size_t whole = step <= kBefore ? step * 97 / kBefore : 97 + step - kBefore;
  return static_cast<double>(whole);
}

bool SameVersion(ProgramVersion a, ProgramVersion b) {
  return a.major == b.major && a.minor == b.minor && a.revision == b.revision;
}

}  // namespace

std::string OSTEngine::Folder(const std::string& path) const {
  std::string folder = program_.ResolveFolder(path);
  if (folder.empty() || folder.back() != '/') folder += '/';
  return folder;
}

void OSTEngine::step(double percent, bool silent) {
  if (silent) return;
  ++steps_;
  program_.Status(FormatNumber(percent, "00") + "% " + std::string(static_cast<size_t>(steps_), '.'));
  program_.platform.ui.TurnEvents();
}

void OSTEngine::test_(const std::string& path, const std::string& user, const std::string& password, bool& ok) {
  ok = false;
  reason_.clear();
  const std::string folder = Folder(path);
  for (int number : OpeningOrder()) {
    ClassQDBASE table(program_.platform);
    if (!table.DATABASE_OPEN(folder + TableFile(number), user, password, false, false, false)) {
      reason_ = WhyNotOpened(program_, folder, TableFile(number), table);
      return;
    }
    table.DATABASE_CLOSE();
  }
  ok = true;
}

void OSTEngine::PutInOrder(const std::string& folder) {
  FileSystem& files = program_.platform.files;
  std::string finished;
  for (const TableDefinition& table : TableDefinitions()) {
    ClassQDBASE::PutBack(files, folder + table.file);
    if (ClassQDBASE::FinishChange(files, folder + table.file)) finished += (finished.empty() ? "" : "\r\n") + std::string(table.file);
  }
  if (!finished.empty()) program_.Message("msg.info.dbfinished", MessageKind::kInformation, {finished});
}

bool OSTEngine::BringUpToDate(const std::string& folder, const LoginResult& login, bool always) {
  FileSystem& files = program_.platform.files;
  const auto current = [&] { return !always && SameVersion(ReadFolderVersion(files, folder), kProgramVersion); };
  reason_ = program_.Text("msg.info.dbupdating");
  if (IsBeingUpgraded(files, folder)) return false;
  PutInOrder(folder);
  if (!files.FileExists(folder + TableFile(kFirma))) return true;
  {
    // A login that is refused changes nothing, or the folder would be marked as brought up to date when it was not.
    ClassQDBASE company(program_.platform);
    if (!company.DATABASE_OPEN(folder + TableFile(kFirma), login.user, login.password, false, false, false)) return true;
  }
  if (current()) return true;
  const UpgradeLock lock(files, folder);
  if (lock.refused()) return false;
  if (current()) return true;  // another program has done it in between
  reason_.clear();
  // The program's own numbers come last: whatever stops this run, the next opening does it again. So it does what could not be changed now,
  // for a table in use elsewhere.
  WriteFolderVersion(files, folder, kUnfinished);
  bool created = false, upgraded = false;
  create_(folder, login.user, login.password, true, created);
  tdb_DataBaseDebug(folder, login.user, login.password, upgraded);
  if (created && upgraded) WriteFolderVersion(files, folder, kProgramVersion);
  return !program_.platform.ui.EndWanted();
}

bool OSTEngine::OpenTables(const std::string& folder, const LoginResult& login, bool silent, std::vector<Lack>& lacking) {
  lacking.clear();
  steps_ = 0;
  size_t opened = 0;
  for (int number : OpeningOrder()) {
    auto table = std::make_shared<ClassQDBASE>(program_.platform);
    if (!table->DATABASE_OPEN(folder + TableFile(number), login.user, login.password, false, false, true)) {
      reason_ = WhyNotOpened(program_, folder, TableFile(number), *table);
      return false;
    }
    const TableDefinition& definition = *FindTable(number);
    if (static_cast<size_t>(table->FIELD_COUNT()) > definition.fields.size() && IsAnotherKind(*table, definition)) {
      reason_ = program_.Text("msg.why.otherkind", {TableFile(number), folder});
      return false;
    }
    OpenTable(program_, number) = table;
    const std::string fields = Shortcomings(*table, definition);
    if (fields.empty()) {
      PrepareTable(program_, number, *table);
    } else {
      lacking.push_back({number, fields});
    }
    step(OpeningPercent(++opened), silent);
  }
  return true;
}

bool OSTEngine::OpenForReadingOnly(const std::string& folder, const std::vector<Lack>& lacking) {
  std::string names;
  for (const Lack& lack : lacking) {
    if (!refused_.count(lack.number)) {
      reason_ = program_.Text("msg.why.lacks", {TableFile(lack.number), lack.fields, folder});
      return false;
    }
    ClassQDBASE& table = Table(program_, lack.number);
    table.ForReadingOnly();
    PrepareTable(program_, lack.number, table);
    names += (names.empty() ? "" : "\r\n") + TableFile(lack.number);
  }
  if (!names.empty()) program_.Message("msg.info.dbreadonly", MessageKind::kWarning, {names});
  return true;
}

void OSTEngine::TellRights() {
  const int32_t rights = Table(program_, kFirma).LOGIN_TYPE();
  if (rights == kOwner || rights == kReadWrite || refused_.count(kFirma)) return;
  program_.Message("msg.info.loginreadonly", MessageKind::kInformation, {program_.login.user});
}

void OSTEngine::open_(bool silent, bool& ok) {
  program_.database_open = false;
  CloseTables(program_);
  if (!silent) {
    program_.Status("Otwieranie bazy danych...");  // kept: no catalogue's text, alike in every language
    program_.platform.ui.TurnEvents();
  }
  open_as(AskLogin(program_), silent, ok);
}

void OSTEngine::open_as(const LoginResult& login, bool silent, bool& ok) {
  ok = false;
  program_.login = login;
  program_.database_open = false;
  refused_.clear();
  CloseTables(program_);
  const std::string folder = program_.DatabaseFolder();
  const auto bring_up_to_date = [&](bool always) {
    const Hourglass hourglass(silent ? nullptr : &program_.platform.ui);
    return BringUpToDate(folder, login, always);
  };
  if (!bring_up_to_date(false)) {
    // Told here and now; who asks for the reason afterwards need not say it again.
    if (!reason_.empty()) program_.ShowMessage(std::exchange(reason_, {}), MessageKind::kWarning);
    return;
  }
  reason_.clear();
  const std::string left_overs = LeftOvers(program_, folder);
  if (!left_overs.empty()) program_.Message("msg.info.dbleftover", MessageKind::kWarning, {left_overs});
  std::vector<Lack> lacking;
  {
    const Hourglass hourglass(silent ? nullptr : &program_.platform.ui);
    ok = OpenTables(folder, login, silent, lacking);
    if (ok && !lacking.empty() && refused_.empty()) {
      // Not by its version: whatever the upgrade knows is completed.
      CloseTables(program_);
      ok = bring_up_to_date(true) && OpenTables(folder, login, silent, lacking);
    }
  }
  ok = ok && OpenForReadingOnly(folder, lacking);
  if (!ok) CloseTables(program_);
  program_.database_open = ok;
  if (ok) TellRights();
}

void OSTEngine::reopen_(bool& ok) {
  close_(false);
  open_(false, ok);
}

void OSTEngine::close_(bool compress) {
  struct Attached {
    std::string table, user, password;
  };
  std::vector<Attached> attached;
  program_.database_open = false;
  steps_ = 0;
  for (int number = 1; number <= kTableSlots; ++number) {
    if (number % 10 == 0) step(number * kLastStep / kTableSlots, false);
    if (!TableIsOpen(program_, number)) continue;
    ClassQDBASE& table = Table(program_, number);
    attached.push_back({table.DATABASE_PATH(), table.USER_NAME(0), table.USER_PASS(0)});
    table.DATABASE_CLOSE();
  }
  for (const Attached& entry : attached) {
    if (!compress || program_.platform.files.FileSize(entry.table + ".memo") < 1) continue;
    ClassQDBASE table(program_.platform);
    if (table.DATABASE_OPEN(entry.table, entry.user, entry.password, false, false, false)) table.MEMO_FILE_COMPRESS_(entry.table + ".memo");
  }
  CloseTables(program_);
}

}  // namespace ostrinka
