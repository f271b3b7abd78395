// SPDX-License-Identifier: Apache-2.0
#include "controls/SimulatedSign.h"

namespace nira {

SimulatedSign::SimulatedSign(const QString& text, QWidget* parent) : QLabel(text, parent) {
  setObjectName(QStringLiteral("Simulated"));
  setTextFormat(Qt::PlainText);
  setContentsMargins(8, 0, 8, 0);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
  QPalette plain = palette();
  plain.setColor(QPalette::Window, QColor::fromRgb(Ground));
  plain.setColor(QPalette::WindowText, QColor::fromRgb(Ink));
  setPalette(plain);
  setAutoFillBackground(true);
  hide();
}

}  // namespace nira
