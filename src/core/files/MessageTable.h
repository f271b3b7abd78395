// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

#include <array>
#include <string_view>

namespace nira {

enum class TextNumber : int;

/// The 500 texts of the user interface, filled from a language script.
class MessageTable {
 public:
  static constexpr int Count = 500;

  /// Texts beyond these bounds are left out: they are no script of ours, and the table stays small.
  static constexpr qint64 MaxScript = 4 << 20;  ///< bytes of the file that are looked at
  static constexpr qsizetype MaxText = 1000;    ///< characters of one text

  /// Text by number, 1..500, as the script has it; empty outside.
  const QString& Text(int number) const;

  /// The text that is shown: the script's, or the built-in one where it has none.
  const QString& Text(TextNumber number) const;

  /// How many of the texts that are built in the script does not have.
  int Missing() const;

  /// Fills the table from the bytes of a script: line k is text k, from line 2 on without its
  /// first and last character, line 1 without its last. The file's last character is not read.
  void Parse(std::string_view file);

  /// Reads the script file; false, with the table unchanged, when it cannot be read.
  bool Read(const QString& path);

 private:
  std::array<QString, Count> texts_;
};

}  // namespace nira
