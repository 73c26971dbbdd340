#include "print/print_job.h"

namespace ostrinka {

PrintJob NewPrintJob(Program& program) {
  CurrentPrintJob(program) = std::make_shared<ClassPRINT>(program);
  PrintJob job{program, CurrentPrintJob(program), ReadPrintOptions(program), ""};
  job.print->SetFldStyle(job.options.head_style);
  return job;
}

}  // namespace ostrinka
