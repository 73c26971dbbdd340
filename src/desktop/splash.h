// The window that is shown while the program starts: 424 by 222 pixels in the centre of the screen.
#pragma once

#include <QWidget>

#include "desktop/look.h"

namespace ostrinka {

class Splash : public QWidget {
 public:
  explicit Splash(const Look& look);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const Look& look_;
};

}  // namespace ostrinka
