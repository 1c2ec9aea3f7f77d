// The printed report and the classification chart from the windows, offscreen: the report of a
// plotted sounding written to a PDF with the company logo, and the chart opened from the main menu.
#include <QAction>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QListWidget>
#include <QRadioButton>
#include <QScrollBar>
#include <QtTest>

#include "core/common/file_access.h"
#include "core/presentation/sounding_list.h"
#include "core/presentation/sounding_report.h"
#include "render/pdf_print_job.h"
#include "support/qt_test_support.h"
#include "ui/presentation/form4.h"
#include "ui/presentation/form6.h"
#include "ui/shell/form1.h"

class ReportChartTest : public QObject, protected marlview::test::MainWindowTest {
  Q_OBJECT

 private:
  void OpenSounding() {
    t_->prompts.Script({marlview::test::SamplesDirectory() + "/CPT-A01.DAT"});
    marlview::test::ClickOption(form_->optProcessSounding);
  }
  marlview::Session& S() { return *t_->session; }

 private slots:
  void init() { QVERIFY(StartMainWindow()); }
  void cleanup() { StopMainWindow(); }

  void printsThePlotAndListPagesWithTheLogo() {
    QImage logo(300, 100, QImage::Format_RGB32);
    logo.fill(Qt::darkBlue);
    QVERIFY(logo.save(QString::fromStdString(S().SettingsPath("logo.jpg")), "JPG"));
    OpenSounding();
    for (int row : {0, 2, 3}) marlview::test::ClickRow(form_->lstAvailableChannels, row);
    QTest::mouseClick(form_->cmdPlotSounding, Qt::LeftButton);
    marlview::Form4* plot = form_->PlotWindow();
    QVERIFY(plot != nullptr && QTest::qWaitForWindowExposed(plot));

    const std::string pdf = t_->data.File("report.pdf");
    marlview::PdfPrintJob job(pdf, marlview::PaperSize::kLetter);
    marlview::PrintSounding(job, plot->Plot(), S());
    marlview::ListView view;
    view.channels = form_->Controller().SelectedChannels();
    marlview::PrintList(job, S(), view);
    QVERIFY(job.EndDoc());
    const std::string bytes = marlview::ReadWholeFile(pdf);
    QVERIFY(bytes.starts_with("%PDF"));
    QVERIFY(bytes.find("/Subtype /Image") != std::string::npos);
    QVERIFY(t_->prompts.Texts().empty());
  }

  void opensTheChartOverTheSoundingOrAlone() {
    form_->mnuClassificationChart->trigger();
    auto* alone = form_->findChild<marlview::FrmClassification*>();
    QVERIFY(alone != nullptr && QTest::qWaitForWindowExposed(alone));
    QVERIFY(!alone->Picture1->pixmap().isNull());
    alone->mnuReturn->trigger();
    QTRY_VERIFY(form_->findChild<marlview::FrmClassification*>() == nullptr);

    OpenSounding();
    form_->mnuClassificationChart->trigger();
    auto* chart = form_->findChild<marlview::Form6*>();
    QVERIFY(chart != nullptr && QTest::qWaitForWindowExposed(chart));
    QCOMPARE(chart->VScroll1->maximum(), S().Sounding().ReadingCount);
    chart->VScroll1->setValue(400);
    QCOMPARE(chart->View().first_row, 400);
    // The reading at the scroll position stands out in blue.
    const QImage image = chart->picChart->grab().toImage();
    bool blue = false;
    for (int y = 0; y < image.height() && !blue; ++y) {
      for (int x = 0; x < image.width() && !blue; ++x) blue = image.pixelColor(x, y) == QColor(0, 0, 255);
    }
    QVERIFY(blue);
    QVERIFY(t_->prompts.Texts().empty());
    chart->CloseChart->trigger();
    QTRY_VERIFY(form_->findChild<marlview::Form6*>() == nullptr);
  }

  void normalisedClassificationFromTheSettingsMenuAndTheChart() {
    OpenSounding();
    const int classic = S().Sounding().TotalChannels;
    const int rows = form_->lstAvailableChannels->count();
    form_->mnuNormalisedClassification->trigger();
    QVERIFY(form_->mnuNormalisedClassification->isChecked());
    QCOMPARE(marlview::ReadWholeFile(S().SettingsPath("Normalised Classification.txt")), std::string("1\r\n"));
    // The demo sounding has a pore pressure channel, so Bq comes with the other five.
    QCOMPARE(S().Sounding().TotalChannels, classic + 6);
    QCOMPARE(form_->lstAvailableChannels->count(), rows + 6);
    QCOMPARE(form_->lstAvailableChannels->item(rows + 4)->text(), QString("SBTn(2009)*"));

    form_->mnuClassificationChart->trigger();
    auto* chart = form_->findChild<marlview::Form6*>();
    QVERIFY(chart != nullptr && QTest::qWaitForWindowExposed(chart));
    QVERIFY(chart->mnuChartUbc1983->isChecked());
    chart->mnuChartNormalised->trigger();
    QVERIFY(chart->mnuChartNormalised->isChecked() && !chart->mnuChartUbc1983->isChecked());
    QVERIFY(chart->View().kind == marlview::ChartKind::kNormalised);
    chart->CloseChart->trigger();

    form_->mnuNormalisedClassification->trigger();
    QVERIFY(!form_->mnuNormalisedClassification->isChecked());
    QCOMPARE(marlview::ReadWholeFile(S().SettingsPath("Normalised Classification.txt")), std::string("0\r\n"));
    QCOMPARE(S().Sounding().TotalChannels, classic);
    QCOMPARE(form_->lstAvailableChannels->count(), rows);
    QVERIFY(t_->prompts.Texts().empty());
  }
};

QTEST_MAIN(ReportChartTest)
#include "report_chart_test.moc"
