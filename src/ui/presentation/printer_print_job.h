// Printing on a printer, through the print dialog or the print preview.
#pragma once

#include <QPainter>
#include <functional>
#include <memory>

#include "core/presentation/print_job.h"
#include "render/qt_surface.h"

class QPrinter;
class QWidget;

namespace marlview {

// Whole pages of a printer chosen by the caller; the printer must outlive the job.
class PrinterPrintJob : public PrintJob {
 public:
  explicit PrinterPrintJob(QPrinter& printer);
  ~PrinterPrintJob() override;

  DrawingSurface& NewPage() override;
  bool EndDoc() override;
  double PageWidthPoints() const override;
  double PageHeightPoints() const override;

 private:
  QPrinter& printer_;
  QPainter painter_;
  std::unique_ptr<QtPainterSurface> surface_;
  bool opened_ = false;
  bool ended_ = false;
  bool printed_ = false;
};

// Asks for the printer and prints the pages draw_pages makes; false when cancelled or the
// document could not be printed.
bool PrintWithDialog(QWidget* parent, const std::function<void(PrintJob&)>& draw_pages);

// Shows the pages in the print preview, from which they can be printed; draw_pages runs again
// whenever the preview is redrawn.
void PrintPreview(QWidget* parent, const std::function<void(PrintJob&)>& draw_pages);

}  // namespace marlview
