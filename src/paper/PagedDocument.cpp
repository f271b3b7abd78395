// SPDX-License-Identifier: Apache-2.0
#include "PagedDocument.h"

#include <QBuffer>
#include <QPdfWriter>

namespace nira {

int LayOutFor(PagedDocument& document, const QPagedPaintDevice& device) {
  const QSizeF points = device.pageLayout().fullRectPoints().size();
  return document.LayOut(points * PagedDocument::UnitsPerInch / 72);
}

bool PrintPages(const PagedDocument& document, QPagedPaintDevice& device, int resolution, int first,
                int last) {
  QPainter painter;
  if (!painter.begin(&device)) return false;
  const double scale = double(resolution) / PagedDocument::UnitsPerInch;
  for (int page = first; page <= last; ++page) {
    if (page > first && !device.newPage()) return false;
    painter.save();
    painter.scale(scale, scale);
    document.Paint(painter, page);
    painter.restore();
  }
  return painter.end();
}

bool PrintOn(PagedDocument& document, QPagedPaintDevice& device, int resolution) {
  const int pages = LayOutFor(document, device);
  return PrintPages(document, device, resolution, 1, pages);
}

QByteArray PdfOf(PagedDocument& document, const QPageLayout& paper) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setTitle(document.Title());
  writer.setCreator(QStringLiteral("nira-kpl"));
  writer.setResolution(PagedDocument::UnitsPerInch);
  writer.setPageLayout(QPageLayout(paper.pageSize(), paper.orientation(), QMarginsF()));
  PrintOn(document, writer, PagedDocument::UnitsPerInch);
  return bytes;
}

}  // namespace nira
