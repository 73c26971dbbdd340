// Reading a script, its life, and the program's questions.
#include "script/script_runner.h"

#include <filesystem>

#include "base/text.h"

namespace ostrinka {

ScriptRunner::ScriptRunner(const ScriptOptions& options, std::ostream& out, std::ostream& error)
    : out_(out),
      error_(error),
      surroundings_(options.application_folder, *this, options.day, options.seed),
      program_(surroundings_.platform),
      startup_(program_) {}

std::optional<std::vector<std::string>> ScriptRunner::Words(const std::string& line) {
  std::vector<std::string> words;
  for (size_t i = 0; i < line.size();) {
    if (line[i] == ' ' || line[i] == '\t') {
      ++i;
      continue;
    }
    std::string word;
    if (line[i] != '"') {
      const size_t end = std::min(line.find_first_of(" \t", i), line.size());
      word = line.substr(i, end - i);
      i = end;
    } else {
      bool closed = false;
      for (++i; i < line.size() && !closed; ++i) {
        if (line[i] == '"' && i + 1 < line.size() && line[i + 1] == '"') {
          word += line[i++];
        } else if (line[i] == '"') {
          closed = true;
        } else if (line[i] == '\\' && i + 1 < line.size() && line[i + 1] == 'n') {
          word += "\r\n";
          ++i;
        } else {
          word += line[i];
        }
      }
      if (!closed) return std::nullopt;
    }
    words.push_back(std::move(word));
  }
  return words;
}

int ScriptRunner::Run(const std::string& script) {
  lines_ = Split(DecodeFileText(script), '\n');
  while (NextStep()) {
  }
  if (status_code_ == 0 && !answers_.empty()) Wrong("an answer is left over at the end");
  if (status_code_ == 0 && !files_.empty()) Wrong("a file answer is left over at the end");
  startup_.Stop();
  out_.flush();
  return status_code_;
}

bool ScriptRunner::NextStep() {
  while (status_code_ == 0 && line_ < lines_.size()) {
    const std::string line = TrimWhite(lines_[line_++]);
    if (line.empty() || line[0] == '#') continue;
    const auto words = Words(line);
    if (!words) {
      Wrong("a quote is not closed");
    } else if (quit_) {
      Wrong("a step after quit");
    } else {
      Execute(*words);
    }
    return status_code_ == 0;
  }
  return false;
}

void ScriptRunner::Execute(const WordList& words) {
  for (const Step& step : Steps()) {
    if (words[0] != step.name) continue;
    const size_t count = words.size() - 1;
    if (count < step.least || count > step.most) {
      Wrong("wrong number of words for " + words[0]);
    } else if (step.where == Where::kForm && !FrontForm()) {
      Wrong(words[0] + " needs an open form");
    } else if (step.where == Where::kWindow && (FrontForm() || !startup_.running())) {
      Wrong(words[0] + (FrontForm() ? " while the form " + FrontForm()->form_name() + " is open" : " before the start"));
    } else {
      (this->*step.run)(words);
    }
    return;
  }
  Wrong("unknown step " + words[0]);
}

void ScriptRunner::Wrong(const std::string& what) {
  Fail(2, what);
}

void ScriptRunner::Unmet(const std::string& what, const std::string& expected, const std::string& actual) {
  Fail(1, what + ": expected \"" + expected + "\", found \"" + actual + "\"");
}

void ScriptRunner::Fail(int status, const std::string& text) {
  if (status_code_ != 0) return;
  status_code_ = status;
  out_.flush();
  error_ << "line " << line_ << ": " << text << "\n";
  error_.flush();
}

void ScriptRunner::Print(const std::string& line) {
  out_ << line << "\n";
}

void ScriptRunner::ShowModal(Modal& modal) {
  auto* shown = dynamic_cast<Form*>(&modal);
  if (status_code_ != 0 || !shown) return;
  Form& form = *shown;
  form.Open();
  forms_.push_back(&form);
  while (form.IsOpen() && NextStep()) {
  }
  forms_.pop_back();
  if (form.IsOpen() && status_code_ == 0) Wrong("the form " + form.form_name() + " is still open at the end");
}

Answer ScriptRunner::ShowMessage(const std::string& text, MessageKind kind) {
  if (status_code_ != 0) return Answer::kCancel;
  Print("message " + std::to_string(static_cast<int>(kind)) + " " + ReplaceAll(ReplaceAll(text, "\r\n", " | "), "\n", " | "));
  messages_.push_back(text);
  const bool question = kind == MessageKind::kQuestion;
  if (!question) {
    if (!answers_.empty() && answers_.front() == Answer::kOk) answers_.pop_front();
    return Answer::kOk;
  }
  if (answers_.empty()) {
    Wrong("a question without an answer: " + text);
    return Answer::kCancel;
  }
  const Answer answer = answers_.front();
  answers_.pop_front();
  if (answer == Answer::kOk) Wrong("ok is no answer to a question with yes and no");
  return answer;
}

std::optional<std::string> ScriptRunner::NextFile() {
  if (status_code_ != 0) return std::nullopt;
  if (files_.empty()) {
    Wrong("a file dialog without an answer");
    return std::nullopt;
  }
  const std::string path = files_.front();
  files_.pop_front();
  if (path.empty()) return std::nullopt;
  return std::filesystem::absolute(path).string();
}

std::optional<std::string> ScriptRunner::AskOpenFile(const std::vector<FileFilter>&) {
  return NextFile();
}
std::optional<std::string> ScriptRunner::AskSaveFile(const std::vector<FileFilter>&, const std::string&, size_t&) {
  return NextFile();
}
std::optional<std::string> ScriptRunner::AskFolder(const std::string&) {
  return NextFile();
}

bool ScriptRunner::OpenWithSystem(const std::string& target) {
  Print("open " + target);
  return true;
}

bool ScriptRunner::OpenAddress(const std::string& target) {
  return OpenWithSystem(target);
}

}  // namespace ostrinka
