// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QLabel>

namespace nira {

/// Digits of one width, `factor` times as high as this text.
inline QFont DigitsLike(const QFont& text, double factor) {
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  font.setPixelSize(qRound(QFontInfo(text).pixelSize() * factor));
  return font;
}

/// The font of numbers: digits of one width, `factor` times as high as the desktop's text.
inline QFont Digits(double factor) {
  return DigitsLike(QApplication::font(), factor);
}

/// A label for numbers up to the width of `widest`, right-aligned: nothing moves when it changes.
inline QLabel* NumberLabel(const char* name, double factor, const QString& widest) {
  auto* label = new QLabel;
  label->setObjectName(QString::fromLatin1(name));
  label->setTextFormat(Qt::PlainText);
  label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  label->setFont(Digits(factor));
  label->setFixedWidth(QFontMetrics(label->font()).horizontalAdvance(widest) + 2);
  return label;
}

}  // namespace nira
