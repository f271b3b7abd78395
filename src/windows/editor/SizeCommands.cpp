// SPDX-License-Identifier: Apache-2.0
#include "editor/SizeCommands.h"

#include "controls/BusyPointer.h"
#include "dialogs/clsCommonDialog.h"
#include "ground/Text.h"
#include "line/FaultText.h"
#include "sizes/SizeOperations.h"

#include <QFileInfo>

namespace nira {

namespace {

/// A number read strictly: a sign, digits and a decimal point with blanks around them, nothing
/// else.
std::optional<std::int64_t> StrictNumber(const QString& text) {
  const QString trimmed = text.trimmed();
  bool digits = false;
  bool point = false;
  for (qsizetype i = 0; i < trimmed.size(); ++i) {
    const QChar c = trimmed.at(i);
    const bool sign = i == 0 && (c == u'-' || c == u'+');
    if (c >= u'0' && c <= u'9') {
      digits = true;
    } else if (c == u'.' && !point) {
      point = true;
    } else if (!sign) {
      return std::nullopt;
    }
  }
  if (!digits) return std::nullopt;
  return NumericValue(trimmed);
}

}  // namespace

SizeCommands::SizeCommands(Instance& instance, QWidget* window)
    : QObject(window), instance_(instance), window_(window) {}

/// An answer by the numeric value rule; nothing, also Cancel, is 0.
std::int64_t SizeCommands::AskNumber(const QString& prompt) {
  return NumericValue(instance_.Ask.InputBox(prompt, {}).value_or(QString()));
}

QString SizeCommands::SizePrompt(TextNumber number) const {
  return instance_.Text(number) + QString::number(instance_.Program.CurrentSize()) +
         QStringLiteral(" / ") + QString::number(instance_.Program.NumSizes());
}

void SizeCommands::Tell(TextNumber number, Icon icon) {
  instance_.Ask.MsgBox(instance_.Text(number), Buttons::Ok, icon);
}

/// What was done, with its numbers.
void SizeCommands::Say(TextNumber number, int first, std::int64_t second) {
  Q_EMIT Note(Filled(instance_.Text(number), {QString::number(first), QString::number(second)}));
}

void SizeCommands::s_sel_Click() {
  CamProgram& program = instance_.Program;
  const int before = program.CurrentSize();
  const std::int64_t number = AskNumber(SizePrompt(TextNumber::SelectSize));
  if (number > program.NumSizes() || number < 1) {
    Tell(TextNumber::SelectSizeRange, Icon::Exclamation);
    program.SelectSize(1);
  } else {
    program.SelectSize(static_cast<int>(number));
  }
  if (program.CurrentSize() != before) Q_EMIT Shown();
}

void SizeCommands::O_Copy_Click() {
  CamProgram& program = instance_.Program;
  const auto answer = instance_.Ask.InputBox(SizePrompt(TextNumber::CopySize), {});
  const std::int64_t target = StrictNumber(answer.value_or(QString())).value_or(0);
  if (target > program.NumSizes() || target < 1) {
    Tell(TextNumber::CopySizeRange, Icon::None);
    return;
  }
  CopySize(program, program.CurrentSize(), static_cast<int>(target));
  Q_EMIT Hidden();
  Say(TextNumber::SizeCopied, program.CurrentSize(), target);
}

void SizeCommands::s_Clr_Click() {
  CamProgram& program = instance_.Program;
  const QString question = instance_.Text(TextNumber::EraseSize) +
                           QString::number(program.CurrentSize()) +
                           instance_.Text(TextNumber::QuestionEnd);
  if (instance_.Ask.MsgBox(question, Buttons::NoYes, Icon::Question) != Answer::Yes) return;
  program.ClearSize(program.CurrentSize());
  Q_EMIT Hidden();
  Say(TextNumber::SizeErased, program.CurrentSize());
}

void SizeCommands::S_Imp_Click() {
  clsCommonDialog& dialog = instance_.Dialog;
  dialog.DialogTitle = instance_.Text(TextNumber::OpenTitle);
  dialog.Filter = QStringLiteral("File di Camma (*.Cam)|*.cam|All Files (*.*)|*.*");
  dialog.Flags = clsCommonDialog::FileMustExist;
  dialog.FileName.clear();
  dialog.ShowOpen(window_);
  if (dialog.FileName.isEmpty()) return;
  dialog.InitDir = QFileInfo(dialog.FileName).absolutePath();
  Import(dialog.FileName);
}

void SizeCommands::Import(const QString& path) {
  const BusyPointer pointer;
  CamProgram& program = instance_.Program;
  const std::int64_t number =
      AskNumber(instance_.Text(TextNumber::ImportSize) + QString::number(program.NumSizes()));
  if (number < 0 || number > program.NumSizes()) {
    Tell(TextNumber::ImportSizeRange, Icon::Exclamation);
    return;
  }
  const auto result = ImportSize(program, path, static_cast<int>(number), program.CurrentSize());
  if (!result) {
    TellFault(instance_.Ask, instance_.Texts, result.Why());
    return;
  }
  program.IsSaved = false;
  Q_EMIT Shown();
  if (result->WithoutEnd) {
    Q_EMIT Note(instance_.Text(TextNumber::FileWithoutEnd) + path);
  } else {
    Say(TextNumber::SizeImported, static_cast<int>(number), program.CurrentSize());
  }
}

void SizeCommands::O_CopyC_Click() {
  CamProgram& program = instance_.Program;
  const std::int64_t target =
      AskNumber(instance_.Text(TextNumber::CopyCam) + QString::number(program.CurrentCam() + 1) +
                QStringLiteral(" / ") + QString::number(program.NumCams())) -
      1;
  if (target < 0 || target >= program.NumCams()) {
    Tell(TextNumber::CopyCamRange, Icon::None);
    return;
  }
  CopyCam(program, program.CurrentSize(), program.CurrentCam(), static_cast<int>(target));
  Q_EMIT Shown();
  Say(TextNumber::CamCopied, program.CurrentCam() + 1, target + 1);
}

void SizeCommands::o_Shc_Click() {
  CamProgram& program = instance_.Program;
  const QString prompt =
      instance_.Text(TextNumber::ShiftCam) + QString::number(program.CurrentCam() + 1);
  const QByteArray answer = instance_.Ask.InputBox(prompt, {}).value_or(QString()).toLatin1();
  const int degrees = ShiftOf(answer.toStdString());
  ShiftCam(program, program.CurrentSize(), program.CurrentCam(), degrees);
  Q_EMIT Shown();
  Say(TextNumber::CamShifted, program.CurrentCam() + 1, degrees);
}

void SizeCommands::O_ClC_Click() {
  CamProgram& program = instance_.Program;
  const QString question = instance_.Text(TextNumber::EraseCam) +
                           QString::number(program.CurrentCam() + 1) +
                           instance_.Text(TextNumber::QuestionEnd);
  if (instance_.Ask.MsgBox(question, Buttons::NoYes, Icon::Question) != Answer::Yes) return;
  EraseCam(program, program.CurrentSize(), program.CurrentCam());
  Q_EMIT Shown();
  Say(TextNumber::CamErased, program.CurrentCam() + 1);
}

/// Asks until the answer can be a description: what was refused comes back to be mended.
QString SizeCommands::AskDescription(const QString& prompt, const QString& before) {
  const auto ask = [&](const QString& preset) {
    return instance_.Ask.InputBox(prompt, preset).value_or(QString());
  };
  QString text = ask(before);
  while (true) {
    if (text.size() > LongestDescription) {
      Tell(TextNumber::DescriptionTooLong, Icon::Information);
      text = ask(text.left(LongestDescription));
    } else if (const QString character = UntypableCharacter(text); !character.isEmpty()) {
      instance_.Ask.MsgBox(instance_.Text(TextNumber::CharacterNotAllowed) + character, Buttons::Ok,
                           Icon::Exclamation);
      text = ask(text);
    } else {
      return text;
    }
  }
}

void SizeCommands::LDefC_DblClick() {
  CamProgram& program = instance_.Program;
  const int cam = program.CurrentCam();
  const QString before = program.CamText(cam);
  const QString text = AskDescription(instance_.Text(TextNumber::DescriptionOfCam) +
                                          QStringLiteral(" N.") + QString::number(cam + 1),
                                      before);
  if (text.isEmpty() && !before.isEmpty() &&
      instance_.Ask.MsgBox(instance_.Text(TextNumber::EraseDescription), Buttons::CancelOk,
                           Icon::Question) != Answer::Ok) {
    return;
  }
  program.SetCamText(cam, text);
  Q_EMIT Described(cam);
  if (text != before) Say(TextNumber::CamDescribed, cam + 1);
}

}  // namespace nira
