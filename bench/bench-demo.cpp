// SPDX-License-Identifier: Apache-2.0
// Measures the rotation demo with 32 cams on the platform that Qt finds:
//   bench-demo [seconds]    per setting of the speed bar: the speed that the window shows, frames
//   in a second and the longest time between two of them, for the sample press and for a size in
//   which all 32 lamps change at every degree, in the window's own size and filling the screen

#include "controls/ProgramStyle.h"
#include "files/MessageTable.h"
#include "functions/BNKRTN.h"
#include "ground/SystemClock.h"
#include "model/CamProgram.h"
#include "sizes/SizeOperations.h"

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTextStream>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace {

using namespace nira;
/// The machine's time; the demo reads it once a frame.
class MeasuringClock : public SystemClock {
 public:
  void Begin() {
    frames_ = 0;
    longest_ = 0;
    last_ = SystemClock::Now();
  }
  std::int64_t Now() const override {
    const std::int64_t now = SystemClock::Now();
    ++frames_;
    longest_ = std::max(longest_, now - std::exchange(last_, now));
    return now;
  }

  int Frames() const { return frames_; }
  std::int64_t Longest() const { return longest_; }  // ms between two frames

 private:
  mutable int frames_ = 0;
  mutable std::int64_t longest_ = 0;
  mutable std::int64_t last_ = 0;
};

void Measure(CamProgram& program, const QString& title, QSize size, int seconds) {
  QTextStream out(stdout);
  const MessageTable texts;
  MeasuringClock clock;
  BNKRTN demo(program, texts, clock, nullptr);
  if (!size.isEmpty()) demo.resize(size);
  demo.show();
  QApplication::processEvents();
  out << title << ", " << demo.width() << " x " << demo.height() << Qt::endl;
  auto* speed = demo.findChild<QScrollBar*>(QStringLiteral("ScrolVel"));
  for (const int setting : {2000, 1999, 1990, 1900, 1000, 1}) {
    speed->setValue(setting);
    clock.Begin();
    demo.findChild<QPushButton*>(QStringLiteral("Strt"))->click();
    QTimer::singleShot(seconds * 1000 + 100, &demo, [] { QApplication::exit(); });
    QApplication::exec();
    demo.findChild<QPushButton*>(QStringLiteral("Stp"))->click();
    const auto* shown = demo.findChild<QLabel*>(QStringLiteral("lVeloc"));
    out << qSetFieldWidth(6) << setting << qSetFieldWidth(0) << ": " << shown->text()
        << " rev/min, " << clock.Frames() / seconds << " frames/s, longest gap " << clock.Longest()
        << " ms" << Qt::endl;
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
  const int seconds = std::max(1, QApplication::arguments().value(1).toInt());
  const QString sample = QStringLiteral(NIRA_SOURCE_FOLDER "/samples/press.CAM");
  const QSize screen = QGuiApplication::primaryScreen()->availableSize();
  for (const QSize size : {QSize(), screen}) {
    CamProgram program;
    if (!ImportSize(program, sample, 1, 1)) return 1;
    Measure(program, QStringLiteral("press.CAM"), size, seconds);
    FillAll(program);
    Measure(program, QStringLiteral("all lamps at every degree"), size, seconds);
  }
  return 0;
}
