#include "forms/form_helpers.h"

#include "base/check_digits.h"
#include "base/text.h"

namespace ostrinka {
namespace {

constexpr size_t kAccountTooLong = 35;
constexpr int kFlashColour = 17;  // of the skin
constexpr int kFlashes = 5, kFlashPause = 25;

}  // namespace

void StartList(ComboControl& list, bool blank_first) {
  list.Clear();
  if (blank_first) list.AddItem("", 0);
}

void FillFromTable(Program& program, const Column<std::string>& column, ComboControl& list, bool blank_first) {
  StartList(list, blank_first);
  const auto add = [&](int32_t record, const std::string& shown) {
    std::string text = Trim(shown);
    if (!text.empty()) list.AddItem(std::move(text), record);
    return true;
  };
  EachOf(program, column.table, add, column);
}

void SelectOrAdd(ComboControl& list, int32_t record, std::string text) {
  if (list.SelectValue(record) || record < 1) return;
  list.AddItem(std::move(text), record);
  list.SelectValue(record);
}

void ShowLink(Program& program, const Column<Link>& column, int32_t record, ComboControl& list) {
  const std::string text = Trim(LinkText(program, column, record));
  const int32_t target = ReadColumn(program, column, record);
  const int index = list.FindIdByValue(target);
  if (index >= 0 && list.List(index) == text) {
    list.SetListIndex(index);
  } else if (text.empty() || !list.SelectText(text)) {
    SelectOrAdd(list, target, text);
  }
}

void SaveLink(ColumnValues& values, const Column<Link>& column, const ComboControl& list) {
  if (list.ListIndex() >= 0) values.Set(column, list.Value());
}

void LimitToField(Program& program, const Column<std::string>& column, TextBoxControl& box, size_t limit) {
  ClassQDBASE& table = Table(program, column.table);
  const int32_t length = table.IsOpen() ? table.FIELD_LEN(column.name) : 0;
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
