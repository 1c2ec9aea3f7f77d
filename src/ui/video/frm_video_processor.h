// frmVideoProcessor, the video window: the frame of each depth of the push, moved through with the
// scroll bar, its cropping, the start depth, the extraction of pictures, the sounding channels
// beside the video and the printed log. Its two small dialogs set the start depth and the log's range.
#pragma once

#include <QDialog>
#include <QMainWindow>
#include <functional>

#include "core/video/video_session.h"

class QAction;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;
class QScrollBar;

namespace marlview {

class PrintJob;

// The output picture, kept in its aspect ratio within the widget.
class VideoPicture : public QWidget {
  Q_OBJECT
 public:
  explicit VideoPicture(QWidget* parent);
  std::function<std::shared_ptr<const RgbImage>()> picture;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

// frmChangeStartDepth of the video window; the editor has a dialog of that name for the sounding.
class FrmChangeVideoStartDepth : public QDialog {
  Q_OBJECT
 public:
  FrmChangeVideoStartDepth(VideoSession& video, UserPrompts& prompts, QWidget* parent);
  QLabel* lblCurrentStartDepth;
  QLineEdit* txtNewStartDepth;
  QPushButton* cmdOkStartDepthChange;
  QPushButton* cmdCancelStartDepthChange;
};

// The range of the log, in the window's unit, and where it goes: the printer, the print preview or
// a PDF file.
class FrmLogInterval : public QDialog {
  Q_OBJECT
 public:
  enum class Destination { kPrinter, kPreview, kPdf };
  FrmLogInterval(const std::pair<std::string, std::string>& range, QWidget* parent);
  Destination Chosen() const { return chosen_; }
  QLineEdit* txtStartDepth;
  QLineEdit* txtEndDepth;
  QPushButton* cmdPrint;
  QPushButton* cmdPrintPreview;
  QPushButton* cmdPrintPdf;
  QPushButton* cmdCancel;

 private:
  Destination chosen_ = Destination::kPrinter;
};

class FrmVideoProcessor : public QMainWindow {
  Q_OBJECT

 public:
  // on_return runs when the user goes back to the main window.
  FrmVideoProcessor(VideoSession& video, UserPrompts& prompts, std::function<void()> on_return,
                    QWidget* parent = nullptr);

  // Form_Load: run once the window shows, as it may tell about the configuration over it.
  void LoadForm();
  // Mirrors the session's state into the controls.
  void Refresh();
  VideoSession& Video() { return video_; }

  QLabel* lblVideoFiles;
  QLabel* lblTimeFile;
  QLabel* lblVideoFileStartDepth;
  QLabel* lblMaxDepth;
  QLabel* lblDepth;
  QLabel* lblUnits;
  QLabel* lblCropping;
  QLabel* lblAssociatedFile;
  VideoPicture* picOutputImage;
  QScrollBar* scrVideoPosition;
  QScrollBar* scrCropping;
  QRadioButton* optMeters;
  QRadioButton* optFeet;
  QComboBox* cmbDepthInterval;
  QComboBox* cmbNumberOfColumns;
  QComboBox* cmbPrintCoverSheet;
  QPushButton* cmdSave;
  QPushButton* cmdChangeStartDepth;
  QPushButton* cmdExtractCurrentImage;
  QPushButton* cmdExtractImages;
  QPushButton* cmdSounding;
  QListWidget* lstAvailableChannels;
  QListWidget* lstSelectedChannels;
  QPushButton* cmdPrintTestLog;
  QPushButton* cmdPrintCurrentImage;
  QPushButton* cmdCancel;
  QAction* mnuPrintCurrentImage;
  QAction* mnuPreviewCurrentImage;
  QAction* mnuCurrentImageToPdf;
  QAction* mnuPrintTestLog;
  QAction* mnuReturn;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void BuildControls();
  void Connect();
  void Handle(const char* source, const std::function<void()>& handler);
  // Sends pages to the destination chosen; PDF asks for the file's name.
  void PrintTo(FrmLogInterval::Destination where, const std::function<void(PrintJob&)>& pages);

  VideoSession& video_;
  UserPrompts& prompts_;
  std::function<void()> on_return_;
  bool returning_ = false;
  bool extracting_ = false;
  bool close_after_extraction_ = false;
  bool refreshing_ = false;
};

}  // namespace marlview
