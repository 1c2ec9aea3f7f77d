// The editor's operation dialogs.
#include "ui/editing/edit_dialogs.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>
#include <functional>
#include <string>
#include <utility>

#include "core/editing/edit_operations.h"
#include "core/editing/editor.h"
#include "core/session/session.h"
#include "ui/common/event_guard.h"
#include "ui/common/named.h"
#include "ui/common/qt_prompts.h"

namespace marlview {
namespace {

constexpr const char* kBallTip = "BALL";
constexpr const char* kConventionalTip = "CONVENTIONAL";

// OK runs the operation through the guard and closes the dialog when it went through.
void OnOk(QDialog* dialog, QPushButton* ok, UserPrompts& prompts, std::function<bool()> operation) {
  QObject::connect(ok, &QPushButton::clicked, dialog, [dialog, &prompts, operation = std::move(operation)] {
    bool done = false;
    RunGuarded(prompts, "cmdOK_Click", [&] { done = operation(); });
    if (done) dialog->accept();
  });
}

std::string Entry(const QLineEdit* box) { return box->text().toStdString(); }

QLineEdit* ReadOnlyBox(QWidget* parent, const char* name) {
  auto* box = Named(new QLineEdit(parent), name);
  box->setReadOnly(true);
  return box;
}

}  // namespace

FrmChangeStartDepth::FrmChangeStartDepth(Session& session, UserPrompts& prompts, QWidget* parent)
    : QDialog(parent), session_(session), prompts_(prompts) {
  setObjectName("frmChangeStartDepth");
  setWindowTitle("CHANGE START DEPTH");
  auto* layout = new QGridLayout(this);
  const QString unit = ToQString(DepthUnitText(session_));
  const QString old_depth = ToQString(StartDepthDialogText(session_));
  layout->addWidget(new QLabel("CURRENT START DEPTH", this), 0, 0);
  lblOldStartDepth = Named(new QLabel(old_depth + " " + unit, this), "lblOldStartDepth");
  layout->addWidget(lblOldStartDepth, 0, 1, 1, 2);
  layout->addWidget(new QLabel("NEW START DEPTH", this), 1, 0);
  txtStartDepth = Named(new QLineEdit(old_depth, this), "txtStartDepth");
  layout->addWidget(txtStartDepth, 1, 1);
  lblDepthUnits = Named(new QLabel(unit, this), "lblDepthUnits");
  layout->addWidget(lblDepthUnits, 1, 2);
  layout->addLayout(OkCancelRow(this, cmdOK, cmdCancel), 2, 0, 1, 3);
  OnOk(this, cmdOK, prompts_, [this] { return ChangeStartDepth(session_, Entry(txtStartDepth), prompts_); });
}

FrmRemoveNegatives::FrmRemoveNegatives(Session& session, UserPrompts& prompts, QWidget* parent)
    : QDialog(parent), session_(session), prompts_(prompts) {
  setObjectName("frmRemoveNegatives");
  setWindowTitle("REMOVE NEGATIVES");
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(new QLabel("SELECT CHANNELS TO REMOVE NEGATIVE VALUES FROM", this));
  lstChannels = Named(new QListWidget(this), "lstChannels");
  for (int c : EditableChannels(session_, prompts_)) {
    auto* item = new QListWidgetItem(ToQString(session_.Sounding().ChannelName[c]), lstChannels);
    item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
    item->setCheckState(Qt::Unchecked);
    item->setData(Qt::UserRole, c);
  }
  layout->addWidget(lstChannels);
  layout->addLayout(OkCancelRow(this, cmdOK, cmdCancel));
  OnOk(this, cmdOK, prompts_, [this] {
    std::vector<int> checked;
    for (int i = 0; i < lstChannels->count(); ++i) {
      const QListWidgetItem* item = lstChannels->item(i);
      if (item->checkState() == Qt::Checked) checked.push_back(item->data(Qt::UserRole).toInt());
    }
    if (checked.empty()) {
      reject();
      return false;
    }
    RemoveNegatives(session_, checked);
    return true;
  });
}

FrmShiftChannels::FrmShiftChannels(Session& session, UserPrompts& prompts, QWidget* parent)
    : QDialog(parent), session_(session), prompts_(prompts), channels_(EditableChannels(session, prompts)) {
  setObjectName("frmShiftChannels");
  setWindowTitle("SHIFT CHANNELS");
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(new QLabel("ADD AN AMOUNT TO EVERY READING OF THE CHECKED CHANNELS", this));
  auto* area = new QScrollArea(this);
  auto* rows = new QWidget(area);
  auto* grid = new QGridLayout(rows);
  const SoundingStore& s = session_.Sounding();
  for (size_t i = 0; i < channels_.size(); ++i) {
    const int c = channels_[i];
    const int row = static_cast<int>(i);
    chkChannel.push_back(Named(new QCheckBox(ToQString(s.ChannelName[c]), rows), "chkChannel"));
    txtShift.push_back(Named(new QLineEdit("0", rows), "txtShift"));
    grid->addWidget(chkChannel.back(), row, 0);
    grid->addWidget(txtShift.back(), row, 1);
    grid->addWidget(new QLabel(ToQString(s.ChannelUnitLabel[c][kGraphOutput]), rows), row, 2);
  }
  area->setWidget(rows);
  area->setWidgetResizable(true);
  layout->addWidget(area);
  layout->addLayout(OkCancelRow(this, cmdOK, cmdCancel));
  OnOk(this, cmdOK, prompts_, [this] {
    std::vector<std::pair<int, std::string>> entries;
    for (size_t i = 0; i < channels_.size(); ++i) {
      if (chkChannel[i]->isChecked()) entries.emplace_back(channels_[i], Entry(txtShift[i]));
    }
    if (entries.empty()) {
      reject();
      return false;
    }
    return ShiftChannelEntries(session_, entries, prompts_);
  });
}

FrmAdjustDepth::FrmAdjustDepth(Session& session, UserPrompts& prompts, QWidget* parent)
    : QDialog(parent), session_(session), prompts_(prompts) {
  setObjectName("frmAdjustDepth");
  setWindowTitle("ADJUST DEPTH");
  auto* layout = new QGridLayout(this);
  const QString unit = ToQString(DepthUnitText(session_));
  layout->addWidget(new QLabel("OLD TOTAL DEPTH", this), 0, 0);
  txtOldDepth = Named(new QLineEdit(ToQString(AdjustDepthDialogText(session_)), this), "txtOldDepth");
  layout->addWidget(txtOldDepth, 0, 1);
  layout->addWidget(new QLabel(unit, this), 0, 2);
  layout->addWidget(new QLabel("NEW TOTAL DEPTH", this), 1, 0);
  txtNewDepth = Named(new QLineEdit(this), "txtNewDepth");
  layout->addWidget(txtNewDepth, 1, 1);
  lblDepthUnits = Named(new QLabel(unit, this), "lblDepthUnits");
  layout->addWidget(lblDepthUnits, 1, 2);
  layout->addLayout(OkCancelRow(this, cmdOK, cmdCancel), 2, 0, 1, 3);
  OnOk(this, cmdOK, prompts_,
       [this] { return AdjustDepth(session_, Entry(txtOldDepth), Entry(txtNewDepth), prompts_); });
}

FrmNormalizeDepthIntervals::FrmNormalizeDepthIntervals(Session& session, UserPrompts& prompts,
                                                       QWidget* parent)
    : QDialog(parent), session_(session), prompts_(prompts) {
  setObjectName("frmNormalizeDepthIntervals");
  setWindowTitle("NORMALIZE DEPTH INTERVALS");
  auto* layout = new QGridLayout(this);
  layout->addWidget(new QLabel("DEPTH INTERVAL", this), 0, 0);
  txtInterval = Named(new QLineEdit(this), "txtInterval");
  layout->addWidget(txtInterval, 0, 1);
  lblUnits = Named(new QLabel("(mm)", this), "lblUnits");
  layout->addWidget(lblUnits, 0, 2);
  layout->addLayout(OkCancelRow(this, cmdOK, cmdCancel), 1, 0, 1, 3);
  OnOk(this, cmdOK, prompts_,
       [this] { return NormalizeDepthIntervals(session_, Entry(txtInterval), prompts_); });
}

FrmTipConfiguration::FrmTipConfiguration(Session& session, UserPrompts& prompts, QWidget* parent)
    : QDialog(parent), session_(session), prompts_(prompts) {
  setObjectName("frmTipConfiguration");
  setWindowTitle("TIP CONFIGURATION");
  auto* layout = new QGridLayout(this);
  layout->addWidget(new QLabel("CURRENT TIP", this), 0, 0);
  lblTipConfiguration =
      Named(new QLabel(ToQString(TipConfigurationText(session_)), this), "lblTipConfiguration");
  layout->addWidget(lblTipConfiguration, 0, 1, 1, 2);
  layout->addWidget(new QLabel("TIP CONFIGURATION", this), 1, 0);
  cmbTipConfiguration = Named(new QComboBox(this), "cmbTipConfiguration");
  cmbTipConfiguration->addItems({kConventionalTip, kBallTip});
  cmbTipConfiguration->setCurrentIndex(session_.Sounding().BallTip ? 1 : 0);
  layout->addWidget(cmbTipConfiguration, 1, 1, 1, 2);
  layout->addWidget(new QLabel("BALL TIP DIAMETER", this), 2, 0);
  txtBallTipDiameter =
      Named(new QLineEdit(ToQString(BallDiameterText(session_)), this), "txtBallTipDiameter");
  layout->addWidget(txtBallTipDiameter, 2, 1);
  layout->addWidget(new QLabel("(mm)", this), 2, 2);
  layout->addLayout(OkCancelRow(this, cmdOK, cmdCancel), 3, 0, 1, 3);
  auto follow = [this] { txtBallTipDiameter->setEnabled(cmbTipConfiguration->currentText() == kBallTip); };
  follow();
  connect(cmbTipConfiguration, &QComboBox::currentIndexChanged, this, follow);
  OnOk(this, cmdOK, prompts_, [this] {
    const bool ball = cmbTipConfiguration->currentText() == kBallTip;
    return ChangeTipConfiguration(session_, ball, Entry(txtBallTipDiameter), prompts_);
  });
}

FrmTYRConeDimensions::FrmTYRConeDimensions(Session& session, UserPrompts& prompts, QWidget* parent)
    : QDialog(parent), session_(session), prompts_(prompts) {
  setObjectName("frmTYRConeDimensions");
  setWindowTitle("CONE DIMENSIONS");
  auto* layout = new QGridLayout(this);
  layout->addWidget(new QLabel("CONE", this), 0, 0);
  cmbCone = Named(new QComboBox(this), "cmbCone");
  for (const std::string& name : ConeNames(session_)) cmbCone->addItem(ToQString(name));
  layout->addWidget(cmbCone, 0, 1, 1, 2);
  const std::pair<const char*, QLineEdit**> boxes[] = {{"TIP LENGTH", &txtTipLength},
                                                       {"TIP SHOULDER LENGTH", &txtTipShoulderLength},
                                                       {"SLEEVE LENGTH", &txtSleeveLength},
                                                       {"PORE PRESSURE ELEMENT", &txtPPLength}};
  const char* names[] = {"txtTipLength", "txtTipShoulderLength", "txtSleeveLength", "txtPPLength"};
  int row = 1;
  for (const auto& [caption, box] : boxes) {
    layout->addWidget(new QLabel(caption, this), row, 0);
    *box = ReadOnlyBox(this, names[row - 1]);
    layout->addWidget(*box, row, 1);
    ++row;
  }
  lblUnits = Named(new QLabel(this), "lblUnits");
  layout->addWidget(lblUnits, 1, 2);
  layout->addLayout(OkCancelRow(this, cmdOK, cmdCancel), row, 0, 1, 3);
  connect(cmbCone, &QComboBox::currentIndexChanged, this, [this](int cone) { ShowCone(cone); });
  const int cone = ConeOfSounding(session_);
  cmbCone->setCurrentIndex(cone);
  ShowCone(cone);
  OnOk(this, cmdOK, prompts_, [this] {
    ApplyConeDimensions(session_);
    return true;
  });
}

void FrmTYRConeDimensions::ShowCone(int cone) {
  const ConeDimensionTexts texts = ConeDimensionsText(session_, cone);
  txtTipLength->setText(ToQString(texts.tip));
  txtTipShoulderLength->setText(ToQString(texts.tip_shoulder));
  txtSleeveLength->setText(ToQString(texts.sleeve));
  txtPPLength->setText(ToQString(texts.pore_pressure));
  lblUnits->setText(ToQString(texts.unit));
}

FrmTYRAppendOffset::FrmTYRAppendOffset(Session& session, UserPrompts& prompts, QWidget* parent)
    : QDialog(parent), prompts_(prompts) {
  setObjectName("frmTYRAppendOffset");
  setWindowTitle("APPEND OFFSET");
  auto* layout = new QGridLayout(this);
  layout->addWidget(new QLabel("DEPTH BETWEEN THE FILES", this), 0, 0);
  txtOffset = Named(new QLineEdit("0", this), "txtOffset");
  layout->addWidget(txtOffset, 0, 1);
  lblDepthUnits = Named(new QLabel(ToQString(DepthUnitText(session)), this), "lblDepthUnits");
  layout->addWidget(lblDepthUnits, 0, 2);
  layout->addLayout(OkCancelRow(this, cmdOK, cmdCancel), 1, 0, 1, 3);
  OnOk(this, cmdOK, prompts_, [this] { return CheckAppendOffset(Entry(txtOffset), prompts_); });
}

QString FrmTYRAppendOffset::Offset() const { return txtOffset->text(); }

}  // namespace marlview
