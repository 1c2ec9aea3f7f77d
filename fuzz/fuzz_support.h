// What the fuzz targets share: a session on the installed defaults, and prompts that answer every
// question at once and show nothing.
#pragma once

#include <string>
#include <string_view>

#include "core/common/user_prompts.h"
#include "core/model/unit_tables.h"
#include "core/session/session.h"

namespace marlview::fuzz {

// One session for the whole run, with the installed unit tables.
inline Session& FuzzSession() {
  static Session* session = [] {
    auto* s = new Session({"/nonexistent", MARLVIEW_DEFAULTS});
    SetupTYRChannels(s->units, MARLVIEW_DEFAULTS, s->FeetPerMetre);
    return s;
  }();
  return *session;
}

// Answers every question with answer, except No to a question containing no_to; an input box
// takes its default, a file dialog is cancelled.
class FuzzPrompts : public UserPrompts {
 public:
  explicit FuzzPrompts(Answer answer = Answer::kYes, std::string_view no_to = {}) : answer_(answer), no_to_(no_to) {}
  void Tell(std::string_view) override {}
  Answer Ask(std::string_view text, Buttons) override {
    return !no_to_.empty() && text.find(no_to_) != std::string_view::npos ? Answer::kNo : answer_;
  }
  std::string Input(std::string_view, std::string_view, std::string_view d) override { return std::string(d); }
  std::string OpenFile(const FileDialogRequest&) override { return {}; }
  std::string SaveFile(const FileDialogRequest&) override { return {}; }

 private:
  Answer answer_;
  std::string_view no_to_;
};

}  // namespace marlview::fuzz
