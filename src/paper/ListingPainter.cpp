// SPDX-License-Identifier: Apache-2.0
#include "ListingPainter.h"

#include "listing/Listing.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>

#include <algorithm>

namespace nira {

namespace {

// All lengths in tenths of a point.
constexpr double widestMargin = 400;   // 14 mm: more than any printer leaves free
constexpr double pageHead = 330;       // program, file, model and date, with the rule below
constexpr double pageFoot = 150;       // the number of the page
constexpr double lineOverlap = 8;      // of two lines where paper is saved: letters do not meet yet
constexpr double headingHeight = 230;  // of a size, of the functions
constexpr double columnsRule = 34;     // below the names of the columns
constexpr double blockGap = 160;       // before a size that follows on the same page
constexpr double numberColumn = 400;
constexpr double columnGap = 90;
constexpr double scaleHeight = 130;  // above and below the bars
constexpr double scaleGap = 40;      // beside the bars
constexpr double mostBarRow = 130;   // a row of the diagram at its widest
constexpr double hairline = 3;
constexpr double rule = 8;
constexpr int mostFunctionColumns = 3;
constexpr int phaseWidth = 9;  // characters of "350-010" and the gap behind it
constexpr int fewestRows = 3;  // of a table below its heading before a page ends

const QColor lineGrey(150, 150, 150);

QFont Sized(QFont font, int pixels, bool bold) {
  font.setPixelSize(pixels);
  font.setBold(bold);
  font.setHintingPreference(QFont::PreferNoHinting);
  font.setStyleStrategy(QFont::PreferOutline);
  return font;
}

}  // namespace

ListingPainter::ListingPainter(const Listing& listing) : listing_(listing) {
  const QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  const QFont general = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
  data_ = Sized(fixed, 90, false);
  small_ = Sized(fixed, 70, false);
  plain_ = Sized(general, 90, false);
  heading_ = Sized(general, 130, true);
  character_ = QFontMetricsF(data_).horizontalAdvance(u'0');
  row_ = std::max(QFontMetricsF(data_).height(), QFontMetricsF(plain_).height());
  if (!listing.Options().PagePerSize) row_ -= lineOverlap;
  const QFontMetricsF small(small_);
  barNumber_ = small.horizontalAdvance(QStringLiteral("00"));
  barName_ = barNumber_ + small.horizontalAdvance(QString(Listing::DescriptionWidth + 1, u'0'));
  barRow_ = small.height() - lineOverlap / 2;
}

QString ListingPainter::Title() const {
  return listing_.ProgramLine() + QStringLiteral(" - ") + listing_.FileLine();
}

double ListingPainter::ColumnsHeight() const {
  return row_ + columnsRule;
}

double ListingPainter::Bottom() const {
  return paper_.height() - margin_ - pageFoot;
}

int ListingPainter::LayOut(const QSizeF& paper) {
  paper_ = paper;
  margin_ = std::min(widestMargin, paper.width() / 10);
  const double phases =
      Right() - Left() - numberColumn - character_ * Listing::DescriptionWidth - columnGap;
  phasesPerLine_ = std::max(1, static_cast<int>((phases / character_ + 2) / phaseWidth));
  functionLines_ = listing_.Options().Functions ? listing_.FunctionLines() : QStringList();
  pages_.clear();
  NewPage();
  LayOutFunctions();
  for (int size = listing_.Options().FirstSize; size <= listing_.Options().LastSize; ++size) {
    LayOutSize(size);
  }
  return static_cast<int>(pages_.size());
}

void ListingPainter::NewPage() {
  pages_.emplace_back();
  y_ = margin_ + pageHead;
}

void ListingPainter::Put(Block block) {
  block.top = y_;
  y_ += block.height;
  pages_.back().push_back(block);
}

void ListingPainter::LayOutFunctions() {
  if (functionLines_.isEmpty()) return;
  qsizetype longest = 0;
  for (const QString& line : std::as_const(functionLines_))
    longest = std::max(longest, line.size());
  const double column = static_cast<double>(longest) * character_ + columnGap;
  functionColumns_ =
      std::clamp(static_cast<int>((Right() - Left()) / column), 1, mostFunctionColumns);
  const int lines = static_cast<int>(functionLines_.size());
  Put({.kind = Block::Kind::FunctionsHeading, .height = headingHeight});
  for (int first = 0; first < lines;) {
    if (first > 0) NewPage();
    const int wanted = (lines - first + functionColumns_ - 1) / functionColumns_;
    const int rows = std::clamp(static_cast<int>(Room() / row_), 1, wanted);
    Put({.kind = Block::Kind::Functions, .first = first, .count = rows, .height = rows * row_});
    first += rows * functionColumns_;
  }
}

void ListingPainter::LayOutSize(int size) {
  const bool phases = listing_.HasPhases(size);
  const bool diagram = phases && listing_.Options().Diagram;
  if (!PageIsEmpty()) {
    const double whole = blockGap + headingHeight + TableHeight(size) +
                         (diagram ? DiagramHeight(barRow_, listing_.CamCount()) : 0);
    const double page = Bottom() - margin_ - pageHead + blockGap;
    const double least = blockGap + headingHeight + ColumnsHeight() + fewestRows * row_;
    const bool torn = whole > Room() && (whole <= page || Room() < least);
    // The first size may share the page of the functions.
    const bool own = listing_.Options().PagePerSize && size > listing_.Options().FirstSize;
    if (own || torn) {
      NewPage();
    } else {
      y_ += blockGap;
    }
  }
  if (!phases) {
    Put({.kind = Block::Kind::Size, .size = size, .height = headingHeight});
    Put({.kind = Block::Kind::NoPhases, .size = size, .height = row_});
    return;
  }
  LayOutCams(size);
  if (diagram) LayOutDiagram(size);
}

void ListingPainter::PutTableHead(int size, bool continued) {
  Put({.kind = Block::Kind::Size, .size = size, .continued = continued, .height = headingHeight});
  Put({.kind = Block::Kind::Columns, .size = size, .height = ColumnsHeight()});
}

void ListingPainter::LayOutCams(int size) {
  PutTableHead(size, false);
  for (int cam = 0; cam < listing_.CamCount(); ++cam) {
    const int lines = PhaseLines(size, cam);
    for (int first = 0; first < lines;) {
      if (Room() < row_ && pages_.back().size() > 2) {
        NewPage();
        PutTableHead(size, true);
      }
      const int fitting = std::max(1, static_cast<int>(Room() / row_));
      const int count = std::min(lines - first, fitting);
      Put({.kind = Block::Kind::Cam,
           .size = size,
           .cam = cam,
           .first = first,
           .count = count,
           .height = count * row_});
      first += count;
    }
  }
}

/// All cams in one picture where a page has room for it; otherwise it goes on, each part with its
/// scales.
void ListingPainter::LayOutDiagram(int size) {
  const int cams = listing_.CamCount();
  for (int first = 0; first < cams;) {
    const bool whole = Room() >= DiagramHeight(barRow_, cams);
    if (!whole && pages_.back().size() > 1) {
      NewPage();
      Put({.kind = Block::Kind::Size, .size = size, .continued = true, .height = headingHeight});
    }
    const double bars = Room() - DiagramHeight(0, 0);
    const int count = std::clamp(static_cast<int>(bars / barRow_), 1, cams - first);
    const double most = listing_.Options().PagePerSize ? mostBarRow : barRow_;
    const double row = std::clamp(bars / count, barRow_, std::max(most, barRow_));
    Put({.kind = Block::Kind::Diagram,
         .size = size,
         .cam = first,
         .count = count,
         .height = DiagramHeight(row, count)});
    first += count;
  }
}

int ListingPainter::PhaseLines(int size, int cam) const {
  const int phases = listing_.PhaseCount(size, cam);
  return std::max(1, (phases + phasesPerLine_ - 1) / phasesPerLine_);
}

double ListingPainter::TableHeight(int size) const {
  if (!listing_.HasPhases(size)) return row_;
  double height = ColumnsHeight();
  for (int cam = 0; cam < listing_.CamCount(); ++cam) height += PhaseLines(size, cam) * row_;
  return height;
}

double ListingPainter::DiagramHeight(double row, int cams) const {
  return 2 * scaleHeight + row_ + row * cams;
}

void ListingPainter::Paint(QPainter& painter, int page) const {
  painter.setPen(Qt::black);
  PaintFrame(painter, page);
  for (const Block& block : pages_.at(static_cast<std::size_t>(page) - 1)) {
    PaintBlock(painter, block);
  }
}

void ListingPainter::Word(QPainter& painter, const QRectF& place, int flags, const QString& text,
                          const QFont& font) const {
  painter.setFont(font);
  painter.drawText(place, flags | Qt::TextSingleLine, text);
}

void ListingPainter::Line(QPainter& painter, double x1, double y1, double x2, double y2,
                          double width) const {
  const bool faint = width <= hairline;
  painter.setPen(QPen(faint ? lineGrey : QColor(Qt::black), width, Qt::SolidLine, Qt::FlatCap));
  painter.drawLine(QPointF(x1, y1), QPointF(x2, y2));
  painter.setPen(Qt::black);
}

/// What stands on every page: whose program it is above, the number of the page below.
void ListingPainter::PaintFrame(QPainter& painter, int page) const {
  const double width = Right() - Left();
  QFont bold = plain_;
  bold.setBold(true);
  const QRectF first(Left(), margin_, width, 110);
  const QRectF second(Left(), margin_ + 120, width, 110);
  const auto pair = [&](const QRectF& place, const QString& left, const QFont& font,
                        Qt::TextElideMode elide, const QString& right) {
    const double room = width - QFontMetricsF(plain_).horizontalAdvance(right) - columnGap;
    const QString shown = QFontMetricsF(font).elidedText(left, elide, room);
    Word(painter, place, Qt::AlignLeft, shown, font);
    Word(painter, place, Qt::AlignRight, right, plain_);
  };
  pair(first, listing_.ProgramLine(), bold, Qt::ElideRight, listing_.DateLine());
  pair(second, listing_.FileLine(), plain_, Qt::ElideMiddle, listing_.ModelLine());
  Line(painter, Left(), margin_ + 245, Right(), margin_ + 245, rule);
  Word(painter, QRectF(Left(), Bottom(), width, pageFoot), Qt::AlignRight | Qt::AlignBottom,
       listing_.PageLine(page, static_cast<int>(pages_.size())), plain_);
}

void ListingPainter::PaintBlock(QPainter& painter, const Block& block) const {
  const QRectF place(Left(), block.top, Right() - Left(), block.height);
  switch (block.kind) {
    case Block::Kind::FunctionsHeading:
      Word(painter, place, Qt::AlignLeft, listing_.FunctionsHeading(), heading_);
      break;
    case Block::Kind::Functions:
      PaintFunctions(painter, block);
      break;
    case Block::Kind::Size:
      Word(painter, place, Qt::AlignLeft, listing_.SizeHeading(block.size, block.continued),
           heading_);
      break;
    case Block::Kind::Columns:
      PaintColumns(painter, block);
      break;
    case Block::Kind::Cam:
      PaintCam(painter, block);
      break;
    case Block::Kind::NoPhases:
      Word(painter, place, Qt::AlignLeft, listing_.NoPhases(), plain_);
      break;
    case Block::Kind::Diagram:
      PaintDiagram(painter, block);
      break;
  }
}

void ListingPainter::PaintFunctions(QPainter& painter, const Block& block) const {
  const double width = (Right() - Left()) / functionColumns_;
  const int last = block.first + block.count * functionColumns_;
  for (int line = block.first; line < std::min<qsizetype>(last, functionLines_.size()); ++line) {
    const int column = (line - block.first) / block.count;
    const int row = (line - block.first) % block.count;
    const QRectF place(Left() + column * width, block.top + row * row_, width, row_);
    Word(painter, place, Qt::AlignLeft | Qt::AlignVCenter, functionLines_.at(line), data_);
  }
}

void ListingPainter::PaintColumns(QPainter& painter, const Block& block) const {
  const QStringList names = listing_.ColumnHeadings();
  const double description = Left() + numberColumn;
  const double phases = description + character_ * Listing::DescriptionWidth + columnGap;
  const auto column = [&](double x, const QString& name) {
    Word(painter, QRectF(x, block.top, Right() - x, row_), Qt::AlignLeft | Qt::AlignVCenter, name,
         plain_);
  };
  column(Left(), names.at(0));
  column(description, names.at(1));
  column(phases, names.at(2));
  Line(painter, Left(), block.top + row_ + 8, Right(), block.top + row_ + 8, rule / 2);
}

void ListingPainter::PaintCam(QPainter& painter, const Block& block) const {
  const Listing::Cam cam = listing_.CamOf(block.size, block.cam);
  const double description = Left() + numberColumn;
  const double width = character_ * Listing::DescriptionWidth;
  const int flags = Qt::AlignLeft | Qt::AlignVCenter;
  // Again where the cam goes on from the page before: each page is read by itself.
  Word(painter, QRectF(Left(), block.top, numberColumn, row_), flags, cam.number, data_);
  const QRectF column(description, block.top, width, row_);
  painter.save();
  painter.setClipRect(column.adjusted(0, -lineOverlap, 0, lineOverlap));
  Word(painter, column, flags, cam.description, data_);
  painter.restore();
  for (int line = 0; line < block.count; ++line) {
    const double y = block.top + line * row_;
    for (int i = 0; i < phasesPerLine_; ++i) {
      const int phase = (block.first + line) * phasesPerLine_ + i;
      if (phase >= cam.phases.size()) break;
      const double x = description + width + columnGap + i * phaseWidth * character_;
      Word(painter, QRectF(x, y, phaseWidth * character_, row_), flags, cam.phases.at(phase),
           data_);
    }
  }
  const double end = block.top + block.height;
  Line(painter, Left(), end, Right(), end, hairline);
}

double ListingPainter::DegreeX(int degree) const {
  const double left = Left() + barName_ + scaleGap;
  const double width = Right() - barNumber_ - scaleGap - left;
  return left + width * degree / CamProgram::Degrees;
}

void ListingPainter::PaintDiagram(QPainter& painter, const Block& block) const {
  const double top = block.top + row_ + scaleHeight;  // a free row below the table
  const double row = (block.height - DiagramHeight(0, 0)) / block.count;
  const double bottom = top + row * block.count;
  for (int degree = 90; degree < CamProgram::Degrees; degree += 90) {
    Line(painter, DegreeX(degree), top, DegreeX(degree), bottom, hairline);
  }
  PaintBars(painter, block, top, row);
  PaintScale(painter, top, true);
  PaintScale(painter, bottom, false);
  Line(painter, DegreeX(0), top, DegreeX(0), bottom, rule / 2);
  Line(painter, DegreeX(CamProgram::Degrees), top, DegreeX(CamProgram::Degrees), bottom, rule / 2);
}

/// Ticks every 10 degrees, longer ones with their numbers every 30, or 90 where paper is narrow.
void ListingPainter::PaintScale(QPainter& painter, double y, bool above) const {
  const double out = above ? -1 : 1;
  const double number = QFontMetricsF(small_).horizontalAdvance(QStringLiteral("0000"));
  const int step = DegreeX(30) - DegreeX(0) < number ? 90 : 30;
  const double height = barRow_;
  Line(painter, DegreeX(0), y, DegreeX(CamProgram::Degrees), y, rule / 2);
  for (int degree = 0; degree <= CamProgram::Degrees; degree += 10) {
    const double x = DegreeX(degree);
    const bool numbered = degree % step == 0;
    Line(painter, x, y, x, y + out * (numbered ? 36 : 20), rule / 2);
    if (!numbered) continue;
    const QRectF place(x - number / 2, above ? y - 44 - height : y + 44, number, height);
    Word(painter, place, Qt::AlignHCenter | Qt::AlignVCenter, QString::number(degree), small_);
  }
}

void ListingPainter::PaintBars(QPainter& painter, const Block& block, double top,
                               double row) const {
  QList<QRectF> bars;
  for (int line = 0; line < block.count; ++line) {
    const double y = top + line * row;
    if (line > 0) Line(painter, DegreeX(0), y, DegreeX(CamProgram::Degrees), y, hairline);
    PaintName(painter, block.cam + line, y, row);
    for (const Run& run : listing_.RunsOf(block.size, block.cam + line)) {
      const double on = DegreeX(run.on);
      bars.append(QRectF(on, y + row * 0.2, DegreeX(run.off) - on, row * 0.6));
    }
  }
  painter.save();
  painter.setPen(Qt::NoPen);
  painter.setBrush(Qt::black);
  painter.drawRects(bars);
  painter.restore();
}

/// A cam (from 0) beside its bar: number and description to the left, the number to the right.
void ListingPainter::PaintName(QPainter& painter, int cam, double y, double row) const {
  const int flags = Qt::AlignLeft | Qt::AlignVCenter;
  const QString number = Listing::NumberOf(cam);
  const QRectF name(Left(), y, barName_, row);
  painter.save();
  painter.setClipRect(name.adjusted(0, -lineOverlap, 0, lineOverlap));
  Word(painter, name, flags, number + u' ' + listing_.DescriptionOf(cam), small_);
  painter.restore();
  Word(painter, QRectF(Right() - barNumber_, y, barNumber_, row), flags, number, small_);
}

}  // namespace nira
