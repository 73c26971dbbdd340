// A print job while it is made: its pages, the settings that it began with, and what it has to tell when it is done.
#pragma once

#include <memory>
#include <string>

#include "app/program.h"
#include "print/print.h"
#include "print/print_options.h"

namespace ostrinka {

struct PrintJob {
  Program& program;
  std::shared_ptr<ClassPRINT> print;
  PrintOptions options;
  std::string unreadable_logo;  // path of the company's logo when it could not be read; "" otherwise. Layouts do not talk: the run tells it
};

// A new job without pages. It replaces the program's current one.
PrintJob NewPrintJob(Program& program);

}  // namespace ostrinka
