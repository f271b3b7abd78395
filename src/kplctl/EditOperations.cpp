// SPDX-License-Identifier: Apache-2.0
#include "EditOperations.h"

#include "ProgramEdit.h"
#include "ground/Text.h"
#include "model/FunctionFields.h"

#include <algorithm>

namespace nira {

namespace {

constexpr const char* perCamField = "CamFunc";

/// The table; of the two forms of set-function the one for a field of each cam stands first.
const std::vector<EditOperationKind>& OperationKinds() {
  using enum EditParameter::Kind;
  using enum TextNumber;
  const EditParameter size{"SIZE", Size, SelectSizeRange};
  const EditParameter cam{"CAM", Cam, CamNotAvailable};
  static const std::vector<EditOperationKind> kinds = {
      {"set-phase",
       {size, cam, {"ON", Degree}, {"OFF", Degree}},
       "enter a phase; the same degree twice deletes the phase there",
       &ProgramEdit::SetPhase},
      {"copy-size",
       {{"FROM", Size, SelectSizeRange}, {"TO", Size, CopySizeRange}},
       "copy all cams of a size into another",
       &ProgramEdit::CopySize},
      {"erase-size", {size}, "erase all cams of a size", &ProgramEdit::EraseSize},
      {"import-size",
       {{"FILE", File}, {"SIZE", Size, ImportSizeRange, 0}, {"INTO", Size, SelectSizeRange}},
       "read a size of another cam file",
       &ProgramEdit::ImportSize},
      {"copy-cam",
       {size, {"FROM", Cam, CamNotAvailable}, {"TO", Cam, CopyCamRange}},
       "copy a cam into another of the size",
       &ProgramEdit::CopyCam},
      {"shift-cam",
       {size, cam, {"DEGREES", Number}},
       "move a cam later, or earlier by a negative number",
       &ProgramEdit::ShiftCam},
      {"erase-cam", {size, cam}, "erase a cam in a size", &ProgramEdit::EraseCam},
      {"describe", {cam, {"TEXT", Text}}, "name a cam, in all sizes", &ProgramEdit::Describe},
      {"set-function",
       {{perCamField, Field}, cam, {"VALUE", Number}},
       "set the advance of a cam, ms",
       &ProgramEdit::SetFunction},
      {"set-function",
       {{"FIELD", Field}, {"VALUE", Number}},
       "set a field of the functions",
       &ProgramEdit::SetFunction},
  };
  return kinds;
}

/// The kind of the operation at line[at]; null when there is none of that name.
const EditOperationKind* KindAt(const QStringList& line, qsizetype at) {
  const bool perCam = line.value(at + 1) == QLatin1String(perCamField);
  for (const EditOperationKind& kind : OperationKinds()) {
    if (line.at(at) != QLatin1String(kind.name)) continue;
    const EditParameter& first = kind.parameters.front();
    const bool ofPerCamField = QLatin1String(first.name) == QLatin1String(perCamField);
    if (first.kind != EditParameter::Kind::Field || ofPerCamField == perCam) return &kind;
  }
  return nullptr;
}

qsizetype CountOf(const EditOperationKind& kind) {
  return static_cast<qsizetype>(kind.parameters.size());
}

QString Synopsis(const EditOperationKind& kind) {
  QString text = QString::fromLatin1(kind.name);
  for (const EditParameter& parameter : kind.parameters) {
    text += u' ' + QLatin1String(parameter.name);
  }
  return text;
}

bool IsWholeNumber(const QString& text) {
  const qsizetype sign = text.startsWith(u'-') || text.startsWith(u'+') ? 1 : 0;
  const auto isDigit = [](QChar c) { return c >= u'0' && c <= u'9'; };
  return text.size() > sign && std::all_of(text.begin() + sign, text.end(), isDigit);
}

/// Why a word cannot be that argument at all; empty when it can.
QString WordFault(const EditParameter& parameter, const QString& word) {
  const QString name = QString::fromLatin1(parameter.name);
  if (parameter.IsNumber() && !IsWholeNumber(word)) {
    return name + QStringLiteral(" takes a whole number");
  }
  if (parameter.kind == EditParameter::Kind::File && word.isEmpty()) {
    return name + QStringLiteral(" is empty");
  }
  if (parameter.kind == EditParameter::Kind::Field && FindFunctionField(word) == nullptr) {
    return QStringLiteral("there is no field ") + word;
  }
  return {};
}

/// Why the arguments of an operation are a wrong command line; empty when they are none.
QString ArgumentsFault(const EditOperation& operation) {
  const auto& parameters = operation.kind->parameters;
  if (operation.arguments.size() < CountOf(*operation.kind)) {
    return QStringLiteral("its form is ") + Synopsis(*operation.kind);
  }
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    const QString& word = operation.arguments.at(static_cast<qsizetype>(i));
    if (QString fault = WordFault(parameters[i], word); !fault.isEmpty()) return fault;
  }
  return {};
}

/// A word as it would be typed.
QString Quoted(const QString& word) {
  return word.isEmpty() || word.contains(u' ') ? QString(u'"' + word + u'"') : word;
}

/// A line for each field with the values that the largest program takes.
QString FieldLines() {
  CamProgram largest;
  largest.SetLimits(CamProgram::MaxSizes, CamProgram::MaxCams, CamProgram::MaxMessages);
  QString lines;
  for (const FunctionField& field : FunctionFields()) {
    const QString range = QStringLiteral("0-") + QString::number(field.Largest(largest));
    lines += QStringLiteral("  ") + QString::fromLatin1(field.name).leftJustified(13) + u' ' +
             range.leftJustified(6) + u' ' + QString::fromLatin1(field.unit).leftJustified(3) +
             u' ' + QLatin1String(field.meaning) + u'\n';
  }
  return lines;
}

}  // namespace

