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
// Adds the tests of a second .SEI file after the store's, each depth moved down by depth_offset_m;
// the store keeps its own headers. Refused with a message and false when line 33, the count of
// channels, differs from the store's. A run-time failure leaves the store's tests as they were.
bool AppendSeiFile(std::string_view bytes, const std::string& path, const std::string& title, float depth_offset_m,
                   SeismicStore& store, UserPrompts& prompts);
// PX DAS .SMC in its legacy, middle and current versions.
void ReadSmcFile(std::string_view bytes, const std::string& path, const std::string& title, SeismicStore& store);
// Adds the tests of a second .SMC file after the store's, each depth moved down by depth_offset_m.
// The second file's version, bias and scale read its own samples; the store keeps its headers,
// bias and scale. A run-time failure leaves the store's tests as they were.
void AppendSmcFile(std::string_view bytes, const std::string& path, const std::string& title, float depth_offset_m,
                   SeismicStore& store);
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
