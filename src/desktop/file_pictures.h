// The small pictures before the names of attached files: one for each kind of file, told by the name's ending.
#pragma once

#include <QPixmap>
#include <string_view>

namespace ostrinka {

enum class FileKind { kPicture, kPdf, kText, kTable, kArchive, kOther };

// An ending that is not known, or none, is kOther; case does not count.
FileKind KindOfFile(std::string_view name);

inline constexpr int kFilePictureSize = 16;  // pixels a side, before `ratio`
QPixmap FilePicture(FileKind kind, double ratio);

}  // namespace ostrinka
