// PROCESS MULTIPLE SOUNDINGS offscreen: the demo set loaded through the load dialog, three tests
// ticked, both plot modes drawn with their view menus and depth adjustment, the ECP list and the
// editor of a test, the list's density command over the ticked tests, a combined csv saved and a
// batch export run into a folder.
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest>
#include <filesystem>

#include "core/common/file_access.h"
#include "support/qt_test_support.h"
#include "ui/multisounding/frm_plural_soundings.h"
#include "ui/editing/frm_edit.h"
#include "ui/editing/parameter_dialogs_ui.h"
#include "ui/presentation/ecp_window.h"
#include "ui/presentation/form4.h"
#include "ui/presentation/frm_enlarged_tip_graph.h"

using marlview::FrmBatchExport;
using marlview::FrmCombinedPlotsData;
using marlview::FrmLoadMultipleSoundings;
using marlview::FrmPluralSoundings;

class PluralSoundingsTest : public QObject, marlview::test::MainWindowTest {
  Q_OBJECT

  // Clicks button of the dialog each of the three ticked tests shows in turn, counting them.
  template <typename Dialog>
  void AnswerEachTest(QPushButton* Dialog::*button, int& shown) {
    marlview::test::AnswerModal<Dialog>(this, [this, button, &shown](Dialog* dialog) {
      QTest::mouseClick(dialog->*button, Qt::LeftButton);
      if (++shown < 3) AnswerEachTest<Dialog>(button, shown);
    });
  }

 private slots:
  void init() { QVERIFY(StartMainWindow()); }
  void cleanup() { StopMainWindow(); }

