// The comment and scale dialogs of the sounding plot.
#include "ui/presentation/plot_dialogs.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/common/file_access.h"
#include "core/common/number_format.h"
#include "core/common/number_read.h"
#include "core/common/text_rules.h"
#include "core/session/session.h"
#include "ui/common/event_guard.h"
#include "ui/common/named.h"
#include "ui/common/qt_prompts.h"

namespace marlview {
namespace {

constexpr const char* kScaleFilter = "Scale File (*.SCL)|*.SCL";
constexpr const char* kBoxFormat = "##0.00";

FileDialogRequest ScaleFileRequest(const char* title, const Session& session) {
  FileDialogRequest request;
  request.title = title;
  request.filter = kScaleFilter;
  request.start_directory = session.SoundingDirectory;
  return request;
}

QString BoxText(double value) { return ToQString(FormatNumber(value, kBoxFormat)); }
double BoxValue(const QLineEdit* box) { return LenientNumber(box->text().toStdString()); }

}  // namespace

FrmComments::FrmComments(PlotState& plot, const Session& session, UserPrompts& prompts, QWidget* parent)
    : QDialog(parent), plot_(plot), session_(session), prompts_(prompts) {
  setObjectName("frmComments");
  setWindowTitle("ADD COMMENTS");
  auto* layout = new QGridLayout(this);
  layout->addWidget(new QLabel("COMMENT", this), 0, 0);
  txtComment = Named(new QLineEdit(this), "txtComment");
  layout->addWidget(txtComment, 0, 1);
  layout->addWidget(new QLabel(plot_.DepthUnit == 1 ? "DEPTH (m)" : "DEPTH (ft)", this), 1, 0);
  txtDepth = Named(new QLineEdit(this), "txtDepth");
  layout->addWidget(txtDepth, 1, 1);
  layout->addLayout(OkCancelRow(this, cmdOK, cmdCancel), 2, 0, 1, 2);

  connect(cmdOK, &QPushButton::clicked, this, [this] {
    bool added = false;
    RunGuarded(prompts_, "cmdOK_Click", [&] {
      added = AddComment(plot_, session_, txtComment->text().toStdString(), txtDepth->text().toStdString(),
                         prompts_);
    });
    if (added) accept();
  });
}

FrmScaleSounding::FrmScaleSounding(PlotState& plot, const Session& session, UserPrompts& prompts,
                                   QWidget* parent)
    : QDialog(parent), plot_(plot), session_(session), prompts_(prompts) {
  setObjectName("frmScaleSounding");
  setWindowTitle("SCALE SOUNDING");
  auto* layout = new QVBoxLayout(this);
  auto* grid = new QGridLayout;
  grid->addWidget(new QLabel("MIN", this), 0, 1);
  grid->addWidget(new QLabel("MAX", this), 0, 2);
  grid->addWidget(new QLabel("MINOR TICKS", this), 0, 3);
  grid->addWidget(new QLabel(plot_.DepthUnit == 1 ? "DEPTH (m)" : "DEPTH (ft)", this), 1, 0);
  txtDepthMin = Named(new QLineEdit(this), "txtDepthMin");
  txtDepthMax = Named(new QLineEdit(this), "txtDepthMax");
  grid->addWidget(txtDepthMin, 1, 1);
  grid->addWidget(txtDepthMax, 1, 2);
  const SoundingStore& store = session_.Sounding();
  for (int i = 1; i <= plot_.PlotChannelCount; ++i) {
    const int c = plot_.PlotChannels[i];
    lblChannelName.push_back(Named(new QLabel(ToQString(store.ChannelShortName[c]), this), "lblChannelName"));
    txtMin.push_back(Named(new QLineEdit(this), "txtMin"));
    txtMax.push_back(Named(new QLineEdit(this), "txtMax"));
    chkMinorTicks.push_back(Named(new QCheckBox(this), "chkMinorTicks"));
    grid->addWidget(lblChannelName.back(), i + 1, 0);
    grid->addWidget(txtMin.back(), i + 1, 1);
    grid->addWidget(txtMax.back(), i + 1, 2);
    grid->addWidget(chkMinorTicks.back(), i + 1, 3, Qt::AlignHCenter);
  }
  layout->addLayout(grid);
  auto* buttons = new QHBoxLayout;
  auto button = [&](const char* name, const QString& caption) { return NamedButton(buttons, this, name, caption); };
  cmdOK = button("cmdOK", "OK");
  cmdReset = button("cmdReset", "RESET");
  cmdSaveScale = button("cmdSaveScale", "SAVE SCALE");
  cmdLoadScale = button("cmdLoadScale", "LOAD SCALE");
  cmdCancel = button("cmdCancel", "CANCEL");
  layout->addLayout(buttons);
  cmdOK->setDefault(true);
  FillBoxes();

  connect(cmdOK, &QPushButton::clicked, this, [this] {
    bool applied = false;
    RunGuarded(prompts_, "cmdOK_Click", [&] { applied = ApplyBoxes(plot_); });
    if (applied) accept();
  });
  connect(cmdReset, &QPushButton::clicked, this, [this] {
    Handle("cmdReset_Click", [&] {
      plot_.ScaleSetByUser = false;
      AutoScale(plot_, session_);
    });
  });
  connect(cmdSaveScale, &QPushButton::clicked, this,
          [this] { RunGuarded(prompts_, "cmdSaveScale_Click", [&] { SaveScale(); }); });
  connect(cmdLoadScale, &QPushButton::clicked, this,
          [this] { Handle("cmdLoadScale_Click", [&] { LoadScale(); }); });
  connect(cmdCancel, &QPushButton::clicked, this,
          [this] { RunGuarded(prompts_, "cmdCancel_Click", [&] { reject(); }); });
}

void FrmScaleSounding::Handle(const char* source, const std::function<void()>& handler) {
  RunGuarded(prompts_, source, handler);
  FillBoxes();
}

void FrmScaleSounding::FillBoxes() {
  txtDepthMin->setText(BoxText(plot_.DepthAxisMin));
  txtDepthMax->setText(BoxText(plot_.DepthAxisMax));
  for (size_t row = 0; row < txtMin.size(); ++row) {
    const size_t i = row + 1;
    txtMin[row]->setText(BoxText(plot_.AxisMin[i]));
    txtMax[row]->setText(BoxText(plot_.AxisMax[i]));
    chkMinorTicks[row]->setChecked(plot_.AxisMinorTicks[i]);
  }
}

bool FrmScaleSounding::ApplyBoxes(PlotState& plot) {
  std::vector<ColumnScale> columns;
  for (size_t row = 0; row < txtMin.size(); ++row) {
    columns.push_back({BoxValue(txtMin[row]), BoxValue(txtMax[row]), chkMinorTicks[row]->isChecked()});
  }
  return ApplyUserScale(plot, BoxValue(txtDepthMin), BoxValue(txtDepthMax), columns, prompts_);
}

// The scale saved is the one in the boxes, as the user sees it, whether or not it was applied yet.
void FrmScaleSounding::SaveScale() {
  PlotState shown = plot_;
  if (!ApplyBoxes(shown)) return;
  std::string path = prompts_.SaveFile(ScaleFileRequest("Save Scale", session_));
  if (path.empty()) return;
  if (!EndsWithNoCase(path, ".SCL")) path += ".SCL";
  WriteFileAtomically(path, WriteScaleFile(shown, session_.Sounding()));
}

void FrmScaleSounding::LoadScale() {
  const std::string path = prompts_.OpenFile(ScaleFileRequest("Load Scale", session_));
  if (path.empty()) return;
  LoadScaleFile(plot_, session_.Sounding(), ReadWholeFile(path), prompts_);
}

}  // namespace marlview
