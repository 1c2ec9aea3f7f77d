// The list of one dissipation test (frmPPData): its columns, headings and rows, the printed list,
// its text and CSV exports, and the whole-file exports of the dissipation editors.
#pragma once

#include <string>
#include <vector>

#include "core/common/user_prompts.h"

namespace marlview {

class PrintJob;
class Session;
struct DissipationSet;
struct UnitTables;

// What the list shows: the test and the two percentage menus.
struct DissipationListView {
  int test = 1;
  // mnuShowPercentageMaxPressure.
  bool show_percent_max = false;
  // mnuShowPercentageOverPressure: shown only while the test has a hydrostatic head.
  bool show_percent_head = false;
};

// Whether the head percentage can be shown: the water table lies above the test.
bool PercentHeadAvailable(const DissipationSet& set, int test);

// The window's caption.
std::string DissipationListCaption(const DissipationSet& set);
// The pressure unit without brackets: "PSI" for FLDACQ, the file's own for PX DAS, the unit
// table's name for QRD FIELDBOX.
std::string DissipationUnitName(const DissipationSet& set, const UnitTables& units);
// The pressure column's title: the pore pressure channel's name, or the PX DAS column title.
std::string DissipationChannelName(const DissipationSet& set);

struct DissipationColumn {
  std::string heading;
  std::string unit_line;
  // Characters; the heading, the unit line and each cell are right-aligned in it.
  int width = 0;
};

// Time, pressure, and the percentages the view shows, in that order.
std::vector<DissipationColumn> DissipationListColumns(const Session& session,
                                                      const DissipationListView& view);
// Row k's cell of column c (0-based, as DissipationListColumns), padded to the column's width.
std::string DissipationListCell(const DissipationSet& set, const DissipationListView& view, int row,
                                int column);
// The two heading lines and one line per row, as the fixed-pitch box shows them.
std::vector<std::string> DissipationListLines(const Session& session, const DissipationListView& view);

// The printed list's lines above the table: depth, maximum pressure, water table and head.
std::vector<std::string> DissipationPrintHeader(const Session& session, const DissipationListView& view);
// mnuPrint: the logo and the header in Arial, then the table, page after page.
void PrintDissipationList(PrintJob& job, const Session& session, const DissipationListView& view);

// mnuSaveFile's bytes: the header of the file's family, then the table as the list shows it.
std::string DissipationTxtExport(const Session& session, const DissipationListView& view);
// mnuExportcsvFile's bytes.
std::string DissipationCsvExport(const Session& session, const DissipationListView& view);

// The save dialog of mnuSaveFile (csv false) or mnuExportcsvFile, the overwrite question and the
// write. False when the user stopped at either question.
bool SaveDissipationList(Session& session, UserPrompts& prompts, const DissipationListView& view, bool csv);

// The whole-file exports of the dissipation editors: every test of the file in one text or CSV
// file (tests empty), or the tests named (1-based).
std::string DissipationWholeFileExport(const Session& session, bool csv, const std::vector<int>& tests = {});
// The file of one test of the plural menus: "_" and the depth in the session's depth unit put in
// front of the extension ("out.csv" -> "out_12.35.csv").
std::string PerTestExportPath(const Session& session, const std::string& path, int test);
// Writes an export to path, first asking NAME + " already exists. Overwrite?" when it is there.
// False when the answer was No and the file was left alone.
bool WriteExportAsking(UserPrompts& prompts, const std::string& path, const std::string& bytes);
// mnuTextFile / mnuCSVFile (each false) or mnuTextFiles / mnuCSVFiles (each true) to path.
void ExportWholeDissipationFile(const Session& session, UserPrompts& prompts, const std::string& path,
                                bool csv, bool each);

}  // namespace marlview
