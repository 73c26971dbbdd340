// What an open table keeps, shared by the files that implement ClassQDBASE.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "engine/bound_field.h"
#include "engine/condition.h"
#include "engine/field_layout.h"
#include "engine/memo_file.h"
#include "engine/ordering.h"
#include "engine/qdbase.h"
#include "engine/record_buffer.h"
#include "engine/record_list.h"
#include "engine/table_file.h"
#include "engine/table_header.h"
#include "engine/table_view.h"

namespace ostrinka {

// The linked table of a field and the number of the field shown from it; no table when the field is no link or its table is missing.
struct LinkedTable {
  std::unique_ptr<ClassQDBASE> table;
  int field = 0;
};

struct BoundPlace {
  std::unique_ptr<BoundField> shown;
  int field = 0;
};

struct FormBinding {
  const Modal* form = nullptr;  // null while none is connected
  std::vector<BoundPlace> places;
};

struct ClassQDBASE::State {
  State(ClassQDBASE& owner, Platform& surroundings);

  ClassQDBASE& self;
  Platform& platform;
  TableFile file;
  TableHeader header;
  FieldLayout layout;
  std::string path, user, password;
  int32_t login_type = kOwner;
  int login_slot = 0;
  int32_t current = 0;   // record
  int32_t count = 0;     // of records, as last computed
  int32_t added = 0;     // record written by the last RECORD_ADD
  bool recount = false;  // the count is due to be read again before a record is called missing
  bool settled = false;  // the table had records when its header was read: no other object can change its shape from then on
  RecordBuffer buffer;
  RecordList selection;
  std::vector<LinkedTable> links;
  std::unique_ptr<MemoFile> memo;
  int32_t instance = 0;
  std::string scratch;  // a record of which single fields are read
  bool debug_on = true;
  bool is_link = false;  // opened for the link field of another table
  int last_code = -1;
  std::string last_error;
  TableView view;
  FormBinding binding;

  bool Fail(int code, std::string_view detail = {});
  // "#" and the platform's text of the last failure, under code 0.
  bool FailPlatform(const std::string& text);
  template <typename... Parts>
  void Debug(const Parts&... parts) {
    if (debug_on && self.debug_event) DebugLine((std::string() + ... + parts), true);
  }
  bool Ok() {
    if (debug_on && self.debug_event) DebugLine("...OK", false);
    return true;
  }
  void DebugLine(const std::string& line, bool start);

  bool IsOwner() const { return login_type == kOwner; }
  bool MayWrite() const { return login_type == kOwner || login_type == kReadWrite; }

  // --- table file (qdbase.cpp)
  bool OpenExisting();
  bool CreateNew(bool& existing);
  bool FinishOpen(bool created, bool select, bool with_links);
  void CloseFile();
  bool ReadHeaderAgain();
  // Re-reads the header, lays the fields out and brings the stored record count in line with the file's length.
  bool RecomputeLayout();
  bool BuildLayout();
  // Before a write: the path still names the open file, or the file that it names now has been opened.
  bool ReadyToWrite();
  // Before a record is changed. The fields of a table without records can be changed although this object has it open, so its header is
  // read again until there are records.
  bool ReadyToChange() { return ReadyToWrite() && (settled || ReadHeaderAgain()); }
  bool WriteHeader();
  void OpenLinks();
  void OpenLink(int n);
  void OpenMemo();

  // --- records (records.cpp)
  int32_t CountRecords();
  bool InRange(int32_t n) { return file.IsOpen() && CountRecords() >= 1 && n >= 1 && n <= count; }
  // The same for a read, which fails by itself when the file became shorter: one system call less for a record that was known to be there.
  bool MayRead(int32_t n);
  bool ReadRecord(int32_t n, std::string& bytes);
  bool WriteRecord(int32_t n, const std::string& bytes);
  // RECORD_SAVE of any buffer.
  bool SaveRecord(int32_t n, RecordBuffer& values, bool revive);
  bool IsLive(int32_t n);

  // --- walking (moves.cpp)
  bool MoveToEnd(bool forward);
  bool MoveStep(bool forward);

  // --- fields (fields.cpp)
  // Number of the field that `id` names, a leading "." or "@" allowed as given; fails with code 25.
  int FieldNumber(const FieldId& id);
  // The same for a name behind its ".", where a number is none.
  int FieldNamed(const FieldId& id);
  Value Stored(int n) { return buffer.Get(n, layout); }
  // What "@" shows of link field `n` for the target record.
  Value LinkValue(int n, int32_t target);
  Value RawValue(const FieldId& id);
  // Bytes of the field alone, in its place in `bytes`.
  bool ReadField(int32_t record, const FieldDef& field, std::string& bytes);
  // The shown value of field `n` of any record, read for itself; the buffer stays as it is.
  Value ReadShown(int32_t record, int n);

  // --- selection (selection.cpp)
  std::vector<int32_t> Scan(const std::string& condition, bool ascending, int32_t first, int32_t last, Ordering* ordering);
  std::vector<int32_t> OrderKept(Ordering& ordering, bool descending);
  LinkReader Links();
  LinkScanner AllLinks();

  // --- structure (structure.cpp)
  // Parts of the old record, offset and length, that make the new one.
  using Reshaping = std::vector<std::pair<size_t, size_t>>;
  bool TakeSoleUse(int code);
  // Before the change of a table without whole records: cuts off what stands behind its header, under sole use.
  bool DropFragment(int code);
  bool AddField(const FieldSlot& slot);
  std::unique_ptr<File> BuildCompanions(const TableHeader& new_header, const Reshaping& pieces, std::string& error);
  bool ReplaceFile(const TableHeader& new_header, int code, const Reshaping& pieces);

  // --- attachments (attachments.cpp)
  int MemoField(const FieldId& id);

  // --- form binding (form_binding.cpp)
  void FillForm(int only_field);
  void FillPlace(const BoundPlace& place);
  void FillFiles(const BoundPlace& place);
  void FillList(BoundField& list, int n);
  void RefreshForm() {
    if (binding.form) self.FORM_REFRESH();
  }

  // --- export (export.cpp)
  Value ExportValue(int n, const char* record);
  std::string SeparatedValue(int n, const char* record, char quote);
  std::vector<int32_t> ExportedRecords(bool selected);
  bool ExportSeparated(const std::string& target, bool selected, char separator, char quote);
  bool ExportXml(const std::string& target, bool all);
};

// Whether every character may stand in a user, a password or a field name: digits, ASCII letters, "_", "$", Polish letters.
bool IsPlainName(std::string_view utf8);

}  // namespace ostrinka
