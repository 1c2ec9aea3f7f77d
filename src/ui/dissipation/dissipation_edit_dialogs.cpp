// The dissipation editors' dialogs.
#include "ui/dissipation/dissipation_edit_dialogs.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <functional>

#include "core/dissipation/dissipation_editor.h"
#include "ui/common/event_guard.h"
#include "ui/common/named.h"
#include "ui/common/qt_prompts.h"

namespace marlview {
namespace {

// OK runs the operation through the guard and closes the dialog when it went through.
void OnOk(QDialog* dialog, QPushButton* ok, UserPrompts& prompts, std::function<bool()> operation) {
  QObject::connect(ok, &QPushButton::clicked, dialog, [dialog, &prompts, operation = std::move(operation)] {
    bool done = false;
    RunGuarded(prompts, "cmdOK_Click", [&] { done = operation(); });
    if (done) dialog->accept();
  });
}

std::string Entry(const QLineEdit* box) { return box->text().toStdString(); }

}  // namespace

FrmChangeDissipationDepth::FrmChangeDissipationDepth(DissipationEditor& editor, int test, QWidget* parent)
    : QDialog(parent) {
  setObjectName("frmChangeDissipationDepth");
  setWindowTitle("CHANGE DISSIPATION DEPTH");
  auto* layout = new QGridLayout(this);
  const QString unit = ToQString(editor.DepthUnitCaption());
  layout->addWidget(new QLabel("CURRENT DEPTH " + unit, this), 0, 0);
  lblCurrentDissipationDepth = Named(
      new QLabel(ToQString(editor.DepthEntries().at(static_cast<size_t>(test - 1))), this), "lblCurrentDissipationDepth");
  layout->addWidget(lblCurrentDissipationDepth, 0, 1);
  layout->addWidget(new QLabel("NEW DEPTH " + unit, this), 1, 0);
  txtNewDissipationDepth = Named(new QLineEdit(this), "txtNewDissipationDepth");
  layout->addWidget(txtNewDissipationDepth, 1, 1);
  layout->addLayout(OkCancelRow(this, cmdOK, cmdCancel), 2, 0, 1, 2);
  OnOk(this, cmdOK, editor.Prompts(),
       [this, &editor, test] { return editor.ChangeDepth(test, Entry(txtNewDissipationDepth)); });
}

FrmAdjustDissipationDepth::FrmAdjustDissipationDepth(DissipationEditor& editor, QWidget* parent) : QDialog(parent) {
  setObjectName("frmAdjustDissipationDepth");
  setWindowTitle("ADJUST DISSIPATION DEPTHS");
  auto* layout = new QGridLayout(this);
  const QString unit = ToQString(editor.DepthUnitCaption());
  layout->addWidget(new QLabel("MEASURED (TOTAL) DEPTH " + unit, this), 0, 0);
  txtTotalDepth = Named(new QLineEdit(this), "txtTotalDepth");
  layout->addWidget(txtTotalDepth, 0, 1);
  layout->addWidget(new QLabel("OBSERVED DEPTH " + unit, this), 1, 0);
  txtMeasuredDepth = Named(new QLineEdit(this), "txtMeasuredDepth");
  layout->addWidget(txtMeasuredDepth, 1, 1);
  layout->addLayout(OkCancelRow(this, cmdOK, cmdCancel), 2, 0, 1, 2);
  OnOk(this, cmdOK, editor.Prompts(),
       [this, &editor] { return editor.AdjustDepths(Entry(txtTotalDepth), Entry(txtMeasuredDepth)); });
}

FrmTYRAppendDISOffset::FrmTYRAppendDISOffset(DissipationEditor& editor, std::string path, QWidget* parent)
    : QDialog(parent) {
  setObjectName("frmTYRAppendDISOffset");
  setWindowTitle("DEPTH OFFSET OF THE FILE ADDED");
  auto* layout = new QGridLayout(this);
  layout->addWidget(new QLabel("OFFSET", this), 0, 0);
  txtOffset = Named(new QLineEdit("0", this), "txtOffset");
  layout->addWidget(txtOffset, 0, 1);
  lblDepthUnits = Named(new QLabel(ToQString(editor.DepthUnitCaption()), this), "lblDepthUnits");
  layout->addWidget(lblDepthUnits, 0, 2);
  layout->addLayout(OkCancelRow(this, cmdOK, cmdCancel), 1, 0, 1, 3);
  OnOk(this, cmdOK, editor.Prompts(),
       [this, &editor, path = std::move(path)] { return editor.AppendWithOffset(path, Entry(txtOffset)); });
}

}  // namespace marlview
