// The text catalogues: every text that a user sees or that stands on paper, by its key.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/files.h"

namespace ostrinka {

class Catalogue {
 public:
  // `program_folder` with a closing slash: where a file name without a folder is looked for.
  Catalogue(FileSystem& files, std::string program_folder);

  // False when the file cannot be read; the catalogue is then empty. At most 2,048 entries are kept, the first of two equal keys wins.
  bool LoadProgramCatalogue(const std::string& file);
  bool LoadPrintCatalogue(const std::string& file);

  // The text of `key`, in any case, from the program catalogue, then the print catalogue; "|" becomes CR LF and {0} to {9} the arguments,
  // in that order. "%" and the lower-cased key when neither has it.
  std::string Text(std::string_view key, std::initializer_list<std::string_view> arguments = {}) const;
  bool Has(std::string_view key) const;

 private:
  using Entries = std::vector<std::pair<std::string, std::string>>;
  bool Load(Entries& entries, const std::string& file);
  static const std::string* Find(const Entries& entries, std::string_view key);

  FileSystem& files_;
  std::string program_folder_;
  Entries program_, print_;
};

}  // namespace ostrinka
