// From a command to a print job: the copies of a document, their page totals, the PDF.
#pragma once

#include <cstdint>

#include "app/program.h"
#include "print/print.h"

namespace ostrinka {

// A new job, which replaces the old one, with the copies of one document of dok_sprzed that `mode` (0 to 5, see PrintMode) asks for; the
// table's cursor stays on the document. Any other mode shows msg.info.error and leaves the job empty. A pro forma document gets one print
// without a label, whatever the mode. `save_pdf` asks for a file and writes the job to it.
void BuildDocumentJob(Program& program, int32_t record, int mode, bool save_pdf);

// Stamps every page of the current job that has none yet with the number of pages of the copy written last.
void StampPageTotals(Program& program);

// Asks where to, and writes the current job as a PDF; a name without ".pdf" gets it. Where the front end can write one, the second kind of
// the dialog is a PDF with embedded fonts; the kind chosen last is proposed. A file that could not be written is told by msg.info.error.
void SaveJobAsPdf(Program& program);

// Sends the current job to the system's default printer, every sheet in its own direction; a sheet that fails is passed over. False, with
// msg.info.printernotfound or msg.info.printerror, when there is no printer or it is out of order: nothing is printed, and the job stays.
bool RunPrinter(Program& program);

// BuildDocumentJob and RunPrinter.
bool PrintOneDocument(Program& program, int32_t record, int mode);

// Whether documents carry the program's name in the footer: a line "FFV-" in the file data.ini of the database folder switches it off, a
// later "FFV+" on again.
bool ReadFooterFlag(Program& program);

}  // namespace ostrinka
