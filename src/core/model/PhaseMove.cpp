// SPDX-License-Identifier: Apache-2.0
#include "model/PhaseMove.h"

#include "model/PhaseWrite.h"

#include <algorithm>

namespace nira {

namespace {

constexpr int cycle = CamProgram::Degrees;
constexpr int gapAcross =
    2;  // degrees that a phase across the end leaves free, or it erases itself

/// `SetPhase` writes it as it stands.
bool IsPair(const Phase& phase) {
  if (phase.on < phase.off) return true;
  return phase.on > phase.off && (phase.off == 0 || phase.on - phase.off >= gapAcross);
}

int Wrapped(int degree) {
  return (degree % cycle + cycle) % cycle;
}

}  // namespace

Phase Moved(const Phase& phase, PhasePart part, int degrees) {
  const int length = phase.Length();
  const int longest = std::max(length, cycle - gapAcross);
  const auto kept = [&](int wanted) { return std::clamp(wanted, 1, longest); };
  int on = phase.on;
  int off = phase.off;
  switch (part) {
    case PhasePart::On:
      on = off - kept(length - degrees);
      break;
    case PhasePart::Off:
      off = on + kept(length + degrees);
      break;
    case PhasePart::Whole:
      on += degrees;
      off += degrees;
      break;
  }
  const Phase moved{Wrapped(on), Wrapped(off)};
  return IsPair(moved) ? moved : phase;
}

CamRow Replaced(const CamRow& row, const Phase& before, const std::optional<Phase>& after) {
  CamRow next = row;
  for (int d = 0; d < cycle; ++d) {
    if (before.Contains(d)) next[static_cast<std::size_t>(d)] = 0;
  }
  if (after) WritePhase(next, after->on, after->off);
  return next;
}

bool ReplacePhase(CamProgram& program, const Phase& before, const std::optional<Phase>& after) {
  const int size = program.CurrentSize();
  const int cam = program.CurrentCam();
  const CamRow& row = program.CamMap(size, cam);
  const std::vector<Phase> phases = PhaseList::Of(row).phases;
  if (std::find(phases.begin(), phases.end(), before) == phases.end() || after == before) {
    return false;
  }
  const CamRow next = Replaced(row, before, after);
  if (next == row) return false;
  program.KeepUndoRow();
  program.SetRow(size, cam, next);
  program.IsSaved = false;
  return true;
}

}  // namespace nira
