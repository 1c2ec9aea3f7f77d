// The headless prompts: each question is answered from the command line's options, and every
// text shown or asked is echoed to standard error.
#pragma once

#include <ostream>
#include <string>

#include "core/common/user_prompts.h"

namespace marlview {

struct CliAnswers {
  bool start_depth_in_metres = true;
  bool remove_spikes = false;
  bool import_munsell = false;
  std::string tip_area;
  bool yes = false;
  // What the open dialog returns: the FILE of the command line.
  std::string file;
};

class CliPrompts : public UserPrompts {
 public:
  CliPrompts(CliAnswers answers, std::ostream& err) : answers_(std::move(answers)), err_(err) {}

  void Tell(std::string_view text) override;
  Answer Ask(std::string_view text, Buttons buttons) override;
  std::string Input(std::string_view title, std::string_view prompt, std::string_view default_text) override;
  std::string OpenFile(const FileDialogRequest& request) override;
  std::string SaveFile(const FileDialogRequest& request) override;

  // Whether a message since the last call was the general error text or a reader's refusal.
  bool ErrorShown() const { return error_shown_; }
  // The start-up's reports do not count against the subcommand's own exit status.
  void ForgetErrors() { error_shown_ = false; }

 private:
  CliAnswers answers_;
  std::ostream& err_;
  bool error_shown_ = false;
};

}  // namespace marlview
