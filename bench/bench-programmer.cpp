// SPDX-License-Identifier: Apache-2.0
// The programmer of the measurements on a port, "com1" in the working folder: as punctual as the
// line, so that what is measured is the tool. Its argument is the speed; without one it is the
// tool's.

#include "Measure.h"
#include "PtyLink.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <poll.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace {

using namespace nira;
using namespace nira_bench;

/// How long a byte takes through the system to a program that waits for it, as a rule.
Instant Passage() {
  constexpr int patience = 100;  // ms
  Pseudoterminal terminal;
  if (const QString reason = terminal.Open(); !reason.isEmpty()) Fail(reason);
  const int far = ::open(terminal.Device().toLocal8Bit().constData(), O_RDWR | O_NOCTTY);
  std::array<Instant, 15> times{};
  for (Instant& time : times) {
    std::this_thread::sleep_for(std::chrono::milliseconds(1));  // as idle as between two frames
    const Instant begin = LineTimer::Now();
    terminal.Write({"x", 1});
    pollfd waiting{far, POLLIN, 0};
    char byte = 0;
    if (::poll(&waiting, 1, patience) != 1 || ::read(far, &byte, 1) != 1) Fail(terminal.Device());
    time = LineTimer::Now() - begin;
  }
  ::close(far);
  std::nth_element(times.begin(), times.begin() + times.size() / 2, times.end());
  return times[times.size() / 2];
}

/// Makes good what this program and the system take.
class PunctualLink : public PtyLink {
 public:
  using PtyLink::PtyLink;

 protected:
  Instant WakeFor(Instant due) override {
    const Instant at = due - delay_;
    armed_ = at > LineTimer::Now() ? std::optional(at) : std::nullopt;
    return at;
  }

  /// Follows the median of how late the timer is told: it has to be set so much sooner.
  void Woken() override {
    constexpr Instant step = std::chrono::microseconds(1);
    constexpr Instant most = std::chrono::microseconds(200);  // less than any byte takes
    if (!armed_) return;
    const bool later = LineTimer::Now() - *armed_ > delay_;
    delay_ = std::clamp(later ? delay_ + step : delay_ - step, Instant(), most);
  }

  Instant WrittenAt(Instant read) override {
    return read - passage_ - std::exchange(owed_, Instant());
  }

  void Told(Instant due) override {
    constexpr Instant most = std::chrono::milliseconds(20);
    owed_ = std::clamp(LineTimer::Now() - due, Instant(), most);
  }

 private:
  std::optional<Instant> armed_;  // what the timer is set to; none when that was past already
  Instant delay_{};
  Instant passage_ = std::min(Passage(), Instant(std::chrono::microseconds(300)));
  Instant owed_{};  // of what the tool was told last: how late that was
};

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  Programmer programmer;
  PunctualLink link(programmer, QStringLiteral("com1"));
  if (argc > 1) link.FixBaud(QByteArray(argv[1]).toInt());
  if (const QString reason = link.Open(); !reason.isEmpty()) Fail(reason);
  QTextStream(stdout) << link.Device() << Qt::endl;
  return QCoreApplication::exec();
}
