// SPDX-License-Identifier: Apache-2.0
#include "ProgrammerState.h"

#include "ground/Text.h"

#include <algorithm>

namespace nira {

namespace {

constexpr int degrees = CamProgram::Degrees;

const std::string nothing;

bool IsDegree(int degree) {
  return degree >= 0 && degree < degrees;
}

}  // namespace

ProgrammerState::ProgrammerState(int cams, int sizes, int messages)
    : cams_(std::clamp(cams, 1, CamProgram::MaxCams)),
      sizes_(std::clamp(sizes, 1, CamProgram::MaxSizes)),
      messages_(std::clamp(messages, 1, CamProgram::MaxMessages)),
      rows_(static_cast<std::size_t>(cams_) * static_cast<std::size_t>(sizes_)),
      camTexts_(static_cast<std::size_t>(cams_)),
      messageTexts_(static_cast<std::size_t>(messages_)) {}

std::size_t ProgrammerState::RowIndex(int size, int cam) const {
  return static_cast<std::size_t>(size - 1) * static_cast<std::size_t>(cams_) +
         static_cast<std::size_t>(cam);
}

void ProgrammerState::Load(const CamProgram& program) {
  Functions = program.Functions();
  Functions.AdvanceLast = std::min(Functions.AdvanceLast, static_cast<std::int16_t>(cams_ - 1));
  for (int cam = 0; cam < std::min(cams_, program.NumCams()); ++cam) {
    SetCamText(cam, ToBytes(program.CamText(cam)).value_or(std::string()));
    for (int size = 1; size <= std::min(sizes_, program.NumSizes()); ++size) {
      rows_[RowIndex(size, cam)] = program.CamMap(size, cam);
    }
  }
  for (int number = 1; number <= messages_; ++number) {
    SetMessage(number, ToBytes(program.MessageText(number)).value_or(std::string()));
  }
}

void ProgrammerState::SwitchOn(int size, int cam, int on, int off) {
  if (!HasRow(size, cam) || !IsDegree(on) || !IsDegree(off)) return;
  CamRow& row = rows_[RowIndex(size, cam)];
  for (int degree = on; degree != off; degree = (degree + 1) % degrees) {
    row[static_cast<std::size_t>(degree)] = 1;
  }
}

void ProgrammerState::ClearSize(int size) {
  for (int cam = 0; cam < cams_; ++cam) {
    if (HasRow(size, cam)) rows_[RowIndex(size, cam)].fill(0);
  }
}

const CamRow& ProgrammerState::Row(int size, int cam) const {
  static const CamRow off{};
  return HasRow(size, cam) ? rows_[RowIndex(size, cam)] : off;
}

std::vector<Phase> ProgrammerState::Phases(int size, int cam) const {
  const CamRow& row = Row(size, cam);
  const auto isOn = [&row](int degree) {
    return row[static_cast<std::size_t>(degree % degrees)] == 1;
  };
  int first = 0;  // the walk begins behind a run that comes across the end of the cycle
  while (isOn(degrees - 1) && first < degrees && isOn(first)) ++first;

  std::vector<Phase> phases;
  int on = first;
  for (int degree = first; degree < first + degrees; ++degree) {
    if (!isOn(degree)) continue;
    if (!isOn(degree + degrees - 1)) on = degree;
    if (!isOn(degree + 1)) phases.push_back({on % degrees, (degree + 1) % degrees});
  }
  return phases;
}

const std::string& ProgrammerState::CamText(int cam) const {
  return HasCam(cam) ? camTexts_[static_cast<std::size_t>(cam)] : nothing;
}

void ProgrammerState::SetCamText(int cam, std::string_view text) {
  if (HasCam(cam)) camTexts_[static_cast<std::size_t>(cam)] = text;
}

const std::string& ProgrammerState::Message(int number) const {
  return HasMessage(number) ? messageTexts_[static_cast<std::size_t>(number - 1)] : nothing;
}

void ProgrammerState::SetMessage(int number, std::string_view text) {
  if (!HasMessage(number)) return;
  messageTexts_[static_cast<std::size_t>(number - 1)] = text.substr(0, MaxMessageText);
}

}  // namespace nira
