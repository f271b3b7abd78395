// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLabel>

namespace nira {

/// Says plainly, where it is shown, that the programmer is a simulated one: black on yellow in
/// every theme, so that nobody takes it for a real one.
class SimulatedSign : public QLabel {
  Q_OBJECT

 public:
  static constexpr QRgb Ground = 0xffffff00;  // yellow
  static constexpr QRgb Ink = 0xff000000;

  /// Hidden until `Show`.
  explicit SimulatedSign(const QString& text, QWidget* parent = nullptr);

  void Show(bool simulated) { setVisible(simulated); }
};

}  // namespace nira
