// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Instant.h"

#include <QString>

#include <optional>
#include <string>
#include <string_view>

namespace nira {

/// A pseudo-terminal: the tool opens its device as a serial port, and what it writes there is read
/// here. There are none but on Linux.
class Pseudoterminal {
 public:
  Pseudoterminal() = default;
  ~Pseudoterminal() { Close(); }
  Pseudoterminal(const Pseudoterminal&) = delete;
  Pseudoterminal& operator=(const Pseudoterminal&) = delete;

  /// Makes a new one; returns the system's reason when that failed.
  QString Open();
  void Close();

  /// Path of the device; empty while there is none.
  const QString& Device() const { return device_; }
  int Descriptor() const { return near_; }

  /// What the tool has written by now; none when it has closed the device. Then nothing can be read
  /// before it is open again.
  std::optional<std::string> Read();

  /// Writes to the tool; what it leaves no room for is lost, as on a line.
  void Write(std::string_view bytes);

  /// Opens the device here too, so that reading waits for the next tool, and drops what the last
  /// one has not read. False when the device cannot be opened any more.
  bool HoldOpen();
  void LetGo();

  /// The speed that the tool has set, in baud; none when it is no speed of the protocol.
  std::optional<int> Baud() const;

 private:
  int near_ = -1;  // this side
  int far_ = -1;   // the tool's side, while it is held open
  QString device_;
};

}  // namespace nira
