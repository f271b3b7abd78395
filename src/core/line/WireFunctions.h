// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "files/LineReader.h"
#include "model/CamProgram.h"

#include <string>
#include <string_view>
#include <vector>

namespace nira {

/// The records that carry the functions block to the programmer, in their order.
std::vector<std::string> FunctionsRecords(const CamProgram& program);

/// Reads the functions records of a received program. They are the programmer's own and differ from
/// those that are sent to it: the flags stand apart, the number of advances is hexadecimal.
class WireFunctions {
 public:
  /// Longest advance that the programmer works with, milliseconds.
  static constexpr int LongestAdvance = 210;

  /// `block` receives the values; `numCams` says which records there are.
  WireFunctions(LineReader& lines, FunctionsBlock& block, int numCams)
      : lines_(lines), block_(block), numCams_(numCams) {}

  /// Reads up to the first size line, which is `Line` then; fields whose record is missing stay as
  /// they are. False at a bad record, which is `Line` then, and at the end of the file.
  bool Read();

  const std::string& Line() const { return line_; }

 private:
  using Parser = bool (WireFunctions::*)(std::string_view);

  bool Collect();
  bool Parse();
  bool Take(Parser parser);
  bool Flags(std::string_view record);
  bool Entries(std::string_view record);
  bool EntriesOrIndex(std::string_view record);
  bool Delays(std::string_view record);
  bool Ratio(std::string_view record);
  bool Configuration(std::string_view record);
  void SetLast(int index);

  LineReader& lines_;
  FunctionsBlock& block_;
  int numCams_;
  std::vector<std::string> records_;
  std::size_t next_ = 0;
  std::string line_;
};

}  // namespace nira
