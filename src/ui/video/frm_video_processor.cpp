// frmVideoProcessor and its dialogs.
#include "ui/video/frm_video_processor.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QVBoxLayout>

#include "core/common/number_format.h"
#include "core/common/runtime_failure.h"
#include "core/common/text_rules.h"
#include "core/video/video_report.h"
#include "render/pdf_print_job.h"
#include "ui/common/event_guard.h"
#include "ui/common/named.h"
#include "ui/common/qt_prompts.h"
#include "ui/presentation/printer_print_job.h"

namespace marlview {
namespace {

QLabel* Label(QWidget* parent, const char* name, const QString& text = {}) {
  return Named(new QLabel(text, parent), name);
}

void FillList(QListWidget* list, const std::vector<std::string>& rows) {
  list->clear();
  for (const std::string& row : rows) list->addItem(ToQString(row));
}

}  // namespace

VideoPicture::VideoPicture(QWidget* parent) : QWidget(parent) {
  setMinimumSize(360, 240);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void VideoPicture::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), Qt::black);
  const auto image = picture ? picture() : nullptr;
  if (image == nullptr || image->Empty()) return;
  const QImage frame(image->rgb.data(), image->width, image->height, 3 * image->width, QImage::Format_RGB888);
  const QSize fitted = frame.size().scaled(size(), Qt::KeepAspectRatio);
  const QRect target((width() - fitted.width()) / 2, (height() - fitted.height()) / 2, fitted.width(), fitted.height());
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(target, frame);
}

FrmChangeVideoStartDepth::FrmChangeVideoStartDepth(VideoSession& video, UserPrompts& prompts, QWidget* parent)
    : QDialog(parent) {
  setObjectName("frmChangeStartDepth");
  setWindowTitle("CHANGE START DEPTH");
  auto* form = new QFormLayout(this);
  const QString unit = video.Feet() ? " (ft)" : " (m)";
  const QString current = ToQString(FormatNumber(video.Shown(video.VideoStartDepth), "###0.000"));
  lblCurrentStartDepth = Label(this, "lblCurrentStartDepth", current);
  form->addRow("CURRENT START DEPTH" + unit, lblCurrentStartDepth);
  txtNewStartDepth = Named(new QLineEdit(current, this), "txtNewStartDepth");
  form->addRow("NEW START DEPTH" + unit, txtNewStartDepth);
  auto* row = new QHBoxLayout;
  cmdOkStartDepthChange = NamedButton(row, this, "cmdOkStartDepthChange", "OK");
  cmdCancelStartDepthChange = NamedButton(row, this, "cmdCancelStartDepthChange", "CANCEL");
  cmdOkStartDepthChange->setDefault(true);
  form->addRow(row);
  connect(cmdCancelStartDepthChange, &QPushButton::clicked, this, &QDialog::reject);
  // A refused depth leaves the dialog open for another.
  connect(cmdOkStartDepthChange, &QPushButton::clicked, this, [this, &video, &prompts] {
    RunGuarded(prompts, "cmdOkStartDepthChange_Click", [&] {
      if (video.ChangeStartDepth(txtNewStartDepth->text().toStdString())) accept();
    });
  });
}

