// SPDX-License-Identifier: Apache-2.0
#include "line/SentFunctions.h"

#include "model/FunctionRules.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <string_view>

namespace nira {

namespace {

/// The number that `count` characters from `from` stand for; none when they are not all digits.
std::optional<int> Number(std::string_view record, std::size_t from, std::size_t count, int base) {
  if (record.size() < from + count) return std::nullopt;
  const std::string_view digits = record.substr(from, count);
  if (digits.empty() || digits.front() == '-') return std::nullopt;
  int value = 0;
  const auto [end, error] =
      std::from_chars(digits.data(), digits.data() + digits.size(), value, base);
  if (error != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
  return value;
}

/// Stores the number in the field; false when it is none, or none that the field can hold.
template <typename Field>
bool Store(Field& field, std::optional<int> value) {
  if (!value || *value > std::numeric_limits<Field>::max()) return false;
  field = static_cast<Field>(*value);
  return true;
}

/// The four flags: advance, delay, ratio of cams 25-32, ratio of cams 17-24.
bool TakeFlags(const std::string& record, FunctionsBlock& f) {
  if (record.size() != 4 || record.find_first_not_of("01") != std::string::npos) return false;
  f.AdvanceOn = record[0] == '1';
  f.DelayOn = record[1] == '1';
  f.Ratio25On = record[2] == '1';
  f.Ratio17On = record[3] == '1';
  return true;
}

/// Two digits that count the entries, in decimal here, and a pair for each.
bool TakeAdvances(const std::string& record, int cams, FunctionsBlock& f) {
  const auto entries = Number(record, 0, 2, 10);
  if (!entries || *entries < 1 || *entries > cams) return false;
  if (record.size() != 2 * static_cast<std::size_t>(*entries + 1)) return false;
  f.AdvanceLast = static_cast<std::int16_t>(*entries - 1);
  for (std::size_t i = 0; i < static_cast<std::size_t>(*entries); ++i) {
    if (!Store(f.CamFunc[i], Number(record, 2 * i + 2, 2, 16))) return false;
  }
  return true;
}

/// On fewer cams: the entries, or the last index alone, which fewer than four digits are.
bool TakeAdvancesOrIndex(const std::string& record, int cams, FunctionsBlock& f) {
  if (record.size() >= 4) {
    f.AdvanceOn = 1;
    return TakeAdvances(record, cams, f);
  }
  return Store(f.AdvanceLast, Number(record, 0, record.size(), 10)) && f.AdvanceLast < cams;
}

bool TakeDelays(const std::string& record, FunctionsBlock& f) {
  return record.size() == 4 && Store(f.Delay17to20, Number(record, 0, 2, 16)) &&
         Store(f.Delay21to24, Number(record, 2, 2, 16));
}

bool TakeRatio(const std::string& record, FunctionsBlock& f) {
  return Store(f.Ratio25to32, Number(record, 0, record.size(), 10));
}

/// Output size, encoder shift, direction of rotation and speed limit: the last four digits are the
/// speed limit, and the direction has what the others leave.
bool TakeScalars(const std::string& record, FunctionsBlock& f) {
  constexpr std::size_t others = 2 + 3 + 4;
  if (record.size() <= others) return false;
  return Store(f.OutputSize, Number(record, 0, 2, 10)) &&
         Store(f.EncoderShift, Number(record, 2, 3, 10)) &&
         Store(f.RotationSense, Number(record, 5, record.size() - others, 10)) &&
         Store(f.SpeedLimit, Number(record, record.size() - 4, 4, 10));
}

std::optional<FunctionsBlock> Read(const std::vector<std::string>& records, int cams) {
  FunctionsBlock f;
  auto record = records.begin();
  const auto next = [&record, &records]() {
    return record == records.end() ? std::string() : *record++;
  };
  if (HasGroups(cams)) {
    if (!TakeFlags(next(), f)) return std::nullopt;
    if (f.AdvanceOn == 1 && !TakeAdvances(next(), cams, f)) return std::nullopt;
    if (f.DelayOn == 1 && !TakeDelays(next(), f)) return std::nullopt;
    if (f.Ratio25On == 1 && !TakeRatio(next(), f)) return std::nullopt;
  } else if (!TakeAdvancesOrIndex(next(), cams, f)) {
    return std::nullopt;
  }
  if (!TakeScalars(next(), f) || record != records.end()) return std::nullopt;
  return f;
}

}  // namespace

std::optional<FunctionsBlock> FunctionsOf(const std::vector<std::string>& records, int cams) {
  // The flags and the delays may look alike ("0100"): only what cannot be read as it stands has
  // repeats in it.
  if (auto functions = Read(records, cams)) return functions;
  std::vector<std::string> once = records;
  once.erase(std::unique(once.begin(), once.end()), once.end());
  return Read(once, cams);
}

}  // namespace nira
