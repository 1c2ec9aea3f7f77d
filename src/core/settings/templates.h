// Channel templates: a named selection of channels kept as "<name>.tem" in the data directory, and
// the default template that fills the selection when a sounding opens.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/common/user_prompts.h"

namespace marlview {

inline constexpr int kMaxTemplateChannels = 100;
inline constexpr const char* kDefaultTemplateFile = "Default Template.txt";

// ".tem" is added unless the name already holds it.
std::string TemplateFileName(std::string_view name);

// Line 1 the count, then that many channel names; a count past the last line fails with "Input
// past end of file" from ReadSoundingTemplate.
std::vector<std::string> ReadSoundingTemplate(std::string_view bytes);
std::string WriteSoundingTemplate(const std::vector<std::string>& names);

// The template files of the data directory, by name.
std::vector<std::string> ListTemplates(const std::string& data_directory);

// "Default Template.txt": the default's file name, empty when the file is missing or its first
// line is empty.
std::string ReadDefaultTemplateName(const std::string& data_directory);
// The default template's channels; none when there is no default or its file is gone.
std::vector<std::string> ReadDefaultTemplateSelection(const std::string& data_directory);

// frmSoundingSaveTemplate OK. Refuses an empty name, asks before overwriting; true when the
// template was written and the dialog closes.
bool SaveSoundingTemplate(const std::string& data_directory, std::string_view name,
                          const std::vector<std::string>& channels, bool set_as_default, UserPrompts& prompts);

// frmSoundingTemplate OK on a template file: the default ticked writes "Default Template.txt",
// unticked on the default removes it. Returns the template's channels; a missing file fails with
// "File not found" from ReadSoundingTemplate.
std::vector<std::string> SelectSoundingTemplate(const std::string& data_directory, std::string_view file_name,
                                                bool set_as_default);

// cmdDeleteTemplate: the default's file is left as it is.
void DeleteSoundingTemplate(const std::string& data_directory, std::string_view file_name);

// UseSoundingTemplate: each stored name found among the available names, in the template's order;
// a name the sounding lacks is skipped. The positions in available are returned.
std::vector<int> UseSoundingTemplate(const std::vector<std::string>& available,
                                     const std::vector<std::string>& stored);

}  // namespace marlview
