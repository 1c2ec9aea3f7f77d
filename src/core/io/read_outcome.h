// What a sounding reader made of a file: read and ready, or refused with the reader's own message.
#pragma once

namespace marlview {

enum class ReadOutcome { kLoaded, kRefused };

}  // namespace marlview
