// The readers of the four families of seismic file. Each takes the file's bytes and fills a store
// it resets first; a field past a bound or a file that ends inside a record throws RuntimeFailure
// with the reader's name as its source.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/common/user_prompts.h"
#include "core/session/seismic_store.h"

namespace marlview {

// QRD FIELDBOX .SEI: a 56-line header, then one record of seven lines per depth.
void ReadSeiFile(std::string_view bytes, const std::string& path, const std::string& title, SeismicStore& store);
// PX DAS .SMC in its legacy, middle and current versions.
void ReadSmcFile(std::string_view bytes, const std::string& path, const std::string& title, SeismicStore& store);
// QRD FIELDBOX .SLG: one continuous record cut into seconds.
void ReadSlgFile(std::string_view bytes, const std::string& path, const std::string& title, SeismicStore& store);

// One FLDACQ file of a series, as found on disk.
struct FldacqFile {
  std::string path;
  std::string bytes;
};
// Reads the files of an FLDACQ series, one depth each, in depth order. A file whose second line
// lacks "Cone" is refused with a message and false.
bool ReadFldacqFiles(const std::vector<FldacqFile>& files, const std::string& title, float feet_per_metre,
                     SeismicStore& store, UserPrompts& prompts);

// The depth in metres of an FLDACQ depth line "19.69 => Depth (ft)".
float FldacqDepth(std::string_view line, float feet_per_metre);

}  // namespace marlview
