// SPDX-License-Identifier: Apache-2.0
#include "line/TransferJobs.h"

#include "files/CamLines.h"
#include "files/CamWords.h"
#include "files/LineReader.h"
#include "ground/Text.h"
#include "line/SerialLink.h"
#include "line/Timings.h"
#include "line/WireFunctions.h"
#include "messages/MessageFile.h"

#include <QDir>

#include <algorithm>

namespace nira {

namespace {

constexpr std::string_view endRecord = "END";
constexpr std::size_t numberAt = 2;  // where the number of a message stands in its line, from 0

std::string_view From(std::string_view text, std::size_t position) {
  return text.substr(std::min(position, text.size()));
}

/// The record of a message line: its number and the text between its first quote and its end.
std::string MessageRecord(std::string_view line) {
  std::string_view text;
  if (const std::size_t quote = line.find('"'); quote != std::string_view::npos) {
    text = line.substr(quote + 1);
    if (!text.empty()) text.remove_suffix(1);
  }
  return "N" + ZeroFill(NumericValue(From(line, numberAt)), 3) + '"' + std::string(text) + "\"\r";
}

QByteArray Raw(std::string_view text) {
  return {text.data(), static_cast<qsizetype>(text.size())};
}

}  // namespace

TransferEnd TransferJobs::Run() {
  SerialLink link(comm_);
  if (!link.OpenPort()) return TransferEnd::PortError;
  try {
    comm_.Port.DiscardInput();
    report_.Title(QStringLiteral("NIRA QX-") + QString::number(comm_.Program.NumCams()) +
                  QStringLiteral("   360"));
    percent_ = 0;
    report_.Progress(percent_);
    return Dispatch();
  } catch (const SerialError& error) {
    link.Report(error);
    return TransferEnd::PortError;
  }
}

TransferEnd TransferJobs::Dispatch() {
  const QString& code = comm_.Settings.JobCode;
  if (code == QLatin1String(SendSizes)) return RunSendSizes();
  if (code == QLatin1String(ReceiveSizes)) return RunReceiveSizes();
  if (code == QLatin1String(SendMessages)) return RunSendMessages();
  if (code == QLatin1String(ReceiveMessages)) return RunReceiveMessages();
  return TransferEnd::Done;
}

void TransferJobs::Progress(std::int64_t part, std::int64_t whole) {
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
  wire_.SendCommand(SendSizes);
  comm_.Time.Pause(Timings::AfterCommand, Yield::Painting);
  for (const std::string& record : FunctionsRecords(comm_.Program)) SendRecord(record);
  const int sizes = comm_.Program.NumSizes();
  for (int size = 1; size <= sizes; ++size) {
    Item(TextNumber::SendingSize, QString::number(size));
    Progress(size, sizes);
    SendSize(size);
  }
  SendRecord(endRecord);
  return end_;
}

/// A record without an answer does not stop the job; its end says that there was one.
void TransferJobs::SendRecord(std::string_view record) {
  if (!wire_.SendFrame(record)) end_ = TransferEnd::TimedOut;
}

void TransferJobs::SendSize(int size) {
  SendRecord("F" + ZeroFill(size, 2));
  comm_.Time.Pause(Timings::AfterSizeHeader, Yield::Painting);
  for (int cam = 0; cam < comm_.Program.NumCams(); ++cam) {
    BuildCamLines(comm_.Program, size, cam, true);
    for (const std::string& line : comm_.Program.LineBuffer) {
      if (line.empty()) break;
      SendRecord(line);
    }
  }
}

TransferEnd TransferJobs::RunReceiveSizes() {
  report_.Label1(QStringLiteral("RICEZIONE IN CORSO"));
  const QString path = QDir(comm_.Folder.Path()).filePath(QString::fromLatin1(WorkFile::Sizes));
  if (!CreateWorkFile(path)) return TransferEnd::NoFile;
  comm_.Port.DiscardInput();
  comm_.Port.Handshaking(SerialControl::HandshakeNone);
  comm_.Port.InputLen(SerialControl::OneCharacter);
  wire_.SendCommand(ReceiveSizes);
  comm_.Time.Pause(Timings::AfterCommand, Yield::Painting);
  while (true) {
    const std::string record = wire_.ReceiveFrame();
    if (record.empty()) return Broken();
    if (record.find(SizeWords) != std::string::npos) {
      Item(TextNumber::Receiving, FromBytes(record));
      Progress(NumericValue(Tail(record, 2)), comm_.Program.NumSizes());
    }
    if (!Write(record)) return end_;
    if (record == endRecord) return TransferEnd::Done;
  }
}

/// A reception that cannot go on.
TransferEnd TransferJobs::Broken() {
  comm_.Ask.MsgBox(QStringLiteral("TIMEOUT SERIAL PORT "), Buttons::Ok, Icon::None);
  SerialLink(comm_).ClosePort();
  return TransferEnd::TimedOut;
}

TransferEnd TransferJobs::RunSendMessages() {
  report_.Label1(comm_.Text(TextNumber::SendingMessages));
  report_.Label2({});
  LineReader lines(JobPath());
  if (!lines.IsOpen()) {
    TellFile(TextNumber::CannotRead, JobPath(), lines.Error());
    return TransferEnd::NoFile;
  }
  auto line = lines.Next();
  if (!line || !line->starts_with('N') || lines.Overlong()) {
    TellBadFile();
    return TransferEnd::BadFile;
  }
  wire_.SendCommand(SendMessages);
  comm_.Time.Pause(Timings::AfterCommand, Yield::Painting);
  while (line && !lines.Overlong() && SendMessageLine(*line)) line = lines.Next();
  if (lines.Overlong() || !lines.Error().isEmpty()) {
    TellBadFile();  // the programmer still gets the end that it waits for
    end_ = TransferEnd::BadFile;
  }
  comm_.Time.Pause(Timings::BeforeEnd, Yield::Painting);
  comm_.Port.Output(Raw(endRecord) + '\r');
  return end_;
}

/// Sends the message of a line; false at the line that ends the file.
bool TransferJobs::SendMessageLine(std::string_view line) {
  if (line.starts_with(endRecord)) return false;
  constexpr int wholeFile = 255;
  comm_.Port.Output(Raw(MessageRecord(line)));
  Progress(NumericValue(From(line, numberAt)), wholeFile);
  return true;
}

TransferEnd TransferJobs::RunReceiveMessages() {
  report_.Label1(comm_.Text(TextNumber::ReceivingMessages));
  if (!KeepOld(JobPath()) || !CreateWorkFile(JobPath())) return TransferEnd::NoFile;
  comm_.Port.DiscardInput();
  comm_.Port.Handshaking(SerialControl::HandshakeNone);
  comm_.Port.InputLen(SerialControl::OneCharacter);
  wire_.SendCommand(ReceiveMessages);
  comm_.Time.Pause(Timings::AfterReceiveMessages, Yield::Painting);
  while (true) {
    const std::string record = wire_.ReceiveFrame();
    if (record.find("N ") != std::string::npos) {
      const std::string_view number = From(record, numberAt).substr(0, 3);
      Item(TextNumber::Receiving, FromBytes(number));
      Progress(NumericValue(number), comm_.Program.NumMessages());
    }
    if (!Write(record)) return end_;
    if (record == endRecord) return TransferEnd::Done;
  }
}

/// A file of the operator's that a reception replaces stays beside it.
bool TransferJobs::KeepOld(const QString& path) {
  if (comm_.Settings.JobFile == QLatin1String(MessageFile::WorkName)) return true;
  const QString reason = comm_.Writer.KeepOld(path);
  if (!reason.isEmpty()) TellFile(TextNumber::CannotWrite, path, reason);
  return reason.isEmpty();
}

bool TransferJobs::CreateWorkFile(const QString& path) {
  const bool created = file_.Create(path);
  if (!created) TellFile(TextNumber::CannotWrite, path, file_.Error());
  return created;
}

/// Adds a record to the file; when that fails it is told and `end_` says why.
bool TransferJobs::Write(std::string_view record) {
  if (file_.Add(record)) return true;
  if (file_.Error().isEmpty()) {
    end_ = Broken();
  } else {
    TellFile(TextNumber::CannotWrite, file_.Path(), file_.Error());
    end_ = TransferEnd::NoFile;
  }
  return false;
}

void TransferJobs::TellFile(TextNumber what, const QString& path, const QString& reason) {
  comm_.Ask.MsgBox(comm_.Text(what) + u'\n' + path + u'\n' + reason, Buttons::Ok, Icon::Critical);
}

void TransferJobs::TellBadFile() {
  comm_.Ask.MsgBox(comm_.Text(TextNumber::BadFile), Buttons::Ok, Icon::Critical);
}

QString TransferJobs::JobPath() const {
  return QDir(comm_.Folder.Path()).filePath(comm_.Settings.JobFile);
}

}  // namespace nira
