// Form1, the main window: the processing options, the sounding's channel lists and the menus.
#pragma once

#include <QMainWindow>
#include <memory>

#include "core/common/user_prompts.h"
#include "core/session/session.h"
#include "core/shell/shell_controller.h"

class QAction;
class QButtonGroup;
class QCheckBox;
class QGroupBox;
class QLabel;
class QListWidget;
class QPushButton;
class QRadioButton;

namespace marlview {

class DissipationPanel;
class Form4;
class FrmEdit;
class FrmPluralSoundings;
class FrmSoundingData;
class FrmSoundingECPData;
class Seisform;
class FrmVerification;
class FrmVideoProcessor;

class Form1 : public QMainWindow {
  Q_OBJECT

 public:
  Form1(Session& session, UserPrompts& prompts, QWidget* parent = nullptr);
  ~Form1() override;

  ShellController& Controller() { return controller_; }
  // The plot window last opened, until the main window closes it (the user closing it only hides it).
  Form4* PlotWindow() const { return plot_window_.get(); }
  // The list window last opened, kept the same way.
  FrmSoundingData* ListWindow() const { return list_window_.get(); }
  // The ECP window last opened, kept the same way.
  FrmSoundingECPData* EcpWindow() const { return ecp_window_.get(); }
  // The editor last opened, kept the same way.
  FrmEdit* EditWindow() const { return edit_window_.get(); }
  // The seismic log window while seismic mode is on.
  Seisform* SeismicWindow() const { return seismic_window_.get(); }
  FrmVerification* VerificationWindow() const { return verification_window_.get(); }
  // The video window while video mode is on.
  FrmVideoProcessor* VideoWindow() const { return video_window_.get(); }
  // The set of soundings' window while that mode is on.
  FrmPluralSoundings* PluralWindow() const { return plural_window_.get(); }

  QGroupBox* frmSelectTestType;
  QRadioButton* optProcessSounding;
  QRadioButton* optProcessSoundingsBatch;
  QRadioButton* optProcessDissipations;
  QRadioButton* optProcessSeismic;
  QRadioButton* optProcessVideo;
  QRadioButton* optProcessVerification;
  QGroupBox* frmSelectSoundingChannels;
  QLabel* lblSoundingInfo;
  QListWidget* lstAvailableChannels;
  QListWidget* lstSelectedChannels;
  QPushButton* cmdPlotSounding;
  QPushButton* cmdListSounding;
  QPushButton* cmdListECP;
  QPushButton* cmdEditSounding;
  QPushButton* cmdSoundingDone;
  QPushButton* cmdClearSelection;
  QPushButton* cmdSetWaterTableDepth;
  QCheckBox* chkPiezoFilterPresent;
  QAction* mnuAddData;
  QAction* mnuExit;
  QAction* mnuSingleTest;
  QAction* mnuMultipleTests;
  QAction* mnuChannelUnitsFormats;
  QAction* mnuGeneralSettings;
  QAction* mnuNormalisedClassification;
  QAction* mnuSoundingPrintSettings;
  QAction* mnuDissipationPrintSettings;
  QAction* mnuSeismicPrintSettings;
  QAction* mnuSelectTemplate;
  QAction* mnuSaveTemplate;
  QAction* mnuClassificationChart;
  QAction* mnuAbout;
  // lstAvailableDissipations, lblDissipationInfo and the dissipation buttons.
  DissipationPanel* frmDissipations;

 private:
  void BuildControls();
  void BuildMenus();
  void Connect();
  // Mirrors the controller's view into the widgets.
  void Refresh();
  void Handle(const char* source, const std::function<void()>& handler);
  void OpenPlotWindow();
  // Closes the plot window; it is deleted once the event that asked for it is over.
  void ClosePlotWindow();
  void OpenListWindow();
  void CloseListWindow();
  void OpenEcpWindow();
  void CloseEcpWindow();
  // The editor, from the edit button or the plot and list windows' menus; an open one comes to the front.
  void OpenEditWindow();
  void CloseEditWindow();
  // After the editor changed the sounding: the channel lists and every open view follow.
  void SoundingEdited();
  // The plot, list and ECP windows draw the sounding again.
  void RefreshViews();
  void CloseViewWindow(ViewWindow window);
  void OpenSeismicWindow();
  // The log window's way back: closes it and its workbench, and the processing options return.
  void ReturnFromSeismic();
  void OpenVerificationWindow();
  void ReturnFromVerification();
  void OpenVideoWindow();
  // The video window's way back: closes it, and the processing options return.
  void ReturnFromVideo();
  void OpenPluralWindow();
  void ReturnFromPlural();
  // The plot window's way back: closes it and runs the sounding's done flow.
  void ReturnFromPlot();

  Session& session_;
  UserPrompts& prompts_;
  ShellController controller_;
  QButtonGroup* modes_ = nullptr;
  std::unique_ptr<Form4> plot_window_;
  std::unique_ptr<FrmSoundingData> list_window_;
  std::unique_ptr<FrmSoundingECPData> ecp_window_;
  std::unique_ptr<FrmEdit> edit_window_;
  std::unique_ptr<Seisform> seismic_window_;
  std::unique_ptr<FrmVerification> verification_window_;
  std::unique_ptr<FrmVideoProcessor> video_window_;
  std::unique_ptr<FrmPluralSoundings> plural_window_;
};

}  // namespace marlview
