// SPDX-License-Identifier: Apache-2.0
#include "files/LineReader.h"

#include <QFileInfo>

#include <algorithm>
#include <cstring>

namespace nira {

namespace {

constexpr std::size_t chunk = 4 * LineReader::MaxLine;

}  // namespace

LineReader::LineReader(const QString& path) : file_(path) {
  const QFileInfo info(path);
  if (info.exists() && !info.isFile()) {  // a pipe or a device could keep the reader for ever
    Fail({});
  } else if (!file_.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
    Fail(file_.errorString());
  }
  fileDone_ = !IsOpen();
}

/// `reason` is empty for what is no file.
void LineReader::Fail(const QString& reason) {
  failure_ = {.What = Fault::Kind::CannotRead, .Path = Path(), .Line = lineNumber_, .Text = reason};
}

LineReader::LineReader(std::string_view bytes)
    : buffer_(std::make_unique_for_overwrite<char[]>(bytes.size())),
      end_(bytes.size()),
      fileDone_(true) {
  std::copy(bytes.begin(), bytes.end(), buffer_.get());
}

bool LineReader::Refill() {
  if (fileDone_) return false;
  if (!buffer_) buffer_ = std::make_unique_for_overwrite<char[]>(chunk);
  std::memmove(buffer_.get(), buffer_.get() + begin_, end_ - begin_);
  end_ -= begin_;
  begin_ = 0;
  const qint64 got = file_.read(buffer_.get() + end_, static_cast<qint64>(chunk - end_));
  if (got < 0) Fail(file_.errorString());
  if (got <= 0) {
    fileDone_ = true;
    return false;
  }
  end_ += static_cast<std::size_t>(got);
  return true;
}

void LineReader::Close() {
  file_.close();
  begin_ = end_;
  fileDone_ = true;
}

bool LineReader::AtEnd() {
  return begin_ == end_ && !Refill();
}

std::optional<std::string_view> LineReader::Next() {
  if (overlong_ || AtEnd()) return std::nullopt;
  std::size_t searched = 0;
  std::size_t length = 0;
  while (true) {
    const char* start = buffer_.get() + begin_;
    const std::size_t waiting = end_ - begin_;
    const void* found = std::memchr(start + searched, '\n', waiting - searched);
    if (found != nullptr) {
      length = static_cast<std::size_t>(static_cast<const char*>(found) - start);
      break;
    }
    searched = waiting;
    length = waiting;
    if (waiting > MaxLine + 1 || !Refill()) break;
  }
  std::string_view line(buffer_.get() + begin_, length);
  begin_ += std::min(length + 1, end_ - begin_);
  ++lineNumber_;
  if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
  if (line.size() > MaxLine) {
    overlong_ = true;
    line = line.substr(0, MaxLine);
  }
  return line;
}

}  // namespace nira
