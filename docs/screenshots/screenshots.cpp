// SPDX-License-Identifier: Apache-2.0
// Opens every window of the program over a sample and a simulated programmer, and writes a picture
// of each into a folder:
//   screenshots FOLDER [--size 1366x768] [--theme light|dark|bare] [--script p32qx_EN.SCR]
// "bare" is a dark theme that leaves roles to Qt. Made for the platform "offscreen".

#include "SimulatedSerial.h"
#include "editor/CamDiagram.h"
#include "support/DeviceFixture.h"
#include "support/Themes.h"
#include "support/WindowFixture.h"

#include <QCommandLineParser>
#include <QDialog>
#include <QTextStream>

namespace {

using namespace nira;

struct Settings {
  QDir folder;
  QSize size;
  QString script;
};

void Take(const Settings& settings, const QString& name, QWidget* window) {
  if (window == nullptr) qFatal("no window for %s", qPrintable(name));
  const QString path = settings.folder.filePath(name + QStringLiteral(".png"));
  if (!window->grab().save(path)) qFatal("%s cannot be written", qPrintable(path));
  QTextStream(stdout) << path << ' ' << window->width() << 'x' << window->height() << Qt::endl;
}

/// The clock of a simulated line, that lets something happen in one of its pauses: an exchange
/// takes no time there, and lets no event through.
class WatchedClock : public Clock {
 public:
  explicit WatchedClock(Clock& clock) : clock_(clock) {}

  void AtPause(int pause, const std::function<void()>& act) {
    left_ = pause;
    act_ = act;
  }
  std::int64_t Now() const override { return clock_.Now(); }
  void Pause(int ms, Yield yield) override {
    clock_.Pause(ms, yield);
    if (left_ > 0 && --left_ == 0) act_();
  }

 private:
  Clock& clock_;
  int left_ = 0;
  std::function<void()> act_;
};

/// The program with a sample and the simulated programmer behind COM1.
struct Running {
  explicit Running(const Settings& wanted, const QString& sample)
      : settings(wanted), fixture(&serial, &clock) {
    fixture.prompts.AnswerEverything(true);
    fixture.Options('"' + QFile::encodeName(settings.script) + "\",1,9600\r\n");
    QFile::copy(QStringLiteral(NIRA_SOURCE_FOLDER "/samples/press_IT.MSG"),
                fixture.Path(QStringLiteral("press_IT.MSG")));
    QFile::copy(QStringLiteral(NIRA_SOURCE_FOLDER "/samples/firmware.abs"),
                fixture.Path(QStringLiteral("firmware.abs")));
    QFile::link(QStringLiteral("/dev/ttyUSB0"), fixture.Path(QStringLiteral("com1")));
    // No picture shows where it was taken.
    QDir::setCurrent(fixture.folder.path());
    if (!sample.isEmpty()) fixture.Sample(sample);
    if (!fixture.Load(sample)) qFatal("no start");
    fixture.window->resize(settings.size);
    fixture.window->show();
    if (!QTest::qWaitForWindowActive(&*fixture.window)) qFatal("no window");
  }

  /// The picture of the window that an entry of the menu opens, when it has come so far.
  void TakeOf(const QString& name, const char* item, int ticks = 1,
              const std::function<void(QWidget*)>& prepare = {}) {
    QTimer timer;
    bool taken = false;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
      QWidget* open = QApplication::activeModalWidget();
      if (open == nullptr || taken || --ticks > 0) return;
      taken = true;
      if (prepare) prepare(open);
      QApplication::processEvents();
      Take(settings, name, open);
      open->close();
    });
    timer.start(0);
    fixture.Item(item)->trigger();
    if (!taken) qWarning("%s did not open", item);
  }

  /// The picture of a window in the middle of its exchange.
  void TakeDuring(const QString& name, const char* item, int pause) {
    clock.AtPause(pause, [&] { Take(settings, name, QApplication::activeModalWidget()); });
    fixture.Item(item)->trigger();
  }

  const Settings& settings;
  Programmer device{ProgrammerState()};
  SimulatedSerial serial{device};
  WatchedClock clock{serial};
  WindowFixture fixture;
};

