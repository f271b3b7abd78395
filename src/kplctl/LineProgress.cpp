// SPDX-License-Identifier: Apache-2.0
#include "LineProgress.h"

#include "Printable.h"

namespace nira {

namespace {

constexpr int barWidth = 30;    ///< characters
constexpr qsizetype rest = 38;  ///< of the item: the line stays below 80 characters
constexpr int plainSteps = 10;  ///< percent between two lines where there is no terminal
constexpr const char* clearToEnd = "\x1B[K";

}  // namespace

void LineProgress::Label1(const QString& text) {
  Break();
  lines_ << Printable(title_) << ": " << Printable(text) << Qt::endl;
  item_.clear();
  if (terminal_) Draw();
}

void LineProgress::Label2(const QString& text) {
  item_ = Printable(text);
  if (terminal_) Draw();
}

void LineProgress::Progress(int percent) {
  const bool step = percent / plainSteps > percent_ / plainSteps;
  percent_ = percent;
  if (terminal_) {
    if (drawn_) Draw();
  } else if (step) {
    lines_ << QString::number(percent).rightJustified(3) << " %  " << item_.left(rest) << Qt::endl;
  }
}

void LineProgress::Count(const TransferCount& count) {
  left_ = count.Seconds < 0 ? QString() : QStringLiteral("  ~%1 s").arg(count.Seconds);
  if (drawn_) Draw();
}

void LineProgress::Draw() {
  const int done = percent_ * barWidth / 100;
  lines_ << '\r' << '[' << QString(done, u'#') << QString(barWidth - done, u'.') << "] "
         << QString::number(percent_).rightJustified(3) << " %  " << item_.left(rest - left_.size())
         << left_ << clearToEnd << Qt::flush;
  drawn_ = true;
}

void LineProgress::Break() {
  if (drawn_) lines_ << Qt::endl;
  drawn_ = false;
}

}  // namespace nira
