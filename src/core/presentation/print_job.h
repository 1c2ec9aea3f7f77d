// A printed document: a sequence of pages, each a drawing surface.
#pragma once

#include "core/presentation/drawing_surface.h"

namespace marlview {

class PrintJob {
 public:
  virtual ~PrintJob() = default;
  // The next page; the surface stays valid until the next call or EndDoc.
  virtual DrawingSurface& NewPage() = 0;
  // Sends the document; false when it could not be written or printed.
  virtual bool EndDoc() = 0;
  // Page size in points (1/72 inch), for laying out the page.
  virtual double PageWidthPoints() const = 0;
  virtual double PageHeightPoints() const = 0;
};

}  // namespace marlview
