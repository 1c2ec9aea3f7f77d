// Form1, the main window: the processing options, the sounding's channel lists and the menus.
#pragma once

#include <QMainWindow>

#include "core/common/user_prompts.h"
#include "core/shell/session.h"
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

class Form1 : public QMainWindow {
  Q_OBJECT

 public:
  Form1(Session& session, UserPrompts& prompts, QWidget* parent = nullptr);

  ShellController& Controller() { return controller_; }

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
  QAction* mnuSoundingPrintSettings;
  QAction* mnuDissipationPrintSettings;
  QAction* mnuSeismicPrintSettings;
  QAction* mnuSelectTemplate;
  QAction* mnuSaveTemplate;
  QAction* mnuClassificationChart;
  QAction* mnuAbout;

 private:
  void BuildControls();
  void BuildMenus();
  void Connect();
  // Mirrors the controller's view into the widgets.
  void Refresh();
  void Handle(const char* source, const std::function<void()>& handler);
  QAction* AddMenuAction(class QMenu* menu, const char* name, const QString& caption);

  Session& session_;
  UserPrompts& prompts_;
  ShellController controller_;
  QButtonGroup* modes_ = nullptr;
};

}  // namespace marlview
