// The port through which the core shows every message and asks every question.
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace marlview {

enum class Buttons { kOk, kOkCancel, kYesNo, kYesNoCancel };
enum class Answer { kOk, kCancel, kYes, kNo };

std::string_view AnswerName(Answer answer);

struct FileDialogRequest {
  std::string title;
  // Classic filter text: "Label (*.A)|*.A|Other (*.B;*.C)|*.B;*.C".
  std::string filter;
  // 1-based entry of the filter that is shown first.
  int filter_index = 1;
  std::string start_directory;
  std::string default_name;
  // The caller asks its own overwrite question after the dialog; the dialog must not ask one first.
  bool asks_overwrite = false;
};

class UserPrompts {
 public:
  virtual ~UserPrompts() = default;
  virtual void Tell(std::string_view text) = 0;
  virtual Answer Ask(std::string_view text, Buttons buttons) = 0;
  // An empty text when the user cancels, as an input box gives.
  virtual std::string Input(std::string_view title, std::string_view prompt, std::string_view default_text) = 0;
  // The chosen path, or an empty text when the dialog is cancelled.
  virtual std::string OpenFile(const FileDialogRequest& request) = 0;
  virtual std::string SaveFile(const FileDialogRequest& request) = 0;
};


// Answers taken from a script in order; every text shown is recorded, so a test asserts the
// exact messages and their order. A question without a scripted answer is a test error.
class ScriptedPrompts : public UserPrompts {
 public:
  ScriptedPrompts() = default;
  explicit ScriptedPrompts(std::vector<std::string> answers);

  void Tell(std::string_view text) override;
  Answer Ask(std::string_view text, Buttons buttons) override;
  std::string Input(std::string_view title, std::string_view prompt, std::string_view default_text) override;
  std::string OpenFile(const FileDialogRequest& request) override;
  std::string SaveFile(const FileDialogRequest& request) override;

  // Answers are "Yes", "No", "OK", "Cancel" for questions, the text for input boxes and the path for
  // file dialogs.
  void Script(std::vector<std::string> answers);
  const std::vector<std::string>& Log() const { return log_; }
  // Messages and questions only, without the dialog lines.
  std::vector<std::string> Texts() const;
  void ClearLog() { log_.clear(); }
  bool ScriptUsedUp() const { return answers_.empty(); }
  const FileDialogRequest& LastFileRequest() const { return last_request_; }

 private:
  std::string Next(std::string_view what);

  std::deque<std::string> answers_;
  std::vector<std::string> log_;
  FileDialogRequest last_request_;
};

// Runs body as the procedure source. A run-time failure is told in the general error text, with
// source standing for the procedure when the failure names none, and gives false: the program goes
// on, usable, from where the user started the action.
bool TellFailures(UserPrompts& prompts, std::string_view source, const std::function<void()>& body);

}  // namespace marlview
