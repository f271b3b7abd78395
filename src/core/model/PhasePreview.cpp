// SPDX-License-Identifier: Apache-2.0
#include "model/PhasePreview.h"

#include "model/PhaseMove.h"
#include "model/PhaseWrite.h"

#include <algorithm>

namespace nira {

namespace {

using Phases = std::vector<Phase>;

bool IsIn(const Phases& phases, const Phase& phase) {
  return std::find(phases.begin(), phases.end(), phase) != phases.end();
}

/// They share a degree, or one begins where the other ends.
bool Touch(const Phase& a, const Phase& b) {
  constexpr int cycle = CamProgram::Degrees;
  const auto meets = [](const Phase& x, const Phase& y) {
    return x.Contains(y.on) || x.off % cycle == y.on;
  };
  return meets(a, b) || meets(b, a);
}

/// The reader writes phase after phase, the one across the end of the cycle last.
bool FileKeeps(const CamRow& row) {
  CamRow read{};
  Phases phases = PhaseList::Of(row).phases;
  if (!phases.empty()) std::rotate(phases.begin(), phases.begin() + 1, phases.end());
  for (const Phase& phase : phases) {
    if (phase.off == CamProgram::Degrees) return false;  // no pair says so
    WritePhase(read, phase.on, phase.off);
  }
  return read == row;
}

/// What becomes of the phases that the pair takes the place of.
PhaseChange Replacing(const Phase& after, const Phases& before, std::vector<int> numbers) {
  using Kind = PhaseChange::Kind;
  if (numbers.empty()) return {Kind::New, {}, {}, after};
  const Phase& first = before[static_cast<std::size_t>(numbers.front() - 1)];
  if (numbers.size() == 1) return {Kind::Changed, std::move(numbers), first, after};
  return {Kind::Joined, std::move(numbers), {}, after};
}

}  // namespace

PhasePreview PhasePreview::Of(const CamRow& row, int on, int off) {
  CamRow next = row;
  WritePhase(next, on, off);
  PhasePreview preview = Of(row, next, nullptr);
  if (on == off) preview.neighbourGoes = false;  // it is what was asked for
  return preview;
}

PhasePreview PhasePreview::OfReplacing(const CamRow& row, const Phase& before, const Phase& after) {
  if (after == before) return Of(row, row, nullptr);
  return Of(row, Replaced(row, before, after), &before);
}

/// `moved` is a phase that whatever is new stands in the place of, wherever that is.
PhasePreview PhasePreview::Of(const CamRow& row, const CamRow& next, const Phase* moved) {
  const Phases before = PhaseList::Of(row).phases;
  const Phases after = PhaseList::Of(next).phases;

  PhasePreview preview;
  preview.keptInFile = FileKeeps(next);
  CamRow going{};
  for (std::size_t d = 0; d < going.size(); ++d) going[d] = row[d] > next[d] ? 1 : 0;
  preview.goes = PhaseList::Of(going).phases;

  std::vector<int> deleted;  // numbers of the phases that go and stand in no new one's place
  for (std::size_t i = 0; i < before.size(); ++i) {
    if (!IsIn(after, before[i])) deleted.push_back(static_cast<int>(i) + 1);
  }
  for (const Phase& phase : after) {
    if (IsIn(before, phase)) continue;
    preview.comes.push_back(phase);
    std::vector<int> replaced;
    std::erase_if(deleted, [&](int number) {
      const Phase& old = before[static_cast<std::size_t>(number - 1)];
      const bool goesIn = Touch(phase, old) || (moved != nullptr && old == *moved);
      if (goesIn) replaced.push_back(number);
      return goesIn;
    });
    preview.changes.push_back(Replacing(phase, before, std::move(replaced)));
  }
  preview.neighbourGoes = !deleted.empty();
  for (const int number : deleted) {
    preview.changes.push_back(
        {PhaseChange::Kind::Deleted, {number}, before[static_cast<std::size_t>(number - 1)], {}});
  }
  return preview;
}

}  // namespace nira
