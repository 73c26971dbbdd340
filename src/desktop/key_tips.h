// The key tips: badges with letters over the ribbon while the window is in its Alt state.
#pragma once

#include <QWidget>
#include <vector>

#include "desktop/ribbon_view.h"

namespace ostrinka {

class KeyTipLayer : public QWidget {
 public:
  KeyTipLayer(const Look& look, QWidget* window);

  void Show(std::vector<KeyTip> tips);
  void Hide();
  // The tip of these letters; null for none. `begins` tells whether longer letters begin with them.
  const KeyTip* Find(const QString& letters, bool& begins) const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const Look& look_;
  std::vector<KeyTip> tips_;
};

}  // namespace ostrinka
