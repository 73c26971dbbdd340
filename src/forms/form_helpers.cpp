#include "forms/form_helpers.h"

#include "base/check_digits.h"
#include "base/text.h"
#include "company/tables.h"

namespace ostrinka {
namespace {

constexpr size_t kAccountTooLong = 35;
constexpr int kFlashColour = 17;  // of the skin
constexpr int kFlashes = 5, kFlashPause = 25;

}  // namespace

void FillFromTable(Program& program, int number, ComboControl& list, const std::function<std::string(ClassQDBASE&)>& text_of,
                   bool blank_first) {
  list.Clear();
  if (blank_first) list.AddItem("", 0);
  ClassQDBASE& table = Table(program, number);
  const int32_t count = table.RECORD_COUNT();
  for (int32_t record = 1; record <= count; ++record) {
    if (!table.RECORD_EXIST(record) || !table.RECORD_LOAD(record)) continue;
    std::string text = text_of(table);
    if (!text.empty()) list.AddItem(std::move(text), record);
  }
}

void FillFromTable(Program& program, int number, ComboControl& list, std::string_view field, bool blank_first) {
  list.Clear();
  if (blank_first) list.AddItem("", 0);
  Table(program, number).SCAN({FieldId(field)}, [&](int32_t record, const std::vector<Value>& values) {
    std::string text = Trim(ToText(values[0]));
    if (!text.empty()) list.AddItem(std::move(text), record);
    return true;
  });
}

void SelectOrAdd(ComboControl& list, int32_t record, std::string text) {
  if (list.SelectValue(record) || record < 1) return;
  list.AddItem(std::move(text), record);
  list.SelectValue(record);
}

void ShowLink(ClassQDBASE& table, const std::string& field, ComboControl& list) {
  const std::string text = Trim(table.Text("@" + field));
  const int32_t record = table.Int("." + field);
  const int index = list.FindIdByValue(record);
  if (index >= 0 && list.List(index) == text) {
    list.SetListIndex(index);
  } else if (text.empty() || !list.SelectText(text)) {
    SelectOrAdd(list, record, text);
  }
}

void SaveLink(ClassQDBASE& table, const std::string& field, const ComboControl& list) {
  if (list.ListIndex() >= 0) table.FIELD(field, Value(list.Value()));
}

void LimitToField(ClassQDBASE& table, std::string_view field, TextBoxControl& box, size_t limit) {
  const int32_t length = table.IsOpen() ? table.FIELD_LEN(field) : 0;
  box.Limit = length > 0 ? static_cast<size_t>(length) : limit;
}

void FlashField(Program& program, Form& form, TextBoxControl& box) {
  program.platform.ui.Beep();
  for (int i = 0; i < kFlashes; ++i) {
    for (const int colour : {kFlashColour, 0}) {
      box.BackColorIndex = colour;
      box.Repaint.Raise();
      program.platform.waiter.Wait(kFlashPause);
    }
    program.platform.ui.TurnEvents();
  }
  form.SetFocus(box);
}

bool AccountIsDoubtful(std::string_view text) {
  return AlnumOnly(text).size() >= kAccountTooLong || !CheckIBAN(text, "PL");
}

void MarkNumbers(Program& program, TextBoxControl& account, TextBoxControl& nip, TextBoxControl& regon) {
  account.SetWarning(AccountIsDoubtful(account.Text()), program.Text("common.warn.account"));
  nip.SetWarning(!CheckNIP(nip.Text()), program.Text("common.warn.nip"));
  regon.SetWarning(!CheckREGON(regon.Text()), program.Text("common.warn.regon"));
}

}  // namespace ostrinka
