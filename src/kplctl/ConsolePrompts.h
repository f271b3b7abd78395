// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ground/Prompts.h"

#include <QTextStream>

namespace nira {

/// Shows messages and questions as lines of text and answers the questions without an operator:
/// all with yes or OK, or all with no or Cancel. Nothing is ever tried again.
class ConsolePrompts : public Prompts {
 public:
  ConsolePrompts(QTextStream& lines, bool yes) : lines_(lines), yes_(yes) {}

  Answer MsgBox(const QString& text, Buttons buttons, Icon icon, const QString& title) override;

  /// There is nobody to type an answer: always cancelled.
  std::optional<QString> InputBox(const QString& prompt, const QString& preset,
                                  const QString& title) override;

 private:
  Answer Choose(Buttons buttons) const;

  QTextStream& lines_;
  bool yes_;
};

}  // namespace nira