FrmLogInterval::FrmLogInterval(const std::pair<std::string, std::string>& range, QWidget* parent) : QDialog(parent) {
  setObjectName("frmLogInterval");
  setWindowTitle("PRINT TEST LOG");
  auto* form = new QFormLayout(this);
  txtStartDepth = Named(new QLineEdit(ToQString(range.first), this), "txtStartDepth");
  txtEndDepth = Named(new QLineEdit(ToQString(range.second), this), "txtEndDepth");
  form->addRow("START DEPTH", txtStartDepth);
  form->addRow("END DEPTH", txtEndDepth);
  auto* row = new QHBoxLayout;
  cmdPrint = NamedButton(row, this, "cmdPrint", "PRINT");
  cmdPrintPreview = NamedButton(row, this, "cmdPrintPreview", "PREVIEW");
  cmdPrintPdf = NamedButton(row, this, "cmdPrintPdf", "PDF...");
  cmdCancel = NamedButton(row, this, "cmdCancel", "CANCEL");
  cmdPrint->setDefault(true);
  form->addRow(row);
  const auto choose = [this](QPushButton* button, Destination where) {
    connect(button, &QPushButton::clicked, this, [this, where] {
      chosen_ = where;
      accept();
    });
  };
  choose(cmdPrint, Destination::kPrinter);
  choose(cmdPrintPreview, Destination::kPreview);
  choose(cmdPrintPdf, Destination::kPdf);
  connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

FrmVideoProcessor::FrmVideoProcessor(VideoSession& video, UserPrompts& prompts, std::function<void()> on_return,
                                     QWidget* parent)
    : QMainWindow(parent), video_(video), prompts_(prompts), on_return_(std::move(on_return)) {
  setObjectName("frmVideoProcessor");
  setWindowTitle("OCPT VIDEO PROCESSOR");
  BuildControls();
  Connect();
  resize(1000, 720);
}

void FrmVideoProcessor::BuildControls() {
  QMenu* file = menuBar()->addMenu("&File");
  file->setObjectName("mnuFile");
  mnuPrintTestLog = NamedAction(file, "mnuPrintTestLog", "Print Test &Log...");
  mnuPrintCurrentImage = NamedAction(file, "mnuPrintCurrentImage", "&Print Current Image...");
  mnuPreviewCurrentImage = NamedAction(file, "mnuPreviewCurrentImage", "Print Pre&view of Current Image...");
  mnuCurrentImageToPdf = NamedAction(file, "mnuCurrentImageToPdf", "Current Image to P&DF...");
  file->addSeparator();
  mnuReturn = NamedAction(file, "mnuReturn", "&Return to Main Menu");

  auto* central = new QWidget(this);
  auto* main = new QHBoxLayout(central);
  auto* left = new QVBoxLayout;
  auto* files = new QFormLayout;
  lblVideoFiles = Label(central, "lblVideoFiles");
  lblTimeFile = Label(central, "lblTimeFile");
  files->addRow("VIDEO FILE:", lblVideoFiles);
  files->addRow("TIME FILE:", lblTimeFile);
  left->addLayout(files);
  picOutputImage = Named(new VideoPicture(central), "picOutputImage");
  picOutputImage->picture = [this] { return video_.OutputPicture(); };
  left->addWidget(picOutputImage, 1);
  scrVideoPosition = Named(new QScrollBar(Qt::Horizontal, central), "scrVideoPosition");
  left->addWidget(scrVideoPosition);
  auto* depths = new QGridLayout;
  depths->addWidget(new QLabel("START DEPTH", central), 0, 0);
  lblVideoFileStartDepth = Label(central, "lblVideoFileStartDepth");
  depths->addWidget(lblVideoFileStartDepth, 0, 1);
  depths->addWidget(new QLabel("DEPTH", central), 0, 2);
  lblDepth = Label(central, "lblDepth");
  depths->addWidget(lblDepth, 0, 3);
  depths->addWidget(new QLabel("MAX DEPTH", central), 0, 4);
  lblMaxDepth = Label(central, "lblMaxDepth");
  depths->addWidget(lblMaxDepth, 0, 5);
  lblUnits = Label(central, "lblUnits", "METERS");
  depths->addWidget(lblUnits, 0, 6);
  left->addLayout(depths);
  auto* cropping = new QHBoxLayout;
  cropping->addWidget(new QLabel("CROPPING", central));
  scrCropping = Named(new QScrollBar(Qt::Horizontal, central), "scrCropping");
  scrCropping->setRange(0, 100);
  cropping->addWidget(scrCropping, 1);
  lblCropping = Label(central, "lblCropping", "0%");
  lblCropping->setMinimumWidth(40);
  cropping->addWidget(lblCropping);
  left->addLayout(cropping);
  main->addLayout(left, 3);

  auto* right = new QVBoxLayout;
  auto* setup = Named(new QGroupBox("CONFIGURATION", central), "frmConfiguration");
  auto* setup_form = new QFormLayout(setup);
  cmbDepthInterval = Named(new QComboBox(setup), "cmbDepthInterval");
  cmbDepthInterval->addItems({"FROM FILE", "5", "10"});
  setup_form->addRow("DEPTH INTERVAL", cmbDepthInterval);
  cmbNumberOfColumns = Named(new QComboBox(setup), "cmbNumberOfColumns");
  cmbNumberOfColumns->addItems({"1", "2", "3"});
  setup_form->addRow("COLUMNS", cmbNumberOfColumns);
  cmbPrintCoverSheet = Named(new QComboBox(setup), "cmbPrintCoverSheet");
  cmbPrintCoverSheet->addItems({"No", "Yes"});
  setup_form->addRow("COVER SHEET", cmbPrintCoverSheet);
  auto* units = new QHBoxLayout;
  optMeters = Named(new QRadioButton("METERS", setup), "optMeters");
  optFeet = Named(new QRadioButton("FEET", setup), "optFeet");
  units->addWidget(optMeters);
  units->addWidget(optFeet);
  setup_form->addRow("UNITS", units);
  cmdSave = Named(new QPushButton("SAVE CONFIGURATION", setup), "cmdSave");
  setup_form->addRow(cmdSave);
  right->addWidget(setup);

  auto* buttons = new QVBoxLayout;
  cmdChangeStartDepth = NamedButton(buttons, central, "cmdChangeStartDepth", "CHANGE START DEPTH");
  cmdExtractCurrentImage = NamedButton(buttons, central, "cmdExtractCurrentImage", "EXTRACT CURRENT IMAGE");
  cmdExtractImages = NamedButton(buttons, central, "cmdExtractImages", "EXTRACT IMAGES");
  right->addLayout(buttons);

  auto* sounding = Named(new QGroupBox("SOUNDING", central), "frmSounding");
  auto* sounding_layout = new QVBoxLayout(sounding);
  cmdSounding = NamedButton(sounding_layout, sounding, "cmdSounding", "LOAD SOUNDING");
  lblAssociatedFile = Label(sounding, "lblAssociatedFile");
  sounding_layout->addWidget(lblAssociatedFile);
  lstAvailableChannels = Named(new QListWidget(sounding), "lstAvailableChannels");
  lstSelectedChannels = Named(new QListWidget(sounding), "lstSelectedChannels");
  lstSelectedChannels->setMaximumHeight(90);
  sounding_layout->addWidget(lstAvailableChannels, 1);
  sounding_layout->addWidget(lstSelectedChannels);
  right->addWidget(sounding, 1);

  auto* print = new QHBoxLayout;
  cmdPrintTestLog = NamedButton(print, central, "cmdPrintTestLog", "PRINT TEST LOG");
  cmdPrintCurrentImage = NamedButton(print, central, "cmdPrintCurrentImage", "PRINT CURRENT IMAGE");
  right->addLayout(print);
  auto* done = new QHBoxLayout;
  done->addStretch(1);
  cmdCancel = NamedButton(done, central, "cmdCancel", "DONE");
  right->addLayout(done);
  main->addLayout(right, 2);
  setCentralWidget(central);
}

void FrmVideoProcessor::Handle(const char* source, const std::function<void()>& handler) {
  RunGuarded(prompts_, source, handler);
  Refresh();
}

void FrmVideoProcessor::PrintTo(FrmLogInterval::Destination where, const std::function<void(PrintJob&)>& pages) {
  if (where == FrmLogInterval::Destination::kPrinter) {
    PrintWithDialog(this, pages);
  } else if (where == FrmLogInterval::Destination::kPreview) {
    PrintPreview(this, pages);
  } else {
    FileDialogRequest request;
    request.title = "Print to PDF";
    request.filter = "PDF (*.pdf)|*.pdf";
    request.start_directory = std::string(FolderPart(video_.VideoPath));
    std::string path = prompts_.SaveFile(request);
    if (path.empty()) return;
    if (!EndsWithNoCase(path, ".pdf")) path += ".pdf";
    PdfPrintJob job(path, PaperSize::kLetter);
    pages(job);
    if (!job.EndDoc()) Fail(kErrPathAccess);
  }
}

void FrmVideoProcessor::Connect() {
  const auto click = [this](QPushButton* button, const char* source, std::function<void()> handler) {
    connect(button, &QPushButton::clicked, this, [this, source, handler] { Handle(source, handler); });
  };
  const auto menu = [this](QAction* action, const char* source, std::function<void()> handler) {
    connect(action, &QAction::triggered, this, [this, source, handler] { Handle(source, handler); });
  };
  connect(scrVideoPosition, &QScrollBar::valueChanged, this, [this](int n) {
    if (refreshing_) return;
    Handle("scrVideoPosition_Change", [this, n] { video_.SetPosition(n); });
    // The frame shows before the next step of a drag or an extraction.
    picOutputImage->repaint();
  });
  connect(scrCropping, &QScrollBar::valueChanged, this, [this](int c) {
    if (refreshing_) return;
    Handle("scrCropping_Change", [this, c] { video_.SetCropping(c); });
  });
  connect(optMeters, &QRadioButton::clicked, this, [this] { Handle("optMeters_Click", [this] { video_.SetFeet(false); }); });
  connect(optFeet, &QRadioButton::clicked, this, [this] { Handle("optFeet_Click", [this] { video_.SetFeet(true); }); });
  connect(cmbDepthInterval, &QComboBox::activated, this,
          [this](int index) { Handle("cmbDepthInterval_Click", [this, index] { video_.SetDepthInterval(index); }); });
  connect(cmbNumberOfColumns, &QComboBox::activated, this,
          [this](int index) { Handle("cmbNumberOfColumns_Click", [this, index] { video_.SetColumns(index + 1); }); });
  connect(cmbPrintCoverSheet, &QComboBox::activated, this,
          [this](int index) { Handle("cmbPrintCoverSheet_Click", [this, index] { video_.SetCoverSheet(index == 1); }); });
  click(cmdSave, "cmdSave_Click", [this] { video_.SaveConfiguration(); });
  click(cmdChangeStartDepth, "cmdChangeStartDepth_Click", [this] {
    const int before = video_.Position;
    FrmChangeVideoStartDepth(video_, prompts_, this).exec();
    // The scroll bar moved to the new start: its frame is fetched as a move of the bar does.
    if (video_.Position != before) video_.SetPosition(video_.Position);
  });
  click(cmdExtractCurrentImage, "cmdExtractCurrentImage_Click", [this] { video_.ExtractCurrentImage(); });
  click(cmdExtractImages, "cmdExtractImages_Click", [this] {
    // The window shows each picture as it goes but takes no other command until the end, however
    // the extraction ends.
    struct Busy {
      FrmVideoProcessor* window;
      explicit Busy(FrmVideoProcessor* w) : window(w) {
        window->extracting_ = true;
        window->centralWidget()->setEnabled(false);
        window->menuBar()->setEnabled(false);
      }
      ~Busy() {
        window->extracting_ = false;
        window->centralWidget()->setEnabled(true);
        window->menuBar()->setEnabled(true);
        if (window->close_after_extraction_) QMetaObject::invokeMethod(window, &QWidget::close, Qt::QueuedConnection);
      }
    } busy(this);
    video_.ExtractImages([this](int row, const std::string&) {
      {
        const QSignalBlocker block(scrVideoPosition);
        scrVideoPosition->setValue(row);
      }
      lblDepth->setText(ToQString(video_.DepthLabel(row)));
      picOutputImage->repaint();
      QApplication::processEvents();
      return extracting_;
    });
  });
  click(cmdSounding, "cmdSounding_Click", [this] { video_.ToggleSounding(); });
  connect(lstAvailableChannels, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
    const int row = lstAvailableChannels->row(item);
    Handle("lstAvailableChannels_Click", [this, row] { video_.ClickAvailableChannel(row); });
  });
  const auto print_log = [this] {
    if (video_.RefusedEmpty()) return;
    FrmLogInterval dialog(video_.LogIntervalTexts(), this);
    if (dialog.exec() != QDialog::Accepted) return;
    const std::vector<int> rows =
        video_.LogRows(dialog.txtStartDepth->text().toStdString(), dialog.txtEndDepth->text().toStdString());
    PrintTo(dialog.Chosen(), [this, rows](PrintJob& job) { PrintVideoLog(job, video_, rows); });
  };
  click(cmdPrintTestLog, "cmdPrintTestLog_Click", print_log);
  menu(mnuPrintTestLog, "cmdPrintTestLog_Click", print_log);
  const auto print_image = [this](FrmLogInterval::Destination where) {
    if (video_.RefusedEmpty()) return;
    PrintTo(where, [this](PrintJob& job) { PrintCurrentImage(job, video_); });
  };
  click(cmdPrintCurrentImage, "cmdPrintCurrentImage_Click", [print_image] { print_image(FrmLogInterval::Destination::kPrinter); });
  menu(mnuPrintCurrentImage, "cmdPrintCurrentImage_Click", [print_image] { print_image(FrmLogInterval::Destination::kPrinter); });
  menu(mnuPreviewCurrentImage, "cmdPrintCurrentImage_Click", [print_image] { print_image(FrmLogInterval::Destination::kPreview); });
  menu(mnuCurrentImageToPdf, "cmdPrintCurrentImage_Click", [print_image] { print_image(FrmLogInterval::Destination::kPdf); });
  connect(cmdCancel, &QPushButton::clicked, this, &QWidget::close);
  connect(mnuReturn, &QAction::triggered, this, &QWidget::close);
}

