// SPDX-License-Identifier: Apache-2.0
#include "line/TransferJobs.h"

#include "files/CamLines.h"
#include "files/CamWords.h"
#include "files/LineReader.h"
#include "ground/Text.h"
#include "line/FaultText.h"
#include "line/SerialLink.h"
#include "line/Timings.h"
#include "line/WireFunctions.h"
#include "line/WorkFile.h"
#include "messages/MessageFile.h"

#include <algorithm>

namespace nira {

namespace {

constexpr int wholeFile = 255;  // messages

/// The record of a message line: its number and its text.
std::string MessageRecord(std::string_view line) {
  const std::string_view text = QuotedBytes(line).value_or(std::string_view());
  return "N" + ZeroFill(NumberInLine(line), 3) + '"' + std::string(text) + "\"\r";
}

/// "5, 7-9": numbers in their order, the first of them when there are many.
QString Runs(const std::vector<int>& numbers) {
  constexpr qsizetype most = 20;
  QStringList runs;
  for (std::size_t first = 0; first < numbers.size();) {
    std::size_t last = first;
    while (last + 1 < numbers.size() && numbers[last + 1] == numbers[last] + 1) ++last;
    const QString end = last > first ? u'-' + QString::number(numbers[last]) : QString();
    runs.append(runs.size() == most ? QStringLiteral("...")
                                    : QString::number(numbers[first]) + end);
    if (runs.size() > most) break;
    first = last + 1;
  }
  return runs.join(QStringLiteral(", "));
}

/// Bytes that a record puts on the line: with STX, ETX, checksum and the acknowledgement.
std::int64_t OnLine(std::string_view record) {
  return static_cast<std::int64_t>(record.size()) + 4;
}

QByteArray Raw(std::string_view text) {
  return {text.data(), static_cast<qsizetype>(text.size())};
}

}  // namespace

TransferEnd TransferJobs::Run(const Job& job) {
  SerialLink link(comm_);
  if (!link.OpenPort()) return TransferEnd::PortError;
  try {
    comm_.Port.DiscardInput();
    report_.Title(QStringLiteral("NIRA QX-") + QString::number(comm_.Program.NumCams()) +
                  QStringLiteral("   360"));
    percent_ = 0;
    report_.Progress(percent_);
    return Dispatch(job);
  } catch (const SerialError& error) {
    link.Report(error);
    return TransferEnd::PortError;
  }
}

TransferEnd TransferJobs::Dispatch(const Job& job) {
  const std::string_view code = job.JobCode;
  if (code == Job::SendSizes) return RunSendSizes();
  if (code == Job::ReceiveSizes) return RunReceiveSizes(*job.Into);
  if (code == Job::SendMessages) return RunSendMessages(job.File);
  if (code == Job::ReceiveMessages) return RunReceiveMessages(*job.Into);
  return TransferEnd::Done;
}

void TransferJobs::Progress(std::int64_t part, std::int64_t whole) {
  meter_.Item(part);
  const int percent = static_cast<int>(std::clamp<std::int64_t>(part * 100 / whole, 0, 100));
  if (percent == percent_) return;
  percent_ = percent;
  report_.Progress(percent);
}

void TransferJobs::Item(TextNumber text, const QString& item) {
  report_.Label2(comm_.Text(text) + item);
}

TransferEnd TransferJobs::RunSendSizes() {
  report_.Label1(QStringLiteral("TRASMISSIONE IN CORSO"));
  comm_.Port.Handshaking(SerialControl::HandshakeNone);
  comm_.Port.InputLen(SerialControl::AllInput);
  const std::vector<std::string> functions = FunctionsRecords(comm_.Program);
  Expect(functions);
  wire_.SendCommand(Job::SendSizes);
  comm_.Time.Pause(Timings::AfterCommand, Yield::Painting);
  for (const std::string& record : functions) SendRecord(record);
  const int sizes = comm_.Program.NumSizes();
  for (int size = 1; size <= sizes; ++size) {
    Item(TextNumber::SendingSize, QString::number(size));
    Progress(size, sizes);
    SendSize(size);
  }
  SendRecord(EndWord);
  return end_;
}

/// Counts what is going to be sent, before the programmer waits for it.
void TransferJobs::Expect(const std::vector<std::string>& functions) {
  const CamProgram& program = comm_.Program;
  toSend_ = OnLine(EndWord);
  for (const std::string& record : functions) toSend_ += OnLine(record);
  for (int size = 1; size <= program.NumSizes(); ++size) {
    toSend_ += OnLine("F00");
    for (int cam = 0; cam < program.NumCams(); ++cam) {
      for (const std::string& line : BuildCamLines(program, size, cam, true)) {
        if (line.empty()) break;
        toSend_ += OnLine(line);
      }
    }
  }
  constexpr double bitsOfByte = 10;
  const double onLine =
      static_cast<double>(toSend_) * bitsOfByte * 1000 / std::max(comm_.Settings.BaudRate, 1);
  meter_.Begin(true, program.NumSizes(),
               onLine + Timings::AfterCommand + program.NumSizes() * Timings::AfterSizeHeader);
}

/// A record without an answer does not stop the job; its end says that there was one.
void TransferJobs::SendRecord(std::string_view record) {
  if (!wire_.SendFrame(record)) end_ = TransferEnd::TimedOut;
  sent_ += OnLine(record);
  meter_.Frame(static_cast<double>(sent_) / static_cast<double>(toSend_));
}

void TransferJobs::SendSize(int size) {
  SendRecord("F" + ZeroFill(size, 2));
  comm_.Time.Pause(Timings::AfterSizeHeader, Yield::Painting);
  for (int cam = 0; cam < comm_.Program.NumCams(); ++cam) {
    for (const std::string& line : BuildCamLines(comm_.Program, size, cam, true)) {
      if (line.empty()) break;
      SendRecord(line);
    }
  }
}

TransferEnd TransferJobs::RunReceiveSizes(WorkFile& file) {
  report_.Label1(QStringLiteral("RICEZIONE IN CORSO"));
  if (!Write(file.Create())) return end_;
  comm_.Port.DiscardInput();
  comm_.Port.Handshaking(SerialControl::HandshakeNone);
  comm_.Port.InputLen(SerialControl::OneCharacter);
  meter_.Begin(true, comm_.Program.NumSizes(), 0);
  wire_.SendCommand(Job::ReceiveSizes);
  comm_.Time.Pause(Timings::AfterCommand, Yield::Painting);
  while (true) {
    const std::string record = wire_.ReceiveFrame();
    if (record.empty()) return Broken();
    if (record.find(SizeWords) != std::string::npos) {
      Item(TextNumber::Receiving, FromBytes(record));
      Progress(NumericValue(Tail(record, 2)), comm_.Program.NumSizes());
    }
    meter_.Frame();
    if (!Write(file.Add(record))) return end_;
    if (record == EndWord) return TransferEnd::Done;
  }
}

/// A reception that cannot go on.
TransferEnd TransferJobs::Broken() {
  comm_.Ask.MsgBox(QStringLiteral("TIMEOUT SERIAL PORT "), Buttons::Ok, Icon::None);
  SerialLink(comm_).ClosePort();
  return TransferEnd::TimedOut;
}

TransferEnd TransferJobs::RunSendMessages(const QString& path) {
  report_.Label1(comm_.Text(TextNumber::SendingMessages));
  report_.Label2({});
  LineReader lines(path);
  if (!lines.IsOpen()) {
    return TellFault(comm_, *lines.Failure());
  }
  auto line = lines.Next();
  if (!line || !line->starts_with('N') || lines.Overlong()) {
    TellBadFile();
    return TransferEnd::BadFile;
  }
  meter_.Begin(false, wholeFile, 0);
  wire_.SendCommand(Job::SendMessages);
  comm_.Time.Pause(Timings::AfterCommand, Yield::Painting);
  while (line && !lines.Overlong() && SendMessageLine(*line)) line = lines.Next();
  if (lines.Overlong() || lines.Failure()) {
    TellBadFile();  // the programmer still gets the end that it waits for
    end_ = TransferEnd::BadFile;
  }
  comm_.Time.Pause(Timings::BeforeEnd, Yield::Painting);
  comm_.Port.Output(Raw(EndWord) + '\r');
  return end_;
}

/// Sends the message of a line; false at the line that ends the file.
bool TransferJobs::SendMessageLine(std::string_view line) {
  if (line.starts_with(EndWord)) return false;
  comm_.Port.Output(Raw(MessageRecord(line)));
  Progress(NumberInLine(line), wholeFile);
  meter_.Frame();
  return true;
}

TransferEnd TransferJobs::RunReceiveMessages(WorkFile& file) {
  report_.Label1(comm_.Text(TextNumber::ReceivingMessages));
  if (!Write(file.Create())) return end_;
  comm_.Port.DiscardInput();
  comm_.Port.Handshaking(SerialControl::HandshakeNone);
  comm_.Port.InputLen(SerialControl::OneCharacter);
  const int messages = comm_.Program.NumMessages();
  meter_.Begin(false, messages, 0);
  wire_.SendCommand(Job::ReceiveMessages);
  comm_.Time.Pause(Timings::AfterReceiveMessages, Yield::Painting);
  std::vector<int> missing;
  for (int number = 1;; ++number) {
    const std::string record = wire_.ReceiveFrame();
    if (record.empty() && number <= messages) missing.push_back(number);
    if (record.find("N ") != std::string::npos) {
      Item(TextNumber::Receiving, FromBytes(std::string_view(record).substr(2, 3)));
      Progress(NumberInLine(record.substr(0, 5)), messages);
    }
    meter_.Frame();
    if (!Write(file.Add(record))) return end_;
    if (record == EndWord) return missing.empty() ? TransferEnd::Done : TellMissing(missing);
  }
}

/// A record that came damaged or too late is an empty line of the file, at the place of its
/// message.
TransferEnd TransferJobs::TellMissing(const std::vector<int>& missing) {
  comm_.Ask.MsgBox(comm_.Text(TextNumber::MessagesNotReceived) + Runs(missing), Buttons::Ok,
                   Icon::Exclamation);
  return TransferEnd::Incomplete;
}

/// True when the work file took what it was to take; otherwise that is told and `end_` says why.
bool TransferJobs::Write(const Refusal& refusal) {
  if (!refusal) return true;
  const bool full = refusal->What == Fault::Kind::TooLarge;
  end_ = full ? Broken() : TellFault(comm_, *refusal);
  return false;
}

void TransferJobs::TellBadFile() {
  comm_.Ask.MsgBox(comm_.Text(TextNumber::BadFile), Buttons::Ok, Icon::Critical);
}

}  // namespace nira
