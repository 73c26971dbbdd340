#include "company/ost_engine.h"

#include "base/text.h"
#include "company/firma_record.h"
#include "company/list_columns.h"
#include "company/login_form.h"
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

bool OpenTable(Program& program, int number, const std::string& folder, const LoginResult& login) {
  auto table = std::make_shared<ClassQDBASE>(program.platform);
  if (!table->DATABASE_OPEN(folder + TableFile(number), login.user, login.password, false, false, true)) return false;
  OpenTable(program, number) = table;
  ShowProgress(program, *table);
  if (number != kFirma) {
    ShowListColumns(program, number, *table);
    return true;
  }
  EnsureCompanyRecord(program, *table);  // a login that may only read does without
  table->SELECTION("*", "*", "", ordAsc);
  table->MOVE_FIRST();
  TakeCompanyDetails(program, *table);
  return true;
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
  const std::string folder = Folder(path);
  for (int number : OpeningOrder()) {
    ClassQDBASE table(program_.platform);
    if (!table.DATABASE_OPEN(folder + TableFile(number), user, password, false, false, false)) return;
    table.DATABASE_CLOSE();
  }
  ok = true;
}

bool OSTEngine::BringUpToDate(const std::string& folder, const LoginResult& login) {
  FileSystem& files = program_.platform.files;
  if (IsBeingUpgraded(files, folder)) return false;
  for (const TableDefinition& table : TableDefinitions()) ClassQDBASE::PutBack(files, folder + table.file);
  if (!files.FileExists(folder + TableFile(kFirma))) return true;
  {
    // A login that is refused changes nothing, or the folder would be marked as brought up to date when it was not.
    ClassQDBASE company(program_.platform);
    if (!company.DATABASE_OPEN(folder + TableFile(kFirma), login.user, login.password, false, false, false)) return true;
  }
  if (SameVersion(ReadFolderVersion(files, folder), kProgramVersion)) return true;
  const UpgradeLock lock(files, folder);
  if (lock.refused()) return false;
  if (SameVersion(ReadFolderVersion(files, folder), kProgramVersion)) return true;  // another program has done it in between
  // The program's own numbers come last: whatever stops this run, the next opening does it again. So it does what could not be changed now,
  // for a table in use elsewhere.
  WriteFolderVersion(files, folder, kUnfinished);
  bool created = false, upgraded = false;
  create_(folder, login.user, login.password, true, created);
  tdb_DataBaseDebug(folder, login.user, login.password, upgraded);
  if (created && upgraded) WriteFolderVersion(files, folder, kProgramVersion);
  return true;
}

void OSTEngine::open_(bool silent, bool& ok) {
  ok = false;
  program_.database_open = false;
  steps_ = 0;
  CloseTables(program_);
  if (!silent) {
    program_.Status("Otwieranie bazy danych...");
    program_.platform.ui.TurnEvents();
  }
  const LoginResult login = AskLogin(program_);
  const std::string folder = program_.DatabaseFolder();
  bool ready = false;
  {
    const Hourglass hourglass(silent ? nullptr : &program_.platform.ui);
    ready = BringUpToDate(folder, login);
  }
  if (!ready) {
    program_.Message("msg.info.dbupdating", MessageKind::kWarning);
    return;
  }
  const std::string left_overs = LeftOvers(program_, folder);
  if (!left_overs.empty()) program_.Message("msg.info.dbleftover", MessageKind::kWarning, {left_overs});
  const Hourglass hourglass(silent ? nullptr : &program_.platform.ui);
  steps_ = 0;
  size_t opened = 0;
  for (int number : OpeningOrder()) {
    if (!OpenTable(program_, number, folder, login)) {
      CloseTables(program_);
      return;
    }
    step(OpeningPercent(++opened), silent);
  }
  program_.database_open = true;
  ok = true;
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
