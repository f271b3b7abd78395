// SPDX-License-Identifier: Apache-2.0
#include "editor/PreviewField.h"

#include "controls/PlainTip.h"
#include "controls/Shades.h"
#include "files/TextNumbers.h"
#include "ground/Text.h"
#include "model/AdvanceCalculator.h"

#include <QPainter>

namespace nira {

namespace {

constexpr QRgb amberEdge = 0xff9a5b00;
constexpr QRgb amberText = 0xff000000;

QString Name(int number) {
  return u'F' + ZeroFilled(number, 3);
}

QString Pair(const Phase& phase) {
  return ZeroFilled(phase.on, 3) + u'-' + ZeroFilled(phase.off, 3);
}

QString Length(const Phase& phase, int speed) {
  const QString degrees = QStringLiteral("  ") + QString::number(phase.Length()) + u'°';
  if (speed == 0) return degrees;
  return degrees + QStringLiteral("  ") + AdvanceCalculator::Duration(speed, phase.Length());
}

/// "F001, F002 e F003".
QString Names(const std::vector<int>& numbers, const QString& last) {
  QStringList names;
  for (const int number : numbers) names.append(Name(number));
  const QString end = names.takeLast();
  return names.join(QStringLiteral(", ")) + last + end;
}

QString Words(const PhaseChange& change, const MessageTable& texts, int speed) {
  const QString after = Pair(change.after) + Length(change.after, speed);
  switch (change.kind) {
    case PhaseChange::Kind::New:
      return texts.Text(TextNumber::PreviewNew) + after;
    case PhaseChange::Kind::Changed:
      return Name(change.numbers.front()) + u' ' + Pair(change.before) + QStringLiteral(" → ") +
             after;
    case PhaseChange::Kind::Joined:
      return texts.Text(TextNumber::PreviewJoins) +
             Names(change.numbers, texts.Text(TextNumber::PreviewAnd)) + QStringLiteral(": ") +
             after;
    case PhaseChange::Kind::Deleted:
      return texts.Text(TextNumber::PreviewDeletes) + Name(change.numbers.front()) + u' ' +
             Pair(change.before);
  }
  return {};
}

}  // namespace

PreviewField::PreviewField(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void PreviewField::ShowPreview(const PhasePreview& preview, bool unasked, const MessageTable& texts,
                               int speed) {
  QStringList minded;
  if (unasked) minded.append(texts.Text(TextNumber::PreviewUnasked));
  if (preview.neighbourGoes) minded.append(texts.Text(TextNumber::PreviewNeighbour));
  if (!preview.keptInFile) minded.append(texts.Text(TextNumber::PreviewNotKept));
  amber_ = !minded.isEmpty();
  const bool one = preview.changes.size() == 1 && preview.comes.size() == 1;
  length_ = one ? Length(preview.changes.front().after, speed) : QString();
  QStringList words;
  for (const PhaseChange& change : preview.changes) words.append(Words(change, texts, speed));
  if (words.isEmpty()) words.append(texts.Text(TextNumber::PreviewNothing));
  const QString first =
      amber_ ? minded.join(QStringLiteral("; ")) : texts.Text(TextNumber::PreviewHeading);
  setText(first + u'\n' + words.join(QStringLiteral("; ")));
  setToolTip(PlainTip(text()));
  setAccessibleName(text());
  update();
}

void PreviewField::paintEvent(QPaintEvent*) {
  constexpr int edge = 4;
  constexpr int margin = 4;
  QPainter painter(this);
  const QPalette& colours = palette();
  const QColor accent = colours.color(QPalette::Highlight);
  const QColor ground = Mixed(accent, colours.color(QPalette::Base), 0.15);
  painter.fillRect(rect(), amber_ ? QColor::fromRgb(amberGround) : ground);
  painter.fillRect(0, 0, edge, height(), amber_ ? QColor::fromRgb(amberEdge) : accent);
  painter.setPen(amber_ ? QColor::fromRgb(amberText) : colours.color(QPalette::Text));
  const int half = height() / 2;
  const QRect first(edge + margin, 0, width() - edge - 2 * margin, half);
  QFont bold = font();
  bold.setBold(true);
  const QString heading = text().section(u'\n', 0, 0);
  QString words = text().section(u'\n', 1);
  const auto paint = [&](const QFont& type, const QRect& place, int side, const QString& line) {
    painter.setFont(type);
    painter.drawText(place, side | Qt::AlignVCenter | Qt::TextSingleLine,
                     QFontMetrics(type).elidedText(line, Qt::ElideRight, place.width()));
  };
  // Where the words leave no room for the length it stands beside the heading.
  const QFontMetrics plain(font());
  const bool fits = plain.horizontalAdvance(words) <= first.width();
  const int above =
      QFontMetrics(bold).horizontalAdvance(heading) + plain.horizontalAdvance(length_);
  if (!fits && above <= first.width()) {
    words.chop(length_.size());
    paint(font(), first, Qt::AlignRight, length_);
  }
  paint(bold, first, Qt::AlignLeft, heading);
  paint(font(), first.translated(0, half), Qt::AlignLeft, words);
}

}  // namespace nira
