// SPDX-License-Identifier: Apache-2.0
#include "LineProgress.h"

#include <QFile>

#include <io.h>

namespace nira {

bool IsTerminal(const QTextStream& stream) {
  const auto* file = qobject_cast<const QFileDevice*>(stream.device());
  return file != nullptr && ::_isatty(file->handle()) != 0;
}

}  // namespace nira
