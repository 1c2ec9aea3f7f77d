// The list window's "AGS4 File..." dialog: the edition, the dissipation and seismic files to add,
// and the rigidity index and cone area their ch is worked out for.
#pragma once

#include <QDialog>
#include <optional>

#include "core/common/user_prompts.h"
#include "core/shell/ags_export_flow.h"

class QComboBox;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace marlview {

class Session;

class FrmAgsExport : public QDialog {
  Q_OBJECT

 public:
  FrmAgsExport(Session& session, UserPrompts& prompts, QWidget* parent = nullptr);

  // What OK accepted; nothing before.
  const std::optional<AgsExportChoice>& Choice() const { return choice_; }

  QComboBox* cmbAgsVersion;
  QListWidget* lstDissipationFiles;
  QPushButton* cmdAddDissipation;
  QPushButton* cmdRemoveDissipation;
  QLineEdit* txtSeismicFile;
  QPushButton* cmdChooseSeismic;
  QLineEdit* txtRigidityIndex;
  QLineEdit* txtConeArea;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;

 private:
  Session& session_;
  UserPrompts& prompts_;
  std::optional<AgsExportChoice> choice_;
};

}  // namespace marlview
