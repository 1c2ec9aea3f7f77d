// Drives seismic mode offscreen from the main window: the log window on a demo sounding, its menus
// and hammer distance frame, the workbench with clicks and Shift-clicks, the dialogs, and bad files.
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTableWidget>
#include <QTimer>
#include <QtTest>
#include <algorithm>
#include <filesystem>
#include <memory>
#include <vector>

#include "core/common/file_access.h"
#include "core/common/number_format.h"
#include "support/qt_test_support.h"
#include "support/test_support.h"
#include "ui/seismic/frm_enlarged_seismic_graph.h"
#include "ui/seismic/seismic_dialogs.h"
#include "ui/seismic/seismic_export_dialogs.h"
#include "ui/seismic/seisform.h"
#include "ui/shell/form1.h"

using marlview::FrmEnlargedSeismicGraph;
using marlview::Seisform;

class SeismicWindowsTest : public QObject {
  Q_OBJECT

 private:
  QStringList Log() const { return marlview::test::LogOf(t_->prompts); }
  void ClickSeismicOption() { marlview::test::ClickOption(form_->optProcessSeismic); }
  Seisform* OpenSample(const std::string& name) {
    t_->prompts.Script({marlview::test::SamplesDirectory() + "/" + name});
    ClickSeismicOption();
    Seisform* log = form_->SeismicWindow();
    if (log == nullptr || !QTest::qWaitForWindowExposed(log)) return nullptr;
    t_->prompts.ClearLog();
    return log;
  }
  // Opens test n in the workbench by a double click on its graph.
  FrmEnlargedSeismicGraph* OpenTest(Seisform* log, int n) {
    log->VScroll1->setValue(std::max(1, n - 2));
    QTest::mouseDClick(log->pctSeisGraph[static_cast<size_t>(n)], Qt::LeftButton);
    FrmEnlargedSeismicGraph* bench = log->Workbench();
    if (bench == nullptr || !QTest::qWaitForWindowExposed(bench)) return nullptr;
    bench->Picture1->repaint();
    return bench;
  }
  // The x of Picture1 where the strikes' time stands.
  int XOfTime(FrmEnlargedSeismicGraph* bench, const marlview::SeismicViewState& v, double time_ms) {
    return static_cast<int>((time_ms - v.TimeStart) / (v.TimeEnd - v.TimeStart) * bench->Picture1->width());
  }
  marlview::SeismicStore& Store() { return t_->session->Seismic(); }

  std::unique_ptr<marlview::test::TestSession> t_;
  std::unique_ptr<marlview::Form1> form_;

 private slots:
  void init() {
    t_ = std::make_unique<marlview::test::TestSession>();
    form_ = std::make_unique<marlview::Form1>(*t_->session, t_->prompts);
    form_->show();
    QVERIFY(QTest::qWaitForWindowExposed(form_.get()));
    t_->prompts.ClearLog();
  }
  void cleanup() {
    form_.reset();
    t_.reset();
  }

