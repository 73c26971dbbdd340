// The list of steps at the left of a form whose pages follow one another: the current one marked, those that are done ticked.
#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "desktop/look.h"

namespace ostrinka {

class Form;
class StepMark;

class StepList : public QWidget {
 public:
  // `go` is called with the page that the person goes back to by a click.
  StepList(const Look& look, const Form& form, QWidget* parent, const std::function<void(const std::string&)>& go);
  void Refresh();  // shows what the form says

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const Look& look_;
  const Form& form_;
  std::vector<StepMark*> marks_;
};

}  // namespace ostrinka
