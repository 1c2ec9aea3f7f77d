// The sounding editor's logic: ten channel slots over the file's channels, the grid's texts in each
// view and depth unit, the reading and channel under the cursor, the header boxes, whether the
// sounding changed since the editor opened, and the small texts and checks of its dialogs.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/common/user_prompts.h"
#include "core/editing/edit_operations.h"

namespace marlview {

class Session;

// The grid shows ten of the file's channels at a time.
inline constexpr int kEditorSlots = 10;

// The header boxes, each bound to one header field of the sounding.
enum class HeaderBox {
  kFilename,
  kDate,
  kTime,
  kCompany,
  kCrew,
  kDasId,
  kClient,
  kClientRep,
  kComments,
  kGpsLat,
  kGpsLon,
  kGpsElev,
  kGpsNSat,
  kStartDepth,
  kWeather,
};

class SoundingEditor {
 public:
  SoundingEditor(Session& session, UserPrompts& prompts);

  // "EDIT SOUNDING FILE: " and the file's name.
  std::string Caption() const;

  // The views. Raw volts show the readings as logged; engineering values show the graph output,
  // as converted or moved to the tip's depth by each sensor's offset.
  bool ShowRawVolts() const { return show_raw_volts_; }
  bool ViewAdjustedForOffset() const { return adjusted_for_offset_; }
  bool EditDepthInFeet() const { return depth_in_feet_; }
  void SetShowRawVolts(bool raw) { show_raw_volts_ = raw; }
  void SetViewAdjustedForOffset(bool adjusted) { adjusted_for_offset_ = adjusted; }
  void SetEditDepthInFeet(bool feet) { depth_in_feet_ = feet; }
  // The data units menu offers the view that is not shown.
  std::string DataUnitsMenuCaption() const;
  std::string DepthCaption() const;
  // "RAW VOLTS", or the unit of the channel under the cursor.
  std::string UnitsText() const;
  std::string StatusText() const;
  std::string ReadingNumberText() const;

  std::string HeaderText(HeaderBox box) const;
  // A header box typed in: its field takes the text and the sounding counts as changed.
  void SetHeaderText(HeaderBox box, std::string_view text);

  // The file's own channels, the ones the grid edits.
  int ChannelCount() const;
  // The channel in slot 1; the slots show it and the nine after it.
  int FirstColumn() const { return first_column_; }
  // The highest first column: the last channel in slot 10, or 1 when all fit.
  int LastFirstColumn() const;
  // Scrolls the slots; the cursor stays on a channel in view.
  void SetFirstColumn(int first);
  // The channel in slot 1..10, or 0 when the slot is past the last channel.
  int SlotChannel(int slot) const;
  // The channel's name and, under it, its unit or "RAW VOLTS".
  std::string SlotHeading(int slot) const;
  std::string SlotBoxText(int slot, ChannelBox box) const;
  // A baseline, offset, unit or calibration box left with a new entry; an unchanged one is let be.
  bool SetSlotBox(int slot, ChannelBox box, std::string_view entry);

  int RowCount() const;
  std::string DepthText(int row) const;
  // The value of the present view: "0.000000E+000" for volts, "######0.0000" for engineering units.
  std::string ValueText(int row, int channel) const;
  // One fixed-width line of the grid: the depth and the ten slots.
  std::string RowLine(int row) const;
  // The grid as printed: the caption, the view, the slots' names and units, then every reading.
  std::vector<std::string> PrintLines() const;

  int CurrentRow() const { return current_row_; }
  int CurrentChannel() const { return current_channel_; }
  // A click on a cell; out-of-range rows and channels are brought to the nearest.
  void SetCurrent(int row, int channel);
  void MoveRow(int delta);
  // The right and left arrows: on to the next channel while one remains, the slots following.
  void MoveChannel(int delta);

  // Enter on a grid cell: an entry that differs from the value shown goes to the present view's table.
  bool SetValue(int row, int channel, std::string_view entry);
  // The Delete key in the depth column, refused in the adjusted view.
  bool DeleteCurrentReading();
  // cmdRemoveColumn on the channel under the cursor.
  bool RemoveCurrentChannel();
  // A dialog changed the sounding: it counts as changed and the cursor stays within it.
  void Changed();
  bool EditDirty() const { return dirty_; }

  // mnuSave: the sounding back to its own file. mnuSaveAs and mnuExportLogDATCompatibleDATFile: to a
  // file chosen in the save dialog, asking before one is replaced. A save in the sounding's own
  // layout leaves nothing unsaved; the DAT compatible export is a copy and changes nothing here.
  bool Save(bool choose_file, bool dat_compatible);

  // mnuReturn: with unsaved changes, the question whether to leave them temporary.
  bool ConfirmLeave();
  // On leaving, the edited sounding goes back to its slot.
  void Leave();

 private:
  // Keeps the cursor and the slots within the sounding after rows or channels went.
  void Clamp();
  void ShowChannel(int channel);

  Session& session_;
  UserPrompts& prompts_;
  bool show_raw_volts_ = false;
  bool adjusted_for_offset_ = false;
  bool depth_in_feet_ = false;
  bool dirty_ = false;
  int first_column_ = 1;
  int current_row_ = 1;
  int current_channel_ = 1;
};

// frmShiftChannels' OK: an amount for each checked channel, each a number (an empty amount is 0),
// else "Please enter a valid number" and nothing changes.
bool ShiftChannelEntries(Session& session, const std::vector<std::pair<int, std::string>>& entries,
                         UserPrompts& prompts);
// frmAdjustDepth's old total depth: the deepest reading in the user's depth unit.
std::string AdjustDepthDialogText(const Session& session);
// frmTipConfiguration's diameter box: the ball's diameter in mm, empty for a conventional tip.
std::string BallDiameterText(const Session& session);

// frmTYRConeDimensions: the cones of the dimensions file, and the one the sounding's probe
// names (the first when none).
std::vector<std::string> ConeNames(const Session& session);
int ConeOfSounding(const Session& session);
struct ConeDimensionTexts {
  std::string tip, tip_shoulder, sleeve, pore_pressure, unit;
};
// The tip, shoulder, sleeve and pore pressure element lengths of a cone, in metres or inches.
ConeDimensionTexts ConeDimensionsText(const Session& session, int cone);

// mnuCombine up to the choice of the file: the caution, the open dialog, and the family check.
// The chosen path, or empty when the user stopped or the file does not fit.
std::string ChooseDatToAppend(Session& session, UserPrompts& prompts);
// frmTYRAppendOffset's OK: a depth not below 0, else "Please enter a valid depth".
bool CheckAppendOffset(std::string_view entry, UserPrompts& prompts);

}  // namespace marlview
