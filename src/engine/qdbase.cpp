// Opening and closing a table file, errors and debug lines.
#include "engine/qdbase.h"

#include <algorithm>

#include "base/text.h"
#include "engine/qdbase_state.h"

namespace ostrinka {
namespace {

struct ErrorText {
  int code;
  const char* text;
};
constexpr ErrorText kErrorTexts[] = {
    {5, "File already open"},    {10, "Can't create field"},      {11, "Can't rename field"}, {15, "Can't open database"},
    {20, "Can't create record"}, {22, "Can't delete record"},     {25, "Can't read record"},  {27, "Can't save record"},
    {28, "Can't save field"},    {29, "Can't add field"},         {30, "Can't delete field"}, {35, "Can't create user"},
    {37, "Can't delete user"},   {40, "Can't add new parameter"},
};
constexpr char kBadLogin[] = "Invalid user name or password";
constexpr size_t kMaxNameLength = 16;

// Code 0 stands for the platform's own failures: its text travels in the detail, behind a "#".
std::string TextOfCode(int code, std::string_view detail) {
  if (code == 0) return detail.size() > 1 && detail[0] == '#' ? std::string(detail.substr(1)) : "Platform error";
  for (const ErrorText& row : kErrorTexts) {
    if (row.code == code) return row.text;
  }
  return {};
}

bool FitsLogin(const std::string& text) {
  const size_t length = CharacterCount(text);
  return length >= 1 && length <= kMaxNameLength;
}

}  // namespace

bool IsPlainName(std::string_view utf8) {
  constexpr std::u32string_view kPolish = U"ąćęłńóśźżĄĆĘŁŃÓŚŹŻ";
  const std::u32string characters = CodePoints(utf8);
  return std::all_of(characters.begin(), characters.end(), [&](char32_t c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || c == '$' ||
           kPolish.find(c) != kPolish.npos;
  });
}

ClassQDBASE::State::State(ClassQDBASE& owner, Platform& surroundings)
    : self(owner), platform(surroundings), file(surroundings.files), view(owner) {
  instance = static_cast<int32_t>(surroundings.random.Fraction() * 256 * 256 * 256);
}

bool ClassQDBASE::State::Fail(int code, std::string_view detail) {
  self.DErr(code, detail);
  return false;
}

bool ClassQDBASE::State::FailPlatform(const std::string& text) {
  return Fail(0, "#" + text);
}

void ClassQDBASE::State::DebugLine(const std::string& line, bool start) {
  self.debug_event(line, start);
}

ClassQDBASE::ClassQDBASE(Platform& platform) : state_(std::make_unique<State>(*this, platform)) {}

ClassQDBASE::~ClassQDBASE() = default;

void ClassQDBASE::DErr(int code, std::string_view detail) {
  const std::string text = TextOfCode(code, detail);
  const std::string message = text + " < " + (detail.empty() ? "- none -" : std::string(detail)) + " >";
  state_->last_code = code;
  state_->last_error = message;
  if (!text.empty() && ShowErrMsg && error_event) error_event(code, message);
}

int ClassQDBASE::last_error_code() const {
  return state_->last_code;
}
const std::string& ClassQDBASE::last_error() const {
  return state_->last_error;
}

bool ClassQDBASE::DATABASE_OPEN(const std::string& file, std::string_view user, std::string_view password, bool create, bool select,
                                bool links) {
  State& s = *state_;
  s.last_code = -1;
  s.last_error.clear();
  const bool debug = std::exchange(s.debug_on, false);
  DATABASE_CLOSE();
  s.debug_on = debug;
  const std::string name = Trim(user), secret = Trim(password);
  if (!FitsLogin(name) || !FitsLogin(secret)) return s.Fail(15, kBadLogin);
  s.Debug("DATABASE_OPEN(", file, ", ", name, ", ", std::string(CharacterCount(secret), '*'), ")");
  if (IsAllDigits(name) || !IsPlainName(name) || !IsPlainName(secret)) return s.Fail(15, kBadLogin);
  if (s.file.IsOpen()) return s.Fail(5);
  s.path = Trim(file);
  s.user = name;
  s.password = secret;
  bool existing = !create;
  bool opened = true;
  if (create) opened = s.CreateNew(existing);
  if (opened && existing) opened = s.OpenExisting();
  if (!opened || !s.FinishOpen(!existing, select, links)) {
    s.CloseFile();
    return false;
  }
  return true;
}

bool ClassQDBASE::State::OpenExisting() {
  if (path.empty() || !platform.files.FileExists(path)) return Fail(15);
  if (!file.Open(path, OpenMode::kReadWrite, nullptr)) return Fail(15);
  if (!file.ReadHeader(header) || !header.IsValid() || !BuildLayout()) return Fail(15, "Invalid file format");
  for (int n = 1; n <= header.user_count(); ++n) {
    const UserSlot slot = header.User(n);
    if (slot.name != user || slot.password != password) continue;
    login_type = slot.type;
    login_slot = n;
    return true;
  }
  return Fail(15, kBadLogin);
}

// Sets `existing` when a file stands there that cannot be deleted, because another workstation has it open: it is opened instead.
bool ClassQDBASE::State::CreateNew(bool& existing) {
  std::string error;
  {
    // Without the lock of an open table: only whether the place can be written is tried here.
    const std::unique_ptr<File> trial = platform.files.Open(path, OpenMode::kCompanion, &error);
    if (!trial) return FailPlatform(error);
  }
  existing = false;
  if (file.Open(path, OpenMode::kReadWrite, &error)) {
    existing = !file.LockAlone();
    file.Close();
  } else {
    existing = true;
  }
  if (existing || !platform.files.Remove(path)) {
    existing = true;
    return true;
  }
  if (!file.Open(path, OpenMode::kNew, &error)) return FailPlatform(error);
  header.Clear();
  header.SetMagic();
  header.SetUserCount(1);
  header.SetUser(1, {user, password, kOwner, -1, 0});
  if (!file.WriteHeader(header) || !file.WriteCount(0)) return FailPlatform(file.LastError());
  login_type = kOwner;
  login_slot = 1;
  return true;
}

bool ClassQDBASE::State::FinishOpen(bool created, bool select, bool with_links) {
  if (!RecomputeLayout()) return Fail(15, "Invalid file format");
  Ok();
  if (with_links) OpenLinks();
  current = 1;
  if (select && !created) self.SELECTION("", "", "", ordAsc, 0, 0);
  if (!is_link) OpenMemo();
  return true;
}

void ClassQDBASE::State::CloseFile() {
  links.clear();
  memo.reset();
  file.Close();
  path.clear();
  user.clear();
  password.clear();
  login_type = kOwner;
  login_slot = 0;
  current = 0;
  count = 0;
  settled = false;
  header.Clear();
  layout.Clear();
  buffer.Reset();
  selection.Clear();
  view.ForgetColumns();
}

void ClassQDBASE::DATABASE_CLOSE() {
  state_->Debug("DATABASE_CLOSE");
  state_->CloseFile();
  state_->Ok();
}

void ClassQDBASE::PutBack(FileSystem& files, const std::string& path) {
  TableFile::PutBack(files, path);
}

bool ClassQDBASE::FinishChange(FileSystem& files, const std::string& path) {
  return TableFile::FinishChange(files, path);
}

bool ClassQDBASE::IsOpen() const {
  return state_->file.IsOpen();
}
std::string ClassQDBASE::DATABASE_PATH() const {
  return state_->path;
}
int64_t ClassQDBASE::DATABASE_SIZE() {
  return std::max<int64_t>(state_->file.Size(), 0);
}

bool ClassQDBASE::Flush() {
  return state_->file.Flush();
}

bool ClassQDBASE::UPDATE(bool reload) {
  State& s = *state_;
  if (!s.file.IsOpen()) return false;
  std::string error;
  if (!s.file.IsHeld() && !s.file.Open(s.path, OpenMode::kReadWrite, &error)) {
    s.FailPlatform(error);
    s.CloseFile();
    return false;
  }
  s.settled = false;
  return !reload || s.ReadHeaderAgain();
}

bool ClassQDBASE::HoldAlone() {
  State& s = *state_;
  return s.file.IsOpen() && s.ReadyToWrite() && s.file.Hold();
}

void ClassQDBASE::LetGo() {
  state_->file.LetGo();
}

bool ClassQDBASE::State::BuildLayout() {
  if (!layout.Build(header)) return false;
  for (int n = 1; n <= layout.count(); ++n) header.SetFieldPosition(n, layout.field(n).offset - 1);
  return true;
}

// The layout is replaced only when it differs: a scan that is under way keeps pointing into it.
bool ClassQDBASE::State::ReadHeaderAgain() {
  TableHeader read;
  const int64_t size = file.Size();  // before the header: records that come behind it are of its shape or a later one's
  if (!file.ReadHeader(read) || !read.IsValid()) return false;
  if (!read.SameFields(header) || layout.count() != read.field_count()) {
    FieldLayout fresh;
    if (!fresh.Build(read)) return false;
    if (!fresh.SameAs(layout)) {
      buffer.Remap(layout, fresh);
      layout = std::move(fresh);
      view.ForgetLostColumns();
    }
  }
  header = read;
  for (int n = 1; n <= layout.count(); ++n) header.SetFieldPosition(n, layout.field(n).offset - 1);
  links.resize(static_cast<size_t>(layout.count()));
  settled = layout.count() > 0 && size >= kRecordsOffset + layout.record_length();
  return true;
}

bool ClassQDBASE::State::RecomputeLayout() {
  if (!ReadyToWrite() || !ReadHeaderAgain()) return false;
  const int32_t now = CountRecords();
  if (file.StoredCount() != now) file.WriteCount(now);
  return true;
}

bool ClassQDBASE::State::ReadyToWrite() {
  const TableFile::Named named = file.EnsureNamed();
  if (named != TableFile::Named::kReopened) return named == TableFile::Named::kYes;
  const bool linked = std::any_of(links.begin(), links.end(), [](const LinkedTable& link) { return link.table != nullptr; });
  if (!ReadHeaderAgain()) return false;
  links.clear();
  if (linked) OpenLinks();
  return true;
}

bool ClassQDBASE::State::WriteHeader() {
  return file.WriteHeader(header);
}

void ClassQDBASE::State::OpenLinks() {
  for (int n = 1; n <= layout.count(); ++n) {
    if (layout.field(n).type == kLink) OpenLink(n);
  }
}

void ClassQDBASE::State::OpenLink(int n) {
  links.resize(static_cast<size_t>(layout.count()));
  LinkedTable& link = links[static_cast<size_t>(n - 1)];
  link = {};
  const FieldSlot slot = header.Field(n);
  Debug("DATABASE.LinkField(", slot.name, ")");
  const size_t slash = path.find_last_of("\\/");
  const std::string linked = (slash == std::string::npos ? std::string() : path.substr(0, slash + 1)) + BareFileName(slot.link_file);
  if (BareFileName(slot.link_file).empty() || !platform.files.FileExists(linked)) return;
  auto table = std::make_unique<ClassQDBASE>(platform);
  table->state_->debug_on = false;
  table->state_->is_link = true;
  Debug(" <- DATABASE(", slot.link_file, ")");
  if (!table->DATABASE_OPEN(linked, user, password, false, false, false)) return;
  const int field = table->state_->layout.Find(slot.link_field);
  if (field >= 1) link = {std::move(table), field};
  Ok();
}

void ClassQDBASE::State::OpenMemo() {
  bool has_memo = false;
  for (int n = 1; n <= layout.count(); ++n) has_memo |= layout.field(n).type == kMemo;
  if (has_memo && !memo) memo = MemoFile::Open(platform, path + ".memo");
}

}  // namespace ostrinka