std::int64_t EditOperation::Wide(qsizetype argument) const {
  return NumericValue(arguments.at(argument));
}

QString EditOperation::Named() const {
  QString text = QStringLiteral("operation ") + QString::number(number) + QStringLiteral(", ") +
                 QLatin1String(kind->name);
  for (const QString& argument : arguments) text += u' ' + Quoted(argument);
  return text;
}

EditOperations EditOperations::Of(const QStringList& words) {
  EditOperations all;
  for (qsizetype at = 0; at < words.size();) {
    EditOperation operation;
    operation.kind = KindAt(words, at);
    operation.number = static_cast<qsizetype>(all.operations.size()) + 1;
    if (operation.kind == nullptr) {
      all.fault = QStringLiteral("operation %1: there is no operation ").arg(operation.number) +
                  words.at(at);
      return all;
    }
    operation.arguments = words.mid(at + 1, CountOf(*operation.kind));
    at += 1 + operation.arguments.size();
    if (const QString fault = ArgumentsFault(operation); !fault.isEmpty()) {
      all.fault = operation.Named() + QStringLiteral(": ") + fault;
      return all;
    }
    all.operations.push_back(operation);
  }
  return all;
}

qsizetype EditOperations::ArgumentsAt(const QStringList& line, qsizetype at) {
  const EditOperationKind* kind = KindAt(line, at);
  return kind == nullptr ? 0 : CountOf(*kind);
}

QString EditOperations::Usage() {
  constexpr qsizetype column = 32;
  QString text = QStringLiteral("Operations, done one after the other:\n");
  for (const EditOperationKind& kind : OperationKinds()) {
    text += QStringLiteral("  ") + Synopsis(kind).leftJustified(column) + u' ' +
            QLatin1String(kind.help) + u'\n';
  }
  return text +
         QStringLiteral(
             "\nSizes and cams count from 1, degrees are 0 to 359. What follows an operation's "
             "name\n"
             "is taken as it stands: DEGREES of -20 are no option.\n\n"
             "FIELD and VALUE, as far as the program has the cams and sizes:\n") +
         FieldLines() +
         QStringLiteral(
             "\nset-function may be given in any order: what ties the fields together is looked "
             "at\n"
             "when all operations are done. Advances are kept for cams 2 to AdvanceLast + 1 with\n"
             "AdvanceOn 1, delays with DelayOn 1, a ratio with Ratio25On 1; AdvanceLast is at "
             "most\n"
             "15 with delays and 23 with a ratio; AdvanceOn 0 makes it 0. A value that would not\n"
             "come back from the cam file is refused.\n"
             "\nNothing is written when an operation is refused. OUT.cam may be IN.cam.\n");
}

}  // namespace nira
