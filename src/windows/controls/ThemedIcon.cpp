// SPDX-License-Identifier: Apache-2.0
#include "controls/ThemedIcon.h"

#include "controls/Pictures.h"

#include <QColor>
#include <QIconEngine>
#include <QPainter>
#include <QPixmap>

namespace nira {

namespace {

/// Draws its picture when and as large as it is asked for.
class PictureEngine : public QIconEngine {
 public:
  PictureEngine(QString name, QColor lines, QColor disabledLines)
      : name_(std::move(name)), lines_(lines), disabledLines_(disabledLines) {}

  QIconEngine* clone() const override { return new PictureEngine(*this); }

  void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State) override {
    const QColor& lines = mode == QIcon::Disabled ? disabledLines_ : lines_;
    if (mode == QIcon::Disabled) painter->setOpacity(0.5);  // the accents fade as well
    PaintPicture(*painter, name_, place, lines);
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
  QString name_;
  QColor lines_;
  QColor disabledLines_;
};

}  // namespace

QIcon ThemedIcon(const QString& name, const QPalette& palette) {
  return QIcon(new PictureEngine(name, palette.color(QPalette::Active, QPalette::WindowText),
                                 palette.color(QPalette::Disabled, QPalette::WindowText)));
}

}  // namespace nira
