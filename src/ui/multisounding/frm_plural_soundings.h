// The several-soundings windows: frmPluralSoundings with the set's tests and channels, the load
// dialog for many files, the combined and side-by-side plot window, the combined data list and
// the batch export dialog.
#pragma once

#include <QDialog>
#include <QMainWindow>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/common/user_prompts.h"
#include "core/multisounding/batch_export.h"
#include "core/multisounding/combined_list.h"
#include "core/multisounding/set_model.h"
#include "core/multisounding/set_plot.h"

class QAction;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QTreeView;
class QFileSystemModel;

namespace marlview {

class Form4;
class FrmEdit;
class FrmSoundingECPData;
class PlotPicture;
class Session;

// frmLoadMultipleSoundings: a folder, its sounding files, and how many tests the set would hold.
class FrmLoadMultipleSoundings : public QDialog {
  Q_OBJECT
 public:
  FrmLoadMultipleSoundings(Session& session, UserPrompts& prompts, QWidget* parent = nullptr);
  // The files chosen, in the list's order, once OK was accepted.
  const std::vector<std::string>& Chosen() const { return chosen_; }
  const QString& Folder() const { return folder_; }
  // Opens a folder in Dir1 and lists its files.
  void ShowFolder(const QString& folder);

  QComboBox* Drive1;
  QTreeView* Dir1;
  QListWidget* File1;
  QLabel* lblNumberOfSelectedTests;
  QLabel* lblLoading;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;

 private:
  void Accept();
  Session& session_;
  UserPrompts& prompts_;
  QFileSystemModel* folders_;
  QString folder_;
  std::vector<std::string> chosen_;
};

// frmCombinedPlotsData: the read-out beside the set plot, and the depth adjustment of one test
// (titled ADJUST DEPTH beside the side-by-side plot).
class FrmCombinedPlotsData : public QMainWindow {
  Q_OBJECT
 public:
  // on_shift runs after a test's depths moved, so the plot follows.
  FrmCombinedPlotsData(Session& session, UserPrompts& prompts, const SetPlotLayout& layout,
                       std::function<void()> on_shift, QWidget* parent = nullptr);
  // The read-out of the plot's cursor.
  void ShowReadout(const std::optional<SetReadout>& readout);
  // The slot whose depths cmdUp and cmdDown move.
  int AdjustedSlot() const;

  std::vector<QLabel*> lblGraphData;
  QLabel* lblGraphYData;
  QComboBox* cmbAdjustTest;
  QLabel* lblDepthOffset;
  QLabel* lblDepthUnits;
  QPushButton* cmdUp;
  QPushButton* cmdDown;
  QAction* mnuHideDataScreen;

 private:
  void Shift(int steps);
  void ShowOffset();
  Session& session_;
  UserPrompts& prompts_;
  std::vector<int> slots_;
  std::function<void()> on_shift_;
};

// frmCombinedPlots and frmSideBySidePlots: one window, the layout telling which.
class FrmSetPlot : public QMainWindow {
  Q_OBJECT
 public:
  FrmSetPlot(Session& session, UserPrompts& prompts, SetPlotLayout layout, QWidget* parent = nullptr);
  ~FrmSetPlot() override;
  const SetPlotLayout& Layout() const { return layout_; }
  FrmCombinedPlotsData* DataWindow() const { return data_window_.get(); }
  // The layout made again from the set, for a change of depth unit, axis or a test's depths.
  void Relayout();
  // Runs once the data window has moved a test's depths, so an open list follows.
  std::function<void()> depths_shifted;

  PlotPicture* picPlot;
  QLabel* lblDepth;
  std::vector<QLabel*> lblChannelValue;
  QAction* mnuPrintNoCoverSheet;
  QAction* mnuPrintWithCoverSheet;
  QAction* mnuDepth;
  QAction* mnuElevation;
  QAction* mnuGridOn;
  QAction* mnuGridOff;
  QAction* mnuMeters;
  QAction* mnuFeet;
  QAction* mnuDisplayDataScreen;
  QAction* mnuReturn;

 private:
  void UpdateChecks();
  void ToggleDataWindow();
  Session& session_;
  UserPrompts& prompts_;
  SetPlotLayout layout_;
  SetPlotArea area_;
  std::unique_ptr<FrmCombinedPlotsData> data_window_;
};

// frmCombinedSoundingData: the ticked tests on the common grid, with its exports and prints.
class FrmCombinedSoundingData : public QMainWindow {
  Q_OBJECT
 public:
  FrmCombinedSoundingData(Session& session, UserPrompts& prompts, std::vector<std::string> channels,
                          QWidget* parent = nullptr);
  // Writes an export of the form to path as its menu entry does once the file is chosen.
  void SaveTo(CombinedForm form, bool include_header);
  // Puts the test the set window has made current back in its slot, before the list's commands
  // make each test current in turn.
  std::function<void()> put_back_current_test;
  // Runs once the list's commands have changed the tests, so the plot follows.
  std::function<void()> tests_changed;
  // The list shown again from the set, after a change to its tests.
  void Refill();

