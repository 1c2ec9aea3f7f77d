// The dissipation editors' dialogs: one test's new depth, every depth scaled by a measured over an
// observed depth, and the depth offset of a file appended. OK hands the boxes to the core, which
// checks them; a refused entry is told and the dialog stays open.
#pragma once

#include <QDialog>
#include <string>

class QLabel;
class QLineEdit;
class QPushButton;

namespace marlview {

class DissipationEditor;

class FrmChangeDissipationDepth : public QDialog {
  Q_OBJECT

 public:
  FrmChangeDissipationDepth(DissipationEditor& editor, int test, QWidget* parent = nullptr);

  QLabel* lblCurrentDissipationDepth;
  QLineEdit* txtNewDissipationDepth;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;
};

class FrmAdjustDissipationDepth : public QDialog {
  Q_OBJECT

 public:
  FrmAdjustDissipationDepth(DissipationEditor& editor, QWidget* parent = nullptr);

  QLineEdit* txtTotalDepth;
  QLineEdit* txtMeasuredDepth;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;
};

class FrmTYRAppendDISOffset : public QDialog {
  Q_OBJECT

 public:
  // OK appends the file at path at the offset typed.
  FrmTYRAppendDISOffset(DissipationEditor& editor, std::string path, QWidget* parent = nullptr);

  QLineEdit* txtOffset;
  QLabel* lblDepthUnits;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;
};

}  // namespace marlview
