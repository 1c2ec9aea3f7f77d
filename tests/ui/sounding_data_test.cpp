// Drives the sounding data window offscreen from the main window: the list of the chosen channels,
// the depth unit and elevation views, the depth interval, and saving the exports.
#include "ui/presentation/sounding_data_window.h"

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest>
#include <memory>

#include "core/common/file_access.h"
#include "support/qt_test_support.h"
#include "support/test_support.h"
#include "ui/editing/frm_edit.h"
#include "ui/presentation/data_table.h"
#include "ui/presentation/list_dialogs.h"
#include "ui/shell/form1.h"

using marlview::FrmSoundingData;

class SoundingDataTest : public QObject, protected marlview::test::MainWindowTest {
  Q_OBJECT

 private:
  // Opens CPT-A01 and lists its tip resistance and 1990 zone (normalised tip).
  FrmSoundingData* OpenList() {
    t_->prompts.Script({marlview::test::SamplesDirectory() + "/CPT-A01.DAT"});
    marlview::test::ClickOption(form_->optProcessSounding);
    QListWidget* list = form_->lstAvailableChannels;
    for (const char* name : {"Tip Resistance (Qc)", "SBT(QT)(1990)*"}) {
      const auto found = list->findItems(name, Qt::MatchExactly);
      if (found.isEmpty()) qFatal("no channel %s", name);
      marlview::test::ClickRow(list, list->row(found[0]));
    }
    t_->prompts.ClearLog();
    QTest::mouseClick(form_->cmdListSounding, Qt::LeftButton);
    FrmSoundingData* window = form_->ListWindow();
    if (window == nullptr || !QTest::qWaitForWindowExposed(window)) qFatal("no list window");
    return window;
  }
  QString Cell(FrmSoundingData* window, int row, int column) { return window->grdData->CellText(row, column); }
  QStringList Log() const { return marlview::test::LogOf(t_->prompts); }

 private slots:
  void init() { QVERIFY(StartMainWindow()); }
  void cleanup() { StopMainWindow(); }

  void listsEveryRowOfTheChosenChannels() {
    FrmSoundingData* window = OpenList();
    QVERIFY(Log().isEmpty() && t_->session->flags.ListWindowOpen);
    QCOMPARE(window->objectName(), QString("frmSoundingData"));
    QCOMPARE(window->windowTitle(), QString("SOUNDING DATA: CPT-A01.DAT"));
    QVERIFY(window->findChild<QObject*>("VScroll1") && window->findChild<QObject*>("HScroll1"));
    QVERIFY(window->lblHeader->toPlainText().startsWith("CPT DATA\n"));
    QCOMPARE(window->grdData->RowCount(), 1250);
    QCOMPARE(window->grdData->ColumnCount(), 3);
    QCOMPARE(Cell(window, 0, 0), QString("0.020"));
    // A zone shows its number and its label.
    QVERIFY2(QRegularExpression("^\\d+ +[A-Za-z]").match(Cell(window, 600, 2)).hasMatch(),
             qPrintable(Cell(window, 600, 2)));
    QCOMPARE(window->grdData->columnWidth(1), t_->session->ColumnWidth * 7);
  }

  // The grid is a view over the store: of 10000 readings only the rows on the screen are formatted.
  void aLongListFormatsOnlyTheCellsInView() {
    marlview::DataGrid grid(nullptr);
    grid.resize(600, 400);
    std::vector<int> rows(10000);
    for (int i = 0; i < 10000; ++i) rows[static_cast<size_t>(i)] = i + 1;
    int formatted = 0;
    grid.Fill({"Depth", "Tip"}, rows, [&](int r) { ++formatted; return std::to_string(r); },
              [&](int r, int) { ++formatted; return std::to_string(r * 2); }, 100);
    grid.show();
    QVERIFY(QTest::qWaitForWindowExposed(&grid));
    QCOMPARE(grid.RowCount(), 10000);
    QVERIFY2(formatted > 0 && formatted < 500, qPrintable(QString::number(formatted)));
    grid.scrollToBottom();
    QCoreApplication::processEvents();
    QCOMPARE(grid.CellText(9999, 1), QString("20000"));
    QVERIFY2(formatted < 1000, qPrintable(QString::number(formatted)));
  }

