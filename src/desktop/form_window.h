// The one renderer: turns any form's declared layout into a window.
#pragma once

#include <QDialog>
#include <memory>

#include "controls/form.h"
#include "desktop/look.h"

namespace ostrinka {

class FormWindow : public QDialog {
 public:
  FormWindow(Program& program, const Look& look, Form& form, QWidget* parent);
  ~FormWindow() override;

  // Shows the form and returns when it closes.
  void Run();

  // The widget that stands for a control; null for one without (a hidden page's controls have theirs).
  QWidget* WidgetOf(const Control& control) const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void reject() override;

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace ostrinka
