#include "shell/skin.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

#include "app/program.h"
#include "base/bytes.h"
#include "base/text.h"

namespace ostrinka {
namespace {

constexpr int64_t kNameLength = 96, kHeaderLength = 100;
constexpr int32_t kMostData = 999999;  // of one entry
constexpr int kMostEntries = 2048;
constexpr int64_t kMostBytes = int64_t{256} << 20;
constexpr int kMostScale = 4;

struct ColourKey {
  const char* key;
  Colour standard;
};

// Colour 1 upwards; the first key is no colour.
constexpr ColourKey kKeys[Skin::kColours] = {
    {"round_corners", 0},
    {"color_main_menu", Rgb(0x2B, 0x31, 0x3B)},
    {"color_popup_menu", Rgb(0x23, 0x28, 0x30)},
    {"color_popup_margin", Rgb(0x2E, 0x35, 0x3F)},
    {"color_popup_border", Rgb(0x87, 0x91, 0xA0)},
    {"color_background", Rgb(0xDD, 0xE2, 0xE8)},
    {"color_caption_text_enabled", Rgb(0xFF, 0xFF, 0xFF)},
    {"color_caption_text_disabled", Rgb(0xA3, 0xAC, 0xB9)},
    {"color_caption_text_document", Rgb(0xFF, 0xC8, 0x57)},
    {"color_tab_text_std", Rgb(0xF4, 0xF6, 0xF9)},
    {"color_tab_text_act", Rgb(0x16, 0x1B, 0x22)},
    {"color_toolbar_text", Rgb(0x41, 0x4B, 0x59)},
    {"color_btn_text_std", Rgb(0x1B, 0x21, 0x29)},
    {"color_btn_text_act", Rgb(0x4A, 0x2C, 0x00)},
    {"color_btn_text_chk", Rgb(0x6B, 0x36, 0x00)},
    {"color_btn_text_dis", Rgb(0x6A, 0x74, 0x82)},
    {"color_menu_text_std", Rgb(0xFF, 0xD4, 0x80)},
    {"color_menu_text_dis", Rgb(0x8F, 0x99, 0xA7)},
    {"color_arrow_drop_one", Rgb(0x47, 0x51, 0x5F)},
    {"color_arrow_drop_two", Rgb(0xFF, 0xFF, 0xFF)},
    {"color_icon_dis_one", Rgb(0x7F, 0x89, 0x97)},
    {"color_icon_dis_two", Rgb(0xB3, 0xBB, 0xC6)},
    {"color_icon_dis_three", Rgb(0xEC, 0xEF, 0xF3)},
    {"color_text_border", Rgb(0x76, 0x80, 0x8E)},
};

// A whole number of digits alone, of that base; nothing else.
std::optional<int> WholeNumber(std::string_view digits, int base) {
  unsigned value = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, base);
  if (digits.empty() || error != std::errc{} || end != digits.data() + digits.size() || value > 0xFFFFFF) return std::nullopt;
  return static_cast<int>(value);
}

// "#rrggbb", or nine digits, three for each part.
std::optional<Colour> ReadColour(std::string_view text) {
  const bool hexadecimal = text.size() == 7 && text[0] == '#';
  if (!hexadecimal && text.size() != 9) return std::nullopt;
  int parts[3];
  for (size_t i = 0; i < 3; ++i) {
    const auto part = hexadecimal ? WholeNumber(text.substr(1 + 2 * i, 2), 16) : WholeNumber(text.substr(3 * i, 3), 10);
    if (!part || *part > 255) return std::nullopt;
    parts[i] = *part;
  }
  return Rgb(parts[0], parts[1], parts[2]);
}

// The name of an entry as it counts: without folders, in lower case; "" for one that is no file name.
std::string EntryName(std::string_view field) {
  return Lower(Trim(BareFileName(Trim(FromCp1250(field.substr(0, field.find('\0')))))));
}

struct Entry {
  std::string name;
  int64_t at = 0;
  int32_t length = 0;
};

// The entry whose header stands at `position`; nothing at the end, and where a length is out of bounds or runs past the end.
std::optional<Entry> EntryAt(File& file, int64_t position, int64_t size) {
  char header[kHeaderLength];
  if (size - position < kHeaderLength || file.ReadAt(position, header, sizeof header) != kHeaderLength) return std::nullopt;
  const int32_t length = LoadLe<int32_t>(header + kNameLength);
  if (length < 1 || length > kMostData || length > size - position - kHeaderLength) return std::nullopt;
  return Entry{EntryName({header, kNameLength}), position + kHeaderLength, length};
}

std::optional<std::string> DataOf(File& file, const Entry& entry) {
  std::string data(static_cast<size_t>(entry.length), '\0');
  if (file.ReadAt(entry.at, data.data(), data.size()) != entry.length) return std::nullopt;
  return data;
}

}  // namespace

