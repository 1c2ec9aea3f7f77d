// The small settings dialogs: general settings, custom headers, the logo's place and size, the two
// template dialogs, and the window helpers they share.
#pragma once

#include <QDialog>
#include <array>
#include <functional>
#include <string>
#include <vector>

#include "core/common/user_prompts.h"
#include "core/settings/report_settings.h"
#include "core/shell/settings_dialogs.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;
class QScrollBar;

namespace marlview {

class Session;

// Centres a window on the screen.
void CenterForm32(QWidget* form);
// Scales a form's controls: the first call records each control's place, size and font size; every
// call sets them to the recorded values times the ratios.
void ScaleFormControls(QWidget* form, double width_ratio, double height_ratio, double font_ratio);

class FrmGeneralSettings : public QDialog {
  Q_OBJECT
 public:
  // on_changed runs after OK, so open charts and plots take the new colours.
  FrmGeneralSettings(Session& session, UserPrompts& prompts, std::function<void()> on_changed = {},
                     QWidget* parent = nullptr);

  QComboBox* cmbCompanyGraphTitle;
  QLineEdit* txtCustomer;
  QComboBox* cmbDefaultSystem;
  QComboBox* cmbDefaultDepthUnits;
  QLineEdit* txtSoilDensity;
  QComboBox* cmbSoilDensityUnits;
  QLineEdit* txtNetAreaRatio;
  QRadioButton* optSuppressDuplicateDepthYes;
  QRadioButton* optSuppressDuplicateDepthNo;
  QLineEdit* txtDuplicateDepthTolerance;
  QRadioButton* optSuppressNotConnectedYes;
  QRadioButton* optSuppressNotConnectedNo;
  QRadioButton* optRemoveRodBreaksYes;
  QRadioButton* optRemoveRodBreaksNo;
  QScrollBar* scrRodBreakThreshold;
  QLabel* lblRodBreakThreshold;
  QScrollBar* scrSBTBrightness;
  QLabel* lblSBTBrightness;
  QScrollBar* scrLogoScaleFactor;
  QLabel* lblLogoScaleFactor;
  QComboBox* cmbBallTipAreaCalculation;
  QPushButton* cmdSelectLogo;
  QPushButton* cmdRemoveLogo;
  QLabel* imgLogo;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;

 private:
  void Fill();
  void Ok();
  void ShowLogo();
  void Handle(const char* source, const std::function<void()>& handler);

  Session& session_;
  UserPrompts& prompts_;
  std::function<void()> on_changed_;
  GeneralSettingsForm form_;
  int16_t shown_density_units_ = 0;
};

class FrmSetSoundingCustomHeaders : public QDialog {
  Q_OBJECT
 public:
  FrmSetSoundingCustomHeaders(Session& session, UserPrompts& prompts, QWidget* parent = nullptr);

  // Control arrays of four: custom header 1 to 4.
  std::vector<QLineEdit*> txtCustomSoundingHeader, txtCustomSoundingHeaderData;
  std::vector<QLineEdit*> txtCustomDissipationHeader, txtCustomDissipationHeaderData;
  std::vector<QLineEdit*> txtCustomSeismicHeader, txtCustomSeismicHeaderData;
  std::vector<QLineEdit*> txtCustomOCPTHeader, txtCustomOCPTHeaderData;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;

 private:
  Session& session_;
  UserPrompts& prompts_;
};

class FrmAdjustLogo : public QDialog {
  Q_OBJECT
 public:
  // report is the report the window was opened from; on_changed draws it again.
  FrmAdjustLogo(Session& session, UserPrompts& prompts, ReportFamily family, LogoReport report,
                std::function<void()> on_changed = {}, QWidget* parent = nullptr);

  QComboBox* cmbPlotPrintLogo;
  QScrollBar* scrLogoScaleFactor;
  QLabel* lblLogoScaleFactor;
  QCheckBox* chkSoundingPlot;
  QCheckBox* chkSoundingList;
  QCheckBox* chkDissipationPlot;
  QCheckBox* chkDissipationList;
  QCheckBox* chkSeismicPlot;
  QCheckBox* chkAllPlotsLists;
  QPushButton* cmdUp;
  QPushButton* cmdDown;
  QPushButton* cmdLeft;
  QPushButton* cmdRight;
  QPushButton* cmdResetToDefault;
  QPushButton* cmdSaveSettings;
  QPushButton* cmdSelectLogo;
  QPushButton* cmdRemoveLogo;

 private:
  std::array<bool, kLogoReportKinds> Ticked() const;
  int16_t* Placement();
  void Changed();
  void Handle(const char* source, const std::function<void()>& handler);

  Session& session_;
  UserPrompts& prompts_;
  ReportFamily family_;
  LogoReport report_;
  std::function<void()> on_changed_;
  std::array<QCheckBox*, kLogoReportKinds> checks_{};
};

// cmdSelectLogo of both logo windows: the picture is loaded first and copied only when it loads.
bool SelectLogo(Session& session, UserPrompts& prompts);

class FrmSoundingSaveTemplate : public QDialog {
  Q_OBJECT
 public:
  FrmSoundingSaveTemplate(Session& session, UserPrompts& prompts, std::vector<std::string> channels,
                          QWidget* parent = nullptr);

  QListWidget* File1;
  QLineEdit* txtTemplateName;
  QCheckBox* chkSetAsDefault;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;

 private:
  Session& session_;
  UserPrompts& prompts_;
  std::vector<std::string> channels_;
};

class FrmSoundingTemplate : public QDialog {
  Q_OBJECT
 public:
  // apply runs UseSoundingTemplate with the chosen template's channels.
  FrmSoundingTemplate(Session& session, UserPrompts& prompts,
                      std::function<void(const std::vector<std::string>&)> apply, QWidget* parent = nullptr);

  QListWidget* File1;
  QListWidget* lstTemplateChannels;
  QCheckBox* chkSetAsDefault;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;
  QPushButton* cmdDeleteTemplate;

 private:
  void RefreshFiles();
  void ShowTemplate();
  std::string Chosen() const;

  Session& session_;
  UserPrompts& prompts_;
  std::function<void(const std::vector<std::string>&)> apply_;
};

}  // namespace marlview
