// The blocks of a sales document around its table: place and dates, logo, title; payment, signatures, notes.
//
// Each stands at the cursor of the flow and moves it; a block that does not fit goes to the next page as a whole, notes may break.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "print/page_flow.h"
#include "print/printed_document.h"

namespace ostrinka {

struct DocumentHead {
  std::vector<std::pair<const char*, std::string>> pairs;  // heading key and value: place, dates
  std::string title;                                       // with the number
  std::string copy_label;                                  // "" for none
  std::string label_date;                                  // a line under the label; "" for none
  bool with_logo = true;
};
// Place, dates and logo, with room left for the title, whose place is given back; the cursor stands where the parties go.
struct TitlePlace {
  double top = 0, width = 0;
};
TitlePlace PrintDocumentHead(PageFlow& flow, const DocumentHead& head);
// Title with number, label and its date; the cursor stays.
void PrintTitle(PageFlow& flow, const DocumentHead& head, const TitlePlace& place);

// What is to be paid, how and when, and the amount in words.
void PrintPayment(PageFlow& flow, const PrintedDocument& document);

struct SignatureBox {
  const char* heading_key;
  std::string name;
  std::string note;  // "" for none
};
// One box at the left, or one at each side.
void PrintSignatures(PageFlow& flow, const std::vector<SignatureBox>& boxes);

// Nothing for an empty text.
void PrintNotes(PageFlow& flow, const std::string& notes);

}  // namespace ostrinka
