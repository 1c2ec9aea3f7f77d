// Drives the sounding plot window offscreen from the main window: opening on the chosen channels,
// the read-out under the mouse, the comment, scale and water table dialogs, and the way back.
#include "ui/presentation/form4.h"

#include <QAction>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest>
#include <memory>
#include <optional>

#include "core/common/file_access.h"
#include "support/qt_test_support.h"
#include "support/test_support.h"
#include "ui/editing/parameter_dialogs_ui.h"
#include "ui/presentation/plot_dialogs.h"
#include "ui/shell/form1.h"

using marlview::Form4;

namespace {

const QString kReturnQuestion = "? THIS WILL CLOSE ALL OPEN WINDOWS AND RETURN TO THE MAIN FORM. CONTINUE?";

// The number a label starts with; ok tells whether there is one.
double Number(const QLabel* label, bool* ok) {
  return label->text().section(' ', 0, 0, QString::SectionSkipEmpty).toDouble(ok);
}

}  // namespace

class Form4Test : public QObject, protected marlview::test::MainWindowTest {
  Q_OBJECT

 private:
  QStringList Log() const { return marlview::test::LogOf(t_->prompts); }
  // Opens CPT-A01 and plots its tip resistance and pore pressure; the window is drawn once.
  Form4* OpenPlot() {
    t_->prompts.Script({marlview::test::SamplesDirectory() + "/CPT-A01.DAT"});
    marlview::test::ClickOption(form_->optProcessSounding);
    QListWidget* list = form_->lstAvailableChannels;
    for (int row : {0, 3}) marlview::test::ClickRow(list, row);
    t_->prompts.ClearLog();
    QTest::mouseClick(form_->cmdPlotSounding, Qt::LeftButton);
    Form4* plot = form_->PlotWindow();
    if (plot == nullptr || !QTest::qWaitForWindowExposed(plot)) qFatal("no plot window");
    plot->picPlot->repaint();
    return plot;
  }
  // The mouse as the window system moves it, to the middle of the plot area or to a point of picPlot.
  void MoveOver(Form4* plot, std::optional<QPoint> at = std::nullopt) {
    const marlview::PlotState& p = plot->Plot();
    const QPoint centre(int(p.PlotAreaLeft + p.PlotAreaWidth / 2), int(p.PlotAreaTop + p.PlotAreaHeight / 2));
    QTest::mouseMove(plot->windowHandle(), plot->picPlot->mapTo(plot, at.value_or(centre)));
  }
  marlview::Session& S() { return *t_->session; }

 private slots:
  void init() { QVERIFY(StartMainWindow()); }
  void cleanup() { StopMainWindow(); }

  void opensAndDrawsTheChosenChannels() {
    Form4* plot = OpenPlot();
    QVERIFY(Log().isEmpty() && plot->isVisible() && S().flags.PlotWindowOpen);
    QCOMPARE(plot->windowTitle(), QString("SOUNDING PLOT: CPT-A01.DAT"));
    QCOMPARE(plot->findChildren<QLabel*>("lblChannelValue").size(), 2);
    QVERIFY(!plot->cmdPreviousTest->isVisible() && !plot->cmdNextTest->isVisible());
    // The sleeve offset in centimetres and in inches describe the same distance.
    bool cm_ok = false, in_ok = false;
    const double cm = Number(plot->lblFrictionOffsetCM, &cm_ok),
                 in = Number(plot->lblFrictionOffsetIn, &in_ok);
    QVERIFY(cm_ok && in_ok && qAbs(in * 2.54 - cm) < 0.01);
    const QImage image = plot->picPlot->grab().toImage();
    bool red = false;  // the traces
    for (int i = 0; i < image.width() * image.height() && !red; ++i) {
      const QColor c = image.pixelColor(i % image.width(), i / image.width());
      red = c.red() > 200 && c.green() < 80 && c.blue() < 80;
    }
    QVERIFY(red);
  }

  void readoutFollowsTheMouseInsideThePlotOnly() {
    Form4* plot = OpenPlot();
    const marlview::PlotState& p = plot->Plot();
    MoveOver(plot);
    QVERIFY2(plot->lblDepth->text().endsWith("(m)"), qPrintable(plot->lblDepth->text()));
    bool ok = false;
    // Half way down the plot is half way down the depth axis, to within a reading or two.
    QVERIFY(qAbs(Number(plot->lblDepth, &ok) - (p.DepthAxisMin + p.DepthAxisMax) / 2) < 0.1 && ok);
    for (QLabel* value : plot->lblChannelValue) QVERIFY2((Number(value, &ok), ok), qPrintable(value->text()));
    MoveOver(plot, QPoint(2, 2));
    QVERIFY(plot->lblDepth->text().isEmpty());
    for (QLabel* value : plot->lblChannelValue) QVERIFY(value->text().isEmpty());
  }

  void commentNeedsTextAndADepthOnTheAxis() {
    Form4* plot = OpenPlot();
    marlview::FrmComments dialog(plot->Plot(), S(), t_->prompts, plot);
    dialog.cmdOK->click();
    QCOMPARE(Log(), QStringList{"! NO TEXT TO PLACE"});
    QVERIFY(dialog.result() != QDialog::Accepted && plot->Plot().comments.empty());
    dialog.txtComment->setText("CLAY LAYER");
    dialog.txtDepth->setText("5");
    dialog.cmdOK->click();
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QVERIFY(plot->Plot().comments.size() == 1 && plot->Plot().comments[0].depth_m == 5.0);
  }

