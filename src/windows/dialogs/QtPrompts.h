// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ground/Prompts.h"

#include <QWidget>

namespace nira {

/// Real message and input boxes, centred on the window that is active.
class QtPrompts : public Prompts {
 public:
  Answer MsgBox(const QString& text, Buttons buttons, Icon icon, const QString& title) override;
  std::optional<QString> InputBox(const QString& prompt, const QString& preset,
                                  const QString& title) override;
};

}  // namespace nira
