// Drives the real main window offscreen: the processing options, the channel lists, the sounding
// buttons and the menus, with the prompts answered from a script.
#include "ui/shell/form1.h"

#include <QAction>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest>
#include <memory>

#include "core/common/file_access.h"
#include "ui/common/qt_prompts.h"
#include "ui/presentation/form4.h"
#include "ui/presentation/sounding_data_window.h"
#include "support/qt_test_support.h"
#include "support/test_support.h"

using marlview::Form1;
using marlview::test::TestSession;

namespace {

QString Q(const std::string& text) { return QString::fromStdString(text); }

QStringList Rows(const QListWidget* list) {
  QStringList rows;
  for (int i = 0; i < list->count(); ++i) rows << list->item(i)->text();
  return rows;
}

const QString kGeneralError =
    "! Marlview has encountered an error: Error #13: 'Type mismatch' from 'OpenDatSounding'";

}  // namespace

class Form1Test : public QObject {
  Q_OBJECT

 private:
  template <typename T>
  T* Control(const char* name) {
    T* control = form_->findChild<T*>(name);
    if (control == nullptr) qFatal("no control %s", name);
    return control;
  }
  QStringList Log() const { return marlview::test::LogOf(t_->prompts); }
  void ClickOption(const char* name) { marlview::test::ClickOption(Control<QRadioButton>(name)); }
  // Chooses the sounding option with the open dialog answered by path.
  void Open(const std::string& path) {
    t_->prompts.Script({path});
    ClickOption("optProcessSounding");
  }
  void ClickRow(int row) { marlview::test::ClickRow(Control<QListWidget>("lstAvailableChannels"), row); }
  bool OnOptions() {
    return Control<QGroupBox>("frmSelectTestType")->isVisible() &&
           !Control<QGroupBox>("frmSelectSoundingChannels")->isVisible();
  }
  // SimpleDat with four more channels: seven to choose from.
  std::string WriteSevenChannelDat() {
    marlview::test::DatFile dat = marlview::test::SimpleDat(20);
    for (const char* sensor : {"Temperature", "Incl X", "Incl Y", "Exc Sense"}) {
      dat.channels.push_back({.sensor = sensor, .default_units = "V", .display_units = "V"});
    }
    for (auto& row : dat.rows) row.insert(row.end(), {0.6, 0.02, 0.07, 2.0});
    t_->data.Write("SEVEN.DAT", dat.Bytes());
    return t_->data.File("SEVEN.DAT");
  }

  std::unique_ptr<TestSession> t_;
  std::unique_ptr<Form1> form_;
  const std::string a01_ = marlview::test::SamplesDirectory() + "/CPT-A01.DAT";

 private slots:
  void init() {
    t_ = std::make_unique<TestSession>();
    t_->prompts.ClearLog();
    form_ = std::make_unique<Form1>(*t_->session, t_->prompts);
    form_->show();
    QVERIFY(QTest::qWaitForWindowExposed(form_.get()));
  }
  void cleanup() {
    form_.reset();
    t_.reset();
  }

  void startsOnTheSixOptions() {
    QCOMPARE(form_->windowTitle(), QString("Marlview Version 3.1.6"));
    QVERIFY(OnOptions());
    for (const char* name : {"optProcessSounding", "optProcessSoundingsBatch", "optProcessDissipations",
                             "optProcessSeismic", "optProcessVideo", "optProcessVerification"}) {
      auto* option = Control<QRadioButton>(name);
      QVERIFY2(option->isVisible() && !option->isChecked(), name);
    }
    QVERIFY(!Control<QAction>("mnuAddData")->isEnabled());
    QVERIFY(Log().isEmpty());
  }

  void opensASoundingAndListsItsChannels() {
    Open(a01_);
    QCOMPARE(Log(), QStringList{Q("open -> " + a01_)});
    QVERIFY(t_->session->SoundingOpen);
    QVERIFY(Control<QGroupBox>("frmSelectSoundingChannels")->isVisible());
    QVERIFY(!Control<QGroupBox>("frmSelectTestType")->isVisible());
    QVERIFY(Control<QRadioButton>("optProcessSounding")->isChecked());
    // The roles first, then the measured and derived channels in channel order, less "Not Connected".
    const QStringList rows = Rows(Control<QListWidget>("lstAvailableChannels"));
    QCOMPARE(rows.mid(0, 12),
             (QStringList{"Tip Resistance (Qc)", "Tip Resistance (Qt)", "Sleeve Friction", "Pore Pressure U2",
                          "Friction Ratio (Fs/Qt)", "Inclination X", "Inclination Y", "SBT(1983)*",
                          "Friction Ratio (Fs/Qc)", "SPT N*", "Temperature", "Exc Sense"}));
    QCOMPARE(rows.size(), 26);
    QVERIFY(!rows.contains("Not Connected"));
    const QString info = Control<QLabel>("lblSoundingInfo")->text();
    QVERIFY2(info.contains("FILENAME: CPT-A01.DAT") && info.contains("DISTANCE PUSHED: 25.00 (m)"),
             qPrintable(info));
    QVERIFY(Control<QAction>("mnuAddData")->isEnabled());
  }

