// SPDX-License-Identifier: Apache-2.0
#include "ground/Text.h"

#include <QStringDecoder>
#include <QStringEncoder>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace nira {

namespace {

constexpr char codePage[] = "windows-1252";

bool IsAscii(std::string_view bytes) {
  return std::all_of(bytes.begin(), bytes.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

}  // namespace

std::string NumberPart(std::string_view text) {
  std::string number;
  bool point = false;
  for (const char c : text) {
    if (c == ' ') continue;
    const bool digit = c >= '0' && c <= '9';
    const bool sign = (c == '-' || c == '+') && number.empty();
    const bool firstPoint = c == '.' && !point;
    if (!digit && !sign && !firstPoint) break;
    point |= firstPoint;
    number.push_back(c);
  }
  return number;
}

double Val(std::string_view text) {
  const std::string number = NumberPart(text);
  const char* first = number.data();
  const char* last = first + number.size();
  if (first != last && *first == '+') ++first;
  double value = 0;
  const auto [end, error] = std::from_chars(first, last, value, std::chars_format::fixed);
  if (error == std::errc::result_out_of_range) {
    if (number.find_first_of("123456789") > number.find('.')) return 0;
    return number.front() == '-' ? -1e300 : 1e300;
  }
  return error == std::errc() ? value : 0;
}

std::int64_t NumericValue(std::string_view text) {
  constexpr double limit = 1e15;  // far outside 32 bits, exact in a double
  return static_cast<std::int64_t>(std::nearbyint(std::clamp(Val(text), -limit, limit)));
}

std::int64_t NumericValue(QStringView text) {
  const QByteArray latin = text.toLatin1();
  return NumericValue(std::string_view(latin.constData(), static_cast<std::size_t>(latin.size())));
}

std::string ZeroFill(std::int64_t number, int width) {
  const std::string filled =
      std::string(static_cast<std::size_t>(width), '0') + std::to_string(number);
  return std::string(Tail(filled, static_cast<std::size_t>(width)));
}

QString ZeroFilled(std::int64_t number, int width) {
  return QString::fromStdString(ZeroFill(number, width));
}

QString FromBytes(std::string_view bytes) {
  const auto size = static_cast<qsizetype>(bytes.size());
  if (IsAscii(bytes)) return QString::fromLatin1(bytes.data(), size);
  QStringDecoder decoder(codePage);
  return decoder.decode(QByteArrayView(bytes.data(), size));
}

std::optional<std::string> ToBytes(QStringView text) {
  std::string bytes;
  bytes.reserve(static_cast<std::size_t>(text.size()));
  if (std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; })) {
    for (const QChar c : text) bytes.push_back(static_cast<char>(c.unicode()));
    return bytes;
  }
  QStringEncoder encoder(codePage);
  const QByteArray encoded = encoder.encode(text);
  if (encoder.hasError()) return std::nullopt;
  bytes = encoded.toStdString();
  // A converter may answer a missing character with a substitute instead of an error.
  if (FromBytes(bytes) != text) return std::nullopt;
  return bytes;
}

std::optional<Untypable> FirstUntypable(QStringView text) {
  for (qsizetype i = 0; i < text.size();) {
    const char16_t code = text.at(i).unicode();
    if (code < u' ') return Untypable{i, 1, QString(QChar(static_cast<char16_t>(0x2400 + code)))};
    if (code == 127) return Untypable{i, 1, QString(QChar(u'\u2421'))};
    const bool pair =
        text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
    const qsizetype length = pair ? 2 : 1;
    const QStringView character = text.mid(i, length);
    if (!ToBytes(character)) return Untypable{i, length, character.toString()};
    i += length;
  }
  return std::nullopt;
}

QString UntypableCharacter(QStringView text) {
  const auto found = FirstUntypable(text);
  return found ? found->Shown : QString();
}

QString Filled(QString text, const QStringList& values) {
  qsizetype at = 0;
  while ((at = text.indexOf(u'%', at)) >= 0) {
    const int number = at + 1 < text.size() ? text.at(at + 1).digitValue() : 0;
    const bool place = number >= 1 && number <= values.size();
    const QString value = place ? values.at(number - 1) : QStringLiteral("%");
    text.replace(at, place ? 2 : 1, value);
    at += value.size();  // what a value holds is no place
  }
  return text;
}

QString TrimLeft(const QString& text) {
  qsizetype blanks = 0;
  while (blanks < text.size() && text.at(blanks) == u' ') ++blanks;
  return text.mid(blanks);
}

}  // namespace nira
