// SPDX-License-Identifier: Apache-2.0
#include "files/MessageTable.h"

#include "files/DefaultScript.h"
#include "ground/Text.h"

#include <QFile>
#include <QFileInfo>

namespace nira {

namespace {

const MessageTable& DefaultTexts() {
  static const MessageTable texts = [] {
    MessageTable table;
    table.Parse(DefaultScript());
    return table;
  }();
  return texts;
}

}  // namespace

const QString& MessageTable::Text(int number) const {
  static const QString none;
  if (number < 1 || number > Count) return none;
  return texts_[static_cast<std::size_t>(number - 1)];
}

const QString& MessageTable::Text(TextNumber number) const {
  const QString& own = Text(static_cast<int>(number));
  return own.isEmpty() ? DefaultTexts().Text(static_cast<int>(number)) : own;
}

int MessageTable::Missing() const {
  const auto& wanted = DefaultTexts().texts_;
  int missing = 0;
  for (std::size_t k = 0; k < texts_.size(); ++k) {
    if (texts_[k].isEmpty() && !wanted[k].isEmpty()) ++missing;
  }
  return missing;
}

void MessageTable::Parse(std::string_view file) {
  texts_.fill(QString());
  if (file.empty()) return;
  const std::string_view text = file.substr(0, file.size() - 1);
  // `start` is set two past each carriage return, so the next line is taken from its second
  // character on and its search begins there too; the length leaves out the last character.
  std::size_t start = 0;
  for (std::size_t k = 0; k < texts_.size(); ++k) {
    if (start >= text.size()) return;
    const std::size_t found = text.find('\r', start);
    if (found == std::string_view::npos) return;
    if (found > start) {
      texts_[k] = FromBytes(text.substr(start, found - start - 1)).left(MaxText);
    }
    start = found + 3;
  }
}

bool MessageTable::Read(const QString& path) {
  QFile file(path);
  if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) return false;
  const QByteArray bytes = file.read(MaxScript);
  if (file.error() != QFileDevice::NoError) return false;
  Parse(std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
  return true;
}

}  // namespace nira