  void selectionDrivesThePlotAndListButtons() {
    Open(a01_);
    auto* plot = Control<QPushButton>("cmdPlotSounding");
    auto* list = Control<QPushButton>("cmdListSounding");
    auto* selected = Control<QListWidget>("lstSelectedChannels");
    QVERIFY(!plot->isEnabled() && !list->isEnabled());
    ClickRow(3);
    ClickRow(0);
    QCOMPARE(Rows(selected), (QStringList{"Pore Pressure U2", "Tip Resistance (Qc)"}));
    QVERIFY(plot->isEnabled() && list->isEnabled());
    ClickRow(3);  // a second click takes the channel out again
    QCOMPARE(Rows(selected), QStringList{"Tip Resistance (Qc)"});
    QCOMPARE(Q(t_->session->Sounding().ChannelName[form_->Controller().SelectedChannels().at(0)]),
             QString("Tip Resistance (Qc)"));
    QTest::mouseClick(Control<QPushButton>("cmdClearSelection"), Qt::LeftButton);
    QVERIFY(Rows(selected).isEmpty());
    QVERIFY(!plot->isEnabled() && !list->isEnabled());
    QCOMPARE(Log().size(), 1);
  }

  void refusesMoreThanSixChannels() {
    Open(WriteSevenChannelDat());
    QVERIFY(Control<QListWidget>("lstAvailableChannels")->count() >= 7);
    for (int row = 0; row < 6; ++row) ClickRow(row);
    t_->prompts.ClearLog();
    QTest::mouseClick(Control<QPushButton>("cmdPlotSounding"), Qt::LeftButton);
    QVERIFY(Log().isEmpty());
    QVERIFY(form_->PlotWindow() != nullptr && form_->PlotWindow()->isVisible());
    ClickRow(6);
    t_->prompts.ClearLog();
    QTest::mouseClick(Control<QPushButton>("cmdPlotSounding"), Qt::LeftButton);
    QCOMPARE(Log(), QStringList{"! A maximum of 6 channels can be graphed at a time."});
    QCOMPARE(Control<QListWidget>("lstSelectedChannels")->count(), 7);
  }

  // A GEF sounding is read only: no edit button and no save in its plot and list; a GEF
  // dissipation report chosen here is refused and the options come back.
  void opensAGefSoundingReadOnlyAndRefusesItsDissipation() {
    const std::string samples = marlview::test::SamplesDirectory();
    Open(samples + "/DIS-G01.gef");
    QVERIFY(Log().contains("! DIS-G01.gef is a dissipation file"));
    QVERIFY(OnOptions() && !t_->session->SoundingOpen);
    Open(samples + "/CPT-G01.gef");
    QVERIFY(t_->session->SoundingOpen);
    QCOMPARE(t_->session->Sounding().AcquisitionFamily, marlview::kGefFamily);
    QVERIFY(!Control<QPushButton>("cmdEditSounding")->isVisible());
    ClickRow(0);
    QTest::mouseClick(Control<QPushButton>("cmdPlotSounding"), Qt::LeftButton);
    QVERIFY(form_->PlotWindow() != nullptr && !form_->PlotWindow()->mnuSaveAs->isVisible());
    QTest::mouseClick(Control<QPushButton>("cmdListSounding"), Qt::LeftButton);
    QVERIFY(form_->ListWindow() != nullptr);
    QVERIFY(!form_->ListWindow()->mnuSaveAs->isVisible());
    QVERIFY(!form_->ListWindow()->mnuExportLogDATCompatibleDATFile->isVisible());
  }

  void doneAndCancelReturnToTheOptions() {
    Open(a01_);
    ClickRow(0);
    QTest::mouseClick(Control<QPushButton>("cmdSoundingDone"), Qt::LeftButton);
    QVERIFY(OnOptions());
    QVERIFY(!t_->session->SoundingOpen);
    QVERIFY(!Control<QRadioButton>("optProcessSounding")->isChecked());
    QVERIFY(!Control<QAction>("mnuAddData")->isEnabled());
    t_->prompts.ClearLog();
    Open("");
    QCOMPARE(Log(), QStringList{"open -> "});
    QVERIFY(OnOptions());
    QVERIFY(!Control<QRadioButton>("optProcessSounding")->isChecked());
  }

