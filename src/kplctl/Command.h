// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Arguments.h"
#include "Console.h"

#include <limits>
#include <vector>

namespace nira {

/// A command of kplctl: what it takes, what the usage says about it, and what it does.
struct Command {
  static constexpr qsizetype Any = std::numeric_limits<qsizetype>::max();

  const char* name;
  const char* synopsis;  ///< what the usage shows behind the name
  const char* summary;   ///< one line: what it does
  qsizetype fewest = 1;  ///< words that it takes
  qsizetype most = 1;
  std::vector<Option> options = {};  ///< beside those that every command takes

  /// Does the work and returns the exit status.
  int (*run)(Console& console, const Arguments& arguments) = nullptr;

  /// Why the arguments are a wrong command line; empty when they are none. Null: nothing to look at
  /// beyond the number of words and the kinds of the options. Reads and writes nothing.
  QString (*fault)(const Arguments& arguments) = nullptr;

  /// How many arguments behind line[at], the word number `place` (from 0) of the command, are words
  /// as they stand, whatever they begin with. Null: none; what begins with a dash is an option.
  qsizetype (*literals)(const QStringList& line, qsizetype at, qsizetype place) = nullptr;

  /// More of the usage, whole lines. Null: none.
  QString (*details)() = nullptr;

  /// It draws text, for which the process needs a QGuiApplication.
  bool needsFonts = false;
};

}  // namespace nira
