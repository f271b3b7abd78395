// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "controls/Instance.h"
#include "controls/QtTexts.h"

#include <QStringList>
#include <QWidget>

namespace nira {

/// The options file and the language scripts as the main window uses them: reads, writes, chooses,
/// and tells what is in the way.
class LanguageCommands {
 public:
  explicit LanguageCommands(Instance& instance) : instance_(instance) {}

  /// Takes the settings over from the options file; a missing one is told. Returns the recently
  /// used files.
  QStringList ReadOptions();

  /// False, after a message, when the options file cannot be written.
  bool WriteOptions();

  /// Reads the script of the settings; false, after a message, when it is gone. The next start
  /// finds the default script again.
  bool ReadTexts();

  /// How many texts the script in use lacks, in words; empty when none.
  QString MissingTexts() const { return Missing(instance_.Texts); }

  /// Lets the operator choose another script for the settings. One that cannot be used is told, one
  /// that lacks texts is asked about. False when the script stays.
  bool ChooseScript(QWidget* window);

 private:
  QString Missing(const MessageTable& script) const;
  bool MayTake(const QString& script);

  Instance& instance_;
  QtTexts qtTexts_;
};

}  // namespace nira