  void filtersPicksAndReadsVelocitiesOnADemoSounding() {
    Seisform* log = OpenSample("SCPT-A01.SEI");
    QVERIFY(log != nullptr);
    QCOMPARE(log->windowTitle(), QString("SEISMIC TEST: SCPT-A01.SEI"));
    QVERIFY(!form_->frmSelectTestType->isEnabled());
    QCOMPARE(log->findChildren<marlview::SeismicPicture*>("pctSeisGraph").size(), qsizetype{12});
    QVERIFY(log->VScroll1->isVisible());
    QVERIFY(log->Frame3->isVisible());
    QVERIFY(log->lblRightLabel[2]->text().endsWith("Vs: ?"));
    QVERIFY(!log->mnuGain->menuAction()->isVisible());
    QVERIFY(log->mnuRemoveAStrikes->isEnabled() && !log->mnuRemovePStrikes->isEnabled());

    // The log menu's filter smooths every strike.
    const float before = Store().StrikeAmplitude(marlview::StrikeSlot(marlview::kStrikeA, 5), 400);
    log->mnuFilterAllGraphs->trigger();
    QVERIFY(Store().StrikeAmplitude(marlview::StrikeSlot(marlview::kStrikeA, 5), 400) != before);

    // The hammer distance typed into the frame is kept and the velocities follow.
    log->Text6->setText("0.6");
    log->Check1->setChecked(true);
    QTest::mouseClick(log->Command10, Qt::LeftButton);
    QVERIFY(!log->Frame3->isVisible());
    QCOMPARE(QString::fromStdString(marlview::ReadWholeFile(t_->session->SettingsPath("Hammer Distance.txt"))),
             QString("0.6\r\n0\r\n"));
    QVERIFY2(log->lblRightLabel[4]->text().contains("m/S"), qPrintable(log->lblRightLabel[4]->text()));

    FrmEnlargedSeismicGraph* bench = OpenTest(log, 4);
    QVERIFY(bench != nullptr);
    QVERIFY(log->pctSeisGraph[4]->raised && !log->pctSeisGraph[3]->raised);
    QCOMPARE(bench->lblSAGeophone->text(), QString("S(A) GEOPHONE: SGEO1"));
    QVERIFY(bench->optArrivalAStrike->isChecked());
    // The file's pick stands until it is cleared; the clicks below land on the pulse behind it.
    const double on_pulse = Store().DelayTime[4] + 4.0;
    QTest::mouseClick(bench->cmdResetWave, Qt::LeftButton);
    QCOMPARE(Store().ArrivalSample[4], 0.0f);
    QCOMPARE(bench->lblDelayData->text(), QString("N/A"));
    const marlview::SeismicViewState& v = log->Controller().View();
    QTest::mouseClick(bench->Picture1, Qt::LeftButton, {}, QPoint(XOfTime(bench, v, on_pulse), bench->Picture1->height() / 2));
    const float plain = Store().ArrivalSample[4];
    QVERIFY2(std::abs(plain - on_pulse * 10) <= 2, qPrintable(QString::number(plain)));
    QVERIFY(bench->cmdArrivalLeft->isVisible() && bench->cmdArrivalRight->isVisible());
    QTest::mouseClick(bench->cmdArrivalRight, Qt::LeftButton);
    QCOMPARE(Store().ArrivalSample[4], plain + 1);
    // With Shift the click snaps to a peak or trough of the strike.
    QTest::mouseClick(bench->cmdResetWave, Qt::LeftButton);
    QTest::mouseClick(bench->Picture1, Qt::LeftButton, Qt::ShiftModifier, QPoint(XOfTime(bench, v, on_pulse), bench->Picture1->height() / 2));
    const int snapped = static_cast<int>(Store().ArrivalSample[4]);
    QVERIFY(snapped > 0);
    const int slot = marlview::StrikeSlot(marlview::kStrikeA, 4);
    const float here = Store().StrikeAmplitude(slot, snapped);
    const bool peak = here >= Store().StrikeAmplitude(slot, snapped - 1) && here >= Store().StrikeAmplitude(slot, snapped + 1);
    const bool trough = here <= Store().StrikeAmplitude(slot, snapped - 1) && here <= Store().StrikeAmplitude(slot, snapped + 1);
    QVERIFY(peak || trough);
    // The velocities read back in the workbench and in the log window.
    const float velocity = Store().IntervalVelocity[4];
    QVERIFY(velocity > 0);
    QCOMPARE(bench->lblVelocityData->text(), QString::fromStdString(marlview::FormatNumber(velocity, "###0.00")));
    QVERIFY(log->lblRightLabel[4]->text().endsWith(
        QString::fromStdString("Vs: " + marlview::FormatNumber(velocity, "###0.00") + "m/S")));
    // A display shift moves the picture, never the pick.
    const float delay = Store().DelayTime[4];
    QTest::mouseClick(bench->cmdShiftRightGross, Qt::LeftButton);
    QCOMPARE(Store().DelayTime[4], delay);
    QVERIFY(bench->lblSAOffset->text().startsWith("S(A) OFFSET (mS): 2"));
    QTest::mouseClick(bench->cmdNextGraph, Qt::LeftButton);
    QCOMPARE(log->Controller().View().ShownTest, int16_t{5});
    QCOMPARE(bench->lblSAOffset->text(), QString("S(A) OFFSET (mS): 0.0"));
    QVERIFY(Log().isEmpty());

    // Back to the main window: the processing options return.
    log->mnuReturn->trigger();
    QTRY_VERIFY(form_->SeismicWindow() == nullptr);
    QVERIFY(form_->frmSelectTestType->isEnabled());
  }

