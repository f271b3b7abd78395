// SPDX-License-Identifier: Apache-2.0
#include "messages/MessageFile.h"

#include "ground/Text.h"

#include <QFileInfo>

#include <utility>
#include <vector>

namespace nira {

namespace {

/// `MsgFile` names the work file for as long as this stands.
class WorkFileNamed {
 public:
  explicit WorkFileNamed(Globals& globals)
      : globals_(globals),
        name_(std::exchange(globals.MsgFile, QString::fromLatin1(MessageFile::WorkName))),
        saved_(globals.MsgSaved) {}
  ~WorkFileNamed() {
    globals_.MsgFile = name_;
    globals_.MsgSaved = saved_;
  }
  WorkFileNamed(const WorkFileNamed&) = delete;
  WorkFileNamed& operator=(const WorkFileNamed&) = delete;

 private:
  Globals& globals_;
  QString name_;
  bool saved_;
};

/// What one line of a file says about its message; none when it says nothing.
std::optional<QString> TextOfLine(std::string_view line, MessageFile::Reading reading) {
  if (!IsMessageLine(line)) return std::nullopt;
  std::optional<QString> text = QuotedText(line);
  if (!text && reading == MessageFile::Reading::Clearing) text = QStringLiteral(" ");
  return text;
}

}  // namespace

QString MessageFileName(const QString& chosen) {
  return QFileInfo(chosen).fileName().contains(u'.') ? chosen : chosen + QStringLiteral(".MSG");
}

std::optional<std::string_view> NextMessageLine(LineReader& lines, bool& tooLong) {
  const auto line = lines.Next();
  tooLong = line && line->size() > MessageFile::MaxLine;
  return tooLong ? std::nullopt : line;
}

bool IsMessageLine(std::string_view line) {
  return line.starts_with('N');
}

std::optional<QString> QuotedText(std::string_view line) {
  const std::size_t quote = line.find('"');
  if (quote == std::string_view::npos) return std::nullopt;
  std::string_view text = line.substr(quote + 1);
  if (!text.empty()) text.remove_suffix(1);
  return FromBytes(text);
}

std::string WriteMessageLines(const CamProgram& program) {
  std::string lines;
  for (int number = 1; number <= program.NumMessages(); ++number) {
    lines += "N. " + ZeroFill(number, 3);
    const QString& text = program.MessageText(number);
    if (!TrimLeft(text).isEmpty()) lines += " \"" + ToBytes(text).value_or(std::string()) + '"';
    lines += "\r\n";
  }
  return lines;
}

bool MessageFile::ReadMsgFile() {
  if (globals_.MsgFile.isEmpty()) return false;
  return ReadTexts(folder_.Find(globals_.MsgFile), Reading::Clearing);
}

/// Nothing of a file is taken before all of it was read.
bool MessageFile::ReadTexts(const QString& path, Reading reading) {
  if (!QFileInfo::exists(path)) {
    prompts_.MsgBox(texts_.Text(TextNumber::MessageFileNotFound), Buttons::Ok, Icon::Exclamation);
    return false;
  }
  LineReader lines(path);
  bool tooLong = false;
  std::vector<std::optional<QString>> read(static_cast<std::size_t>(program_.NumMessages()));
  for (std::optional<QString>& text : read) {
    const auto line = NextMessageLine(lines, tooLong);
    if (!line) break;
    text = TextOfLine(*line, reading);
  }
  if (!lines.Error().isEmpty()) {
    TellUnreadable(path, lines.Error());
    return false;
  }
  if (tooLong) {
    prompts_.MsgBox(path + texts_.Text(TextNumber::BadFile), Buttons::Ok, Icon::Exclamation);
    return false;
  }
  for (int number = 1; number <= program_.NumMessages(); ++number) {
    const std::optional<QString>& text = read[static_cast<std::size_t>(number - 1)];
    if (!text && reading == Reading::Keeping) continue;
    program_.SetMessageText(number, text.value_or(QString()));
  }
  return true;
}

void MessageFile::TellUnreadable(const QString& path, const QString& reason) {
  prompts_.MsgBox(texts_.Text(TextNumber::CannotRead) + u'\n' + path + u'\n' + reason, Buttons::Ok,
                  Icon::Critical);
}

bool MessageFile::WriteMsgFile() {
  if (globals_.MsgFile.isEmpty()) return false;
  const QString path = folder_.Find(globals_.MsgFile);
  const bool work = globals_.MsgFile == QLatin1String(WorkName);
  if (!work && QFileInfo::exists(path) &&
      prompts_.MsgBox(QStringLiteral("SOVRASCRIVERE FILE ") + globals_.MsgFileTitle(),
                      Buttons::YesNo, Icon::Exclamation) != Answer::Yes) {
    return false;
  }
  const QString reason = writer_.Write(path, WriteMessageLines(program_),
                                       work ? FileWriter::Backup::No : FileWriter::Backup::Yes);
  if (!reason.isEmpty()) {
    prompts_.MsgBox(texts_.Text(TextNumber::CannotWrite) + u'\n' + path + u'\n' + reason,
                    Buttons::Ok, Icon::Critical);
    return false;
  }
  globals_.MsgSaved = true;
  return true;
}

bool MessageFile::WriteWorkFile() {
  const WorkFileNamed named(globals_);
  return WriteMsgFile();
}

bool MessageFile::ReadWorkFile() {
  bool read = false;
  {
    const WorkFileNamed named(globals_);
    read = ReadMsgFile();
  }
  if (read) globals_.MsgSaved = false;
  return read;
}

QString MessageFile::WorkPath() const {
  return folder_.Find(QString::fromLatin1(WorkName));
}

}  // namespace nira
