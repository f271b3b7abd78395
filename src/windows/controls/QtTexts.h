// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <QTranslator>

namespace nira {

/// Qt's own words, on the buttons of its boxes and in its dialogs, in the language of the program.
class QtTexts {
 public:
  /// Takes the language from the end of a script's name: "p32qx_IT.SCR" is Italian. Where Qt has no
  /// such language, or its translations are not installed, its words stay English.
  void Follow(const QString& script);

 private:
  QTranslator words_;
};

}  // namespace nira
