// The header block of a table file: magic, counts, 256 user slots and 256 field slots, kept as the bytes that stand in the file.
//
//   offset  size   content
//        0     3   "QDB" or "_DB"
//        3     2   user count
//        5     2   field count
//        7 10240   user slots: name 16, password 16 (both scrambled), type 4, creator 2, changed 2
//    10247 23552   field slots: name 16, type 4, length 4, position 4, link file 48, link field 16
//    33799     4   change stamp
//    33803     4   record count (behind the block)
//    33807         records
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace ostrinka {

constexpr int64_t kHeaderSize = 33803;
constexpr int64_t kCountOffset = 33803;
constexpr int64_t kRecordsOffset = 33807;
constexpr int kMaxUsers = 256;
constexpr int kMaxFields = 256;
constexpr int32_t kMaxTextLength = 65536;

struct UserSlot {
  std::string name, password;  // UTF-8, decoded and trimmed
  int32_t type = 0;
  int16_t creator = 0, changed = 0;
};

struct FieldSlot {
  std::string name;  // UTF-8, trimmed, without nulls
  int32_t type = 0, length = 0, position = 0;
  std::string link_file, link_field;
};

class TableHeader {
 public:
  TableHeader() : bytes_(static_cast<size_t>(kHeaderSize), '\0') {}

  char* data() { return bytes_.data(); }
  const char* data() const { return bytes_.data(); }
  // An accepted magic, and counts that the slots can hold.
  bool IsValid() const;
  void Clear();
  void SetMagic();

  int user_count() const;  // never outside 0 to 256
  void SetUserCount(int count);
  UserSlot User(int n) const;  // n from 1
  void SetUser(int n, const UserSlot& user);
  void RemoveUser(int n);

  int field_count() const;
  void SetFieldCount(int count);
  FieldSlot Field(int n) const;  // n from 1
  void SetField(int n, const FieldSlot& field);
  void SetFieldPosition(int n, int32_t position);
  void RemoveField(int n);
  // The bytes that the field definitions stand in, for telling whether they changed.
  bool SameFields(const TableHeader& other) const;

  int32_t change_stamp() const;
  void SetChangeStamp(int32_t stamp);

 private:
  std::string bytes_;
};

// 255 minus each byte; its own inverse.
std::string Scramble(std::string_view bytes);

}  // namespace ostrinka