  void viewMenusChangeTheDepthsAndTheRowsShown() {
    FrmSoundingData* window = OpenList();
    window->mnuFeet->trigger();
    QCOMPARE(Cell(window, 0, 0), QString("0.066"));
    QVERIFY(window->mnuFeet->isChecked() && !window->mnuMeters->isChecked());
    window->mnuMeters->trigger();
    window->mnuAdjustedForOffsetElev->trigger();
    QCOMPARE(Cell(window, 0, 0), QString("-0.020"));
    QVERIFY(window->mnuAdjustedForOffsetElev->isChecked() && !window->mnuAdjustedForOffsetDepth->isChecked());
    window->mnuRawData->trigger();
    QVERIFY(window->mnuRawData->isChecked() && !window->mnuAdjustedForOffsetElev->isChecked());
    marlview::test::AnswerModal<marlview::FrmNormalizeDepthIntervalDisplayOnly>(this, [](auto* dialog) {
      dialog->txtInterval->setText("a hundred");
      QTest::mouseClick(dialog->cmdOK, Qt::LeftButton);  // refused, the dialog stays
      dialog->txtInterval->setText("100");
      QTest::mouseClick(dialog->cmdOK, Qt::LeftButton);
    });
    window->mnuDepthInterval->trigger();
    QVERIFY2(qAbs(window->grdData->RowCount() - 250) <= 2, qPrintable(QString::number(window->grdData->RowCount())));
    QCOMPARE(Log(), QStringList{"! Please enter a valid interval"});
    QVERIFY(t_->session->Sounding().ReadingCount == 1250);

    marlview::test::AnswerModal<marlview::FrmColumnWidths>(this, [](auto* dialog) {
      dialog->cmbColumnWidth->setCurrentText("12");
      QTest::mouseClick(dialog->cmdOK, Qt::LeftButton);
    });
    window->mnuColumnWidths->trigger();
    QCOMPARE(window->grdData->columnWidth(1), 12 * 7);
    QCOMPARE(marlview::ReadWholeFile(t_->session->SettingsPath("Column Widths")).substr(0, 2), std::string("12"));
    window->mnuEditData->trigger();
    QVERIFY(form_->EditWindow() != nullptr && t_->session->flags.EditWindowOpen);
  }

  void exportsAskForAFileAndBeforeOverwritingIt() {
    FrmSoundingData* window = OpenList();
    const std::string path = t_->data.File("A01");
    t_->prompts.Script({path});
    window->mnuExportCSVFileIncludeHeader->trigger();
    const std::string written = marlview::ReadWholeFile(path + ".csv");
    QVERIFY(written.starts_with("CPT DATA\r\n"));
    t_->prompts.ClearLog();
    t_->prompts.Script({path + ".csv", "No"});
    window->mnuExportCSVFileDiscardHeader->trigger();
    QCOMPARE(QString::fromStdString(t_->prompts.Texts().back()), QString("? File exists. Overwrite? -> No"));
    QCOMPARE(marlview::ReadWholeFile(path + ".csv"), written);
    t_->prompts.Script({path});
    window->mnuExportGinKPA->trigger();
    QVERIFY(marlview::ReadWholeFile(path + ".gIN").starts_with("**PROJECT"));
    t_->prompts.Script({""});  // cancelled: nothing written, nothing said
    t_->prompts.ClearLog();
    window->mnuSavetxtIncludeHeader->trigger();
    QVERIFY(t_->prompts.ScriptUsedUp() && t_->prompts.Texts().empty());
  }

  void previewButtonsShowTheExportText() {
    FrmSoundingData* window = OpenList();
    for (QPushButton* button : {window->cmdShowTXTData, window->cmdShowCSVData, window->cmdShowCorData}) {
      QTest::mouseClick(button, Qt::LeftButton);
    }
    const auto previews = window->findChildren<marlview::FrmExportPreview*>();
    QCOMPARE(previews.size(), 3);
    for (auto* preview : previews) QVERIFY(preview->txtPreview->toPlainText().startsWith("CPT DATA\n"));
    QVERIFY(previews[1]->txtPreview->toPlainText().contains(','));
    QCOMPARE(previews[0]->windowTitle(), QString("TXT DATA: CPT-A01.DAT"));
  }

  void flagFollowsTheWindowAndTheDoneButtonClosesIt() {
    FrmSoundingData* window = OpenList();
    window->mnuReturn->trigger();
    QVERIFY(!window->isVisible() && !t_->session->flags.ListWindowOpen);
    window = OpenList();  // the first window is deleted later and leaves the new one's flag be
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(t_->session->flags.ListWindowOpen);
    t_->prompts.Script({"Yes"});
    QTest::mouseClick(form_->cmdSoundingDone, Qt::LeftButton);
    QCOMPARE(QString::fromStdString(t_->prompts.Texts().back()),
             QString("? List window is open. Close window and continue? -> Yes"));
    QVERIFY(form_->ListWindow() == nullptr && !t_->session->flags.ListWindowOpen);
  }
};

QTEST_MAIN(SoundingDataTest)
#include "sounding_data_test.moc"
