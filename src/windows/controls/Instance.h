#pragma once

#include "dialogs/clsCommonDialog.h"
#include "files/FileWriter.h"
#include "files/MessageTable.h"
#include "files/WorkingFolder.h"
#include "ground/Prompts.h"
#include "model/CamProgram.h"
#include "model/Globals.h"

namespace nira {

/// The one running instance: its state and what its windows work with. Made in `main`, handed down
/// by reference; a test makes its own.
struct Instance {
  CamProgram& Program;
  Globals& Settings;
  MessageTable& Texts;
  FileWriter& Writer;
  const WorkingFolder& Folder;
  Prompts& Ask;
  clsCommonDialog& Dialog;

  const QString& Text(TextNumber number) const { return Texts.Text(number); }
};

}  // namespace nira
