#include "print/invoice_layout.h"

#include "base/text.h"
#include "documents/numbering.h"
#include "print/document_blocks.h"
#include "print/line_table.h"
#include "print/party_block.h"
#include "print/printed_document.h"

namespace ostrinka {
namespace {

std::vector<ColumnId> InvoiceColumns(Program& program, const PrintedDocument& document) {
  std::vector<ColumnId> columns = {ColumnId::kNumber, ColumnId::kName};
  if (!program.settings.Boolean(kCommon, "prgSettings", "VDopNorPKWiU", false)) columns.push_back(ColumnId::kCode);
  columns.insert(columns.end(), {ColumnId::kQuantity, ColumnId::kUnit, ColumnId::kNetPrice});
  if (document.AnyDiscount()) columns.push_back(ColumnId::kDiscount);
  columns.insert(columns.end(), {ColumnId::kNet, ColumnId::kRate, ColumnId::kVat, ColumnId::kGross});
  return columns;
}

std::string SaleDates(const PrintedDocument& document) {
  const std::string from = document.DateText(document.sold_from);
  return document.sold_over_range ? from + " - " + document.DateText(document.sold_to) : from;
}

DocumentHead InvoiceHead(Program& program, const PrintedDocument& document, const std::string& label) {
  DocumentHead head;
  head.pairs = {{"sdoc.info.place", program.settings.Text(kCommon, "user", "mwdok")},
                {"sdoc.info.sdate", SaleDates(document)},
                {"sdoc.info.mdate", document.DateText(document.issued)}};
  head.title = DocumentTitle(document);
  if (has_option(document.options, "PF")) return head;
  head.copy_label = label;
  if (!label.empty() && label == program.Text("sdoc.ct.dup")) {
    head.label_date = program.Text("sdoc.dupdate") + " " + document.DateText(program.platform.clock.Now());
  }
  return head;
}

}  // namespace

void PrintInvoice(Program& program, ClassPRINT& print, const DocumentCopy& copy) {
  const PrintedDocument document = ReadPrintedDocument(program, copy.record);
  PageFlow flow(program, print, DocumentTitle(document));
  flow.FirstPage();
  const DocumentHead head = InvoiceHead(program, document, copy.label);
  const TitlePlace title = PrintDocumentHead(flow, head);
  PrintParties(flow, document.customer, document.payer);
  PrintTitle(flow, head, title);
  LineTable table(flow, document, document.lines, InvoiceColumns(program, document));
  table.Draw();
  table.DrawSums("sdoc.sum", "sdoc.svat");
  PrintPayment(flow, document);
  PrintSignatures(flow, {{"sdoc.info.scust.per", document.issuer, program.Text("sdoc.info.scust.per.info")},
                         {"sdoc.info.bcust.per", document.receiver, program.Text("sdoc.info.bcust.per.info")}});
  PrintNotes(flow, document.notes);
}

}  // namespace ostrinka
