// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ProgrammerLine.h"

#include <QByteArray>
#include <QStringList>
#include <QTest>

namespace nira {

/// A frame as it stands on the line, its checksum written down by hand.
inline QByteArray Frame(const QByteArray& record, char checksum) {
  return '\2' + record + '\3' + checksum;
}

inline Faults FaultsOf(const QStringList& words) {
  Faults faults;
  for (const QString& word : words) {
    const QString reason = faults.Add(word);
    if (!reason.isEmpty()) QTest::qFail(qPrintable(reason), __FILE__, __LINE__);
  }
  return faults;
}

/// A programmer and the line to it, on a time that passes while something happens there.
struct DeviceFixture {
  explicit DeviceFixture(const ProgrammerState& state = ProgrammerState(),
                         const QStringList& faults = {})
      : device(state, FaultsOf(faults)) {}

  /// What arrives within a time.
  QByteArray Listen(Instant time) {
    now += time;
    return QByteArray::fromStdString(line.RunUntil(now));
  }

  /// Sends bytes, and returns what comes back within half a second.
  QByteArray Say(const QByteArray& bytes) {
    line.Write(bytes.toStdString(), now);
    now = line.ToDevice().Drained();
    return QByteArray::fromStdString(line.RunUntil(now)) + Listen(std::chrono::milliseconds(500));
  }

  /// Sends a command and acknowledges each frame that comes; returns all of them.
  QByteArray Collect(const QByteArray& command) {
    QByteArray all;
    for (QByteArray part = Say(command); !part.isEmpty(); part = Say("\6")) all += part;
    return all;
  }

  Programmer device;
  ProgrammerLine line{device};
  Instant now{};
};

inline const QByteArray identify = "?M\x8C\r";
inline const QByteArray sendSizes = "?FW\xDC\r";
inline const QByteArray receiveSizes = "?FR\xD7\r";
inline const QByteArray sendMessages = "?AW\xD7\r";
inline const QByteArray receiveMessages = "?AR\xD2\r";
inline const QByteArray updateFirmware = ":FU\xD5\r";

}  // namespace nira