void FrmVideoProcessor::LoadForm() {
  RunGuarded(prompts_, "Form_Load", [this] { video_.Load(); });
  Refresh();
}

void FrmVideoProcessor::Refresh() {
  refreshing_ = true;
  lblVideoFiles->setText(ToQString(video_.VideoTitle));
  lblTimeFile->setText(ToQString(video_.TimeFileTitle));
  lblVideoFileStartDepth->setText(ToQString(video_.StartDepthLabel()));
  lblDepth->setText(ToQString(video_.DepthLabel(video_.Position)));
  lblMaxDepth->setText(ToQString(video_.MaxDepthLabel()));
  lblUnits->setText(video_.Feet() ? "FEET" : "METERS");
  optMeters->setChecked(!video_.Feet());
  optFeet->setChecked(video_.Feet());
  scrVideoPosition->setRange(video_.ScrollMin, std::max(video_.ScrollMin, video_.VideoRowCount));
  scrVideoPosition->setValue(video_.Position);
  scrVideoPosition->setEnabled(video_.VideoRowCount >= 1);
  scrCropping->setValue(video_.VideoCropping);
  lblCropping->setText(QString::number(video_.VideoCropping) + "%");
  cmbDepthInterval->setCurrentIndex(video_.VideoDepthInterval);
  cmbNumberOfColumns->setCurrentIndex(video_.VideoColumns - 1);
  cmbPrintCoverSheet->setCurrentIndex(video_.VideoCoverSheet ? 1 : 0);
  cmdSounding->setText(video_.SoundingLoaded ? "UNLOAD SOUNDING" : "LOAD SOUNDING");
  lblAssociatedFile->setText(ToQString(video_.AssociatedFile));
  FillList(lstAvailableChannels, video_.available_rows);
  lstAvailableChannels->setEnabled(video_.SoundingLoaded);
  std::vector<std::string> selected;
  for (int c : video_.SelectedChannels) selected.push_back(video_.Owner().Sounding().ChannelName[static_cast<size_t>(c)]);
  if (!video_.SoundingLoaded) selected.assign(1, kNoSoundingLoadedText);
  FillList(lstSelectedChannels, selected);
  picOutputImage->update();
  refreshing_ = false;
}

void FrmVideoProcessor::closeEvent(QCloseEvent* event) {
  // A close during an extraction stops it after the picture in hand, and the window closes then.
  if (extracting_) {
    extracting_ = false;
    close_after_extraction_ = true;
    event->ignore();
    return;
  }
  event->accept();
  if (!returning_ && on_return_) {
    returning_ = true;
    on_return_();
  }
}

}  // namespace marlview
