// frmVerification: widgets named as the controls they are; the texts, the graph and the pages
// come from the core's verification code.
#include "ui/verification/frm_verification.h"

#include <QAction>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <string>
#include <utility>

#include "core/common/number_format.h"
#include "core/session/session.h"
#include "core/verification/verification.h"
#include "ui/common/event_guard.h"
#include "ui/common/named.h"
#include "ui/common/qt_prompts.h"
#include "ui/presentation/printer_print_job.h"
#include "ui/presentation/widget_surface.h"

namespace marlview {
namespace {

// Scale labels as the graph's own axis labels read.
QString ScaleText(float value) { return ToQString(FormatNumber(value, "#######0.###")); }

}  // namespace

VerificationPicture::VerificationPicture(const VerificationRecord& record, QWidget* parent)
    : QWidget(parent), record_(record) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setMinimumSize(360, 280);
}

void VerificationPicture::paintEvent(QPaintEvent*) {
  WidgetSurface surface(this);
  surface.SetScale(0, 0, width(), height());
  surface.Cls();
  surface.SetFont("Arial", 8, false, false);
  const double line = surface.TextHeight("0");
  DrawVerificationChart(surface, line, line * 1.5, width() - 2 * line, height() - line * 2,
                        record_.Channel[static_cast<size_t>(channel)]);
}

FrmVerification::FrmVerification(Session& session, UserPrompts& prompts, std::function<void()> on_return,
                                 QWidget* parent)
    : QMainWindow(parent), session_(session), prompts_(prompts), on_return_(std::move(on_return)) {
  setObjectName("frmVerification");
  setWindowTitle(ToQString("VERIFICATION: " + session_.Verification.FileName));
  BuildControls();
  BuildMenus();
  Connect();
  ShowChannel();
  resize(980, 620);
}

FrmVerification::~FrmVerification() = default;

void FrmVerification::BuildControls() {
  auto* central = new QWidget(this);
  auto* layout = new QHBoxLayout(central);
  auto* left = new QVBoxLayout;

  const VerificationRecord& r = session_.Verification;
  auto* cone = new QLabel(ToQString("CONE ID: " + r.ConeId + "\nDATE: " + r.TestDate + "\nOPERATOR: " + r.OperatorName),
                          central);
  left->addWidget(cone);
  lblChannel = Named(new QLabel(central), "lblChannel");
  lblChannel->setStyleSheet("font-weight: bold");
  left->addWidget(lblChannel);

  auto* reference = new QGroupBox(central);
  reference->setObjectName("fraReference");
  auto* reference_layout = new QVBoxLayout(reference);
  auto label = [&](QWidget* owner, QLayout* into, const char* name) {
    auto* created = Named(new QLabel(owner), name);
    created->setTextInteractionFlags(Qt::TextSelectableByMouse);
    into->addWidget(created);
    return created;
  };
  lblManufacturer = label(reference, reference_layout, "lblManufacturer");
  lblSerialNumber = label(reference, reference_layout, "lblSerialNumber");
  lblCapacity = label(reference, reference_layout, "lblCapacity");
  lblSensitivity = label(reference, reference_layout, "lblSensitivity");
  left->addWidget(reference);

  auto* table = new QGridLayout;
  table->addWidget(new QLabel("APPLIED", central), 0, 0, Qt::AlignRight);
  table->addWidget(new QLabel("MEASURED", central), 0, 1, Qt::AlignRight);
  table->addWidget(new QLabel("DEVIATION", central), 0, 2, Qt::AlignRight);
  lblUnits1 = Named(new QLabel(central), "lblUnits1");
  lblUnits2 = Named(new QLabel(central), "lblUnits2");
  table->addWidget(lblUnits1, 1, 0, Qt::AlignRight);
  table->addWidget(lblUnits2, 1, 1, Qt::AlignRight);
  table->addWidget(new QLabel("(%)", central), 1, 2, Qt::AlignRight);
  for (int n = 0; n < kMaxVerificationRows; ++n) {
    auto cell = [&](const char* name, int column) {
      auto* created = Named(new QLabel(central), name);
      created->setMinimumWidth(110);
      table->addWidget(created, n + 2, column, Qt::AlignRight);
      return created;
    };
    const auto i = static_cast<size_t>(n);
    lblAppliedPressure[i] = cell("lblAppliedPressure", 0);
    lblMeasuredPressure[i] = cell("lblMeasuredPressure", 1);
    lblDeviation[i] = cell("lblDeviation", 2);
  }
  left->addLayout(table);
  cmdShowVerification = Named(new QPushButton("NEXT CHANNEL", central), "cmdShowVerification");
  left->addWidget(cmdShowVerification);
  left->addStretch(1);
  layout->addLayout(left);

  auto* right = new QVBoxLayout;
  Picture1 = Named(new VerificationPicture(session_.Verification, central), "Picture1");
  right->addWidget(Picture1, 1);
  auto* scales = new QHBoxLayout;
  auto scale = [&](const char* name, const char* caption) {
    scales->addWidget(new QLabel(caption, central));
    auto* created = Named(new QLabel(central), name);
    scales->addWidget(created);
    return created;
  };
  lblXMin = scale("lblXMin", "X MIN:");
  lblXMax = scale("lblXMax", "X MAX:");
  lblYMin = scale("lblYMin", "Y MIN:");
  lblYMax = scale("lblYMax", "Y MAX:");
  right->addLayout(scales);
  layout->addLayout(right, 1);
  setCentralWidget(central);
}

