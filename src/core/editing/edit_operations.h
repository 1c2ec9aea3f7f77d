// The operations that change a sounding in place, each as its dialog or the editor's grid runs it:
// the entry is checked (a refusal is told and changes nothing), the engineering table is edited,
// the raw readings follow, every output kind is converted again, the channel is aligned, and the
// derived channels are computed anew. Nothing goes to disk until the user saves.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/common/user_prompts.h"
#include "core/model/sounding_store.h"

namespace marlview {

class Session;

// The channels the remove-negatives and shift dialogs list: the file's own, at most 30.
inline constexpr int kMaxListedEditChannels = 30;
// The file's channels 1..30, and "MORE THAN 30 CHANNELS PRESENT. CANNOT LIST ALL CHANNELS" told
// when it has more.
std::vector<int> EditableChannels(const Session& session, UserPrompts& prompts);

// frmChangeStartDepth: the old value as "000.00" in the user's depth unit, and its unit.
std::string StartDepthDialogText(const Session& session);
std::string DepthUnitText(const Session& session);
// The entry in the user's depth unit replaces the start depth; every depth moves with it.
bool ChangeStartDepth(Session& session, std::string_view entry, UserPrompts& prompts);

// frmRemoveNegatives: every reading below 0 of each channel becomes 0.0001.
void RemoveNegatives(Session& session, const std::vector<int>& channels);

// frmShiftChannels: each amount, in the channel's graph unit, is added to every reading.
void ShiftChannels(Session& session, const std::vector<std::pair<int, double>>& amounts);

// frmAdjustDepth: depths scale by new / old total depth, and so does the rod depth channel.
bool AdjustDepth(Session& session, std::string_view old_depth, std::string_view new_depth, UserPrompts& prompts);

// frmNormalizeDepthIntervals: the readings resampled to one every interval (entered in
// millimetres) from the start depth, each interpolated between the two readings around it.
bool NormalizeDepthIntervals(Session& session, std::string_view interval_mm, UserPrompts& prompts);

// frmTipConfiguration: a conventional tip, or a ball of the entered diameter in mm.
bool ChangeTipConfiguration(Session& session, bool ball, std::string_view diameter_mm, UserPrompts& prompts);
// "44mm BALL" or "CONVENTIONAL".
std::string TipConfigurationText(const Session& session);

// frmTYRConeDimensions' OK: every channel aligned again and the derivation run with every channel.
void ApplyConeDimensions(Session& session);

// The editor's grid. A value typed in the engineering view goes to the unconverted engineering
// table and the raw reading follows; in the raw view it is the raw reading and the engineering
// values follow. False, with "Please enter a valid number", for an entry that is not a number.
bool SetReading(Session& session, int row, int channel, std::string_view entry, bool raw_view, UserPrompts& prompts);

// The per-channel boxes under a grid column.
enum class ChannelBox { kInitialBaseline, kFinalBaseline, kOffset, kUnit, kCal };
std::string ChannelBoxText(const Session& session, int channel, ChannelBox box);
bool SetChannelBox(Session& session, int channel, ChannelBox box, std::string_view entry, UserPrompts& prompts);

// The Delete key in the depth column: only in the view not adjusted for offsets. The reading goes
// from every table and the later readings move up.
bool DeleteReading(Session& session, int row, bool adjusted_view, UserPrompts& prompts);

// cmdRemoveColumn: the channel leaves the file's table, with its limits and questions; the later
// channels move down by one.
bool RemoveChannel(Session& session, int channel, UserPrompts& prompts);

// mnuRemoveRodBreaks without its window: each reading that follows a pause of at least the rod
// break threshold is removed as a right click on it removes it. Gives the number removed.
int RemoveRodBreaksAtPauses(Session& session);

// mnuCombine's first question: the caution about combining, OK or Cancel.
bool CombineCaution(UserPrompts& prompts);
// The chosen file's first line must give the current sounding's family; told when it does not.
bool AppendFamilyMatches(const Session& session, UserPrompts& prompts, std::string_view bytes);
// mnuCombine: a second DAT file of the same sounding behind the current one, its depths moved
// down by the offset entered in the user's depth unit. False when the user stopped or the files
// do not fit together (told in the system's words).
bool AppendDatFile(Session& session, UserPrompts& prompts, const std::string& path, std::string_view offset_entry);

// mnuSaveAs after its dialog, and the DAT compatible export: an existing name asks
// name + " already exists. Overwrite?", and one that cannot be replaced is told so; then the
// sounding is saved. False when nothing was written.
bool SaveSoundingAs(Session& session, UserPrompts& prompts, const std::string& path, bool dat_compatible);
// mnuSaveAs of the editor, the lists and the plot: the save dialog (DAT or PX DAS files, by the
// layout written), then SaveSoundingAs. False when nothing was written.
bool ChooseAndSaveSounding(Session& session, UserPrompts& prompts, bool dat_compatible);
// Whether the plot offers to save the sounding: not for a GEF file, which is read only.
bool SoundingSaveOffered(const SoundingStore& store);

}  // namespace marlview
