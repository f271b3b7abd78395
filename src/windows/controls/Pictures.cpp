// SPDX-License-Identifier: Apache-2.0
#include "controls/Pictures.h"

#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <QString>

#include <array>

namespace nira {

namespace {

// The pictures stand on a grid of 24 units, the program's own on one of 64.
constexpr double grid = 24;
constexpr double lineWidth = 1.6;
constexpr double programGrid = 64;

constexpr QRgb erasing = 0xffd02020;
constexpr QRgb choosing = 0xff3070d0;
constexpr QRgb programGround = 0xff1f4a80;
constexpr QRgb programCam = 0xffe8edf2;
constexpr QRgb programBar = 0xffffff00;
constexpr QRgb programRun = 0xff000000;

/// A square around a centre, for arcs.
QRectF Around(double x, double y, double radius) {
  return {x - radius, y - radius, 2 * radius, 2 * radius};
}

/// A disc of which the lower left three quarters are smaller.
QPainterPath CamShape(const QPointF& centre, double radius, double smaller) {
  QPainterPath path(centre - QPointF(0, radius));
  path.arcTo(Around(centre.x(), centre.y(), radius), 90, -90);
  path.lineTo(centre.x() + smaller, centre.y());
  path.arcTo(Around(centre.x(), centre.y(), smaller), 0, -270);
  path.closeSubpath();
  return path;
}

void InColour(QPainter& painter, QRgb colour) {
  QPen pen = painter.pen();
  pen.setColor(QColor::fromRgb(colour));
  painter.setPen(pen);
}

void New(QPainter& painter) {
  painter.drawPolygon(QPolygonF({{12.5, 3.5}, {5.5, 3.5}, {5.5, 20.5}, {18.5, 20.5}, {18.5, 9.5}}));
  painter.drawPolyline(QPolygonF({{12.5, 3.5}, {12.5, 9.5}, {18.5, 9.5}}));
}

void Open(QPainter& painter) {
  painter.drawPolyline(
      QPolygonF({{2.5, 20.5}, {2.5, 5.5}, {9, 5.5}, {12, 8.5}, {18.5, 8.5}, {18.5, 12.5}}));
  painter.drawPolygon(QPolygonF({{2.5, 20.5}, {6.5, 12.5}, {21.5, 12.5}, {17.5, 20.5}}));
}

void Save(QPainter& painter) {
  painter.drawPolygon(QPolygonF({{3.5, 3.5}, {16.5, 3.5}, {20.5, 7.5}, {20.5, 20.5}, {3.5, 20.5}}));
  painter.drawPolyline(QPolygonF({{8.5, 3.5}, {8.5, 8.5}, {14.5, 8.5}, {14.5, 3.5}}));
  painter.drawPolyline(QPolygonF({{6.5, 20.5}, {6.5, 12.5}, {17.5, 12.5}, {17.5, 20.5}}));
}

void Size(QPainter& painter) {
  painter.drawRect(QRectF(3.5, 3.5, 17, 18));
  painter.drawLine(QPointF(3.5, 9.5), QPointF(20.5, 9.5));
  painter.drawLine(QPointF(3.5, 15.5), QPointF(20.5, 15.5));
  InColour(painter, choosing);
  painter.drawLine(QPointF(7, 12.5), QPointF(17, 12.5));
}

void Erase(QPainter& painter) {
  painter.drawRect(QRectF(3.5, 3.5, 17, 18));
  for (const double y : {9.5, 15.5}) {
    painter.drawLine(QPointF(3.5, y), QPointF(6, y));
    painter.drawLine(QPointF(18, y), QPointF(20.5, y));
  }
  InColour(painter, erasing);
  painter.drawLine(QPointF(7.5, 8), QPointF(16.5, 17));
  painter.drawLine(QPointF(16.5, 8), QPointF(7.5, 17));
}

void Cam(QPainter& painter) {
  painter.drawPath(CamShape({10.5, 13.5}, 10, 7));
  painter.drawLine(QPointF(10.5, 13.5), QPointF(15, 9));
  painter.setBrush(painter.pen().color());
  painter.drawEllipse(Around(10.5, 13.5, 1.2));
}

/// An open box, above which the arrow stands.
void Tray(QPainter& painter) {
  painter.drawPolyline(QPolygonF({{3.5, 14.5}, {3.5, 20.5}, {20.5, 20.5}, {20.5, 14.5}}));
  painter.drawLine(QPointF(12, 3.5), QPointF(12, 16.5));
}

void Transmit(QPainter& painter) {
  Tray(painter);
  painter.drawPolyline(QPolygonF({{6.5, 9}, {12, 3.5}, {17.5, 9}}));
}

void Receive(QPainter& painter) {
  Tray(painter);
  painter.drawPolyline(QPolygonF({{6.5, 11}, {12, 16.5}, {17.5, 11}}));
}

void More(QPainter& painter) {
  for (const double x : {6.0, 12.0}) {
    painter.drawPolyline(QPolygonF({{x, 6}, {x + 6, 12}, {x, 18}}));
  }
}

void Program(QPainter& painter) {
  painter.scale(grid / programGrid, grid / programGrid);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor::fromRgb(programGround));
  painter.drawRoundedRect(QRectF(0, 0, programGrid, programGrid), 10, 10);
  painter.fillPath(CamShape({28, 28}, 24, 16), QColor::fromRgb(programCam));
  painter.drawEllipse(Around(28, 28, 5));
  painter.fillRect(QRectF(4, 48, 56, 12), QColor::fromRgb(programBar));
  painter.fillRect(QRectF(12, 48, 16, 12), QColor::fromRgb(programRun));
  painter.fillRect(QRectF(40, 48, 12, 12), QColor::fromRgb(programRun));
}

struct Picture {
  QLatin1String name;
  void (*paint)(QPainter&);
};
constexpr std::array pictures = {
    Picture{QLatin1String("new"), New},           Picture{QLatin1String("open"), Open},
    Picture{QLatin1String("save"), Save},         Picture{QLatin1String("size"), Size},
    Picture{QLatin1String("erase"), Erase},       Picture{QLatin1String("cam"), Cam},
    Picture{QLatin1String("transmit"), Transmit}, Picture{QLatin1String("receive"), Receive},
    Picture{QLatin1String("more"), More},         Picture{QLatin1String("nira-kpl"), Program},
};

}  // namespace

void PaintPicture(QPainter& painter, const QString& name, const QRectF& place,
                  const QColor& lines) {
  for (const Picture& picture : pictures) {
    if (picture.name != name) continue;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(place.topLeft());
    painter.scale(place.width() / grid, place.height() / grid);
    painter.setPen(QPen(lines, lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    picture.paint(painter);
    painter.restore();
  }
}

}  // namespace nira
