// SPDX-License-Identifier: Apache-2.0
#include "ProgramEdit.h"

#include "CamFileAccess.h"
#include "ground/Text.h"
#include "sizes/SizeOperations.h"

namespace nira {

namespace {

/// "in.cam:10: " and the words of the fault, without a place that it does not have.
QString Placed(const Fault& fault) {
  QString place = fault.Path;
  if (fault.Line > 0) place += u':' + QString::number(fault.Line);
  return (place.isEmpty() ? place : place + QStringLiteral(": ")) + FaultWords(fault);
}

}  // namespace

Refusal ProgramEdit::Run(const std::vector<EditOperation>& operations) {
  for (const EditOperation& operation : operations) {
    Refusal refusal = RangeFault(operation);
    if (!refusal) refusal = (this->*operation.kind->run)(operation);
    if (refusal) return Fault{.Text = operation.Named() + QStringLiteral(": ") + Placed(*refusal)};
  }
  return functions_.Settle();
}

/// Holds the sizes, cams and degrees of an operation against the program.
Refusal ProgramEdit::RangeFault(const EditOperation& operation) const {
  const auto& parameters = operation.kind->parameters;
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    if (!parameters[i].IsNumber()) continue;
    const std::int64_t number = operation.Wide(static_cast<qsizetype>(i));
    if (auto reason = OutOfRange(parameters[i], number)) return reason;
  }
  return std::nullopt;
}

Refusal ProgramEdit::OutOfRange(const EditParameter& parameter, std::int64_t number) const {
  const auto within = [number](int least, int most) { return number >= least && number <= most; };
  const QString& text = texts_.Text(parameter.refusal);
  switch (parameter.kind) {
    case EditParameter::Kind::Size:
      if (!within(parameter.least, program_.NumSizes())) return Fault{.Text = text};
      break;
    case EditParameter::Kind::Cam:
      if (!within(1, program_.NumCams())) return Fault{.Text = text};
      break;
    case EditParameter::Kind::Degree:
      if (!within(0, CamProgram::Degrees - 1)) return Fault{.Text = text + QStringLiteral("0-359")};
      break;
    default:
      break;
  }
  return std::nullopt;
}

Refusal ProgramEdit::SetPhase(const EditOperation& operation) {
  program_.SetPhase(operation.Number(0), operation.Number(1) - 1, operation.Number(2),
                    operation.Number(3));
  return std::nullopt;
}

Refusal ProgramEdit::CopySize(const EditOperation& operation) {
  nira::CopySize(program_, operation.Number(0), operation.Number(1));
  return std::nullopt;
}

Refusal ProgramEdit::EraseSize(const EditOperation& operation) {
  program_.ClearSize(operation.Number(0));
  return std::nullopt;
}

Refusal ProgramEdit::ImportSize(const EditOperation& operation) {
  const auto result = nira::ImportSize(program_, operation.arguments.first(), operation.Number(1),
                                       operation.Number(2));
  if (!result) return result.Why();
  if (result->WithoutEnd) {
    Remarks.append(operation.arguments.first() + QStringLiteral(": ") +
                   QString::fromLatin1(WithoutEnd));
  }
  return std::nullopt;
}

Refusal ProgramEdit::CopyCam(const EditOperation& operation) {
  nira::CopyCam(program_, operation.Number(0), operation.Number(1) - 1, operation.Number(2) - 1);
  return std::nullopt;
}

Refusal ProgramEdit::ShiftCam(const EditOperation& operation) {
  nira::ShiftCam(program_, operation.Number(0), operation.Number(1) - 1,
                 ShiftOf(operation.arguments.at(2).toStdString()));
  return std::nullopt;
}

Refusal ProgramEdit::EraseCam(const EditOperation& operation) {
  nira::EraseCam(program_, operation.Number(0), operation.Number(1) - 1);
  return std::nullopt;
}

Refusal ProgramEdit::Describe(const EditOperation& operation) {
  const QString& text = operation.arguments.at(1);
  if (text.size() > LongestDescription) {
    return Fault{.Text = texts_.Text(TextNumber::DescriptionTooLong)};
  }
  if (const QString character = UntypableCharacter(text); !character.isEmpty()) {
    return Fault{.Text = texts_.Text(TextNumber::CharacterNotAllowed) + character};
  }
  program_.SetCamText(operation.Number(0) - 1, text);
  return std::nullopt;
}

Refusal ProgramEdit::SetFunction(const EditOperation& operation) {
  return functions_.Set(operation);
}

}  // namespace nira
