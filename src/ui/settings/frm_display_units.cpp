// frmDisplayUnits: the working copy of the choices is edited channel by channel and kept on OK.
#include "ui/settings/frm_display_units.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <string>

#include "core/session/session.h"
#include "core/shell/settings_dialogs.h"
#include "ui/common/event_guard.h"
#include "ui/common/named.h"
#include "ui/common/qt_prompts.h"

namespace marlview {
namespace {

constexpr const char* kOutputNames[kOutputKinds] = {"GRAPH", "TXT", "ECP", "CSV", "COR"};

}  // namespace

FrmDisplayUnits::FrmDisplayUnits(Session& session, UserPrompts& prompts, QWidget* parent)
    : QDialog(parent), session_(session), prompts_(prompts), choices_(session.choices) {
  setObjectName("frmDisplayUnits");
  setWindowTitle("CHANNEL UNITS AND FORMATS");
  auto* layout = new QHBoxLayout(this);
  lstChannels = Named(new QListWidget(this), "lstChannels");
  for (int id = 1; id <= kLastSettingsId; ++id) {
    if (!HasChannelSettings(id)) continue;
    ids_.push_back(id);
    lstChannels->addItem(ToQString(CatalogueLookup(id).name));
  }
  layout->addWidget(lstChannels);

  auto* right = new QVBoxLayout;
  auto* grid = new QGridLayout;
  grid->addWidget(new QLabel("OUTPUT", this), 0, 0);
  grid->addWidget(new QLabel("EXPORT LABEL", this), 0, 1);
  grid->addWidget(new QLabel("UNITS", this), 0, 2);
  grid->addWidget(new QLabel("FORMAT", this), 0, 3);
  for (int k = 0; k < kOutputKinds; ++k) {
    const auto i = static_cast<size_t>(k);
    grid->addWidget(new QLabel(kOutputNames[k], this), k + 1, 0);
    cmbLabel[i] = Named(new QComboBox(this), "cmbLabel");
    cmbUnits[i] = Named(new QComboBox(this), "cmbUnits");
    cmbFormat[i] = Named(new QComboBox(this), "cmbFormat");
    // A pattern of the user's own may be typed as well as picked.
    cmbFormat[i]->setEditable(true);
    for (const char* pattern : kDisplayFormatPatterns) cmbFormat[i]->addItem(pattern);
    grid->addWidget(cmbLabel[i], k + 1, 1);
    grid->addWidget(cmbUnits[i], k + 1, 2);
    grid->addWidget(cmbFormat[i], k + 1, 3);
  }
  right->addLayout(grid);
  chkUseUnitsFromFile = Named(new QCheckBox("USE THE UNITS OF THE DATA FILE", this), "chkUseUnitsFromFile");
  chkUseUnitsFromFile->setChecked(choices_.UseUnitsFromFile != 0);
  right->addWidget(chkUseUnitsFromFile);
  right->addStretch(1);
  right->addLayout(OkCancelRow(this, cmdOK, cmdCancel));
  layout->addLayout(right, 1);

  connect(lstChannels, &QListWidget::currentRowChanged, this, [this](int row) {
    RunGuarded(prompts_, "lstChannels_Click", [&] {
      KeepShown();
      Show(row);
    });
  });
  connect(cmdOK, &QPushButton::clicked, this, [this] {
    RunGuarded(prompts_, "cmdOK_Click", [&] {
      KeepShown();
      choices_.UseUnitsFromFile = chkUseUnitsFromFile->isChecked() ? 1 : 0;
      ApplyDisplayUnits(session_, choices_);
      if (session_.SoundingOpen) {
        prompts_.Tell("THE NEW UNITS AND FORMATS APPLY TO THE SOUNDINGS OPENED FROM NOW ON");
      }
      accept();
    });
  });
  lstChannels->setCurrentRow(0);
  resize(760, 420);
}

void FrmDisplayUnits::KeepShown() {
  if (shown_ < 0 || shown_ >= static_cast<int>(ids_.size())) return;
  const auto id = static_cast<size_t>(ids_[static_cast<size_t>(shown_)]);
  for (size_t k = 0; k < kOutputKinds; ++k) {
    choices_.LabelChoice[k][id] = static_cast<int16_t>(std::max(0, cmbLabel[k]->currentIndex()));
    choices_.UnitChoice[k][id] = static_cast<int16_t>(std::max(1, cmbUnits[k]->currentIndex() + 1));
    choices_.FormatChoice[k][id] = cmbFormat[k]->currentText().toStdString();
  }
}

void FrmDisplayUnits::Show(int row) {
  shown_ = row;
  if (row < 0 || row >= static_cast<int>(ids_.size())) return;
  const int id = ids_[static_cast<size_t>(row)];
  const auto i = static_cast<size_t>(id);
  const int group = CatalogueLookup(id).group;
  for (size_t k = 0; k < kOutputKinds; ++k) {
    cmbLabel[k]->clear();
    // Choice 0 heads the column with the channel's short name and unit.
    cmbLabel[k]->addItem("(CHANNEL NAME)");
    for (int v = 1; v <= choices_.LabelVariantCount[i]; ++v) {
      cmbLabel[k]->addItem(ToQString(choices_.LabelVariants[static_cast<size_t>(v)][i]));
    }
    cmbLabel[k]->setCurrentIndex(std::min<int>(choices_.LabelChoice[k][i], cmbLabel[k]->count() - 1));
    cmbUnits[k]->clear();
    const int units = group >= 0 && group <= kMaxUnitGroup ? session_.units.UnitCount[static_cast<size_t>(group)] : 0;
    for (int u = 1; u <= units; ++u) cmbUnits[k]->addItem(ToQString(session_.units.Name(u, group)));
    if (units == 0) cmbUnits[k]->addItem("(NONE)");
    cmbUnits[k]->setCurrentIndex(std::clamp<int>(choices_.UnitChoice[k][i] - 1, 0, cmbUnits[k]->count() - 1));
    cmbFormat[k]->setCurrentText(ToQString(choices_.FormatChoice[k][i]));
  }
}

}  // namespace marlview
