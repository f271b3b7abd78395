// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLabel>

namespace nira {

/// A label that shows its text as it is, whatever a script has put into it.
inline QLabel* PlainLabel(const QString& text) {
  auto* label = new QLabel;
  label->setTextFormat(Qt::PlainText);
  label->setText(text);
  return label;
}

}  // namespace nira
