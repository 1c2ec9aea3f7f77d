// Drives the dissipation mode offscreen from the main window: opening a demo file, the depth list
// and its buttons, the plot window's menus and dialogs, printing to PDF and the T50 utility with
// its held buttons.
#include "ui/dissipation/form2.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QtTest>
#include <memory>

#include "core/common/file_access.h"
#include "support/qt_test_support.h"
#include "support/test_support.h"
#include "ui/dissipation/dissipation_panel.h"
#include "ui/dissipation/frm_scale_dissipation.h"
#include "ui/dissipation/frm_t50_utility.h"
#include "ui/editing/parameter_dialogs_ui.h"
#include "ui/presentation/form4.h"
#include "ui/shell/form1.h"

using marlview::Form2;
using marlview::FrmT50Utility;

class Form2Test : public QObject, protected marlview::test::MainWindowTest {
  Q_OBJECT

 private:
  QStringList Log() const { return marlview::test::LogOf(t_->prompts); }
  void OpenFile(const std::string& path) {
    t_->prompts.Script({path});
    marlview::test::ClickOption(form_->optProcessDissipations);
  }
  void SelectRow(int row) {
    marlview::test::ClickRow(form_->frmDissipations->lstAvailableDissipations, row);
  }
  // Opens the FIELDBOX demo, selects the given rows and plots them; the window is drawn once.
  Form2* OpenPlot(std::initializer_list<int> rows) {
    OpenFile(marlview::test::SamplesDirectory() + "/DIS-A01.DIS");
    for (int row : rows) SelectRow(row);
    t_->prompts.ClearLog();
    QTest::mouseClick(form_->frmDissipations->cmdPlotDissipation, Qt::LeftButton);
    Form2* plot = form_->frmDissipations->PlotWindow();
    if (plot == nullptr || !QTest::qWaitForWindowExposed(plot)) qFatal("no plot window");
    plot->picPlot->repaint();
    return plot;
  }
  // Runs the modal dialog that action opens, with fill applied to it once it shows.
  template <typename Dialog>
  void WithDialog(QAction* action, std::function<void(Dialog*)> fill) {
    marlview::test::AnswerModal<Dialog>(this, std::move(fill));
    action->trigger();
  }
  marlview::Session& S() { return *t_->session; }

 private slots:
  void init() { QVERIFY(StartMainWindow()); }
  void cleanup() { StopMainWindow(); }

  void opensTheDemoFileAndAppliesTheSelectionRules() {
    marlview::DissipationPanel* panel = form_->frmDissipations;
    QVERIFY(!panel->isVisible());
    OpenFile(marlview::test::SamplesDirectory() + "/DIS-A01.DIS");
    QVERIFY(panel->isVisible() && !form_->frmSelectTestType->isVisible());
    QVERIFY(form_->optProcessDissipations->isChecked());
    QCOMPARE(panel->lblAvailableDissipations->text(), QString("AVAILABLE DISSIPATION DEPTHS (m)"));
    QCOMPARE(panel->lstAvailableDissipations->count(), 2);
    QCOMPARE(panel->lstAvailableDissipations->item(1)->text(), QString("12.80"));
    QVERIFY(panel->lblDissipationInfo->text().startsWith("FILENAME: DIS-A01.DIS\nLOCATION: CPT-A01"));
    QVERIFY(!panel->cmdPlotDissipation->isEnabled() && !panel->cmdDissipationDone->isEnabled());
    SelectRow(0);
    QVERIFY(panel->cmdPlotDissipation->isEnabled() && panel->cmdListDissipation->isEnabled());
    SelectRow(1);
    QVERIFY(panel->cmdPlotDissipation->isEnabled() && !panel->cmdListDissipation->isEnabled());
    QTest::mouseClick(panel->cmdDissipationDone, Qt::LeftButton);
    QVERIFY(!panel->isVisible() && form_->frmSelectTestType->isVisible());
    QCOMPARE(S().Dissipation().WaterTableDepth, marlview::kUndefinedWaterTable);

    // A sounding chosen here is refused, and the options come back.
    t_->prompts.ClearLog();
    OpenFile(marlview::test::SamplesDirectory() + "/CPT-A01.DAT");
    QVERIFY(Log().contains("! CPT-A01.DAT is a sounding file"));
    QVERIFY(!panel->isVisible() && form_->frmSelectTestType->isVisible());
    QVERIFY(!form_->optProcessDissipations->isChecked());
  }

