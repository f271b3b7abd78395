// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Arguments.h"
#include "Console.h"
#include "Interrupt.h"
#include "LinePort.h"
#include "LineProgress.h"
#include "LineTrace.h"
#include "line/Comm.h"
#include "line/PortNames.h"

#include <QTemporaryDir>

#include <functional>
#include <optional>

namespace nira {

// The options of the commands that talk to a programmer.
inline constexpr Option PortOption = {"port", Option::Kind::Text, "N|DEVICE",
                                      "number of the port (see `ports`), or its device; otherwise "
                                      "the port of the options file, or 1"};
inline constexpr Option BaudOption = {"baud", Option::Kind::Number, "N",
                                      "300, 600, 1200, 2400, 9600 or 19200; otherwise the speed of "
                                      "the options file, or 9600"};
inline constexpr Option TraceOption = {"trace", Option::Kind::Text, "FILE",
                                       "write every byte of the line there, with its time"};

/// Why nothing was sent to a programmer that is not ready.
inline constexpr const char* NotReadyReason =
    "the programmer does not hold the CTS line: it is switched off, or the cable lacks that wire";

/// Why the port or the speed cannot be; empty when they can.
QString LineFault(const Arguments& arguments);

/// Messages and questions of an exchange: a bar that is being drawn makes room for them.
class LinePrompts : public Prompts {
 public:
  LinePrompts(Prompts& prompts, LineProgress& progress) : prompts_(prompts), progress_(progress) {}

  Answer MsgBox(const QString& text, Buttons buttons, Icon icon, const QString& title) override {
    progress_.Break();
    return prompts_.MsgBox(text, buttons, icon, title);
  }
  std::optional<QString> InputBox(const QString& prompt, const QString& preset,
                                  const QString& title) override {
    progress_.Break();
    return prompts_.InputBox(prompt, preset, title);
  }

 private:
  Prompts& prompts_;
  LineProgress& progress_;
};

/// What a command of kplctl needs to talk to a programmer: the port that its options name, a
/// program, where it shows how far it is, the trace, and an orderly end at Ctrl+C.
class LineSession {
 public:
  /// The working folder gives the options file, when it has one. The work files stand in a folder
  /// that no other command shares.
  LineSession(Console& console, const Arguments& arguments, const WorkingFolder& folder,
              PortNames& names, SerialControl& port, Clock& clock);

  /// Runs an exchange and closes the port. None when it is `Done`; otherwise why it is not, for the
  /// end of a line. Nothing is done when the trace cannot be begun.
  std::optional<QString> Run(const std::function<TransferEnd()>& exchange);

  /// Ends the trace; false, after a line about it, when something is missing in it.
  bool EndTrace();

  /// Prints a line about a file, unless it is empty.
  void Remark(const QString& file, const QString& text);

  /// True when a file can be written there; otherwise that is told.
  bool CanWrite(const QString& file);

  /// What came was taken over but could not be written to the file: the work file of that name is
  /// kept, and told.
  void KeepReceived(const QString& file, const char* name);

  Console& Terminal() { return console_; }
  Comm& Line() { return comm_; }
  TransferReport& Report() { return progress_; }
  CamProgram Program;
  Globals Settings;

 private:
  void ChoosePort(PortNames& names);
  bool IsOwn(const QString& path) const;
  QString BeginTrace();
  std::optional<QString> Closed(const std::function<TransferEnd()>& exchange);
  QString Reason(TransferEnd end) const;
  void TellPort();

  Console& console_;
  const Arguments& arguments_;
  const WorkingFolder& folder_;
  Interrupt interrupt_;
  QTemporaryDir private_;
  WorkingFolder work_;
  LineTrace trace_;
  LineProgress progress_;
  LinePrompts prompts_;
  LinePort port_;
  Comm comm_;
  bool told_ = false;
};

/// Runs a command's work on the machine's own port, in the current folder, and returns the exit
/// status.
int OnLine(Console& console, const Arguments& arguments,
           const std::function<int(LineSession&)>& work);

}  // namespace nira
