// The seismic export dialogs: a sounding name, a file name and a folder, then the strikes go out as
// text, CSV or DPlot graph files through the core exports.
#pragma once

#include <QDialog>
#include <functional>
#include <string>

#include "core/common/user_prompts.h"
#include "core/seismic/seismic_exports.h"
#include "core/session/session.h"

class QCheckBox;
class QFormLayout;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace marlview {

// The boxes all five dialogs share. The folder starts as the one of the sounding's first file.
class SeismicExportDialog : public QDialog {
  Q_OBJECT
 public:
  QLineEdit* txtSoundingName;
  QLineEdit* txtFileName;
  QLineEdit* txtDirectory;
  QPushButton* cmdBrowse;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;

 protected:
  SeismicExportDialog(const SeismicStore& store, UserPrompts& prompts, const char* name, const QString& title,
                      const char* file_box_name, QWidget* parent);
  SeismicExportBoxes Boxes() const;
  // Runs export on cmdOK; the dialog closes when it reports that it ran past the box checks.
  void OnOk(std::function<bool()> export_files);

  const SeismicStore& store_;
  UserPrompts& prompts_;
  QFormLayout* form_;
};

// frmExportSeismicTXT: every strike of every test, the header as chkIncludeHeader says; the choice
// is kept in the data directory.
class FrmExportSeismicTXT : public SeismicExportDialog {
  Q_OBJECT
 public:
  FrmExportSeismicTXT(const Session& session, const SeismicStore& store, UserPrompts& prompts,
                      QWidget* parent = nullptr);
  QCheckBox* chkIncludeHeader;
};

// frmExportSeismicCSV: every strike of every test.
class FrmExportSeismicCSV : public SeismicExportDialog {
  Q_OBJECT
 public:
  FrmExportSeismicCSV(const SeismicStore& store, UserPrompts& prompts, QWidget* parent = nullptr);
};

// frmExportSingleSeismicTXT and frmExportSingleSeismicCSV: the strikes of the workbench's test.
class FrmExportSingleSeismicTXT : public SeismicExportDialog {
  Q_OBJECT
 public:
  FrmExportSingleSeismicTXT(const SeismicStore& store, int test, UserPrompts& prompts,
                            QWidget* parent = nullptr);
};

class FrmExportSingleSeismicCSV : public SeismicExportDialog {
  Q_OBJECT
 public:
  FrmExportSingleSeismicCSV(const SeismicStore& store, int test, UserPrompts& prompts,
                            QWidget* parent = nullptr);
};

// frmExportSeismicGRF: one graph file per test of the chosen strike(s); a log offers every or every
// second point. Depths in feet when the session shows feet.
class FrmExportSeismicGRF : public SeismicExportDialog {
  Q_OBJECT
 public:
  FrmExportSeismicGRF(const Session& session, const SeismicStore& store, UserPrompts& prompts,
                      QWidget* parent = nullptr);
  // The file name box under its name in this dialog.
  QLineEdit* txtFilenameForGRF;
  QRadioButton* optExportAStrikes;
  QRadioButton* optExportBStrikes;
  QRadioButton* optExportPStrikes;
  QRadioButton* optExportABStrikes;
  QRadioButton* optAllPoints;
  QRadioButton* optAlternatingPoints;
};

}  // namespace marlview
