// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include <cstdlib>
#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

namespace nira {

/// A pseudo-terminal: the test holds the end of the device, the program opens `Path`.
class TestPty {
 public:
  TestPty() : end_(::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK)) {
    if (end_ < 0 || ::grantpt(end_) != 0 || ::unlockpt(end_) != 0) qFatal("no pseudo-terminal");
    termios settings{};  // no echo of what is sent before the port is open
    if (::tcgetattr(end_, &settings) != 0) qFatal("no terminal");
    ::cfmakeraw(&settings);
    if (::tcsetattr(end_, TCSANOW, &settings) != 0) qFatal("no terminal");
    Path = QString::fromLocal8Bit(::ptsname(end_));
  }
  ~TestPty() { Unplug(); }
  TestPty(const TestPty&) = delete;
  TestPty& operator=(const TestPty&) = delete;

  /// The device goes away with its adapter.
  void Unplug() {
    if (end_ >= 0) ::close(end_);
    end_ = -1;
  }

  /// Sends as much as the system takes.
  void Send(const QByteArray& bytes) const {
    if (::write(end_, bytes.constData(), static_cast<std::size_t>(bytes.size())) < 0) return;
  }

  /// All that has arrived at the device so far.
  QByteArray Arrived() {
    char piece[4096];
    for (ssize_t got = 0; (got = ::read(end_, piece, sizeof piece)) > 0;) {
      arrived_.append(piece, got);
    }
    return arrived_;
  }

  QString Path;

 private:
  int end_;
  QByteArray arrived_;
};

}  // namespace nira
