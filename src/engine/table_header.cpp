#include "engine/table_header.h"

#include <algorithm>
#include <cstring>

#include "base/bytes.h"
#include "base/text.h"

namespace ostrinka {
namespace {

constexpr size_t kUserCountAt = 3, kFieldCountAt = 5, kUsersAt = 7, kFieldsAt = 10247, kStampAt = 33799;
constexpr size_t kUserSize = 40, kFieldSize = 92;
constexpr size_t kNameSize = 16, kLinkFileSize = 48;

size_t UserAt(int n) {
  return kUsersAt + static_cast<size_t>(n - 1) * kUserSize;
}
size_t FieldAt(int n) {
  return kFieldsAt + static_cast<size_t>(n - 1) * kFieldSize;
}

// Windows-1250, cut or blank padded to `size`.
std::string Padded(std::string_view utf8, size_t size) {
  std::string bytes = ToCp1250(utf8);
  bytes.resize(size, ' ');
  return bytes;
}

std::string Unpadded(std::string_view bytes) {
  std::string kept(bytes);
  std::erase(kept, '\0');
  return Trim(FromCp1250(kept));
}

// Takes slot `n` of `count` out; the later ones move down and the last one becomes zeros.
void RemoveSlot(char* slots, size_t size, int n, int count) {
  char* slot = slots + static_cast<size_t>(n - 1) * size;
  const size_t later = static_cast<size_t>(count - n) * size;
  std::memmove(slot, slot + size, later);
  std::memset(slot + later, 0, size);
}

}  // namespace

std::string Scramble(std::string_view bytes) {
  std::string result(bytes);
  for (char& c : result) c = static_cast<char>(255 - static_cast<uint8_t>(c));
  return result;
}

bool TableHeader::IsValid() const {
  const std::string_view magic(bytes_.data(), 3);
  return (magic == "QDB" || magic == "_DB") && LoadLe<int16_t>(data() + kUserCountAt) <= kMaxUsers &&
         LoadLe<int16_t>(data() + kFieldCountAt) <= kMaxFields;
}

void TableHeader::Clear() {
  bytes_.assign(bytes_.size(), '\0');
}

void TableHeader::SetMagic() {
  std::memcpy(data(), "QDB", 3);
}

int TableHeader::user_count() const {
  return std::clamp<int>(LoadLe<int16_t>(data() + kUserCountAt), 0, kMaxUsers);
}

void TableHeader::SetUserCount(int count) {
  StoreLe(data() + kUserCountAt, static_cast<int16_t>(count));
}

UserSlot TableHeader::User(int n) const {
  const char* slot = data() + UserAt(n);
  UserSlot user;
  user.name = Unpadded(Scramble({slot, kNameSize}));
  user.password = Unpadded(Scramble({slot + kNameSize, kNameSize}));
  user.type = LoadLe<int32_t>(slot + 32);
  user.creator = LoadLe<int16_t>(slot + 36);
  user.changed = LoadLe<int16_t>(slot + 38);
  return user;
}

void TableHeader::SetUser(int n, const UserSlot& user) {
  char* slot = data() + UserAt(n);
  std::memcpy(slot, Scramble(Padded(user.name, kNameSize)).data(), kNameSize);
  std::memcpy(slot + kNameSize, Scramble(Padded(user.password, kNameSize)).data(), kNameSize);
  StoreLe(slot + 32, user.type);
  StoreLe(slot + 36, user.creator);
  StoreLe(slot + 38, user.changed);
}

void TableHeader::RemoveUser(int n) {
  const int count = user_count();
  RemoveSlot(data() + kUsersAt, kUserSize, n, count);
  SetUserCount(count - 1);
}

int TableHeader::field_count() const {
  return std::clamp<int>(LoadLe<int16_t>(data() + kFieldCountAt), 0, kMaxFields);
}

void TableHeader::SetFieldCount(int count) {
  StoreLe(data() + kFieldCountAt, static_cast<int16_t>(count));
}

FieldSlot TableHeader::Field(int n) const {
  const char* slot = data() + FieldAt(n);
  FieldSlot field;
  field.name = Unpadded({slot, kNameSize});
  field.type = LoadLe<int32_t>(slot + 16);
  field.length = LoadLe<int32_t>(slot + 20);
  field.position = LoadLe<int32_t>(slot + 24);
  field.link_file = Unpadded({slot + 28, kLinkFileSize});
  field.link_field = Unpadded({slot + 76, kNameSize});
  return field;
}

void TableHeader::SetField(int n, const FieldSlot& field) {
  char* slot = data() + FieldAt(n);
  std::memcpy(slot, Padded(field.name, kNameSize).data(), kNameSize);
  StoreLe(slot + 16, field.type);
  StoreLe(slot + 20, field.length);
  StoreLe(slot + 24, field.position);
  std::memcpy(slot + 28, Padded(field.link_file, kLinkFileSize).data(), kLinkFileSize);
  std::memcpy(slot + 76, Padded(field.link_field, kNameSize).data(), kNameSize);
}

void TableHeader::SetFieldPosition(int n, int32_t position) {
  StoreLe(data() + FieldAt(n) + 24, position);
}

void TableHeader::RemoveField(int n) {
  const int count = field_count();
  RemoveSlot(data() + kFieldsAt, kFieldSize, n, count);
  SetFieldCount(count - 1);
}

bool TableHeader::SameFields(const TableHeader& other) const {
  return std::memcmp(data() + kFieldCountAt, other.data() + kFieldCountAt, 2) == 0 &&
         std::memcmp(data() + kFieldsAt, other.data() + kFieldsAt, kStampAt - kFieldsAt) == 0;
}

int32_t TableHeader::change_stamp() const {
  return LoadLe<int32_t>(data() + kStampAt);
}

void TableHeader::SetChangeStamp(int32_t stamp) {
  StoreLe(data() + kStampAt, stamp);
}

}  // namespace ostrinka
