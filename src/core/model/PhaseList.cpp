// SPDX-License-Identifier: Apache-2.0
#include "model/PhaseList.h"

#include "ground/Text.h"

#include <algorithm>
#include <functional>

namespace nira {

namespace {

constexpr int lastDegree = CamProgram::Degrees - 1;

bool IsOn(const CamRow& row, int degree) {
  return row[static_cast<std::size_t>(degree)] == 1;
}

}  // namespace

PhaseList PhaseList::Of(const CamRow& row) {
  const bool atStart = IsOn(row, 0);
  const bool atLast = IsOn(row, lastDegree);

  int end = 0;  // OFF degree of the run that touches degree 0
  while (end < CamProgram::Degrees && IsOn(row, end)) ++end;
  if (end == CamProgram::Degrees) {
    return {{{0, CamProgram::Degrees}}, {{0, CamProgram::Degrees, true, true}}};
  }
  PhaseList list;
  int begin = lastDegree;  // ON degree of the run that touches degree 359
  if (atLast) {
    while (IsOn(row, begin - 1)) --begin;
  }

  if (atStart) list.runs.push_back({0, end, true, false});
  if (atLast) list.runs.push_back({begin, CamProgram::Degrees, true, true});
  if (atStart || atLast) list.phases.push_back({atLast ? begin : 0, end});

  for (int d = end + (atStart ? 1 : 0); d < begin; ++d) {
    if (!IsOn(row, d)) continue;
    const int on = d;
    while (IsOn(row, d)) ++d;  // ends before `begin`: the degree before it is OFF
    list.phases.push_back({on, d});
    list.runs.push_back({on, d, false, false});
  }
  return list;
}

int PhaseAt(const std::vector<Phase>& phases, int degree) {
  const auto found = std::find_if(phases.begin(), phases.end(),
                                  [degree](const Phase& phase) { return phase.Contains(degree); });
  return found == phases.end() ? -1 : static_cast<int>(found - phases.begin());
}

int CountPhases(const CamRow& row) {
  int count = 0;
  std::uint8_t before = row.back();
  for (const std::uint8_t cell : row) {
    if (cell > before) ++count;
    before = cell;
  }
  return count == 0 && row.front() == 1 ? 1 : count;  // always ON
}

bool HasPhase(const CamRow& row) {
  return std::adjacent_find(row.begin(), row.end(), std::not_equal_to<>()) != row.end();
}

QStringList PhaseList::Lines() const {
  QStringList lines;
  lines.reserve(static_cast<qsizetype>(phases.size()));
  int number = 0;
  for (const Phase& phase : phases) lines.append(PhaseLine(++number, phase));
  return lines;
}

QString PhaseLine(int number, const Phase& phase) {
  return u'F' + ZeroFilled(number, 3) + u' ' + ZeroFilled(phase.on, PhaseList::EntryWidth) + u' ' +
         ZeroFilled(phase.off, PhaseList::EntryWidth);
}

QString OnField(const QString& line) {
  constexpr int position = PhaseList::EntryWidth + 3;  // counted from 1
  return line.mid(position - 1, PhaseList::EntryWidth);
}

QString OffField(const QString& line) {
  constexpr int position = 2 * (PhaseList::EntryWidth - 3) + 10;  // counted from 1
  return line.mid(position - 1, PhaseList::EntryWidth);
}

}  // namespace nira
