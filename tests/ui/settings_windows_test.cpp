// Drives the settings dialogs offscreen from the main window's menus: a general setting and a
// print setting changed and saved, then read back by a fresh session from the same directory.
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QtTest>
#include <algorithm>

#include "core/common/file_access.h"
#include "core/session/session.h"
#include "core/shell/startup.h"
#include "support/qt_test_support.h"
#include "support/test_support.h"
#include "ui/settings/frm_display_units.h"
#include "ui/settings/frm_print_settings.h"
#include "ui/settings/settings_windows.h"
#include "ui/shell/form1.h"

using marlview::FrmGeneralSettings;
using marlview::FrmPrintSettings;
using marlview::ReportFamily;
using marlview::ReportKind;

class SettingsWindowsTest : public QObject, protected marlview::test::MainWindowTest {
  Q_OBJECT

 private:
  QStringList Log() const { return marlview::test::LogOf(t_->prompts); }
  // A session started afresh on the same data directory, found as the program finds it.
  std::unique_ptr<marlview::Session> Restart() {
    qputenv("MARLVIEW_DATA_DIR", QByteArray::fromStdString(t_->data.Path()));
    auto session = std::make_unique<marlview::Session>(
        marlview::SessionPaths{marlview::ResolveDataDirectory(), marlview::test::DefaultsDirectory()});
    marlview::ScriptedPrompts prompts;
    marlview::RunStartup(*session, prompts);
    if (!prompts.Log().empty()) qFatal("start-up reported a settings file");
    return session;
  }

 private slots:
  void init() { QVERIFY(StartMainWindow()); }
  void cleanup() { StopMainWindow(); }

  void GeneralSettingsRefuseAWideToleranceThenSurviveARestart() {
    marlview::test::AnswerModal<FrmGeneralSettings>(this, [](FrmGeneralSettings* dialog) {
      dialog->txtCustomer->setText("Delta Bridge");
      dialog->txtDuplicateDepthTolerance->setText("0.02");
      QTest::mouseClick(dialog->cmdOK, Qt::LeftButton);
      if (!dialog->isVisible()) qFatal("the dialog closed on a tolerance above a centimetre");
      dialog->txtDuplicateDepthTolerance->setText("0.01");
      dialog->optRemoveRodBreaksNo->setChecked(true);
      dialog->scrSBTBrightness->setValue(30);
      QTest::mouseClick(dialog->cmdOK, Qt::LeftButton);
    });
    form_->mnuGeneralSettings->trigger();
    QCOMPARE(Log(), QStringList{"! DUPLICATE DEPTH THRESHOLD CANNOT EXCEED .01 METERS"});
    QCOMPARE(QString::fromStdString(t_->session->general.Customer), QString("Delta Bridge"));

    const auto fresh = Restart();
    QCOMPARE(QString::fromStdString(fresh->general.Customer), QString("Delta Bridge"));
    QCOMPARE(fresh->general.DuplicateDepthTolerance, 0.01f);
    QCOMPARE(fresh->rod_break.RemoveOnOpen, int16_t{0});
    QCOMPARE(fresh->SbtBrightnessFactor, 30.0f);
  }

  void PrintSettingsAreSavedFromTheMenuAndOnReturn() {
    marlview::test::AnswerModal<FrmPrintSettings>(this, [this](FrmPrintSettings* dialog) {
      QCOMPARE(dialog->objectName(), QString("frmPrintSettingsSounding"));
      QCOMPARE(dialog->windowTitle(), QString("QRD FIELDBOX SOUNDING PLOT SETTINGS"));
      // The other family: its caption and its save menu.
      dialog->mnuQ3MTL->trigger();
      QCOMPARE(dialog->windowTitle(), QString("PX DAS SOUNDING PLOT SETTINGS"));
      QCOMPARE(dialog->mnuSaveSettings->text(), QString("Save PX DAS Settings"));
      QComboBox* logo = dialog->findChild<QComboBox*>("cmbPlotPrintLogo");
      QVERIFY(logo != nullptr);
      QCOMPARE(logo->itemText(3), QString("No Logo"));
      logo->setCurrentIndex(3);
      emit logo->activated(3);
      dialog->mnuSaveSettings->trigger();
      QLineEdit* margin = dialog->findChild<QLineEdit*>("txtListLeftMargin");
      QVERIFY(margin != nullptr);
      margin->setText("0.75");
      emit margin->editingFinished();
      QVERIFY(dialog->Changed());
      t_->prompts.Script({"Yes"});
      dialog->mnuReturn->trigger();
    });
    form_->mnuSoundingPrintSettings->trigger();
    QCOMPARE(Log(), QStringList{"? SETTINGS CHANGED. SAVE NEW SETTINGS? -> Yes"});

    const auto fresh = Restart();
    const marlview::ReportSettings& px = fresh->Report(ReportFamily::kPxDas, ReportKind::kSounding);
    QCOMPARE(px.Plot.PrintLogo, marlview::kLogoNone);
    QCOMPARE(px.List.LeftMargin, 0.75f);
    QVERIFY(!marlview::FileExists(t_->data.File("FIELDBOX SOUNDING HEADERS.txt")));
  }