  void crossCorrelatedVelocitiesStandBesideThePicks() {
    Seisform* log = OpenSample("SCPT-A01.SEI");
    QVERIFY(log != nullptr);
    QCOMPARE(log->mnuTrueIntervalVelocities->text(), QString("True-Interval Velocities (Cross-Correlation)"));
    QTableWidget* table = log->grdVelocities;
    QCOMPARE(table->rowCount(), 12);
    QCOMPARE(table->horizontalHeaderItem(3)->text(), QString("Vs XCORR"));
    QVERIFY(table->item(1, 3)->text().isEmpty());

    log->mnuXcorrStrikeB->trigger();
    QCOMPARE(log->Controller().View().XcorrKind, marlview::kStrikeB);
    log->mnuTrueIntervalVelocities->trigger();
    QVERIFY(Store().XcorrComputed);
    QVERIFY(Log().isEmpty());
    QCOMPARE(table->item(0, 3)->text(), QString("*"));
    QVERIFY(table->item(1, 3)->text().toDouble() > 50);
    QVERIFY2(QRegularExpression("^[01]\\.\\d\\d$").match(table->item(1, 4)->text()).hasMatch(),
             qPrintable(table->item(1, 4)->text()));
    QCOMPARE(table->item(1, 2)->text(), QString("?"));
  }

  void savesTheDemoSoundingAndReopensItToTheSamePicks() {
    Seisform* log = OpenSample("SCPT-A01.SEI");
    QVERIFY(log != nullptr);
    QVERIFY(log->mnuSaveData->isEnabled());
    QVERIFY(log->mnuCombineSEIFiles->isVisible() && !log->mnuCombineSMCFiles->isVisible());
    const int count = Store().TestCount;
    std::vector<float> depths, picks;
    std::vector<int16_t> kinds;
    for (int i = 1; i <= count; ++i) {
      depths.push_back(Store().TestDepth[i]);
      picks.push_back(Store().ArrivalSample[i]);
      kinds.push_back(Store().ArrivalKind[i]);
    }
    QVERIFY(*std::max_element(picks.begin(), picks.end()) > 0);
    // The saved name gets its extension; the demo file itself is left alone.
    const std::string saved = t_->data.File("SAVED");
    t_->prompts.Script({saved});
    log->mnuSaveData->trigger();
    QVERIFY(marlview::FileExists(saved + ".sei"));
    QCOMPARE(Log(), QStringList{QString::fromStdString("save -> " + saved)});
    log->mnuReturn->trigger();
    QTRY_VERIFY(form_->SeismicWindow() == nullptr);

    t_->prompts.Script({saved + ".sei"});
    ClickSeismicOption();
    QVERIFY(form_->SeismicWindow() != nullptr);
    QCOMPARE(int{Store().TestCount}, count);
    for (int i = 1; i <= count; ++i) {
      QCOMPARE(Store().TestDepth[i], depths[static_cast<size_t>(i - 1)]);
      QCOMPARE(Store().ArrivalSample[i], picks[static_cast<size_t>(i - 1)]);
      QCOMPARE(Store().ArrivalKind[i], kinds[static_cast<size_t>(i - 1)]);
    }
  }

