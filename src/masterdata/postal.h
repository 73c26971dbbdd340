// The postal table: Polish postal codes with their towns, and the voivodeship that a code lies in.
//
// Read once at start-up from "psc.bin", fixed records of 32 bytes in a lightly scrambled form.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

namespace ostrinka {

class PostalTable {
 public:
  PostalTable() : rows_(1) {}

  // Reads `program_folder` (with a closing slash) + "psc.bin". A missing or empty file leaves one blank row and gives false; a record cut
  // off at the end is passed over. Never fails otherwise: the bytes are taken as they are.
  bool LoadPostalCodes(FileSystem& files, const std::string& program_folder);

  bool Loaded() const { return loaded_; }

  size_t Count() const { return rows_.size(); }  // at least 1

  // The first town of the code "NN-NNN", the first code of the town; "" when there is none. Blanks at the ends do not count, case does.
  // `hint` is a code that is given back when the town has it or another one of its district (its first two digits): a large town has more
  // codes than the table.
  std::string TownOfCode(std::string_view code) const;
  std::string CodeOfTown(std::string_view town, std::string_view hint = {}) const;
  // The row of the code, from 1; 0 when there is none.
  int32_t PostalIndexOf(std::string_view code) const;

  // The official number of the voivodeship of a postal code, even from 2 to 32, told from its first two digits; 0 when the text is no code.
  static int32_t RegionOfCode(std::string_view code);

 private:
  struct Row {
    std::string code, town;  // trimmed
  };
  std::vector<Row> rows_;
  bool loaded_ = false;
};

}  // namespace ostrinka
