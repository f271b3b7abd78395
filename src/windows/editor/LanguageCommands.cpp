// SPDX-License-Identifier: Apache-2.0
#include "editor/LanguageCommands.h"

#include "dialogs/clsCommonDialog.h"
#include "files/MessageTable.h"
#include "files/OptionsFile.h"
#include "files/ScriptFile.h"
#include "line/FaultText.h"

#include <utility>

namespace nira {

QStringList LanguageCommands::ReadOptions() {
  const StoredOptions stored = nira::ReadOptions(instance_.Folder);
  if (!stored.Found) {
    instance_.Ask.MsgBox(QStringLiteral("FILE 'KlmQx_opt.DEF' NOT FOUND!!!\r SET OPTIONS"),
                         Buttons::Ok, Icon::Exclamation);
  }
  static_cast<Options&>(instance_.Settings) = stored.Settings;
  return stored.Recent;
}

bool LanguageCommands::WriteOptions() {
  const Refusal refusal =
      nira::WriteOptions(instance_.Settings, instance_.Folder, instance_.Writer);
  if (refusal) TellFault(instance_.Ask, instance_.Texts, *refusal);
  return !refusal;
}

bool LanguageCommands::ReadTexts() {
  QString& script = instance_.Settings.ScriptFile;
  if (!ReadScript(instance_.Texts, instance_.Folder, script)) {
    qtTexts_.Follow(script);
    return true;
  }
  instance_.Ask.MsgBox(
      QStringLiteral(" FILE '\"") + script + QStringLiteral("\"' IS NOT AVAILABLE"), Buttons::Ok,
      Icon::Critical, QStringLiteral("UNRECOV. DEF.FILE ERROR"));
  const QString standard = QString::fromLatin1(Options::DefaultScript);
  instance_.Folder.BringScript(standard);
  if (std::exchange(script, standard) != standard) WriteOptions();
  return false;
}

QString LanguageCommands::Missing(const MessageTable& script) const {
  const int missing = script.Missing();
  if (missing == 0) return {};
  return QString::number(missing) + u' ' + instance_.Text(TextNumber::TextsMissing);
}

bool LanguageCommands::ChooseScript(QWidget* window) {
  clsCommonDialog& dialog = instance_.Dialog;
  dialog.DialogTitle = QStringLiteral("SELECT LANGUAGE");
  dialog.Filter = QStringLiteral("File Script Lang. (*.Scr)|*.scr|All Files (*.*)|*.*");
  dialog.Flags = 0;
  dialog.FileName.clear();
  const QString start = std::exchange(dialog.InitDir, instance_.Folder.Path());
  dialog.ShowOpen(window);
  dialog.InitDir = start;
  if (dialog.FileTitle().isEmpty() || !MayTake(dialog.FileName)) return false;
  instance_.Settings.ScriptFile = dialog.FileName;
  return true;
}

bool LanguageCommands::MayTake(const QString& script) {
  // The options file could not hold a name with a quote or a line break in it.
  const bool keepable = !script.contains(u'"') && !script.contains(u'\n');
  MessageTable texts;
  if (!keepable || !texts.Read(script)) {
    instance_.Ask.MsgBox(QStringLiteral("FILE ERROR"), Buttons::Ok, Icon::Critical);
    return false;
  }
  const QString missing = Missing(texts);
  return missing.isEmpty() ||
         instance_.Ask.MsgBox(missing + u'\n' + instance_.Text(TextNumber::TakeScript),
                              Buttons::NoYes, Icon::Exclamation) == Answer::Yes;
}

}  // namespace nira
