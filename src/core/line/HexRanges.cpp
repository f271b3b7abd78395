// SPDX-License-Identifier: Apache-2.0
#include "line/HexRanges.h"

#include <algorithm>

namespace nira {

namespace {

constexpr std::uint64_t segmentBytes = 1U << 16U;

}  // namespace

bool HexRanges::Take(const HexLine& line) {
  const bool isBase = line.Type() == HexLine::SegmentBase || line.Type() == HexLine::LinearBase;
  if (isBase) {
    if (line.Bytes() != 2) return false;
    segment_ = line.Type() == HexLine::SegmentBase;
    const int base = line.DataByte(0) * 256 + line.DataByte(1);
    base_ = static_cast<std::uint64_t>(base) << (segment_ ? 4U : 16U);
  }
  if (line.Type() != HexLine::Data || line.Bytes() == 0) return true;
  const auto offset = static_cast<std::uint64_t>(line.Offset());
  const std::uint64_t end = offset + static_cast<std::uint64_t>(line.Bytes());
  const std::uint64_t over = segment_ && end > segmentBytes ? end - segmentBytes : 0;
  Fill(line.Number, {base_ + offset, base_ + end - over - 1});
  if (over > 0) Fill(line.Number, {base_, base_ + over - 1});
  return true;
}

/// Notes what of the range was filled before, then fills it.
void HexRanges::Fill(int line, Range range) {
  auto next = ranges_.upper_bound(range.First);
  if (next != ranges_.begin() && std::prev(next)->second >= range.First) --next;
  for (; next != ranges_.end() && next->first <= range.Last; ++next) {
    ++overlapCount_;
    if (overlaps_.size() == MostOverlaps) continue;
    overlaps_.push_back(
        {line, {std::max(next->first, range.First), std::min(next->second, range.Last)}});
  }
  Join(range);
}

/// Adds a range and makes one of all that it touches.
void HexRanges::Join(Range range) {
  auto place = ranges_.upper_bound(range.First);
  const bool grows = place != ranges_.begin() && std::prev(place)->second + 1 >= range.First;
  if (!grows && ranges_.size() == MostRanges) {
    complete_ = false;
    return;
  }
  place = grows ? std::prev(place) : ranges_.emplace_hint(place, range.First, range.Last);
  std::uint64_t& last = place->second;
  last = std::max(last, range.Last);
  for (auto next = std::next(place); next != ranges_.end() && next->first <= last + 1;) {
    last = std::max(last, next->second);
    next = ranges_.erase(next);
  }
}

std::vector<HexRanges::Range> HexRanges::Ranges() const {
  std::vector<Range> ranges;
  for (const auto& [first, last] : ranges_) ranges.push_back({first, last});
  return ranges;
}

}  // namespace nira
