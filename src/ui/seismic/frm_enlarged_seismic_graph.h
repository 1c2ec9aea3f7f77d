// frmEnlargedSeismicGraph, the enlarged waveform workbench: the strikes of one test large with
// the reference wave, the per-strike conditioning buttons, and the picking of the arrival.
#pragma once

#include <QMainWindow>
#include <QTimer>

#include "core/seismic/seismic_controller.h"

class QAction;
class QLabel;
class QPushButton;
class QRadioButton;

namespace marlview {

class SeismicPicture;

class FrmEnlargedSeismicGraph : public QMainWindow {
  Q_OBJECT

 public:
  FrmEnlargedSeismicGraph(Session& session, UserPrompts& prompts, SeismicController& controller,
                          QWidget* parent = nullptr);

  // UpdateStrikeOptions, SetDataCaptions and GraphStrike: mirrors the controller and redraws.
  void Refresh();

  SeismicPicture* Picture1;
  SeismicPicture* pctZoom;
  QLabel* lblFileName;
  QLabel* lblDepth;
  QLabel* lblXUnits;
  QLabel* lblSAGeophone;
  QLabel* lblSBGeophone;
  QLabel* lblPGeophone;
  QLabel* lblSAOffset;
  QLabel* lblSBOffset;
  QLabel* lblPOffset;
  QLabel* lblTestDepthData;
  QLabel* lblRefTestDepthData;
  QLabel* lblRefTestDelayData;
  QLabel* lblDelayData;
  QLabel* lblAmplitudeData;
  QLabel* lblVelocityData;
  QRadioButton* optAStrike;
  QRadioButton* optBStrike;
  QRadioButton* optPStrike;
  QRadioButton* optArrivalAStrike;
  QRadioButton* optArrivalBStrike;
  QRadioButton* optArrivalPStrike;
  QPushButton* cmdFilter;
  QPushButton* cmdEnhancePlus;
  QPushButton* cmdEnhanceMinus;
  QPushButton* cmdShiftUp;
  QPushButton* cmdShiftDown;
  QPushButton* cmdShiftLeftFine;
  QPushButton* cmdShiftRightFine;
  QPushButton* cmdShiftLeftGross;
  QPushButton* cmdShiftRightGross;
  QPushButton* cmdArrivalLeft;
  QPushButton* cmdArrivalRight;
  QPushButton* cmdResetWave;
  QPushButton* cmdPreviousGraph;
  QPushButton* cmdNextGraph;
  QPushButton* cmdShowHideReference;
  QTimer* tmrFilter;

  QAction* mnuExportASCII;
  QAction* mnuExportCSV;
  QAction* mnuScale;
  QAction* mnuTrimStrike;
  QAction* mnuEditDepth;
  QAction* mnuSwitchSAtoSB;
  QAction* mnuSwitchSBtoSA;
  QAction* mnuSwitchSAandSB;
  QAction* mnuCloneSAtoSB;
  QAction* mnuCloneSBtoSA;
  QAction* mnuRemoveAStrike;
  QAction* mnuRemoveBStrike;
  QAction* mnuRemovePStrike;
  QAction* mnuRemoveAllStrikes;
  QAction* mnuIncludeCoverSheet;
  QAction* mnuNoCoverSheet;
  QAction* mnuReturnToMainSeismic;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void BuildControls();
  void BuildMenus();
  void Connect();
  void Handle(const char* source, const std::function<void()>& handler);
  int SampleAtX(double x) const;

  Session& session_;
  UserPrompts& prompts_;
  SeismicController& controller_;
  int ticks_while_held_ = 0;
};

}  // namespace marlview