  void dialogsOfTheLogWindowAndTheWorkbench() {
    Seisform* log = OpenSample("SCPT-B07.SMC");
    QVERIFY(log != nullptr);
    auto& prompts = t_->prompts;
    {
      marlview::FrmTrimSeismicGraphs trim(log->Controller(), prompts, log);
      trim.txtTrimTime->setText("0");
      trim.cmdOK->click();
      QCOMPARE(Log(), QStringList{"! Invalid time."});
      trim.txtTrimTime->setText("50");
      trim.cmdOK->click();
      QCOMPARE(trim.result(), int(QDialog::Accepted));
      QCOMPARE(log->Controller().View().SeismicTimeAxisMax, 50.0f);
      QCOMPARE(Store().SampleCount[marlview::StrikeSlot(marlview::kStrikeA, 1)], 500);
    }
    FrmEnlargedSeismicGraph* bench = OpenTest(log, 1);
    QVERIFY(bench != nullptr);
    QVERIFY(!bench->cmdPreviousGraph->isEnabled());
    prompts.ClearLog();
    {
      marlview::FrmScaleEnlargedSeismicGraph scale(log->Controller(), prompts, bench);
      scale.txtXmin->setText("10");
      scale.txtXmax->setText("10");
      scale.cmdSetScale->click();
      scale.txtXmin->setText("5");
      scale.txtXmax->setText("30");
      scale.cmdSetScale->click();
    }
    QCOMPARE(Log(), QStringList{"! Xmin must be less than Xmax"});
    QCOMPARE(log->Controller().View().TimeEnd, 30.0f);
    // Clone A to B mirrors the wave.
    bench->mnuCloneSAtoSB->trigger();
    const int a = marlview::StrikeSlot(marlview::kStrikeA, 1), b = marlview::StrikeSlot(marlview::kStrikeB, 1);
    QCOMPARE(Store().StrikeAmplitude(b, 100), -Store().StrikeAmplitude(a, 100));
    // Held down, the filter smooths at each tick of its timer.
    const float raw = Store().StrikeAmplitude(a, 200);
    QTest::mousePress(bench->cmdFilter, Qt::LeftButton);
    QTest::qWait(300);
    QTest::mouseRelease(bench->cmdFilter, Qt::LeftButton);
    QVERIFY(Store().StrikeAmplitude(a, 200) != raw);
    bench->mnuReturnToMainSeismic->trigger();
    QVERIFY(!bench->isVisible());
  }

  void writesDelaysAndVelocitiesAndRemovesStrikesFromTheMenus() {
    Seisform* log = OpenSample("SCPT-A01.SEI");
    QVERIFY(log != nullptr);
    log->Text6->setText("0.6");
    QTest::mouseClick(log->Command10, Qt::LeftButton);
    const std::string dly = t_->data.File("A01"), vss = t_->data.File("A01.vss");
    t_->prompts.Script({dly, "Yes", vss});
    log->mnuGenDelay->trigger();
    log->mnuGenVelocity->trigger();
    QVERIFY(marlview::FileExists(dly + ".dly"));
    const std::string velocities = marlview::ReadWholeFile(vss);
    QVERIFY(velocities.starts_with("step\r\nSeismic Velocity\r\n"));
    QCOMPARE(std::count(velocities.begin(), velocities.end(), '\n'), 5 + 11);
    QCOMPARE(Log().filter("?"), QStringList{"? Not all velocities have been determined. Continue? -> Yes"});
    log->mnuRemoveBStrikes->trigger();
    QVERIFY(!log->mnuRemoveBStrikes->isEnabled() && log->mnuRemoveAStrikes->isEnabled());
    QCOMPARE(log->findChildren<marlview::SeismicPicture*>("pctSeisGraph").size(), qsizetype{12});
    for (int i = 1; i <= 12; ++i) QVERIFY(!Store().HasStrike(marlview::kStrikeB, i));
    QVERIFY(Store().IntervalVelocity[5] > 0);
  }

