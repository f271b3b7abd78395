// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPushButton>

class QAction;

namespace nira {

/// A button that does what an entry of a menu does, with a caption of its own at the left and, in a
/// quieter colour, a remark at the right where there is room for it. It takes no focus: the entry
/// has its key.
class KeyButton : public QPushButton {
  Q_OBJECT

 public:
  KeyButton(const char* name, QAction* entry, QWidget* parent);

  void ShowTexts(const QString& caption, const QString& remark);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString remark_;
};

}  // namespace nira
