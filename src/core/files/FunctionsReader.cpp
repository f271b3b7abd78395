// SPDX-License-Identifier: Apache-2.0
#include "files/FunctionsReader.h"

#include "ground/Text.h"

#include <algorithm>
#include <limits>

namespace nira {

bool FunctionsReader::Read() {
  return Section("ANTICIPI") && Advances() && Section("RITARDI") && Delays() &&
         Section("RAPPORTI") && Ratios() &&  //
         Section("FORMATO") && Store(block_.OutputSize, 3) && Section("SFASAMENTO") &&
         Store(block_.EncoderShift, 4) && Section("SENSO") && Store(block_.RotationSense, 3) &&
         Section("LIMITE") && Store(block_.SpeedLimit, 4);
}

bool FunctionsReader::NextLine() {
  const auto line = lines_.Next();
  cutOff_ = !line;
  if (cutOff_) return false;
  line_ = *line;
  return !lines_.Overlong();
}

bool FunctionsReader::Section(std::string_view keyword) {
  return NextLine() && Has(keyword);
}

/// Takes the number in the last `width` characters of the line; false when the field cannot hold
/// it.
template <typename Field>
bool FunctionsReader::Store(Field& field, std::size_t width) {
  const std::int64_t value = NumericValue(Tail(line_, width));
  if (value < std::numeric_limits<Field>::min() || value > std::numeric_limits<Field>::max()) {
    return false;
  }
  field = static_cast<Field>(value);
  return true;
}

bool FunctionsReader::Advances() {
  if (Has("ON")) {
    if (!AdvanceEntries()) return false;
    block_.AdvanceOn = 1;
    return true;
  }
  if (!Has("OFF")) return false;
  block_.AdvanceOn = 0;
  return true;
}

bool FunctionsReader::AdvanceEntries() {
  const std::int64_t count = std::max<std::int64_t>(NumericValue(Tail(line_, 4)), 0);
  if (count > numCams_) return false;
  block_.AdvanceLast = static_cast<std::int16_t>(std::min<std::int64_t>(count, numCams_ - 1));
  for (std::int64_t i = 1; i <= count; ++i) {
    std::uint8_t beyondTheCams = 0;  // entry `numCams` has no cam: read, checked, dropped
    std::uint8_t& field =
        i < numCams_ ? block_.CamFunc[static_cast<std::size_t>(i)] : beyondTheCams;
    if (!NextLine() || !Store(field, 4)) return false;
  }
  return true;
}

bool FunctionsReader::Delays() {
  if (Has("ON")) {
    if (!NextLine() || !Store(block_.Delay17to20, 4)) return false;
    if (!NextLine() || !Store(block_.Delay21to24, 4)) return false;
    block_.DelayOn = 1;
    return true;
  }
  if (!Has("OFF")) return false;
  block_.DelayOn = 0;
  return true;
}

bool FunctionsReader::Ratios() {
  if (Has("ON")) {
    if (!NextLine() || !Store(block_.Ratio25to32, 4)) return false;
    block_.Ratio25On = 1;
    return true;
  }
  if (!Has("OFF")) return false;
  block_.Ratio25On = 0;
  return true;
}

}  // namespace nira
