// SPDX-License-Identifier: Apache-2.0
#include "LineTrace.h"

#include <QDateTime>

namespace nira {

namespace {

constexpr int timeWidth = 10;  ///< up to 11 days

QByteArray Shown(const QByteArray& bytes) {
  QByteArray shown = bytes;
  for (char& c : shown) {
    if (c < ' ' || c > '~') c = '.';
  }
  return shown;
}

}  // namespace

QString LineTrace::Open(const QString& path) {
  file_.setFileName(path);
  failure_.clear();
  line_.clear();
  start_ = clock_.Now();
  if (!file_.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered)) {
    return file_.errorString();
  }
  Remark(QStringLiteral("begun ") + QDateTime::currentDateTime().toString(Qt::ISODate) +
         QStringLiteral("; > to the programmer, < from it; seconds"));
  return failure_;
}

QByteArray LineTrace::Time(std::int64_t time) const {
  const std::int64_t ms = time - start_;
  const QByteArray fraction = QByteArray::number(ms % 1000).rightJustified(3, '0');
  const QByteArray seconds = QByteArray::number(ms / 1000) + '.' + fraction;
  return seconds.rightJustified(timeWidth);
}

void LineTrace::Bytes(Way way, std::string_view bytes) {
  if (!IsOpen()) return;
  for (const char byte : bytes) {
    Begin(way);
    line_.append(byte);
  }
}

/// Goes on to another line when the next byte does not belong to this one.
void LineTrace::Begin(Way way) {
  const std::int64_t now = clock_.Now();
  const bool full = line_.size() >= static_cast<qsizetype>(Width) || now - at_ > Span;
  if (way != way_ || full) EndLine();
  if (line_.isEmpty()) at_ = now;
  way_ = way;
}

void LineTrace::EndLine() {
  if (line_.isEmpty()) return;
  constexpr qsizetype column = Width * 3 - 1;  // two digits and a blank for each byte
  const char* const arrow = way_ == Way::Out ? " > " : " < ";
  Write(Time(at_) + arrow + line_.toHex(' ').toUpper().leftJustified(column) + "  |" +
        Shown(line_) + "|\n");
  line_.clear();
}

void LineTrace::Remark(const QString& text) {
  if (!IsOpen()) return;
  EndLine();
  Write(Time(clock_.Now()) + " # " + text.toUtf8() + '\n');
}

/// A file that took a line no longer gets no more: what is missing would not show.
void LineTrace::Write(const QByteArray& line) {
  if (!failure_.isEmpty() || file_.write(line) == line.size()) return;
  failure_ = file_.errorString();
}

QString LineTrace::Close() {
  if (!IsOpen()) return failure_;
  EndLine();
  file_.close();
  return failure_;
}

}  // namespace nira
