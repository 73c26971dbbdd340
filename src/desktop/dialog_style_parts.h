// What the two halves of the dialogs' style share.
#pragma once

#include <QColor>
#include <QStyle>

namespace ostrinka {

inline constexpr int kArrowWidth = 20, kFieldPadding = 6;

inline QColor Mix(const QColor& first, const QColor& second, double ratio) {
  return QColor::fromRgbF(static_cast<float>(first.redF() * (1 - ratio) + second.redF() * ratio),
                          static_cast<float>(first.greenF() * (1 - ratio) + second.greenF() * ratio),
                          static_cast<float>(first.blueF() * (1 - ratio) + second.blueF() * ratio));
}

inline bool Is(QStyle::State state, QStyle::StateFlag flag) {
  return state.testFlag(flag);
}

}  // namespace ostrinka
