// The ECP list: the sounding in the fixed ECP arrangement or in the user's template order, its
// pressures in one chosen unit, the unit kept between runs, and the ECP export file.
#pragma once

#include <string>
#include <vector>

namespace marlview {

class Session;
class SoundingStore;

// The fixed pressure copies, in table order: psi, tsf, kPa, MPa.
inline constexpr int kEcpPsi = 0, kEcpTsf = 1, kEcpKpa = 2, kEcpMpa = 3;

struct EcpView {
  // The columns after the depth, in order.
  std::vector<int> channels;
  // The main window's selection, in its order; none made takes the default list selection.
  std::vector<int> selection;
  // Index of the fixed pressure copy the pressure columns come from.
  int unit = kEcpPsi;
  // The user's template order rather than the selection's.
  bool ordered = false;
};

// The sounding's channels whose names are in the template, in the sounding's channel order.
std::vector<int> OrderedEcpChannels(const SoundingStore& s, const std::vector<std::string>& names);
// Sets the view's columns: the template's channels, or the selection in its own order.
void ChooseEcpColumns(const Session& session, EcpView& view);

// Pressure channels are shown from the fixed-unit copies.
bool IsEcpPressure(const SoundingStore& s, int channel);
// The unit line of a column, "(psi)" and so on for a pressure in the chosen unit, head pressure
// included.
std::string EcpUnitLabel(const Session& session, const EcpView& view, int channel);
std::string EcpDepthText(const Session& session, int row);
// A cell without the blanks the fixed-width file pads it with.
std::string EcpCellText(const Session& session, const EcpView& view, int row, int channel);
// Per column, the depth's first: the short name and the unit label on two lines.
std::vector<std::string> EcpHeading(const Session& session, const EcpView& view);

// "Default ECP Units.txt": 0..3, 0 when missing or not one of those.
int ReadDefaultEcpUnit(const Session& session);
void WriteDefaultEcpUnit(const Session& session, int unit);

// The template's names: those the session keeps, else the lines of "Ordered ECP Channels.txt".
std::vector<std::string> EcpTemplateNames(const Session& session);
// Writes the chosen names one a line to "Ordered ECP Channels.txt" and keeps them.
void SaveEcpTemplate(Session& session, const std::vector<std::string>& names);

// The header block, a blank line, the three heading lines and one line per reading.
std::string EcpExport(const Session& session, const EcpView& view);

}  // namespace marlview
