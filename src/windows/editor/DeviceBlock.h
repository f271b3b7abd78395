// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "controls/Instance.h"
#include "line/PortNames.h"

#include <QLabel>
#include <QTimer>

namespace nira {

/// The port to the programmer: number, speed and how it stands, as a dot and in words, and below
/// what is behind it. Black on yellow with the sign while that is a simulated programmer.
class DeviceBlock : public QLabel {
  Q_OBJECT

 public:
  DeviceBlock(Instance& instance, const PortNames& ports);

  /// Writes everything anew.
  void ShowPort();

  /// Looks up what stands behind the port and shows it.
  void LookAtPort();

  /// An exchange begins: the port's state is followed until `PortAtRest`.
  void WatchPort();

  /// The exchange is over.
  void PortAtRest();

  /// As wide as its widest text, so that nothing moves when the port opens.
  QSize sizeHint() const override;
  /// Port and speed alone.
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  enum class State { Closed, Open, Failed };

  State Now() const;
  QString Port(const QString& speed) const;
  QString PortNow() const;
  QString Word() const;
  int Width(const QString& text) const;

  Instance& instance_;
  const PortNames& ports_;
  QTimer watch_;
  QString device_;
  bool simulated_ = false;
};

}  // namespace nira
