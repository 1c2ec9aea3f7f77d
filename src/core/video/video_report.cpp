// The printed video log and the page of a single frame.
#include "core/video/video_report.h"

#include <algorithm>
#include <cmath>

#include "core/common/number_format.h"
#include "core/common/runtime_failure.h"

namespace marlview {
namespace {

constexpr double kMargin = 36;
constexpr double kCellGap = 8;

std::string TestTitle(const VideoSession& video) {
  const std::string& title = video.TimeFileTitle;
  const size_t dot = title.rfind('.');
  return dot == std::string::npos ? title : title.substr(0, dot);
}

std::string DepthText(const VideoSession& video, int row) {
  return FormatText(FormatNumber(video.Shown(video.rows.VideoRowDepth[static_cast<size_t>(row)]), "##0.000"),
                    "@@@@@@@");
}

std::string ChannelLine(const VideoSession& video, int row, int channel) {
  std::string text = video.ChannelCellText(row, channel);
  if (!text.ends_with(' ')) text += ' ';
  return text + video.Owner().Sounding().ChannelName[static_cast<size_t>(channel)];
}

// The heading of every page: the test, from the time file's name.
double PrintHeading(DrawingSurface& g, const VideoSession& video, double width) {
  g.SetFont("Arial", 12, true, false);
  g.SetCurrentXY(kMargin, kMargin);
  g.Print("TEST #: " + TestTitle(video));
  double y = kMargin + g.TextHeight("0") * 1.2;
  g.SetFont("Arial", 8, false, false);
  g.SetCurrentXY(kMargin, y);
  g.Print("OCPT IMAGES");
  y += g.TextHeight("0") * 1.5;
  g.Line(kMargin, y, width - kMargin, y, kBlack);
  return y + 6;
}

void PrintCoverSheet(PrintJob& job, const VideoSession& video, const std::vector<int>& rows) {
  const double w = job.PageWidthPoints(), h = job.PageHeightPoints();
  DrawingSurface& g = job.NewPage();
  g.SetScale(0, 0, w, h);
  g.SetFont("Arial", 20, true, false);
  double y = h / 3;
  const auto centred = [&](const std::string& text) {
    g.SetCurrentXY((w - g.TextWidth(text)) / 2, y);
    g.Print(text);
    y += g.TextHeight("0") * 1.6;
  };
  centred("OCPT IMAGES");
  centred("TEST #: " + TestTitle(video));
  g.SetFont("Arial", 11, false, false);
  centred("VIDEO: " + video.VideoTitle);
  centred("TIME FILE: " + video.TimeFileTitle);
  if (video.SoundingLoaded) centred("SOUNDING: " + video.AssociatedFile);
  if (!rows.empty()) {
    const std::string unit = video.Feet() ? " ft" : " m";
    centred("DEPTHS: " + FormatNumber(video.Shown(video.rows.VideoRowDepth[static_cast<size_t>(rows.front())]), "##0.000") +
            unit + " TO " +
            FormatNumber(video.Shown(video.rows.VideoRowDepth[static_cast<size_t>(rows.back())]), "##0.000") + unit);
  }
}

void PrintPageNumber(DrawingSurface& g, double w, double h, int page, int pages) {
  g.SetFont("Arial", 8, false, false);
  const std::string text = "Page " + std::to_string(page) + " of " + std::to_string(pages);
  g.SetCurrentXY((w - g.TextWidth(text)) / 2, h - kMargin - g.TextHeight("0"));
  g.Print(text);
}

}  // namespace

bool PrintVideoLog(PrintJob& job, VideoSession& video, const std::vector<int>& rows) {
  if (video.RefusedEmpty()) return false;
  if (video.VideoCoverSheet) PrintCoverSheet(job, video, rows);
  const double w = job.PageWidthPoints(), h = job.PageHeightPoints();
  const int columns = std::clamp(video.VideoColumns, 1, 3);
  const double cell_w = (w - 2 * kMargin) / columns;
  const double picture_w = cell_w - kCellGap;
  const double picture_h = picture_w * video.crop.height / video.crop.width;
  const int lines = 1 + static_cast<int>(video.SelectedChannels.size());
  // The page's measures come from a first page; the heading's height is the same on every page.
  int rows_per_page = 1;
  int pages = 1;
  size_t cell = 0;
  for (int page = 1; page == 1 || cell < rows.size(); ++page) {
    DrawingSurface& g = job.NewPage();
    g.SetScale(0, 0, w, h);
    g.SetDrawWidth(1);
    double top = PrintHeading(g, video, w);
    g.SetFont("Arial", 8, false, false);
    const double line_h = g.TextHeight("0");
    const double cell_h = picture_h + lines * line_h + kCellGap;
    if (page == 1) {
      const double room = h - kMargin - 2 * line_h - top;
      rows_per_page = std::max(1, static_cast<int>(std::floor(room / cell_h)));
      const size_t per_page = static_cast<size_t>(rows_per_page * columns);
      pages = std::max<int>(1, static_cast<int>((rows.size() + per_page - 1) / per_page));
    }
    for (int r = 0; r < rows_per_page && cell < rows.size(); ++r) {
      for (int c = 0; c < columns && cell < rows.size(); ++c, ++cell) {
        const int row = rows[cell];
        const double x = kMargin + c * cell_w;
        const double y = top + r * cell_h;
        g.PaintPicture(Picture{{}, video.PictureOfRow(row)}, x, y, picture_w, picture_h);
        g.Box(x, y, x + picture_w, y + picture_h, kBlack, false);
        g.SetCurrentXY(x, y + picture_h + 2);
        g.Print(DepthText(video, row) + (video.Feet() ? " ft " : " m "));
        for (int channel : video.SelectedChannels) {
          g.SetCurrentXY(x, g.CurrentY());
          g.Print(ChannelLine(video, row, channel));
        }
      }
    }
    PrintPageNumber(g, w, h, page, pages);
  }
  return true;
}

bool PrintCurrentImage(PrintJob& job, VideoSession& video) {
  if (video.RefusedEmpty()) return false;
  const auto& picture = video.OutputPicture();
  if (!picture) Fail(kErrFileNotFound);
  const double w = job.PageWidthPoints(), h = job.PageHeightPoints();
  DrawingSurface& g = job.NewPage();
  g.SetScale(0, 0, w, h);
  g.SetFont("Arial", 12, true, false);
  g.SetCurrentXY(kMargin, kMargin);
  g.Print("TEST #: " + TestTitle(video));
  g.SetFont("Arial", 10, false, false);
  g.SetCurrentXY(kMargin, g.CurrentY());
  g.Print("DEPTH: " + DepthText(video, video.Position) + (video.Feet() ? " ft" : ""));
  const double y = g.CurrentY() + 6;
  const double picture_w = w - 2 * kMargin;
  const double picture_h = std::min(picture_w * picture->height / picture->width, h - y - kMargin - 120);
  const double fitted_w = picture_h * picture->width / picture->height;
  g.PaintPicture(Picture{{}, picture}, kMargin, y, fitted_w, picture_h);
  g.SetCurrentXY(kMargin, y + picture_h + 6);
  for (int channel : video.SelectedChannels) {
    g.SetCurrentXY(kMargin, g.CurrentY());
    g.Print(ChannelLine(video, video.Position, channel));
  }
  return true;
}

}  // namespace marlview
