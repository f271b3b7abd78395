// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QRadioButton>

#include <algorithm>

namespace nira {

/// Lets Tab reach the checked ones alone of the option buttons in this frame, or all of them while
/// none is checked. Qt does so itself only once one of them has had the focus: until then Tab would
/// stand on the first, and a blank there choose it.
inline void TabToChecked(const QWidget& frame) {
  const auto buttons = frame.findChildren<QRadioButton*>();
  const auto follow = [buttons] {
    const bool chosen = std::any_of(buttons.begin(), buttons.end(),
                                    [](const QRadioButton* button) { return button->isChecked(); });
    for (QRadioButton* button : buttons) {
      button->setFocusPolicy(button->isChecked() || !chosen ? Qt::StrongFocus : Qt::ClickFocus);
    }
  };
  for (QRadioButton* button : buttons) {
    QObject::connect(button, &QRadioButton::toggled, &frame, follow);
  }
  follow();
}

}  // namespace nira
