// A printed document written to a PDF file instead of a printer.
#pragma once

#include <QPainter>
#include <QPdfWriter>
#include <memory>
#include <string>

#include "core/presentation/print_job.h"
#include "render/qt_surface.h"

namespace marlview {

enum class PaperSize { kA4, kLetter };

class PdfPrintJob : public PrintJob {
 public:
  // The file is written page by page and finished by EndDoc.
  PdfPrintJob(const std::string& path, PaperSize paper);
  ~PdfPrintJob() override;

  DrawingSurface& NewPage() override;
  bool EndDoc() override;
  double PageWidthPoints() const override;
  double PageHeightPoints() const override;

 private:
  QPdfWriter writer_;
  QPainter painter_;
  std::unique_ptr<QtPainterSurface> surface_;
  bool opened_ = false;
  bool ended_ = false;
  bool written_ = false;
};

}  // namespace marlview
