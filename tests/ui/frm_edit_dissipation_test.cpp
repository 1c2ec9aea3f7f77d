// Drives the dissipation editor offscreen from the main window on the demo file: a cell, the
// pressure unit and a depth changed, saved to a new file and opened again; leaving with unsaved
// changes; the plot's edit menu and a deletion that closes it.
#include "ui/dissipation/frm_edit_dissipation.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QtTest>

#include "core/common/file_access.h"
#include "support/qt_test_support.h"
#include "support/test_support.h"
#include "ui/dissipation/dissipation_edit_dialogs.h"
#include "ui/dissipation/dissipation_panel.h"
#include "ui/dissipation/form2.h"
#include "ui/shell/form1.h"

using marlview::DissipationEditWindow;

class FrmEditDissipationTest : public QObject, protected marlview::test::MainWindowTest {
  Q_OBJECT

 private:
  void OpenFile(const std::string& path) {
    t_->prompts.Script({path});
    marlview::test::ClickOption(form_->optProcessDissipations);
    if (!form_->frmDissipations->isVisible()) qFatal("no dissipation file");
    t_->prompts.ClearLog();
  }
  DissipationEditWindow* OpenEditor() {
    QTest::mouseClick(form_->frmDissipations->cmdEditDissipation, Qt::LeftButton);
    DissipationEditWindow* editor = form_->frmDissipations->EditWindow();
    if (editor == nullptr || !QTest::qWaitForWindowExposed(editor)) qFatal("no editor");
    return editor;
  }
  const marlview::DissipationSet& Set() const { return t_->session->Dissipation(); }

 private slots:
  void init() { QVERIFY(StartMainWindow()); }
  void cleanup() { StopMainWindow(); }

  void editsSavesAndOpensAgain() {
    OpenFile(marlview::test::SamplesDirectory() + "/DIS-A01.DIS");
    DissipationEditWindow* editor = OpenEditor();
    QCOMPARE(editor->objectName(), QString("frmEditTYRDissipation"));
    QCOMPARE(editor->windowTitle(), QString("EDIT DISSIPATION FILE: DIS-A01.DIS"));
    QCOMPARE(editor->cmbDissipationDepth->count(), 2);
    QCOMPARE(editor->cmbDissipationDepth->itemText(1), QString("12.800"));
    QCOMPARE(editor->lblPressureUnits->text(), QString("PRESS (kPa)"));
    QCOMPARE(editor->txtPressureUnits->item(0)->text(), QString("411.3408"));
    QCOMPARE(editor->txtTime->item(0)->text(), QString("1.00"));

    // A bad entry is put back; a good one goes to the store and its percentages.
    editor->txtPressureUnits->item(0)->setText("4a");
    QCOMPARE(editor->txtPressureUnits->item(0)->text(), QString("411.3408"));
    editor->txtPressureUnits->item(0)->setText("500");
    QCOMPARE(Set().RowPressure(1, 1), 500.0f);
    QCOMPARE(Set().PercentMax(1, 1), 100.0f);

    const int psi = editor->cmbPressureUnits->findText("psi");
    QVERIFY(psi >= 0);
    emit editor->cmbPressureUnits->activated(psi);
    QCOMPARE(editor->lblPressureUnits->text(), QString("PRESS (psi)"));
    QCOMPARE(editor->txtPressureUnits->item(0)->text(), QString("72.5189"));

    marlview::test::AnswerModal<marlview::FrmChangeDissipationDepth>(this, [](auto* dialog) {
      dialog->txtNewDissipationDepth->setText("-2");
      QTest::mouseClick(dialog->cmdOK, Qt::LeftButton);
      dialog->txtNewDissipationDepth->setText("7");
      QTest::mouseClick(dialog->cmdOK, Qt::LeftButton);
    });
    QTest::mouseClick(editor->cmdEditDepth, Qt::LeftButton);
    QCOMPARE(marlview::test::LogOf(t_->prompts), QStringList{"! Please enter a valid depth"});
    QCOMPARE(Set().TestDepth[1], 7.0f);
    QCOMPARE(editor->cmbDissipationDepth->itemText(0), QString("7.000"));
    // The main window's list follows at once.
    QCOMPARE(form_->frmDissipations->lstAvailableDissipations->item(0)->text(), QString("7.00"));

    marlview::test::TempDirectory folder;
    const std::string saved = folder.File("EDITED.DIS");
    t_->prompts.Script({saved});
    editor->mnuSaveAs->trigger();
    QVERIFY(marlview::FileExists(saved));
    QCOMPARE(editor->windowTitle(), QString("EDIT DISSIPATION FILE: EDITED.DIS"));
    editor->mnuReturn->trigger();
    QVERIFY(form_->frmDissipations->EditWindow() == nullptr);

    QTest::mouseClick(form_->frmDissipations->cmdDissipationDone, Qt::LeftButton);
    OpenFile(saved);
    QCOMPARE(Set().DissipationCount, 2);
    QCOMPARE(Set().TestDepth[1], 7.0f);
    QVERIFY(std::abs(Set().RowPressure(1, 1) - 72.5189f) < 1e-3f);
    QCOMPARE(Set().RowCount[2], 228);
  }

  void asksBeforeLeavingWithChangesAndFollowsFromThePlot() {
    OpenFile(marlview::test::SamplesDirectory() + "/PXD-B04.DIS");
    marlview::test::ClickRow(form_->frmDissipations->lstAvailableDissipations, 1);
    QTest::mouseClick(form_->frmDissipations->cmdPlotDissipation, Qt::LeftButton);
    marlview::Form2* plot = form_->frmDissipations->PlotWindow();
    QVERIFY(plot != nullptr);
    plot->mnuEdit->trigger();
    DissipationEditWindow* editor = form_->frmDissipations->EditWindow();
    QVERIFY(editor != nullptr);
    QCOMPARE(editor->objectName(), QString("frmEditPXDissipation"));
    QVERIFY(editor->txtPressurePSI == nullptr && editor->mnuCombineDissipations == nullptr);
    QCOMPARE(form_->frmDissipations->PlotWindow(), plot);

    editor->txtHeader.at("Customer")->setText("Someone Else");
    emit editor->txtHeader.at("Customer")->editingFinished();
    QCOMPARE(Set().Customer, std::string("Someone Else"));

    // Deleting a test closes the plot of chosen tests; the main list loses the row.
    t_->prompts.Script({"Yes"});
    QTest::mouseClick(editor->Command1, Qt::LeftButton);
    QCOMPARE(Set().DissipationCount, 2);
    QVERIFY(form_->frmDissipations->PlotWindow() == nullptr);
    QCOMPARE(form_->frmDissipations->lstAvailableDissipations->count(), 2);

    t_->prompts.ClearLog();
    t_->prompts.Script({"No"});
    editor->mnuReturn->trigger();
    QCOMPARE(marlview::test::LogOf(t_->prompts),
             QStringList{"? Changes have been made. Are you sure you want to exit? -> No"});
    QCOMPARE(form_->frmDissipations->EditWindow(), editor);
    t_->prompts.Script({"Yes"});
    editor->mnuReturn->trigger();
    QVERIFY(form_->frmDissipations->EditWindow() == nullptr);
  }
};

QTEST_MAIN(FrmEditDissipationTest)
#include "frm_edit_dissipation_test.moc"