  void ATemplateSavedAsDefaultFillsTheSelectionOfTheNextSounding() {
    const std::string sounding = marlview::test::SamplesDirectory() + "/CPT-A01.DAT";
    t_->prompts.Script({sounding});
    marlview::test::ClickOption(form_->optProcessSounding);
    QVERIFY(form_->lstAvailableChannels->count() > 3);
    marlview::test::ClickRow(form_->lstAvailableChannels, 3);
    marlview::test::ClickRow(form_->lstAvailableChannels, 0);
    const QStringList chosen = {form_->lstSelectedChannels->item(0)->text(), form_->lstSelectedChannels->item(1)->text()};
    marlview::test::AnswerModal<marlview::FrmSoundingSaveTemplate>(this, [](marlview::FrmSoundingSaveTemplate* dialog) {
      dialog->txtTemplateName->setText("Bridge");
      dialog->chkSetAsDefault->setChecked(true);
      QTest::mouseClick(dialog->cmdOK, Qt::LeftButton);
    });
    form_->mnuSaveTemplate->trigger();
    QVERIFY(marlview::FileExists(t_->data.File("Bridge.tem")));

    // The select dialog opens on the default, ticked; OK applies it to a cleared selection.
    QTest::mouseClick(form_->findChild<QPushButton*>("cmdClearSelection"), Qt::LeftButton);
    QCOMPARE(form_->lstSelectedChannels->count(), 0);
    marlview::test::AnswerModal<marlview::FrmSoundingTemplate>(this, [](marlview::FrmSoundingTemplate* dialog) {
      if (dialog->File1->currentItem() == nullptr || !dialog->chkSetAsDefault->isChecked()) qFatal("no default shown");
      if (dialog->lstTemplateChannels->count() != 2) qFatal("the template's channels are not shown");
      QTest::mouseClick(dialog->cmdOK, Qt::LeftButton);
    });
    form_->mnuSelectTemplate->trigger();
    QCOMPARE(form_->lstSelectedChannels->count(), 2);
    QCOMPARE(form_->lstSelectedChannels->item(0)->text(), chosen[0]);
    QCOMPARE(form_->lstSelectedChannels->item(1)->text(), chosen[1]);
    QVERIFY(t_->prompts.Texts().empty());
  }

  void ChannelUnitsAndFormatsAreKeptForTheNextStart() {
    marlview::test::AnswerModal<marlview::FrmDisplayUnits>(this, [](marlview::FrmDisplayUnits* dialog) {
      // SPT N* as a whole number in the CSV form, and Tip (Qc) in kPa on the graph.
      const auto& ids = dialog->Ids();
      const auto row = [&](int id) { return static_cast<int>(std::find(ids.begin(), ids.end(), id) - ids.begin()); };
      dialog->lstChannels->setCurrentRow(row(46));
      dialog->cmbFormat[3]->setCurrentText("######0");
      dialog->lstChannels->setCurrentRow(row(1));
      dialog->cmbUnits[0]->setCurrentIndex(dialog->cmbUnits[0]->findText("kPa"));
      QTest::mouseClick(dialog->cmdOK, Qt::LeftButton);
    });
    form_->mnuChannelUnitsFormats->trigger();
    const auto session = Restart();
    QCOMPARE(QString::fromStdString(session->choices.FormatChoice[3][46]), QString("######0"));
    QCOMPARE(QString::fromStdString(session->units.Name(session->choices.UnitChoice[0][1], 1)), QString("kPa"));
    QCOMPARE(QString::fromStdString(session->choices.FormatChoice[4][46]), QString("######0.000"));
  }
};

QTEST_MAIN(SettingsWindowsTest)
#include "settings_windows_test.moc"
