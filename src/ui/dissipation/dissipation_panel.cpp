// The dissipation controls of the main window, each event handed to the dissipation controller.
#include "ui/dissipation/dissipation_panel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/dissipation/dissipation_editor.h"
#include "core/session/session.h"
#include "core/shell/shell_controller.h"
#include "ui/common/event_guard.h"
#include "ui/common/named.h"
#include "ui/common/qt_prompts.h"
#include "ui/dissipation/form2.h"
#include "ui/dissipation/frm_edit_dissipation.h"
#include "ui/dissipation/frm_pp_data.h"

namespace marlview {

DissipationPanel::DissipationPanel(Session& session, UserPrompts& prompts, ShellController& shell,
                                   std::function<void()> on_changed, QWidget* parent)
    : QGroupBox("DISSIPATIONS", parent),
      session_(session),
      prompts_(prompts),
      shell_(shell),
      controller_(shell.Dissipations()),
      on_changed_(std::move(on_changed)) {
  setObjectName("frmDissipations");
  auto* layout = new QVBoxLayout(this);
  lblDissipationInfo = Named(new QLabel(this), "lblDissipationInfo");
  lblDissipationInfo->setTextInteractionFlags(Qt::TextSelectableByMouse);
  layout->addWidget(lblDissipationInfo);
  lblAvailableDissipations = Named(new QLabel(this), "lblAvailableDissipations");
  layout->addWidget(lblAvailableDissipations);
  lstAvailableDissipations = Named(new QListWidget(this), "lstAvailableDissipations");
  lstAvailableDissipations->setSelectionMode(QAbstractItemView::MultiSelection);
  layout->addWidget(lstAvailableDissipations);
  auto* buttons = new QHBoxLayout;
  cmdPlotDissipation = NamedButton(buttons, this, "cmdPlotDissipation", "PLOT");
  cmdListDissipation = NamedButton(buttons, this, "cmdListDissipation", "LIST");
  cmdEditDissipation = NamedButton(buttons, this, "cmdEditDissipation", "EDIT");
  cmdDissipationDone = NamedButton(buttons, this, "cmdDissipationDone", "DONE");
  layout->addLayout(buttons);

  connect(lstAvailableDissipations, &QListWidget::itemSelectionChanged, this, [this] {
    std::vector<int> rows;
    for (int row = 0; row < lstAvailableDissipations->count(); ++row) {
      if (lstAvailableDissipations->item(row)->isSelected()) rows.push_back(row);
    }
    Handle("lstAvailableDissipations_Click", [&] { controller_.SetSelection(rows); });
  });
  connect(cmdPlotDissipation, &QPushButton::clicked, this,
          [this] { Handle("cmdPlotDissipation_Click", [&] { OpenPlotWindow(); }); });
  connect(cmdListDissipation, &QPushButton::clicked, this, [this] {
    Handle("cmdListDissipation_Click", [&] { OpenListWindow(); });
  });
  connect(cmdEditDissipation, &QPushButton::clicked, this, [this] {
    Handle("cmdEditDissipation_Click", [&] { OpenEditWindow(true); });
  });
  connect(cmdDissipationDone, &QPushButton::clicked, this, [this] {
    Handle("cmdDissipationDone_Click", [&] {
      // The editor asks about unsaved changes; staying in it stays in the file.
      if (edit_window_ != nullptr && !edit_window_->close()) return;
      ClosePlotWindow();
      CloseListWindow();
      shell_.DissipationDone();
    });
  });
}

DissipationPanel::~DissipationPanel() = default;

void DissipationPanel::Handle(const char* source, const std::function<void()>& handler) {
  RunGuarded(prompts_, source, handler);
  if (on_changed_) on_changed_();
}

void DissipationPanel::Refresh() {
  const DissipationView& view = controller_.View();
  setVisible(view.frame_visible);
  lblAvailableDissipations->setText(ToQString(view.list_caption));
  QStringList rows;
  for (const std::string& row : view.depth_rows) rows << ToQString(row);
  QStringList current;
  for (int i = 0; i < lstAvailableDissipations->count(); ++i)
    current << lstAvailableDissipations->item(i)->text();
  if (current != rows) {
    const QSignalBlocker block(lstAvailableDissipations);
    lstAvailableDissipations->clear();
    lstAvailableDissipations->addItems(rows);
    for (int row : controller_.SelectedRows()) {
      if (row < lstAvailableDissipations->count()) lstAvailableDissipations->item(row)->setSelected(true);
    }
  }
  lblDissipationInfo->setText(ToQString(view.info));
  cmdPlotDissipation->setEnabled(view.plot_enabled);
  cmdListDissipation->setEnabled(view.list_enabled);
  // FLDACQ files have no editor.
  cmdEditDissipation->setEnabled(view.frame_visible && HasDissipationEditor(session_.Dissipation()));
  cmdDissipationDone->setEnabled(view.done_enabled);
}

void DissipationPanel::OpenPlotWindow() {
  std::optional<DissipationPlotState> plot = controller_.PlotDissipation();
  if (!plot) return;
  ClosePlotWindow();
  plot_window_ = std::make_unique<Form2>(
      session_, prompts_, std::move(*plot),
      [this] {
        controller_.Refill();
        Refresh();
        // The head column of an open list follows the new water table.
        if (list_window_ != nullptr) list_window_->Refill();
      },
      [this] { ClosePlotWindow(); }, window());
  plot_window_->SetEditHandler([this] { Handle("mnuEdit_Click", [&] { OpenEditWindow(false); }); });
  plot_window_->mnuEdit->setEnabled(HasDissipationEditor(session_.Dissipation()));
  plot_window_->setWindowFlag(Qt::Window);
  plot_window_->show();
}

void DissipationPanel::ClosePlotWindow() {
  if (plot_window_ == nullptr) return;
  plot_window_->close();
  // The close may come from one of the window's own menus, which is still running.
  plot_window_.release()->deleteLater();
}

void DissipationPanel::OpenListWindow() {
  const std::vector<int>& selected = controller_.SelectedRows();
  // The list shows one test; the button is on only then.
  if (selected.size() != 1) return;
  CloseListWindow();
  list_window_ = std::make_unique<FrmPPData>(session_, prompts_, selected.front() + 1,
                                             [this] { CloseListWindow(); }, window());
  list_window_->SetEditHandler([this] { Handle("mnuEdit_Click", [&] { OpenEditWindow(false); }); });
  list_window_->mnuEdit->setEnabled(HasDissipationEditor(session_.Dissipation()));
  list_window_->setWindowFlag(Qt::Window);
  list_window_->show();
}

void DissipationPanel::CloseListWindow() {
  if (list_window_ == nullptr) return;
  list_window_->close();
  // The close may come from one of the window's own menus, which is still running.
  list_window_.release()->deleteLater();
}

void DissipationPanel::OpenEditWindow(bool close_others) {
  if (!HasDissipationEditor(session_.Dissipation())) return;
  if (close_others) {
    ClosePlotWindow();
    CloseListWindow();
  }
  if (edit_window_ != nullptr) {
    edit_window_->raise();
    edit_window_->activateWindow();
    return;
  }
  edit_window_ = MakeDissipationEditor(
      session_, prompts_, [this](bool structural) { EditorChanged(structural); },
      [this] {
        // On leaving, the main window's depth list is built again from the edited file.
        controller_.Refill();
        Refresh();
        CloseEditWindow();
      },
      window());
  edit_window_->setWindowFlag(Qt::Window);
  edit_window_->show();
}

void DissipationPanel::EditorChanged(bool structural) {
  if (structural) {
    // Tests came or went: a view of chosen tests starts again from the main window.
    ClosePlotWindow();
    CloseListWindow();
    controller_.SetSelection({});
  }
  controller_.Refill();
  Refresh();
  if (plot_window_ != nullptr) plot_window_->Repaint();
  if (list_window_ != nullptr) list_window_->Refill();
  if (on_changed_) on_changed_();
}

void DissipationPanel::CloseEditWindow() {
  if (edit_window_ == nullptr) return;
  // The close may come from one of the window's own menus, which is still running.
  edit_window_.release()->deleteLater();
}

}  // namespace marlview
