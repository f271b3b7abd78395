// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/CamProgram.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace nira {

/// A phase as the operator reads it. Degrees are 0..360: a run that reaches the end of the cycle
/// without going on at degree 0 shows OFF 0, a cam that is always ON shows 0 and 360.
struct Phase {
  int on = 0;
  int off = 0;
  bool operator==(const Phase&) const = default;

  /// ON at this degree, 0..359.
  bool Contains(int degree) const {
    return on < off ? on <= degree && degree < off : degree >= on || degree < off;
  }
  /// Degrees for which it is ON, 1..360.
  int Length() const { return on < off ? off - on : off - on + CamProgram::Degrees; }
};

/// A filled box of the diagram: degrees `on` to `off` (not included).
struct Run {
  int on = 0;
  int off = 0;
  bool atEnd = false;      ///< touches degree 0 or degree 359: drawn in the colour of the ends
  bool toTheEdge = false;  ///< reaches degree 359: drawn to the bar's right edge
  bool operator==(const Run&) const = default;
};

/// A row of the degree map as phases and as boxes.
struct PhaseList {
  static constexpr int EntryWidth = 3;  ///< digits of a degree in the entry boxes and the list

  std::vector<Phase> phases;  ///< the phase across or at the end of the cycle first
  std::vector<Run> runs;

  static PhaseList Of(const CamRow& row);

  /// "F001 350 010", one line per phase, numbered from 1.
  QStringList Lines() const;
};

/// Which of these phases is ON at a degree 0..359, from 0; -1 when none is.
int PhaseAt(const std::vector<Phase>& phases, int degree);

/// How many phases `PhaseList` has for a row.
int CountPhases(const CamRow& row);

/// False for a cam that is never ON, and for one that is always: neither is written or sent.
bool HasPhase(const CamRow& row);

/// "F" and the number (from 1) as three digits, the ON and the OFF degree, blanks between.
QString PhaseLine(int number, const Phase& phase);

/// The ON and the OFF field of such a line; empty when the line is too short.
QString OnField(const QString& line);
QString OffField(const QString& line);

}  // namespace nira
