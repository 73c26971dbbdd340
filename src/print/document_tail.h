// The blocks under the table of a sales document: payment, signatures, notes. Each is measured for the flow given and drawn by PlaceBlocks.
#pragma once

#include <string>
#include <vector>

#include "print/document_sums.h"
#include "print/page_blocks.h"

namespace ostrinka {

// The words of the payment by their keys, which differ where money goes back to the buyer.
struct PaymentKeys {
  const char* to_pay = "sdoc.info.topay";
  const char* form = "sdoc.info.paytype";
  const char* at_once = "sdoc.info.payps";
  const char* due = "sdoc.info.payeod";
  const char* sum = "sdoc.info.sumpay";
  const char* words = "sdoc.info.wordval";
};

// What is to be paid, how and when, and the amount in words.
PageBlock PaymentBlock(PageFlow& flow, const PrintedDocument& document, const PaymentTerms& terms, const PaymentKeys& keys = {});

struct SignatureBox {
  const char* heading_key;
  std::string name;
  std::string note;  // "" for none
};
// One box at the left, or one at each side. Signatures stay with what is signed for: the block before.
PageBlock SignatureBlock(PageFlow& flow, const std::vector<SignatureBox>& boxes);

// Breaks over pages. Nothing for an empty text.
PageBlock NotesBlock(PageFlow& flow, const std::string& notes);

}  // namespace ostrinka
