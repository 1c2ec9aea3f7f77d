// The three dissipation file grammars: QRD FIELDBOX and PX DAS .DIS files, and FLDACQ files
// without extension. Each reads a file's bytes into a store that the caller has reset.
#pragma once

#include <string>
#include <string_view>

#include "core/common/user_prompts.h"
#include "core/session/dissipation_set.h"

namespace marlview {

class Session;
struct UnitTables;

// Each fills set from bytes. Fields are read leniently (junk reads as 0); a file that ends inside
// its header fails with "Input past end of file", a row past a bound with "Subscript out of
// range", a PX DAS file without its "PRESSURE U" column with "Invalid procedure call or argument".
void ReadFieldboxDissipation(std::string_view bytes, const UnitTables& units, DissipationSet& set);
void ReadPXDissipation(std::string_view bytes, DissipationSet& set);
void ReadFldacqDissipation(std::string_view bytes, DissipationSet& set);

// What the open flow decided about a chosen file.
enum class DissipationChoice { kRead, kSoundingFile, kSeismicFile };

// The kind of a chosen file: from the first line of a ".dis" file (a first line of neither family
// keeps the kind before), FLDACQ for a name without a sounding or seismic extension.
DissipationChoice ChooseDissipationKind(std::string_view path, std::string_view first_line, int16_t& kind);

// Runs the reader of set.FileKind on bytes, then derives both percentage series of every test.
void ReadDissipation(std::string_view bytes, const UnitTables& units, DissipationSet& set);

// OpenDissipationFile past its dialog: decides the kind, reads the file at path into the session's
// spare store and makes it the current file when the read succeeds. False (and the refusal told)
// for a sounding or seismic file; a failed read throws and leaves the current file as it was.
bool OpenDissipationPath(Session& session, UserPrompts& prompts, const std::string& path);

}  // namespace marlview
