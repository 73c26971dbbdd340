// The program's own message box: an icon by its kind, a text, one button or "yes" and "no".
#pragma once

#include <QDialog>
#include <memory>

#include "desktop/look.h"
#include "platform/user_interface.h"

class QHBoxLayout;

namespace ostrinka {

class MessageWindow : public QDialog {
 public:
  MessageWindow(const Look& look, const QString& text, MessageKind kind, QWidget* parent);
  // Shows the box and gives the button that was pressed; leaving it otherwise is "no" to a question.
  Answer Run();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void AddButton(const char* caption_key, Answer answer, bool primary);
  const Look& look_;
  QHBoxLayout* buttons_ = nullptr;
  Answer answer_;
};

// The picture of a kind of message, drawn when the folder of icons has none. Null for a plain message.
QPixmap MessagePicture(const Look& look, MessageKind kind, int size, double ratio);

}  // namespace ostrinka
