// The toolkit's own texts (menus of text fields, file dialogs, buttons) from the program's catalogue.
#pragma once

#include <QTranslator>

namespace ostrinka {

class Program;

class ToolkitTexts : public QTranslator {
 public:
  explicit ToolkitTexts(const Program& program) : program_(program) {}
  // Installs Polish for the whole application: what the toolkit's own catalogue on this machine says, and before it what the program's
  // says.
  void Install();

  QString translate(const char* context, const char* source, const char* disambiguation, int count) const override;
  bool isEmpty() const override { return false; }

 private:
  const Program& program_;
  QTranslator toolkit_;
};

}  // namespace ostrinka
