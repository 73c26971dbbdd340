#include "app/catalogue.h"

#include "base/text.h"

namespace ostrinka {
namespace {

constexpr size_t kCapacity = 2048;

std::string WithoutNulls(std::string_view line) {
  return TrimWhite(ReplaceAll(TrimWhite(line), std::string_view("\0", 1), ""));
}

}  // namespace

Catalogue::Catalogue(FileSystem& files, std::string program_folder) : files_(files), program_folder_(std::move(program_folder)) {}

bool Catalogue::LoadProgramCatalogue(const std::string& file) {
  return Load(program_, file);
}
bool Catalogue::LoadPrintCatalogue(const std::string& file) {
  return Load(print_, file);
}

bool Catalogue::Load(Entries& entries, const std::string& file) {
  entries.clear();
  const bool bare = file.find_first_of("\\/") == std::string::npos;
  std::string content;
  if (!files_.ReadAll(bare ? program_folder_ + file : file, content, int64_t{16} << 20)) return false;
  for (const std::string& raw : Split(ReplaceAll(DecodeFileText(content), "\r", "\n"), '\n')) {
    const std::string line = WithoutNulls(raw);
    const size_t equals = line.find('=', 1);
    if (line.empty() || equals == std::string::npos) continue;
    if (entries.size() == kCapacity) break;
    entries.emplace_back(Lower(TrimWhite(line.substr(0, equals))), TrimWhite(line.substr(equals + 1)));
  }
  return true;
}

const std::string* Catalogue::Find(const Entries& entries, std::string_view key) {
  for (const auto& [name, value] : entries) {
    if (name == key) return &value;
  }
  return nullptr;
}

std::string Catalogue::Text(std::string_view key, std::initializer_list<std::string_view> arguments) const {
  const std::string name = Lower(Trim(key));
  const std::string* found = Find(program_, name);
  if (!found) found = Find(print_, name);
  if (!found) return "%" + name;
  std::string text = ReplaceAll(*found, "|", "\r\n");
  int index = 0;
  for (const std::string_view argument : arguments) text = ReplaceAll(text, "{" + std::to_string(index++) + "}", argument);
  return text;
}

bool Catalogue::Has(std::string_view key) const {
  const std::string name = Lower(Trim(key));
  return Find(program_, name) || Find(print_, name);
}

}  // namespace ostrinka
