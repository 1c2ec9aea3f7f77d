// Every event handler of a window runs through here: a run-time failure becomes the general error
// text in a box, and the program goes on.
#pragma once

#include <functional>

#include "core/common/user_prompts.h"

namespace marlview {

void RunGuarded(UserPrompts& prompts, const char* source, const std::function<void()>& handler);

}  // namespace marlview
