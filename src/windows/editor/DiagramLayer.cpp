// SPDX-License-Identifier: Apache-2.0
#include "editor/DiagramLayer.h"

namespace nira {

DiagramLayer::DiagramLayer(const char* name, QWidget* diagram) : QWidget(diagram) {
  setObjectName(QString::fromLatin1(name));
  setAttribute(Qt::WA_TransparentForMouseEvents);
}

void DiagramLayer::Arrange(const DiagramPlace& place, int scalePixels) {
  place_ = place;
  font_ = font();
  font_.setPixelSize(scalePixels);
  font_.setBold(true);
  setGeometry(parentWidget()->rect());
  raise();
  update();
}

}  // namespace nira
