// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>
#include <QSocketNotifier>

namespace nira {

/// The operator's or the system's wish that the program ends (Ctrl+C, SIGTERM, SIGHUP), as a signal
/// of the event loop instead of an end on the spot. One at a time.
class Interrupt : public QObject {
  Q_OBJECT

 public:
  Interrupt();
  ~Interrupt() override;

  /// True from then on: for work that goes on for long without the event loop.
  bool HasCome() const;

 Q_SIGNALS:
  void Caught();

 private:
  QSocketNotifier told_{QSocketNotifier::Read};
};

}  // namespace nira
