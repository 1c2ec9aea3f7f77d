// The printer document and the print and preview dialogs.
#include "ui/presentation/printer_print_job.h"

#include <QDialog>
#include <QPageLayout>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>

namespace marlview {

PrinterPrintJob::PrinterPrintJob(QPrinter& printer) : printer_(printer) {
  // The pages are laid out on the whole sheet, as in the PDF; the printer's own margins are left
  // to the layout.
  printer_.setFullPage(true);
}

PrinterPrintJob::~PrinterPrintJob() { EndDoc(); }

DrawingSurface& PrinterPrintJob::NewPage() {
  if (surface_ == nullptr) {
    opened_ = painter_.begin(&printer_);
    surface_ = std::make_unique<QtPainterSurface>(painter_, QSize(printer_.width(), printer_.height()), true);
  } else {
    if (opened_) printer_.newPage();
    surface_->Home();
  }
  return *surface_;
}

bool PrinterPrintJob::EndDoc() {
  if (!ended_) {
    ended_ = true;
    printed_ = opened_ && painter_.end();
  }
  return printed_;
}

double PrinterPrintJob::PageWidthPoints() const {
  return printer_.pageLayout().fullRect(QPageLayout::Point).width();
}

double PrinterPrintJob::PageHeightPoints() const {
  return printer_.pageLayout().fullRect(QPageLayout::Point).height();
}

bool PrintWithDialog(QWidget* parent, const std::function<void(PrintJob&)>& draw_pages) {
  QPrinter printer(QPrinter::HighResolution);
  QPrintDialog dialog(&printer, parent);
  if (dialog.exec() != QDialog::Accepted) return false;
  PrinterPrintJob job(printer);
  draw_pages(job);
  return job.EndDoc();
}

void PrintPreview(QWidget* parent, const std::function<void(PrintJob&)>& draw_pages) {
  QPrinter printer(QPrinter::HighResolution);
  QPrintPreviewDialog preview(&printer, parent);
  QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, &preview, [&draw_pages](QPrinter* target) {
    PrinterPrintJob job(*target);
    draw_pages(job);
    job.EndDoc();
  });
  preview.exec();
}

}  // namespace marlview
