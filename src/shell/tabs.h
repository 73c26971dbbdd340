// The six tabs of the main window: what each shows, and how the commands on its records are named.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace ostrinka {

// Numbers of the tabs whose table is chosen on them: that of the last report, the dictionary picked.
constexpr int16_t kReportsTab = -1, kDictionariesTab = -2;

struct Tab {
  std::string_view key;
  int16_t table;                   // number of the table that it shows, or one of the two above
  std::string_view record_prefix;  // of the keys .DODAJ, .EDYTUJ, .USUŃ
};

// In the order of the keys F5 to F10.
std::span<const Tab> Tabs();
// Null for an unknown key.
const Tab* FindTab(std::string_view key);

}  // namespace ostrinka
