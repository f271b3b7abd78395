// SPDX-License-Identifier: Apache-2.0
#include "ProgramComparison.h"

#include "ground/Text.h"
#include "model/FunctionFields.h"
#include "model/FunctionRules.h"
#include "model/PhaseList.h"

#include <algorithm>

namespace nira {

namespace {

QString ModelText(const CamProgram& program) {
  return QStringLiteral("%1 cams, %2 sizes").arg(program.NumCams()).arg(program.NumSizes());
}

/// True when the line carries the field (of that cam, index from 0) of a block to a programmer of
/// so many cams.
bool IsCarried(const FunctionField& field, const FunctionsBlock& block, int cams, int cam) {
  const QLatin1String name(field.name);
  const bool groups = HasGroups(cams);
  const bool advances = groups ? block.AdvanceOn == 1 : block.AdvanceLast > 0;
  if (field.IsPerCam()) return advances && cam <= block.AdvanceLast;
  if (name == QLatin1String("AdvanceOn")) return groups;
  if (name == QLatin1String("AdvanceLast")) return advances || !groups;
  if (!field.of32Cams) return true;
  if (name.startsWith(QLatin1String("Delay")) && name != QLatin1String("DelayOn")) {
    return groups && block.DelayOn == 1;
  }
  if (name == QLatin1String("Ratio25to32")) return groups && block.Ratio25On == 1;
  return groups && name != QLatin1String("Ratio17to24");
}

QString Quoted(const QString& text) {
  return TrimLeft(text).isEmpty() ? QStringLiteral("none") : QString(u'"' + text + u'"');
}

QString DegreesText(int first, int last) {
  if (first == last) return QStringLiteral("degree ") + QString::number(first);
  return QStringLiteral("degrees %1 to %2").arg(first).arg(last);
}

}  // namespace

ProgramComparison::ProgramComparison(const CamProgram& sent, const CamProgram& back) {
  if (ModelText(sent) != ModelText(back)) {
    Add(QStringLiteral("model"), ModelText(sent), ModelText(back));
    return;
  }
  FunctionsBlock carried = sent.Functions();
  carried.AdvanceLast = static_cast<std::int16_t>(sent.LastAdvance());
  CompareFunctions(carried, back.Functions(), sent.NumCams());
  CompareTexts(sent, back);
  CompareSizes(sent, back);
}

void ProgramComparison::Add(const QString& where, const QString& sent, const QString& back) {
  ++count_;
  if (texts_.size() == MostTexts) return;
  texts_.append(where + QStringLiteral(": ") + sent + QStringLiteral(" in the file, ") + back +
                QStringLiteral(" in the programmer"));
}

void ProgramComparison::CompareFunctions(const FunctionsBlock& sent, const FunctionsBlock& back,
                                         int cams) {
  for (const FunctionField& field : FunctionFields()) {
    for (int cam = 0; cam < (field.IsPerCam() ? cams : 1); ++cam) {
      if (!IsCarried(field, sent, cams, cam)) continue;
      int expected = field.Value(sent, cam);
      if (field.IsPerCam()) expected = std::min(expected, HighestTime);
      const int found = field.Value(back, cam);
      if (expected == found) continue;
      QString where = QLatin1String(field.name);
      if (field.IsPerCam()) where += QStringLiteral(" of cam ") + QString::number(cam + 1);
      Add(where, QString::number(expected), QString::number(found));
    }
  }
}

void ProgramComparison::CompareTexts(const CamProgram& sent, const CamProgram& back) {
  for (int cam = 0; cam < sent.NumCams(); ++cam) {
    if (!HasPhase(sent.CamMap(1, cam))) continue;
    const QString expected = Quoted(sent.CamText(cam));
    const QString found = Quoted(back.CamText(cam));
    if (expected == found) continue;
    Add(QStringLiteral("description of cam ") + QString::number(cam + 1), expected, found);
  }
}

void ProgramComparison::CompareSizes(const CamProgram& sent, const CamProgram& back) {
  for (int size = 1; size <= sent.NumSizes(); ++size) {
    for (int cam = 0; cam < sent.NumCams(); ++cam) {
      CompareRow(QStringLiteral("size %1, cam %2, ").arg(size).arg(cam + 1), sent.CamMap(size, cam),
                 back.CamMap(size, cam));
    }
  }
}

/// Degrees that differ in the same way and follow each other are one difference.
void ProgramComparison::CompareRow(const QString& where, const CamRow& sent, const CamRow& back) {
  const auto state = [](std::uint8_t cell) {
    return cell == 1 ? QStringLiteral("ON") : QStringLiteral("OFF");
  };
  for (std::size_t first = 0; first < sent.size(); ++first) {
    if (sent[first] == back[first]) continue;
    std::size_t last = first;
    while (last + 1 < sent.size() && sent[last + 1] == sent[first] && back[last + 1] == back[first])
      ++last;
    Add(where + DegreesText(static_cast<int>(first), static_cast<int>(last)), state(sent[first]),
        state(back[first]));
    first = last;
  }
}

}  // namespace nira
