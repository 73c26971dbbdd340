// The two parties of a document: who sells, who buys, who pays.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "print/page_flow.h"

namespace ostrinka {

// What is told of a party: a line of short things stands together as far as they fit, and parts where they do not.
struct PartyLine {
  std::vector<std::string> things;
  bool bold = false;
  double gap = 0;  // mm above it
};
struct Party {
  const char* heading_key = "";
  std::vector<PartyLine> lines;
};

// The company, as the options have it; an individual account of the customer takes the place of the company's account.
Party SellerParty(Program& program, const PrintOptions& options, int32_t customer);
// A row of kontrahenci; the text of the error where there is none.
Party BuyerParty(Program& program, const PrintOptions& options, int32_t customer, const char* heading_key);

// Height of a block with its heading, its text in `size`, and the room under it.
double PartyHeight(PageFlow& flow, const Party& party, double width, double size);

// The blocks at (x, y), `width` mm wide; the lower end, with the room under the block.
double PrintPartyBlock(PageFlow& flow, const Party& party, double x, double y, double width, double size);
double PrintSellerBlock(PageFlow& flow, int32_t customer, double x, double y, double width, double size);
double PrintBuyerBlock(PageFlow& flow, int32_t customer, const char* heading_key, double x, double y, double width, double size);

// The seller at the left, the buyer and the payer (0: none) at the right of the cursor, in the largest text that leaves room for the
// table. The cursor goes to the lower end.
void PrintParties(PageFlow& flow, int32_t customer, int32_t payer);

}  // namespace ostrinka
