// The PDF document: whole pages without margins, so they lay out exactly as on paper.
#include "render/pdf_print_job.h"

#include <QMarginsF>
#include <QPageLayout>
#include <QPageSize>

#include "core/common/text_rules.h"

namespace marlview {
namespace {

// Fine enough that thin lines and small text keep their shape when the page is zoomed.
constexpr int kPdfDotsPerInch = 600;

}  // namespace

PdfPrintJob::PdfPrintJob(const std::string& path, PaperSize paper)
    : writer_(QString::fromStdString(ToUtf8(path))) {
  writer_.setPageSize(QPageSize(paper == PaperSize::kA4 ? QPageSize::A4 : QPageSize::Letter));
  writer_.setPageMargins(QMarginsF(0, 0, 0, 0));
  writer_.setResolution(kPdfDotsPerInch);
  writer_.setCreator("Marlview");
}

PdfPrintJob::~PdfPrintJob() { EndDoc(); }

DrawingSurface& PdfPrintJob::NewPage() {
  if (surface_ == nullptr) {
    // The file is opened with the first page; a file that cannot be created leaves the painter
    // inactive, the pages draw nothing and EndDoc reports the failure.
    opened_ = painter_.begin(&writer_);
    surface_ = std::make_unique<QtPainterSurface>(painter_, QSize(writer_.width(), writer_.height()), true);
  } else {
    if (opened_) writer_.newPage();
    surface_->Home();
  }
  return *surface_;
}

bool PdfPrintJob::EndDoc() {
  if (!ended_) {
    ended_ = true;
    written_ = opened_ && painter_.end();
  }
  return written_;
}

double PdfPrintJob::PageWidthPoints() const { return writer_.pageLayout().fullRect(QPageLayout::Point).width(); }

double PdfPrintJob::PageHeightPoints() const {
  return writer_.pageLayout().fullRect(QPageLayout::Point).height();
}

}  // namespace marlview
