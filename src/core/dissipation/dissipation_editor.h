// The dissipation editors of QRD FIELDBOX and PX DAS files: grid cells, the pressure unit, test
// depths, deleting and appending tests and the header boxes, each followed by both percentage
// series of the tests it touched. The windows and the CLI drive the same calls.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/common/file_access.h"
#include "core/common/user_prompts.h"

namespace marlview {

class Session;
struct DissipationSet;

// The grid's columns: txtTime, txtVoltage (volts, or the raw reading of a PX DAS file),
// txtPressurePSI and txtPressureUnits.
enum class DissipationCell { kTime, kVolts, kPsi, kPressure, kRaw };

// The combine's caution, answered OK or Cancel.
inline constexpr const char* kCombineCaution =
    "CAUTION: DIS files should be combined ONLY if they comprise portions of the same sounding and are saved "
    "in the same format. The headers of the currently loaded file will be used for the combined file. "
    "Combining files from dissipations from different tests will result in incorrect data. Press OK to "
    "combine files or CANCEL to return to the EDIT DISSIPATION screen";

// A pressure unit offered by cmbPressureUnits and its factor: pascals per unit in the QRD FIELDBOX
// unit table, units per kilopascal in a PX DAS file's conversion line.
struct DissipationPressureUnit {
  std::string name;
  double factor = 0;
};

// Whether the file has an editor: FLDACQ files have none.
bool HasDissipationEditor(const DissipationSet& set);

// The header boxes of the file's family, by the names of the store's header strings.
std::vector<std::string> DissipationHeaderNames(const DissipationSet& set);
// The header string of a box; nullptr when name is none of the family's.
std::string* DissipationHeaderField(DissipationSet& set, std::string_view name);

class DissipationEditor {
 public:
  DissipationEditor(Session& session, UserPrompts& prompts);

  const DissipationSet& Set() const;
  UserPrompts& Prompts() { return prompts_; }
  // EditorChanged: set by every change to the file, cleared by a save.
  bool Changed() const { return changed_; }
  // The test picked in cmbDissipationDepth, 1-based.
  int SelectedTest() const { return selected_; }
  void SelectTest(int test);

  // "EDIT DISSIPATION FILE: " and the file's name.
  std::string Caption() const;
  // cmbDissipationDepth: one entry per test in "###0.000", in the session's depth unit.
  std::vector<std::string> DepthEntries() const;
  // "(m)" or "(ft)".
  std::string DepthUnitCaption() const;
  // cmbPressureUnits' entries, and the entry of the file's unit (-1 when it is none of them).
  std::vector<DissipationPressureUnit> PressureUnits() const;
  int PressureUnitChoice() const;
  // "PRESS (" with the unit and ")".
  std::string PressureHeading() const;
  // A cell as the grid shows it: time "####0.00", voltage "##0.0000", pressure "####0.0000".
  // A cell the PX DAS editor put back after a refused entry shows "######0.0000".
  std::string CellText(int test, int row, DissipationCell cell, bool restored = false) const;

  // A value typed into a cell. Blanks are removed; an entry of other characters than digits,
  // signs and points is refused (the PX DAS editor says so) and the cell keeps its value. False
  // when refused.
  bool EditCell(int test, int row, DissipationCell cell, std::string_view text);
  // cmbPressureUnits: every row of every test converted to the unit of entry choice.
  void ChangePressureUnit(int choice);
  // frmChangeDissipationDepth: the new depth of a test, typed in the session's depth unit.
  bool ChangeDepth(int test, std::string_view text);
  // frmAdjustDissipationDepth: every depth times measured / observed.
  bool AdjustDepths(std::string_view measured, std::string_view observed);
  // Command1: asks, then removes the test; the only test of a file is never removed.
  bool DeleteTest(int test);
  // frmTYRAppendDISOffset's OK: the offset typed in the session's depth unit, then the tests of the
  // file at path appended at their depths plus the offset. False when refused; a file that cannot
  // be read throws and nothing is appended.
  bool AppendWithOffset(const std::string& path, std::string_view offset_text);
  // A header box changed.
  void SetHeader(std::string_view name, std::string value);

  // mnuSave: the file written over itself by the writer of its family.
  bool Save(const FileWriteFunction& write = {});
  // mnuSaveAs past its dialog: a name that exists is refused; afterwards the editor edits path.
  bool SaveAs(const std::string& path, const FileWriteFunction& write = {});
  // mnuSaveAs with its dialog.
  bool SaveAsAsking();
  // mnuTextFile, mnuCSVFile (each false), mnuTextFiles, mnuCSVFiles with their save dialog.
  bool ExportAsking(bool csv, bool each);
  // mnuMeters and mnuFeet: the session's depth unit, in which depths are shown and typed.
  void SetDepthInFeet(bool feet);
  bool DepthInFeet() const;
  // mnuReturn: with unsaved changes, whether the user still wants to leave.
  bool MayLeave();

 private:
  void Recompute(int test);
  void RecomputeAll();

  Session& session_;
  UserPrompts& prompts_;
  int selected_ = 1;
  bool changed_ = false;
};

// AppendDissipationFile: the tests of a second QRD FIELDBOX file added at their depths plus
// offset_m. False when its sensor row differs from the loaded file's (told). Fails with "File not
// found" for a missing file, "Input past end of file" for one that ends inside its header and
// "Subscript out of range" for the 101st test or row 10001; the store is left as it was then.
bool AppendDissipationFile(Session& session, UserPrompts& prompts, std::string_view bytes, float offset_m);

}  // namespace marlview
