// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace nira {

/// The characters of a text that make up its number: a sign, digits and a decimal point as `Val`
/// reads them.
std::string NumberPart(std::string_view text);

/// Numeric value of a text: blanks (code 32) anywhere are ignored, one leading sign and one decimal
/// point are accepted, reading stops at the first other character; nothing numeric gives 0.
double Val(std::string_view text);

/// `Val` rounded to the nearest integer, halves to the even neighbour. Numbers beyond 32 bits come
/// back outside the 32-bit range, never wrapped.
std::int64_t NumericValue(std::string_view text);
std::int64_t NumericValue(QStringView text);

/// The last `count` characters of a text, all of it when it is shorter.
constexpr std::string_view Tail(std::string_view text, std::size_t count) {
  return text.size() <= count ? text : text.substr(text.size() - count);
}

/// The number with zeros before it, of which the last `width` (1..9) characters are kept.
std::string ZeroFill(std::int64_t number, int width);
QString ZeroFilled(std::int64_t number, int width);

/// A text from a file, a script or the wire: one byte is one Windows-1252 character, and every one
/// of the 256 codes comes back from `ToBytes` as it was.
QString FromBytes(std::string_view bytes);

/// The Windows-1252 bytes of a text; none when a character of it has no code there.
std::optional<std::string> ToBytes(QStringView text);

/// A character that cannot stand in a line of text: a control character (codes below 32, and 127)
/// or one that Windows-1252 lacks.
struct Untypable {
  qsizetype At;      ///< its place in the text, from 0
  qsizetype Length;  ///< code units of the text that it takes
  QString Shown;     ///< itself; a control character is shown by its picture (U+2400..)
};

/// The first such character of a text.
std::optional<Untypable> FirstUntypable(QStringView text);

/// The same as it is shown; empty when there is none.
QString UntypableCharacter(QStringView text);

/// A text of a script with the values in the places of its %1, %2 and so on, as far as it has them.
QString Filled(QString text, const QStringList& values);

/// The text without blanks (code 32) at its start.
QString TrimLeft(const QString& text);

}  // namespace nira
