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
class PlotPicture;
class Session;

// frmLoadMultipleSoundings: a folder, its sounding files, and how many tests the set would hold.
class FrmLoadMultipleSoundings : public QDialog {
  Q_OBJECT
 public:
  FrmLoadMultipleSoundings(Session& session, UserPrompts& prompts, QWidget* parent = nullptr);
  // The files chosen, in the list's order, once OK was accepted.
  const std::vector<std::string>& Chosen() const { return chosen_; }
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

// frmCombinedPlots and frmSideBySidePlots: one window, the layout telling which.
class FrmSetPlot : public QMainWindow {
  Q_OBJECT
 public:
  FrmSetPlot(Session& session, UserPrompts& prompts, SetPlotLayout layout, QWidget* parent = nullptr);
  const SetPlotLayout& Layout() const { return layout_; }

  PlotPicture* picPlot;
  QLabel* lblDepth;
  std::vector<QLabel*> lblChannelValue;
  QAction* mnuPrintNoCoverSheet;
  QAction* mnuPrintWithCoverSheet;
  QAction* mnuReturn;

 private:
  Session& session_;
  UserPrompts& prompts_;
  SetPlotLayout layout_;
  SetPlotArea area_;
};

// frmCombinedSoundingData: the ticked tests on the common grid, with its exports and prints.
class FrmCombinedSoundingData : public QMainWindow {
  Q_OBJECT
 public:
  FrmCombinedSoundingData(Session& session, UserPrompts& prompts, std::vector<std::string> channels,
                          QWidget* parent = nullptr);
  // Writes an export of the form to path as its menu entry does once the file is chosen.
  void SaveTo(CombinedForm form, bool include_header);

  QPlainTextEdit* Picture1;
  QAction* mnuSavetxtIncludeHeader;
  QAction* mnuSavetxtDiscardHeader;
  QAction* mnuExportCSVFileIncludeHeader;
  QAction* mnuExportCSVFileDiscardHeader;
  QAction* mnuExportCorFileIncludeHeader;
  QAction* mnuExportCorFileDiscardHeader;
  QAction* mnuPrintNoCoverSheet;
  QAction* mnuPrintWithCoverSheet;
  QAction* mnuReturn;

 private:
  void Print(bool cover_sheets);
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

  QRadioButton *optBatchSelection, *optCombinedSelection, *optSideBySideSelection;
  QRadioButton *optCommonScaling, *optIndividualScaling;
  QLineEdit* txtDepthInterval;
  std::vector<QCheckBox*> chkSelectTest;
  QListWidget* lstAvailableChannels;
  QListWidget* lstSelectedChannels;
  QPushButton *cmdLoadIndividualTest, *cmdLoadMultipleTests, *cmdPlotSounding, *cmdListSounding, *cmdBatchExport,
      *cmdClearAll, *cmdClearSelection, *cmdSelectDeselectAll;
  QAction *mnuSaveTemplate, *mnuSelectTemplate, *mnuReturn;

 private:
  void Handle(const char* source, const std::function<void()>& handler);
  void SetSelectOptions();
  void PopulatePluralChannelList();
  void ReadEntries();
  void PlotSounding();
  void ListSounding();
  void BatchPlot();
  // Makes the ticked test at index current (of the ticked ones), putting back the one before.
  std::vector<int> MakeTestCurrent(int index);
  void Return();

  Session& session_;
  UserPrompts& prompts_;
  std::function<void()> on_return_;
  std::vector<std::string> selected_;
  std::unique_ptr<FrmSetPlot> plot_window_;
  std::unique_ptr<FrmCombinedSoundingData> list_window_;
  std::unique_ptr<Form4> batch_plot_;
  std::optional<CurrentTest> current_;
  int current_index_ = 0;
};

}  // namespace marlview
