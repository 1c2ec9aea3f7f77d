// PROCESS VERIFICATION offscreen: the window on a demo file, its channel button and table, a file
// that cannot be read, and every channel printed to PDF.
#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QtTest>

#include "core/common/file_access.h"
#include "render/pdf_print_job.h"
#include "support/qt_test_support.h"
#include "ui/verification/frm_verification.h"

using marlview::FrmVerification;

class FrmVerificationTest : public QObject, marlview::test::MainWindowTest {
  Q_OBJECT

 private:
  QStringList Log() const { return marlview::test::LogOf(t_->prompts); }
  FrmVerification* Open(const std::string& name) {
    t_->prompts.Script({marlview::test::SamplesDirectory() + "/" + name});
    marlview::test::ClickOption(form_->optProcessVerification);
    FrmVerification* window = form_->VerificationWindow();
    if (window == nullptr || !QTest::qWaitForWindowExposed(window)) return nullptr;
    return window;
  }

 private slots:
  void init() { QVERIFY(StartMainWindow()); }
  void cleanup() { StopMainWindow(); }

  void showsEachChannelAndPrintsThemAll() {
    FrmVerification* window = Open("CONE-DSC1042.vrf");
    QVERIFY(window != nullptr);
    QCOMPARE(window->windowTitle(), QString("VERIFICATION: CONE-DSC1042.vrf"));
    QVERIFY(!form_->frmSelectTestType->isEnabled());
    // The tip's first row has nothing applied: no deviation to show.
    QCOMPARE(window->lblDeviation[0]->text(), QString("N/A"));
    QCOMPARE(window->lblManufacturer->text(), QString("MANUFACTURER: Interface Inc."));
    QTest::mouseClick(window->cmdShowVerification, Qt::LeftButton);
    QCOMPARE(window->Channel(), 2);
    QCOMPARE(window->lblManufacturer->text(), QString("MANUFACTURER: Druck"));
    QCOMPARE(window->lblAppliedPressure[7]->text(), QString("NOT MEASURED"));
    QTest::mouseClick(window->cmdShowVerification, Qt::LeftButton);
    QTest::mouseClick(window->cmdShowVerification, Qt::LeftButton);
    QCOMPARE(window->Channel(), 1);

    const std::string pdf = t_->data.File("all.pdf");
    {
      marlview::PdfPrintJob job(pdf, marlview::PaperSize::kLetter);
      window->PrintPages(job, true);
      QVERIFY(job.EndDoc());
    }
    const std::string bytes = marlview::ReadWholeFile(pdf);
    QVERIFY(bytes.starts_with("%PDF"));
    QVERIFY(bytes.find("/Count 3") != std::string::npos);

    window->mnuReturn->trigger();
    QTRY_VERIFY(form_->VerificationWindow() == nullptr);
    QVERIFY(form_->frmSelectTestType->isEnabled());
  }

  void aFileThatCannotBeReadOpensNoWindow() {
    t_->prompts.ClearLog();
    QVERIFY(Open("CPT-A01.DAT") == nullptr);
    QVERIFY2(Log().last().endsWith("from 'OpenVerificationFile'"), qPrintable(Log().join('|')));
    QVERIFY(form_->frmSelectTestType->isEnabled());
  }
};

QTEST_MAIN(FrmVerificationTest)
#include "frm_verification_test.moc"
