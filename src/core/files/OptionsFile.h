// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "files/FileWriter.h"
#include "files/WorkingFolder.h"
#include "ground/Prompts.h"
#include "model/Globals.h"

#include <QStringList>

namespace nira {

/// The options file: script name, port number and speed on line 1 (`"name",1,9600`), then up to
/// five recently used cam files. Paths are in the file system's own encoding.
class OptionsFile {
 public:
  static constexpr int MaxRecent = 5;

  OptionsFile(const WorkingFolder& folder, Globals& globals, Prompts& prompts, FileWriter& writer)
      : folder_(folder), globals_(globals), prompts_(prompts), writer_(writer) {}

  /// Sets the defaults, then takes what the file holds up to the first field that is not what it
  /// should be. A missing file is told. Returns the recently used files, at most five.
  QStringList ReadOptions();

  /// The same without a word about a missing file.
  QStringList ReadQuietly();

  /// Writes line 1 alone: the recent files are never written back. Returns the system's reason
  /// when it failed.
  QString WriteOptions();

 private:
  QString Path() const;

  const WorkingFolder& folder_;
  Globals& globals_;
  Prompts& prompts_;
  FileWriter& writer_;
};

}  // namespace nira
