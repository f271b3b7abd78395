// SPDX-License-Identifier: Apache-2.0
#include "line/WireFunctions.h"

#include "files/CamWords.h"
#include "ground/Text.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace nira {

namespace {

/// Delays and ratios exist only on the model of the most cams.
bool HasGroups(int cams) {
  return cams == FunctionsBlock::MaxCams;
}

std::string PairOf(unsigned value) {
  constexpr const char* digits = "0123456789ABCDEF";
  return {digits[value / 16 % 16], digits[value % 16]};
}

/// The number that `count` characters at `position` (from 0) are, digits and nothing else; none
/// when the record is too short or holds something else there.
std::optional<int> Field(std::string_view record, std::size_t position, std::size_t count,
                         int base) {
  if (record.size() < position + count) return std::nullopt;
  const char* first = record.data() + position;
  const char* last = first + count;
  int value = 0;
  const auto [end, error] = std::from_chars(first, last, value, base);
  if (error != std::errc() || end != last || value < 0 || *first == '-') return std::nullopt;
  return value;
}

std::optional<int> PairAt(std::string_view record, std::size_t position) {
  return Field(record, position, 2, 16);
}

/// A record that is one decimal number of at most three digits, blanks around it allowed.
std::optional<int> Decimal(std::string_view record) {
  const std::size_t first = record.find_first_not_of(' ');
  if (first == std::string_view::npos) return std::nullopt;
  const std::size_t count = record.find_last_not_of(' ') + 1 - first;
  return count > 3 ? std::nullopt : Field(record, first, count, 10);
}

std::string EntriesRecord(const FunctionsBlock& f) {
  std::string record = ZeroFill(f.AdvanceLast + 1, 2);
  for (int i = 0; i <= f.AdvanceLast; ++i) record += PairOf(f.CamFunc[static_cast<std::size_t>(i)]);
  return record;
}

std::string ConfigurationRecord(const FunctionsBlock& f) {
  return ZeroFill(f.OutputSize, 2) + ZeroFill(f.EncoderShift, 3) + std::to_string(f.RotationSense) +
         ZeroFill(f.SpeedLimit, 4);
}

}  // namespace

std::vector<std::string> FunctionsRecords(const CamProgram& program) {
  const FunctionsBlock& f = program.Functions();
  std::vector<std::string> records;
  if (HasGroups(program.NumCams())) {
    records.push_back(std::to_string(f.AdvanceOn) + std::to_string(f.DelayOn) +
                      std::to_string(f.Ratio25On) + std::to_string(f.Ratio17On));
    if (f.AdvanceOn != 0) records.push_back(EntriesRecord(f));
    if (f.DelayOn != 0) records.push_back(PairOf(f.Delay17to20) + PairOf(f.Delay21to24));
    if (f.Ratio25On != 0) records.push_back(std::to_string(f.Ratio25to32));
  } else {
    records.push_back(f.AdvanceLast < 1 ? std::to_string(f.AdvanceLast) : EntriesRecord(f));
  }
  records.push_back(ConfigurationRecord(f));
  return records;
}

bool WireFunctions::Read() {
  return Collect() && Parse();
}

/// Takes the lines up to the first size line, as many as a functions block can have.
bool WireFunctions::Collect() {
  constexpr std::size_t most = 5;
  while (const auto line = lines_.Next()) {
    line_ = *line;
    if (lines_.Overlong()) return false;
    if (line->find(SizeWords) != std::string_view::npos) return true;
    if (records_.size() < most) records_.emplace_back(*line);
  }
  return false;
}

bool WireFunctions::Parse() {
  if (!HasGroups(numCams_)) {
    return Take(&WireFunctions::EntriesOrIndex) && Take(&WireFunctions::Configuration);
  }
  return Take(&WireFunctions::Flags) && (block_.AdvanceOn == 0 || Take(&WireFunctions::Entries)) &&
         (block_.DelayOn == 0 || Take(&WireFunctions::Delays)) &&
         (block_.Ratio25On == 0 || Take(&WireFunctions::Ratio)) &&
         Take(&WireFunctions::Configuration);
}

/// Gives the next record to its parser; a block that ended early is no fault.
bool WireFunctions::Take(Parser parser) {
  if (next_ == records_.size()) return true;
  const std::string& record = records_[next_++];
  if ((this->*parser)(record)) return true;
  line_ = record;
  return false;
}

/// One hexadecimal digit each at characters 1, 3, 5 and 7; the lowest bit is the flag.
bool WireFunctions::Flags(std::string_view record) {
  std::size_t position = 0;
  for (std::uint8_t* flag :
       {&block_.AdvanceOn, &block_.DelayOn, &block_.Ratio25On, &block_.Ratio17On}) {
    const auto digit = Field(record, position, 1, 16);
    if (!digit) return false;
    *flag = static_cast<std::uint8_t>(*digit & 1);
    position += 2;
  }
  return true;
}

void WireFunctions::SetLast(int index) {
  block_.AdvanceLast = static_cast<std::int16_t>(std::clamp(index, 0, numCams_ - 1));
}

/// The number of entries and then each entry, a hexadecimal pair each.
bool WireFunctions::Entries(std::string_view record) {
  const auto count = PairAt(record, 0);
  if (!count) return false;
  const int last = std::min(*count - 1, numCams_);
  for (int i = 0; i <= last; ++i) {
    const auto entry = PairAt(record, 2 * static_cast<std::size_t>(i) + 2);
    if (!entry) return false;
    if (i == numCams_) break;  // the one entry beyond the cams has no place
    block_.CamFunc[static_cast<std::size_t>(i)] =
        static_cast<std::uint8_t>(std::min(*entry, LongestAdvance));
  }
  SetLast(last);
  return true;
}

/// On a programmer without groups: the entries, or no more than the index of the last one.
bool WireFunctions::EntriesOrIndex(std::string_view record) {
  constexpr std::size_t shortestEntries = 4;
  if (record.size() >= shortestEntries) {
    if (!Entries(record)) return false;
  } else {
    const auto index = Decimal(record);
    if (!index) return false;
    SetLast(*index);
  }
  block_.AdvanceOn = block_.AdvanceLast > 0 ? 1 : 0;
  return true;
}

bool WireFunctions::Delays(std::string_view record) {
  const auto first = PairAt(record, 0);
  const auto second = PairAt(record, 2);
  if (!first || !second) return false;
  block_.Delay17to20 = static_cast<std::uint8_t>(*first);
  block_.Delay21to24 = static_cast<std::uint8_t>(*second);
  return true;
}

bool WireFunctions::Ratio(std::string_view record) {
  const auto ratio = Decimal(record);
  if (!ratio || *ratio > 255) return false;
  block_.Ratio25to32 = static_cast<std::uint8_t>(*ratio);
  return true;
}

/// Output size, encoder shift, direction and speed limit: 2, 3, 1 and 4 digits.
bool WireFunctions::Configuration(std::string_view record) {
  const auto size = Field(record, 0, 2, 10);
  const auto shift = Field(record, 2, 3, 10);
  const auto sense = Field(record, 5, 1, 10);
  const auto limit = Field(record, 6, 4, 10);
  if (!size || !shift || !sense || !limit) return false;
  block_.OutputSize = static_cast<std::uint8_t>(*size);
  block_.EncoderShift = static_cast<std::int16_t>(*shift);
  block_.RotationSense = static_cast<std::uint8_t>(*sense);
  block_.SpeedLimit = static_cast<std::int16_t>(*limit);
  return true;
}

}  // namespace nira
