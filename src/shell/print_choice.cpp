#include "shell/print_choice.h"

#include <utility>

namespace ostrinka {
namespace {

constexpr const char* kTransferForm = "SPRZEDAŻ.GPP";
constexpr std::string_view kSection = "Menu", kSetting = "GPP";

}  // namespace

void StartPrintChoice(Program& program, RibbonControl& ribbon) {
  ribbon.ButtonChecked("SPRZEDAŻ.TRYBDRUKU_ORG", true);
  ribbon.ButtonChecked("SPRZEDAŻ.TRYBDRUKU_ORG.S_", true);
  ribbon.ButtonChecked(kTransferForm, program.settings.Boolean(kOstrinka, kSection, kSetting, false));
}

void TickPrintMode(RibbonControl& ribbon, const RibbonRow& mode) {
  for (const RibbonRow* sibling : ribbon.Children(mode.parent)) {
    if (sibling->kind == RibbonKind::kMode) ribbon.ButtonChecked(sibling->key, std::string_view(sibling->key) == mode.key);
  }
}

PrintMode TickedPrintMode(const RibbonControl& ribbon) {
  constexpr std::pair<const char*, PrintMode> kModes[] = {{"SPRZEDAŻ.TRYBDRUKU_OCO", PrintMode::kOriginalAndCopy},
                                                          {"SPRZEDAŻ.TRYBDRUKU_O2C", PrintMode::kOriginalAndTwoCopies},
                                                          {"SPRZEDAŻ.TRYBDRUKU_RCO", PrintMode::kOriginalCopyInOne},
                                                          {"SPRZEDAŻ.TRYBDRUKU_ORG", PrintMode::kOriginal},
                                                          {"SPRZEDAŻ.TRYBDRUKU_COP", PrintMode::kCopy},
                                                          {"SPRZEDAŻ.TRYBDRUKU_DUP", PrintMode::kDuplicate}};
  for (const auto& [key, mode] : kModes) {
    if (ribbon.ButtonChecked(key)) return mode;
  }
  return PrintMode::kOriginal;
}

bool TransferFormTicked(const RibbonControl& ribbon) {
  return ribbon.ButtonChecked(kTransferForm);
}

void ToggleTransferForm(Program& program, RibbonControl& ribbon) {
  const bool ticked = !TransferFormTicked(ribbon);
  ribbon.ButtonChecked(kTransferForm, ticked);
  program.settings.SaveSettingValue(kOstrinka, kSection, kSetting, ticked);
}

PrintOutput ChosenOutput(const RibbonControl& ribbon, std::string_view button) {
  // The items are named for their tab, not for their button: SPRZEDAŻ.PODGLĄD, SPRZEDAŻ.PODGLĄD.S_.
  constexpr std::pair<std::string_view, PrintOutput> kOutputs[] = {{".PODGLĄD", PrintOutput::kPreview}, {".DOPDF", PrintOutput::kPdf}};
  const std::string_view item = ribbon.ChosenItem(button);
  for (const auto& [part, output] : kOutputs) {
    if (item.find(part) != std::string_view::npos) return output;
  }
  return PrintOutput::kPrinter;
}

}  // namespace ostrinka
