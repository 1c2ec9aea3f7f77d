// Channel templates and the default template.
#include "core/settings/templates.h"

#include <algorithm>
#include <filesystem>

#include "core/common/file_access.h"
#include "core/common/line_cursor.h"
#include "core/common/number_read.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"
#include "core/settings/settings_files.h"

namespace marlview {
namespace {

std::string InData(const std::string& data_directory, std::string_view name) {
  return data_directory + "/" + std::string(name);
}

}  // namespace

std::string TemplateFileName(std::string_view name) {
  std::string file(name);
  if (!ContainsNoCase(file, ".tem")) file += ".tem";
  return file;
}

// 3
// Tip Resistance (tsf)
// Sleeve Friction (tsf)
// Pore Pressure (psi)
std::vector<std::string> ReadSoundingTemplate(std::string_view bytes) {
  return InProcedure("ReadSoundingTemplate", [&] {
    LineCursor lines(bytes);
    const int count = ToSetting16(LenientNumber(lines.Next()));
    if (count > kMaxTemplateChannels) Fail(kErrSubscript);
    std::vector<std::string> names;
    for (int i = 0; i < count; ++i) names.emplace_back(lines.Next());
    return names;
  });
}

std::string WriteSoundingTemplate(const std::vector<std::string>& names) {
  const size_t count = std::min(names.size(), static_cast<size_t>(kMaxTemplateChannels));
  std::string bytes = NumberLine(static_cast<int>(count));
  for (size_t i = 0; i < count; ++i) bytes += names[i] + "\r\n";
  return bytes;
}

std::vector<std::string> ListTemplates(const std::string& data_directory) {
  std::vector<std::string> names;
  std::error_code error;
  for (const auto& entry : std::filesystem::directory_iterator(data_directory, error)) {
    const std::string name = entry.path().filename().string();
    if (entry.is_regular_file(error) && EndsWithNoCase(name, ".tem")) names.push_back(name);
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::string ReadDefaultTemplateName(const std::string& data_directory) {
  const auto bytes = TryReadWholeFile(InData(data_directory, kDefaultTemplateFile));
  if (!bytes) return {};
  LineCursor lines(*bytes);
  return lines.AtEnd() ? std::string() : std::string(lines.Next());
}

std::vector<std::string> ReadDefaultTemplateSelection(const std::string& data_directory) {
  const std::string name = ReadDefaultTemplateName(data_directory);
  if (name.empty()) return {};
  // A default whose file was deleted by hand leaves the selection empty, without a word.
  const auto bytes = TryReadWholeFile(InData(data_directory, name));
  if (!bytes) return {};
  return ReadSoundingTemplate(*bytes);
}

bool SaveSoundingTemplate(const std::string& data_directory, std::string_view name,
                          const std::vector<std::string>& channels, bool set_as_default, UserPrompts& prompts) {
  if (name.empty()) {
    prompts.Tell("Please enter a template name to save");
    return false;
  }
  const std::string file = TemplateFileName(name);
  const std::string path = InData(data_directory, file);
  if (FileExists(path) &&
      prompts.Ask("Template " + file + " already exists. Overwrite?", Buttons::kYesNo) != Answer::kYes) {
    return false;
  }
  WriteFileAtomically(path, WriteSoundingTemplate(channels));
  if (set_as_default) WriteFileAtomically(InData(data_directory, kDefaultTemplateFile), file + "\r\n");
  return true;
}

std::vector<std::string> SelectSoundingTemplate(const std::string& data_directory, std::string_view file_name,
                                                bool set_as_default) {
  const auto bytes = TryReadWholeFile(InData(data_directory, file_name));
  if (!bytes) Fail(kErrFileNotFound, "ReadSoundingTemplate");
  std::vector<std::string> names = ReadSoundingTemplate(*bytes);
  const std::string default_path = InData(data_directory, kDefaultTemplateFile);
  if (set_as_default) {
    WriteFileAtomically(default_path, std::string(file_name) + "\r\n");
  } else if (ReadDefaultTemplateName(data_directory) == file_name) {
    std::error_code error;
    std::filesystem::remove(default_path, error);
  }
  return names;
}

void DeleteSoundingTemplate(const std::string& data_directory, std::string_view file_name) {
  std::error_code error;
  std::filesystem::remove(InData(data_directory, file_name), error);
}

std::vector<int> UseSoundingTemplate(const std::vector<std::string>& available,
                                     const std::vector<std::string>& stored) {
  std::vector<int> chosen;
  for (const std::string& name : stored) {
    const auto found = std::find(available.begin(), available.end(), name);
    if (found == available.end()) continue;
    const int position = static_cast<int>(found - available.begin());
    if (std::find(chosen.begin(), chosen.end(), position) == chosen.end()) chosen.push_back(position);
  }
  return chosen;
}

}  // namespace marlview
