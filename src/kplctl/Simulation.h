// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <QStringList>
#include <QTextStream>

#include <optional>

namespace nira {

/// What `kplctl simulate` is asked for.
struct SimulateOptions {
  std::optional<int> cams;      ///< 1..32; otherwise those of the program, or 32
  std::optional<int> sizes;     ///< 1..99; otherwise those of the program, or 22
  std::optional<int> messages;  ///< 1..255; otherwise 255
  QString program;              ///< cam file that the programmer holds; empty: none
  QString firmware;             ///< HEX file to compare a firmware with that arrives; empty: none
  QStringList faults;           ///< words of `Faults`
  QString link = QStringLiteral("com1");
  std::optional<int> baud;  ///< speed of the line; otherwise the one that the tool sets
};

/// Runs a simulated programmer on a pseudo-terminal until it is interrupted, and tells what arrives
/// there. Returns the exit status.
int Simulate(const SimulateOptions& options, QTextStream& out, QTextStream& err);

}  // namespace nira
