// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "LineTimer.h"
#include "ProgrammerLine.h"
#include "Pseudoterminal.h"

#include <QLockFile>
#include <QObject>
#include <QSocketNotifier>
#include <QString>
#include <QTimer>

#include <optional>

namespace nira {

/// Puts a programmer on a pseudo-terminal, to which a link as "com1" points, so that any tool can
/// open it as a serial port; the event loop does the rest. Bytes take their time in both
/// directions, at the speed that the tool sets or at a fixed one. A tool may close the port and
/// open it again.
///
/// A programmer that is unplugged takes device and link away, and is plugged in again after a
/// while.
class PtyLink : public QObject {
  Q_OBJECT

 public:
  PtyLink(Programmer& programmer, const QString& link, QObject* parent = nullptr);
  ~PtyLink() override;

  /// How long a programmer that was unplugged stays away.
  std::chrono::milliseconds UnpluggedTime{3000};

  /// Bits a second, whatever the tool sets.
  void FixBaud(int baud) { fixedBaud_ = baud; }

  /// Makes device, link and mark; returns what is in the way, empty when nothing was.
  QString Open();

  /// Takes all of it away again, once the tool has had the time to read what was sent.
  void Close();

  /// Path of the device; empty while there is none.
  const QString& Device() const { return terminal_.Device(); }

 Q_SIGNALS:
  void Unplugged();
  void PluggedIn();
  void Failed(const QString& reason);  ///< the device is gone and cannot be had again

 protected:
  // What a measurement sets right, for which a programmer has to be as punctual as the line; as the
  // common one does it a byte comes a little late.

  /// When to wake up for what is due then.
  virtual Instant WakeFor(Instant due) { return due; }
  virtual void Woken() {}
  /// When the tool wrote what has been read now.
  virtual Instant WrittenAt(Instant read) { return read; }
  /// The tool has been told just now what was due then.
  virtual void Told(Instant /*due*/) {}

 private:
  QString LockLink();
  QString OpenDevice();
  QString PointLink();
  void RemoveLink();
  void CloseDevice();
  void Read();
  void Advance();
  void ToolHasClosed();
  void Unplug();
  void PlugIn();

  Programmer& programmer_;
  ProgrammerLine line_;
  QString link_;
  QLockFile mark_;
  bool leftOver_ = false;  // the link there was made by a simulator that did not end in order
  Pseudoterminal terminal_;
  LineTimer timer_;
  QSocketNotifier written_{QSocketNotifier::Read};  // by the tool
  QSocketNotifier due_{QSocketNotifier::Read};      // the timer
  QTimer replug_;
  std::optional<int> fixedBaud_;
  bool attended_ = false;  // a tool has the port open
};

}  // namespace nira