  QPlainTextEdit* Picture1;
  QAction* mnuSavetxtIncludeHeader;
  QAction* mnuSavetxtDiscardHeader;
  QAction* mnuExportCSVFileIncludeHeader;
  QAction* mnuExportCSVFileDiscardHeader;
  QAction* mnuExportCorFileIncludeHeader;
  QAction* mnuExportCorFileDiscardHeader;
  QAction* mnuPrintNoCoverSheet;
  QAction* mnuPrintWithCoverSheet;
  QAction* mnuRemoveRodBreaks;
  QAction* mnuWetDensity;
  QAction* mnuReturn;

 private:
  void Print(bool cover_sheets);
  // Runs a single-sounding dialog on each ticked test in turn, each made current while it shows.
  void OnEachTest(const char* source, const std::function<void()>& dialog);
  Session& session_;
  UserPrompts& prompts_;
  std::vector<std::string> channels_;
};

// frmBatchExport: which exports and prints run over the ticked tests, into which folder.
class FrmBatchExport : public QDialog {
  Q_OBJECT
 public:
  FrmBatchExport(Session& session, UserPrompts& prompts, std::vector<std::string> channels,
                 QWidget* parent = nullptr);
  // The controls' state.
  BatchSettings Settings() const;
  void Run();

  QCheckBox *chkPrintDepthPlots, *chkPrintList, *chkListTXT, *chkIncludeHeaderTXT, *chkListCSV,
      *chkIncludeHeaderCSV, *chkListCOR, *chkIncludeHeaderCOR, *chkListECP, *chkListgIN, *chkAutoFilenaming;
  QRadioButton *optECPPSI, *optECPTSF, *optECPMPA, *optECPKPA;
  QRadioButton *optgINPSI, *optgINTSF, *optgINMPA, *optgINKPA;
  QCheckBox* chkListAGS;
  QComboBox* cmbAgsVersion;
  QLineEdit* txtExportFolder;
  QPushButton* cmdBrowseFolder;
  QProgressBar* prgExport;
  QPushButton* cmdExportPrint;
  QPushButton* cmdCancel;

 private:
  Session& session_;
  UserPrompts& prompts_;
  std::vector<std::string> channels_;
  bool running_ = false;
  bool cancel_ = false;
};

class FrmPluralSoundings : public QMainWindow {
  Q_OBJECT
 public:
  // on_return runs when the user goes back to the main window; the set is emptied first.
  FrmPluralSoundings(Session& session, UserPrompts& prompts, std::function<void()> on_return,
                     QWidget* parent = nullptr);
  ~FrmPluralSoundings() override;

  // Loads files into the set as the load dialog does once its OK is accepted.
  void LoadFiles(const std::vector<std::string>& paths);
  // Rebuilds the test boxes and the channel lists from the set.
  void LoadSoundings();
  SetView View() const;

  FrmSetPlot* PlotWindow() const { return plot_window_.get(); }
  FrmCombinedSoundingData* ListWindow() const { return list_window_.get(); }
  Form4* BatchPlotWindow() const { return batch_plot_.get(); }
  FrmSoundingECPData* EcpWindow() const { return ecp_window_.get(); }
  FrmEdit* EditWindow() const { return edit_window_.get(); }

  QRadioButton *optBatchSelection, *optCombinedSelection, *optSideBySideSelection;
  QRadioButton *optCommonScaling, *optIndividualScaling;
  QLineEdit* txtDepthInterval;
  std::vector<QCheckBox*> chkSelectTest;
  QListWidget* lstAvailableChannels;
  QListWidget* lstSelectedChannels;
  QPushButton *cmdLoadIndividualTest, *cmdLoadMultipleTests, *cmdPlotSounding, *cmdListSounding, *cmdListECP,
      *cmdEdit, *cmdBatchExport, *cmdClearAll, *cmdClearSelection, *cmdSelectDeselectAll;
  QAction *mnuSaveTemplate, *mnuSelectTemplate, *mnuReturn;

 private:
  void Handle(const char* source, const std::function<void()>& handler);
  void SetSelectOptions();
  void PopulatePluralChannelList();
  void ReadEntries();
  void PlotSounding();
  void ListSounding();
  void BatchPlot();
  // cmdListECP and cmdEdit: the window on the test on show in the batch plot, else the first ticked.
  void ListEcp();
  void EditTest();
  // The channels of the test made current for a single-sounding window, making one current first
  // when none is; empty when no test is ticked.
  std::optional<std::vector<int>> TestForWindow();
  // Makes the ticked test at index current (of the ticked ones), putting back the one before.
  std::vector<int> MakeTestCurrent(int index);
  // The selected channels the current test has, or its default list.
  std::vector<int> CurrentChannels() const;
  // Closes the single-sounding windows on the current test and puts the test back in its slot.
  void PutBackCurrentTest();
  void Return();

  Session& session_;
  UserPrompts& prompts_;
  std::function<void()> on_return_;
  std::vector<std::string> selected_;
  std::unique_ptr<FrmSetPlot> plot_window_;
  std::unique_ptr<FrmCombinedSoundingData> list_window_;
  std::unique_ptr<Form4> batch_plot_;
  std::unique_ptr<FrmSoundingECPData> ecp_window_;
  std::unique_ptr<FrmEdit> edit_window_;
  std::optional<CurrentTest> current_;
  int current_index_ = 0;
};

}  // namespace marlview
