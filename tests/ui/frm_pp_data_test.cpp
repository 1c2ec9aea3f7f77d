// Drives the dissipation list window offscreen from the main window: a demo file's test in
// the grid, the percentage menus with the water table, the exports and the return.
#include "ui/dissipation/frm_pp_data.h"

#include <QAction>
#include <QApplication>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QtTest>
#include <memory>

#include "core/common/file_access.h"
#include "core/dissipation/dissipation_controller.h"
#include "core/shell/shell_controller.h"
#include "support/qt_test_support.h"
#include "support/test_support.h"
#include "ui/dissipation/dissipation_panel.h"
#include "ui/presentation/data_table.h"
#include "ui/shell/form1.h"

using marlview::FrmPPData;

class FrmPPDataTest : public QObject, protected marlview::test::MainWindowTest {
  Q_OBJECT

 private:
  QStringList Log() const { return marlview::test::LogOf(t_->prompts); }
  FrmPPData* OpenList(int row) {
    t_->prompts.Script({marlview::test::SamplesDirectory() + "/DIS-A01.DIS"});
    marlview::test::ClickOption(form_->optProcessDissipations);
    marlview::test::ClickRow(form_->frmDissipations->lstAvailableDissipations, row);
    t_->prompts.ClearLog();
    QTest::mouseClick(form_->frmDissipations->cmdListDissipation, Qt::LeftButton);
    FrmPPData* list = form_->frmDissipations->ListWindow();
    if (list == nullptr || !QTest::qWaitForWindowExposed(list)) qFatal("no list window");
    return list;
  }

 private slots:
  void init() { QVERIFY(StartMainWindow()); }
  void cleanup() { StopMainWindow(); }

  void showsTheSelectedTestAndSwitchesItsColumns() {
    FrmPPData* list = OpenList(1);
    QCOMPARE(list->objectName(), QString("frmPPData"));
    QCOMPARE(list->windowTitle(), QString("DIS-A01.DISDISSIPATION D"));
    QCOMPARE(list->View().test, 2);
    QVERIFY(Log().isEmpty());
    QCOMPARE(list->grdData->RowCount(), 228);
    QCOMPARE(list->grdData->ColumnCount(), 2);
    QCOMPARE(list->grdData->HeadingText(0), QString("   Time\n    (S)"));
    QCOMPARE(list->grdData->HeadingText(1), QString("   Pore Pressure\n           (kPa)"));
    QCOMPARE(list->grdData->CellText(0, 0), QString("    1.0"));
    QCOMPARE(list->grdData->CellText(0, 1), QString("         635.802"));
    QVERIFY(list->lblHeader->toPlainText().contains("DISSIPATION DEPTH (m): 12.80"));
    QVERIFY(list->lblHeader->toPlainText().contains("WATER TABLE DEPTH (m): UNDEFINED"));
    QVERIFY(list->findChild<QScrollBar*>("VScroll1") != nullptr);

    // No water table: the head column cannot be asked for.
    QVERIFY(!list->mnuShowPercentageOverPressure->isEnabled());
    list->mnuShowPercentageMaxPressure->trigger();
    QCOMPARE(list->grdData->ColumnCount(), 3);
    QCOMPARE(list->grdData->CellText(0, 2), QString("           100.00"));
    list->mnuShowPercentageMaxPressure->trigger();
    QCOMPARE(list->grdData->ColumnCount(), 2);

    // With a water table above the test the head column comes in.
    t_->session->Dissipation().WaterTableDepth = 2.4f;
    form_->Controller().Dissipations().WaterTableChanged();
    list->Refill();
    QVERIFY(list->mnuShowPercentageOverPressure->isEnabled());
    list->mnuShowPercentageOverPressure->trigger();
    QCOMPARE(list->grdData->ColumnCount(), 3);
    QCOMPARE(list->grdData->HeadingText(2), QString("   % Over Head Pressure\n                      %"));
  }

  void exportsAskingBeforeReplacingAndReturns() {
    FrmPPData* list = OpenList(0);
    const std::string csv = t_->data.File("a01.csv");
    t_->prompts.Script({t_->data.File("a01")});
    list->mnuShowPercentageMaxPressure->trigger();
    list->mnuExportcsvFile->trigger();
    const std::string bytes = marlview::ReadWholeFile(csv);
    QVERIFY(bytes.starts_with("CPT DATA\r\nFILENAME,DIS-A01.DIS\r\n"));
    QVERIFY(
        bytes.find("\r\nPP TEST DEPTH (m),6.50\r\nTime (S),Pore Pressure (kPa),Percent Max Pressure (%)\r\n"
                   "1.0,411.341,") != std::string::npos);
    const std::string txt = t_->data.File("a01.txt");
    t_->prompts.Script({txt});
    list->mnuSaveFile->trigger();
    QVERIFY(marlview::ReadWholeFile(txt).starts_with(
        "CPT PORE PRESSURE DATA\r\nHARBOURLINE GEOTECHNICAL LTD.\r\n"));
    // A second save to the same file asks first; No leaves it.
    t_->prompts.Script({txt, "No"});
    list->mnuShowPercentageMaxPressure->trigger();
    list->mnuSaveFile->trigger();
    QVERIFY(Log().contains("? a01.txt already exists. Overwrite? -> No"));
    QVERIFY(marlview::ReadWholeFile(txt).find("% Max Pressure") != std::string::npos);

    t_->prompts.ClearLog();
    // The editor opens over the list, which stays.
    list->mnuEdit->trigger();
    QVERIFY(Log().isEmpty());
    QVERIFY(form_->frmDissipations->EditWindow() != nullptr);
    QCOMPARE(form_->frmDissipations->ListWindow(), list);
    list->mnuReturn->trigger();
    QTRY_VERIFY(form_->frmDissipations->ListWindow() == nullptr);
    QVERIFY(form_->frmDissipations->isVisible());
  }
};

QTEST_MAIN(FrmPPDataTest)
#include "frm_pp_data_test.moc"
