// The AGS4 dialog: controls named as given; the checks and the files belong to the core's flow.
#include "ui/presentation/ags_export_dialog.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>

#include "core/dissipation/dissipation_readers.h"
#include "core/seismic/seismic_open.h"
#include "core/session/session.h"
#include "ui/common/event_guard.h"
#include "ui/common/named.h"
#include "ui/common/qt_prompts.h"

namespace marlview {
namespace {

constexpr const char* kDissipationFilter = "Dissipation Files (*.DIS)|*.DIS|All Files (*.*)|*.*";

}  // namespace

FrmAgsExport::FrmAgsExport(Session& session, UserPrompts& prompts, QWidget* parent)
    : QDialog(parent), session_(session), prompts_(prompts) {
  setObjectName("frmAgsExport");
  setWindowTitle("AGS4 FILE");
  auto* layout = new QVBoxLayout(this);
  auto* form = new QFormLayout;
  cmbAgsVersion = Named(new QComboBox(this), "cmbAgsVersion");
  for (AgsVersion version : AgsVersions()) cmbAgsVersion->addItem(ToQString(AgsVersionText(version)));
  cmbAgsVersion->setCurrentText(ToQString(AgsVersionText(kDefaultAgsVersion)));
  form->addRow("AGS version", cmbAgsVersion);
  layout->addLayout(form);

  layout->addWidget(new QLabel("Dissipation files to add", this));
  lstDissipationFiles = Named(new QListWidget(this), "lstDissipationFiles");
  layout->addWidget(lstDissipationFiles);
  auto* files = new QHBoxLayout;
  cmdAddDissipation = NamedButton(files, this, "cmdAddDissipation", "ADD...");
  cmdRemoveDissipation = NamedButton(files, this, "cmdRemoveDissipation", "REMOVE");
  layout->addLayout(files);

  auto* seismic = new QHBoxLayout;
  txtSeismicFile = Named(new QLineEdit(this), "txtSeismicFile");
  seismic->addWidget(new QLabel("Seismic file (AGS 4.2)", this));
  seismic->addWidget(txtSeismicFile, 1);
  cmdChooseSeismic = NamedButton(seismic, this, "cmdChooseSeismic", "CHOOSE...");
  layout->addLayout(seismic);

  auto* ch = new QFormLayout;
  txtRigidityIndex = Named(new QLineEdit("100", this), "txtRigidityIndex");
  txtConeArea = Named(new QLineEdit("10", this), "txtConeArea");
  ch->addRow("Rigidity index Ir", txtRigidityIndex);
  ch->addRow("Cone area (cm2)", txtConeArea);
  layout->addLayout(ch);
  layout->addLayout(OkCancelRow(this, cmdOK, cmdCancel));

  connect(cmdAddDissipation, &QPushButton::clicked, this, [this] {
    RunGuarded(prompts_, "cmdAddDissipation_Click", [&] {
      FileDialogRequest request{"Add Dissipation File", kDissipationFilter, 1, session_.DissipationDirectory, {}, false};
      const std::string path = prompts_.OpenFile(request);
      if (!path.empty()) lstDissipationFiles->addItem(ToQString(path));
    });
  });
  connect(cmdRemoveDissipation, &QPushButton::clicked, this, [this] {
    delete lstDissipationFiles->takeItem(lstDissipationFiles->currentRow());
  });
  connect(cmdChooseSeismic, &QPushButton::clicked, this, [this] {
    RunGuarded(prompts_, "cmdChooseSeismic_Click", [&] {
      FileDialogRequest request{"Add Seismic File", kSeismicOpenFilter, 1, {}, {}, false};
      const std::string path = prompts_.OpenFile(request);
      if (!path.empty()) txtSeismicFile->setText(ToQString(path));
    });
  });
  connect(cmdOK, &QPushButton::clicked, this, [this] {
    std::vector<std::string> paths;
    for (int row = 0; row < lstDissipationFiles->count(); ++row) {
      paths.push_back(lstDissipationFiles->item(row)->text().toStdString());
    }
    choice_ = AgsChoiceFromBoxes(cmbAgsVersion->currentText().toStdString(), paths,
                                 txtSeismicFile->text().toStdString(), txtRigidityIndex->text().toStdString(),
                                 txtConeArea->text().toStdString(), prompts_);
    if (choice_) accept();
  });
}

}  // namespace marlview
