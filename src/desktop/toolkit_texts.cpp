#include "desktop/toolkit_texts.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <string_view>

#include "app/program.h"
#include "desktop/look.h"

namespace ostrinka {
namespace {

struct TextRow {
  std::string_view source;
  const char* key;
};

// Where the toolkit's own Polish differs from the words of this program: a folder is no "katalog", and what is kept is "zapisane".
constexpr TextRow kTexts[] = {
    {"&Redo", "toolkit.redo"},
    {"Save", "toolkit.save"},
    {"&Save", "toolkit.save"},
    {"Save As", "toolkit.saveas"},
    {"Directory:", "toolkit.directory"},
    {"Directories", "toolkit.directories"},
    {"Folder", "toolkit.folder"},
    {"Parent Directory", "toolkit.up"},
    {"Create New Folder", "toolkit.newfolder"},
    {"&New Folder", "toolkit.newfolder"},
    {"New Folder", "toolkit.newfolder"},
};

}  // namespace

void ToolkitTexts::Install() {
  QLocale::setDefault(QLocale(QLocale::Polish, QLocale::Poland));
  // The last one installed is asked first.
  if (toolkit_.load("qtbase_pl", QLibraryInfo::path(QLibraryInfo::TranslationsPath))) QCoreApplication::installTranslator(&toolkit_);
  QCoreApplication::installTranslator(this);
}

QString ToolkitTexts::translate(const char*, const char* source, const char*, int) const {
  if (!source) return {};
  for (const TextRow& row : kTexts) {
    if (row.source == source && program_.catalogue.Has(row.key)) return ToQt(program_.Text(row.key));
  }
  return {};
}

}  // namespace ostrinka
