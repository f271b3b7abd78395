#include "printing/PagedDocument.h"

#include <QBuffer>
#include <QPageLayout>
#include <QPdfWriter>

namespace nira {

bool PrintOn(PagedDocument& document, QPagedPaintDevice& device, int resolution) {
  const QSizeF points = device.pageLayout().fullRectPoints().size();
  const int pages = document.LayOut(points * PagedDocument::UnitsPerInch / 72);
  QPainter painter;
  if (!painter.begin(&device)) return false;
  const double scale = double(resolution) / PagedDocument::UnitsPerInch;
  for (int page = 1; page <= pages; ++page) {
    if (page > 1 && !device.newPage()) return false;
    painter.save();
    painter.scale(scale, scale);
    document.Paint(painter, page);
    painter.restore();
  }
  return painter.end();
}

QByteArray PdfOf(PagedDocument& document, QPageSize::PageSizeId paper) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setTitle(document.Title());
  writer.setCreator(QStringLiteral("nira-kpl"));
  writer.setResolution(PagedDocument::UnitsPerInch);
  writer.setPageSize(QPageSize(paper));
  writer.setPageMargins(QMarginsF());
  PrintOn(document, writer, PagedDocument::UnitsPerInch);
  return bytes;
}

}  // namespace nira
