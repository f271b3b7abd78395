// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

#include <optional>

namespace nira {

enum class Icon { None, Information, Question, Exclamation, Critical };
/// The buttons of a box. The first one named is the answer of the return key: the harmless one
/// where another destroys something, sends it, or is seldom meant.
enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel, RetryCancel, NoYes, CancelOk, CancelYesNo };
enum class Answer { Ok, Cancel, Yes, No, Retry };

/// Everything that is asked of the operator or told to him goes through here. Texts are plain: what
/// a file or a device sent is never taken as markup.
class Prompts {
 public:
  virtual ~Prompts() = default;

  /// Shows a text and waits for a button. An empty title is the program's own.
  virtual Answer MsgBox(const QString& text, Buttons buttons, Icon icon,
                        const QString& title = {}) = 0;

  /// Asks for a line of text; none when the operator cancelled. The title as above.
  virtual std::optional<QString> InputBox(const QString& prompt, const QString& preset,
                                          const QString& title = {}) = 0;
};

}  // namespace nira
