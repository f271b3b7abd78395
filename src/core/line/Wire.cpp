// SPDX-License-Identifier: Apache-2.0
#include "line/Wire.h"

#include "ground/Text.h"
#include "line/Checksum.h"
#include "line/SerialLink.h"
#include "line/Timings.h"

#include <algorithm>

namespace nira {

namespace {

constexpr auto nowhere = std::string::npos;

/// Bytes of a frame that are missing, as far as its beginning tells: most records are phases or a
/// cam, " 350 010" and "C 01", all end with ETX and checksum. A shorter one is noticed a few bytes
/// late, and nothing else; at the end of a long one a byte counts for little.
int Missing(std::string_view frame) {
  constexpr std::size_t phase = 11;
  constexpr std::size_t cam = 7;
  constexpr std::size_t isLong = 20;
  const std::size_t ending = frame.size() < isLong ? 2 : 3;
  const std::size_t usual = frame.size() > 1 && frame[1] == ' ' ? phase : cam;
  return static_cast<int>(frame.size() + ending < usual ? usual - frame.size() : ending);
}

QByteArray Bytes(std::string_view text) {
  return {text.data(), static_cast<qsizetype>(text.size())};
}

/// The record between STX and ETX with its checksum. A control character of the frame itself inside
/// the record would end it too early: it goes out as a blank.
std::string Framed(std::string_view record) {
  std::string frame(record);
  std::replace_if(
      frame.begin(), frame.end(), [](char c) { return c == Codes::Stx || c == Codes::Etx; }, ' ');
  frame = Codes::Stx + frame + Codes::Etx;
  return frame + FrameChecksum(frame);
}

std::string Trimmed(std::string_view text) {
  const std::size_t first = std::min(text.find_first_not_of(' '), text.size());
  text.remove_prefix(first);
  return std::string(text.substr(0, text.find_last_not_of(' ') + 1));
}

}  // namespace

QString ShownAnswer(std::string_view answer) {
  constexpr std::size_t most = 80;
  return FromBytes(answer.substr(0, most)).trimmed();
}

void Wire::SendCommand(std::string_view command) {
  std::string bytes(command);
  bytes += CommandChecksum(command);
  bytes += '\r';
  comm_.Port.Output(Bytes(bytes));
}

bool Wire::SendFrame(std::string_view record) {
  const QByteArray frame = Bytes(Framed(record));
  comm_.Port.DiscardInput();
  while (true) {
    comm_.Port.Output(frame);
    if (!comm_.Port.WaitForInput(comm_.Time.Now() + Timings::FrameReply, Yield::Painting)) {
      comm_.Ask.MsgBox(QStringLiteral("TIMEOUT SERIAL PORT "), Buttons::Ok, Icon::None);
      return false;
    }
    if (comm_.Port.Input().startsWith(Codes::Ack)) return true;
  }
}

std::string Wire::ReceiveFrame() {
  std::string frame;
  std::size_t etx = nowhere;
  comm_.Port.RThreshold(Missing(frame));
  while (comm_.Port.WaitForInput(comm_.Time.Now() + Timings::FrameReply, Yield::Painting)) {
    while (comm_.Port.InBufferCount() > 0) {
      const QByteArray bytes = comm_.Port.Input();
      frame.append(bytes.constData(), static_cast<std::size_t>(bytes.size()));
      if (etx == nowhere) {
        etx = frame.find(Codes::Etx, frame.size() - static_cast<std::size_t>(bytes.size()));
      }
      comm_.Port.RThreshold(etx == nowhere ? Missing(frame) : 1);
      const bool complete = etx != nowhere && frame.size() > etx + 1;
      if (complete || frame.size() > Longest) return Acknowledged(frame, etx);
    }
  }
  comm_.Port.RThreshold(1);
  return {};
}

/// Sends the acknowledgement; the record of the frame when all of it is right.
std::string Wire::Acknowledged(std::string_view frame, std::size_t etx) {
  comm_.Port.RThreshold(1);
  comm_.Port.DiscardOutput();
  comm_.Port.Output(QByteArray(1, Codes::Ack));
  const bool whole = etx != nowhere && frame.size() > etx + 1 && frame.front() == Codes::Stx;
  if (!whole || frame[etx + 1] != FrameChecksum(frame)) return {};
  const std::string_view record = frame.substr(1, etx - 1);
  // A record becomes one line of a file: a line feed in it would make two.
  return record.find('\n') == nowhere ? std::string(record) : std::string();
}

Reply Wire::Query(std::string_view command, Buttons buttons) {
  Reply reply;
  if (!SerialLink(comm_).OpenPort()) {
    reply.Ended = Reply::End::NotOpened;
    return reply;
  }
  comm_.Time.Pause(Timings::AfterOpening, Yield::Painting);
  SendCommand(command);
  if (ReadLine(reply.Text)) {
    reply.Ended = Reply::End::Answered;
    reply.Text = Trimmed(reply.Text);
  } else {
    reply.Text.clear();
    reply.Said = TellNoAnswer(buttons);
  }
  return reply;
}

/// Collects what comes until it holds a line end; false when that takes too long. Bytes without end
/// are read and dropped.
bool Wire::ReadLine(std::string& line) {
  const std::int64_t deadline = comm_.Time.Now() + Timings::LineReply;
  while (comm_.Time.Now() < deadline && comm_.Port.WaitForInput(deadline, Yield::Events)) {
    const QByteArray bytes = comm_.Port.Input();
    if (line.size() > Longest) continue;
    line.append(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    if (line.find_first_of("\r\n") == nowhere) continue;
    if (line.back() == '\r') TakeLineFeed(line);
    return true;
  }
  return false;
}

/// The LF after a CR is still on the line. Left there it would be the whole of the next reply, or
/// stand before the next frame.
void Wire::TakeLineFeed(std::string& line) {
  if (!comm_.Port.WaitForInput(comm_.Time.Now() + Timings::LineFeed, Yield::Events)) return;
  const QByteArray rest = comm_.Port.Input();
  line.append(rest.constData(), static_cast<std::size_t>(rest.size()));
}

Answer Wire::TellNoAnswer(Buttons buttons, std::string_view answer) {
  SerialLink link(comm_);
  QString text = QStringLiteral("    Errore su Porta ") + link.PortName() +
                 QStringLiteral("\rVerificare le connessioni");
  if (!answer.empty()) {
    text += u'\r' + comm_.Text(TextNumber::ProgrammerAnswered) + ShownAnswer(answer);
  }
  if (const QString holder = comm_.Port.OtherHolder(); !holder.isEmpty()) {
    text += u'\r' + comm_.Text(TextNumber::CloseOther) + QStringLiteral(": ") + holder;
  }
  const Answer said = comm_.Ask.MsgBox(text, buttons, Icon::Critical);
  link.ClosePort();
  return said;
}

}  // namespace nira
