// DATABASE_EXPORT: a table as separated values or as XML.
#include <cstdio>

#include "base/text.h"
#include "engine/qdbase_state.h"

namespace ostrinka {
namespace {

constexpr size_t kFlushAt = size_t{1} << 20;

// Collects the text and writes it in large parts.
class Output {
 public:
  Output(FileSystem& files, const std::string& path) {
    file_ = files.Open(path, OpenMode::kCreate, &error_);
    good_ = file_ && file_->Resize(0);
  }
  void Put(std::string_view bytes) {
    pending_ += bytes;
    if (pending_.size() >= kFlushAt) Flush();
  }
  bool Finish() {
    Flush();
    return good_;
  }
  std::string error() const { return file_ ? file_->LastError() : error_; }
  bool good() const { return good_; }

 private:
  void Flush() {
    good_ = good_ && file_->WriteAt(written_, pending_.data(), pending_.size());
    written_ += static_cast<int64_t>(pending_.size());
    pending_.clear();
  }

  std::unique_ptr<File> file_;
  std::string pending_, error_;
  int64_t written_ = 0;
  bool good_ = false;
};

std::string FoldName(std::string_view name) {
  constexpr std::u32string_view kFrom = U"ąćęłńóśźżĄĆĘŁŃÓŚŹŻ", kTo = U"acelnoszzACELNOSZZ";
  std::u32string characters = CodePoints(name);
  for (char32_t& c : characters) {
    if (const size_t at = kFrom.find(c); at != kFrom.npos) c = kTo[at];
  }
  return FromCodePoints(characters);
}

// Digits, ASCII letters and the blank stay; any other character becomes "&#", its Windows-1250 code and ";".
std::string Escaped(std::string_view text) {
  std::string result;
  for (const char c : ToCp1250(Trim(ReplaceAll(text, "\"", "'")))) {
    const bool plain = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == ' ';
    result += plain ? std::string(1, c) : "&#" + std::to_string(static_cast<uint8_t>(c)) + ";";
  }
  return result;
}

std::string Quoted(const std::string& text, char quote) {
  char code[8];
  std::snprintf(code, sizeof code, "&H%X", static_cast<unsigned>(static_cast<uint8_t>(quote)));
  const std::string blanked = Trim(ReplaceAll(text, std::string_view("\0", 1), " "));
  return quote + ReplaceAll(ToCp1250(blanked), std::string_view(&quote, 1), code) + quote;
}

}  // namespace

// Value of field `n` as FIELD shows it, links followed.
Value ClassQDBASE::State::ExportValue(int n, const char* record) {
  const Value value = DecodeField(layout.field(n), record);
  return ShownValue(layout.field(n).type == kLink ? LinkValue(n, Int32Or0(value)) : value);
}

std::string ClassQDBASE::State::SeparatedValue(int n, const char* record, char quote) {
  const Value value = ExportValue(n, record);
  const int32_t type = layout.field(n).type;
  const bool quoted = type == kText || type == kDate || (type == kLink && !IsNumeric(value));
  return quoted ? Quoted(ToText(value), quote) : Trim(ToText(value));
}

std::vector<int32_t> ClassQDBASE::State::ExportedRecords(bool selected) {
  CountRecords();
  if (selected) return selection.entries();
  std::vector<int32_t> all(static_cast<size_t>(count));
  for (size_t i = 0; i < all.size(); ++i) all[i] = static_cast<int32_t>(i) + 1;
  return all;
}

bool ClassQDBASE::State::ExportSeparated(const std::string& target, bool selected, char separator, char quote) {
  Output output(platform.files, target);
  for (int n = 1; n <= layout.count(); ++n) output.Put((n > 1 ? std::string(1, separator) : "") + ToCp1250(header.Field(n).name));
  output.Put("\r\n");
  std::string record;
  for (const int32_t n : ExportedRecords(selected)) {
    if (n < 1 || n > count || !ReadRecord(n, record) || record[0] != 0) continue;
    for (int field = 1; field <= layout.count(); ++field) {
      if (field > 1) output.Put({&separator, 1});
      output.Put(SeparatedValue(field, record.data(), quote));
    }
    output.Put("\r\n");
  }
  return output.Finish() || FailPlatform(output.error());
}

bool ClassQDBASE::State::ExportXml(const std::string& target, bool all) {
  Output output(platform.files, target);
  std::vector<int> fields = view.columns();
  if (all) {
    fields.clear();
    for (int n = 1; n <= layout.count(); ++n) fields.push_back(n);
    output.Put("<DATABASE>\r\n");
  }
  output.Put("<STRUCTURE>\r\n");
  for (const int n : fields) {
    const FieldDef& field = layout.field(n);
    output.Put("<FIELD nr=\"" + std::to_string(n) + "\" name=\"" + ToCp1250(FoldName(header.Field(n).name)) + "\" type=\"" +
               std::to_string(field.type) + "\" size=\"" + std::to_string(field.length) + "\"/>\r\n");
  }
  output.Put("</STRUCTURE>\r\n<DATA>\r\n");
  std::string record;
  for (const int32_t n : ExportedRecords(!all)) {
    if (n < 1 || n > count || !ReadRecord(n, record) || record[0] != 0) continue;
    output.Put("<RECORD nr=\"" + std::to_string(n) + "\">\r\n<FIELDS ");
    for (const int field : fields) {
      output.Put(ToCp1250(FoldName(header.Field(field).name)) + "=\"" + Escaped(ToText(ExportValue(field, record.data()))) + "\" ");
    }
    output.Put("/></RECORD>\r\n");
  }
  output.Put(all ? "</DATA>\r\n</DATABASE>\r\n" : "</DATA>\r\n");
  return output.Finish() || FailPlatform(output.error());
}

bool ClassQDBASE::DATABASE_EXPORT(const std::string& file, int format, bool all, char separator, char quote) {
  State& s = *state_;
  s.Debug("DATABASE_EXPORT");
  const bool shown = std::exchange(ShowErrMsg, false);
  bool done = s.file.IsOpen();
  // Kept: separated values take `all` for the selection and its absence for every record, XML the other way round; callers pass it so.
  if (done && format == kSeparatedValues) done = s.ExportSeparated(file, all, separator, quote);
  if (done && format == kXml) done = s.ExportXml(file, all);
  ShowErrMsg = shown;
  return done && s.Ok();
}

}  // namespace ostrinka
