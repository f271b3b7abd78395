// SPDX-License-Identifier: Apache-2.0
#include "MessageExchange.h"

#include "DeviceFrame.h"
#include "ground/Text.h"

#include <algorithm>

namespace nira {

namespace {

constexpr std::size_t numberDigits = 3;  // of a message's number

/// The number of N007"TEXT"; 0, which no message has, of another line.
int MessageNumber(std::string_view line) {
  if (line.size() < 1 + numberDigits || line[0] != 'N') return 0;
  const std::string_view number = line.substr(1, numberDigits);
  const bool plain =
      std::all_of(number.begin(), number.end(), [](char c) { return c >= '0' && c <= '9'; });
  return plain ? static_cast<int>(NumericValue(number)) : 0;
}

}  // namespace

void MessageReception::TakeLine(std::string_view line, Instant /*at*/) {
  if (done_ || !voice_.NextFrame()) return;
  if (line == "END") {
    done_ = true;
    return;
  }
  std::string_view text = line.substr(std::min(1 + numberDigits, line.size()));
  if (text.size() < 2 || text.front() != DeviceCode::Quote || text.back() != DeviceCode::Quote) {
    return;
  }
  state_.SetMessage(MessageNumber(line), text.substr(1, text.size() - 2));
}

std::vector<std::string> MessageRecords(const ProgrammerState& state) {
  std::vector<std::string> records;
  for (int number = 1; number <= state.Messages(); ++number) {
    records.push_back("N " + ZeroFill(number, 3) + DeviceCode::Quote + state.Message(number) +
                      DeviceCode::Quote);
  }
  records.emplace_back("END");
  return records;
}

}  // namespace nira
