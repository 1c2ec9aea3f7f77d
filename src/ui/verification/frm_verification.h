// frmVerification: one channel of the verification file at a time, its table beside the
// reference block and its graph of applied against measured values, with the print menus.
#pragma once

#include <QMainWindow>
#include <QWidget>
#include <array>
#include <functional>

#include "core/common/user_prompts.h"
#include "core/session/verification_record.h"

class QAction;
class QLabel;
class QPushButton;

namespace marlview {

class PrintJob;
class Session;

// Picture1: the graph, drawn by the core on the widget's surface.
class VerificationPicture : public QWidget {
  Q_OBJECT

 public:
  VerificationPicture(const VerificationRecord& record, QWidget* parent);
  int channel = 1;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const VerificationRecord& record_;
};

class FrmVerification : public QMainWindow {
  Q_OBJECT

 public:
  // on_return runs when the user goes back to the main window.
  FrmVerification(Session& session, UserPrompts& prompts, std::function<void()> on_return,
                  QWidget* parent = nullptr);
  ~FrmVerification() override;

  int Channel() const { return channel_; }
  // cmdShowVerification: the next channel, after the third the first again.
  void ShowNextChannel();
  // The pages of mnuPrintCurrent (this channel) or mnuPrintAll (each channel on its own page).
  void PrintPages(PrintJob& job, bool all) const;

  QPushButton* cmdShowVerification;
  VerificationPicture* Picture1;
  QLabel* lblChannel;
  QLabel* lblManufacturer;
  QLabel* lblSerialNumber;
  QLabel* lblCapacity;
  QLabel* lblSensitivity;
  QLabel* lblUnits1;
  QLabel* lblUnits2;
  QLabel* lblXMin;
  QLabel* lblXMax;
  QLabel* lblYMin;
  QLabel* lblYMax;
  std::array<QLabel*, kMaxVerificationRows> lblAppliedPressure{};
  std::array<QLabel*, kMaxVerificationRows> lblMeasuredPressure{};
  std::array<QLabel*, kMaxVerificationRows> lblDeviation{};
  QAction* mnuPrintCurrent;
  QAction* mnuPrintAll;
  QAction* mnuPrintPreview;
  QAction* mnuReturn;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void BuildControls();
  void BuildMenus();
  void Connect();
  // Fills the reference block, the table and the scale labels of the channel and redraws the graph.
  void ShowChannel();

  Session& session_;
  UserPrompts& prompts_;
  std::function<void()> on_return_;
  int channel_ = 1;
  bool returning_ = false;
};

}  // namespace marlview
