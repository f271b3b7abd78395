// SPDX-License-Identifier: Apache-2.0
#include "DifferenceWords.h"

#include "ground/Text.h"
#include "line/Survival.h"
#include "model/FunctionFields.h"

namespace nira {

namespace {

QString Place(const Difference& difference) {
  const QString cam = QStringLiteral("cam ") + QString::number(difference.cam + 1);
  switch (difference.kind) {
    case Difference::Kind::Model:
      return QStringLiteral("model");
    case Difference::Kind::Function:
      return QLatin1String(difference.field->name) +
             (difference.cam < 0 ? QString() : QString(QStringLiteral(" of ") + cam));
    case Difference::Kind::Description:
      return QStringLiteral("description of ") + cam;
    case Difference::Kind::Phases:
      break;
  }
  return QStringLiteral("size ") + QString::number(difference.size) + QStringLiteral(", ") + cam;
}

QString PhasesText(const std::vector<Phase>& phases) {
  QStringList words;
  for (const Phase& phase : phases) {
    words.append(ZeroFilled(phase.on, 3) + u'-' + ZeroFilled(phase.off, 3));
  }
  return words.isEmpty() ? QStringLiteral("nothing") : words.join(u' ');
}

QString Quoted(const QString& text) {
  return text.isEmpty() ? QStringLiteral("none") : QString(u'"' + text + u'"');
}

/// Both sides of a difference as they are shown.
std::pair<QString, QString> Sides(const Difference& difference) {
  switch (difference.kind) {
    case Difference::Kind::Phases:
      return {PhasesText(difference.phasesHere), PhasesText(difference.phasesThere)};
    case Difference::Kind::Description:
      return {Quoted(difference.here), Quoted(difference.there)};
    default:
      return {difference.here, difference.there};
  }
}

QStringList LossWords(const std::vector<Difference>& lost, const QString& there) {
  QStringList words;
  for (const Difference& loss : lost) {
    words.append(DifferenceWords(loss, QStringLiteral("now"), there));
  }
  return words;
}

}  // namespace

QString DifferenceWords(const Difference& difference, const QString& here, const QString& there) {
  const auto [left, right] = Sides(difference);
  return Place(difference) + QStringLiteral(": ") + left + u' ' + here + QStringLiteral(", ") +
         right + u' ' + there;
}

QStringList NotKeptInFile(const CamProgram& program) {
  return LossWords(LostInFile(program), QStringLiteral("from the file"));
}

QStringList NotKeptOnLine(const CamProgram& program) {
  return LossWords(LostOnLine(program), QStringLiteral("in the programmer"));
}

}  // namespace nira
