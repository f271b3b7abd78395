// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "controls/FocusScrollBar.h"

namespace nira {

/// The scroll bar of the value editor: it stops at once when a message box comes over a press on
/// it.
class ValueScroll : public FocusScrollBar {
  Q_OBJECT

 public:
  explicit ValueScroll(const char* name) : FocusScrollBar(name, Qt::Horizontal) {}

 protected:
  void focusOutEvent(QFocusEvent* event) override;
};

}  // namespace nira
