// SPDX-License-Identifier: Apache-2.0
#include "line/FlashUpdate.h"

#include "line/Checksum.h"
#include "line/FaultText.h"
#include "line/SerialLink.h"
#include "line/Timings.h"

#include <QFileInfo>

#include <algorithm>

namespace nira {

namespace {

constexpr qsizetype digitsOfBytes = 10;

QString Latin(std::string_view text) {
  return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

/// The text with the number in the blanks before `word`, two blanks away from it.
QString Filled(const QString& text, const QString& word, std::int64_t number) {
  const qsizetype end = text.indexOf(word);
  qsizetype start = end;
  while (start > 0 && text.at(start - 1) == u' ') --start;
  const QString digits = QString::number(number).rightJustified(end - start - 2);
  return text.left(start) + digits + QStringLiteral("  ") + text.mid(end);
}

}  // namespace

FlashUpdate::FlashUpdate(Comm& comm, FlashReport& report, const QString& path)
    : comm_(comm), report_(report), path_(path), file_(path) {}

TransferEnd FlashUpdate::Run() {
  const CommLock lock(comm_);
  if (!lock.Taken()) return TransferEnd::Busy;
  SerialLink link(comm_);
  TransferEnd end = Test();
  try {
    if (end == TransferEnd::Done) end = Update();
  } catch (const SerialError& error) {
    link.Report(error);
    return TransferEnd::PortError;
  }
  link.ClosePort();
  return end;
}

TransferEnd FlashUpdate::Test() {
  if (!file_.IsOpen()) return TellUnreadable();
  report_.Show(FlashLine::File, QStringLiteral("WORKING FILE =") + QFileInfo(path_).fileName());
  constexpr int linesBetweenLooks = 256;  // at the clock
  std::int64_t shown = comm_.Time.Now();
  while (const HexLine* line = file_.Next()) {
    if (line->Found != HexLine::Fault::None) {
      ShowTested(line->Number);
      return TellFault(*line);
    }
    if (lines_.size() + line->Text.size() >= MostText) return TellTooLarge();
    lines_.append(line->Text) += '\r';
    if (line->Number % linesBetweenLooks == 0 && comm_.Time.Now() - shown >= Clock::Slice) {
      ShowTested(line->Number);
      comm_.Time.Pause(1, Yield::Painting);
      shown = comm_.Time.Now();
    }
  }
  ShowTested(file_.Totals().Lines);
  if (file_.Failure()) return TellUnreadable();
  if (lines_.empty()) return TellUnusable();
  file_.Close();
  ShowFile();
  return TransferEnd::Done;
}

void FlashUpdate::ShowTested(int line) {
  report_.Show(
      FlashLine::Testing,
      Filled(QStringLiteral("Testing Line:            Tot.Bytes:"), QStringLiteral("Tot."), line) +
          QString::number(file_.Totals().Bytes).rightJustified(digitsOfBytes));
}

/// What the tested file holds.
void FlashUpdate::ShowFile() {
  report_.Show(FlashLine::File, QStringLiteral("WORKING FILE =") + QFileInfo(path_).fileName() +
                                    QStringLiteral(" (") + QString::number(file_.Totals().Bytes) +
                                    QStringLiteral(" bytes)"));
  const ProgramIdentity program = file_.Program();
  report_.Show(FlashLine::Program, QStringLiteral(" CRC Prog:  ") + program.Checksum +
                                       QStringLiteral("  Date Prog: ") + program.Date);
  if (file_.Totals().EndRecords == 0) {
    report_.Show(FlashLine::Message, comm_.Text(TextNumber::FlashNoEnd));
  }
}

TransferEnd FlashUpdate::Update() {
  OpenPort();
  if (comm_.Ask.MsgBox(QStringLiteral("UPDATE FLASH ?"), Buttons::NoYes, Icon::Question) !=
          Answer::Yes ||
      !WaitUntilReady()) {
    return TransferEnd::Cancelled;
  }
  const TransferEnd end = Start();
  return end == TransferEnd::Done ? Transfer() : end;
}

/// The port of the settings at the speed of the update. One that is open has another speed, and
/// perhaps another number.
void FlashUpdate::OpenPort() {
  SerialControl& port = comm_.Port;
  if (port.PortOpen()) port.PortOpen(false);
  port.CommPort(comm_.Settings.PortNumber);
  port.InBufferSize(SerialLink::InBufferSize);
  port.PortOpen(true);
  port.Settings(LineSettings(Baud));
  port.InputLen(SerialControl::AllInput);
  port.Handshaking(SerialControl::HandshakeRts);
  comm_.Settings.PortErrorFlag = 0;
}

/// False when the operator gives up.
bool FlashUpdate::WaitUntilReady() {
  while (true) {
    const bool ready = comm_.Port.CTSHolding();
    report_.Ready(ready);
    if (ready) return true;
    if (comm_.Ask.MsgBox(QStringLiteral("DEVICE NOT READY"), Buttons::RetryCancel,
                         Icon::Critical) == Answer::Cancel) {
      return false;
    }
  }
}

/// Makes the programmer wait for firmware.
TransferEnd FlashUpdate::Start() {
  comm_.Port.DiscardInput();
  Wire(comm_).SendCommand(Command);
  return WaitFor({&Codes::Ack, 1}) == Codes::Ack ? TransferEnd::Done : TellTimeout();
}

/// Sends first the lines that carry data, then the others, so that the end record goes last.
TransferEnd FlashUpdate::Transfer() {
  if (!SendLines(true) || !SendLines(false)) return TellTimeout();
  Progress();
  report_.Show(FlashLine::Message, QStringLiteral("DEVICE UPDATED WITH  ") + path_);
  comm_.Time.Pause(Timings::FlashEnd, Yield::Events);
  return TransferEnd::Done;
}

/// Sends the lines with data, or those without; false when one is not answered.
bool FlashUpdate::SendLines(bool withData) {
  HexLine line;
  for (std::string_view rest = lines_; !rest.empty(); rest.remove_prefix(line.Text.size() + 1)) {
    line.Text = rest.substr(0, rest.find('\r'));
    ++line.Number;
    if ((line.Bytes() > 0) == withData && !SendLine(line)) return false;
  }
  return true;
}

/// Sends a line until the programmer takes it; false when it does not answer.
bool FlashUpdate::SendLine(const HexLine& line) {
  constexpr char replies[] = {Codes::Ack, Codes::Nak};
  const QByteArray bytes =
      QByteArray(line.Text.data(), static_cast<qsizetype>(line.Text.size())) + '\r';
  sentBytes_ += line.Bytes();
  for (int refused = 0;; ++refused) {
    comm_.Port.DiscardInput();  // a reply that came late or twice is none to this line
    comm_.Port.Output(bytes);
    ShowSent(line, refused);  // while it is on its way: the line never waits for the window
    const char reply = WaitFor({replies, sizeof replies});
    if (reply == Codes::Nak) continue;
    if (reply == Codes::Ack) ++sent_;
    return reply == Codes::Ack;
  }
}

/// The first of these characters that comes in time, 0 when none does. All others are noise.
char FlashUpdate::WaitFor(std::string_view replies) {
  const std::int64_t deadline = comm_.Time.Now() + Timings::FlashReply;
  while (comm_.Time.Now() < deadline && comm_.Port.WaitForInput(deadline, Yield::Painting)) {
    const QByteArray bytes = comm_.Port.Input();
    const auto found =
        std::find_first_of(bytes.begin(), bytes.end(), replies.begin(), replies.end());
    if (found != bytes.end()) return *found;
  }
  return 0;
}

void FlashUpdate::ShowSent(const HexLine& line, int refused) {
  if (refused != refused_) report_.Refused(refused);
  refused_ = refused;
  if (refused > 0) return;
  QString text = QStringLiteral("Transmit Line:         Bytes:          Addr:");
  text = Filled(text, QStringLiteral("Bytes:"), line.Number);
  text = Filled(text, QStringLiteral("Addr:"), sentBytes_);
  report_.Show(FlashLine::Transmit, text + Latin(line.Text.substr(2, 5)) + u'H');
  Progress();
}

void FlashUpdate::Progress() {
  const int percent = static_cast<int>(
      std::min<std::int64_t>(static_cast<std::int64_t>(sent_) * 100 / file_.Totals().Lines, 100));
  if (percent != percent_) report_.Progress(percent);
  percent_ = percent;
}

TransferEnd FlashUpdate::TellFault(const HexLine& line) {
  if (line.Found != HexLine::Fault::NoRecord) {
    report_.Show(FlashLine::Message,
                 QStringLiteral("PARITY ERROR IN LINE ") + QString::number(line.Number));
  }
  return TellUnusable();
}

TransferEnd FlashUpdate::TellTooLarge() {
  report_.Show(FlashLine::Message, comm_.Text(TextNumber::FlashTooLarge));
  return TellUnusable();
}

TransferEnd FlashUpdate::TellUnusable() {
  file_.Close();
  comm_.Ask.MsgBox(QStringLiteral("FILE UNUSABLE"), Buttons::Ok, Icon::Critical);
  return TransferEnd::BadFile;
}

TransferEnd FlashUpdate::TellUnreadable() {
  nira::TellFault(comm_.Ask, comm_.Texts, file_.Failure().value());
  return TransferEnd::NoFile;
}

/// What the programmer did not take never will go out: closing the port need not wait for it.
TransferEnd FlashUpdate::TellTimeout() {
  comm_.Port.DiscardOutput();
  comm_.Ask.MsgBox(QStringLiteral("TIMEOUT SERIAL PORT "), Buttons::Ok, Icon::None);
  return TransferEnd::TimedOut;
}

}  // namespace nira
