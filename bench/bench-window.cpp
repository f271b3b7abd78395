// SPDX-License-Identifier: Apache-2.0
// Measures what an operator waits for at the main window, on the platform that Qt finds:
//   bench-window start     start of the program to its first painted window, against an empty one
//                          and one with a single word
//   bench-window switch    switching the size, 32 cams of 180 phases each, until it is painted
//   bench-window hover     a move of the pointer by some degrees over two such sizes, all lamps
//                          changing, until it is painted; without and with a speed
//   bench-window sizes     copying a size onto another, and importing one from the largest file,
//                          until it is painted
// Figures are medians in milliseconds; `start` runs both windows in turn, each in its own process.

#include "FirstPaint.h"
#include "Programs.h"
#include "controls/ProgramStyle.h"
#include "controls/UserSettings.h"
#include "dialogs/QtPrompts.h"
#include "dialogs/clsCommonDialog.h"
#include "editor/MainWindow.h"
#include "editor/SpeedBox.h"
#include "files/CamLines.h"
#include "sizes/SizeOperations.h"
#include "support/ScriptedSerial.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>

#include <algorithm>
#include <functional>
#include <vector>

namespace {

using namespace nira;

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values.at(values.size() / 2);
}

/// The program's state and main window, as its own `main` makes them, in a folder of the bench.
struct Running {
  explicit Running(const QString& path) : folder(path), window(instance, ports) {
    serial.Holding = false;  // no programmer: the start goes on without a question
  }

  CamProgram program;
  Globals settings;
  MessageTable texts;
  FileWriter writer;
  QtPrompts prompts;
  clsCommonDialog dialog;
  WorkingFolder folder;
  UserSettings user{folder.Path() + QStringLiteral("/user.ini")};
  ScriptedSerial serial;
  PortNames ports{folder};
  Instance instance{
      {serial, serial, program, settings, texts, writer, folder, prompts}, dialog, user};
  MainWindow window;
};

/// A child of `start`: paints one window and prints when that was.
int Child(QApplication& app, const QString& folder) {
  Running running(folder);
  if (!running.window.Form_Load(QDir(folder).filePath(QStringLiteral("press.CAM")))) return 1;
  new FirstPaint(running.window.centralWidget());
  running.window.show();
  return app.exec();
}

double StartOf(const QString& program, const QStringList& arguments) {
  QProcess process;
  const double begin = Now();
  process.start(program, arguments);
  if (!process.waitForFinished() || process.exitCode() != 0) qFatal("the window did not start");
  return process.readAllStandardOutput().trimmed().toDouble() - begin;
}

bool PrepareFolder(const QString& folder) {
  const QDir to(folder);
  const QDir source(QStringLiteral(NIRA_SOURCE_FOLDER));
  QFile options(to.filePath(QString::fromLatin1(WorkingFolder::OptionsName)));
  return QFile::copy(source.filePath(QStringLiteral("lang/p32qx_IT.SCR")),
                     to.filePath(QString::fromLatin1(Globals::DefaultScript))) &&
         QFile::copy(source.filePath(QStringLiteral("samples/press.CAM")),
                     to.filePath(QStringLiteral("press.CAM"))) &&
         options.open(QIODevice::WriteOnly) && options.write("\"p32qx_IT.SCR\",1,9600\r\n") > 0;
}

void MeasureStart(const QString& folder, QTextStream& out) {
  const QString self = QCoreApplication::applicationDirPath();
  const QString emptyWindow = self + QStringLiteral("/bench-empty");
  std::vector<double> empty;
  std::vector<double> word;
  std::vector<double> program;
  for (int run = 0; run < 21; ++run) {
    empty.push_back(StartOf(emptyWindow, {}));
    word.push_back(StartOf(emptyWindow, {QStringLiteral("word")}));
    program.push_back(
        StartOf(self + QStringLiteral("/bench-window"), {QStringLiteral("child"), folder}));
  }
  out << "start to first painted window: empty " << Median(empty) << " ms, with one word "
      << Median(word) << " ms (" << Median(word) / Median(empty) << "), program " << Median(program)
      << " ms (" << Median(program) / Median(empty) << ")" << Qt::endl;
}

/// Medians and maxima of several runs of `act`, each until the window is painted.
void Report(QTextStream& out, MainWindow& window, const char* what,
            const std::function<void(int run)>& act) {
  std::vector<double> times;
  for (int run = 0; run < 101; ++run) {
    QElapsedTimer timer;
    timer.start();
    act(run);
    window.ShowSizeCam();
    window.repaint();
    QApplication::processEvents();
    times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
  }
  out << what << ": " << Median(times) << " ms, at most "
      << *std::max_element(times.begin(), times.end()) << " ms" << Qt::endl;
}

