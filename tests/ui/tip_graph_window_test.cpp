// Drives the rod break tool offscreen from the plot and list windows: the pointer, both mouse
// buttons, the Delete key, the wheel, undo and DONE, with the list showing each change.
#include <QAction>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QWheelEvent>
#include <QtTest>
#include <memory>

#include "core/common/number_format.h"
#include "support/qt_test_support.h"
#include "support/test_support.h"
#include "ui/presentation/data_table.h"
#include "ui/presentation/form4.h"
#include "ui/presentation/frm_enlarged_tip_graph.h"
#include "ui/presentation/sounding_data_window.h"
#include "ui/shell/form1.h"

using marlview::FrmEnlargedTipGraph;

class TipGraphWindowTest : public QObject, protected marlview::test::MainWindowTest {
  Q_OBJECT

 private:
  marlview::Session& S() { return *t_->session; }
  marlview::SoundingStore& Store() { return t_->session->Sounding(); }
  // CPT-A01 is a QRD sounding: the tool works on its engineering values.
  float Tip(int r) { return Store().ChannelReadings(r, marlview::KindColumn(Store().TipChannel, 0)); }
  std::vector<float> Tips() {
    std::vector<float> tips;
    for (int r = 1; r <= Store().ReadingCount; ++r) tips.push_back(Tip(r));
    return tips;
  }
  // Opens CPT-A01 and chooses its tip resistance and pore pressure.
  void OpenSounding() {
    t_->prompts.Script({marlview::test::SamplesDirectory() + "/CPT-A01.DAT"});
    marlview::test::ClickOption(form_->optProcessSounding);
    for (int row : {0, 3}) marlview::test::ClickRow(form_->lstAvailableChannels, row);
    t_->prompts.ClearLog();
  }
  marlview::Form4* OpenPlot() {
    QTest::mouseClick(form_->cmdPlotSounding, Qt::LeftButton);
    marlview::Form4* plot = form_->PlotWindow();
    if (plot == nullptr || !QTest::qWaitForWindowExposed(plot)) qFatal("no plot window");
    return plot;
  }
  marlview::FrmSoundingData* OpenList() {
    QTest::mouseClick(form_->cmdListSounding, Qt::LeftButton);
    marlview::FrmSoundingData* list = form_->ListWindow();
    if (list == nullptr || !QTest::qWaitForWindowExposed(list)) qFatal("no list window");
    return list;
  }
  // Works the tool once it shows, then closes it whatever the checks found, so the menu returns.
  void WhenShown(std::function<void(FrmEnlargedTipGraph*)> work) {
    marlview::test::AnswerModal<FrmEnlargedTipGraph>(this, [work = std::move(work)](FrmEnlargedTipGraph* tool) {
      if (QTest::qWaitForWindowExposed(tool)) work(tool);
      if (tool->isVisible()) tool->reject();
    });
  }
  // Just above the reading on a large graph, where the pointer picks it.
  QPoint At(FrmEnlargedTipGraph* tool, QWidget* picture, int row) {
    const marlview::TipGraph& graph = tool->Tool();
    const double metres = Store().DepthTable(row, 1) - 0.005;
    const double depth = graph.DepthUnit() == 1 ? metres : metres * S().FeetPerMetre;
    const double y = (depth - graph.YMin()) / (graph.YMax() - graph.YMin()) * picture->height();
    return picture->mapTo(tool, QPoint(picture->width() / 2, int(std::ceil(y))));
  }
  void MoveTo(FrmEnlargedTipGraph* tool, QWidget* picture, int row) {
    QTest::mouseMove(tool->windowHandle(), At(tool, picture, row));
  }
  void Click(FrmEnlargedTipGraph* tool, QWidget* picture, int row, Qt::MouseButton button) {
    MoveTo(tool, picture, row);
    QTest::mouseClick(tool->windowHandle(), button, {}, At(tool, picture, row));
  }
  // The list's tip cells of readings first..last all read alike.
  static bool Level(marlview::FrmSoundingData* list, int first, int last) {
    for (int r = first + 1; r <= last; ++r) {
      if (list->grdData->CellText(r - 1, 1) != list->grdData->CellText(first - 1, 1)) return false;
    }
    return true;
  }

 private slots:
  void init() { QVERIFY(StartMainWindow()); }
  void cleanup() { StopMainWindow(); }

