// Finds the open sounding windows among the application's windows, so a tool that changes the
// readings needs no handle on the window that opened it or on its neighbours.
#include "ui/presentation/sounding_windows.h"

#include <QApplication>
#include <QWidget>

#include "core/session/session.h"
#include "ui/presentation/ecp_window.h"
#include "ui/presentation/form4.h"
#include "ui/presentation/sounding_data_window.h"

namespace marlview {

void RepaintSoundingWindows(const Session& session) {
  const WindowFlags& open = session.flags;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (!window->isVisible()) continue;
    if (auto* plot = qobject_cast<Form4*>(window); plot != nullptr && open.PlotWindowOpen) plot->Repaint();
    if (auto* list = qobject_cast<FrmSoundingData*>(window); list != nullptr && open.ListWindowOpen) list->Refill();
    if (auto* ecp = qobject_cast<FrmSoundingECPData*>(window); ecp != nullptr && open.EcpWindowOpen) ecp->Refill();
  }
}

}  // namespace marlview
