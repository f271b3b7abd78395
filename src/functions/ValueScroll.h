#pragma once

#include <QScrollBar>

namespace nira {

/// The scroll bar of the value editor. It takes the keyboard, shows that it has it, and stops at
/// once when a message box comes over a press on it.
class ValueScroll : public QScrollBar {
  Q_OBJECT

 public:
  explicit ValueScroll(QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
};

}  // namespace nira
