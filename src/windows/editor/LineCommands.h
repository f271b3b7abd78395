// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "controls/Instance.h"
#include "line/Job.h"
#include "line/PortNames.h"
#include "line/SizeTransfer.h"

#include <QObject>
#include <QWidget>

#include <functional>

namespace nira {

/// What the main window does on the line to the programmer: the identification at the start, the
/// Communic menu, and the choice of the port. While an exchange goes on the windows that are open
/// take no input.
class LineCommands : public QObject {
  Q_OBJECT

 public:
  LineCommands(Instance& instance, const PortNames& ports, QWidget* window);

  /// Opens the port and takes the limits of the programmer over; a port that does not open and a
  /// programmer that does not answer are passed over. False when it is none that this program
  /// serves.
  bool IdentifyAtStart();

  /// Opens the port of the settings once, as at the start, to see how it stands. Nobody is asked
  /// who he is: the model of the program stays.
  void TryPort();

  void Tr_Siz_Click();
  void Rc_Siz_Click();
  void Msg_Trans_Click();
  void Msg_Rec_Click();
  void Upd_Flash_Click();
  void setcom_Click();

  /// The exchanges of the message editor.
  void TransmitMessages();
  void ReceiveMessages();

 Q_SIGNALS:
  void Began();
  /// An exchange is over: limits and selection may be others. `received`: so is the program.
  void Ended(bool received);
  /// The programmer has the program as it is now: it was `received` from there, or sent.
  void Agreed(bool received);
  void PortChosen();
  /// What was done, or not; empty when the next exchange begins.
  void Note(const QString& text);

 private:
  enum class Moves { Messages, Firmware, ProgramOut, ProgramIn };
  TransferEnd Exchange(Moves what, TextNumber done, const std::function<TransferEnd()>& exchange);
  void TransferSizes(Moves what, TextNumber done,
                     TransferEnd (SizeTransfer::*command)(const JobMonitor&));
  QString EndText(TransferEnd end, TextNumber done) const;
  TransferEnd ShowMonitor(const Job& job);
  QString ChooseMessages(TextNumber title, bool save);

  Instance& instance_;
  const PortNames& ports_;
  QWidget* window_;
};

}  // namespace nira
