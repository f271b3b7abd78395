// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "files/LineReader.h"

#include <QString>

#include <cstdint>
#include <string>
#include <string_view>

namespace nira {

/// A line of a firmware file in Intel HEX form: ":", then as pairs of hexadecimal digits the count
/// of its data bytes, two bytes of offset, the type, the data and the checksum.
struct HexLine {
  /// Why a line cannot go to the programmer. All but the first two are parity errors.
  enum class Fault {
    None,
    NoRecord,  ///< it does not begin with ":", or stands beyond `HexFile::MostLines`
    TooShort,
    OddDigit,
    WrongDigit,
    WrongCount,     ///< the byte count is not that of the line
    WrongChecksum,  ///< also one in lower-case digits
  };
  enum Kind { Data = 0, End = 1, SegmentBase = 2, LinearBase = 4, LastKind = 5 };

  static constexpr std::size_t Shortest = 11;  ///< characters of a line without data
  static constexpr std::size_t Longest = 521;  ///< of one with 255 data bytes

  std::string_view Text;  ///< without its end; valid until the next line is read
  int Number = 0;         ///< in the file, from 1
  Fault Found = Fault::None;

  // Of a line without fault, or with one of the last two:
  int Bytes() const { return static_cast<int>((Text.size() - Shortest) / 2); }
  int Type() const { return Byte(3); }
  int Offset() const { return Byte(1) * 256 + Byte(2); }
  int DataByte(int index) const { return Byte(4 + index); }  ///< `index` from 0
  int Count() const { return Byte(0); }                      ///< as the line names it
  std::string Checksum() const;                              ///< as it has to be, two digits

 private:
  friend class HexFile;

  int Byte(int index) const;
  bool IsSummed() const;

  unsigned sum_ = 0;  // of all bytes but the checksum
};

/// What the lines of a firmware file add up to.
struct HexTotals {
  int Lines = 0;
  std::int64_t Bytes = 0;  ///< data bytes of all lines, whatever their types
  int EndRecords = 0;
};

/// The program that a firmware file holds, as one of its records names it.
struct ProgramIdentity {
  QString Checksum = QStringLiteral("------");  ///< six characters
  QString Date = QStringLiteral("------");      ///< "NOV 21 97"
};

/// Reads a firmware file line by line in bounded memory and looks at each line.
class HexFile {
 public:
  /// More lines than any memory has bytes to take them.
  static constexpr int MostLines = 1'000'000'000;

  /// Opens the file; `Failure` says why when that failed.
  explicit HexFile(const QString& path) : lines_(path) {}

  bool IsOpen() const { return lines_.IsOpen(); }
  /// Why it could not be opened, or read to its end; none while all is well.
  const Refusal& Failure() const { return lines_.Failure(); }

  /// The next line; null at the end of the file. An empty last line is none.
  const HexLine* Next();

  /// Gives the file back to the system; no line comes after it.
  void Close() { lines_.Close(); }

  /// Of the lines without fault that were read since the start of the file.
  const HexTotals& Totals() const { return totals_; }

  /// By the last record so far that names a program.
  ProgramIdentity Program() const;

 private:
  HexLine::Fault Look();
  void AddUp();

  LineReader lines_;
  HexLine line_;
  HexTotals totals_;
  std::string identity_;  // data of the record that names the program
};

}  // namespace nira
