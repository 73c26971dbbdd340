// Numbers and type rules of sales documents.
//
// A document's type is a row of dokument_kat; its option words are the only door to what depends on the type. A number runs within a scope:
// the set (ZESTAW) of the type and the year of issue, or its month when the type holds "+NM". Nothing is reserved: two workstations can
// compute the same number.
#pragma once

#include <string>
#include <string_view>

#include "app/program.h"
#include "base/date.h"

namespace ostrinka {

// Whether the word stands in the options with a plus sign directly before or after it; case and blanks at the ends do not count.
bool has_option(std::string_view options, std::string_view word);

// Options of a row of dokument_kat, trimmed and upper-cased; "" when it cannot be loaded.
std::string type_options(Program& program, int32_t type_record);
// The first living type with the option; 0 when there is none.
int32_t first_type_with(Program& program, std::string_view word);
// The same as type_options of the type of a record of dok_sprzed.
std::string doc_options(Program& program, int32_t record);
std::string doc_print_title(Program& program, int32_t record);
bool is_pro_forma(Program& program, int32_t record);
bool is_bill(Program& program, int32_t record);
bool is_receipt(Program& program, int32_t record);
bool is_correction(Program& program, int32_t record);
bool is_fiscalised(Program& program, int32_t record);

// The printed number: the type's template filled in.
std::string doc_number_text(Program& program, int32_t record);
// The reference line of a correction: title, number and date of issue of the corrected document.
std::string doc_reference_text(Program& program, int32_t record);

// The next NR_DOK for a document of type `type_record` issued on `issued`, counted over the table numbered `table` (1 to 32; anything else
// gives 0). A document whose number is `skip`, when at least 1, is passed over, so that one being renumbered does not count itself.
int32_t next_number(Program& program, int table, Date issued, int32_t type_record, int32_t skip);

// A random identity below 2 to the power 30, at least 1, that no existing sales document has.
int32_t new_document_id(Program& program);

// Whether a correcting invoice may be made for the document.
enum class CorrectionRule { kAllowed, kTypeForbids, kHasOneAlready };
CorrectionRule may_be_corrected(Program& program, int32_t record);

}  // namespace ostrinka
