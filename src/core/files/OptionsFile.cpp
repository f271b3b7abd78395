// SPDX-License-Identifier: Apache-2.0
#include "files/OptionsFile.h"

#include "files/FileWriter.h"
#include "files/LineReader.h"
#include "files/WorkingFolder.h"

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
bool ReadSettings(std::string_view line, Options& options) {
  FieldReader fields(line);
  const auto script = fields.Text();
  if (!script) return false;
  options.ScriptFile = Decoded(*script);
  const auto port = fields.Number(1, std::numeric_limits<std::int16_t>::max());
  if (!port) return false;
  options.PortNumber = *port;
  const auto baud = fields.Number(1, std::numeric_limits<std::int32_t>::max());
  if (!baud) return false;
  options.BaudRate = *baud;
  return true;
}

QString PathIn(const WorkingFolder& folder) {
  return folder.Find(QString::fromLatin1(WorkingFolder::OptionsName));
}

}  // namespace

StoredOptions ReadOptions(const WorkingFolder& folder) {
  StoredOptions stored;
  const QString path = PathIn(folder);
  stored.Found = QFileInfo::exists(path);
  LineReader lines(path);
  const auto settings = lines.Next();
  if (!settings || lines.Overlong() || !ReadSettings(*settings, stored.Settings)) return stored;
  while (stored.Recent.size() < MaxRecent) {
    const auto line = lines.Next();
    if (!line || lines.Overlong()) break;
    stored.Recent.append(Decoded(*line));
  }
  return stored;
}

Refusal WriteOptions(const Options& options, const WorkingFolder& folder, FileWriter& writer) {
  const std::string line = '"' + QFile::encodeName(options.ScriptFile).toStdString() + "\"," +
                           std::to_string(options.PortNumber) + ',' +
                           std::to_string(options.BaudRate) + "\r\n";
  Refusal refusal = writer.Write(PathIn(folder), line, FileWriter::Backup::No);
  if (refusal) refusal->Path = QString::fromLatin1(WorkingFolder::OptionsName);
  return refusal;
}

}  // namespace nira
