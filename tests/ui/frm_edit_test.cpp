// Drives the sounding editor offscreen from the main window: its slots and captions, the views,
// the keys of the grid, a value changed in a cell, the operation dialogs from its menus, the
// combine flow, and leaving with the question about unsaved changes.
#include "ui/editing/frm_edit.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QtTest>
#include <memory>

#include "core/common/file_access.h"
#include "core/io/dat_reader.h"
#include "core/model/sounding_slots.h"
#include "support/qt_test_support.h"
#include "support/test_support.h"
#include "ui/editing/edit_dialogs.h"
#include "ui/presentation/data_table.h"
#include "ui/presentation/frm_enlarged_tip_graph.h"
#include "ui/presentation/form4.h"
#include "ui/presentation/sounding_data_window.h"
#include "ui/shell/form1.h"

using marlview::FrmEdit;

namespace {

constexpr const char* kLeaveQuestion =
    "? Data has been modified but not saved. Changes will be temporary and discarded after processing is "
    "finished. Are you sure you want to exit?";

QString Cell(QListView* view, int row) {
  return view->model()->data(view->model()->index(row, view->modelColumn())).toString();
}

}  // namespace

class FrmEditTest : public QObject, protected marlview::test::MainWindowTest {
  Q_OBJECT

 private:
  // Opens a sounding from the main window, then the editor with the edit button.
  FrmEdit* OpenEditor(const std::string& path = marlview::test::SamplesDirectory() + "/CPT-A01.DAT") {
    t_->prompts.Script({path});
    marlview::test::ClickOption(form_->optProcessSounding);
    if (!form_->cmdEditSounding->isVisible()) qFatal("no edit button");
    t_->prompts.ClearLog();
    QTest::mouseClick(form_->cmdEditSounding, Qt::LeftButton);
    FrmEdit* window = form_->EditWindow();
    if (window == nullptr || !QTest::qWaitForWindowExposed(window)) qFatal("no editor");
    return window;
  }
  // A sounding of thirteen channels: tip, sleeve, pore pressure and ten auxiliary ones.
  std::string WriteWideDat() {
    marlview::test::DatFile dat = marlview::test::SimpleDat(30);
    for (int c = 4; c <= 13; ++c) dat.channels.push_back({.sensor = "Aux" + std::to_string(c)});
    for (auto& row : dat.rows) row.resize(14, 0.5);
    t_->data.Write("WIDE.DAT", dat.Bytes());
    return t_->data.File("WIDE.DAT");
  }
  // Clicks a cell of a column as the user does.
  void ClickCell(QListView* view, int row) {
    const QModelIndex index = view->model()->index(row, view->modelColumn());
    view->scrollTo(index);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(index).center());
  }
  // Types an entry over a cell of a value column and presses Enter, as the user does.
  void EnterInCell(QListView* view, int row, const QString& entry) {
    ClickCell(view, row);
    QTest::keyClick(view, Qt::Key_Return);
    auto* cell = view->viewport()->findChild<QLineEdit*>();
    QVERIFY(cell != nullptr);
    cell->setText(entry);
    QTest::keyClick(cell, Qt::Key_Return);
    // The view commits the entry once the key has been handled, and deletes the cell's box later.
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(view->viewport()->findChild<QLineEdit*>() == nullptr);
  }
  QStringList Log() const { return marlview::test::LogOf(t_->prompts); }
  marlview::SoundingStore& Store() { return t_->session->Sounding(); }
  float Graph(int row, int channel) { return Store().ChannelReadings(row, marlview::KindColumn(channel, 0)); }

 private slots:
  void init() { QVERIFY(StartMainWindow()); }
  void cleanup() { StopMainWindow(); }

  void opensOnTheDemoSoundingWithItsSlotsAndCaptions() {
    FrmEdit* editor = OpenEditor();
    QVERIFY(Log().isEmpty() && t_->session->flags.EditWindowOpen);
    QCOMPARE(editor->objectName(), QString("frmEdit"));
    QCOMPARE(editor->windowTitle(), QString("EDIT SOUNDING FILE: CPT-A01.DAT"));
    for (const char* name : {"txtFilename",
                             "txtDate",
                             "txtTime",
                             "txtCompany",
                             "txtCrew",
                             "txtDASID",
                             "txtClient",
                             "txtClientRep",
                             "txtComments",
                             "txtGPSLat",
                             "txtGPSLon",
                             "txtGPSElev",
                             "txtGPSNSat",
                             "txtStartDepth",
                             "cmbWeather",
                             "txtDepth",
                             "lblDepth",
                             "lblReadingNumber",
                             "lblUnits",
                             "cmdRemoveColumn",
                             "txtColumn10",
                             "txtColumn10FinalBaseline",
                             "txtColumn10InitialBaseline",
                             "txtColumn10Offset",
                             "txtColumn10Unit",
                             "txtColumn10Cal",
                             "mnuSave",
                             "mnuSaveAs",
                             "mnuExportTextFile",
                             "mnuExportEcpFile",
                             "mnuExportLogDATCompatibleDATFile",
                             "mnuPrint",
                             "mnuReturn",
                             "mnuAdjustDepth",
                             "mnuChangeStartDepth",
                             "mnuNormalizeDepthIntervals",
                             "mnuRemoveNegatives",
                             "mnuRemoveRodBreaks",
                             "mnuShiftChannels",
                             "mnuTipConfiguration",
                             "mnuCombine",
                             "mnuShowDataUnits",
                             "mnuAdjustedForOffset",
                             "mnuUnAdjusted",
                             "mnuFeet",
                             "mnuMeters"}) {
      QVERIFY2(editor->findChild<QObject*>(name) != nullptr, name);
    }
    QCOMPARE(editor->txtFilename->text(), QString("CPT-A01.DAT"));
    QCOMPARE(editor->txtCrew->text(), QString("T. Nakamura, B. Lindqvist"));
    QCOMPARE(editor->txtGPSNSat->text(), QString("9"));
    QCOMPARE(editor->cmbWeather->currentText(), QString("Overcast, light drizzle, 13 C"));
    // Eight channels: slots 9 and 10 are hidden with their boxes, and the slots do not scroll.
    for (int slot = 1; slot <= 8; ++slot) QVERIFY(editor->txtColumn[slot - 1]->isVisible());
    QVERIFY(!editor->txtColumn[8]->isVisible() && !editor->txtColumn[9]->isVisible());
    QVERIFY(!editor->txtColumnCal[9]->isVisible() && !editor->lblColumn[9]->isVisible());
    QVERIFY(!editor->scrColumns->isEnabled());
    QVERIFY(editor->lblColumn[0]->text().startsWith(QString::fromStdString(Store().ChannelName[1])));
    QCOMPARE(editor->lblDepth->text(), QString("DEPTH(m)"));
    QCOMPARE(editor->lblStatus->text(),
             QString("CURRENT CHANNEL VIEW: UN-ADJUSTED FOR OFFSET (READINGS CAN BE DELETED)"));
    QCOMPARE(editor->mnuShowDataUnits->text(), QString("Display Voltage Data"));
    QCOMPARE(editor->txtDepth->model()->rowCount(), 1250);
    QCOMPARE(Cell(editor->txtDepth, 0), QString("0.020"));
    QCOMPARE(editor->txtColumnInitialBaseline[0]->text(), QString("-1.234000E-002"));
    // The depth and the value columns scroll as one.
    editor->txtColumn[2]->scrollToBottom();
    QVERIFY(editor->scrReadings->value() > 1000);
    QCOMPARE(editor->scrReadings->value(), editor->scrReadings->maximum());
    QCOMPARE(editor->txtDepth->verticalScrollBar()->value(), editor->scrReadings->value());
    QCOMPARE(editor->txtColumn[7]->verticalScrollBar()->value(), editor->scrReadings->value());

    // A header box typed in changes its field and counts as a change.
    editor->txtClient->clear();
    QTest::keyClicks(editor->txtClient, "Harbour Board");
    QCOMPARE(QString::fromStdString(Store().Client), QString("Harbour Board"));
    QVERIFY(editor->Editor().EditDirty());
  }

  void viewsSwitchTheGridAndDeletingWaitsForTheUnadjustedView() {
    FrmEdit* editor = OpenEditor();
    const int tip = Store().TipChannel;
    const QString engineering = Cell(editor->txtColumn[tip - 1], 0);
    editor->mnuShowDataUnits->trigger();
    QCOMPARE(editor->mnuShowDataUnits->text(), QString("Display Eng. Unit Data"));
    QCOMPARE(editor->lblUnits->text(), QString("RAW VOLTS"));
    QCOMPARE(Cell(editor->txtColumn[tip - 1], 0), QString("4.274271E-001"));
    editor->mnuShowDataUnits->trigger();
    QCOMPARE(Cell(editor->txtColumn[tip - 1], 0), engineering);
    editor->mnuFeet->trigger();
    QCOMPARE(editor->lblDepth->text(), QString("DEPTH(ft)"));
    QCOMPARE(Cell(editor->txtDepth, 0), QString("0.066"));
    QVERIFY(editor->mnuFeet->isChecked() && !editor->mnuMeters->isChecked());
    editor->mnuMeters->trigger();

    // The sleeve sits behind the tip: adjusted, its first row is a reading taken deeper in the push.
    const int sleeve = Store().SleeveChannel;
    const QString unadjusted = Cell(editor->txtColumn[sleeve - 1], 0);
    editor->mnuAdjustedForOffset->trigger();
    QCOMPARE(editor->lblStatus->text(),
             QString("CURRENT CHANNEL VIEW: ADJUSTED FOR OFFSET (READINGS CANNOT BE DELETED)"));
    QVERIFY(editor->mnuAdjustedForOffset->isChecked() && !editor->mnuUnAdjusted->isChecked());
    QVERIFY(Cell(editor->txtColumn[sleeve - 1], 0) != unadjusted);

    ClickCell(editor->txtDepth, 4);
    QCOMPARE(editor->lblReadingNumber->text(), QString("5"));
    QTest::keyClick(editor->txtDepth, Qt::Key_Delete);
    QCOMPARE(Log(), QStringList{"! CURRENT CHANNEL VIEW: ADJUSTED FOR OFFSET (READINGS CANNOT BE DELETED)"});
    QCOMPARE(Store().ReadingCount, 1250);
    QVERIFY(!editor->Editor().EditDirty());

    editor->mnuUnAdjusted->trigger();
    const QString sixth = Cell(editor->txtDepth, 5);
    QTest::keyClick(editor->txtDepth, Qt::Key_Delete);
    QCOMPARE(Store().ReadingCount, 1249);
    QCOMPARE(editor->txtDepth->model()->rowCount(), 1249);
    QCOMPARE(Cell(editor->txtDepth, 4), sixth);
    QVERIFY(editor->Editor().EditDirty());
  }

  void keysMoveTheCursorAndTheSlotsScrollOverMoreThanTenChannels() {
    FrmEdit* editor = OpenEditor(WriteWideDat());
    QVERIFY(editor->txtColumn[9]->isVisible() && editor->scrColumns->isEnabled());
    QCOMPARE(editor->lblColumn[9]->text(), QString("Aux10\n(psi)"));
    ClickCell(editor->txtColumn[8], 2);
    QCOMPARE(editor->lblReadingNumber->text(), QString("3"));
    QTest::keyClick(editor->txtColumn[8], Qt::Key_Down);
    QCOMPARE(editor->lblReadingNumber->text(), QString("4"));
    QTest::keyClick(editor->txtColumn[8], Qt::Key_Right);
    QCOMPARE(editor->Editor().CurrentChannel(), 10);
    QCOMPARE(editor->Editor().FirstColumn(), 1);
    QTest::keyClick(editor->txtColumn[9], Qt::Key_Right);
    QCOMPARE(editor->Editor().CurrentChannel(), 11);
    QCOMPARE(editor->Editor().FirstColumn(), 2);
    QCOMPARE(editor->scrColumns->value(), 2);
    QCOMPARE(editor->lblColumn[9]->text(), QString("Aux11\n(psi)"));
    QCOMPARE(editor->lblColumn[0]->text().section('\n', 0, 0),
             QString::fromStdString(Store().ChannelName[2]));
    QVERIFY(editor->txtColumn[9]->hasFocus());
    QTest::keyClick(editor->txtColumn[9], Qt::Key_Up);
    QCOMPARE(editor->lblReadingNumber->text(), QString("3"));
    // The slots' scroll bar goes as far as the last channel in slot 10.
    editor->scrColumns->setValue(editor->scrColumns->maximum());
    QCOMPARE(editor->Editor().FirstColumn(), 4);
    QCOMPARE(editor->lblColumn[9]->text(), QString("Aux13\n(psi)"));
    QVERIFY(Log().isEmpty());
  }

  void aValueEnteredInTheGridChangesTheSounding() {
    FrmEdit* editor = OpenEditor();
    const int tip = Store().TipChannel;
    QListView* column = editor->txtColumn[tip - 1];
    EnterInCell(column, 2, "abc");
    QCOMPARE(Log(), QStringList{"! Please enter a valid number"});
    QVERIFY(!editor->Editor().EditDirty());
    EnterInCell(column, 2, Cell(column, 2));
    QVERIFY(!editor->Editor().EditDirty());

    EnterInCell(column, 2, "12.5");
    QCOMPARE(Graph(3, tip), 12.5f);
    QCOMPARE(Cell(column, 2), QString("12.5000"));
    QVERIFY(editor->Editor().EditDirty());

    // A baseline box takes its entry with Enter and converts the channel again.
    editor->txtColumnInitialBaseline[tip - 1]->setText("0");
    QTest::keyClick(editor->txtColumnInitialBaseline[tip - 1], Qt::Key_Return);
    QCOMPARE(Store().ChannelBaseline[tip], 0.0f);
    QCOMPARE(editor->txtColumnInitialBaseline[tip - 1]->text(), QString("0.000000E+000"));
  }

  void negativesIntervalsAndAValueAreSavedAndReadBack() {
    FrmEdit* editor = OpenEditor();
    const int u2 = Store().PorePressureChannel;
    int negative = 0;
    for (int r = 1; r <= Store().ReadingCount && negative == 0; ++r) {
      if (Graph(r, u2) < 0) negative = r;
    }
    QVERIFY(negative != 0);
    marlview::test::AnswerModal<marlview::FrmRemoveNegatives>(
        this, [u2](marlview::FrmRemoveNegatives* dialog) {
          QCOMPARE(dialog->lstChannels->count(), 8);
          dialog->lstChannels->item(u2 - 1)->setCheckState(Qt::Checked);
          QTest::mouseClick(dialog->cmdOK, Qt::LeftButton);
        });
    editor->mnuRemoveNegatives->trigger();
    // 0.0001 carried to the raw reading and back.
    QVERIFY2(qAbs(Graph(negative, u2) - 0.0001) < 1e-6, qPrintable(QString::number(Graph(negative, u2))));
    QCOMPARE(Cell(editor->txtColumn[u2 - 1], negative - 1), QString("0.0001"));
    QVERIFY(editor->Editor().EditDirty());

    marlview::test::AnswerModal<marlview::FrmNormalizeDepthIntervals>(
        this, [](marlview::FrmNormalizeDepthIntervals* dialog) {
          QCOMPARE(dialog->lblUnits->text(), QString("(mm)"));
          dialog->txtInterval->setText("fifty");
          QTest::mouseClick(dialog->cmdOK, Qt::LeftButton);  // refused, the dialog stays
          dialog->txtInterval->setText("50");
          QTest::mouseClick(dialog->cmdOK, Qt::LeftButton);
        });
    editor->mnuNormalizeDepthIntervals->trigger();
    QCOMPARE(Log(), QStringList{"! Please enter a valid interval"});
    // 0.02 to 25.00 m at 50 mm from the start depth of 0: 501 targets, the first above the file.
    QCOMPARE(Store().ReadingCount, 501);
    QCOMPARE(editor->txtDepth->model()->rowCount(), 501);
    QCOMPARE(Cell(editor->txtDepth, 1), QString("0.050"));

    // A value typed after resampling, then Save As, and the saved file read back as it was left.
    const int tip = Store().TipChannel;
    EnterInCell(editor->txtColumn[tip - 1], 9, "7.5");
    const std::string saved = t_->data.File("CPT-A01-EDITED.DAT");
    t_->prompts.ClearLog();
    t_->prompts.Script({saved});
    editor->mnuSaveAs->trigger();
    QVERIFY(!editor->Editor().EditDirty());
    QCOMPARE(t_->prompts.LastFileRequest().filter, std::string("DAT Files (*.dat)|*.dat|All Files (*.*)|*.*"));
    marlview::test::TestSession reopened;
    const auto bytes = marlview::TryReadWholeFile(saved);
    QVERIFY(bytes.has_value());
    QCOMPARE(marlview::ReadDatSounding(*bytes, saved, *reopened.session, reopened.session->SpareStore(),
                                       reopened.prompts),
             marlview::ReadOutcome::kLoaded);
    const marlview::SoundingStore& back = reopened.session->SpareStore();
    QCOMPARE(back.ReadingCount, 501);
    QVERIFY(back.DepthIncrementMode);
    QCOMPARE(back.ChannelReadings(10, marlview::KindColumn(tip, 0)), 7.5f);
    for (int r : {1, 250, 501}) {
      QCOMPARE(back.DepthTable(r, 1), Store().DepthTable(r, 1));
      for (int c = 1; c <= Store().ChannelCount; ++c) QCOMPARE(back.RawReadings(r, c), Store().RawReadings(r, c));
    }
  }

  void everyOperationDialogOpensFromTheEditMenu() {
    FrmEdit* editor = OpenEditor();
    const int tip = Store().TipChannel;
    marlview::test::AnswerModal<marlview::FrmChangeStartDepth>(
        this, [](marlview::FrmChangeStartDepth* dialog) {
          QCOMPARE(dialog->lblOldStartDepth->text(), QString("000.00 (m)"));
          dialog->txtStartDepth->setText("1.5");
          QTest::mouseClick(dialog->cmdOK, Qt::LeftButton);
        });
    editor->mnuChangeStartDepth->trigger();
    QCOMPARE(Cell(editor->txtDepth, 0), QString("1.520"));
    QCOMPARE(editor->txtStartDepth->text(), QString("1.50"));

    marlview::test::AnswerModal<marlview::FrmAdjustDepth>(this, [](marlview::FrmAdjustDepth* dialog) {
      QCOMPARE(dialog->txtOldDepth->text(), QString("26.500"));
      dialog->txtOldDepth->setText("1");
      dialog->txtNewDepth->setText("2");
      QTest::mouseClick(dialog->cmdOK, Qt::LeftButton);
    });
    editor->mnuAdjustDepth->trigger();
    QCOMPARE(Cell(editor->txtDepth, 0), QString("3.040"));

    const float before = Graph(1, tip);
    marlview::test::AnswerModal<marlview::FrmShiftChannels>(this, [](marlview::FrmShiftChannels* dialog) {
      QCOMPARE(dialog->chkChannel.size(), size_t{8});
      dialog->chkChannel[0]->setChecked(true);
      dialog->txtShift[0]->setText("2");
      QTest::mouseClick(dialog->cmdOK, Qt::LeftButton);
    });
    editor->mnuShiftChannels->trigger();
    QCOMPARE(Graph(1, tip), before + 2);

    marlview::test::AnswerModal<marlview::FrmTipConfiguration>(
        this, [](marlview::FrmTipConfiguration* dialog) {
          QCOMPARE(dialog->lblTipConfiguration->text(), QString("CONVENTIONAL"));
          QVERIFY(!dialog->txtBallTipDiameter->isEnabled());
          dialog->cmbTipConfiguration->setCurrentText("BALL");
          dialog->txtBallTipDiameter->setText("0");
          QTest::mouseClick(dialog->cmdOK, Qt::LeftButton);  // refused, the dialog stays
          dialog->txtBallTipDiameter->setText("44");
          QTest::mouseClick(dialog->cmdOK, Qt::LeftButton);
        });
    editor->mnuTipConfiguration->trigger();
    QCOMPARE(Log(), QStringList{"! BALL TIP DIAMETER cannot be less than or equal to 0"});
    QVERIFY(Store().BallTip);

    marlview::test::AnswerModal<marlview::FrmTYRConeDimensions>(
        this, [](marlview::FrmTYRConeDimensions* dialog) {
          QCOMPARE(dialog->txtSleeveLength->text(), QString("0.1330"));
          QCOMPARE(dialog->lblUnits->text(), QString("(m)"));
          for (QLineEdit* box : {dialog->txtTipLength, dialog->txtTipShoulderLength, dialog->txtPPLength}) {
            QVERIFY(!box->text().isEmpty());
          }
          QTest::mouseClick(dialog->cmdOK, Qt::LeftButton);
        });
    editor->mnuConeDimensions->trigger();

    // The rod break tool opens over the editor and closes with its DONE button.
    marlview::test::AnswerModal<marlview::FrmEnlargedTipGraph>(
        this, [](marlview::FrmEnlargedTipGraph* tool) { QTest::mouseClick(tool->cmdDONE, Qt::LeftButton); });
    editor->mnuRemoveRodBreaks->trigger();
    QCOMPARE(Log().size(), 1);
  }

  void exportsWriteTheFilesChannelsAsTheGridShowsThem() {
    FrmEdit* editor = OpenEditor();
    editor->mnuFeet->trigger();
    const std::string path = t_->data.File("A01");
    t_->prompts.Script({path, path});
    editor->mnuExportTextFile->trigger();
    editor->mnuExportEcpFile->trigger();
    const std::string txt = marlview::ReadWholeFile(path + ".txt");
    QVERIFY(txt.starts_with("DATA NOT ADJUSTED FOR CHANNEL OFFSETS\r\nCPT DATA\r\n"));
    // Every one of the file's eight channels, the last one as well.
    QVERIFY(txt.find("Exc Sense  Not Connected") != std::string::npos);
    QVERIFY(txt.find("\r\n      ft ") != std::string::npos);
    QVERIFY(marlview::FileExists(path + ".ecp"));
    QVERIFY(t_->prompts.Texts().empty());
  }

  void combiningAsksForTheFileAndTheOffset() {
    FrmEdit* editor = OpenEditor();
    t_->prompts.Script({"Cancel"});
    editor->mnuCombine->trigger();
    QCOMPARE(Store().ReadingCount, 1250);
    QVERIFY(Log().first().startsWith("? CAUTION: DAT files should be combined ONLY"));

    t_->prompts.ClearLog();
    t_->prompts.Script({"OK", marlview::test::SamplesDirectory() + "/CPT-A01.DAT"});
    marlview::test::AnswerModal<marlview::FrmTYRAppendOffset>(this, [](marlview::FrmTYRAppendOffset* dialog) {
      QCOMPARE(dialog->lblDepthUnits->text(), QString("(m)"));
      dialog->txtOffset->setText("-1");
      QTest::mouseClick(dialog->cmdOK, Qt::LeftButton);  // refused, the dialog stays
      dialog->txtOffset->setText("0.5");
      QTest::mouseClick(dialog->cmdOK, Qt::LeftButton);
    });
    editor->mnuCombine->trigger();
    QCOMPARE(Log().last(), QString("! Please enter a valid depth"));
    QVERIFY(Store().ReadingCount > 1250);
    QCOMPARE(editor->txtDepth->model()->rowCount(), Store().ReadingCount);
    QCOMPARE(Cell(editor->txtDepth, 0), QString("0.020"));
  }

  void leavingAsksAboutChangesAndTheOtherWindowsFollow() {
    FrmEdit* editor = OpenEditor();
    editor->mnuReturn->trigger();  // nothing changed: no question
    QVERIFY(Log().isEmpty() && !editor->isVisible() && !t_->session->flags.EditWindowOpen);

    // From the list window's menu this time, with the list showing the tip.
    QListWidget* list = form_->lstAvailableChannels;
    marlview::test::ClickRow(list, list->row(list->findItems("Tip Resistance (Qc)", Qt::MatchExactly)[0]));
    QTest::mouseClick(form_->cmdListSounding, Qt::LeftButton);
    marlview::FrmSoundingData* data = form_->ListWindow();
    QVERIFY(data != nullptr);
    data->mnuEditData->trigger();
    editor = form_->EditWindow();
    QVERIFY(editor != nullptr && QTest::qWaitForWindowExposed(editor) && t_->session->flags.EditWindowOpen);
    const int tip = Store().TipChannel;
    // Changed behind the window's back: the list follows when the editor is left.
    QVERIFY(editor->Editor().SetValue(1, tip, "33"));
    t_->prompts.Script({"No"});
    editor->mnuReturn->trigger();
    QCOMPARE(Log(), QStringList{kLeaveQuestion + QString(" -> No")});
    QVERIFY(editor->isVisible() && t_->session->flags.EditWindowOpen);

    t_->prompts.Script({"Yes"});
    editor->mnuReturn->trigger();
    QVERIFY(!editor->isVisible() && !t_->session->flags.EditWindowOpen);
    QCOMPARE(t_->session->Slots()[t_->session->CurrentSlot].raw(1, tip), Store().RawReadings(1, tip));
    QCOMPARE(data->grdData->CellText(0, 1), QString("33.000"));
  }

  void thePlotWindowOpensTheEditorAndDoneClosesItWithoutTheChangesQuestion() {
    OpenEditor()->mnuReturn->trigger();
    QListWidget* list = form_->lstAvailableChannels;
    marlview::test::ClickRow(list, 0);
    QTest::mouseClick(form_->cmdPlotSounding, Qt::LeftButton);
    QVERIFY(form_->PlotWindow() != nullptr);
    form_->PlotWindow()->mnuEdit->trigger();
    FrmEdit* editor = form_->EditWindow();
    QVERIFY(editor != nullptr && QTest::qWaitForWindowExposed(editor));
    editor->Editor().Changed();
    // A second click brings the same editor forward, its changes still counted.
    QTest::mouseClick(form_->cmdEditSounding, Qt::LeftButton);
    QCOMPARE(form_->EditWindow(), editor);
    QVERIFY(editor->Editor().EditDirty());

    t_->prompts.ClearLog();
    t_->prompts.Script({"Yes", "Yes"});
    QTest::mouseClick(form_->cmdSoundingDone, Qt::LeftButton);
    QCOMPARE(Log(), (QStringList{"? Plot window is open. Close window and continue? -> Yes",
                                 "? Edit window is open. Close window and continue? -> Yes"}));
    QVERIFY(form_->EditWindow() == nullptr && !t_->session->flags.EditWindowOpen);
  }
};

QTEST_MAIN(FrmEditTest)
#include "frm_edit_test.moc"
