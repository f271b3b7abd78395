// SPDX-License-Identifier: Apache-2.0
#include "controls/ThemedIcon.h"

#include <QColor>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

/// The pictures stand in a static library, where nothing else would pull them in.
static void TakeResources() {
  Q_INIT_RESOURCE(nira_kpl);
}

namespace nira {

namespace {

/// Draws its picture when and as large as it is asked for.
class PictureEngine : public QIconEngine {
 public:
  PictureEngine(QByteArray svg, QColor lines, QColor disabledLines)
      : svg_(std::move(svg)), lines_(lines), disabledLines_(disabledLines) {}

  QIconEngine* clone() const override { return new PictureEngine(*this); }

  void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State) override {
    const QColor& lines = mode == QIcon::Disabled ? disabledLines_ : lines_;
    if (mode == QIcon::Disabled) painter->setOpacity(0.5);  // the accents fade as well
    QSvgRenderer(QByteArray(svg_).replace("#000000", lines.name().toLatin1()))
        .render(painter, place);
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(0, 0), size), mode, state);
    return pixmap;
  }

  QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override {
    return {QSize(16, 16), QSize(32, 32), QSize(64, 64)};
  }

 private:
  QByteArray svg_;
  QColor lines_;
  QColor disabledLines_;
};

}  // namespace

QIcon ThemedIcon(const QString& name, const QPalette& palette) {
  TakeResources();
  QFile file(QStringLiteral(":/icons/") + name + QStringLiteral(".svg"));
  if (!file.open(QIODevice::ReadOnly)) return {};
  return QIcon(new PictureEngine(file.readAll(),
                                 palette.color(QPalette::Active, QPalette::WindowText),
                                 palette.color(QPalette::Disabled, QPalette::WindowText)));
}

}  // namespace nira
