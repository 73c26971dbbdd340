// The head of a sales document: place and dates, the company's logo, the title with its label.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "print/page_flow.h"

namespace ostrinka {

struct DocumentHead {
  std::vector<std::pair<const char*, std::string>> pairs;  // heading key and value: place, dates
  std::string title;                                       // with the number
  std::string copy_label;                                  // "" for none
  std::string label_date;                                  // a line under the label; "" for none
  bool with_logo = true;
};

// Place, dates and logo, with room left for the title, whose place is given back; the cursor stands where the parties go. A logo that
// cannot be read leaves no room, and is noted in the job.
struct TitlePlace {
  double top = 0, width = 0;  // mm
};
TitlePlace PrintDocumentHead(PageFlow& flow, const DocumentHead& head);

// Title with number, label and its date; the cursor stays.
void PrintTitle(PageFlow& flow, const DocumentHead& head, const TitlePlace& place);

}  // namespace ostrinka