  void aLogShowsOneRowPerSecondWithItsGain() {
    Seisform* log = OpenSample("SCPT-C12.SLG");
    QVERIFY(log != nullptr);
    QCOMPARE(log->findChildren<marlview::SeismicPicture*>("pctSeisGraph").size(), qsizetype{4});
    QVERIFY(!log->VScroll1->isVisible());
    QVERIFY(log->mnuGain->menuAction()->isVisible() && log->mnuShiftLogStrike->isVisible());
    QCOMPARE(log->mnuFilterAllGraphs->text(), QString("Filter"));
    QCOMPARE(log->mnuRemoveStrikes->title(), QString("Remove Wave"));
    QVERIFY(log->mnuGainEntries[0]->isChecked());
    log->mnuGainEntries[3]->trigger();
    QVERIFY(log->mnuGainEntries[3]->isChecked());
    QCOMPARE(log->mnuGain->title(), QString("&Gain (x10)"));
    QTimer::singleShot(0, this, [] {
      auto* dialog = qobject_cast<marlview::FrmTrimSeismicLog*>(QApplication::activeModalWidget());
      QVERIFY(dialog != nullptr);
      QCOMPARE(dialog->cmbTrimSeconds->count(), 4);
      dialog->cmbTrimSeconds->setCurrentIndex(1);
      dialog->cmdOK->click();
    });
    log->mnuTrimGraphs->trigger();
    QCOMPARE(log->findChildren<marlview::SeismicPicture*>("pctSeisGraph").size(), qsizetype{2});
    // The shift dialog starts on the last strike the log has, B, and moves the whole column.
    const float before = Store().LogAmplitude(100, 1);
    QTimer::singleShot(0, this, [] {
      auto* dialog = qobject_cast<marlview::FrmShiftStrikeUpDown*>(QApplication::activeModalWidget());
      QVERIFY(dialog != nullptr);
      QVERIFY(dialog->optShiftBStrike->isChecked() && !dialog->optShiftPStrike->isEnabled());
      dialog->cmdShiftUp->click();
      dialog->cmdOK->click();
    });
    log->mnuShiftLogStrike->trigger();
    QCOMPARE(Store().LogAmplitude(100, 1), before + 0.05f);
    // The workbench shows one second, and picks are off.
    FrmEnlargedSeismicGraph* bench = OpenTest(log, 2);
    QVERIFY(bench != nullptr);
    QCOMPARE(bench->lblXUnits->text(), QString("Time (S)"));
    QVERIFY(!bench->optArrivalAStrike->isEnabled() && !bench->cmdResetWave->isEnabled());
    QTest::mouseClick(bench->Picture1, Qt::LeftButton, {}, QPoint(100, 100));
    QCOMPARE(Store().ArrivalSample[1], 0.0f);
    QVERIFY(!bench->cmdNextGraph->isEnabled());
  }

  void delayWarningOpensAtLoadingAndKeepsTheChosenWaves() {
    t_->data.Write("MIXED.SEI", marlview::ReadWholeFile(marlview::test::SamplesDirectory() + "/SCPT-A01.SEI"));
    std::string bytes = marlview::ReadWholeFile(t_->data.File("MIXED.SEI"));
    // The second test's pick made on a P strike of its own.
    const size_t second = bytes.find("003.00 m");
    const size_t arrival = bytes.find('A', bytes.find("\r\n", bytes.find("\r\n", bytes.find("\r\n", bytes.find("\r\n", second) + 2) + 2) + 2));
    bytes[arrival] = 'Z';
    const size_t list = bytes.find("A(SGEO1)B(SGEO2)", second);
    bytes.replace(list, 16, "A(SGEO1)Z(PGEO) ");
    t_->data.Write("MIXED.SEI", bytes);
    QTimer::singleShot(0, this, [] {
      auto* dialog = qobject_cast<marlview::FrmDelayWarning*>(QApplication::activeModalWidget());
      QVERIFY(dialog != nullptr);
      QVERIFY(!dialog->cmdOK->isEnabled());
      dialog->optPWave->click();
      QVERIFY(dialog->cmdOK->isEnabled());
      dialog->cmdOK->click();
    });
    t_->prompts.Script({t_->data.File("MIXED.SEI")});
    ClickSeismicOption();
    Seisform* log = form_->SeismicWindow();
    QVERIFY(log != nullptr);
    QCOMPARE(Store().ArrivalKind[2], marlview::kStrikeP);
    QVERIFY(Store().DelayTime[2] > 0);
    QCOMPARE(Store().ArrivalSample[1], 0.0f);
    QVERIFY(log->Workbench() != nullptr && log->Workbench()->isVisible());
  }

