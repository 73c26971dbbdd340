// Whether a separated file can be imported at all: asked before there is a company to read it into.
#pragma once

#include <string>

#include "app/program.h"
#include "exchange/separated_file.h"

namespace ostrinka {

// A sentence when the file cannot be read or its first line names no column with a name; "" when an import can begin.
std::string CustomersFileFault(Program& program, const std::string& path);
std::string ArticlesFileFault(Program& program, const std::string& path);

// The sentence for a file that did not open; "" for one that did.
std::string OpenFault(Program& program, SeparatedFile::OpenResult opened, const std::string& path);

}  // namespace ostrinka
