// The seismic exports: each strike as a text or CSV file of times and amplitudes, and each test as
// a DPlot graph file (.grf) of one strike or of A and B together, for charting outside the program.
#pragma once

#include <string>
#include <string_view>

#include "core/common/user_prompts.h"
#include "core/session/seismic_store.h"

namespace marlview {

inline constexpr const char* kEnterSoundingAndFilename = "Please enter a sounding name and a filename.";
inline constexpr const char* kEnterSoundingName = "Please enter a sounding name";
inline constexpr const char* kEnterFilename = "Please enter a filename.";
inline constexpr const char* kConversionCanceled = "CONVERSION CANCELED";
inline constexpr const char* kConversionCompleted = "CONVERSION COMPLETED";
// The settings file that keeps whether the text export of all tests writes its header.
inline constexpr const char* kTxtHeaderSettingFile = "Print Seismic TXT Export Header.txt";

// The boxes every export dialog shares. file_name is the sounding's file stem the exported names
// start with; directory is where the files go.
struct SeismicExportBoxes {
  std::string sounding;
  std::string file_name;
  std::string directory;
};

// True when both boxes hold text; otherwise tells the message for the empty ones.
bool CheckExportBoxes(const SeismicExportBoxes& boxes, UserPrompts& prompts);
// The name without a trailing ending such as ".txt" or ".TXT" (given in lower case).
std::string CutEnding(const std::string& name, std::string_view lower_ending);

// "SITE_004.50m_L_strike(007).txt": the stem, the depth, the strike (L, R or P for A, B, P), the test.
std::string StrikeFileName(const std::string& stem, float depth_m, int kind, int test,
                           std::string_view ending);

// The width of the sounding name in a strike file: 50 for the exports of all tests, 20 for the
// workbench's single test.
inline constexpr int kSoundingWidthAll = 50;
inline constexpr int kSoundingWidthSingle = 20;

// One strike as text: an optional header, then time (ms) and amplitude per sample, CR LF lines.
std::string RenderStrikeText(const SeismicStore& store, int test, int kind, const std::string& sounding,
                             bool include_header, int sounding_width);
// One strike as comma-separated text with its sounding, depth and column heads.
std::string RenderStrikeCsv(const SeismicStore& store, int test, int kind, const std::string& sounding,
                            int sounding_width);

// frmExportSeismicTXT and frmExportSeismicCSV: one file per strike of every test. False when a box
// was empty and nothing was written. A failed write throws the run-time failure.
bool ExportSeismicText(const SeismicStore& store, const SeismicExportBoxes& boxes, bool include_header,
                       UserPrompts& prompts);
bool ExportSeismicCsv(const SeismicStore& store, const SeismicExportBoxes& boxes, UserPrompts& prompts);
// frmExportSingleSeismicTXT and frmExportSingleSeismicCSV: the strikes of the workbench's test.
bool ExportSingleSeismicText(const SeismicStore& store, int test, const SeismicExportBoxes& boxes,
                             UserPrompts& prompts);
bool ExportSingleSeismicCsv(const SeismicStore& store, int test, const SeismicExportBoxes& boxes,
                            UserPrompts& prompts);

// The state of chkIncludeHeader kept in the data directory: set when the file is absent or holds
// anything but 0.
bool ReadTxtHeaderSetting(const std::string& data_directory);
void WriteTxtHeaderSetting(const std::string& data_directory, bool include_header);

// The strikes a graph file carries: optExportAStrikes ... optExportABStrikes.
enum class GrfStrikes { kA, kB, kP, kAB };

struct GrfOptions {
  GrfStrikes strikes = GrfStrikes::kA;
  // optAlternatingPoints of a seismic log: every second sample, halving the record.
  bool alternating = false;
  // Depths in feet in the file name, the depth note and the question.
  bool feet = false;
  float feet_per_metre = 0;
};

// "SITE(A)004.50m.grf", or "SITE(A+B)014.76ft.grf" in feet.
std::string GrfFileName(const std::string& stem, const GrfOptions& options, float depth_m);
// The DPlot file of test i (of the log in a .SLG store) with the chosen strike(s).
std::string RenderGrfFile(const SeismicStore& store, int test, const GrfOptions& options);
// "TEST #: 3 at 4.50 (m) DOES NOT HAVE (A) STRIKE. CANNOT CONVERT".
std::string GrfMissingStrikeQuestion(int test, float depth_m, const GrfOptions& options);

enum class GrfExportOutcome { kEmptyBox, kCompleted, kCanceled };

// frmExportSeismicGRF: one file per test that has the chosen strike(s); a test without them asks
// whether to go on. Existing files are replaced.
GrfExportOutcome ExportSeismicGrf(const SeismicStore& store, const SeismicExportBoxes& boxes,
                                  const GrfOptions& options, UserPrompts& prompts);

}  // namespace marlview
