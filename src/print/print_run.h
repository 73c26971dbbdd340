// From a command to a print job, and where the job goes: the printer, a PDF. The person is told what failed.
#pragma once

#include <cstdint>

#include "app/program.h"
#include "print/print.h"

namespace ostrinka {

// A new job, which replaces the old one, with the copies of one document of dok_sprzed that `mode` asks for; the table's cursor stays on
// the document. A mode of no name shows msg.info.error and leaves the job empty. A pro forma document gets one print without a label,
// whatever the mode. A logo that cannot be read is told by msg.info.logounreadable, once a run of the program. `save_pdf` asks for a file
// and writes the job to it.
void BuildDocumentJob(Program& program, int32_t record, PrintMode mode, bool save_pdf);

// Asks where to, and writes the current job as a PDF; a name without ".pdf" gets it. Where the front end can write one, the second kind of
// the dialog is a PDF with embedded fonts; the kind chosen last is proposed. A file that could not be written is told by msg.info.error.
void SaveJobAsPdf(Program& program);

// Sends the current job to the system's default printer, every sheet in its own direction; a sheet that fails is passed over. False, with
// msg.info.printernotfound or msg.info.printerror, when there is no printer or it is out of order: nothing is printed, and the job stays.
bool RunPrinter(Program& program);

// BuildDocumentJob and RunPrinter.
bool PrintOneDocument(Program& program, int32_t record, PrintMode mode);

}  // namespace ostrinka
