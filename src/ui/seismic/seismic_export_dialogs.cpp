// The seismic export dialogs.
#include "ui/seismic/seismic_export_dialogs.h"

#include <QCheckBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <filesystem>

#include "ui/common/event_guard.h"
#include "ui/common/named.h"
#include "ui/common/qt_prompts.h"

namespace marlview {
namespace {

std::string Text(const QLineEdit* field) { return field->text().toStdString(); }

QRadioButton* Option(QWidget* parent, QLayout* layout, const char* name, const QString& caption) {
  auto* option = Named(new QRadioButton(caption, parent), name);
  layout->addWidget(option);
  return option;
}

}  // namespace

SeismicExportDialog::SeismicExportDialog(const SeismicStore& store, UserPrompts& prompts, const char* name,
                                         const QString& title, const char* file_box_name, QWidget* parent)
    : QDialog(parent), store_(store), prompts_(prompts) {
  setObjectName(name);
  setWindowTitle(title);
  form_ = new QFormLayout(this);
  txtSoundingName = Named(new QLineEdit(this), "txtSoundingName");
  form_->addRow("SOUNDING NAME", txtSoundingName);
  txtFileName = Named(new QLineEdit(this), file_box_name);
  form_->addRow("FILE NAME", txtFileName);
  const std::string folder = std::filesystem::path(store.TestFile[1]).parent_path().string();
  txtDirectory = Named(new QLineEdit(ToQString(folder), this), "txtDirectory");
  cmdBrowse = Named(new QPushButton("...", this), "cmdBrowse");
  auto* folder_row = new QHBoxLayout;
  folder_row->addWidget(txtDirectory);
  folder_row->addWidget(cmdBrowse);
  form_->addRow("FOLDER", folder_row);
  connect(cmdBrowse, &QPushButton::clicked, this, [this] {
    const QString chosen = QFileDialog::getExistingDirectory(this, "FOLDER", txtDirectory->text());
    if (!chosen.isEmpty()) txtDirectory->setText(chosen);
  });
}

SeismicExportBoxes SeismicExportDialog::Boxes() const {
  return {Text(txtSoundingName), Text(txtFileName), Text(txtDirectory)};
}

void SeismicExportDialog::OnOk(std::function<bool()> export_files) {
  form_->addRow(OkCancelRow(this, cmdOK, cmdCancel));
  connect(cmdOK, &QPushButton::clicked, this, [this, export_files = std::move(export_files)] {
    bool done = false;
    RunGuarded(prompts_, "cmdOK_Click", [&] { done = export_files(); });
    if (done) accept();
  });
}

FrmExportSeismicTXT::FrmExportSeismicTXT(const Session& session, const SeismicStore& store,
                                         UserPrompts& prompts, QWidget* parent)
    : SeismicExportDialog(store, prompts, "frmExportSeismicTXT", "EXPORT SEISMIC TEXT FILES", "txtFileName",
                          parent) {
  const std::string data_directory = session.Paths().data_directory;
  chkIncludeHeader = Named(new QCheckBox("INCLUDE HEADER", this), "chkIncludeHeader");
  chkIncludeHeader->setChecked(ReadTxtHeaderSetting(data_directory));
  form_->addRow(chkIncludeHeader);
  OnOk([this, data_directory] {
    const bool header = chkIncludeHeader->isChecked();
    if (!ExportSeismicText(store_, Boxes(), header, prompts_)) return false;
    WriteTxtHeaderSetting(data_directory, header);
    return true;
  });
}

FrmExportSeismicCSV::FrmExportSeismicCSV(const SeismicStore& store, UserPrompts& prompts, QWidget* parent)
    : SeismicExportDialog(store, prompts, "frmExportSeismicCSV", "EXPORT SEISMIC CSV FILES", "txtFileName",
                          parent) {
  OnOk([this] { return ExportSeismicCsv(store_, Boxes(), prompts_); });
}

FrmExportSingleSeismicTXT::FrmExportSingleSeismicTXT(const SeismicStore& store, int test,
                                                     UserPrompts& prompts, QWidget* parent)
    : SeismicExportDialog(store, prompts, "frmExportSingleSeismicTXT", "EXPORT TEST AS TEXT", "txtFileName",
                          parent) {
  OnOk([this, test] { return ExportSingleSeismicText(store_, test, Boxes(), prompts_); });
}

FrmExportSingleSeismicCSV::FrmExportSingleSeismicCSV(const SeismicStore& store, int test,
                                                     UserPrompts& prompts, QWidget* parent)
    : SeismicExportDialog(store, prompts, "frmExportSingleSeismicCSV", "EXPORT TEST AS CSV", "txtFileName",
                          parent) {
  OnOk([this, test] { return ExportSingleSeismicCsv(store_, test, Boxes(), prompts_); });
}

FrmExportSeismicGRF::FrmExportSeismicGRF(const Session& session, const SeismicStore& store,
                                         UserPrompts& prompts, QWidget* parent)
    : SeismicExportDialog(store, prompts, "frmExportSeismicGRF", "EXPORT GRF FILES", "txtFilenameForGRF",
                          parent) {
  txtFilenameForGRF = txtFileName;
  auto* strikes = new QGroupBox("STRIKES", this);
  auto* strike_rows = new QVBoxLayout(strikes);
  optExportAStrikes = Option(strikes, strike_rows, "optExportAStrikes", "S(A) STRIKES");
  optExportBStrikes = Option(strikes, strike_rows, "optExportBStrikes", "S(B) STRIKES");
  optExportPStrikes = Option(strikes, strike_rows, "optExportPStrikes", "P STRIKES");
  optExportABStrikes = Option(strikes, strike_rows, "optExportABStrikes", "S(A) AND S(B) STRIKES");
  optExportAStrikes->setChecked(true);
  form_->addRow(strikes);
  // Every or every second point is a choice of the log only.
  auto* points = new QGroupBox("POINTS", this);
  auto* point_rows = new QVBoxLayout(points);
  optAllPoints = Option(points, point_rows, "optAllPoints", "ALL POINTS");
  optAlternatingPoints = Option(points, point_rows, "optAlternatingPoints", "ALTERNATING POINTS");
  optAllPoints->setChecked(true);
  points->setVisible(store.AcquisitionFamily == kSlgFamily);
  form_->addRow(points);
  const bool feet = session.DepthUnitIsMetric != 1;
  const float feet_per_metre = session.FeetPerMetre;
  OnOk([this, feet, feet_per_metre] {
    GrfOptions options;
    options.strikes = optExportBStrikes->isChecked()    ? GrfStrikes::kB
                      : optExportPStrikes->isChecked()  ? GrfStrikes::kP
                      : optExportABStrikes->isChecked() ? GrfStrikes::kAB
                                                        : GrfStrikes::kA;
    options.alternating = optAlternatingPoints->isChecked();
    options.feet = feet;
    options.feet_per_metre = feet_per_metre;
    return ExportSeismicGrf(store_, Boxes(), options, prompts_) != GrfExportOutcome::kEmptyBox;
  });
}

}  // namespace marlview
