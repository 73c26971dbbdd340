// Lines of sales documents: adding, changing and removing them, copies, advances, another currency.
//
// A line is written to sprzedane at once. An amount past the currency type stops the operation with a message; what was saved stays.
#pragma once

#include <functional>

#include "documents/arithmetic.h"

namespace ostrinka {

// What the line dialog gathers.
struct LineEntry {
  int32_t article = 0;  // record of towaryuslugi, also a deleted one
  Currency quantity, net, gross;
  Currency discount;  // whole percent
};

// Adds a line with the prices converted from the article's currency to the document's `rate` and makes it current. Its record; 0 on
// failure.
int32_t AddLine(Program& program, int32_t document_id, const LineEntry& entry, float rate);
// Rewrites a line; its prices are in the document's currency already.
bool RewriteLine(Program& program, int32_t line, const LineEntry& entry);

// Computes the values of one line anew from its prices, quantity and discount and saves it.
bool RecalculateLine(Program& program, int32_t line);
// Sets prices and values of a line to 0 and saves it, so that the totals are right before it is deleted.
bool ZeroLine(Program& program, int32_t line);

// The lines of `from` once more under `to`, every other field as it is.
bool CopyLines(Program& program, int32_t from, int32_t to);

// All prices and values of a document's lines times `old_rate` / `new_rate`; a rate of 0 counts as 1.
bool ConvertLines(Program& program, int32_t document_id, float old_rate, float new_rate);

// Negative lines on the document `document_id` for the advance invoice in record `advance`, one for each VAT rate with a value. False with
// a message when it has none.
bool SettleAdvance(Program& program, int32_t document_id, int32_t currency_record, int32_t advance);

// A row of towaryuslugi written and deleted at once: links can read it, lists do not show it. Its record; 0 on failure.
int32_t AddHiddenArticle(Program& program, const std::function<void(class ClassQDBASE&)>& fill);

}  // namespace ostrinka
