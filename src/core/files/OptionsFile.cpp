// SPDX-License-Identifier: Apache-2.0
#include "files/OptionsFile.h"

#include "files/LineReader.h"

#include <QFile>
#include <QFileInfo>

#include <charconv>
#include <limits>
#include <optional>

namespace nira {

namespace {

QString Decoded(std::string_view bytes) {
  return QFile::decodeName(QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size())));
}

/// Takes fields of a line one by one: text in double quotes or up to the comma.
class FieldReader {
 public:
  explicit FieldReader(std::string_view line) : rest_(line), more_(!line.empty()) {}

  std::optional<std::string_view> Text() {
    if (!more_) return std::nullopt;
    SkipBlanks();
    if (rest_.empty() || rest_.front() != '"') return UpToComma();
    const std::size_t close = rest_.find('"', 1);
    if (close == std::string_view::npos) return std::nullopt;
    const std::string_view text = rest_.substr(1, close - 1);
    rest_.remove_prefix(close + 1);
    UpToComma();
    return text;
  }

  std::optional<int> Number(int least, int most) {
    if (!more_) return std::nullopt;
    SkipBlanks();
    std::string_view field = UpToComma();
    while (!field.empty() && field.back() == ' ') field.remove_suffix(1);
    int number = 0;
    const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), number);
    if (error != std::errc() || end != field.data() + field.size()) return std::nullopt;
    if (number < least || number > most) return std::nullopt;
    return number;
  }

 private:
  void SkipBlanks() {
    while (!rest_.empty() && rest_.front() == ' ') rest_.remove_prefix(1);
  }

  std::string_view UpToComma() {
    const std::size_t comma = rest_.find(',');
    const std::string_view field = rest_.substr(0, comma);
    more_ = comma != std::string_view::npos;
    rest_ = more_ ? rest_.substr(comma + 1) : std::string_view();
    return field;
  }

  std::string_view rest_;
  bool more_;
};

/// The three fields of line 1; false at the first one that cannot be read.
bool ReadSettings(std::string_view line, Globals& globals) {
  FieldReader fields(line);
  const auto script = fields.Text();
  if (!script) return false;
  globals.ScriptFile = Decoded(*script);
  const auto port = fields.Number(1, std::numeric_limits<std::int16_t>::max());
  if (!port) return false;
  globals.PortNumber = *port;
  const auto baud = fields.Number(1, std::numeric_limits<std::int32_t>::max());
  if (!baud) return false;
  globals.BaudRate = *baud;
  return true;
}

}  // namespace

QString OptionsFile::Path() const {
  return folder_.Find(QString::fromLatin1(WorkingFolder::OptionsName));
}

QStringList OptionsFile::ReadOptions() {
  if (!QFileInfo::exists(Path())) {
    prompts_.MsgBox(QStringLiteral("FILE 'KlmQx_opt.DEF' NOT FOUND!!!\r SET OPTIONS"), Buttons::Ok,
                    Icon::Exclamation);
  }
  return ReadQuietly();
}

QStringList OptionsFile::ReadQuietly() {
  globals_.ScriptFile = QString::fromLatin1(Globals::DefaultScript);
  globals_.PortNumber = Globals::DefaultPort;
  globals_.BaudRate = Globals::DefaultBaud;
  LineReader lines(Path());
  const auto settings = lines.Next();
  if (!settings || lines.Overlong() || !ReadSettings(*settings, globals_)) return {};
  QStringList recent;
  while (recent.size() < MaxRecent) {
    const auto line = lines.Next();
    if (!line || lines.Overlong()) break;
    recent.append(Decoded(*line));
  }
  return recent;
}

QString OptionsFile::WriteOptions() {
  const std::string line = '"' + QFile::encodeName(globals_.ScriptFile).toStdString() + "\"," +
                           std::to_string(globals_.PortNumber) + ',' +
                           std::to_string(globals_.BaudRate) + "\r\n";
  return writer_.Write(Path(), line, FileWriter::Backup::No);
}

}  // namespace nira
