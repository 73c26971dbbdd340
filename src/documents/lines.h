// Lines of sales documents: adding, changing and removing them, copies, advances, another currency.
//
// A line is written to sprzedane at once. Nothing here tells the person anything: the outcome does, and what was saved before a failure
// stays.
#pragma once

#include "books/rows.h"
#include "documents/arithmetic.h"

namespace ostrinka {

enum class [[nodiscard]] LineOutcome{
    kDone,
    kTooLarge,    // an amount that the currency type does not hold
    kNotWritten,  // the line is not there, or the table refuses
};

// What the line dialog gathers.
struct LineEntry {
  int32_t article = 0;  // record of towaryuslugi, also a deleted one
  Currency quantity, net, gross;
  Currency discount;  // whole percent
};

struct [[nodiscard]] AddedLine {
  LineOutcome outcome;
  int32_t record = 0;
};
// Adds a line with the prices converted from the article's currency to the document's `rate` and makes it current.
AddedLine AddLine(Program& program, int32_t document_id, const LineEntry& entry, float rate);
// Rewrites a line; its prices are in the document's currency already.
LineOutcome RewriteLine(Program& program, int32_t line, const LineEntry& entry);

// Computes the values of one line anew from its prices, quantity and discount and saves it.
LineOutcome RecalculateLine(Program& program, int32_t line);
// Sets prices and values of a line to 0 and saves it, so that the totals are right before it is deleted.
LineOutcome ZeroLine(Program& program, int32_t line);

// The lines of `from` once more under `to`, every other field as it is. False when one could not be written; the others are.
[[nodiscard]] bool CopyLines(Program& program, int32_t from, int32_t to);

// All prices and values of a document's lines times `old_rate` / `new_rate`; a rate of 0 counts as 1.
LineOutcome ConvertLines(Program& program, int32_t document_id, float old_rate, float new_rate);

enum class [[nodiscard]] AdvanceOutcome{
    kSettled,
    kNoAdvance,  // there is no such document
    kNoValue,    // no VAT rate of the advance has a value
    kTooLarge,  kNotWritten,
};
// Negative lines on the document `document_id` for the advance invoice in record `advance`, one for each VAT rate with a value.
AdvanceOutcome SettleAdvance(Program& program, int32_t document_id, int32_t currency_record, int32_t advance);

// A row of towaryuslugi written and deleted at once: links can read it, lists do not show it. Its record; 0 on failure.
[[nodiscard]] int32_t AddHiddenArticle(Program& program, const Article& article);

}  // namespace ostrinka
