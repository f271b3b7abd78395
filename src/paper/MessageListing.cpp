// SPDX-License-Identifier: Apache-2.0
#include "MessageListing.h"

#include "files/TextNumbers.h"
#include "ground/Text.h"
#include "messages/MessageTexts.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QTextLayout>

#include <algorithm>
#include <utility>

namespace nira {

namespace {

// All lengths in tenths of a point.
constexpr double marginOfMessages = 400;  // 14 mm: more than any printer leaves free
constexpr double headOfMessages = 220;    // heading and date, with the rule below
constexpr double footOfMessages = 150;    // the number of the page
constexpr double gapOfColumns = 240;
constexpr double smallestPoints = 9;
constexpr double largestPoints = 36;

QFont Outlined(QFont font, double points) {
  font.setPixelSize(static_cast<int>(points * 10));
  font.setHintingPreference(QFont::PreferNoHinting);
  font.setStyleStrategy(QFont::PreferOutline);
  return font;
}

}  // namespace

MessageListing::MessageListing(const CamProgram& program, const MessageTable& texts, QString file,
                               const QDateTime& printed, const QFont& font)
    : program_(program),
      texts_(texts),
      file_(std::move(file)),
      date_(printed.toString(QStringLiteral("yyyy-MM-dd HH:mm"))),
      font_(
          Outlined(font, std::clamp(QFontInfo(font).pointSizeF(), smallestPoints, largestPoints))),
      plain_(Outlined(QFontDatabase::systemFont(QFontDatabase::GeneralFont), 9)) {
  const QFontMetricsF metrics(font_);
  row_ = metrics.lineSpacing();
  number_ = metrics.horizontalAdvance(QStringLiteral("000")) + metrics.averageCharWidth();
}

double MessageListing::Top() const {
  return margin_ + headOfMessages;
}

double MessageListing::Bottom() const {
  return paper_.height() - margin_ - footOfMessages;
}

double MessageListing::WidestText() const {
  const QFontMetricsF metrics(font_);
  double widest = 0;
  for (int number = 1; number <= program_.NumMessages(); ++number) {
    widest = std::max(widest, metrics.horizontalAdvance(program_.MessageText(number)));
  }
  return widest;
}

int MessageListing::LayOut(const QSizeF& paper) {
  paper_ = paper;
  margin_ = std::min(marginOfMessages, paper.width() / 10);
  const double room = Right() - margin_;
  const double text = std::clamp(WidestText() + 1, row_, std::max(row_, room - number_));
  const double columns = (room + gapOfColumns) / (number_ + text + gapOfColumns);
  PlaceEntries(text, std::max(1, static_cast<int>(columns)));
  return static_cast<int>(pages_.size());
}

/// Fills column after column, then page after page.
void MessageListing::PlaceEntries(double textWidth, int columns) {
  pages_.assign(1, {});
  int column = 0;
  double y = Top();
  const auto nextColumn = [&] {
    y = Top();
    column = (column + 1) % columns;
    if (column == 0) pages_.emplace_back();
  };
  for (int number = 1; number <= program_.NumMessages(); ++number) {
    QStringList lines = LinesOf(program_.MessageText(number), textWidth);
    int first = 0;
    if (y + row_ * static_cast<double>(lines.size()) > Bottom() && y > Top()) nextColumn();
    while (!lines.isEmpty()) {
      const auto fitting = std::max<qsizetype>(1, static_cast<qsizetype>((Bottom() - y) / row_));
      const double x = margin_ + column * (number_ + textWidth + gapOfColumns);
      pages_.back().push_back({number, x, y, lines.mid(0, fitting), first});
      first += static_cast<int>(pages_.back().back().lines.join(QString()).size());
      y += row_ * static_cast<double>(pages_.back().back().lines.size());
      lines = lines.mid(fitting);
      if (!lines.isEmpty()) nextColumn();
    }
  }
}

QStringList MessageListing::LinesOf(const QString& text, double width) const {
  QTextLayout layout(text, font_);
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout.setTextOption(option);
  QStringList lines;
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(width);
    lines << text.mid(line.textStart(), line.textLength());
  }
  layout.endLayout();
  return lines.isEmpty() ? QStringList(QString()) : lines;
}

void MessageListing::Word(QPainter& painter, const QRectF& place, int flags, const QString& text,
                          const QFont& font) const {
  painter.setFont(font);
  painter.drawText(place, flags | Qt::TextSingleLine, text);
}

void MessageListing::Paint(QPainter& painter, int page) const {
  painter.setPen(Qt::black);
  PaintFrame(painter, page);
  for (const Entry& entry : pages_.at(static_cast<std::size_t>(page) - 1)) {
    const QRectF place(entry.x, entry.y, Right() - entry.x, row_);
    Word(painter, place, Qt::AlignLeft, ZeroFilled(entry.number, 3), font_);
    for (int line = 0; line < entry.lines.size(); ++line) {
      Word(painter, place.adjusted(number_, line * row_, 0, line * row_), Qt::AlignLeft,
           entry.lines.at(line), font_);
    }
    PaintRowMark(painter, entry);
  }
}

/// A thin line where the second row of the programmer's display begins, when it has a text and
/// does not begin a line here anyway.
void MessageListing::PaintRowMark(QPainter& painter, const Entry& entry) const {
  constexpr double thin = 4;
  painter.setPen(QPen(Qt::black, thin, Qt::SolidLine, Qt::FlatCap));
  const QFontMetricsF metrics(font_);
  qsizetype at = MessageDisplay::Columns - entry.first;
  for (int line = 0; line < entry.lines.size() && at > 0; ++line) {
    const QString& text = entry.lines.at(line);
    if (at < text.size()) {
      const double x = entry.x + number_ + metrics.horizontalAdvance(text.left(at));
      const double y = entry.y + line * row_;
      painter.drawLine(QPointF(x, y), QPointF(x, y + row_));
    }
    at -= text.size();
  }
}

void MessageListing::PaintFrame(QPainter& painter, int page) const {
  const double width = Right() - margin_;
  const QFontMetricsF metrics(plain_);
  const QRectF head(margin_, margin_, width, metrics.lineSpacing());
  const double dateWidth = metrics.horizontalAdvance(date_) + gapOfColumns;
  QFont bold = plain_;
  bold.setBold(true);
  const QString heading =
      QFontMetricsF(bold).elidedText(Title(), Qt::ElideMiddle, width - dateWidth);
  Word(painter, head, Qt::AlignLeft, heading, bold);
  Word(painter, head, Qt::AlignRight, date_, plain_);
  const double below = margin_ + metrics.lineSpacing() + 25;
  painter.setPen(QPen(Qt::black, 8, Qt::SolidLine, Qt::FlatCap));
  painter.drawLine(QPointF(margin_, below), QPointF(Right(), below));
  Word(painter, QRectF(margin_, Bottom(), width, footOfMessages), Qt::AlignRight | Qt::AlignBottom,
       texts_.Text(TextNumber::PrintedPage) + QString::number(page) + QStringLiteral(" / ") +
           QString::number(pages_.size()),
       plain_);
}

}  // namespace nira
