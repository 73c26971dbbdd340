// Looks over a window as a person would: texts without a translation, texts wider than their place, fields that cover each other.
#pragma once

#include <QStringList>

class QWidget;

namespace ostrinka {

// One line for each fault among the visible parts of `window`; none when it is fit to be seen.
QStringList ScreenFaults(const QWidget& window);

}  // namespace ostrinka