  void scaleIsCheckedAndRoundTripsThroughAFile() {
    Form4* plot = OpenPlot();
    marlview::PlotState& p = plot->Plot();
    marlview::FrmScaleSounding dialog(p, S(), t_->prompts, plot);
    QCOMPARE(dialog.txtMin.size(), size_t{2});
    const QString auto_depth_max = dialog.txtDepthMax->text(), auto_tip_max = dialog.txtMax[0]->text();
    dialog.txtMin[1]->setText("100");
    dialog.txtMax[1]->setText("1");
    dialog.cmdOK->click();
    QCOMPARE(Log(), QStringList{"! MIN value(s) must be less than MAX value(s)"});
    QVERIFY(dialog.result() != QDialog::Accepted && !p.ScaleSetByUser);
    // What the boxes show is saved; reset goes back to the automatic scale, and loading brings it back.
    dialog.txtMin[1]->setText("-50");
    dialog.txtMax[1]->setText("350");
    dialog.chkMinorTicks[1]->setChecked(true);
    dialog.txtDepthMax->setText("20");
    const std::string path = t_->data.File("mine");
    t_->prompts.Script({path, path + ".SCL"});
    dialog.cmdSaveScale->click();
    QVERIFY(marlview::FileExists(path + ".SCL"));
    dialog.cmdReset->click();
    QVERIFY(dialog.txtDepthMax->text() == auto_depth_max && !dialog.chkMinorTicks[1]->isChecked());
    dialog.cmdLoadScale->click();
    QCOMPARE(dialog.txtDepthMax->text(), QString("20.00"));
    QCOMPARE(dialog.txtMin[1]->text() + " " + dialog.txtMax[1]->text(), QString("-50.00 350.00"));
    QVERIFY(dialog.chkMinorTicks[1]->isChecked() && dialog.txtMax[0]->text() == auto_tip_max);
    dialog.cmdOK->click();
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QVERIFY(p.ScaleSetByUser && p.DepthAxisMax == 20 && p.AxisMax[2] == 350);
  }

  void waterTableEntryIsCheckedAndStored() {
    Form4* plot = OpenPlot();
    marlview::FrmChangeWaterTableDepth dialog(S(), t_->prompts, plot);
    dialog.txtWaterTableDepth->setText("abc");
    dialog.cmdOK->click();
    QCOMPARE(Log(), QStringList{"! Please enter a valid depth"});
    QVERIFY(dialog.result() != QDialog::Accepted);
    dialog.txtWaterTableDepth->setText("1.5");
    dialog.cmdOK->click();
    QVERIFY(dialog.result() == QDialog::Accepted && S().Sounding().WaterTableDepth == 1.5f);
    marlview::FrmChangeWaterTableDepth again(S(), t_->prompts, plot);
    QCOMPARE(again.txtWaterTableDepth->text(), QString("1.50"));
    again.cmdUndefined->click();
    QCOMPARE(S().Sounding().WaterTableDepth, -99.0f);
  }

  void viewMenusRescaleAndStayInStep() {
    Form4* plot = OpenPlot();
    const double metres = plot->Plot().DepthAxisMax;
    plot->mnuFeet->trigger();
    QVERIFY(plot->mnuFeet->isChecked() && !plot->mnuMeters->isChecked());
    QVERIFY(qAbs(plot->Plot().DepthAxisMax - metres * S().FeetPerMetre) < 0.01);
    plot->picPlot->repaint();
    MoveOver(plot);
    QVERIFY2(plot->lblDepth->text().endsWith("(ft)"), qPrintable(plot->lblDepth->text()));
    // Save As writes the sounding in its own layout where the dialog says.
    const std::string saved = t_->data.File("SAVED.DAT");
    t_->prompts.Script({saved});
    plot->mnuSaveAs->trigger();
    QVERIFY(t_->prompts.Texts().empty());
    const auto bytes = marlview::TryReadWholeFile(saved);
    QVERIFY(bytes.has_value() && bytes->starts_with("KORVAN FILE VER:"));
  }

  void returnAsksThenEndsTheSounding() {
    QPointer<Form4> plot(OpenPlot());
    t_->prompts.Script({"No", "Yes"});
    plot->mnuReturn->trigger();
    QVERIFY(plot->isVisible() && form_->PlotWindow() == plot);
    plot->mnuReturn->trigger();
    // The plot window is closed first, so the main window has nothing more to ask.
    QCOMPARE(Log(), (QStringList{kReturnQuestion + " -> No", kReturnQuestion + " -> Yes"}));
    QVERIFY(form_->PlotWindow() == nullptr && !S().flags.PlotWindowOpen && !S().SoundingOpen);
    QVERIFY(form_->frmSelectTestType->isVisible() && !form_->frmSelectSoundingChannels->isVisible());
    QTRY_VERIFY(plot.isNull());
  }

  void doneOnTheMainWindowClosesThePlot() {
    QPointer<Form4> plot(OpenPlot());
    t_->prompts.Script({"Yes"});
    QTest::mouseClick(form_->cmdSoundingDone, Qt::LeftButton);
    QCOMPARE(Log(), QStringList{"? Plot window is open. Close window and continue? -> Yes"});
    QVERIFY(form_->PlotWindow() == nullptr && !S().flags.PlotWindowOpen && !S().SoundingOpen);
    QTRY_VERIFY(plot.isNull());
  }
};

QTEST_MAIN(Form4Test)
#include "form4_test.moc"
