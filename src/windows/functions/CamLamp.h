// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QWidget>

namespace nira {

/// The lamp of one cam with the cam's number in it and its description under it, on two lines where
/// it has to be.
class CamLamp : public QWidget {
  Q_OBJECT

 public:
  /// `cam` is an index from 0.
  CamLamp(int cam, const QString& description);

  /// Repaints the lamp when its state changes, and nothing else.
  void Light(bool on);
  bool IsLit() const { return lit_; }

  /// Brings the accessible name ("C5 FEED GRIPPER, ON") up to the lamp's state. Apart from `Light`,
  /// so that a turning demo need not speak of every degree.
  void Speak();

  QSize sizeHint() const override { return minimumSizeHint(); }
  QSize minimumSizeHint() const override;

 Q_SIGNALS:
  void DblClick();

  /// An arrow key: the lamp so many places further on is meant.
  void Moved(int columns, int rows);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent*) override { update(); }
  void focusOutEvent(QFocusEvent*) override { update(); }

 private:
  QFont TextFont() const;
  QRect LampPlace() const;
  void PaintLamp(QPainter& painter, const QRect& place) const;

  QString number_;
  QString description_;
  bool lit_ = false;
  bool spoken_ = true;  // the state in the accessible name
};

}  // namespace nira
