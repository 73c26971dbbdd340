#include "shell/window_placement.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>

namespace ostrinka {
namespace {

constexpr std::string_view kSection = "Windows\\MDI";
constexpr float kLeastWidth = 640, kLeastHeight = 400, kFarthest = 100000, kLeastPercent = 10;

}  // namespace

WindowPlacement ReadPlacement(Program& program) {
  const auto number = [&](std::string_view key, float fallback) {
    const float value = ToFloat(program.settings.GetSettingValue(kOstrinka, kSection, key, fallback)).value_or(fallback);
    return std::isfinite(value) && std::fabs(value) < kFarthest ? value : fallback;
  };
  WindowPlacement placement;
  placement.width = std::max(number("Width", placement.width), kLeastWidth);
  placement.height = std::max(number("Height", placement.height), kLeastHeight);
  placement.left = number("Left", placement.left);
  placement.top = number("Top", placement.top);
  const float percent = number("Zoom", 100);
  if (percent >= kLeastPercent) placement.zoom = percent / 100.0;
  placement.state = program.settings.Integer(kOstrinka, kSection, "WinState", placement.state);
  return placement;
}

void SavePlacement(Program& program, const WindowPlacement& placement) {
  const std::pair<std::string_view, Value> values[] = {
      {"Left", placement.left},     {"Top", placement.top},        {"Width", placement.width},
      {"Height", placement.height}, {"WinState", placement.state}, {"Zoom", static_cast<int32_t>(std::lround(placement.zoom * 100))}};
  for (const auto& [key, value] : values) program.settings.SaveSettingValue(kOstrinka, kSection, key, value);
}

}  // namespace ostrinka
