// Small things that the forms of master data share: lists filled from tables, links shown in lists, limits, the flash of a required field,
// the marks of doubtful numbers.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "app/program.h"
#include "controls/form.h"
#include "engine/qdbase.h"

namespace ostrinka {

// Fills `list` with the existing records of table `number` in their order, the record number as the value; a record whose trimmed `field`
// is empty is passed over. `blank_first` puts an empty entry of value 0 before them. Nothing is selected.
void FillFromTable(Program& program, int number, ComboControl& list, std::string_view field, bool blank_first);
// The same with a text made by `text_of` from the record that is loaded; an empty text passes it over.
void FillFromTable(Program& program, int number, ComboControl& list, const std::function<std::string(ClassQDBASE&)>& text_of,
                   bool blank_first);

// Selects the entry of `record`. A record that the list lacks, because it was deleted, is added at the end with `text` first.
void SelectOrAdd(ComboControl& list, int32_t record, std::string text);
// Shows the link field of the loaded record by its text; among entries of equal text the one that is linked. The text of a deleted record
// stands in the list too, so that it is shown, counts in the rules and is saved again.
void ShowLink(ClassQDBASE& table, const std::string& field, ComboControl& list);
// Writes the chosen record to the buffer. With none selected the field keeps what it holds.
void SaveLink(ClassQDBASE& table, const std::string& field, const ComboControl& list);

// A text box takes as many letters as its field holds; `limit` where the table is not open.
void LimitToField(ClassQDBASE& table, std::string_view field, TextBoxControl& box, size_t limit = 0);

// Beeps, then flashes the ground of a field five times and gives it the focus.
void FlashField(Program& program, Form& form, TextBoxControl& box);

// Marks a bank account, tax number and statistical number that do not check. Warnings only: nothing refuses to save them.
void MarkNumbers(Program& program, TextBoxControl& account, TextBoxControl& nip, TextBoxControl& regon);

// Whether a cleaned Polish account number is too long or fails its check digits.
bool AccountIsDoubtful(std::string_view text);

template <typename ControlType, size_t N>
std::vector<Control*> ControlsOf(std::array<ControlType, N>& controls) {
  std::vector<Control*> list;
  for (ControlType& control : controls) list.push_back(&control);
  return list;
}

}  // namespace ostrinka