  void loadsTheDemoSetPlotsListsAndExports() {
    marlview::test::ClickOption(form_->optProcessSoundingsBatch);
    FrmPluralSoundings* window = form_->PluralWindow();
    QVERIFY(window != nullptr);
    QVERIFY(!form_->frmSelectTestType->isEnabled());

    // The demo soundings of every family, chosen in the load dialog (a GEF dissipation report is
    // listed too, but it is no sounding).
    marlview::test::AnswerModal<FrmLoadMultipleSoundings>(this, [](FrmLoadMultipleSoundings* dialog) {
      dialog->ShowFolder(QString::fromStdString(marlview::test::SamplesDirectory()));
      for (int row = 0; row < dialog->File1->count(); ++row) {
        const QString name = dialog->File1->item(row)->text();
        if (!name.contains("D03") && !name.startsWith("DIS-")) dialog->File1->item(row)->setSelected(true);
      }
      QVERIFY(dialog->lblNumberOfSelectedTests->text().startsWith("NUMBER OF LOADED + CURRENTLY SELECTED TESTS: "));
      QTest::mouseClick(dialog->cmdOK, Qt::LeftButton);
    });
    QTest::mouseClick(window->cmdLoadMultipleTests, Qt::LeftButton);
    const size_t loaded = t_->session->set.tests.size();
    QVERIFY2(loaded >= 5, qPrintable(marlview::test::LogOf(t_->prompts).join('\n')));
    QVERIFY(window->chkSelectTest[loaded - 1]->isVisible());
    QVERIFY(!window->chkSelectTest[loaded]->isVisible());

    // Three tests ticked: every box cleared, then the first three.
    QTest::mouseClick(window->cmdClearSelection, Qt::LeftButton);
    for (int t = 0; t < 3; ++t) window->chkSelectTest[static_cast<size_t>(t)]->click();
    QCOMPARE(marlview::SelectedTests(*t_->session), (std::vector<int>{1, 2, 3}));
    marlview::test::ClickRow(window->lstAvailableChannels, 0);
    marlview::test::ClickRow(window->lstAvailableChannels, 3);
    QCOMPARE(window->lstSelectedChannels->count(), 2);
    window->txtDepthInterval->setText("0.05");

    window->optCombinedSelection->click();
    QVERIFY(t_->session->CombinedModeActive);
    QCOMPARE(window->lstSelectedChannels->count(), 0);
    marlview::test::ClickRow(window->lstAvailableChannels, 0);
    marlview::test::ClickRow(window->lstAvailableChannels, 3);
    QTest::mouseClick(window->cmdPlotSounding, Qt::LeftButton);
    QVERIFY(window->PlotWindow() != nullptr);
    QCOMPARE(window->PlotWindow()->Layout().legend.size(), size_t{3});
    QVERIFY(!window->PlotWindow()->picPlot->grab().isNull());
    // The read-out follows the cursor across the panels.
    QVERIFY(QTest::qWaitForWindowExposed(window->PlotWindow()));
    marlview::PlotPicture* picture = window->PlotWindow()->picPlot;
    picture->repaint();
    QTest::mouseMove(window->PlotWindow()->windowHandle(),
                     picture->mapTo(window->PlotWindow(), QPoint(picture->width() / 2, picture->height() / 2)));
    QTRY_VERIFY(!window->PlotWindow()->lblDepth->text().isEmpty());
    QVERIFY(!window->PlotWindow()->lblChannelValue[0]->text().isEmpty());

    // The view menus lay the plot out again: elevation without grid in feet, then back.
    marlview::FrmSetPlot* combined = window->PlotWindow();
    combined->mnuElevation->trigger();
    combined->mnuGridOff->trigger();
    combined->mnuFeet->trigger();
    QCOMPARE(QString::fromStdString(combined->Layout().depth_label), QString("Elev. (ft)"));
    QVERIFY(!combined->Layout().grid_on);
    QVERIFY(combined->mnuFeet->isChecked());
    combined->mnuMeters->trigger();
    combined->mnuDepth->trigger();
    combined->mnuGridOn->trigger();
    QCOMPARE(QString::fromStdString(combined->Layout().depth_label), QString("Depth (m)"));

    // The data window moves the second test a step down and back up; an open list follows.
    QTest::mouseClick(window->cmdListSounding, Qt::LeftButton);
    QVERIFY(window->ListWindow() != nullptr && window->ListWindow()->isVisible());
    const QString list_before = window->ListWindow()->Picture1->toPlainText();
    combined->mnuDisplayDataScreen->trigger();
    FrmCombinedPlotsData* data = combined->DataWindow();
    QVERIFY(data != nullptr && data->isVisible());
    QCOMPARE(combined->mnuDisplayDataScreen->text(), QString("Hide Data Window"));
    data->cmbAdjustTest->setCurrentIndex(1);
    const double deepest = combined->Layout().legend[1].max_depth;
    QTest::mouseClick(data->cmdDown, Qt::LeftButton);
    QCOMPARE(data->lblDepthOffset->text(), QString("0.05"));
    QVERIFY(window->ListWindow()->Picture1->toPlainText() != list_before);
    QVERIFY(qAbs(combined->Layout().legend[1].max_depth - deepest - 0.05) < 1e-4);
    QTest::mouseClick(data->cmdUp, Qt::LeftButton);
    QCOMPARE(data->lblDepthOffset->text(), QString("0.00"));
    QCOMPARE(window->ListWindow()->Picture1->toPlainText(), list_before);
    window->ListWindow()->close();

    window->optSideBySideSelection->click();
    marlview::test::ClickRow(window->lstAvailableChannels, 0);
    QTest::mouseClick(window->cmdPlotSounding, Qt::LeftButton);
    QCOMPARE(window->PlotWindow()->windowTitle(), QString("SIDE-BY-SIDE CHANNEL PLOT"));
    QVERIFY(!window->PlotWindow()->picPlot->grab().isNull());
    window->PlotWindow()->mnuDisplayDataScreen->trigger();
    QCOMPARE(window->PlotWindow()->DataWindow()->windowTitle(), QString("ADJUST DEPTH"));

    // Batch: the sounding plot window on the first ticked test, its buttons stepping through the set.
    window->optBatchSelection->click();
    QVERIFY(!t_->session->CombinedModeActive);
    marlview::test::ClickRow(window->lstAvailableChannels, 0);
    QTest::mouseClick(window->cmdPlotSounding, Qt::LeftButton);
    marlview::Form4* plot = window->BatchPlotWindow();
    QVERIFY(plot != nullptr);
    QVERIFY(plot->cmdNextTest->isVisible());
    const std::string second = marlview::TestName(*t_->session, 2);
    QTest::mouseClick(plot->cmdNextTest, Qt::LeftButton);
    QCOMPARE(t_->session->Sounding().SoundingFileName, second);
    QCOMPARE(marlview::TestName(*t_->session, 2), second);
    QTest::mouseClick(plot->cmdPreviousTest, Qt::LeftButton);
    QCOMPARE(t_->session->Sounding().SoundingFileName, marlview::TestName(*t_->session, 1));

    // The ECP list and the editor open on the test on show; an edit stays with the test in its slot.
    QTest::mouseClick(plot->cmdNextTest, Qt::LeftButton);
    QTest::mouseClick(window->cmdListECP, Qt::LeftButton);
    QVERIFY(window->EcpWindow() != nullptr && window->EcpWindow()->isVisible());
    QCOMPARE(t_->session->Sounding().SoundingFileName, second);
    QTest::mouseClick(window->cmdEdit, Qt::LeftButton);
    QVERIFY(window->EditWindow() != nullptr && window->EditWindow()->isVisible());
    window->EditWindow()->txtClient->selectAll();
    QTest::keyClicks(window->EditWindow()->txtClient, "Edited client");
    // Stepping on closes the editor and puts the edited test back in its slot.
    QTest::mouseClick(plot->cmdPreviousTest, Qt::LeftButton);
    QVERIFY(window->EditWindow() == nullptr);
    QCOMPARE(t_->session->set.tests[1].store->Client, std::string("Edited client"));

    window->optCombinedSelection->click();
    marlview::test::ClickRow(window->lstAvailableChannels, 0);

    // The combined list saved as csv with its header blocks.
    QTest::mouseClick(window->cmdListSounding, Qt::LeftButton);
    QVERIFY(window->ListWindow() != nullptr);
    const std::string csv = t_->data.File("combined.csv");
    t_->prompts.Script({csv});
    window->ListWindow()->mnuExportCSVFileIncludeHeader->trigger();
    QVERIFY(marlview::ReadWholeFile(csv).starts_with("CPT DATA,TEST #1\r\n"));

    // The rod break tool and the wet density dialog shown for each ticked test in turn, the
    // density not kept as the default.
    int shown = 0;
    AnswerEachTest<marlview::FrmEnlargedTipGraph>(&marlview::FrmEnlargedTipGraph::cmdDONE, shown);
    window->ListWindow()->mnuRemoveRodBreaks->trigger();
    QCOMPARE(shown, 3);
    shown = 0;
    t_->prompts.Script({"No", "No", "No"});
    AnswerEachTest<marlview::FrmWetDensity>(&marlview::FrmWetDensity::cmdOK, shown);
    window->ListWindow()->mnuWetDensity->trigger();
    QCOMPARE(shown, 3);
    QVERIFY(t_->prompts.ScriptUsedUp());

    // A batch of csv files, one per ticked test, into a folder of their own.
    const std::string folder = t_->data.File("batch");
    marlview::test::AnswerModal<FrmBatchExport>(this, [folder](FrmBatchExport* dialog) {
      for (QCheckBox* box : {dialog->chkPrintDepthPlots, dialog->chkPrintList, dialog->chkListTXT, dialog->chkListCOR,
                             dialog->chkListECP, dialog->chkListgIN}) {
        box->setChecked(false);
      }
      dialog->chkListCSV->setChecked(true);
      dialog->txtExportFolder->setText(QString::fromStdString(folder));
      QTest::mouseClick(dialog->cmdExportPrint, Qt::LeftButton);
      QCOMPARE(dialog->prgExport->value(), 3);
      QTest::mouseClick(dialog->cmdCancel, Qt::LeftButton);
    });
    QTest::mouseClick(window->cmdBatchExport, Qt::LeftButton);
    QVERIFY(marlview::test::LogOf(t_->prompts).join('\n').contains("EXPORT/PRINT COMPLETE"));
    int written = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) written += entry.path().extension() == ".csv";
    QCOMPARE(written, 3);

    // Return asks to close the open windows, then empties the set.
    QTest::mouseClick(window->cmdListECP, Qt::LeftButton);
    t_->prompts.Script({"Yes", "Yes", "Yes"});
    window->mnuReturn->trigger();
    QTRY_VERIFY(form_->PluralWindow() == nullptr);
    QVERIFY(t_->session->set.tests.empty());
    QVERIFY(!t_->session->CombinedModeActive);
    QVERIFY(form_->frmSelectTestType->isEnabled());
  }
};

QTEST_MAIN(PluralSoundingsTest)
#include "plural_soundings_test.moc"
