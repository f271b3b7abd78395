// SPDX-License-Identifier: Apache-2.0
#include "files/ScriptFile.h"

#include "files/MessageTable.h"
#include "files/WorkingFolder.h"

#include <QFileInfo>

namespace nira {

Refusal ReadScript(MessageTable& texts, const WorkingFolder& folder, const QString& script) {
  for (const QString& name : {script, QFileInfo(script).fileName()}) {
    if (!name.isEmpty() && texts.Read(folder.Find(name))) return std::nullopt;
  }
  return Fault{.What = Fault::Kind::Missing, .Path = script};
}

}  // namespace nira
