// SPDX-License-Identifier: Apache-2.0
#include "FirmwareImage.h"

#include "files/LineReader.h"

#include <numeric>

namespace nira {

namespace {

constexpr std::size_t headBytes = 4;  // byte count, offset, type
constexpr std::uint32_t reachOfOffset = 1U << 16U;

/// Value of a hexadecimal digit, upper or lower case; -1 of another character.
int DigitValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}

/// The bytes that pairs of digits stand for; none when one is no digit or has no partner.
std::optional<std::vector<std::uint8_t>> BytesOf(std::string_view digits) {
  if (digits.size() % 2 != 0) return std::nullopt;
  std::vector<std::uint8_t> bytes;
  bytes.reserve(digits.size() / 2);
  for (std::size_t i = 0; i < digits.size(); i += 2) {
    const int high = DigitValue(digits[i]);
    const int low = DigitValue(digits[i + 1]);
    if (high < 0 || low < 0) return std::nullopt;
    bytes.push_back(static_cast<std::uint8_t>(high * 16 + low));
  }
  return bytes;
}

std::uint16_t Word(std::uint8_t high, std::uint8_t low) {
  return static_cast<std::uint16_t>(high * 256 + low);
}

}  // namespace

std::optional<HexRecord> HexRecord::Parse(std::string_view line) {
  if (line.empty() || line.front() != ':') return std::nullopt;
  const auto bytes = BytesOf(line.substr(1));
  if (!bytes || bytes->size() <= headBytes) return std::nullopt;
  if (bytes->size() != headBytes + bytes->front() + 1) return std::nullopt;
  // The checksum makes the sum of all bytes a multiple of 256.
  if (std::accumulate(bytes->begin(), bytes->end(), 0U) % 256 != 0) return std::nullopt;
  HexRecord record;
  record.offset = Word((*bytes)[1], (*bytes)[2]);
  record.type = (*bytes)[3];
  record.data.assign(bytes->begin() + headBytes, bytes->end() - 1);
  const bool isBase = record.type == ExtendedSegment || record.type == ExtendedLinear;
  return isBase && record.data.size() != 2 ? std::nullopt : std::optional(record);
}

void FirmwareImage::Take(const HexRecord& record) {
  if (complete_) return;
  switch (record.type) {
    case HexRecord::Data:
      for (std::size_t i = 0; i < record.data.size(); ++i) {
        const auto offset = static_cast<std::uint32_t>(record.offset + i);
        Store(base_ + (segment_ ? offset % reachOfOffset : offset), record.data[i]);
      }
      break;
    case HexRecord::End:
      complete_ = true;
      break;
    case HexRecord::ExtendedSegment:
      segment_ = true;
      base_ = static_cast<std::uint32_t>(Word(record.data[0], record.data[1])) << 4U;
      break;
    case HexRecord::ExtendedLinear:
      segment_ = false;
      base_ = static_cast<std::uint32_t>(Word(record.data[0], record.data[1])) << 16U;
      break;
    default:  // where a processor starts: nothing that the memory holds
      break;
  }
}

void FirmwareImage::Store(std::uint32_t address, std::uint8_t byte) {
  const auto number = static_cast<std::uint32_t>(address / PageBytes);
  if (!pages_.contains(number) && pages_.size() >= MaxPages) {
    ++refused_;
    return;
  }
  Page& page = pages_[number];
  page.bytes[address % PageBytes] = byte;
  page.written.set(address % PageBytes);
}

std::size_t FirmwareImage::Bytes() const {
  std::size_t bytes = 0;
  for (const auto& [number, page] : pages_) bytes += page.written.count();
  return bytes;
}

std::optional<std::uint8_t> FirmwareImage::At(std::uint32_t address) const {
  const auto page = pages_.find(static_cast<std::uint32_t>(address / PageBytes));
  const std::size_t place = address % PageBytes;
  if (page == pages_.end() || !page->second.written.test(place)) return std::nullopt;
  return page->second.bytes[place];
}

bool FirmwareImage::SameBytes(const FirmwareImage& other) const {
  return pages_ == other.pages_ && refused_ == 0 && other.refused_ == 0;
}

std::optional<FirmwareImage> FirmwareImage::OfFile(const QString& path) {
  LineReader lines(path);
  FirmwareImage image;
  while (const auto line = lines.Next()) {
    if (line->empty()) continue;
    const auto record = HexRecord::Parse(*line);
    if (!record || lines.Overlong()) return std::nullopt;
    if (record->type != HexRecord::End) image.Take(*record);
  }
  image.complete_ = true;
  return lines.Failure() ? std::nullopt : std::optional(std::move(image));
}

}  // namespace nira
