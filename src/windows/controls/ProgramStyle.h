// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QProxyStyle>

namespace nira {

/// Qt's Fusion, with own pictures for what a narrow menu bar or tool bar folds away. Looking for
/// theirs would make Qt load every picture plugin before the first window is painted.
class ProgramStyle : public QProxyStyle {
  Q_OBJECT

 public:
  ProgramStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

  using QProxyStyle::polish;
  /// The desktop's colours, with those that it lacks.
  void polish(QPalette& palette) override;

  QIcon standardIcon(StandardPixmap picture, const QStyleOption* option,
                     const QWidget* widget) const override;

  /// Frames of boxes and buttons to mark, which Fusion makes a little darker than the window and so
  /// not to be seen in a dark one.
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;

  /// The tip over a run comes at once: the operator reads one after the other.
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* more) const override;
};

}  // namespace nira
