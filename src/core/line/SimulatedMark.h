// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

namespace nira {

/// A simulated programmer marks the link by which it is reached, as "com1", with a lock file beside
/// it. The mark is void as soon as the program that made it has ended, however it ended.
QString SimulatedMark(const QString& link);

/// True when a simulated programmer that runs now is behind this link. Does not open the port.
bool IsSimulatedPort(const QString& link);

/// Process number of the simulated programmer that made the mark; 0 when there is no mark.
qint64 SimulatorProcess(const QString& link);

}  // namespace nira
