// The seismic open flow.
#include "core/seismic/seismic_open.h"

#include <cstdio>

#include "core/common/file_access.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"
#include "core/seismic/seismic_readers.h"

namespace marlview {

int16_t SeismicFamilyOfPath(const std::string& path) {
  const std::string_view tail = std::string_view(path).substr(path.size() >= 4 ? path.size() - 4 : 0);
  if (EqualsNoCase(tail, ".smc")) return kSmcFamily;
  if (EqualsNoCase(tail, ".sei")) return kSeiFamily;
  if (EqualsNoCase(tail, ".slg")) return kSlgFamily;
  return kFldacqFamily;
}

std::vector<std::string> FldacqSeries(const std::string& path) {
  std::vector<std::string> found;
  const std::string stem = path.substr(0, path.size() >= 3 ? path.size() - 3 : 0);
  for (int n = 0; n <= 999; ++n) {
    char digits[16];
    std::snprintf(digits, sizeof digits, "%03d", n);
    const std::string name = stem + digits;
    if (FileExists(name)) found.push_back(name);
  }
  if (found.size() > static_cast<size_t>(kMaxSeismicTests)) Fail(kErrSubscript, "ReadFldacqFiles");
  return found;
}

SeismicOpenOutcome OpenSeismicFile(Session& session, UserPrompts& prompts) {
  FileDialogRequest request;
  request.title = "Open";
  request.filter = kSeismicOpenFilter;
  request.filter_index = 1;
  if (DirectoryExists(session.SoundingDirectory)) request.start_directory = session.SoundingDirectory;
  const std::string path = prompts.OpenFile(request);
  if (path.empty()) return SeismicOpenOutcome::kCancelled;
  return OpenSeismicPath(session, prompts, path);
}

SeismicOpenOutcome OpenSeismicPath(Session& session, UserPrompts& prompts, const std::string& path) {
  const std::string title(FileNamePart(path));
  const int16_t family = SeismicFamilyOfPath(path);
  SeismicStore& spare = session.SpareSeismic();
  const char* source = family == kSmcFamily ? "ReadSmcFile"
                       : family == kSeiFamily ? "ReadSeiFile"
                       : family == kSlgFamily ? "ReadSlgFile"
                                              : "ReadFldacqFiles";
  SeismicOpenOutcome outcome = SeismicOpenOutcome::kRefused;
  const auto read = [&] {
    if (family == kFldacqFamily) {
      std::vector<std::string> names{path};
      if (prompts.Ask("LOAD ALL ASSOCIATED SEISMIC TESTS?", Buttons::kYesNo) == Answer::kYes) {
        names = FldacqSeries(path);
      }
      if (names.empty()) {
        prompts.Tell("ERROR: NO SEISMIC FILES FOUND");
        return SeismicOpenOutcome::kRefused;
      }
      std::vector<FldacqFile> files;
      for (const std::string& name : names) files.push_back({name, ReadWholeFile(name)});
      if (!ReadFldacqFiles(files, title, session.FeetPerMetre, spare, prompts)) return SeismicOpenOutcome::kRefused;
    } else {
      const std::string bytes = ReadWholeFile(path);
      if (family == kSmcFamily) ReadSmcFile(bytes, path, title, spare);
      if (family == kSeiFamily) ReadSeiFile(bytes, path, title, spare);
      if (family == kSlgFamily) ReadSlgFile(bytes, path, title, spare);
    }
    return SeismicOpenOutcome::kLoaded;
  };
  TellFailures(prompts, source, [&] { outcome = read(); });
  if (outcome != SeismicOpenOutcome::kLoaded) return outcome;
  if (spare.TestCount == 0) {
    // A header without a single test record holds nothing to show.
    prompts.Tell(path + " is not a valid seismic file");
    return SeismicOpenOutcome::kRefused;
  }
  session.CommitSeismic();
  session.SoundingDirectory = std::string(FolderPart(path));
  return SeismicOpenOutcome::kLoaded;
}

}  // namespace marlview