void FrmVerification::BuildMenus() {
  QMenu* file = menuBar()->addMenu("&File");
  file->setObjectName("mnuFile");
  mnuPrintCurrent = NamedAction(file, "mnuPrintCurrent", "Print &Current Channel...");
  mnuPrintAll = NamedAction(file, "mnuPrintAll", "Print &All Channels...");
  mnuPrintPreview = NamedAction(file, "mnuPrintPreview", "Print Pre&view...");
  file->addSeparator();
  mnuReturn = NamedAction(file, "mnuReturn", "&Return to Main Form");
}

void FrmVerification::Connect() {
  auto on = [this](QAction* action, const char* source, std::function<void()> handler) {
    connect(action, &QAction::triggered, this,
            [this, source, handler = std::move(handler)] { RunGuarded(prompts_, source, handler); });
  };
  connect(cmdShowVerification, &QPushButton::clicked, this,
          [this] { RunGuarded(prompts_, "cmdShowVerification_Click", [&] { ShowNextChannel(); }); });
  on(mnuPrintCurrent, "mnuPrintCurrent_Click",
     [this] { PrintWithDialog(this, [this](PrintJob& job) { PrintPages(job, false); }); });
  on(mnuPrintAll, "mnuPrintAll_Click",
     [this] { PrintWithDialog(this, [this](PrintJob& job) { PrintPages(job, true); }); });
  on(mnuPrintPreview, "mnuPrintPreview_Click",
     [this] { PrintPreview(this, [this](PrintJob& job) { PrintPages(job, false); }); });
  on(mnuReturn, "mnuReturn_Click", [this] { close(); });
}

void FrmVerification::closeEvent(QCloseEvent* event) {
  event->accept();
  if (!returning_ && on_return_) {
    returning_ = true;
    on_return_();
  }
}

void FrmVerification::ShowNextChannel() {
  channel_ = channel_ % kVerificationChannels + 1;
  ShowChannel();
}

void FrmVerification::PrintPages(PrintJob& job, bool all) const {
  RunGuarded(prompts_, all ? "mnuPrintAll_Click" : "mnuPrintCurrent_Click", [&] {
    PrintVerification(job, session_.Verification, all ? 1 : channel_, all ? kVerificationChannels : channel_);
  });
}

void FrmVerification::ShowChannel() {
  const VerificationRecord& r = session_.Verification;
  const VerificationChannel& ch = r.Channel[static_cast<size_t>(channel_)];
  lblChannel->setText(ToQString("CHANNEL " + std::to_string(channel_) + ": " + ch.ChannelTitle));
  const VerificationReference reference = ReferenceBlock(r, channel_);
  findChild<QGroupBox*>("fraReference")->setTitle(ToQString(reference.title));
  QLabel* const lines[] = {lblManufacturer, lblSerialNumber, lblCapacity, lblSensitivity};
  for (size_t i = 0; i < reference.lines.size(); ++i) lines[i]->setText(ToQString(reference.lines[i]));
  lblUnits1->setText(ToQString("(" + ch.ChannelUnits + ")"));
  lblUnits2->setText(ToQString("(" + ch.ChannelUnits + ")"));
  const auto rows = VerificationTable(ch);
  for (size_t i = 0; i < rows.size(); ++i) {
    lblAppliedPressure[i]->setText(ToQString(rows[i].applied));
    lblMeasuredPressure[i]->setText(ToQString(rows[i].measured));
    lblDeviation[i]->setText(ToQString(rows[i].deviation));
  }
  const VerificationAxes axes = VerificationChartAxes(ch);
  lblXMin->setText(ScaleText(axes.x.min));
  lblXMax->setText(ScaleText(axes.x.max));
  lblYMin->setText(ScaleText(axes.y.min));
  lblYMax->setText(ScaleText(axes.y.max));
  Picture1->channel = channel_;
  Picture1->update();
}

}  // namespace marlview