/// Sizes 1 and 2 full: 32 cams of 180 phases each.
void LoadFull(Running& running) {
  if (!running.window.Form_Load({})) qFatal("the window did not load");
  for (int size = 1; size <= 2; ++size) {
    for (int cam = 0; cam < running.program.NumCams(); ++cam) {
      for (int degree = size - 1; degree < 359; degree += 2) {
        running.program.SetPhase(size, cam, degree, degree + 1);
      }
    }
  }
  running.window.ShowSizeCam();
}

/// Every cam has an advance and the speed is set: each row has its line of 180 runs.
void SetSpeed(Running& running, int speed) {
  FunctionsBlock block;
  block.AdvanceOn = 1;
  block.AdvanceLast = CamProgram::MaxCams - 1;
  block.CamFunc.fill(25);
  running.program.SetFunctions(block);
  running.window.findChild<SpeedBox*>()->SetSpeed(speed);
}

void MeasureHover(const QString& folder, QTextStream& out, int speed) {
  Running running(folder);
  LoadFull(running);
  SetSpeed(running, speed);
  running.window.show();
  QApplication::processEvents();
  std::vector<double> times;
  for (int run = 0; run < 301; ++run) {
    const int cam = run / 10 % 32;
    auto* bar = running.window.findChild<QWidget*>(QStringLiteral("Barra_%1").arg(cam));
    const QPointF place(bar->width() * (10 + run) / 359.0, bar->height() / 2.0);
    QMouseEvent move(QEvent::MouseMove, place, bar->mapToGlobal(place), Qt::NoButton, {}, {});
    QElapsedTimer timer;
    timer.start();
    QApplication::sendEvent(bar, &move);
    QApplication::processEvents();
    times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
  }
  out << "pointer over 32 cams x 180 phases at " << speed
      << " rev/min (at most 2 ms): " << Median(times) << " ms, at most "
      << *std::max_element(times.begin(), times.end()) << " ms" << Qt::endl;
}

void MeasureSwitch(const QString& folder, QTextStream& out) {
  Running running(folder);
  LoadFull(running);
  running.window.show();
  QApplication::processEvents();
  Report(out, running.window, "switch of the size, 32 cams x 180 phases (a frame is 16.7 ms)",
         [&running](int run) { running.program.SelectSize(1 + run % 2); });
}

void MeasureSizes(const QString& folder, QTextStream& out) {
  Running running(folder);
  if (!running.window.Form_Load({})) qFatal("the window did not load");
  CamProgram& program = running.program;
  CamProgram full = nira_bench::FullProgram(89, 32);
  const QString file = QDir(folder).filePath(QStringLiteral("deep.CAM"));
  if (running.writer.Write(file, WriteCamFile(full), FileWriter::Backup::No)) {
    qFatal("the file cannot be written");
  }
  program.SetLimits(89, 32, CamProgram::MaxMessages);
  running.window.show();
  QApplication::processEvents();
  Report(out, running.window, "import of size 89 from a file of 89 x 32 x 180", [&](int) {
    program.ClearSize(1);
    if (!ImportSize(program, file, 89, 1)) qFatal("not imported");
  });
  Report(out, running.window, "copy of a size of 32 x 180 onto another", [&program](int run) {
    CopySize(program, 1, 2 + run % 80);
    program.SelectSize(2 + run % 80);
  });
}

}  // namespace

int main(int argc, char** argv) {
  QApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
  QApplication::setStyle(new nira::ProgramStyle);
  QApplication app(argc, argv);
  const QStringList arguments = QApplication::arguments();
  const QString mode = arguments.value(1);
  if (mode == QLatin1String("child")) return Child(app, arguments.value(2));
  QTemporaryDir folder;
  if (!folder.isValid() || !PrepareFolder(folder.path())) return 1;
  QTextStream out(stdout);
  const auto wanted = [&mode](const char* name) {
    return mode.isEmpty() || mode == QLatin1String(name);
  };
  if (wanted("start")) MeasureStart(folder.path(), out);
  if (wanted("switch")) MeasureSwitch(folder.path(), out);
  if (wanted("hover")) {
    for (const int speed : {0, 600}) MeasureHover(folder.path(), out, speed);
  }
  if (wanted("sizes")) MeasureSizes(folder.path(), out);
  return 0;
}
