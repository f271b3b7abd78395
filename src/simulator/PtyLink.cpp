// SPDX-License-Identifier: Apache-2.0
#include "PtyLink.h"

#include "line/SimulatedMark.h"

#include <QFile>
#include <QFileInfo>
#include <QThread>

namespace nira {

namespace {

/// Bytes on the way to the programmer beyond which no more are read: a tool that writes without end
/// has to wait, as it has at a port.
constexpr std::size_t maxUnsent = 4096;

/// What was sent just before the device is closed may get lost otherwise.
constexpr unsigned long closingPause = 200;  // ms

constexpr int lockPatience = 1000;  // ms; a tool that looks at the mark holds it for a moment

}  // namespace

PtyLink::PtyLink(Programmer& programmer, const QString& link, QObject* parent)
    : QObject(parent),
      programmer_(programmer),
      line_(programmer),
      link_(link),
      mark_(SimulatedMark(link)) {
  mark_.setStaleLockTime(0);
  replug_.setSingleShot(true);
  connect(&replug_, &QTimer::timeout, this, &PtyLink::PlugIn);
  connect(&written_, &QSocketNotifier::activated, this, &PtyLink::Read);
  connect(&due_, &QSocketNotifier::activated, this, [this] {
    timer_.Acknowledge();
    Woken();
    Advance();
  });
}

PtyLink::~PtyLink() {
  Close();
}

QString PtyLink::Open() {
  QString reason = LockLink();
  if (!reason.isEmpty()) return reason;
  reason = OpenDevice();
  if (!reason.isEmpty()) Close();
  return reason;
}

QString PtyLink::LockLink() {
  leftOver_ = QFileInfo::exists(SimulatedMark(link_));
  if (mark_.tryLock(lockPatience)) return {};
  if (mark_.error() == QLockFile::LockFailedError) {
    return QStringLiteral("another simulated programmer is on ") + link_;
  }
  return QStringLiteral("no file can be made beside ") + link_;
}

QString PtyLink::OpenDevice() {
  QString reason = terminal_.Open();
  if (reason.isEmpty()) reason = PointLink();
  if (!reason.isEmpty()) return reason;
  attended_ = false;
  terminal_.HoldOpen();
  written_.setSocket(terminal_.Descriptor());
  written_.setEnabled(true);
  due_.setSocket(timer_.Descriptor());
  due_.setEnabled(true);
  return {};
}

/// Only what is certainly a former simulator's link, or points nowhere, is replaced. One that
/// points here pointed nowhere before: the system gives the names of devices that are gone again.
QString PtyLink::PointLink() {
  const QFileInfo there(link_);
  const bool dead = !there.exists() || there.symLinkTarget() == Device();
  if (there.isSymLink() && (leftOver_ || dead)) QFile::remove(link_);
  leftOver_ = false;
  QFile device(terminal_.Device());
  return device.link(link_) ? QString()
                            : QString(link_ + QStringLiteral(": ") + device.errorString());
}

void PtyLink::RemoveLink() {
  if (Device().isEmpty()) return;
  const QFileInfo there(link_);
  if (there.isSymLink() && there.symLinkTarget() == Device()) QFile::remove(link_);
}

void PtyLink::CloseDevice() {
  RemoveLink();
  written_.setEnabled(false);
  due_.setEnabled(false);
  timer_.Disarm();
  terminal_.Close();
}

void PtyLink::Close() {
  if (attended_ && terminal_.Read()) QThread::msleep(closingPause);
  attended_ = false;
  CloseDevice();
  replug_.stop();
  mark_.unlock();
}

void PtyLink::Read() {
  const auto bytes = terminal_.Read();
  if (!bytes) {
    ToolHasClosed();
    return;
  }
  if (bytes->empty()) return;
  if (!attended_) terminal_.LetGo();  // so that its closing shows
  attended_ = true;
  line_.SetBaud(fixedBaud_.value_or(terminal_.Baud().value_or(line_.Baud())));
  line_.Write(*bytes, WrittenAt(LineTimer::Now()));
  Advance();
}

void PtyLink::Advance() {
  if (Device().isEmpty()) return;
  const std::string bytes = line_.RunUntil(LineTimer::Now());
  if (programmer_.IsUnplugged()) {
    Unplug();
    return;
  }
  if (attended_ && !bytes.empty()) {
    terminal_.Write(bytes);
    Told(programmer_.Sent().LastArrival());
  }
  written_.setEnabled(line_.Unsent() < maxUnsent);
  if (const auto next = line_.NextEvent()) timer_.Arm(WakeFor(*next));
}

/// The programmer stays as it is: the wire does not tell it that nobody listens any more.
void PtyLink::ToolHasClosed() {
  attended_ = false;
  if (terminal_.HoldOpen()) return;
  // A tool that died may have left the device locked: nobody could open it again.
  CloseDevice();
  const QString reason = OpenDevice();
  if (!reason.isEmpty()) Q_EMIT Failed(reason);
}

void PtyLink::Unplug() {
  attended_ = false;
  line_.DiscardWritten();
  CloseDevice();
  replug_.start(UnpluggedTime);
  Q_EMIT Unplugged();
}

void PtyLink::PlugIn() {
  programmer_.PlugIn();
  const QString reason = OpenDevice();
  if (reason.isEmpty()) {
    Q_EMIT PluggedIn();
  } else {
    Q_EMIT Failed(reason);
  }
}

}  // namespace nira
