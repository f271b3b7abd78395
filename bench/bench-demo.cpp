// SPDX-License-Identifier: Apache-2.0
// Measures the rotation demo with 32 cams on the platform that Qt finds:
//   bench-demo [seconds]    per setting of the speed bar: degrees turned in a second, and the
//   longest time between two passes of the event loop, for the sample press and for a size in which
//   all 32 lamps change at every degree, in the window's own size and filling the screen

#include "controls/ProgramStyle.h"
#include "files/MessageTable.h"
#include "functions/BNKRTN.h"
#include "sizes/SizeOperations.h"

#include <QApplication>
#include <QDir>
#include <QScreen>
#include <QTextStream>

#include <algorithm>

namespace {

using namespace nira;
using Seconds = std::chrono::duration<double>;

/// The machine's time; notes when each pass begins and presses "S&TOP" when the run is over.
class MeasuringClock : public SystemDemoClock {
 public:
  void Begin(QPushButton* stop, double seconds) {
    stop_ = stop;
    seconds_ = seconds;
    passes_ = 0;
    longest_ = {};
  }

  void Yield() override {
    const auto now = Now();
    if (passes_++ == 0) begin_ = last_ = now;
    longest_ = std::max(longest_, now - last_);
    last_ = now;
    SystemDemoClock::Yield();
    if (Seconds(now - begin_).count() > seconds_) stop_->click();
  }

  double Passes() const { return passes_; }
  double Duration() const { return Seconds(last_ - begin_).count(); }
  double Longest() const { return Seconds(longest_).count() * 1000; }  // ms

 private:
  QPushButton* stop_ = nullptr;
  double seconds_ = 0;
  int passes_ = 0;
  std::chrono::nanoseconds begin_{};
  std::chrono::nanoseconds last_{};
  std::chrono::nanoseconds longest_{};
};

void Measure(CamProgram& program, const QString& title, QSize size, double seconds) {
  QTextStream out(stdout);
  MessageTable texts;
  MeasuringClock clock;
  BNKRTN demo(program, texts, nullptr, &clock);
  if (!size.isEmpty()) demo.resize(size);
  demo.show();
  QApplication::processEvents();
  out << title << ", " << demo.width() << " x " << demo.height() << Qt::endl;
  auto* speed = demo.findChild<QScrollBar*>(QStringLiteral("ScrolVel"));
  for (const int setting : {2000, 1999, 1990, 1900, 1000, 1}) {
    speed->setValue(setting);
    clock.Begin(demo.findChild<QPushButton*>(QStringLiteral("Stp")), seconds);
    demo.findChild<QPushButton*>(QStringLiteral("Strt"))->click();
    const double degrees = clock.Passes() / (2001 - setting);
    out << qSetFieldWidth(6) << setting << qSetFieldWidth(0) << ": "
        << QString::number(degrees / clock.Duration(), 'f', 1) << " degrees/s, longest gap "
        << QString::number(clock.Longest(), 'f', 2) << " ms" << Qt::endl;
  }
}

/// Every cam changes at every degree.
void FillAll(CamProgram& program) {
  CamRow row{};
  for (std::size_t degree = 0; degree < row.size(); degree += 2) row[degree] = 1;
  for (int cam = 0; cam < program.NumCams(); ++cam) program.SetRow(1, cam, row);
}

}  // namespace

int main(int argc, char** argv) {
  QApplication::setStyle(new nira::ProgramStyle);
  QApplication app(argc, argv);
  const double seconds = std::max(1.0, QApplication::arguments().value(1).toDouble());
  const QString sample = QStringLiteral(NIRA_SOURCE_FOLDER "/samples/press.CAM");
  const QSize screen = QGuiApplication::primaryScreen()->availableSize();
  for (const QSize size : {QSize(), screen}) {
    CamProgram program;
    const ImportResult imported = ImportSize(program, sample, 1, 1);
    if (imported.outcome != ImportResult::Outcome::Imported) return 1;
    Measure(program, QStringLiteral("press.CAM"), size, seconds);
    FillAll(program);
    Measure(program, QStringLiteral("all lamps at every degree"), size, seconds);
  }
  return 0;
}
