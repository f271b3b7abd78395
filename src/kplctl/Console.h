// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "files/FileWriter.h"
#include "files/MessageTable.h"
#include "ground/Prompts.h"

#include <QTextStream>

namespace nira {

/// What a command of kplctl works with. Results go to `Out`, faults and remarks to `Err`.
struct Console {
  // Exit statuses.
  static constexpr int Good = 0;
  static constexpr int Failed = 1;
  static constexpr int WrongUsage = 2;

  Prompts& Ask;
  MessageTable& Texts;
  FileWriter& Writer;
  QTextStream& Out;
  QTextStream& Err;
};

}  // namespace nira
