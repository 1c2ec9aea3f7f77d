// Shared body of the dissipation readers' fuzz targets: any bytes either read or end in the
// run-time failure; a file that reads is then plotted with all its tests, in every mode.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/common/runtime_failure.h"
#include "core/dissipation/dissipation_plot.h"
#include "core/dissipation/dissipation_readers.h"
#include "core/dissipation/t50_utility.h"
#include "core/model/unit_tables.h"
#include "core/presentation/recording_surface.h"
#include "core/session/session.h"
#include "fuzz_support.h"

namespace marlview::fuzz {

inline void ReadAndPlot(int16_t kind, const uint8_t* data, size_t size) {
  Session& session = FuzzSession();
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  DissipationSet& set = session.SpareDissipation();
  set.Reset();
  set.FileKind = kind;
  set.WaterTableDepth = kUndefinedWaterTable;
  try {
    ReadDissipation(bytes, session.units, set);
  } catch (const RuntimeFailure&) {
    // Each run frees what it allocated, so the leak check has nothing to chase.
    set.Reset();
    return;
  }
  session.CommitDissipation();
  DissipationSelection selection;
  for (int i = 1; i <= std::min<int>(set.DissipationCount, kMaxDissipations); ++i) {
    selection.SelectedFlag[static_cast<size_t>(i)] = kSelectedFlag;
    ++selection.SelectedCount;
    selection.LastSelected = i;
  }
  for (int16_t format : {kLinearTime, kLogTime, kSquareRootTime}) {
    DissipationPlotState plot;
    plot.selection = selection;
    plot.TimeFormat = format;
    plot.PressureDisplayMode = static_cast<int16_t>(format);
    RecordingSurface surface(400, 300);
    try {
      GraphDissipation(surface, 6000, 4500, plot, session);
      T50State t50 = StartT50(plot, kU0StraightLine);
      DrawSlopeLine(t50, plot, session.Dissipation());
    } catch (const RuntimeFailure&) {
    }
  }
  session.Dissipation().Reset();
}

}  // namespace marlview::fuzz
