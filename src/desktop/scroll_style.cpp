#include "desktop/scroll_style.h"

#include <QScrollBar>

#include "desktop/ribbon_painter.h"

namespace ostrinka {

void ApplyScrollStyle(QScrollBar& bar, const Look& look) {
  const FrameColours colours(look);
  const QColor handle = MixOf(colours.panel, look.Colour(SkinColour::kTextBorder), 0.6);
  bar.setStyleSheet(QString("QScrollBar { background: %1; border: none; margin: 0; }"
                            "QScrollBar:vertical { width: 14px; } QScrollBar:horizontal { height: 14px; }"
                            "QScrollBar::handle { background: %2; border-radius: 4px; margin: 3px; }"
                            "QScrollBar::handle:vertical { min-height: 28px; } QScrollBar::handle:horizontal { min-width: 28px; }"
                            "QScrollBar::handle:hover { background: %3; }"
                            "QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }"
                            "QScrollBar::add-page, QScrollBar::sub-page { background: none; }")
                        .arg(colours.panel.name(), handle.name(), MixOf(handle, Qt::black, 0.25).name()));
}

}  // namespace ostrinka
