// The printed video log and the page of a single frame.
#include "core/video/video_report.h"

#include <algorithm>
#include <cmath>

#include "core/common/number_format.h"
#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/settings/report_settings.h"

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

// The furniture of the video report of the sounding's family; QRD FIELDBOX's without a sounding.
ReportFamily FamilyOf(const VideoSession& video) {
  return video.SoundingLoaded ? ReportFamilyOf(video.Owner().Sounding().AcquisitionFamily) : ReportFamily::kQrdFieldbox;
}

const ReportSettings& SettingsOf(const VideoSession& video) {
  return video.Owner().Report(FamilyOf(video), ReportKind::kVideo);
}

// A header field of the print settings' lists, as a label and a value; an index outside the list
// is blank.
std::pair<std::string, std::string> HeaderField(const VideoSession& video, int index) {
  const auto fields = VideoHeaderFields(video);
  if (index < 0 || index >= static_cast<int>(fields.size())) return {};
  return fields[static_cast<size_t>(index)];
}

double Inches(float inches) { return inches * 72.0; }

// The logo on the cover only ("Cover Page", "Cover Page (watermark) "), on every page ("All Pages
// (cover page watermark)", "All Pages"), or nowhere ("No Logo").
void PrintLogo(DrawingSurface& g, const VideoSession& video, double right, double top, bool cover) {
  const int16_t placement = SettingsOf(video).Cover.PrintLogo;
  if (placement >= 4 || (!cover && placement < 2)) return;
  const std::string logo = video.Owner().SettingsPath("logo.jpg");
  g.PaintPicture(Picture{logo, nullptr}, right - 108, top, 108, 54);
}

// The heading of every page: the test, from the time file's name, and the graph header of the
// print settings.
double PrintHeading(DrawingSurface& g, const VideoSession& video, double width) {
  g.SetFont("Arial", 12, true, false);
  g.SetCurrentXY(kMargin, kMargin);
  g.Print("TEST #: " + TestTitle(video));
  double y = kMargin + g.TextHeight("0") * 1.2;
  g.SetFont("Arial", 8, false, false);
  const auto [label, value] = HeaderField(video, SettingsOf(video).GraphHeader);
  g.SetCurrentXY(kMargin, y);
  g.Print(label + value);
  PrintLogo(g, video, width - kMargin, kMargin, false);
  y = std::max(y + g.TextHeight("0") * 1.5, kMargin + 58);
  g.Line(kMargin, y, width - kMargin, y, kBlack);
  return y + 6;
}

// The cover sheet in the style chosen: its main header, then its sixteen header boxes in two
// columns, within the cover's margins.
void PrintCoverSheet(PrintJob& job, const VideoSession& video) {
  const double w = job.PageWidthPoints(), h = job.PageHeightPoints();
  const ReportPage& cover = SettingsOf(video).Cover;
  const size_t style = static_cast<size_t>(std::clamp<int>(cover.Style, 0, kReportStyles - 1));
  const double left = Inches(cover.LeftMargin), right = w - Inches(cover.RightMargin);
  const double top = Inches(cover.TopMargin);
  DrawingSurface& g = job.NewPage();
  g.SetScale(0, 0, w, h);
  PrintLogo(g, video, right, top, true);
  g.SetFont("Arial", 20, true, false);
  double y = h / 3;
  const auto main = HeaderField(video, cover.MainHeaderSource[style]);
  const std::string title = main.first + main.second;
  g.SetCurrentXY((left + right - g.TextWidth(title)) / 2, y);
  g.Print(title);
  y += g.TextHeight("0") * 2;
  g.SetFont("Arial", 10, false, false);
  const double line = g.TextHeight("0") * 1.4;
  int column = 0;
  for (int16_t source : cover.HeaderSource[style]) {
    const auto [label, value] = HeaderField(video, source);
    if (label.empty() && value.empty()) continue;
    g.SetCurrentXY(left + column * (right - left) / 2, y);
    g.Print(label + value);
    column = 1 - column;
    if (column == 0) y += line;
  }
}

