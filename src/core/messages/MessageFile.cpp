// SPDX-License-Identifier: Apache-2.0
#include "messages/MessageFile.h"

#include "files/CamWords.h"
#include "ground/Text.h"
#include "messages/MessageTexts.h"

#include <QFileInfo>

#include <algorithm>

namespace nira {

namespace {

/// Number of the last message line among those that no program has room for here; 0 for none.
int LastBeyond(LineReader& lines) {
  int last = 0;
  while (lines.LineNumber() < CamProgram::MaxMessages) {
    const auto line = lines.Next();
    if (!line) break;
    if (IsMessageLine(*line)) last = lines.LineNumber();
  }
  return last;
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

std::int64_t NumberInLine(std::string_view line) {
  constexpr std::size_t numberAt = 2;  // from 0
  return NumericValue(line.substr(std::min(numberAt, line.size())));
}

std::optional<std::string_view> QuotedBytes(std::string_view line) {
  const std::size_t quote = line.find('"');
  if (quote == std::string_view::npos) return std::nullopt;
  std::string_view text = line.substr(quote + 1);
  if (!text.empty()) text.remove_suffix(1);
  return text;
}

std::optional<QString> QuotedText(std::string_view line) {
  const auto bytes = QuotedBytes(line);
  return bytes ? std::optional(FromBytes(*bytes)) : std::nullopt;
}

MessagesToSend LookThrough(LineReader& lines) {
  const auto isControl = [](char c) { return static_cast<unsigned char>(c) < ' ' || c == 127; };
  MessagesToSend found;
  for (auto line = lines.Next(); line && !line->starts_with(EndWord); line = lines.Next()) {
    if (lines.LineNumber() == 1) found.Sendable = IsMessageLine(*line);
    const std::string_view text = QuotedBytes(*line).value_or(std::string_view());
    found.HasText = found.HasText || text.find_first_not_of(' ') != std::string_view::npos;
    const auto control = std::find_if(text.begin(), text.end(), isControl);
    if (control != text.end()) {
      found.Control = UntypableCharacter(FromBytes({&*control, 1}));
      found.Number = NumberInLine(*line);
      break;
    }
    if (lines.Overlong()) break;
  }
  return found;
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

Result<MessageFile> ReadMsgFile(const QString& path, int most) {
  if (!QFileInfo::exists(path)) return Fault{.What = Fault::Kind::NoMessages, .Path = path};
  LineReader lines(path);
  Result<MessageFile> file = ReadMsgFile(lines, most);
  if (file) return file;
  Fault fault = file.Why();
  fault.Path = path;
  return fault;
}

Result<MessageFile> ReadMsgFile(LineReader& lines, int most) {
  MessageFile file;
  bool tooLong = false;
  while (lines.LineNumber() < most) {
    const auto line = NextMessageLine(lines, tooLong);
    if (!line) break;
    const bool message = IsMessageLine(*line);
    if (message) file.Last = lines.LineNumber();
    file.Lines.push_back({message, message ? QuotedText(*line) : std::nullopt});
  }
  if (lines.Failure()) return *lines.Failure();
  if (tooLong) return Fault{.What = Fault::Kind::BadLine, .Line = lines.LineNumber()};
  file.Last = std::max(file.Last, LastBeyond(lines));
  return file;
}

void ReplaceMessages(CamProgram& program, const MessageFile& file) {
  ClearMessages(program);
  int number = 0;
  for (const MessageLine& line : file.Lines) {
    ++number;
    if (line.IsMessage) program.SetMessageText(number, line.Text.value_or(QStringLiteral(" ")));
  }
}

void MergeMessages(CamProgram& program, const MessageFile& file) {
  int number = 0;
  for (const MessageLine& line : file.Lines) {
    ++number;
    if (line.Text) program.SetMessageText(number, *line.Text);
  }
}

Refusal WriteMsgFile(const CamProgram& program, const QString& path, FileWriter& writer,
                     FileWriter::Backup backup) {
  return writer.Write(path, WriteMessageLines(program), backup);
}

}  // namespace nira
