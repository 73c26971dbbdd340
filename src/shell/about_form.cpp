#include "shell/about_form.h"

#include "app/program.h"

namespace ostrinka {

frm_About::frm_About(Program& program) : Form("frm_About", "mdi.about.title") {
  Register("lblName", lblName);
  Register("lblPurpose", lblPurpose);
  Register("lblVersion", lblVersion);
  Register("btnOK", btnOK);
  const ProgramVersion version = kProgramVersion;
  lblName.SetText(program.Text("common.title"));
  lblPurpose.SetText(program.Text("mdi.about.purpose"));
  lblVersion.SetText(program.Text(
      "mdi.about.version", {std::to_string(version.major) + "." + std::to_string(version.minor) + "." + std::to_string(version.revision)}));
  Page("STD", "mdi.about.title").Row({{"", lblName, 12, kStrong}}).Row({{"", lblPurpose, 12}}).Row({{"", lblVersion, 12}});
  Buttons({{"common.ok", btnOK, kDefault | kCancel}});
  btnOK.Clicked += [this] { Close(); };
}

}  // namespace ostrinka