void PrintFooter(DrawingSurface& g, const VideoSession& video, double h) {
  const auto [label, value] = HeaderField(video, SettingsOf(video).GraphFooter);
  if (label.empty() && value.empty()) return;
  g.SetFont("Arial", 8, false, false);
  g.SetCurrentXY(kMargin, h - kMargin - 2 * g.TextHeight("0"));
  g.Print(label + value);
}

void PrintPageNumber(DrawingSurface& g, double w, double h, int page, int pages) {
  g.SetFont("Arial", 8, false, false);
  const std::string text = "Page " + std::to_string(page) + " of " + std::to_string(pages);
  g.SetCurrentXY((w - g.TextWidth(text)) / 2, h - kMargin - g.TextHeight("0"));
  g.Print(text);
}

}  // namespace

// The entries of the header lists of the video report: those of the seismic heading with "OCPT
// IMAGES" for the report's title, the data file's fields taken from the sounding beside the video.
std::vector<std::pair<std::string, std::string>> VideoHeaderFields(const VideoSession& video) {
  const Session& session = video.Owner();
  const SoundingStore& s = session.Sounding();
  const bool loaded = video.SoundingLoaded;
  const auto field = [&](const std::string& text) { return loaded ? text : std::string(); };
  const CustomHeaders& custom = session.custom_headers;
  std::vector<std::pair<std::string, std::string>> fields;
  const auto custom_fields = [&] {
    for (int row = 0; row < kCustomHeaderRows; ++row) {
      const std::string& label = custom.label[static_cast<size_t>(row)][3];
      fields.emplace_back(label + (row != 1 ? ": " : ""), custom.value[static_cast<size_t>(row)][3]);
    }
  };
  const std::string file_name = loaded ? s.SoundingFileName : video.VideoTitle;
  if (FamilyOf(video) == ReportFamily::kPxDas) {
    fields = {{"", ""},
              {"", "OCPT IMAGES"},
              {"CUSTOMER: ", field(s.Customer)},
              {"OPERATOR: ", field(s.OperatorName)},
              {"CONE ID: ", field(s.ConeId)},
              {"LOCATION: ", field(s.LocationName)},
              {"JOB NUMBER: ", field(s.JobNumber)},
              {"HOLE NUMBER: ", field(s.HoleNumber)},
              {"TEST DATE: ", field(s.TestDateText)},
              {"COMMENT: ", field(s.CommentLine1)},
              {"COMMENT: ", field(s.CommentLine2)},
              {"COMMENT: ", field(s.CommentLine3)},
              {"GPS DATA: ", field(s.GpsText)},
              {"FILENAME: ", file_name},
              {"", session.general.CompanyGraphTitle}};
    custom_fields();
    return fields;
  }
  const std::string gps = loaded ? FormatNumber(LenientNumber(s.GpsLat), "####0.00") + "," +
                                       FormatNumber(LenientNumber(s.GpsLon), "####0.00") + "," +
                                       FormatNumber(LenientNumber(s.GpsElev), "####0.0")
                                 : std::string();
  fields = {{"", ""},
            {"", "OCPT IMAGES"},
            {"COMPANY: ", field(s.FileProductLine)},
            {"FILENAME: ", file_name},
            {"PROBE ID: ", field(s.ProbeSerial)},
            {"TEST ID: ", field(s.TestId)},
            {"PROJECT: ", field(s.Project)},
            {"SITE: ", field(s.Site)},
            {"LOCATION: ", field(s.Location)},
            {"OPERATOR: ", field(s.Operator)},
            {"CREW: ", field(s.Crew)},
            {"CLIENT: ", field(s.Client)},
            {"CLIENT REP: ", field(s.ClientRepresentative)},
            {"TEST DATE: ", field(s.TestDate)},
            {"START TIME: ", field(s.StartTime)},
            {"GPS DATA: ", gps},
            {"WEATHER: ", field(s.Weather)},
            {"COMMENTS: ", field(s.Comments)},
            {"", session.general.CompanyGraphTitle}};
  custom_fields();
  return fields;
}

bool PrintVideoLog(PrintJob& job, VideoSession& video, const std::vector<int>& rows) {
  if (video.RefusedEmpty()) return false;
  if (video.VideoCoverSheet) PrintCoverSheet(job, video);
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
      const double room = h - kMargin - 3 * line_h - top;
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
    PrintFooter(g, video, h);
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
