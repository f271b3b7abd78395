// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QWidget>

namespace nira {

/// A progress bar, drawn.
class ProgressPicture : public QWidget {
  Q_OBJECT

 public:
  explicit ProgressPicture(QWidget* parent = nullptr);

  /// Draws a percentage, 0..100, at once: the event loop may stand still.
  void Show(int percent);
  int Percent() const { return percent_; }

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int percent_ = 0;
};

}  // namespace nira
