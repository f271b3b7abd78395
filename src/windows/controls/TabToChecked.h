// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QRadioButton>

namespace nira {

/// Lets Tab reach the checked ones alone of the option buttons in this frame. Qt does so itself
/// only once one of them has had the focus: until then Tab would stand on the first, and a blank
/// there choose it.
inline void TabToChecked(const QWidget& frame) {
  for (QRadioButton* button : frame.findChildren<QRadioButton*>()) {
    const auto follow = [button](bool checked) {
      button->setFocusPolicy(checked ? Qt::StrongFocus : Qt::ClickFocus);
    };
    QObject::connect(button, &QRadioButton::toggled, button, follow);
    follow(button->isChecked());
  }
}

}  // namespace nira
