// The dissipation writers: a QRD FIELDBOX or PX DAS .DIS file rendered from the store, in the
// layouts the field systems write and the readers take back.
#pragma once

#include <string>

#include "core/common/file_access.h"

namespace marlview {

class Session;
struct DissipationSet;
struct UnitTables;

// The PX DAS conversion factors, units per kilopascal, that a file's conversion line carries.
struct PxPressureUnit {
  const char* name;
  double per_kilopascal;
};
inline constexpr PxPressureUnit kPxPressureUnits[] = {
    {"KPA", 1},        {"MPA", 0.001},    {"TSF", 0.0104427},    {"PSI", 0.1450377},
    {"BAR", 0.01},     {"KSC", 0.0101972}, {"M-H20", 0.1019716}, {"Ft-H2O", 0.3345526},
};

// The bytes of a QRD FIELDBOX file: header, channel block and every test, CR LF line ends.
// file_name goes on the "=> Filename" line.
std::string FieldboxDissipationBytes(const DissipationSet& set, const UnitTables& units,
                                     const std::string& file_name);
// The bytes of a PX DAS file. Its seventh line is second_identifier, the session's hole number,
// not the file's own.
std::string PxDissipationBytes(const DissipationSet& set, const std::string& second_identifier);

// line with text right-aligned in the 20-character field at 1-based column, the text around it kept.
std::string WithPxField(const std::string& line, int column, const std::string& text);
// A PX DAS file's number in the 20-character field at its pressure column.
double PxField(const DissipationSet& set, int header_line, int width = 20);

// The session's dissipation file in the layout of its family, written atomically to path.
void WriteDissipationFile(const Session& session, const std::string& path, const FileWriteFunction& write = {});

}  // namespace marlview
