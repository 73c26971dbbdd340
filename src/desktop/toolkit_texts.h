// The toolkit's own texts (menus of text fields, file dialogs, buttons) in Polish, from its own catalogue, with a few words of the
// program's.
#pragma once

#include <QTranslator>

namespace ostrinka {

class Program;

class ToolkitTexts : public QTranslator {
 public:
  explicit ToolkitTexts(const Program& program) : program_(program) {}
  // Installs Polish for the whole application, as long as this object lives.
  void Install();

  QString translate(const char* context, const char* source, const char* disambiguation, int count) const override;
  bool isEmpty() const override { return false; }

 private:
  const Program& program_;
  QTranslator toolkit_;
};

}  // namespace ostrinka
