// A skin: the colours and bitmaps that the window's chrome is painted from, read from one .skin package (docs/formats/skin.md).
//
// All images stay in memory as the bytes of their BMP files; nothing is read at paint time.
#pragma once

#include <array>
#include <map>
#include <string>
#include <string_view>

#include "platform/canvas.h"
#include "platform/files.h"

namespace ostrinka {

class Program;

// Numbers of the skins in the settings; any other number is the blue one.
inline constexpr int kBlueSkin = 0, kSilverSkin = 1, kBlackSkin = 2;
// The number that the settings hold.
int ChosenSkin(Program& program);
// The package of that skin below the application folder.
std::string SkinChoose(Program& program);

class Skin {
 public:
  static constexpr int kColours = 24;

  // Colours are numbered from 1 in the order of the keys in skin.ini; round_corners is the first, so colours are 2 to 24.
  Skin();

  // Reads a package. One that cannot be read, or holds no entry, leaves what is loaded as it is and gives false; an empty path does
  // nothing. Reading ends at the first entry whose length is out of bounds, and the entries before are kept.
  bool SkinLoad(FileSystem& files, const std::string& path);

  // Black for a number that is no colour. Before any package, and for keys that a skin.ini lacks, quiet colours of the program's own.
  Colour SkinColor(int index) const;
  // The bytes of the BMP file of that name, in any case; null for an element that stays undrawn.
  const std::string* SkinImage(std::string_view name) const;

  bool round_corners = true;
  int scale = 1;  // pixels of an image for one of the window, 1 to 4

 private:
  using Images = std::map<std::string, std::string, std::less<>>;
  void ReadIni(std::string_view text);
  void SetKey(const std::string& key, const std::string& value);

  std::array<Colour, kColours + 1> colours_;
  Images images_;  // by lower-case name
};

}  // namespace ostrinka
