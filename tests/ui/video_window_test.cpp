// Drives video mode offscreen from the main window with the real ffmpeg on the demo video: the
// first frame, the scroll bar, the cropping, a saved picture, the start depth dialog and the way
// back to the processing options.
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QtTest>
#include <memory>

#include "core/common/file_access.h"
#include "core/video/bmp_file.h"
#include "core/video/process_runner.h"
#include "support/qt_test_support.h"
#include "support/test_support.h"
#include "ui/shell/form1.h"
#include "ui/video/frm_video_processor.h"

using marlview::FrmVideoProcessor;

class VideoWindowTest : public QObject, private marlview::test::MainWindowTest {
  Q_OBJECT

 private:
  QStringList Log() const { return marlview::test::LogOf(t_->prompts); }

 private slots:
  void init() {
    QVERIFY(StartMainWindow());
    t_->prompts.ClearLog();
  }
  void cleanup() { StopMainWindow(); }

  void movesThroughThePushAndSavesACroppedPicture() {
    const std::string ffmpeg = marlview::FindProgramOnPath("ffmpeg"), ffprobe = marlview::FindProgramOnPath("ffprobe");
    if (ffmpeg.empty() || ffprobe.empty()) QSKIP("ffmpeg is not installed");
    t_->data.Write("ffmpeg location.txt", ffmpeg + "\r\n" + ffprobe + "\r\n");
    const std::string samples = marlview::test::SamplesDirectory();
    t_->prompts.Script({samples + "/OCPT-A01.mp4", samples + "/OCPT-A01.tim"});
    marlview::test::ClickOption(form_->optProcessVideo);
    FrmVideoProcessor* window = form_->VideoWindow();
    QVERIFY(window != nullptr);
    QVERIFY(QTest::qWaitForWindowExposed(window));
    QVERIFY(!form_->frmSelectTestType->isEnabled());
    QCOMPARE(Log().last(), QString("! Configuration file corrupted or missing. Please setup configuration."));
    QCOMPARE(window->lblVideoFiles->text(), QString("OCPT-A01.mp4"));
    QCOMPARE(window->lblMaxDepth->text(), QString("2.400 m"));
    QCOMPARE(window->scrVideoPosition->maximum(), 21);
    QVERIFY(window->Video().OutputPicture() != nullptr);

    window->scrVideoPosition->setValue(8);
    QCOMPARE(window->lblDepth->text(), QString("2.140 m"));
    window->scrCropping->setValue(10);
    QCOMPARE(window->lblCropping->text(), QString("10%"));
    const auto picture = window->Video().OutputPicture();
    QVERIFY(picture != nullptr);
    QCOMPARE(picture->width, 648);
    QCOMPARE(picture->height, 432);

    marlview::test::TempDirectory out;
    t_->prompts.ClearLog();
    t_->prompts.Script({out.File("frame.bmp")});
    QTest::mouseClick(window->cmdExtractCurrentImage, Qt::LeftButton);
    QCOMPARE(t_->prompts.LastFileRequest().default_name, std::string("OCPT-A01(002.140m).bmp"));
    QCOMPARE(t_->prompts.LastFileRequest().start_directory, samples);
    const auto saved = marlview::ReadBmp(marlview::ReadWholeFile(out.File("frame.bmp")));
    QVERIFY(saved.has_value());
    QCOMPARE(saved->width, 648);
    QCOMPARE(saved->height, 432);
    QCOMPARE(saved->rgb, picture->rgb);

    marlview::test::AnswerModal<QDialog>(window, [](QDialog* dialog) {
      dialog->findChild<QLineEdit*>("txtNewStartDepth")->setText("2.2");
      QTest::mouseClick(dialog->findChild<QPushButton*>("cmdOkStartDepthChange"), Qt::LeftButton);
    });
    QTest::mouseClick(window->cmdChangeStartDepth, Qt::LeftButton);
    QCOMPARE(window->scrVideoPosition->minimum(), 11);
    QCOMPARE(window->lblVideoFileStartDepth->text(), QString("2.2"));

    QTest::mouseClick(window->cmdCancel, Qt::LeftButton);
    QTRY_VERIFY(form_->VideoWindow() == nullptr);
    QVERIFY(form_->frmSelectTestType->isEnabled());
  }
};

QTEST_MAIN(VideoWindowTest)
#include "video_window_test.moc"
