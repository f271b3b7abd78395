// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "files/FileWriter.h"
#include "files/MessageTable.h"
#include "files/TextNumbers.h"
#include "files/WorkingFolder.h"
#include "ground/Prompts.h"
#include "line/SerialControl.h"
#include "model/CamProgram.h"
#include "model/Globals.h"

namespace nira {

/// What every exchange with the programmer works with: the line and its clock, the program, and how
/// the operator is told. Made once, beside the rest of the instance.
struct Comm {
  SerialControl& Port;
  Clock& Time;
  CamProgram& Program;
  Globals& Settings;
  MessageTable& Texts;
  FileWriter& Writer;
  const WorkingFolder& Folder;
  Prompts& Ask;

  /// An exchange is going on. A query lets the operator's events through while it waits: whatever
  /// would change the program or use the port then has to look here first.
  bool Busy = false;

  const QString& Text(TextNumber number) const { return Texts.Text(number); }
};

/// Marks an exchange as going on for as long as it stands, unless one was already.
class CommLock {
 public:
  explicit CommLock(Comm& comm) : comm_(comm), taken_(!comm.Busy) { comm_.Busy = true; }
  ~CommLock() { comm_.Busy = comm_.Busy && !taken_; }
  CommLock(const CommLock&) = delete;
  CommLock& operator=(const CommLock&) = delete;

  /// False when another exchange goes on: this one must not begin.
  bool Taken() const { return taken_; }

 private:
  Comm& comm_;
  bool taken_;
};

/// How a job, or the handler around it, ended. All but `Done` and `Busy` were told to the operator,
/// except a programmer that does not hold CTS.
enum class TransferEnd {
  Done,           ///< all of it
  Busy,           ///< another exchange goes on; nothing was done
  PortError,      ///< the port did not open, failed or is gone; `PortErrorFlag` says which
  NotIdentified,  ///< the programmer is none that this program serves
  Cancelled,      ///< the operator's word
  TimedOut,       ///< a record was not acknowledged, or did not come whole
  Incomplete,     ///< messages came, but not all of them; the work file has those that did
  BadFile,        ///< a line of the message file or of what was received is bad
  NoFile,         ///< a file cannot be read or written
};

}  // namespace nira
