// Answers to the program's questions from the command line.
#include "app/cli_prompts.h"

#include "core/common/text_rules.h"

namespace marlview {

void CliPrompts::Tell(std::string_view text) {
  err_ << "! " << ToUtf8(text) << '\n';
  if (text.starts_with("Marlview has encountered an error") || ContainsNoCase(text, "is not a valid")) {
    error_shown_ = true;
  }
}

Answer CliPrompts::Ask(std::string_view text, Buttons buttons) {
  const bool yes_no = buttons == Buttons::kYesNo || buttons == Buttons::kYesNoCancel;
  bool yes = answers_.yes;
  if (text.starts_with("Start Depth of ")) yes = answers_.start_depth_in_metres;
  else if (ContainsNoCase(text, "SPIKES HAVE BEEN DETECTED")) yes = answers_.remove_spikes;
  else if (ContainsNoCase(text, "IMPORT MUNSELL COLOR PROBE DATA")) yes = answers_.import_munsell;
  const Answer answer = yes_no ? (yes ? Answer::kYes : Answer::kNo) : (yes ? Answer::kOk : Answer::kCancel);
  err_ << "? " << ToUtf8(text) << " -> " << AnswerName(answer) << '\n';
  return answer;
}

std::string CliPrompts::Input(std::string_view title, std::string_view prompt, std::string_view default_text) {
  std::string answer(default_text);
  // The tip area box is known by its title; its text explains what the area is for.
  if (ContainsNoCase(title, "ENTER STANDARD CONICAL TIP AREA") && !answers_.tip_area.empty()) {
    answer = answers_.tip_area;
  }
  err_ << "? " << ToUtf8(prompt) << " -> " << answer << '\n';
  return answer;
}

std::string CliPrompts::OpenFile(const FileDialogRequest&) { return answers_.file; }

std::string CliPrompts::SaveFile(const FileDialogRequest&) { return {}; }

}  // namespace marlview
