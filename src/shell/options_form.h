// The options of the interface: splash, transparent windows, the export entry of the menu, the skin.
#pragma once

#include "app/program.h"
#include "controls/form.h"

namespace ostrinka {

class RibbonControl;

class OPT_ : public Form {
 public:
  CheckBoxControl CHKS, CHKT, CHKE;
  ComboControl txtSKIN;
  ButtonControl btnSave, btnCancel;

  // `ribbon` has the menu entries that a saved choice shows or hides.
  OPT_(Program& program, RibbonControl& ribbon);
  void reload_();  // fills the fields from the settings

 private:
  void save_();
  Program& program_;
  RibbonControl& ribbon_;
};

}  // namespace ostrinka
