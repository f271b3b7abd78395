// SPDX-License-Identifier: Apache-2.0
#include "Pseudoterminal.h"

#include <QFile>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <system_error>
#include <termios.h>
#include <unistd.h>
#include <utility>

namespace nira {

namespace {

constexpr std::array<std::pair<speed_t, int>, 8> speeds = {{{B300, 300},
                                                            {B600, 600},
                                                            {B1200, 1200},
                                                            {B2400, 2400},
                                                            {B4800, 4800},
                                                            {B9600, 9600},
                                                            {B19200, 19200},
                                                            {B38400, 38400}}};

QString SystemReason() {
  return QString::fromStdString(std::generic_category().message(errno));
}

void CloseDescriptor(int& descriptor) {
  if (descriptor >= 0) ::close(descriptor);
  descriptor = -1;
}

/// Bytes pass unchanged, and none is echoed, even before the tool has set its port up.
void MakeRaw(int descriptor) {
  termios settings{};
  if (::tcgetattr(descriptor, &settings) != 0) return;
  ::cfmakeraw(&settings);
  ::tcsetattr(descriptor, TCSANOW, &settings);
}

}  // namespace

QString Pseudoterminal::Open() {
  Close();
  near_ = ::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
  std::array<char, 128> name{};
  if (near_ < 0 || ::grantpt(near_) != 0 || ::unlockpt(near_) != 0 ||
      ::ptsname_r(near_, name.data(), name.size()) != 0) {
    const QString reason = SystemReason();
    Close();
    return reason;
  }
  device_ = QFile::decodeName(name.data());
  MakeRaw(near_);
  return {};
}

void Pseudoterminal::Close() {
  LetGo();
  CloseDescriptor(near_);
  device_.clear();
}

std::optional<std::string> Pseudoterminal::Read() {
  std::array<char, 4096> buffer{};
  const ssize_t got = ::read(near_, buffer.data(), buffer.size());
  if (got >= 0) return std::string(buffer.data(), static_cast<std::size_t>(got));
  const bool nothingYet = errno == EAGAIN || errno == EINTR;
  return nothingYet ? std::optional(std::string()) : std::nullopt;
}

void Pseudoterminal::Write(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(near_, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
}

bool Pseudoterminal::HoldOpen() {
  if (far_ < 0)
    far_ = ::open(QFile::encodeName(device_).constData(), O_RDWR | O_NOCTTY | O_CLOEXEC);
  return far_ >= 0 && ::tcflush(far_, TCIFLUSH) == 0;
}

void Pseudoterminal::LetGo() {
  CloseDescriptor(far_);
}

std::optional<int> Pseudoterminal::Baud() const {
  termios settings{};
  if (::tcgetattr(near_, &settings) != 0) return std::nullopt;
  const speed_t speed = ::cfgetospeed(&settings);
  for (const auto& [code, baud] : speeds) {
    if (code == speed) return baud;
  }
  return std::nullopt;
}

}  // namespace nira
