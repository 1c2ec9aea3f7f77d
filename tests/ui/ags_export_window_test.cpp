// The list window's "AGS4 File..." offscreen: the dialog's edition, files and checks, then the save.
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QtTest>

#include "core/common/file_access.h"
#include "support/qt_test_support.h"
#include "support/test_support.h"
#include "ui/presentation/ags_export_dialog.h"
#include "ui/presentation/sounding_data_window.h"
#include "ui/shell/form1.h"

class AgsExportWindowTest : public QObject, protected marlview::test::MainWindowTest {
  Q_OBJECT

 private slots:
  void init() { QVERIFY(StartMainWindow()); }
  void cleanup() { StopMainWindow(); }

  void theDialogChoosesTheEditionAndTheFilesThenTheFileIsSaved() {
    const std::string samples = marlview::test::SamplesDirectory();
    t_->prompts.Script({samples + "/CPT-A01.DAT"});
    marlview::test::ClickOption(form_->optProcessSounding);
    marlview::test::ClickRow(form_->lstAvailableChannels, 0);
    QTest::mouseClick(form_->cmdListSounding, Qt::LeftButton);
    marlview::FrmSoundingData* window = form_->ListWindow();
    QVERIFY(window != nullptr);
    QCOMPARE(window->mnuExportAgs4->text(), QString("AGS4 File..."));

    const std::string path = t_->data.File("A01");
    t_->prompts.ClearLog();
    t_->prompts.Script({samples + "/DIS-A01.DIS", path});
    marlview::test::AnswerModal<marlview::FrmAgsExport>(this, [samples](marlview::FrmAgsExport* dialog) {
      QCOMPARE(dialog->objectName(), QString("frmAgsExport"));
      QCOMPARE(dialog->cmbAgsVersion->count(), 5);
      QCOMPARE(dialog->cmbAgsVersion->currentText(), QString("4.1.1"));
      dialog->cmbAgsVersion->setCurrentText("4.0.3");
      QTest::mouseClick(dialog->cmdAddDissipation, Qt::LeftButton);
      QCOMPARE(dialog->lstDissipationFiles->count(), 1);
      dialog->txtSeismicFile->setText(QString::fromStdString(samples + "/SCPT-A01.SEI"));
      dialog->txtRigidityIndex->setText("0");
      QTest::mouseClick(dialog->cmdOK, Qt::LeftButton);  // refused, the dialog stays
      QVERIFY(dialog->isVisible());
      dialog->txtRigidityIndex->setText("80");
      QTest::mouseClick(dialog->cmdOK, Qt::LeftButton);
    });
    window->mnuExportAgs4->trigger();
    const std::string written = marlview::ReadWholeFile(path + ".ags");
    QVERIFY(written.starts_with("\"GROUP\",\"PROJ\"\r\n"));
    QVERIFY(written.find("\"4.0.3\"") != std::string::npos);
    QVERIFY(written.find("\"GROUP\",\"SCDG\"") != std::string::npos);
    QCOMPARE(t_->prompts.Texts(), (std::vector<std::string>{
                                      "! Please enter a valid rigidity index",
                                      "! SEISMIC TESTS ARE NOT PART OF AGS 4.0.3; CHOOSE 4.2 TO INCLUDE THEM"}));
    QCOMPARE(QString::fromStdString(t_->prompts.LastFileRequest().filter), QString("AGS4 Files (*.ags)|*.ags"));
  }
};

QTEST_MAIN(AgsExportWindowTest)
#include "ags_export_window_test.moc"
