// SPDX-License-Identifier: Apache-2.0
#include "ConsolePrompts.h"

#include "Printable.h"

#include <QRegularExpression>

namespace nira {

namespace {

QString Name(Answer answer) {
  switch (answer) {
    case Answer::Ok:
      return QStringLiteral("OK");
    case Answer::Cancel:
      return QStringLiteral("Cancel");
    case Answer::Yes:
      return QStringLiteral("yes");
    case Answer::No:
      return QStringLiteral("no");
    case Answer::Retry:
      return QStringLiteral("retry");
  }
  return {};
}

/// A text of several lines, the later ones indented.
QString Lines(const QString& text) {
  static const QRegularExpression lineEnd(QStringLiteral("[\r\n]+"));
  QStringList lines = text.split(lineEnd);
  for (QString& line : lines) line = Printable(line);
  return lines.join(QStringLiteral("\n  "));
}

}  // namespace

Answer ConsolePrompts::Choose(Buttons buttons) const {
  switch (buttons) {
    case Buttons::Ok:
      return Answer::Ok;
    case Buttons::OkCancel:
    case Buttons::CancelOk:
      return yes_ ? Answer::Ok : Answer::Cancel;
    case Buttons::YesNo:
    case Buttons::NoYes:
    case Buttons::YesNoCancel:
    case Buttons::CancelYesNo:
      return yes_ ? Answer::Yes : Answer::No;
    case Buttons::RetryCancel:
      break;
  }
  return Answer::Cancel;
}

Answer ConsolePrompts::MsgBox(const QString& text, Buttons buttons, Icon /*icon*/,
                              const QString& title) {
  const Answer answer = Choose(buttons);
  if (!title.isEmpty()) lines_ << Printable(title) << ": ";
  lines_ << Lines(text);
  if (buttons != Buttons::Ok) lines_ << " [" << Name(answer) << ']';
  lines_ << Qt::endl;
  return answer;
}

std::optional<QString> ConsolePrompts::InputBox(const QString& prompt, const QString& /*preset*/,
                                                const QString& title) {
  if (!title.isEmpty()) lines_ << Printable(title) << ": ";
  lines_ << Printable(prompt) << " [" << Name(Answer::Cancel) << ']' << Qt::endl;
  return std::nullopt;
}

}  // namespace nira
