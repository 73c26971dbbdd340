#include "shell/tabs.h"

#include <algorithm>

#include "company/tables.h"

namespace ostrinka {
namespace {

constexpr Tab kTabs[] = {{"SPRZEDAŻ", kDokSprzed, "SPRZEDAŻ"},        {"ZAKUP", kDokZakupu, "ZAKUP"},
                         {"KONTRAHENCI", kKontrahenci, "KONTRAHENT"}, {"TOWARYUSŁUGI", kTowaryUslugi, "TOWARUSŁUGA"},
                         {"ZESTAWIENIA", kReportsTab, "ZESTAWIENIA"}, {"SŁOWNIKI", kDictionariesTab, "SŁOWNIK.REKORD"}};

}  // namespace

std::span<const Tab> Tabs() {
  return kTabs;
}

const Tab* FindTab(std::string_view key) {
  const auto* const found = std::ranges::find(kTabs, key, &Tab::key);
  return found == std::end(kTabs) ? nullptr : found;
}

}  // namespace ostrinka
