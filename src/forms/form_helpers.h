// Small things that the forms of master data share: lists filled from tables, links shown in lists, limits, the flash of a required field,
// the marks of doubtful numbers.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "app/program.h"
#include "books/books.h"
#include "books/columns.h"
#include "controls/form.h"

namespace ostrinka {

// Empties `list` and, with `blank_first`, puts an empty entry of value 0 into it.
void StartList(ComboControl& list, bool blank_first);
// Fills `list` with the existing records of the column's table in their order, the record number as the value; a record whose trimmed text
// is empty is passed over. `blank_first` puts an empty entry of value 0 before them. Nothing is selected.
void FillFromTable(Program& program, const Column<std::string>& column, ComboControl& list, bool blank_first);
// The same with a text that `text_of` makes from the row; an empty text passes it over.
template <typename Row, typename TextOf>
void FillFromRows(Program& program, ComboControl& list, TextOf text_of, bool blank_first) {
  StartList(list, blank_first);
  EachRow<Row>(program, [&](int32_t record, const Row& row) {
    std::string text = text_of(row);
    if (!text.empty()) list.AddItem(std::move(text), record);
    return true;
  });
}

// Selects the entry of `record`. A record that the list lacks, because it was deleted, is added at the end with `text` first.
void SelectOrAdd(ComboControl& list, int32_t record, std::string text);
// Shows a link of `record` by its text; among entries of equal text the one that is linked. The text of a deleted record stands in the list
// too, so that it is shown, counts in the rules and is saved again.
void ShowLink(Program& program, const Column<Link>& column, int32_t record, ComboControl& list);
// Sets the column to the chosen record. With none selected it keeps what it holds.
void SaveLink(ColumnValues& values, const Column<Link>& column, const ComboControl& list);

// A text box takes as many letters as its field holds; `limit` where the table is not open.
void LimitToField(Program& program, const Column<std::string>& column, TextBoxControl& box, size_t limit = 0);

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
