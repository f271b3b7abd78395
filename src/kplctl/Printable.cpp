// SPDX-License-Identifier: Apache-2.0
#include "Printable.h"

#include <QChar>

namespace nira {

namespace {

bool IsShown(QChar character) {
  return character.isPrint() && character.category() != QChar::Other_Format;
}

}  // namespace

QString Printable(const QString& text) {
  QString shown = text;
  for (qsizetype i = 0; i < shown.size(); ++i) {
    const bool pair =
        shown.at(i).isHighSurrogate() && i + 1 < shown.size() && shown.at(i + 1).isLowSurrogate();
    if (pair) {
      ++i;  // nothing beyond the first plane moves a cursor
    } else if (!IsShown(shown.at(i))) {
      shown[i] = QChar(QChar::ReplacementCharacter);
    }
  }
  return shown;
}

}  // namespace nira
