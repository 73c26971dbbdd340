// The rows of the measurements; each prints what it measured.
#pragma once

#include "company_data.h"
#include "measure.h"

namespace ostrinka::bench {

void SelectionRows(Data& data, Report& report);  // selections, ordering, the next number
void RecordRows(Data& data, Report& report);     // loading, adding, walking
void StructureRows(Data& data, Report& report);  // adding and deleting fields
void OpeningRows(Data& data, Report& report);    // opening and closing a company
void PdfRows(Data& data, Report& report);        // invoices as PDF

// Deletes the last field of the table `path` and prints by how many MiB the process grew at its peak; for a process of its own.
int MeasureFieldDelete(const std::string& folder, const std::string& path);

}  // namespace ostrinka::bench
