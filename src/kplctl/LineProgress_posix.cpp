// SPDX-License-Identifier: Apache-2.0
#include "LineProgress.h"

#include <QFile>

#include <unistd.h>

namespace nira {

bool IsTerminal(const QTextStream& stream) {
  const auto* file = qobject_cast<const QFileDevice*>(stream.device());
  return file != nullptr && ::isatty(file->handle()) == 1;
}

}  // namespace nira
