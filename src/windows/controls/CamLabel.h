// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLabel>

namespace nira {

/// A label of one cam that answers to the left mouse button. A text that is too long for its place
/// ends in an ellipsis and is shown whole by its tooltip.
class CamLabel : public QLabel {
  Q_OBJECT

 public:
  explicit CamLabel(QWidget* parent);

 Q_SIGNALS:
  void Click();
  void DblClick();

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  struct Measured {
    QString text;
    QFont font;
    int room = -1;  // pixels
    QString shown;
  };
  const QString& Shown();

  Measured measured_;
};

}  // namespace nira
