// SPDX-License-Identifier: Apache-2.0
#include "Programmer.h"

#include "DeviceFrame.h"
#include "FlashReception.h"
#include "FrameSending.h"
#include "MessageExchange.h"
#include "SizeReception.h"
#include "SizeSending.h"
#include "ground/Text.h"

#include <algorithm>

namespace nira {

namespace {

/// Longer than any line of the protocol: a HEX line of 255 bytes has 521 characters.
constexpr std::size_t maxLine = 1024;

/// The longest command with its checksum but for the last character: what is kept of a longer line.
constexpr std::size_t keptOfLine = 3;

/// "32 22 255  NIRA QX32-22F V1.00": the tool reads the model at fixed places, and numbers whose
/// use is its own at 39 to 42, 45 to 47 and from 49.
std::string IdentityLine(int cams, int sizes, int messages) {
  const std::string model = ZeroFill(cams, 2) + '-' + ZeroFill(sizes, 2);
  std::string line = ZeroFill(cams, 2) + ' ' + ZeroFill(sizes, 2) + ' ' + ZeroFill(messages, 3) +
                     "  NIRA QX" + model + "F V1.00";
  line.resize(38, ' ');
  return line + "0360  001 0100\r\n";
}

}  // namespace

struct Programmer::Command {
  using Begin = std::unique_ptr<Exchange> (*)(Programmer& device, Instant at);
  std::string_view text;
  Begin begin;  // the job, or nothing when the answer is all
};

const Programmer::Command* Programmer::CommandAtEnd(std::string_view line) {
  static constexpr Command commands[] = {
      {"?M",
       [](Programmer& device, Instant at) -> std::unique_ptr<Exchange> {
         device.Identify(at);
         return nullptr;
       }},
      {"?FW",
       [](Programmer& device, Instant /*at*/) -> std::unique_ptr<Exchange> {
         return std::make_unique<SizeReception>(device.State, device.voice_);
       }},
      {"?FR",
       [](Programmer& device, Instant at) -> std::unique_ptr<Exchange> {
         return std::make_unique<FrameSending>(SizeRecords(device.State), device.voice_, at);
       }},
      {"?AW",
       [](Programmer& device, Instant /*at*/) -> std::unique_ptr<Exchange> {
         return std::make_unique<MessageReception>(device.State, device.voice_);
       }},
      {"?AR",
       [](Programmer& device, Instant at) -> std::unique_ptr<Exchange> {
         return std::make_unique<FrameSending>(MessageRecords(device.State), device.voice_, at);
       }},
      {":FU",
       [](Programmer& device, Instant at) -> std::unique_ptr<Exchange> {
         return std::make_unique<FlashReception>(device.State.Firmware, device.voice_, at);
       }},
  };
  if (line.empty()) return nullptr;
  for (const Command& command : commands) {
    const bool ends = line.back() == DeviceCommandSum(command.text) &&
                      line.substr(0, line.size() - 1).ends_with(command.text);
    if (ends) return &command;
  }
  return nullptr;
}

void Programmer::Receive(char byte, Instant at) {
  if (IsUnplugged()) return;
  if (exchange_ && exchange_->NextAction()) exchange_->Act(at);
  if (exchange_ && exchange_->TakeByte(byte, at)) {
    line_.clear();
  } else if (byte == DeviceCode::Cr) {
    EndLine(at);
  } else if (byte != DeviceCode::Lf || !line_.empty()) {
    if (line_.size() == maxLine) line_.erase(0, maxLine - keptOfLine);
    line_.push_back(byte);
  }
  ReportEnd();
}

void Programmer::EndLine(Instant at) {
  // Noise may stand before a command, so its end is what counts.
  if (const Command* command = CommandAtEnd(line_)) {
    Obey(*command, at);
  } else if (exchange_) {
    exchange_->TakeLine(line_, at);
  }
  line_.clear();
}

void Programmer::Obey(const Command& command, Instant at) {
  exchange_.reset();
  command_.clear();
  if (!voice_.BeginJob()) return;
  command_ = command.text;
  exchange_ = command.begin(*this, at);
}

void Programmer::Identify(Instant at) {
  const Faults::Counts own = {State.Cams(), State.Sizes(), State.Messages()};
  const auto [cams, sizes, messages] = voice_.OtherModel().value_or(own);
  voice_.Say(IdentityLine(cams, sizes, messages), at);
}

void Programmer::ReportEnd() {
  if (command_.empty() || (exchange_ && !exchange_->IsDone())) return;
  const Job job{std::exchange(command_, {}), voice_.Frame()};
  if (Finished) Finished(job);
}

std::optional<Instant> Programmer::NextEvent() const {
  if (IsUnplugged()) return std::nullopt;
  const auto byte = voice_.Line().NextArrival();
  const auto action = exchange_ ? exchange_->NextAction() : std::nullopt;
  return byte && action ? std::min(byte, action) : byte ? byte : action;
}

std::string Programmer::Run(Instant now) {
  if (exchange_ && exchange_->NextAction()) exchange_->Act(now);
  return voice_.Line().Take(now);
}

void Programmer::PlugIn() {
  exchange_.reset();
  command_.clear();
  line_.clear();
  voice_.PlugIn();
}

}  // namespace nira
