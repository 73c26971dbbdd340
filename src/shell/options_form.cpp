#include "shell/options_form.h"

#include "app/program.h"
#include "shell/ribbon.h"
#include "shell/skin.h"

namespace ostrinka {
namespace {

struct SkinRow {
  int32_t number;  // of the setting
  const char* text;
};
constexpr SkinRow kSkins[] = {{kBlueSkin, "guiopt.skin.blue"}, {kSilverSkin, "guiopt.skin.silver"}, {kBlackSkin, "guiopt.skin.black"}};

}  // namespace

OPT_::OPT_(Program& program, RibbonControl& ribbon) : Form("OPT_", "guiopt.title"), program_(program), ribbon_(ribbon) {
  Register("CHKS", CHKS);
  Register("CHKT", CHKT);
  Register("CHKE", CHKE);
  Register("txtSKIN", txtSKIN);
  Register("btnSave", btnSave);
  Register("btnCancel", btnCancel);
  CHKS.caption_key = "guiopt.welcome";
  CHKT.caption_key = "guiopt.transparent";
  CHKE.caption_key = "guiopt.showexport";
  btnSave.icon = "btnsave.ico";
  btnCancel.icon = "btncancel.ico";
  for (const SkinRow& row : kSkins) txtSKIN.AddItem(program_.Text(row.text), row.number);
  Page("STD", "guiopt.title").Row({{"guiopt.lbl.skin", txtSKIN, 12}}).Row({{"", CHKS, 12}}).Row({{"", CHKT, 12}}).Row({{"", CHKE, 12}});
  Buttons({{"guiopt.btn.ok", btnSave, kDefault}, {"guiopt.btn.cancel", btnCancel, kCancel}});
  btnSave.Clicked += [this] { save_(); };
  btnCancel.Clicked += [this] { Close(); };
}

void OPT_::reload_() {
  CHKS.SetChecked(program_.settings.Integer(kCommon, "GUI", "WScreen", 1) == 1);
  CHKT.SetChecked(program_.settings.Integer(kCommon, "GUI", "TrWindows", 0) == 1);
  CHKE.SetChecked(program_.settings.Integer(kCommon, "GUI", "ShMenuExp", 0) == 1);
  if (!txtSKIN.SelectValue(ChosenSkin(program_))) txtSKIN.SelectValue(kBlueSkin);
  SetFocus(txtSKIN);
  SetDirty(false);
}

void OPT_::save_() {
  const auto flag = [](const CheckBoxControl& box) { return Value(int32_t{box.Checked() ? 1 : 0}); };
  const bool skin_changed = txtSKIN.Value() != ChosenSkin(program_);
  bool saved = program_.settings.SaveSettingValue(kCommon, "GUI", "WScreen", flag(CHKS));
  saved = program_.settings.SaveSettingValue(kCommon, "GUI", "TrWindows", flag(CHKT)) && saved;
  saved = program_.settings.SaveSettingValue(kCommon, "GUI", "ShMenuExp", flag(CHKE)) && saved;
  for (const char* entry : {"EK.BRK", "EXPORT"}) ribbon_.PopupMenuVisible(entry, CHKE.Checked());
  if (skin_changed) saved = program_.settings.SaveSettingValue(kCommon, "GUI", "Skin", txtSKIN.Value()) && saved;
  program_.skin_path = SkinChoose(program_);
  program_.platform.ui.AppearanceChanged(skin_changed);
  if (!saved) program_.Message("msg.info.error", MessageKind::kError);
  SetDirty(false);
  Close();
}

}  // namespace ostrinka
