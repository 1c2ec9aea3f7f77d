// The ECP data window: the sounding in the ECP arrangement or the user's template order, its
// pressures in one of four units, and the ECP export; and the dialog that sets the template.
#pragma once

#include <QDialog>
#include <QMainWindow>
#include <functional>
#include <vector>

#include "core/common/user_prompts.h"
#include "core/presentation/ecp_list.h"

class QAction;
class QCheckBox;
class QPlainTextEdit;
class QPushButton;

namespace marlview {

class DataGrid;
class Session;

class FrmSetOrderedECPTemplate : public QDialog {
  Q_OBJECT

 public:
  FrmSetOrderedECPTemplate(Session& session, UserPrompts& prompts, QWidget* parent = nullptr);

  // One per channel of the sounding, in channel order.
  std::vector<QCheckBox*> chkChannel;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;

 private:
  Session& session_;
  UserPrompts& prompts_;
};

class FrmSoundingECPData : public QMainWindow {
  Q_OBJECT

 public:
  // selection: the main window's chosen channels, the columns of the plain ECP view.
  FrmSoundingECPData(Session& session, UserPrompts& prompts, std::vector<int> selection, QWidget* parent = nullptr);
  ~FrmSoundingECPData() override;

  const EcpView& View() const { return view_; }
  // Fills the header and the table again, after a change to the sounding or the view.
  void Refill();

  QPlainTextEdit* lblHeader;
  DataGrid* grdData;
  QPushButton* cmdShowPSIECP;
  QPushButton* cmdShowTSFECP;
  QPushButton* cmdShowKPAECP;
  QPushButton* cmdShowMPAECP;
  QPushButton* cmdShowECPData;
  QPushButton* cmdShowOrderedECPData;
  QPushButton* cmdSetOrderedECPTemplate;
  QAction* mnuExportEcpFile;
  QAction* mnuReturn;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void BuildControls();
  void BuildMenus();
  void Connect();
  void OnClick(QPushButton* button, const char* source, std::function<void()> handler);

  Session& session_;
  UserPrompts& prompts_;
  EcpView view_;
  // Until the window is closed; a window closed and deleted later leaves the flag of the next one be.
  bool open_ = true;
};

}  // namespace marlview
