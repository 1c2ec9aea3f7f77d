// frmDisplayUnits: for each channel of the catalogue, the export label, the unit and the number
// pattern of each output (the graph, TXT, ECP, CSV and COR).
#pragma once

#include <QDialog>
#include <array>

#include "core/common/user_prompts.h"
#include "core/model/catalogue.h"
#include "core/model/sounding_store.h"

class QCheckBox;
class QComboBox;
class QListWidget;
class QPushButton;

namespace marlview {

class Session;

class FrmDisplayUnits : public QDialog {
  Q_OBJECT

 public:
  FrmDisplayUnits(Session& session, UserPrompts& prompts, QWidget* parent = nullptr);

  // The catalogue id behind each row of lstChannels.
  const std::vector<int>& Ids() const { return ids_; }
  const ChannelChoices& Choices() const { return choices_; }

  QListWidget* lstChannels;
  QCheckBox* chkUseUnitsFromFile;
  std::array<QComboBox*, kOutputKinds> cmbLabel{};
  std::array<QComboBox*, kOutputKinds> cmbUnits{};
  std::array<QComboBox*, kOutputKinds> cmbFormat{};
  QPushButton* cmdOK;
  QPushButton* cmdCancel;

 private:
  // The boxes of the channel on show go back into the working choices.
  void KeepShown();
  void Show(int row);

  Session& session_;
  UserPrompts& prompts_;
  ChannelChoices choices_;
  std::vector<int> ids_;
  int shown_ = -1;
};

}  // namespace marlview
