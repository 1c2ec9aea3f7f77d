// The session and where its files live.
#include "core/session/session.h"

#include <cstdlib>
#include <utility>

#include "core/common/file_access.h"

#ifndef MARLVIEW_SOURCE_DATA_DIR
#define MARLVIEW_SOURCE_DATA_DIR "data"
#endif

namespace marlview {
namespace {

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? std::string() : std::string(value);
}

}  // namespace

std::string ResolveDataDirectory(const std::string& override_directory) {
  if (!override_directory.empty()) return override_directory;
  if (auto dir = Environment("MARLVIEW_DATA_DIR"); !dir.empty()) return dir;
  if (auto xdg = Environment("XDG_DATA_HOME"); !xdg.empty()) return xdg + "/Marlview";
  return Environment("HOME") + "/.local/share/Marlview";
}

std::string ResolveDefaultsDirectory(const std::string& program_directory) {
  if (auto dir = Environment("MARLVIEW_DEFAULTS_DIR"); !dir.empty()) return dir;
  if (!program_directory.empty()) {
    const std::string installed = program_directory + "/../share/marlview/defaults";
    if (DirectoryExists(installed)) return installed;
  }
  return std::string(MARLVIEW_SOURCE_DATA_DIR) + "/defaults";
}

Session::Session(SessionPaths paths)
    : paths_(std::move(paths)),
      sounding_(std::make_unique<SoundingStore>()),
      spare_(std::make_unique<SoundingStore>()),
      slots_(std::make_unique<SoundingSlots>()),
      dissipation_(std::make_unique<DissipationSet>()),
      spare_dissipation_(std::make_unique<DissipationSet>()) {}

std::string Session::SettingsPath(const std::string& name) const {
  return paths_.data_directory + "/" + name;
}

void Session::CommitSounding() {
  std::swap(sounding_, spare_);
  // The sounding that was current is done with: its readings' memory goes back at once.
  spare_->ResetSounding();
  slots_->RecordCatalogue(CurrentSlot, *sounding_);
}

std::unique_ptr<SoundingStore> Session::ExchangeSounding(std::unique_ptr<SoundingStore> store) {
  std::swap(sounding_, store);
  return store;
}

void Session::CommitDissipation() { std::swap(dissipation_, spare_dissipation_); }
SeismicStore& Session::Seismic() {
  if (!seismic_) seismic_ = std::make_unique<SeismicStore>();
  return *seismic_;
}

SeismicStore& Session::SpareSeismic() {
  if (!spare_seismic_) spare_seismic_ = std::make_unique<SeismicStore>();
  return *spare_seismic_;
}

void Session::CommitSeismic() {
  Seismic();
  SpareSeismic();
  std::swap(seismic_, spare_seismic_);
}

}  // namespace marlview
