// The windows that show the current sounding, drawn again after a change to its readings.
#pragma once

namespace marlview {

class Session;

// Every open plot, list and ECP window shows the sounding as it now is; a window closed and not
// yet deleted is left alone.
void RepaintSoundingWindows(const Session& session);

}  // namespace marlview
