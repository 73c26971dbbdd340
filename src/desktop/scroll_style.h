// Slim scroll bars in the colours of the skin.
#pragma once

class QScrollBar;

namespace ostrinka {

class Look;
void ApplyScrollStyle(QScrollBar& bar, const Look& look);

}  // namespace ostrinka
