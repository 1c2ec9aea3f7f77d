// The main window's dissipation controls: the list of test depths, the file's information and
// the plot, list, edit and done buttons, with the plot window they open.
#pragma once

#include <QGroupBox>
#include <functional>
#include <memory>

#include "core/common/user_prompts.h"

class QLabel;
class QListWidget;
class QPushButton;

namespace marlview {

class DissipationController;
class DissipationEditWindow;
class Form2;
class FrmPPData;
class Session;
class ShellController;

class DissipationPanel : public QGroupBox {
  Q_OBJECT

 public:
  // on_changed runs after every event, so the main window mirrors the shell's state.
  DissipationPanel(Session& session, UserPrompts& prompts, ShellController& shell,
                   std::function<void()> on_changed, QWidget* parent);
  ~DissipationPanel() override;

  // Mirrors the controller's view into the widgets.
  void Refresh();
  // The plot window last opened, until it is closed and deleted.
  Form2* PlotWindow() const { return plot_window_.get(); }
  // The list window last opened, until it is closed and deleted.
  FrmPPData* ListWindow() const { return list_window_.get(); }
  // The editor last opened, until it is closed and deleted.
  DissipationEditWindow* EditWindow() const { return edit_window_.get(); }

  QLabel* lblAvailableDissipations;
  QListWidget* lstAvailableDissipations;
  QLabel* lblDissipationInfo;
  QPushButton* cmdPlotDissipation;
  QPushButton* cmdListDissipation;
  QPushButton* cmdEditDissipation;
  QPushButton* cmdDissipationDone;

 private:
  void Handle(const char* source, const std::function<void()>& handler);
  void OpenPlotWindow();
  void ClosePlotWindow();
  void OpenListWindow();
  void CloseListWindow();
  // cmdEditDissipation closes the plot and list first; their own mnuEdit keeps them open, and
  // they follow the edits.
  void OpenEditWindow(bool close_others);
  void EditorChanged(bool structural);
  void CloseEditWindow();

  Session& session_;
  UserPrompts& prompts_;
  ShellController& shell_;
  DissipationController& controller_;
  std::function<void()> on_changed_;
  std::unique_ptr<Form2> plot_window_;
  std::unique_ptr<FrmPPData> list_window_;
  std::unique_ptr<DissipationEditWindow> edit_window_;
};

}  // namespace marlview
