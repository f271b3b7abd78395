// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

namespace nira {

/// The program that holds a serial device open, "minicom (1234)", as far as the system tells: of
/// other users' programs only those that left a lock file. Empty when none is known.
QString PortHolder(const QString& device);

}  // namespace nira