int ChosenSkin(Program& program) {
  const int32_t number = program.settings.Integer(kCommon, "GUI", "Skin", kBlackSkin);
  return number == kBlackSkin || number == kSilverSkin ? number : kBlueSkin;
}

std::string SkinChoose(Program& program) {
  const int skin = ChosenSkin(program);
  return program.ApplicationFolder() + "skins/" + (skin == kBlackSkin ? "black" : skin == kSilverSkin ? "silver" : "blue") + ".skin";
}

Skin::Skin() {
  colours_[0] = 0;
  for (size_t i = 0; i < kColours; ++i) colours_[i + 1] = kKeys[i].standard;
}

// The entries go straight into memory: the observable result of unpacking them to a folder, loading and deleting each.
bool Skin::SkinLoad(FileSystem& files, const std::string& path) {
  if (path.empty()) return false;
  const std::unique_ptr<File> file = files.Open(path, OpenMode::kRead);
  if (!file) return false;
  const int64_t size = std::min(file->Size(), kMostBytes);
  Images images;
  std::optional<std::string> ini;
  int64_t position = 0;
  int entries = 0;
  for (; entries < kMostEntries; ++entries) {
    const std::optional<Entry> entry = EntryAt(*file, position, size);
    if (!entry) break;
    position = entry->at + entry->length;
    const bool image = entry->name.ends_with(".bmp");
    if (!image && entry->name != "skin.ini") continue;
    std::optional<std::string> data = DataOf(*file, *entry);
    if (!data) continue;
    (image ? images[entry->name] : ini.emplace()) = std::move(*data);
  }
  if (entries == 0) return false;
  images_ = std::move(images);
  if (ini) ReadIni(*ini);
  return true;
}

void Skin::ReadIni(std::string_view text) {
  const Skin fresh;
  colours_ = fresh.colours_;
  round_corners = fresh.round_corners;
  scale = fresh.scale;
  for (const std::string& paragraph : Paragraphs(FromCp1250(text))) {
    const std::string line = ReplaceAll(paragraph, " ", "");
    const size_t equals = line.find('=');
    if (equals == std::string::npos) continue;
    SetKey(TrimWhite(Lower(line.substr(0, equals))), TrimWhite(Lower(line.substr(equals + 1))));
  }
}

void Skin::SetKey(const std::string& key, const std::string& value) {
  if (key == "round_corners") {
    round_corners = value != "false";
  } else if (key == "scale") {
    const std::optional<int> factor = WholeNumber(value, 10);
    if (factor && *factor >= 1 && *factor <= kMostScale) scale = *factor;
  } else {
    const auto found = std::find_if(std::begin(kKeys), std::end(kKeys), [&](const ColourKey& row) { return key == row.key; });
    const std::optional<Colour> colour = ReadColour(value);
    if (found != std::end(kKeys) && colour) colours_[static_cast<size_t>(found - std::begin(kKeys)) + 1] = *colour;
  }
}

Colour Skin::SkinColor(int index) const {
  return index < 1 || index > kColours ? 0 : colours_[static_cast<size_t>(index)];
}

const std::string* Skin::SkinImage(std::string_view name) const {
  const auto found = images_.find(Lower(name));
  return found == images_.end() ? nullptr : &found->second;
}

}  // namespace ostrinka
