// frmPrintSettingsSounding, frmPrintSettingsDissipation and frmPrintSettingsSeismic: the furniture
// of one report kind for either family, edited in the session's model and saved on the save menu.
#pragma once

#include <QDialog>
#include <array>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "core/common/user_prompts.h"
#include "core/settings/report_settings.h"

class QAction;
class QComboBox;
class QLineEdit;
class QRadioButton;
class QTabWidget;
class QVBoxLayout;

namespace marlview {

class Session;

class FrmPrintSettings : public QDialog {
  Q_OBJECT
 public:
  // on_changed runs after each change, so an open report of the kind is drawn again at once.
  FrmPrintSettings(Session& session, UserPrompts& prompts, ReportKind kind, ReportFamily family,
                   std::function<void()> on_changed = {}, QWidget* parent = nullptr);

  // Opened from a list window: a change to the list's settings waits for the list to be loaded again.
  bool list_window_open = false;

  ReportFamily Family() const { return family_; }
  bool Changed() const { return changed_[0] || changed_[1]; }

  QAction* mnuSaveSettings;
  QAction* mnuFieldbox;
  QAction* mnuQ3MTL;
  QAction* mnuSetCustomHeaders;
  QAction* mnuReturn;
  QTabWidget* pages;
  // Every combo and text box, by the name of the line of the file it stands for ("PlotPrintLogo").
  std::map<std::string, QComboBox*> combos;
  std::map<std::string, QLineEdit*> texts;
  // optPlotStyle1 .. optCoverStyle3, by page prefix.
  std::map<std::string, std::array<QRadioButton*, kReportStyles>> styles;

 protected:
  // Escape and the window's close box return as mnuReturn does, asking about unsaved changes.
  void reject() override;

 private:
  void BuildMenus(QWidget* host, QVBoxLayout* layout);
  QWidget* BuildPage(const std::string& prefix, const std::vector<ReportField>& fields);
  QComboBox* AddCombo(const std::string& field);
  // SetHeaders: each combo's list, the header sources of the edited family.
  void SetHeaders();
  // setInitialScreen: every control from the model of the edited family.
  void setInitialScreen();
  // SetHeaderData: the caption and the save menu's text.
  void SetHeaderData();
  void SwitchFamily(ReportFamily family);
  void FieldChanged(const std::string& field);
  // mnuReturn: asks to save when anything changed; false when the window stays.
  bool Return();
  void Save();
  void Handle(const char* source, const std::function<void()>& handler);
  ReportField* Field(std::vector<ReportField>& fields, const std::string& name);

  Session& session_;
  UserPrompts& prompts_;
  ReportKind kind_;
  ReportFamily family_;
  std::function<void()> on_changed_;
  std::array<bool, kReportFamilies> changed_{};
  bool filling_ = false;
};

}  // namespace marlview
