// The guard around every window event.
#include "ui/common/event_guard.h"

#include <new>

#include "core/common/runtime_failure.h"

namespace marlview {

void RunGuarded(UserPrompts& prompts, const char* source, const std::function<void()>& handler) {
  try {
    TellFailures(prompts, source, handler);
  } catch (const std::bad_alloc&) {
    prompts.Tell(GeneralErrorText(RuntimeFailure(7, source)));
  }
}

}  // namespace marlview
