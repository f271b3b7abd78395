// SPDX-License-Identifier: Apache-2.0
#include "model/PhaseWrite.h"

namespace nira {

namespace {

/// Writes `value` into degrees first..last-1; true when a cell changed.
bool Fill(CamRow& row, int first, int last, std::uint8_t value) {
  bool changed = false;
  for (int d = first; d < last; ++d) {
    changed |= row[static_cast<std::size_t>(d)] != value;
    row[static_cast<std::size_t>(d)] = value;
  }
  return changed;
}

/// Erases the run that begins at `degree`, up to degree 359 at most.
bool CutForward(CamRow& row, int degree) {
  int d = degree;
  while (d < CamProgram::Degrees && row[static_cast<std::size_t>(d)] == 1) {
    row[static_cast<std::size_t>(d++)] = 0;
  }
  return d > degree;
}

/// Erases the run that ends at `degree`, down to degree 0 at most.
bool CutBackward(CamRow& row, int degree) {
  int d = degree;
  while (d >= 0 && row[static_cast<std::size_t>(d)] == 1) row[static_cast<std::size_t>(d--)] = 0;
  return d < degree;
}

}  // namespace

bool WritePhase(CamRow& row, int on, int off) {
  bool changed = false;
  if (off >= on) {
    changed = Fill(row, on, off, 1);
    changed |= CutForward(row, off);
    changed |= CutBackward(row, on - 1);
  } else {
    const CamRow before = row;
    // The OFF degree is written as well and cut again below, and with it a run that begins one
    // degree after it: across the end of the cycle a phase needs a gap of two degrees.
    if (off > 0) Fill(row, 0, off + 1, 1);
    Fill(row, on, CamProgram::Degrees, 1);
    CutForward(row, off);
    CutBackward(row, on - 1);
    changed = row != before;
  }
  return changed;
}

}  // namespace nira