/// A cam with a phase loaded and its ON changed, the pointer over another row.
void TakeMain(const Settings& settings) {
  Running running(settings, QStringLiteral("press.CAM"));
  WindowFixture& f = running.fixture;
  f.Click(QStringLiteral("LabCam_10"));
  f.ClickLine(1);
  f.Type(QStringLiteral("250"));
  auto* bar = f.Find(QStringLiteral("Barra_5"));
  const QPointF place(bar->width() * 137 / 359.0, bar->height() / 2.0);
  QMouseEvent move(QEvent::MouseMove, place, bar->mapToGlobal(place), Qt::NoButton, {}, {});
  QApplication::sendEvent(bar, &move);
  QApplication::processEvents();
  Take(settings, QStringLiteral("main-window"), &*f.window);
}

void TakeEmpty(const Settings& settings) {
  Running running(settings, {});
  QApplication::processEvents();
  Take(settings, QStringLiteral("empty-start"), &*running.fixture.window);
}

void TakeOthers(const Settings& settings) {
  Running running(settings, QStringLiteral("press.CAM"));
  WindowFixture& f = running.fixture;
  f.Click(QStringLiteral("LabCam_10"));
  running.TakeOf(QStringLiteral("functions-window"), "Fu_Set");
  running.TakeOf(QStringLiteral("advance-calculator"), "o_Ant");
  running.TakeOf(QStringLiteral("rotation-demo"), "O_Rot", 20);
  running.TakeOf(QStringLiteral("all-sizes"), "o_AllSizes");
  running.TakeOf(QStringLiteral("messages-window"), "Al_Msg", 1, [&](QWidget* open) {
    f.dialog.Expect(QStringLiteral("press_IT.MSG"));
    open->findChild<QAction*>(QStringLiteral("f_Open"))->trigger();
  });
  running.TakeOf(QStringLiteral("print-window"), "Pr_size");
  running.TakeOf(QStringLiteral("port-settings"), "setcom");
  running.TakeOf(QStringLiteral("about"), "info");
  f.chooseModel = [&](Carprg* open) { Take(settings, QStringLiteral("model"), open); };
  running.TakeDuring(QStringLiteral("transfer"), "Tr_Siz", 12);
  f.dialog.Expect(QStringLiteral("firmware.abs"));
  running.TakeDuring(QStringLiteral("flash-window"), "Upd_Flash", 1);
  f.Item("f_New")->trigger();
}

}  // namespace

int main(int argc, char** argv) {
  QApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
  QApplication app(argc, argv);
  QCommandLineParser parser;
  parser.addPositionalArgument(QStringLiteral("folder"), QStringLiteral("where the pictures go"));
  const auto option = [&parser](const char* name, const char* value) {
    const QString text = QString::fromLatin1(name);
    parser.addOption({text, text, text, QString::fromLatin1(value)});
    return text;
  };
  const QString size = option("size", "1366x768");
  const QString theme = option("theme", "light");
  const QString script = option("script", "p32qx_IT.SCR");
  parser.process(app);
  if (parser.positionalArguments().isEmpty()) parser.showHelp(2);
  const QString wanted = parser.value(size);
  const Settings settings{QDir(QDir(parser.positionalArguments().constFirst()).absolutePath()),
                          {wanted.section(u'x', 0, 0).toInt(), wanted.section(u'x', 1).toInt()},
                          parser.value(script)};
  if (!QDir().mkpath(settings.folder.path())) return 1;
  const QString colours = parser.value(theme);
  QPalette palette;
  if (colours == QLatin1String("dark")) palette = Dark(true);
  if (colours == QLatin1String("bare")) palette = Dark(false);
  QApplication::setStyle(new ThemedStyle(palette));
  TakeMain(settings);
  TakeEmpty(settings);
  TakeOthers(settings);
  return 0;
}
