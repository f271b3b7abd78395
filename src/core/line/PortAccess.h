// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

namespace nira {

// Who uses a serial device and who may, as far as the system tells.

/// The program that holds the device open, "minicom (1234)": of other users' programs only those
/// that left a lock file. The process `except` does not count. Empty when none is known.
QString PortHolder(const QString& device, qint64 except = 0);

/// The lock file of the device when the program that left it has ended; empty otherwise. Another
/// user's stays in the way until somebody removes it.
QString LeftLock(const QString& device);

/// The group that a user without permission has to join to read and write the device; empty when
/// none would help.
QString GroupToJoin(const QString& device);

}  // namespace nira