  void plotsWithItsMenusAndPrintsToPdf() {
    Form2* plot = OpenPlot({0, 1});
    QCOMPARE(plot->windowTitle(), QString("DISSIPATION PLOT: DIS-A01.DIS"));
    QVERIFY(plot->mnuDissipationVsTime->isChecked() && plot->mnuLinearTime->isChecked());
    QVERIFY(plot->mnuGridMajor->isChecked());
    QCOMPARE(plot->Plot().UnitText, std::string("(kPa)"));
    QCOMPARE(plot->Plot().TimeMax, 30.0f);

    t_->prompts.Script({"Yes"});
    plot->mnuSquareRoot->trigger();
    QVERIFY(plot->mnuSquareRoot->isChecked());
    QVERIFY(Log().contains("? Would you like to set the default format to 'Square Root'? -> Yes"));
    QCOMPARE(marlview::ReadDefaultTimeFormat(S()), int16_t(2));

    // Percent over head with an undefined water table: told, then shown.
    t_->prompts.ClearLog();
    plot->mnuPercentOverHeadDissipationVsTime->trigger();
    QVERIFY(plot->mnuPercentOverHeadDissipationVsTime->isChecked());
    QCOMPARE(Log(),
             QStringList{"! WATER TABLE DEPTH IS CURRENTLY UNDEFINED. CLICK 'Water Table Depth' TO CHANGE IF "
                         "INCORRECT"});
    // The water table dialog derives the head percentages again and the main window shows it.
    WithDialog<marlview::FrmChangeWaterTableDepth>(plot->mnuWaterTable, [](auto* dialog) {
      dialog->txtWaterTableDepth->setText("2.4");
      dialog->cmdOK->click();
    });
    QCOMPARE(S().Dissipation().WaterTableDepth, 2.4f);
    QVERIFY(S().Dissipation().HydrostaticPressure[1] > 40 && S().Dissipation().PercentHead(1, 1) > 0);
    QVERIFY(form_->frmDissipations->lblDissipationInfo->text().contains("WATER TABLE DEPTH: 2.40 (m)"));

    // The scale dialog refuses a bad range and stays; a good one sets the manual scale.
    plot->mnuDissipationVsTime->trigger();
    t_->prompts.Script({"No"});
    plot->mnuLinearTime->trigger();
    QCOMPARE(marlview::ReadDefaultTimeFormat(S()), int16_t(2));
    t_->prompts.ClearLog();
    WithDialog<marlview::FrmScaleDissipation>(plot->mnuScale, [](auto* dialog) {
      dialog->txtPressureMin->setText("500");
      dialog->txtPressureMax->setText("100");
      dialog->cmdOK->click();
      if (!dialog->isVisible()) qFatal("the dialog closed on a bad range");
      dialog->txtPressureMin->setText("0");
      dialog->txtPressureMax->setText("700");
      dialog->cmdOK->click();
    });
    QVERIFY(Log().contains("! Min pressure must be less than max pressure."));
    QVERIFY(plot->Plot().ManualScale);
    QCOMPARE(plot->Plot().PressureMax, 700.0f);

    const std::string pdf = t_->data.File("plot.pdf");
    t_->prompts.Script({pdf});
    plot->mnuPrintToPdf->trigger();
    QVERIFY(marlview::FileExists(pdf));
    QVERIFY(marlview::ReadWholeFile(pdf).starts_with("%PDF"));
  }

  void t50UtilityMovesItsLinesAndFindsT50() {
    Form2* plot = OpenPlot({1});
    t_->prompts.ClearLog();
    plot->mnuT50Util->trigger();
    FrmT50Utility* t50 = plot->T50Window();
    QVERIFY(t50 != nullptr && QTest::qWaitForWindowExposed(t50));
    QVERIFY(plot->Plot().overlay.has_value());
    QVERIFY(t50->lblU0->text().startsWith("U0: "));
    QVERIFY(t50->lblU50->text().startsWith("U50: "));

    // Manual U0 and U100 at 60 % and 30 % of the axis lie on the curve: T50 is found.
    QTest::mouseClick(t50->optManualAdjustment, Qt::LeftButton);
    QCOMPARE(t50->State().U0Mode, int16_t(marlview::kU0Manual));
    QVERIFY2(t50->lblT50->text().startsWith("T50: ") && t50->lblT50->text().endsWith(" Sec"),
             qPrintable(t50->lblT50->text()));

    // A held button moves its line a little more on each tick.
    const int32_t before = t50->State().U100LineY;
    QTest::mousePress(t50->cmdDownU100, Qt::LeftButton);
    QTRY_VERIFY(t50->State().RepeatTicks >= 5);
    QTest::mouseRelease(t50->cmdDownU100, Qt::LeftButton);
    const int ticks = t50->State().RepeatTicks;
    QVERIFY(ticks == 0);
    QVERIFY(t50->State().U100LineY >= before + 15);
    QVERIFY(!t50->tmrRepeat->isActive());

    // A new pressure axis keeps the pivot on its pressure.
    const float pivot = t50->State().PivotPressure;
    t50->txtYmin->setText("0");
    t50->txtYmax->setText("1000");
    QTest::mouseClick(t50->cmdSetScale, Qt::LeftButton);
    QVERIFY(plot->Plot().ManualScale);
    QCOMPARE(plot->Plot().PressureMax, 1000.0f);
    QCOMPARE(t50->txtYmax->text(), QString("1000"));
    QVERIFY(qAbs(t50->State().PivotPressure - pivot) < 1.0f);
    QTest::mouseClick(t50->cmdResetScale, Qt::LeftButton);
    QVERIFY(!plot->Plot().ManualScale);

    // The page carries the lines when asked.
    const std::string pdf = t_->data.File("t50.pdf");
    plot->PrintPlotToPdf(pdf, true);
    QVERIFY(marlview::FileExists(pdf));

    QTest::mouseClick(t50->cmdReturn, Qt::LeftButton);
    QTRY_VERIFY(plot->T50Window() == nullptr);
    QVERIFY(!plot->Plot().overlay.has_value());
    QVERIFY(Log().isEmpty());
  }

