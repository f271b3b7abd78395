// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QList>
#include <QWidget>

class QToolButton;

namespace nira {

/// The programmer at the right of the toolbar: how its port stands, and the buttons of the two
/// transfers. Where room is short the buttons lose their words first, then the state its last ones.
class DeviceBar : public QWidget {
  Q_OBJECT

 public:
  DeviceBar(QWidget* block, const QList<QToolButton*>& buttons);

  /// With buttons of pictures alone.
  QSize minimumSizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  int Width(int block, bool words) const;

  QWidget* block_;
  QList<QToolButton*> buttons_;
};

}  // namespace nira
