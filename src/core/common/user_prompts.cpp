// The scripted prompts used by tests and headless runs.
#include "core/common/user_prompts.h"

#include "core/common/runtime_failure.h"

#include <stdexcept>

namespace marlview {

std::string_view AnswerName(Answer answer) {
  switch (answer) {
    case Answer::kOk: return "OK";
    case Answer::kCancel: return "Cancel";
    case Answer::kYes: return "Yes";
    case Answer::kNo: return "No";
  }
  return "Cancel";
}

ScriptedPrompts::ScriptedPrompts(std::vector<std::string> answers) { Script(std::move(answers)); }

void ScriptedPrompts::Script(std::vector<std::string> answers) {
  answers_.assign(answers.begin(), answers.end());
}

std::string ScriptedPrompts::Next(std::string_view what) {
  if (answers_.empty()) throw std::logic_error("no scripted answer for: " + std::string(what));
  std::string answer = std::move(answers_.front());
  answers_.pop_front();
  return answer;
}

void ScriptedPrompts::Tell(std::string_view text) { log_.push_back("! " + std::string(text)); }

Answer ScriptedPrompts::Ask(std::string_view text, Buttons buttons) {
  const std::string word = Next(text);
  Answer answer;
  if (word == "Yes") answer = Answer::kYes;
  else if (word == "No") answer = Answer::kNo;
  else if (word == "OK") answer = Answer::kOk;
  else if (word == "Cancel") answer = Answer::kCancel;
  else throw std::logic_error("scripted answer '" + word + "' is not a button, for: " + std::string(text));
  const bool yes_no = buttons == Buttons::kYesNo || buttons == Buttons::kYesNoCancel;
  if (yes_no != (answer == Answer::kYes || answer == Answer::kNo) && answer != Answer::kCancel) {
    throw std::logic_error("scripted answer '" + word + "' is not offered for: " + std::string(text));
  }
  log_.push_back("? " + std::string(text) + " -> " + word);
  return answer;
}

std::string ScriptedPrompts::Input(std::string_view title, std::string_view prompt, std::string_view) {
  std::string text = Next(prompt);
  log_.push_back("input " + std::string(title) + ": " + std::string(prompt) + " -> " + text);
  return text;
}

std::string ScriptedPrompts::OpenFile(const FileDialogRequest& request) {
  last_request_ = request;
  std::string path = Next(request.title.empty() ? "open dialog" : request.title);
  log_.push_back("open -> " + path);
  return path;
}

std::string ScriptedPrompts::SaveFile(const FileDialogRequest& request) {
  last_request_ = request;
  std::string path = Next(request.title.empty() ? "save dialog" : request.title);
  log_.push_back("save -> " + path);
  return path;
}

std::vector<std::string> ScriptedPrompts::Texts() const {
  std::vector<std::string> texts;
  for (const auto& line : log_) {
    if (line.starts_with("! ") || line.starts_with("? ")) texts.push_back(line);
  }
  return texts;
}

bool TellFailures(UserPrompts& prompts, std::string_view source, const std::function<void()>& body) {
  try {
    InProcedure(source, body);
    return true;
  } catch (const RuntimeFailure& failure) {
    prompts.Tell(GeneralErrorText(failure));
    return false;
  }
}

}  // namespace marlview
