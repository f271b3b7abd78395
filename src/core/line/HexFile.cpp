// SPDX-License-Identifier: Apache-2.0
#include "line/HexFile.h"

#include "ground/Text.h"

#include <algorithm>
#include <array>

namespace nira {

namespace {

constexpr std::string_view upperDigits = "0123456789ABCDEF";
constexpr unsigned noDigit = 0x80;

/// Values of the hexadecimal digits of both cases.
constexpr std::array<std::uint8_t, 256> DigitValues() {
  std::array<std::uint8_t, 256> values{};
  values.fill(static_cast<std::uint8_t>(noDigit));
  for (std::size_t value = 0; value < upperDigits.size(); ++value) {
    const char digit = upperDigits[value];
    const auto byte = static_cast<std::uint8_t>(value);
    values[static_cast<unsigned char>(digit)] = byte;
    if (value > 9) values[static_cast<unsigned char>(digit - 'A' + 'a')] = byte;
  }
  return values;
}

constexpr std::array<std::uint8_t, 256> digitValues = DigitValues();

unsigned Digit(char c) {
  return digitValues[static_cast<unsigned char>(c)];
}

bool IsPrintable(char c) {
  return c >= ' ' && c <= '~';
}

bool IsDecimal(char c) {
  return c >= '0' && c <= '9';
}

bool IsWithin(std::string_view twoDigits, int most) {
  const std::int64_t number = NumericValue(twoDigits);
  return number >= 1 && number <= most;
}

constexpr std::size_t checksumLength = 6;

/// Six characters of checksum, month, day and a year of two or four digits.
bool NamesProgram(std::string_view data) {
  if (data.size() != checksumLength + 6 && data.size() != checksumLength + 8) return false;
  const std::string_view date = data.substr(checksumLength);
  return std::all_of(data.begin(), data.begin() + checksumLength, IsPrintable) &&
         std::all_of(date.begin(), date.end(), IsDecimal) && IsWithin(date.substr(0, 2), 12) &&
         IsWithin(date.substr(2, 2), 31);
}

/// The data of a line as text; empty when it is too short or too long to name a program.
std::string NamingText(const HexLine& line) {
  const int bytes = line.Bytes();
  if (line.Type() != HexLine::Data || (bytes != 12 && bytes != 14)) return {};
  std::string text;
  for (int i = 0; i < bytes; ++i) text += static_cast<char>(line.DataByte(i));
  return text;
}

}  // namespace

int HexLine::Byte(int index) const {
  const std::size_t at = 1 + 2 * static_cast<std::size_t>(index);
  return static_cast<int>(Digit(Text[at]) * 16 + Digit(Text[at + 1]));
}

std::string HexLine::Checksum() const {
  const unsigned checksum = -sum_ % 256;
  return {upperDigits[checksum / 16], upperDigits[checksum % 16]};
}

bool HexLine::IsSummed() const {
  const unsigned checksum = -sum_ % 256;
  return Text[Text.size() - 2] == upperDigits[checksum / 16] &&
         Text.back() == upperDigits[checksum % 16];
}

const HexLine* HexFile::Next() {
  const auto text = lines_.Next();
  if (!text || (text->empty() && lines_.AtEnd())) return nullptr;
  line_.Text = *text;
  line_.Number = lines_.LineNumber();
  line_.Found = Look();
  if (line_.Found == HexLine::Fault::None) AddUp();
  return &line_;
}

/// The fault of the line; adds up its bytes on the way.
HexLine::Fault HexFile::Look() {
  using enum HexLine::Fault;
  const std::string_view text = line_.Text;
  if (!text.starts_with(':') || line_.Number > MostLines) return NoRecord;
  if (text.size() < HexLine::Shortest) return TooShort;
  if (text.size() > HexLine::Longest) return WrongCount;
  if (text.size() % 2 == 0) return OddDigit;
  unsigned sum = 0;
  unsigned found = 0;
  for (std::size_t at = 1; at < text.size() - 2; at += 2) {
    const unsigned high = Digit(text[at]);
    const unsigned low = Digit(text[at + 1]);
    found |= high | low;
    sum += high * 16 + low;
  }
  line_.sum_ = sum;
  if ((found & noDigit) != 0) return WrongDigit;
  if (line_.Count() != line_.Bytes()) return WrongCount;
  return line_.IsSummed() ? None : WrongChecksum;
}

void HexFile::AddUp() {
  const int bytes = line_.Bytes();
  ++totals_.Lines;
  totals_.Bytes += bytes;
  if (line_.Type() == HexLine::End) ++totals_.EndRecords;
  if (std::string text = NamingText(line_); NamesProgram(text)) identity_ = std::move(text);
}

ProgramIdentity HexFile::Program() const {
  ProgramIdentity program;
  if (identity_.empty()) return program;
  constexpr std::string_view months = "JANFEBMARAPRMAYJUNJULAUGSEPOCTNOVDEC";
  const std::string_view record = identity_;
  const auto month = static_cast<std::size_t>(NumericValue(record.substr(checksumLength, 2)));
  program.Checksum = FromBytes(record.substr(0, checksumLength));
  program.Date = FromBytes(months.substr((month - 1) * 3, 3)) + u' ' +
                 FromBytes(record.substr(checksumLength + 2, 2)) + u' ' +
                 FromBytes(record.substr(checksumLength + 4));
  return program;
}

}  // namespace nira
