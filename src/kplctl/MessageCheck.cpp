// SPDX-License-Identifier: Apache-2.0
#include "MessageCheck.h"

#include "Printable.h"
#include "files/CamWords.h"
#include "ground/Text.h"
#include "messages/MessageFile.h"
#include "messages/MessageTexts.h"

namespace nira {

namespace {

/// How a message line begins and what stands between its number and its text.
struct LineForm {
  std::string_view before;
  std::string_view between;
};

constexpr LineForm writtenForm = {"N. ", " \""};  // by this tool
constexpr LineForm receivedForm = {"N ", "\""};   // from a programmer: its records as they came

QString TooLong() {
  return QStringLiteral("a line of more than %1 bytes").arg(MessageFile::MaxLine);
}

/// The fault of what stands between the quotes; empty when it reaches the display as it is.
QString TextFault(const QString& text) {
  if (text.size() > MessageDisplay::Longest) {
    return QStringLiteral("a text of %1 characters; the display shows %2")
        .arg(text.size())
        .arg(MessageDisplay::Longest);
  }
  const auto untypable = FirstUntypable(text);
  if (!untypable) return {};
  return QStringLiteral("character %1 of the text is a control character, code %2")
      .arg(untypable->At + 1)
      .arg(text.at(untypable->At).unicode());
}

/// The fault of line k as message k; empty when it is good.
QString MessageLineFault(std::string_view line, int number) {
  const LineForm& form = line.starts_with(receivedForm.before) ? receivedForm : writtenForm;
  const std::string head = std::string(form.before) + ZeroFill(number, 3);
  if (!IsMessageLine(line)) {
    return QStringLiteral("no message line: found ") + FromBytes(line.substr(0, 60));
  }
  if (!line.starts_with(head)) {
    return QStringLiteral("the line of message %1 begins with ").arg(number) +
           FromBytes(line.substr(0, head.size()));
  }
  const std::string_view rest = line.substr(head.size());
  if (rest.empty()) return {};
  if (!rest.starts_with(form.between)) {
    return QStringLiteral("no double quote after the number: found ") +
           FromBytes(rest.substr(0, 60));
  }
  if (rest.size() == form.between.size() || !rest.ends_with('"')) {
    return QStringLiteral("no closing double quote");
  }
  return TextFault(QuotedText(line).value_or(QString()));
}

bool IsBlank(const QString& text) {
  return TrimLeft(text).isEmpty();
}

}  // namespace

MessagesReport CheckMessageFile(const QString& path) {
  MessagesReport report;
  LineReader lines(path);
  bool tooLong = false;
  while (const auto line = NextMessageLine(lines, tooLong)) {
    if (*line == EndWord && lines.AtEnd()) break;
    ++report.lines;
    QString text = MessageLineFault(*line, report.lines);
    if (report.lines > CamProgram::MaxMessages) {
      text = QStringLiteral("more than %1 messages").arg(CamProgram::MaxMessages);
    }
    if (!text.isEmpty()) {
      report.fault = Fault{.Line = report.lines, .Text = text};
      return report;
    }
    if (!IsBlank(QuotedText(*line).value_or(QString()))) ++report.texts;
  }
  report.fault = lines.Failure();
  if (tooLong) report.fault = Fault{.Line = lines.LineNumber(), .Text = TooLong()};
  if (!report.fault && report.lines == 0) {
    report.fault = Fault{.Text = QStringLiteral("it holds no message")};
  }
  return report;
}

Refusal ListMessages(const QString& path, QTextStream& out) {
  LineReader lines(path);
  bool tooLong = false;
  int number = 0;
  while (number < CamProgram::MaxMessages) {
    const auto line = NextMessageLine(lines, tooLong);
    if (!line) break;
    ++number;
    const QString text = QuotedText(*line).value_or(QString());
    if (IsMessageLine(*line) && !IsBlank(text)) out << Printable(ListEntry(number, text)) << '\n';
  }
  if (tooLong) return Fault{.Line = lines.LineNumber(), .Text = TooLong()};
  return lines.Failure();
}

}  // namespace nira
