// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "files/LineReader.h"
#include "ground/Result.h"
#include "model/CamProgram.h"

#include <QStringList>

#include <string>
#include <string_view>
#include <vector>

namespace nira {

/// The records that carry the functions block to the programmer, in their order.
std::vector<std::string> FunctionsRecords(const CamProgram& program);

/// The values of those records that are not the program's, because they are negative or have more
/// digits than their field: "SFASAMENTO ENCODER -5 -> 0-5".
QStringList ChangedOnTheLine(const FunctionsBlock& functions);

/// The values of a program that no operator can give: "SENSO DI ROTAZIONE 9 (0-1)".
QStringList OutOfRange(const CamProgram& program);

/// Reads the functions records of a received program. They are the programmer's own and differ from
/// those that are sent to it: the flags stand apart, the number of advances is hexadecimal. Each
/// record that the flags announce has to be there, and no other.
class WireFunctions {
 public:
  /// `block` receives the values; `numCams` says which records there are.
  WireFunctions(LineReader& lines, FunctionsBlock& block, int numCams)
      : lines_(lines), block_(block), numCams_(numCams) {}

  /// Reads up to the first size line, which is `Line` then. The fault is a `BadLine`: the line that
  /// is not what it should be there, or the last one.
  Refusal Read();

  const std::string& Line() const { return line_; }

  /// The record whose numbers held more than numbers; empty when there was none.
  const std::string& Doubtful() const { return doubtful_; }

 private:
  using Parser = bool (WireFunctions::*)(std::string_view);

  bool ReadRecords();
  bool Next();
  bool AtSize() const;
  bool Take(Parser parser);
  bool Flags(std::string_view record);
  bool Entries(std::string_view record);
  bool EntriesOrIndex(std::string_view record);
  bool Delays(std::string_view record);
  bool Ratio(std::string_view record);
  bool Configuration(std::string_view record);
  template <typename Number>
  bool Store(Number& field, std::string_view text);
  void SetLast(std::int64_t index);

  LineReader& lines_;
  FunctionsBlock& block_;
  int numCams_;
  std::string line_;
  std::string doubtful_;
};

}  // namespace nira
