// SPDX-License-Identifier: Apache-2.0
#include "Interrupt.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace nira {

namespace {

constexpr std::array signals = {SIGINT, SIGTERM, SIGHUP};

// A signal handler may do no more than write to a pipe and set a flag.
std::array<int, 2> tell = {-1, -1};
volatile std::sig_atomic_t come = 0;

extern "C" void OnSignal(int /*signal*/) {
  come = 1;
  const int kept = errno;
  [[maybe_unused]] const auto written = ::write(tell[1], "!", 1);
  errno = kept;
}

void SetHandler(void (*handler)(int)) {
  struct sigaction action = {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  sigemptyset(&action.sa_mask);
  for (const int signal : signals) sigaction(signal, &action, nullptr);
}

}  // namespace

Interrupt::Interrupt() {
  come = 0;
  if (::pipe(tell.data()) != 0) return;
  for (const int end : tell) {
    ::fcntl(end, F_SETFD, FD_CLOEXEC);
    ::fcntl(end, F_SETFL, O_NONBLOCK);
  }
  told_.setSocket(tell[0]);
  connect(&told_, &QSocketNotifier::activated, this, [this] {
    char byte = 0;
    while (::read(tell[0], &byte, 1) > 0) continue;
    Q_EMIT Caught();
  });
  told_.setEnabled(true);
  SetHandler(OnSignal);
}

bool Interrupt::HasCome() const {
  return come != 0;
}

Interrupt::~Interrupt() {
  SetHandler(SIG_DFL);
  told_.setEnabled(false);
  for (int& end : tell) {
    if (end >= 0) ::close(end);
    end = -1;
  }
}

}  // namespace nira
