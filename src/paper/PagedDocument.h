// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QPageLayout>
#include <QPainter>
#include <QString>

class QPagedPaintDevice;

namespace nira {

/// Something that is printed page by page, on any paint device. Lengths are tenths of a point.
class PagedDocument {
 public:
  static constexpr int UnitsPerInch = 720;

  virtual ~PagedDocument() = default;

  virtual QString Title() const = 0;

  /// Lays the document out on paper of this size and returns the number of pages, at least 1.
  virtual int LayOut(const QSizeF& paper) = 0;

  /// Paints a page (from 1) of the last layout.
  virtual void Paint(QPainter& painter, int page) const = 0;
};

/// Lays the document out on the whole paper of the device and returns the number of pages.
int LayOutFor(PagedDocument& document, const QPagedPaintDevice& device);

/// Prints pages `first` to `last` (from 1) of the last layout on the device, whose dots per inch
/// are `resolution`. False when the device cannot be painted on or refuses a page.
bool PrintPages(const PagedDocument& document, QPagedPaintDevice& device, int resolution, int first,
                int last);

/// Lays the document out and prints all of it.
bool PrintOn(PagedDocument& document, QPagedPaintDevice& device, int resolution);

/// The document as a PDF file, on the paper of this layout; its margins do not count.
QByteArray PdfOf(PagedDocument& document, const QPageLayout& paper);

}  // namespace nira
