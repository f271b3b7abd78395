// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "controls/DegreeBox.h"

namespace nira {

/// A filtered text box of a dialog: Tab goes on to the next control, Enter reaches the filter and
/// never the dialog, and a box that is entered has its whole text selected.
class NumberBox : public DegreeBox {
  Q_OBJECT

 public:
  NumberBox(int length, KeyFilter filter, QWidget* parent);

  static bool IsDigit(char16_t code) { return code >= u'0' && code <= u'9'; }

  /// Whether a loss of the focus goes to another control, not to a menu or another window.
  static bool IsLeft(Qt::FocusReason reason);

 protected:
  bool event(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
};

}  // namespace nira
