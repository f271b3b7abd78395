// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QColor>
#include <QWidget>

namespace nira {

/// The round lamp that says whether the programmer is ready: green when it is, red when not. It
/// keeps its place while it is hidden.
class ReadyLamp : public QWidget {
  Q_OBJECT

 public:
  static constexpr QRgb Red = 0xFFFF0000;
  static constexpr QRgb Green = 0xFF00FF00;

  explicit ReadyLamp(QWidget* parent = nullptr);

  void Show(bool ready);

  QSize sizeHint() const override { return {20, 20}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QRgb fill_ = Red;
};

}  // namespace nira
