// What the program is, and its version.
#pragma once

#include "app/program.h"
#include "controls/form.h"

namespace ostrinka {

class frm_About : public Form {
 public:
  LabelControl lblName, lblPurpose, lblVersion;
  ButtonControl btnOK;

  explicit frm_About(Program& program);
};

}  // namespace ostrinka