  void removesAndUndoesFromThePlotWindow() {
    OpenSounding();
    marlview::FrmSoundingData* list = OpenList();
    marlview::Form4* plot = OpenPlot();
    QVERIFY(plot->mnuRemoveRodBreaks->text().startsWith(
        "REMOVE ROD BREAKS (CLICK ON POINTS BEFORE AND AFTER BREAK AND THEN PRESS 'DEL' B"));
    QCOMPARE(plot->lblRodBreakInstructions->text(),
             QString("MOVE MOUSE TO HIGHLIGHT ROD BREAK. LEFT CLICK TO REMOVE HIGHLIGHTED BREAK. RIGHT CLICK TO "
                     "EXIT MODE"));
    const std::vector<float> original = Tips();
    QVERIFY(!Level(list, 31, 39));
    bool worked = false;
    WhenShown([&](FrmEnlargedTipGraph* tool) {
      QCOMPARE(tool->objectName(), QString("frmEnlargedTipGraph"));
      QCOMPARE(tool->windowTitle(), QString("REMOVE ROD BREAKS"));
      QVERIFY(S().flags.TipGraphWindowOpen);
      QCOMPARE(tool->lblYMin->text() + " " + tool->lblYMax->text(), QString("0.00 1.00"));
      QCOMPARE(tool->lblXMin->text(), QString("0.00"));
      const marlview::TipGraph& graph = tool->Tool();

      MoveTo(tool, tool->pctEnlargedTip, 20);
      QCOMPARE(graph.HighlightRow(), 20);
      QCOMPARE(tool->lblTipCaption->text(), QString("TIP "));
      QCOMPARE(tool->lblTipValue->text().toStdString(), marlview::FormatNumber(Tip(20), "##0.00"));
      QVERIFY(tool->lblDepthCaption->text().startsWith("DEPTH (m): "));

      // A right click with no point chosen removes the reading under the pointer.
      const float tip18 = Tip(18), tip22 = Tip(22);
      Click(tool, tool->pctEnlargedTip, 20, Qt::RightButton);
      QCOMPARE(Tip(20), (tip18 + tip22) / 2);
      QCOMPARE(graph.UndoSteps(), 1);

      // Points before and after a break on the friction graph, then Delete.
      Click(tool, tool->pctEnlargedFriction, 30, Qt::LeftButton);
      Click(tool, tool->pctEnlargedFriction, 40, Qt::LeftButton);
      QCOMPARE(tool->lblTipCaption->text(), QString("FRICTION "));
      QCOMPARE(graph.FirstPoint() * 100 + graph.SecondPoint(), 3040);
      const float level = (Tip(30) + Tip(40)) / 2;
      QTest::keyClick(tool->pctEnlargedFriction, Qt::Key_Delete);
      for (int r = 31; r <= 39; ++r) QCOMPARE(Tip(r), level);
      QVERIFY(graph.FirstPoint() == 0 && graph.SecondPoint() == 0);
      QVERIFY2(Level(list, 31, 39), "the list shows the removal at once");

      // The wheel moves the window a quarter down.
      const QPoint centre(tool->pctEnlargedTip->width() / 2, tool->pctEnlargedTip->height() / 2);
      QWheelEvent wheel(centre, tool->pctEnlargedTip->mapToGlobal(centre), QPoint(), QPoint(0, -120), Qt::NoButton,
                        Qt::NoModifier, Qt::NoScrollPhase, false);
      QApplication::sendEvent(tool->pctEnlargedTip, &wheel);
      QCOMPARE(tool->lblYMin->text() + " " + tool->lblYMax->text(), QString("0.25 1.25"));

      QTest::mouseClick(tool->cmdUndo, Qt::LeftButton);
      QTest::mouseClick(tool->cmdUndo, Qt::LeftButton);
      QVERIFY(Tips() == original);
      QVERIFY(!Level(list, 31, 39));
      QTest::mouseClick(tool->cmdUndo, Qt::LeftButton);  // nothing left to undo
      QVERIFY(Tips() == original && graph.UndoSteps() == 0);

      QTest::mouseClick(tool->cmdDONE, Qt::LeftButton);
      QVERIFY(!tool->isVisible());
      worked = true;
    });
    plot->mnuRemoveRodBreaks->trigger();
    QVERIFY(worked);
    QVERIFY(!S().flags.TipGraphWindowOpen && S().flags.PlotWindowOpen);
    QCOMPARE(marlview::test::LogOf(t_->prompts), QStringList());
  }

  void opensFromTheListInItsDepthUnit() {
    OpenSounding();
    marlview::FrmSoundingData* list = OpenList();
    list->mnuFeet->trigger();
    bool worked = false;
    WhenShown([&](FrmEnlargedTipGraph* tool) {
      QCOMPARE(tool->lblYMax->text(), QString("3.00"));
      MoveTo(tool, tool->pctEnlargedTip, 10);
      QVERIFY2(tool->lblDepthCaption->text().startsWith("DEPTH (ft): "), qPrintable(tool->lblDepthCaption->text()));
      QTest::mouseMove(tool->windowHandle(), tool->cmdDONE->mapTo(tool, QPoint(2, 2)));
      QCOMPARE(tool->lblTipValue->text(), QString("N/A"));
      QTest::mouseClick(tool->cmdDONE, Qt::LeftButton);
      worked = true;
    });
    list->mnuRemoveRodBreaks->trigger();
    QVERIFY(worked);
    QCOMPARE(marlview::test::LogOf(t_->prompts), QStringList());
  }
};

QTEST_MAIN(TipGraphWindowTest)
#include "tip_graph_window_test.moc"
