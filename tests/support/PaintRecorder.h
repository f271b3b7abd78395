// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "PagedDocument.h"

#include <QFontInfo>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainterPath>

#include <functional>

namespace nira {

/// A paint device that keeps the words and the boxes that are painted on it, with their places
/// and sizes.
class PaintRecorder : public QPaintDevice {
 public:
  /// Of a page (from 1) of a document that is laid out on this paper.
  PaintRecorder(const PagedDocument& document, const QSizeF& paper, int page)
      : size_(paper.toSize()) {
    QPainter painter(this);
    document.Paint(painter, page);
  }

  /// Of whatever `paint` paints on a screen of this size.
  PaintRecorder(const QSize& size, const std::function<void(QPaintDevice*)>& paint)
      : size_(size), unitsPerInch_(96) {
    paint(this);
  }

  QPaintEngine* paintEngine() const override { return &engine_; }
  const QStringList& Words() const { return engine_.words; }
  /// The box of each word.
  const QList<QRectF>& Places() const { return engine_.places; }
  /// Two words that stand on each other; empty when there are none.
  QString Overlap() const {
    for (qsizetype i = 0; i < engine_.places.size(); ++i) {
      for (qsizetype k = 0; k < i; ++k) {
        // Accents and tails are shorter than the line.
        const double slack = unitsPerInch_ / 144.0;
        const QRectF place = engine_.places.at(i).adjusted(0, slack, 0, -slack);
        if (!place.intersects(engine_.places.at(k).adjusted(0, slack, 0, -slack))) continue;
        return engine_.words.at(k) + u'|' + engine_.words.at(i);
      }
    }
    return {};
  }
  /// Where this word stands first.
  QRectF PlaceOf(const QString& word) const {
    return engine_.places.value(engine_.words.indexOf(word));
  }
  /// The words in letters of less than so many pixels.
  QStringList WordsBelow(int pixels) const {
    QStringList small;
    for (qsizetype i = 0; i < engine_.words.size(); ++i) {
      if (engine_.letters.at(i) < pixels) small.append(engine_.words.at(i));
    }
    return small;
  }
  const QList<QRectF>& Bars() const { return engine_.bars; }
  /// How many upright lines were drawn.
  int Uprights() const { return engine_.uprights; }
  /// Everything that was painted.
  const QRectF& Ink() const { return engine_.ink; }

 protected:
  int metric(PaintDeviceMetric metric) const override {
    switch (metric) {
      case PdmWidth:
        return size_.width();
      case PdmHeight:
        return size_.height();
      case PdmDpiX:
      case PdmDpiY:
      case PdmPhysicalDpiX:
      case PdmPhysicalDpiY:
        return unitsPerInch_;
      case PdmDevicePixelRatioScaled:
        return static_cast<int>(devicePixelRatioFScale());
      default:
        return 1;
    }
  }

 private:
  class Engine : public QPaintEngine {
   public:
    Engine() : QPaintEngine(QPaintEngine::AllFeatures) {}
    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }
    void updateState(const QPaintEngineState&) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void drawPath(const QPainterPath& path) override { ink |= path.boundingRect(); }
    void drawPolygon(const QPointF* points, int count, PolygonDrawMode) override {
      for (int i = 0; i < count; ++i) ink |= QRectF(points[i], QSizeF(1, 1));
      if (count == 2 && qFuzzyCompare(points[0].x(), points[1].x())) ++uprights;
    }
    void drawTextItem(const QPointF& place, const QTextItem& item) override {
      const QRectF line(place.x(), place.y() - item.ascent(), item.width(),
                        item.ascent() + item.descent());
      const QRectF box = painter()->deviceTransform().mapRect(line);
      words.append(item.text());
      places.append(box);
      letters.append(QFontInfo(item.font()).pixelSize());
      ink |= box;
    }
    void drawRects(const QRectF* rects, int count) override {
      for (int i = 0; i < count; ++i) {
        bars.append(rects[i]);
        ink |= rects[i];
      }
    }
    using QPaintEngine::drawRects;

    QStringList words;
    QList<QRectF> places;
    QList<int> letters;
    QList<QRectF> bars;
    int uprights = 0;
    QRectF ink;
  };

  QSize size_;
  int unitsPerInch_ = PagedDocument::UnitsPerInch;
  mutable Engine engine_;
};

}  // namespace nira