  void aBadFileReportsAndTheProgramStaysUsable() {
    std::vector<std::string> lines = marlview::test::SimpleDat(5).Lines();
    std::string& data_line = lines[lines.size() - 3];
    data_line[data_line.find('E')] = 'Q';
    std::string bytes;
    for (const auto& line : lines) bytes += line + "\r\n";
    t_->data.Write("BROKEN.DAT", bytes);

    Open(t_->data.File("BROKEN.DAT"));
    QCOMPARE(Log(), (QStringList{Q("open -> " + t_->data.File("BROKEN.DAT")), kGeneralError}));
    QVERIFY(OnOptions());
    QVERIFY(!t_->session->SoundingOpen);
    QVERIFY(Control<QListWidget>("lstAvailableChannels")->count() == 0);
    QVERIFY(Control<QLabel>("lblSoundingInfo")->text().isEmpty());

    Open(a01_);
    QVERIFY(t_->session->SoundingOpen);
    QCOMPARE(Control<QListWidget>("lstAvailableChannels")->count(), 26);
    QVERIFY(Control<QLabel>("lblSoundingInfo")->text().contains("FILENAME: CPT-A01.DAT"));
  }

  void addDataAppendsAChannel() {
    Open(a01_);
    t_->data.Write("avg.str", "str\r\nCone Resistance Avg\r\nQavg\r\n(MPa)\r\nx\r\n0.0 1.0\r\n10.0 3.0\r\n");
    t_->prompts.Script({t_->data.File("avg.str")});
    Control<QAction>("mnuAddData")->trigger();
    const QStringList rows = Rows(Control<QListWidget>("lstAvailableChannels"));
    QCOMPARE(rows.size(), 27);
    QCOMPARE(rows.last(), QString("Cone Resistance Avg"));
    QCOMPARE(Log().last(), Q("open -> " + t_->data.File("avg.str")));
    // The new row is a channel like the others.
    ClickRow(26);
    QCOMPARE(Rows(Control<QListWidget>("lstSelectedChannels")), QStringList{"Cone Resistance Avg"});
  }

  void selectionMenusWriteTheirSettings() {
    const std::string path = t_->session->SettingsPath("Sounding Selection Settings");
    Control<QAction>("mnuMultipleTests")->trigger();
    QCOMPARE(t_->session->SoundingSelectionMode, int16_t{1});
    QCOMPARE(Q(marlview::ReadWholeFile(path)), Q(marlview::NumberLine(1)));
    QVERIFY(Control<QAction>("mnuMultipleTests")->isChecked() &&
            !Control<QAction>("mnuSingleTest")->isChecked());
    Control<QAction>("mnuSingleTest")->trigger();
    QCOMPARE(t_->session->SoundingSelectionMode, int16_t{0});
    QCOMPARE(Q(marlview::ReadWholeFile(path)), Q(marlview::NumberLine(0)));
    QVERIFY(!Control<QAction>("mnuMultipleTests")->isChecked() &&
            Control<QAction>("mnuSingleTest")->isChecked());
    QVERIFY(Log().isEmpty());
  }

  void openDialogMatchesExtensionsInEitherCase() {
    QString selected;
    const QString filter = marlview::ToDialogFilter(
        "PX DAS (*.CPT)|*.CPT|QRD FIELDBOX (*.DAT)|*.DAT|ALL SYSTEMS (*.CPT;*.DAT)|*.CPT;*.DAT", 2, &selected);
    QCOMPARE(filter, QString("PX DAS (*.CPT *.cpt);;QRD FIELDBOX (*.DAT *.dat);;"
                             "ALL SYSTEMS (*.CPT *.cpt *.DAT *.dat)"));
    QCOMPARE(selected, QString("QRD FIELDBOX (*.DAT *.dat)"));
  }

  void doneAsksAboutAnOpenEditWindow() {
    Open(a01_);
    t_->session->flags.EditWindowOpen = true;
    t_->prompts.ClearLog();
    t_->prompts.Script({"No"});
    QTest::mouseClick(Control<QPushButton>("cmdSoundingDone"), Qt::LeftButton);
    QCOMPARE(Log(), QStringList{"? Edit window is open. Close window and continue? -> No"});
    QVERIFY(Control<QGroupBox>("frmSelectSoundingChannels")->isVisible());
    QVERIFY(t_->session->SoundingOpen && t_->session->flags.EditWindowOpen);
    t_->prompts.Script({"Yes"});
    QTest::mouseClick(Control<QPushButton>("cmdSoundingDone"), Qt::LeftButton);
    QVERIFY(OnOptions());
    QVERIFY(!t_->session->flags.EditWindowOpen);
  }
};

QTEST_MAIN(Form1Test)
#include "form1_test.moc"
