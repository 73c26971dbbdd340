// Files attached to a record through a memo field.
#include "base/text.h"
#include "engine/qdbase_state.h"

namespace ostrinka {
namespace {

constexpr char kDenied[] = "Permission denied";
constexpr size_t kLongestName = 255;  // bytes that a file's name may have

// A name that fits: letters go from its end, the part behind the last point stays.
std::string Shortened(const std::string& name) {
  if (name.size() <= kLongestName) return name;
  const size_t point = name.rfind('.');
  const std::string kind = point != std::string::npos && name.size() - point < kLongestName / 2 ? name.substr(point) : std::string();
  std::string kept = name.substr(0, name.size() - kind.size());
  while (kept.size() + kind.size() > kLongestName) kept = LeftCharacters(kept, CharacterCount(kept) - 1);
  return kept + kind;
}

}  // namespace

// Number of the memo field with its companion open; 0 when there is none such.
int ClassQDBASE::State::MemoField(const FieldId& id) {
  const int n = FieldNumber(id);
  if (n == 0 || layout.field(n).type != kMemo) return 0;
  OpenMemo();
  return memo ? n : 0;
}

bool ClassQDBASE::MEMO_ADD(const FieldId& field, const std::string& file) {
  State& s = *state_;
  if (!s.MayWrite()) return s.Fail(28, kDenied);
  const int n = s.MemoField(field);
  if (n == 0 || !RECORD_LOAD(s.current)) return false;
  std::string content;
  if (!s.platform.files.ReadAll(file, content, kMaxAttachment) || content.empty()) return false;
  // The field marks that something is attached: first, so that what is in the file is never told as not added.
  if (!FIELD(n, Value(int32_t{1})) || !RECORD_SAVE(s.current)) return false;
  return s.memo->Add(BareFileName(file), s.layout.field(n).name, s.current, content);
}

bool ClassQDBASE::MEMO_DEL(const FieldId& field, int index) {
  State& s = *state_;
  if (!s.MayWrite()) return s.Fail(28, kDenied);
  const int n = s.MemoField(field);
  // Kept: the field goes on saying that something is attached when the last file goes; only the companion counts.
  return n != 0 && s.memo->Remove(index, s.layout.field(n).name, s.current);
}

bool ClassQDBASE::MEMO_EXEC(const FieldId& field, int index) {
  State& s = *state_;
  MemoEntry entry;
  std::string content;
  const int n = s.MemoField(field);
  if (n == 0 || !s.memo->Find(index, s.layout.field(n).name, s.current, entry) || !s.memo->Read(entry, content)) return false;
  const std::string name = Shortened(BareFileName(entry.name));
  if (name.empty()) return false;
  const std::string path = s.platform.files.TemporaryFolder() + name;
  return s.platform.files.WriteAll(path, content, {.flush = false, .for_user_alone = true}) && s.platform.ui.OpenWithSystem(path);
}

void ClassQDBASE::MEMO_REFRESH(const FieldId& field) {
  State& s = *state_;
  const int n = s.FieldNumber(field);
  if (n != 0 && s.binding.form && RECORD_LOAD(s.current)) s.FillForm(n);
}

bool ClassQDBASE::MEMO_FILE_COMPRESS_(const std::string& memo_file) {
  State& s = *state_;
  if (memo_file.empty() && !s.file.IsOpen()) return false;
  const std::string path = memo_file.empty() ? s.path + ".memo" : memo_file;
  if (s.platform.files.FileSize(path) < 1) return false;
  // Through the companion that this table has open itself, which would be in its own way.
  if (s.memo && s.memo->path() == path) return s.memo->Compress();
  const std::unique_ptr<MemoFile> memo = MemoFile::Open(s.platform, path);
  return memo && memo->Compress();
}

}  // namespace ostrinka
