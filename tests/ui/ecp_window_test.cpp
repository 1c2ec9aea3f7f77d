// Drives the ECP window offscreen from the main window: the unit buttons and the unit they keep,
// the template dialog and the ordered view, the export, and the window's flag.
#include "ui/presentation/ecp_window.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QtTest>
#include <memory>

#include "core/common/file_access.h"
#include "support/qt_test_support.h"
#include "support/test_support.h"
#include "ui/presentation/data_table.h"
#include "ui/shell/form1.h"

using marlview::FrmSetOrderedECPTemplate;
using marlview::FrmSoundingECPData;

class EcpWindowTest : public QObject, protected marlview::test::MainWindowTest {
  Q_OBJECT

 private:
  // Opens CPT-A01 and its ECP window.
  FrmSoundingECPData* OpenEcp() {
    t_->prompts.Script({marlview::test::SamplesDirectory() + "/CPT-A01.DAT"});
    marlview::test::ClickOption(form_->optProcessSounding);
    t_->prompts.ClearLog();
    QTest::mouseClick(form_->cmdListECP, Qt::LeftButton);
    FrmSoundingECPData* window = form_->EcpWindow();
    if (window == nullptr || !QTest::qWaitForWindowExposed(window)) qFatal("no ECP window");
    return window;
  }
  static QString Heading(FrmSoundingECPData* window, int column) {
    return window->grdData->HeadingText(column);
  }

 private slots:
  void init() { QVERIFY(StartMainWindow()); }
  void cleanup() { StopMainWindow(); }

  void unitButtonsChangeThePressureColumnsAndAreKept() {
    FrmSoundingECPData* window = OpenEcp();
    QVERIFY(t_->prompts.Texts().empty() && t_->session->flags.EcpWindowOpen);
    QCOMPARE(window->objectName(), QString("frmSoundingECPData"));
    QCOMPARE(window->windowTitle(), QString("ECP DATA: CPT-A01.DAT"));
    QCOMPARE(window->grdData->RowCount(), 1250);
    QVERIFY2(Heading(window, 1).endsWith("\n(psi)"), qPrintable(Heading(window, 1)));
    const double psi = window->grdData->CellText(600, 1).toDouble();
    QTest::mouseClick(window->cmdShowKPAECP, Qt::LeftButton);
    QVERIFY2(Heading(window, 1).endsWith("\n(kPa)"), qPrintable(Heading(window, 1)));
    QVERIFY(qAbs(window->grdData->CellText(600, 1).toDouble() / psi - 6.895) < 0.01);
    QCOMPARE(marlview::ReadWholeFile(t_->session->SettingsPath("Default ECP Units.txt")), std::string("2\r\n"));
    // The next window opens in the unit last chosen.
    window->mnuReturn->trigger();
    QVERIFY(!t_->session->flags.EcpWindowOpen);
    QTest::mouseClick(form_->cmdListECP, Qt::LeftButton);
    QVERIFY(Heading(form_->EcpWindow(), 1).endsWith("\n(kPa)"));
  }

  void templateDialogGivesTheOrderedView() {
    FrmSoundingECPData* window = OpenEcp();
    const int fixed = window->grdData->ColumnCount();
    marlview::test::AnswerModal<FrmSetOrderedECPTemplate>(this, [](FrmSetOrderedECPTemplate* dialog) {
      QCOMPARE(dialog->findChildren<QCheckBox*>("chkChannel").size(), static_cast<qsizetype>(dialog->chkChannel.size()));
      dialog->chkChannel[2]->setChecked(true);
      dialog->chkChannel[0]->setChecked(true);
      QTest::mouseClick(dialog->cmdOK, Qt::LeftButton);
    });
    QTest::mouseClick(window->cmdSetOrderedECPTemplate, Qt::LeftButton);
    QCOMPARE(window->grdData->ColumnCount(), 3);
    const auto& s = t_->session->Sounding();
    QVERIFY(marlview::ReadWholeFile(t_->session->SettingsPath("Ordered ECP Channels.txt"))
                .starts_with(s.ChannelName[1] + "\r\n" + s.ChannelName[3] + "\r\n\r\n"));
    QTest::mouseClick(window->cmdShowECPData, Qt::LeftButton);
    QCOMPARE(window->grdData->ColumnCount(), fixed);
    QTest::mouseClick(window->cmdShowOrderedECPData, Qt::LeftButton);
    QCOMPARE(window->grdData->ColumnCount(), 3);
  }

  void exportWritesTheTableAndDoneClosesTheWindow() {
    FrmSoundingECPData* window = OpenEcp();
    const std::string path = t_->data.File("A01");
    t_->prompts.Script({path});
    window->mnuExportEcpFile->trigger();
    QCOMPARE(QString::fromStdString(t_->prompts.LastFileRequest().filter), QString("ECP Files (*.ecp)|*.ecp"));
    const std::string written = marlview::ReadWholeFile(path + ".ecp");
    QVERIFY(written.starts_with("CPT DATA\r\n") && written.find("\r\n    ____") != std::string::npos);
    t_->prompts.Script({"Yes"});
    QTest::mouseClick(form_->cmdSoundingDone, Qt::LeftButton);
    QCOMPARE(QString::fromStdString(t_->prompts.Texts().back()),
             QString("? ECP window is open. Close window and continue? -> Yes"));
    QVERIFY(form_->EcpWindow() == nullptr && !t_->session->flags.EcpWindowOpen);
  }
};

QTEST_MAIN(EcpWindowTest)
#include "ecp_window_test.moc"
