// SPDX-License-Identifier: Apache-2.0
#include "files/ScriptFile.h"

namespace nira {

bool ReadScript(MessageTable& texts, const WorkingFolder& folder, const Globals& globals,
                Prompts& prompts) {
  if (!globals.ScriptFile.isEmpty() && texts.Read(folder.Find(globals.ScriptFile))) return true;
  prompts.MsgBox(
      QStringLiteral(" FILE '\"") + globals.ScriptFile + QStringLiteral("\"' IS NOT AVAILABLE"),
      Buttons::Ok, Icon::Critical, QStringLiteral("UNRECOV. DEF.FILE ERROR"));
  return false;
}

}  // namespace nira
