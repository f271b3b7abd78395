// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ground/Result.h"
#include "model/Options.h"

#include <QStringList>

namespace nira {

class FileWriter;
class WorkingFolder;

// The options file: script name, port number and speed on line 1 (`"name",1,9600`), then up to
// five recently used cam files. Paths are in the file system's own encoding.

inline constexpr int MaxRecent = 5;

/// What the options file holds. What it does not say, up to the first field that is not what it
/// should be, is as it stands in `Options`.
struct StoredOptions {
  bool Found = false;  ///< there is such a file
  Options Settings;
  QStringList Recent;  ///< recently used files, at most five
};

StoredOptions ReadOptions(const WorkingFolder& folder);

/// Writes line 1 alone: the recent files are never written back.
Refusal WriteOptions(const Options& options, const WorkingFolder& folder, FileWriter& writer);

}  // namespace nira
