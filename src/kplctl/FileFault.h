// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

namespace nira {

/// What is wrong with a file, and where.
struct FileFault {
  int line = 0;  ///< from 1; 0 when it concerns the file as a whole
  QString text;
};

}  // namespace nira
