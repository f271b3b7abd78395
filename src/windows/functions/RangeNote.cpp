// SPDX-License-Identifier: Apache-2.0
#include "functions/RangeNote.h"

#include "controls/NumberBox.h"
#include "controls/PlainTip.h"
#include "files/MessageTable.h"
#include "files/TextNumbers.h"

namespace nira {

namespace {

constexpr QRgb refusedGround = 0xffffd2cc;  // light red, under black in every theme

QPalette RefusedPalette() {
  QPalette palette;
  palette.setColor(QPalette::Base, QColor::fromRgb(refusedGround));
  palette.setColor(QPalette::Text, Qt::black);
  return palette;
}

}  // namespace

RangeNote::RangeNote(const MessageTable& texts) : texts_(texts) {
  setObjectName(QStringLiteral("Note"));
}

void RangeNote::Watch(NumberBox* box) {
  connect(box, &QLineEdit::textChanged, this, [this, box] { Accept(box); });
}

void RangeNote::Refuse(NumberBox* box, int lowest, int highest) {
  const QString from = QString::number(lowest);
  const QString to = QString::number(highest);
  const QString& words = texts_.Text(TextNumber::ValueRefused);
  // An older script has the words of the message alone.
  setText(words.isEmpty() ? texts_.Text(TextNumber::OutOfRange) + from + u'-' + to
                          : words.arg(box->accessibleName(), box->text(), from, to));
  refused_ = box;
  box->setPalette(RefusedPalette());
  box->setToolTip(PlainTip(text()));
  box->setAccessibleDescription(text());
}

void RangeNote::Accept(NumberBox* box) {
  if (box->toolTip().isEmpty()) return;
  box->setPalette({});
  box->setToolTip({});
  box->setAccessibleDescription({});
  if (refused_ == box) clear();
}

}  // namespace nira
