// The seismic writers: the store rendered back to the .SEI, .SMC and FLDACQ files it came from,
// with its picks and conditioning, the save flow of the log window, and the combine commands that
// append a second .SEI or .SMC file to the store.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/common/user_prompts.h"
#include "core/session/seismic_store.h"
#include "core/session/session.h"

namespace marlview {

inline constexpr const char* kFileExistsQuestion = "File already exists!  Overwrite?";
inline constexpr const char* kFldacqSaveNotice =
    "DATA WILL BE WRITTEN TO SIMILARLY NAMED FILES WITH '(a)' APPENDED TO THE FILENAME";
inline constexpr const char* kOffsetNegative = "OFFSET CANNOT BE NEGATIVE";

// True when a .SMC first line marks the current layout as the writer decides it; the writer knows
// the short dates "8-22-11" and "11-20-11" that the reader does not.
bool IsCurrentSmcForWriting(std::string_view first_line);

// The whole .SEI file: 55 header lines, then per test the line end that opens it and its seven
// lines, the last sample text without a line end.
std::string RenderSeiFile(const SeismicStore& store);
// The whole .SMC file in its legacy or current layout, chosen by the stored first line.
std::string RenderSmcFile(const SeismicStore& store);

struct RenderedFile {
  std::string name;
  std::string bytes;
};
// One FLDACQ file per test, named as the test's file with "(a)" in front of its last 4 characters.
std::vector<RenderedFile> RenderFldacqFiles(const SeismicStore& store);
// "...\SCPT(a)-001" for "...\SCPT-001".
std::string FldacqSavedName(const std::string& test_file);

enum class SeismicSaveOutcome { kSaved, kCancelled, kNothingToSave, kFailed };

// mnuSaveData: asks for the target through the save dialog (prefilled with loaded_name), asks
// before replacing a file, and writes every file atomically, so a failed save leaves the old file.
// A failure is told in the general error text. FLDACQ series go beside their test files.
SeismicSaveOutcome SaveSeismicData(const SeismicStore& store, const std::string& loaded_name,
                                   UserPrompts& prompts);
// The same with the FLDACQ files written into folder (made when missing) instead of beside the
// tests' files, for the command line.
SeismicSaveOutcome SaveSeismicData(const SeismicStore& store, const std::string& loaded_name,
                                   UserPrompts& prompts, const std::string& fldacq_folder);

// The offset dialogs frmTYRAppendSEIOffset and frmAppendSMCOffset: the depth to add, as typed in
// txtOffset, in the display unit; an empty text when cancelled.
class AppendOffsetDialog {
 public:
  virtual ~AppendOffsetDialog() = default;
  virtual std::string AskOffset(bool sei, bool feet) = 0;
};

// The caution shown before a combine, for "SEI" or "SMC" files.
std::string CombineCaution(bool sei);

// mnuCombineSEIFiles and mnuCombineSMCFiles: the caution, the file dialog, the offset and the append.
// True when tests were added, so the log window is loaded again.
bool CombineSeiFile(Session& session, UserPrompts& prompts, AppendOffsetDialog& offset);
bool CombineSmcFile(Session& session, UserPrompts& prompts, AppendOffsetDialog& offset);
// The combine after its dialogs: path and the offset as typed. The caution is not shown. A negative
// offset or other channels are refused with their message and false; a run-time failure is thrown
// with the source AppendSeiFile or AppendSmcFile and leaves the store's tests as they were.
bool CombineSeismicFile(Session& session, UserPrompts& prompts, bool sei, const std::string& path,
                        const std::string& offset_text);

}  // namespace marlview
