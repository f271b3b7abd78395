// SPDX-License-Identifier: Apache-2.0
#include "ScriptCheck.h"

#include "files/LineReader.h"
#include "files/MessageTable.h"
#include "ground/Text.h"

#include <QFile>

namespace nira {

namespace {

constexpr std::size_t maxText = static_cast<std::size_t>(MessageTable::MaxText);
constexpr std::size_t maxLine = maxText + 2;  // with its quotes

/// The fault of the line end at `end`; none when it is CR LF.
const char* LineEndFault(std::string_view bytes, std::size_t end) {
  const std::string_view rest = bytes.substr(end);
  if (rest.substr(0, 2) == "\r\n") return nullptr;
  if (rest.size() < 2 && rest != "\n") return "the file does not end with CR LF";
  return rest.front() == '\n' ? "LF without CR" : "CR without LF";
}

QString Found(const char* what, std::string_view line) {
  constexpr std::size_t most = 60;
  const QString shown = FromBytes(line.substr(0, most));
  return QString::fromLatin1(what) + QStringLiteral(": found ") + shown +
         (line.size() > most ? QStringLiteral("...") : QString());
}

/// The fault of a line without its end; none when the reader gets its whole text.
std::optional<QString> LineFault(std::string_view line, bool first) {
  const bool closed = line.ends_with('"');
  if (first && !closed) return Found("no closing double quote", line);
  if (!first && (line.size() < 2 || line.front() != '"' || !closed)) {
    return Found("no double quote at both ends", line);
  }
  return std::nullopt;
}

}  // namespace

ScriptReport CheckScript(std::string_view bytes) {
  ScriptReport report;
  const auto bad = [&report](const QString& text) {
    report.fault = Fault{.Line = report.lines, .Text = text};
    return report;
  };
  do {
    ++report.lines;
    if (report.lines > MessageTable::Count) {
      return bad(QStringLiteral("more than %1 lines").arg(MessageTable::Count));
    }
    const std::size_t end = std::min(bytes.find_first_of("\r\n"), bytes.size());
    if (end > maxLine) {
      return bad(QStringLiteral("a text of more than %1 characters").arg(maxText));
    }
    if (const char* fault = LineEndFault(bytes, end)) return bad(QString::fromLatin1(fault));
    const bool first = report.lines == 1;
    if (const auto fault = LineFault(bytes.substr(0, end), first)) return bad(*fault);
    if (end > (first ? 1U : 2U)) ++report.texts;
    bytes.remove_prefix(end + 2);
  } while (!bytes.empty());
  return report;
}

ScriptReport CheckScriptFile(const QString& path) {
  // Enough for a whole script, and for whatever makes a longer file none.
  constexpr std::size_t most = MessageTable::Count * (maxLine + 2) + 2;
  ScriptReport report;
  const LineReader probe(path);
  if (!probe.IsOpen()) {
    report.fault = probe.Failure();
    return report;
  }
  QFile file(path);
  const bool open = file.open(QIODevice::ReadOnly);
  const QByteArray bytes = open ? file.read(static_cast<qint64>(most)) : QByteArray();
  if (file.error() != QFileDevice::NoError) {
    report.fault = Fault{.Text = file.errorString()};
    return report;
  }
  const std::string_view all(bytes.constData(), static_cast<std::size_t>(bytes.size()));
  report = CheckScript(all);
  MessageTable texts;
  texts.Parse(all);
  report.missing = texts.Missing();
  return report;
}

}  // namespace nira