  void t50UtilityWorksOutChForTheTestShown() {
    Form2* plot = OpenPlot({1});
    plot->mnuT50Util->trigger();
    FrmT50Utility* t50 = plot->T50Window();
    QVERIFY(t50 != nullptr && QTest::qWaitForWindowExposed(t50));
    QCOMPARE(t50->findChild<QGroupBox*>("fraCh")->title(), QString("ch (Teh and Houlsby 1991)"));
    QCOMPARE(t50->txtRigidityIndex->text(), QString("100"));
    QCOMPARE(t50->txtConeArea->text(), QString("10"));
    QCOMPARE(t50->cmbFilterPosition->currentText(), QString("u2 (shoulder)"));
    QCOMPARE(t50->cmbFilterPosition->itemText(1), QString("u1 (face)"));
    QCOMPARE(t50->chkRootTime->text(), QString("square-root-time start correction"));
    QVERIFY(t50->lblChCm2PerSecond->text().isEmpty());

    // The manual lines lie on the curve, so there is a T50 to work from.
    QTest::mouseClick(t50->optManualAdjustment, Qt::LeftButton);
    const int test = plot->Plot().selection.LastSelected;
    QVERIFY(S().Dissipation().LastConsolidation[static_cast<size_t>(test)].HasT50);
    t_->prompts.ClearLog();
    t50->txtRigidityIndex->setText("0");
    QTest::mouseClick(t50->cmdCalculateCh, Qt::LeftButton);
    t50->txtRigidityIndex->setText("100");
    t50->txtConeArea->setText("ten");
    QTest::mouseClick(t50->cmdCalculateCh, Qt::LeftButton);
    QCOMPARE(Log(), (QStringList{"! Please enter a valid rigidity index", "! Please enter a valid cone area"}));
    QVERIFY(!S().Dissipation().LastConsolidation[static_cast<size_t>(test)].HasCh);

    t50->txtConeArea->setText("10");
    QTest::mouseClick(t50->cmdCalculateCh, Qt::LeftButton);
    const marlview::ConsolidationResult& last = S().Dissipation().LastConsolidation[static_cast<size_t>(test)];
    QVERIFY(last.HasCh && last.T50 == *t50->State().T50);
    QVERIFY2(QRegularExpression("^\\d\\.\\d{4}E[-+]\\d\\d$").match(t50->lblChCm2PerSecond->text()).hasMatch(),
             qPrintable(t50->lblChCm2PerSecond->text()));
    QVERIFY(!t50->lblChM2PerYear->text().isEmpty());

    // Moving a line moves T50: the ch of the old one is no longer shown.
    QTest::mousePress(t50->cmdDownU100, Qt::LeftButton);
    QTRY_VERIFY(t50->State().RepeatTicks >= 3);
    QTest::mouseRelease(t50->cmdDownU100, Qt::LeftButton);
    QVERIFY(!last.HasCh);
    QVERIFY(t50->lblChCm2PerSecond->text().isEmpty());
    QTest::mouseClick(t50->cmdReturn, Qt::LeftButton);
  }

  void returnAsksWhileTheUtilityIsOpen() {
    Form2* plot = OpenPlot({0});
    plot->mnuT50Util->trigger();
    QVERIFY(plot->T50Window() != nullptr);
    t_->prompts.Script({"No"});
    plot->mnuReturn->trigger();
    QVERIFY(plot->isVisible() && plot->T50Window() != nullptr);
    t_->prompts.Script({"Yes"});
    plot->mnuReturn->trigger();
    QTRY_VERIFY(form_->frmDissipations->PlotWindow() == nullptr);
    QVERIFY(
        Log().contains("? THIS WILL CLOSE ALL OPEN WINDOWS AND RETURN TO THE MAIN FORM. CONTINUE? -> Yes"));
  }
};

QTEST_MAIN(Form2Test)
#include "form2_test.moc"
