#pragma once

#include <QByteArray>
#include <QPageSize>
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

/// Prints the document on the whole paper of the device, whose dots per inch are `resolution`.
/// False when the device cannot be painted on or refuses a page.
bool PrintOn(PagedDocument& document, QPagedPaintDevice& device, int resolution);

/// The document as a PDF file.
QByteArray PdfOf(PagedDocument& document, QPageSize::PageSizeId paper);

}  // namespace nira
