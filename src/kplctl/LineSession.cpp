// SPDX-License-Identifier: Apache-2.0
#include "LineSession.h"

#include "CamFileAccess.h"
#include "Printable.h"
#include "files/OptionsFile.h"
#include "ground/SystemClock.h"
#include "line/QtSerialControl.h"
#include "line/SerialLink.h"
#include "line/WorkFile.h"
#include "messages/MessageFile.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>

#include <algorithm>

namespace nira {

namespace {

constexpr int highestPort = 255;

/// The number in "3" or "COM3"; none when the text is the name of a device.
std::optional<int> PortNumberOf(const QString& text) {
  static const QRegularExpression numbered(QStringLiteral("^(?:com)?(\\d{1,9})$"),
                                           QRegularExpression::CaseInsensitiveOption);
  const QRegularExpressionMatch match = numbered.match(text);
  return match.hasMatch() ? std::optional(match.captured(1).toInt()) : std::nullopt;
}

/// Two names of one file, which need not exist.
bool SameFile(const QFileInfo& a, const QFileInfo& b) {
  return a.absoluteFilePath() == b.absoluteFilePath() || (a.exists() && b.exists() && a == b);
}

/// Why a file could not be replaced by what will have come; empty when it could.
QString ObstacleAt(const QString& file) {
  const QFileInfo target(file);
  if (target.exists() && !target.isFile()) return QStringLiteral("is not a file");
  if (target.exists() && !target.isReadable()) return QStringLiteral("cannot be kept as .bak");
  QSaveFile probe(file);  // gone again without a commit
  return probe.open(QIODevice::WriteOnly) ? QString() : probe.errorString();
}

}  // namespace

QString LineFault(const Arguments& arguments) {
  if (const auto port = PortNumberOf(arguments.Text("port"));
      port && (*port < 1 || *port > highestPort)) {
    return QStringLiteral("--port: ports are numbered from 1 to ") + QString::number(highestPort);
  }
  const auto baud = arguments.Number("baud");
  if (baud && std::find(LineSpeeds.begin(), LineSpeeds.end(), *baud) == LineSpeeds.end()) {
    return QStringLiteral("--baud %1: the speeds are 300, 600, 1200, 2400, 9600 and 19200")
        .arg(*baud);
  }
  return {};
}

LineSession::LineSession(Console& console, const Arguments& arguments, const WorkingFolder& folder,
                         PortNames& names, SerialControl& port, Clock& clock)
    : console_(console),
      arguments_(arguments),
      folder_(folder),
      work_(private_.path()),
      trace_(clock),
      progress_(console.Err, IsTerminal(console.Err)),
      prompts_(console.Ask, progress_),
      port_(port, clock, trace_, interrupt_),
      comm_{port_, clock, Program, Settings, console.Texts, console.Writer, work_, prompts_} {
  static_cast<Options&>(Settings) = ReadOptions(folder).Settings;
  ChoosePort(names);
  Settings.BaudRate = arguments.Number("baud").value_or(Settings.BaudRate);
  port_.Opened = [this] { TellPort(); };
}

/// A device that stands behind a number is used by that number; another one is port 0.
void LineSession::ChoosePort(PortNames& names) {
  const QString text = arguments_.Text("port");
  if (text.isEmpty()) return;
  if (const auto number = PortNumberOf(text)) {
    Settings.PortNumber = *number;
    return;
  }
  names.NameDevice(text);
  Settings.PortNumber = 0;
  for (int number = PortNames::Ports; number > 0; --number) {
    if (names.Device(number) == names.Device(0)) Settings.PortNumber = number;
  }
}

void LineSession::Remark(const QString& file, const QString& text) {
  if (text.isEmpty()) return;
  console_.Err << Printable(file) << ": " << Printable(text) << Qt::endl;
}

bool LineSession::CanWrite(const QString& file) {
  const QString obstacle = ObstacleAt(file);
  if (!obstacle.isEmpty()) Remark(file, QStringLiteral("cannot be written: ") + obstacle);
  return obstacle.isEmpty();
}

void LineSession::KeepReceived(const QString& file, const char* name) {
  private_.setAutoRemove(false);
  Remark(file, QStringLiteral("what came is kept in ") + work_.Find(QString::fromLatin1(name)));
}

void LineSession::TellPort() {
  if (told_) return;
  told_ = true;
  if (Settings.PortNumber > 0) console_.Err << "COM" << Settings.PortNumber << ' ';
  console_.Err << Printable(port_.DeviceName()) << ", " << Settings.BaudRate << " baud"
               << (port_.IsSimulated() ? ", a simulated programmer" : "") << Qt::endl;
}

/// True for the files that the command names, what is kept of them, and the work files of the
/// windows.
bool LineSession::IsOwn(const QString& path) const {
  QStringList own;
  for (const QString& word : arguments_.Words) own << word << word + QStringLiteral(".bak");
  for (const char* name : {WorkFile::Sizes, MessageFile::WorkName}) {
    own << folder_.Find(QString::fromLatin1(name));
  }
  return std::any_of(own.begin(), own.end(), [&path](const QString& file) {
    return SameFile(QFileInfo(path), QFileInfo(file));
  });
}

/// Begins the trace that was asked for; returns what is in the way. A file is replaced only after
/// asking, and never one that the command itself works with.
QString LineSession::BeginTrace() {
  const QString path = arguments_.Text("trace");
  if (path.isEmpty() || trace_.IsOpen()) return {};
  const QString shown = QStringLiteral("trace ") + path + QStringLiteral(": ");
  if (IsOwn(path)) return QString(shown + QStringLiteral("that is the file of the command itself"));
  if (QFileInfo(path).isFile() && !MayReplace(console_, {}, path)) {
    return QString(shown + QStringLiteral("not replaced"));
  }
  const QString reason = trace_.Open(path);
  return reason.isEmpty() ? QString() : QString(shown + reason);
}

bool LineSession::EndTrace() {
  const QString reason = trace_.Close();
  if (reason.isEmpty()) return true;
  console_.Err << "kplctl: trace " << Printable(arguments_.Text("trace"))
               << ": cannot be written: " << Printable(reason) << Qt::endl;
  return false;
}

std::optional<QString> LineSession::Run(const std::function<TransferEnd()>& exchange) {
  const QString obstacle = BeginTrace();
  if (!obstacle.isEmpty()) return obstacle;
  std::optional<QString> reason = Closed(exchange);
  progress_.Break();
  return reason;
}

/// The exchange with the port closed behind it, however it ended.
std::optional<QString> LineSession::Closed(const std::function<TransferEnd()>& exchange) {
  try {
    const TransferEnd end = exchange();
    const bool closed = SerialLink(comm_).ClosePort();
    if (end == TransferEnd::Done && closed) return std::nullopt;
    return Reason(end == TransferEnd::Done ? TransferEnd::PortError : end);
  } catch (const Interrupted&) {
    progress_.Break();
    SerialLink(comm_).ClosePort();
    return QStringLiteral("interrupted");
  }
}

QString LineSession::Reason(TransferEnd end) const {
  switch (end) {
    case TransferEnd::Done:
      return {};
    case TransferEnd::Busy:
      return QStringLiteral("another exchange goes on");
    case TransferEnd::PortError:
      return Settings.PortErrorFlag == 1 ? QString::fromLatin1(NotReadyReason)
                                         : QStringLiteral("the port failed");
    case TransferEnd::NotIdentified:
      return QStringLiteral("not a programmer that this program serves");
    case TransferEnd::Cancelled:
      return QStringLiteral("no answer, or a question was answered with Cancel (--yes answers OK)");
    case TransferEnd::TimedOut:
      return QStringLiteral("the programmer did not answer, or what it sent was damaged");
    case TransferEnd::Incomplete:
      return QStringLiteral("not all of it came");
    case TransferEnd::BadFile:
      return QStringLiteral("a line of it is bad");
    case TransferEnd::NoFile:
      return QStringLiteral("nothing came, or a file cannot be read or written");
  }
  return {};
}

int OnLine(Console& console, const Arguments& arguments,
           const std::function<int(LineSession&)>& work) {
  const WorkingFolder folder(QDir::currentPath());
  PortNames names(folder);
  SystemClock clock;
  QtSerialControl port(names, console.Texts, clock);
  LineSession session(console, arguments, folder, names, port, clock);
  const int status = work(session);
  return session.EndTrace() ? status : Console::Failed;
}

}  // namespace nira
