#include "print/invoice_layout.h"

#include "documents/numbering.h"
#include "print/document_head.h"
#include "print/document_sums.h"
#include "print/document_tail.h"
#include "print/line_table.h"
#include "print/party_block.h"
#include "print/printed_document.h"

namespace ostrinka {
namespace {

std::vector<ColumnId> InvoiceColumns(const PrintOptions& options, const PrintedDocument& document) {
  std::vector<ColumnId> columns = {ColumnId::kNumber, ColumnId::kName};
  if (!options.without_classification) columns.push_back(ColumnId::kCode);
  columns.insert(columns.end(), {ColumnId::kQuantity, ColumnId::kUnit, ColumnId::kNetPrice});
  if (document.AnyDiscount()) columns.push_back(ColumnId::kDiscount);
  columns.insert(columns.end(), {ColumnId::kNet, ColumnId::kRate, ColumnId::kVat, ColumnId::kGross});
  return columns;
}

std::string SaleDates(const PrintedDocument& document) {
  const std::string from = document.DateText(document.sold_from);
  return document.sold_over_range ? from + " - " + document.DateText(document.sold_to) : from;
}

DocumentHead InvoiceHead(const PrintJob& job, const PrintedDocument& document, const std::string& label) {
  DocumentHead head;
  head.pairs = {{"sdoc.info.place", job.options.company.M_WYST_DOK},
                {"sdoc.info.sdate", SaleDates(document)},
                {"sdoc.info.mdate", document.DateText(document.issued)}};
  head.title = DocumentTitle(document);
  if (has_option(document.options, "PF")) return head;
  head.copy_label = label;
  if (!label.empty() && label == job.program.Text("sdoc.ct.dup")) {
    head.label_date = job.program.Text("sdoc.dupdate") + " " + document.DateText(job.program.platform.clock.Now());
  }
  return head;
}

}  // namespace

void PrintInvoice(PrintJob& job, const DocumentCopy& copy) {
  Program& program = job.program;
  const PrintedDocument document = ReadPrintedDocument(program, copy.record);
  const LineSums sums = SumLines(document.lines);
  const DocumentHead head = InvoiceHead(job, document, copy.label);
  PageFlow flow(job, {.continuation = head.title, .copy = head.copy_label});
  flow.FirstPage();
  const TitlePlace title = PrintDocumentHead(flow, head);
  PrintParties(flow, document.customer, document.payer);
  PrintTitle(flow, head, title);
  const std::vector<ColumnId> columns = InvoiceColumns(job.options, document);
  PagedTable(flow, LineTableOf(program, document, document.lines, sums, columns, "sdoc.sum", "sdoc.svat")).Draw();
  PlaceBlocks(flow, {PaymentBlock(flow, document, PaymentOf(program, job.options, document)),
                     SignatureBlock(flow, {{"sdoc.info.scust.per", document.issuer, program.Text("sdoc.info.scust.per.info")},
                                           {"sdoc.info.bcust.per", document.receiver, program.Text("sdoc.info.bcust.per.info")}}),
                     NotesBlock(flow, document.notes)});
}

}  // namespace ostrinka
