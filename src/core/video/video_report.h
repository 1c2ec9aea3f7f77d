// The printed video log: the frames of a run of depths in columns, each with its depth and up to
// four sounding channels, an optional cover sheet, and the page of a single frame.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "core/presentation/print_job.h"
#include "core/video/video_session.h"

namespace marlview {

// The label and value of each entry of the video report's header lists, by position.
std::vector<std::pair<std::string, std::string>> VideoHeaderFields(const VideoSession& video);

// cmdPrint: the log of the rows given (VideoSession::LogRows), fetching each frame as it is drawn.
// False, with a message, when the output picture is empty.
bool PrintVideoLog(PrintJob& job, VideoSession& video, const std::vector<int>& rows);

// cmdPrintCurrentImage: the output picture of the position on a page of its own.
bool PrintCurrentImage(PrintJob& job, VideoSession& video);

}  // namespace marlview
