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

// The same words mean the same wherever the toolkit says them.
constexpr TextRow kTexts[] = {
    {"&Undo", "toolkit.undo"},
    {"&Redo", "toolkit.redo"},
    {"Cu&t", "toolkit.cut"},
    {"&Copy", "toolkit.copy"},
    {"&Paste", "toolkit.paste"},
    {"Delete", "toolkit.delete"},
    {"&Delete", "toolkit.delete"},
    {"Select All", "toolkit.selectall"},
    {"&Select All", "toolkit.selectall"},
    {"OK", "common.ok"},
    {"&OK", "common.ok"},
    {"Cancel", "common.cancel"},
    {"&Yes", "common.yes"},
    {"&No", "common.no"},
    {"Close", "common.close"},
    {"Open", "toolkit.open"},
    {"&Open", "toolkit.open"},
    {"Save", "toolkit.save"},
    {"&Save", "toolkit.save"},
    {"Save As", "toolkit.saveas"},
    {"&Choose", "toolkit.choose"},
    {"Look in:", "toolkit.lookin"},
    {"Directory:", "toolkit.folder"},
    {"File &name:", "toolkit.filename"},
    {"Files of type:", "toolkit.filetype"},
    {"Back", "toolkit.back"},
    {"Forward", "toolkit.forward"},
    {"Parent Directory", "toolkit.up"},
    {"Create New Folder", "toolkit.newfolder"},
    {"&New Folder", "toolkit.newfolder"},
    {"New Folder", "toolkit.newfolder"},
    {"List View", "toolkit.list"},
    {"Detail View", "toolkit.details"},
    {"Show &hidden files", "toolkit.hidden"},
    {"&Rename", "toolkit.rename"},
    {"Find Directory", "toolkit.choose"},
    {"All Files (*)", "toolkit.allfiles"},
    {"All files (*)", "toolkit.allfiles"},
    {"Computer", "toolkit.computer"},
    {"My Computer", "toolkit.computer"},
    {"Name", "toolkit.name"},
    {"Size", "toolkit.size"},
    {"Type", "toolkit.type"},
    {"Date Modified", "toolkit.modified"},
    {"Show ", "toolkit.show"},
    {"File", "toolkit.file"},
    {"Folder", "toolkit.filefolder"},
    {"%1 already exists.\nDo you want to replace it?", "toolkit.replace"},
    {"%1\nFile not found.\nPlease verify the correct file name was given.", "toolkit.nofile"},
    {"%1\nDirectory not found.\nPlease verify the correct directory name was given.", "toolkit.nofolder"},
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
    if (row.source != source || !program_.catalogue.Has(row.key)) continue;
    return ToQt(program_.Text(row.key)).replace("\r\n", "\n") + (row.source.ends_with(' ') ? " " : "");
  }
  return {};
}

}  // namespace ostrinka
