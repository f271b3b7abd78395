// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "files/LineReader.h"
#include "model/FunctionsBlock.h"

#include <optional>
#include <string>
#include <string_view>

namespace nira {

/// Reads the functions sections of a cam file, which follow its header in a fixed order.
class FunctionsReader {
 public:
  /// `block` receives the values; `numCams` bounds the advance entries.
  FunctionsReader(LineReader& lines, FunctionsBlock& block, int numCams)
      : lines_(lines), block_(block), numCams_(numCams) {}

  /// Reads all sections; false at the first bad line. What was read before it stays in the block.
  bool Read();

  /// The line read last: after a failure the offending one, or the one before the file's end.
  const std::string& Line() const { return line_; }

  /// True when the file ended where a line was wanted.
  bool CutOff() const { return cutOff_; }

 private:
  bool NextLine();
  bool Section(std::string_view keyword);
  bool Has(std::string_view word) const { return line_.find(word) != std::string::npos; }
  bool Advances();
  bool AdvanceEntries();
  bool Delays();
  bool Ratios();

  template <typename Field>
  bool Store(Field& field, std::size_t width);

  LineReader& lines_;
  FunctionsBlock& block_;
  int numCams_;
  std::string line_;
  bool cutOff_ = false;
};

}  // namespace nira