  void exportsFromTheLogWindowAndTheWorkbench() {
    Seisform* log = OpenSample("SCPT-A01.SEI");
    QVERIFY(log != nullptr);
    marlview::test::TempDirectory out;
    const QString folder = QString::fromStdString(out.Path());
    // An empty box keeps the dialog open with its message; filled boxes write and close it.
    bool still_open = false;
    QTimer::singleShot(0, this, [&] {
      auto* dialog = qobject_cast<marlview::FrmExportSeismicTXT*>(QApplication::activeModalWidget());
      QVERIFY(dialog != nullptr);
      dialog->txtFileName->setText("site.txt");
      dialog->cmdOK->click();
      still_open = dialog->isVisible();
      dialog->txtSoundingName->setText("Harbour");
      dialog->txtDirectory->setText(folder);
      dialog->chkIncludeHeader->setChecked(false);
      dialog->cmdOK->click();
    });
    log->mnuExportTXT->trigger();
    QVERIFY(still_open);
    QCOMPARE(Log(), QStringList{"! Please enter a sounding name"});
    const std::string first = out.File("site_" + marlview::FormatNumber(Store().TestDepth[1], "000.00") + "m_L_strike(001).txt");
    QVERIFY(marlview::FileExists(first));
    QVERIFY(marlview::ReadWholeFile(first).starts_with("   Depth: "));
    QCOMPARE(QString::fromStdString(marlview::ReadWholeFile(t_->data.File("Print Seismic TXT Export Header.txt"))),
             QString("0\r\n"));
    t_->prompts.ClearLog();

    QTimer::singleShot(0, this, [&] {
      auto* dialog = qobject_cast<marlview::FrmExportSeismicGRF*>(QApplication::activeModalWidget());
      QVERIFY(dialog != nullptr);
      QVERIFY(dialog->optExportAStrikes->isChecked());
      QVERIFY(!dialog->optAllPoints->isVisibleTo(dialog));
      dialog->txtSoundingName->setText("Harbour");
      dialog->txtFilenameForGRF->setText("site");
      dialog->txtDirectory->setText(folder + "/grf");
      dialog->cmdOK->click();
    });
    std::filesystem::create_directories(out.Path() + "/grf");
    log->mnuExportGRF->trigger();
    QCOMPARE(Log(), QStringList{"! CONVERSION COMPLETED"});
    const auto grf = std::distance(std::filesystem::directory_iterator(out.Path() + "/grf"), {});
    QCOMPARE(static_cast<int>(grf), static_cast<int>(Store().TestCount));
    t_->prompts.ClearLog();

    FrmEnlargedSeismicGraph* bench = OpenTest(log, 3);
    QVERIFY(bench != nullptr);
    QTimer::singleShot(0, this, [&] {
      auto* dialog = qobject_cast<marlview::FrmExportSingleSeismicCSV*>(QApplication::activeModalWidget());
      QVERIFY(dialog != nullptr);
      dialog->txtSoundingName->setText("Harbour");
      dialog->txtFileName->setText("one");
      dialog->txtDirectory->setText(folder + "/grf");
      dialog->cmdOK->click();
    });
    bench->mnuExportCSV->trigger();
    const std::string single =
        out.File("grf/one_" + marlview::FormatNumber(Store().TestDepth[3], "000.00") + "m_L_strike(003).csv");
    QVERIFY(marlview::ReadWholeFile(single).starts_with("Sounding,Harbour      "));
    QVERIFY(Log().isEmpty());
  }

  void badFilesOfEachFamilyLeaveTheProgramUsable() {
    t_->data.Write("BAD.SEI", "KORVAN FILE VER: SEI\r\n");
    t_->data.Write("BAD.SMC", "PX DAS Seismic File 2015.08.07.1\r\n");
    t_->data.Write("BAD.SLG", "");
    t_->data.Write("BAD001", "ACME\r\nPressure log\r\n");
    const std::string files[] = {"BAD.SEI", "BAD.SMC", "BAD.SLG", "BAD001"};
    for (const std::string& name : files) {
      t_->prompts.Script({t_->data.File(name), "No"});
      ClickSeismicOption();
      QVERIFY2(form_->SeismicWindow() == nullptr, name.c_str());
      QVERIFY(form_->frmSelectTestType->isEnabled() && !form_->optProcessSeismic->isChecked());
    }
    const QStringList log = Log();
    QCOMPARE(log.size(), 9);
    QCOMPARE(log[1], QString("! Marlview has encountered an error: Error #62: 'Input past end of file' from 'ReadSeiFile'"));
    QCOMPARE(log[3], QString("! Marlview has encountered an error: Error #62: 'Input past end of file' from 'ReadSmcFile'"));
    QCOMPARE(log[5], QString("! Marlview has encountered an error: Error #62: 'Input past end of file' from 'ReadSlgFile'"));
    QCOMPARE(log[8], QString::fromStdString("! " + t_->data.File("BAD001") + " is not a valid seismic file"));
    QVERIFY(OpenSample("SCPT-A01.SEI") != nullptr);
  }
};

QTEST_MAIN(SeismicWindowsTest)
#include "seismic_windows_test.moc"
