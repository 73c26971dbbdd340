// The cell of a dictionary that is open over the list: a line of text, or a list of records to choose from.
//
// It shows what MainWindow's `dictionary` says and hands it the person's keys; where the cell lies, the list tells.
#pragma once

#include <QRect>
#include <QWidget>
#include <functional>

#include "desktop/form_widgets.h"
#include "shell/main_window.h"

class QComboBox;
class QLineEdit;

namespace ostrinka {

class ListEditor : public QObject {
 public:
  // `area` gives the place of a cell in `list` by record and column, an empty one for a cell that is not on show; `reveal` brings a cell
  // into view.
  struct Places {
    std::function<QRect(int32_t record, int column)> area;
    std::function<void(int32_t record, int column)> reveal;
  };
  ListEditor(Program& program, MainWindow& window, const Look& look, QWidget& list, Places places);

  // Opens, moves or hides the field, as the model says. `font` is that of the list's texts.
  void Refresh(const QFont& font);
  // Gives the focus that the list has to the field that is open.
  void TakeFocus();
  // Where the open field lies in the list; empty when none is.
  QRect Area() const;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  QWidget* Field() const;  // of the open cell; null when none is
  void Place(const QFont& font);
  bool Key(const class QKeyEvent& event);

  MainWindow& window_;
  QWidget& list_;
  Places places_;
  FieldHost host_;
  QLineEdit* line_;
  QComboBox* box_;
  int shown_ = 0;  // number of the opening on show
};

}  // namespace ostrinka
