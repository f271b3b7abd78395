// SPDX-License-Identifier: Apache-2.0
// Measures the functions window on the platform that Qt finds: one step of the scroll bar, until
// all 32 columns are painted anew. Figures are milliseconds.

#include "controls/ProgramStyle.h"
#include "controls/UserSettings.h"
#include "dialogs/QtPrompts.h"
#include "dialogs/clsCommonDialog.h"
#include "functions/FuncSel.h"
#include "ground/SystemClock.h"
#include "line/QtSerialControl.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QScrollBar>
#include <QTextStream>

#include <algorithm>
#include <vector>

namespace {

using namespace nira;

constexpr int runs = 200;

/// 32 cams with advances of all heights.
FunctionsBlock AllAdvances() {
  FunctionsBlock block;
  block.AdvanceOn = 1;
  block.AdvanceLast = 31;
  for (std::size_t cam = 0; cam < block.CamFunc.size(); ++cam) {
    block.CamFunc[cam] = static_cast<std::uint8_t>(cam * 37 % HighestTime);
  }
  return block;
}

/// Counts how often a widget is painted: a time without a picture is none.
class Pictures : public QObject {
 public:
  explicit Pictures(QWidget* widget) : QObject(widget) { widget->installEventFilter(this); }
  int Count = 0;

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++Count;
    return false;
  }
};

/// Steps up and down; `whole` paints the whole window at each step, not only what changed.
std::vector<double> Steps(QWidget& window, QScrollBar& scroll, bool whole) {
  std::vector<double> times;
  auto* pictures = new Pictures(window.findChild<QWidget*>(QStringLiteral("Barra_1")));
  for (int run = 0; run < runs; ++run) {
    const bool up = run / (runs / 2) == 0;
    QElapsedTimer timer;
    timer.start();
    scroll.triggerAction(up ? QScrollBar::SliderSingleStepAdd : QScrollBar::SliderSingleStepSub);
    if (whole) window.repaint();
    QApplication::processEvents();
    times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
  }
  if (pictures->Count < runs) qFatal("%d steps, %d pictures", runs, pictures->Count);
  std::sort(times.begin(), times.end());
  return times;
}

}  // namespace

int main(int argc, char** argv) {
  QApplication::setStyle(new nira::ProgramStyle);
  QApplication app(argc, argv);
  CamProgram program;
  program.SetFunctions(AllAdvances());
  program.SelectCam(1);
  Globals settings;
  MessageTable texts;
  FileWriter writer;
  QtPrompts prompts;
  clsCommonDialog dialog;
  UserSettings user(QStringLiteral("bench-functions.ini"));  // nothing is kept in it
  const WorkingFolder folder(QStringLiteral("."));
  SystemClock clock;
  const PortNames ports(folder);
  QtSerialControl serial(ports, texts, clock);
  Instance instance{
      {serial, clock, program, settings, texts, writer, folder, prompts}, dialog, user};
  FuncSel window(instance, nullptr, nullptr);
  window.show();
  QElapsedTimer settling;  // the window system places and activates the window
  settling.start();
  while (settling.elapsed() < 500) QApplication::processEvents(QEventLoop::AllEvents, 50);
  auto* scroll = window.findChild<QScrollBar*>(QStringLiteral("ScrVal"));
  QTextStream out(stdout);
  for (const bool whole : {false, true}) {
    const std::vector<double> times = Steps(window, *scroll, whole);
    out << (whole ? "one step, all 32 columns painted: " : "one step, what changed painted: ")
        << times.at(runs / 2) << " ms, at most " << times.back() << " ms (a 60 Hz frame is 16.7 ms)"
        << Qt::endl;
  }
  return 0;
}
