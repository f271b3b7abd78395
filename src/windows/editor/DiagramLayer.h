// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "editor/DiagramPlace.h"

#include <QFont>
#include <QWidget>

namespace nira {

/// Something painted over the whole diagram, through which every click goes.
class DiagramLayer : public QWidget {
  Q_OBJECT

 public:
  DiagramLayer(const char* name, QWidget* diagram);

  /// New places, and the pixels of the numbers on the scale. The layer that is arranged last lies
  /// on top.
  void Arrange(const DiagramPlace& place, int scalePixels);

 protected:
  const DiagramPlace& Place() const { return place_; }
  /// Of numbers on the scale.
  const QFont& ScaleFont() const { return font_; }

 private:
  DiagramPlace place_;
  QFont font_;
};

}  // namespace nira
