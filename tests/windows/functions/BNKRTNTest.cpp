// SPDX-License-Identifier: Apache-2.0
#include "functions/BNKRTN.h"
#include "ground/Text.h"
#include "support/WindowFixture.h"

#include <QTest>

#include <map>

namespace nira {

using namespace Qt::StringLiterals;

namespace {

/// Virtual time: a pause ends at once, and at chosen passes the operator does something.
class ScriptedClock : public DemoClock {
 public:
  std::chrono::nanoseconds Now() const override { return now_; }
  void PauseUntil(std::chrono::nanoseconds time) override { now_ = std::max(now_, time); }
  void Yield() override {
    if (++passes > 1'000'000) qFatal("the loop does not end");
    const int depth = std::exchange(depth_, depth_ + 1);
    if (depth > 0) QTest::qFail("the loop runs twice", __FILE__, __LINE__);
    QApplication::processEvents();
    if (each) each();
    if (const auto act = at.find(passes); act != at.end()) act->second();
    --depth_;
  }

  int passes = 0;  // so far; 1 in the first
  std::map<int, std::function<void()>> at;
  std::function<void()> each;

 private:
  int depth_ = 0;
  std::chrono::nanoseconds now_{1'000'000'000};
};

/// The demo over a program of two sizes that differ, on virtual time.
struct Demo {
  explicit Demo(int cams = 32) {
    program.SetLimits(22, cams, 255);
    for (int cam = 0; cam < cams; ++cam) {
      program.SetRow(1, cam, RowOf(u"%1-%2 355-360"_qs.arg(cam).arg(10 * cam + 20)));
      program.SetRow(3, cam, RowOf(u"%1-360"_qs.arg(11 * cam)));
    }
    program.SelectCam(0);
    window = new BNKRTN(program, texts, nullptr, &clock);
    window->show();
    if (!QTest::qWaitForWindowActive(window)) qFatal("no window");
    Timer("Timer1")->setInterval(speedInterval_ = 1 << 30);  // no real second may come between
  }
  ~Demo() { delete window; }

  QWidget* Find(const QString& name) const { return window->findChild<QWidget*>(name); }
  QScrollBar* Scroll(const char* name) const {
    return window->findChild<QScrollBar*>(QLatin1String(name));
  }
  QTimer* Timer(const char* name) const { return window->findChild<QTimer*>(QLatin1String(name)); }
  QString Text(const char* name) const {
    return window->findChild<QLabel*>(QLatin1String(name))->text();
  }
  void Click(const QString& name) const { QTest::mouseClick(Find(name), Qt::LeftButton); }
  /// Turns from degree 0; `at` and `each` of the clock do the rest, "S&TOP" at this pass.
  void Run(int stopAt) {
    clock.passes = 0;
    clock.at[stopAt] = [this] { Click(u"Stp"_qs); };
    Click(u"Strt"_qs);
  }
  /// The time has come for a timer that runs.
  void Tick(const char* name) const {
    QTimer* timer = Timer(name);
    QVERIFY(timer->isActive());
    QTimerEvent event(timer->timerId());
    QApplication::sendEvent(timer, &event);
  }
  QString Degree() const {
    Tick("Timer2");
    return Text("Vgradi");
  }
  /// Cams (from 1) whose lamps are lit.
  QList<int> Lit() const {
    QList<int> cams;
    for (int cam = 0; cam < program.NumCams(); ++cam) {
      const auto* lamp = window->findChild<CamLamp*>(u"Label1_%1"_qs.arg(cam));
      if (lamp->IsLit()) cams.append(cam + 1);
    }
    return cams;
  }
  QList<int> On(int size, int degree) const {
    QList<int> cams;
    for (int cam = 0; cam < program.NumCams(); ++cam) {
      if (program.CamMap(size, cam)[std::size_t(degree)] == 1) cams.append(cam + 1);
    }
    return cams;
  }

  CamProgram program;
  MessageTable texts;
  ScriptedClock clock;
  QPointer<BNKRTN> window;

 private:
  int speedInterval_ = 0;
};

}  // namespace

class BNKRTNTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Opens_data() {
    QTest::addColumn<int>("cams");
    QTest::newRow("16") << 16;
    QTest::newRow("32") << 32;
  }

  void Opens() {
    QFETCH(int, cams);
    Demo d(cams);
    QCOMPARE(d.window->windowTitle(), u"PROVA FORMATO"_qs);
    QCOMPARE(d.window->findChildren<CamLamp*>().size(), cams);
    QVERIFY(d.Lit().isEmpty());
    QCOMPARE(d.Scroll("ScrolVel")->value(), 2000);
    QCOMPARE(d.Scroll("VScrForm")->maximum(), 22);
    QCOMPARE(d.Text("LNFor"), u"01"_qs);
    QCOMPARE(d.Text("lVeloc"), u"00.00"_qs);
    QVERIFY(!d.Timer("Timer1")->isActive());
    QCOMPARE(d.Timer("Timer2")->interval(), 50);
    QCOMPARE(d.Degree(), u"000"_qs);
    const BNKRTN untouched(d.program, d.texts, nullptr);
    QCOMPARE(untouched.findChild<QTimer*>(u"Timer1"_qs)->interval(), 1000);
  }

  /// Every degree of more than a turn: pointer, lamps and degree, and a change of size on the way.
  void Turns() {
    Demo d;
    int size = 1;
    d.clock.each = [&] {
      const int degree = (d.clock.passes - 1) % 360;
      QCOMPARE(d.Lit(), d.On(size, degree));
      QCOMPARE(d.Degree(), ZeroFilled(degree, 3));
    };
    d.clock.at[400] = [&] {
      d.Scroll("VScrForm")->setValue(3);
      QCOMPARE(d.program.CurrentSize(), 3);
      QCOMPARE(d.Text("LNFor"), u"03"_qs);
      QCOMPARE(d.Lit(), d.On(1, 39));  // from the next degree on
      size = 3;
    };
    d.Run(800);
    QCOMPARE(d.clock.passes, 800);
    QCOMPARE(d.Degree(), u"079"_qs);
    QCOMPARE(d.Lit(), d.On(3, 79));
    d.clock.at.clear();
    size = 3;
    d.Run(1);  // a run starts at 0
    QCOMPARE(d.Degree(), u"000"_qs);
  }

  /// Pixels: degree 0 to the right, 90 below, in light red, ending on the circle.
  void Pointer_data() {
    QTest::addColumn<int>("degree");
    QTest::addColumn<QPoint>("way");
    QTest::newRow("right") << 0 << QPoint(1, 0);
    QTest::newRow("below") << 90 << QPoint(0, 1);
    QTest::newRow("left") << 180 << QPoint(-1, 0);
    QTest::newRow("above") << 270 << QPoint(0, -1);
  }

  void Pointer() {
    QFETCH(int, degree);
    QFETCH(QPoint, way);
    DegreeCircle circle;
    circle.resize(401, 401);
    circle.Point(degree);
    const int radius = circle.DemoRadius();
    const QPointF centre(200.5, 200.5);
    QVERIFY((circle.EndOf(degree) - centre - radius * QPointF(way)).manhattanLength() < 0.01);
    const QImage picture = circle.grab().toImage();
    const QPoint middle(200, 200);
    QCOMPARE(picture.pixel(middle + way * (radius / 2)), 0xffff5555);
    QCOMPARE(picture.pixel(middle - way * (radius / 2)), 0xffffffff);
  }

  void Passes_data() {
    QTest::addColumn<int>("setting");
    QTest::addColumn<int>("passes");
    QTest::newRow("fastest") << 2000 << 1;
    QTest::newRow("middle") << 1500 << 501;
    QTest::newRow("slowest") << 1 << 2000;
  }

  /// Passes for each degree, each of at least a tenth of a millisecond; a stop in the midst of a
  /// degree ends after it.
  void Passes() {
    QFETCH(int, setting);
    QFETCH(int, passes);
    Demo d;
    d.Scroll("ScrolVel")->setValue(setting);
    const auto begin = d.clock.Now();
    d.Run(2 * passes + 1);
    QCOMPARE(d.clock.passes, 3 * passes);
    QCOMPARE(d.Degree(), u"002"_qs);
    QCOMPARE((d.clock.Now() - begin).count(), 3 * passes * 100'000);
  }

  void SpeedIsReadAtEveryPass() {
    Demo d;
    d.Scroll("ScrolVel")->setValue(1);
    d.clock.at[10] = [&d] {
      QTest::keyClick(d.Scroll("ScrolVel"), Qt::Key_End);
      QCOMPARE(d.Scroll("ScrolVel")->value(), 2000);
    };
    d.Run(12);
    QCOMPARE(d.clock.passes, 12);
    QCOMPARE(d.Degree(), u"002"_qs);
  }

  void MeasuredSpeed() {
    Demo d;
    d.clock.at[3000] = [&d] {
      d.Tick("Timer1");
      QCOMPARE(d.Text("lVeloc"), u"499.83"_qs);  // 2999 degrees are done
    };
    d.clock.at[3003] = [&d] {
      d.Tick("Timer1");
      QCOMPARE(d.Text("lVeloc"), u"0.50"_qs);  // counted anew
    };
    d.Run(3005);
    QVERIFY(!d.Timer("Timer1")->isActive());
  }

  void StartAndStopTwice() {
    Demo d;
    QTest::keyClick(d.window, Qt::Key_T, Qt::AltModifier);  // standing
    d.clock.at[5] = [&d] {
      d.Click(u"Strt"_qs);
      QTest::keyClick(d.window, Qt::Key_S, Qt::AltModifier);
      d.window->findChild<QPushButton*>(u"Strt"_qs)->click();
    };
    d.Run(10);
    QCOMPARE(d.clock.passes, 10);
    QCOMPARE(d.Degree(), u"009"_qs);
    QCOMPARE(QApplication::focusWidget(), d.Find(u"Strt"_qs));
  }

  void CloseWhileTurning_data() {
    NameRows("way", {"button", "frame", "Escape", "lamp", "hidden", "destroyed"});
  }

  /// The loop ends first, with its degree; the window goes after it.
  void CloseWhileTurning() {
    QFETCH(QString, way);
    Demo d;
    d.Scroll("ScrolVel")->setValue(1996);  // five passes for a degree
    d.clock.at[11] = [&d, way] {
      if (way == u"button"_qs) d.Click(u"Command1"_qs);
      if (way == u"frame"_qs) QVERIFY(!d.window->close());
      if (way == u"Escape"_qs) QTest::keyClick(d.window, Qt::Key_Escape);
      if (way == u"lamp"_qs) {
        QTest::mouseClick(d.Find(u"Label1_8"_qs), Qt::LeftButton);
        QTest::mouseDClick(d.Find(u"Label1_8"_qs), Qt::LeftButton);
      }
      if (way == u"destroyed"_qs) return delete d.window;
      if (way == u"hidden"_qs) return d.window->hide();
      QVERIFY(d.window->isVisible());
    };
    d.clock.at[1000] = [] { QFAIL("still turning"); };
    if (way == u"destroyed"_qs) {
      d.window->findChild<QPushButton*>(u"Strt"_qs)->click();
      QVERIFY(!d.window);
      QCOMPARE(d.clock.passes, 11);
      return;
    }
    d.Click(u"Strt"_qs);
    QCOMPARE(d.clock.passes, 15);
    QVERIFY(!d.window->isVisible());
    QCOMPARE(d.program.CurrentCam(), way == u"lamp"_qs ? 8 : 0);
  }

  /// The demo from the menu, on the machine's time: while it turns nothing reaches the main window,
  /// which then shows what was selected.
  void MainWindowWaits() {
    WindowFixture f;
    QVERIFY(f.StartWith(u"100-110"_qs, 4));
    const QString press = f.Sample(u"press.CAM"_qs);
    QString meanwhile;
    WhenOpens<BNKRTN>([&](BNKRTN* demo) {
      QTimer::singleShot(0, demo, [&, demo] {  // while it turns
        QWindow* main = f.window->windowHandle();
        const auto place = [&f](QWidget* w) { return w->mapTo(&*f.window, w->rect().center()); };
        QTest::mouseClick(main, Qt::LeftButton, {}, place(f.Find(u"LabCam_9"_qs)));
        QTest::mouseClick(main, Qt::LeftButton, {}, place(f.Find(u"Azz_Form"_qs)));
        QTest::mouseClick(main, Qt::LeftButton, {}, f.window->menuBar()->geometry().center());
        QTest::keyClick(main, Qt::Key_PageDown);
        QTest::keyClick(main, Qt::Key_N, Qt::ControlModifier);
        QTest::keyClick(&*f.window, Qt::Key_End);
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(press)});
        QDragEnterEvent enter({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&*f.window, &enter);
        QDropEvent drop({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&*f.window, &drop);
        const bool reacted = enter.isAccepted() || QApplication::activePopupWidget() != nullptr;
        QTimer::singleShot(0, demo, [&, demo, reacted] {
          meanwhile = (reacted ? u"reacted, "_qs : QString()) +
                      u"cam %1, "_qs.arg(f.program.CurrentCam() + 1) + ContentOf(f.program);
          demo->findChild<QScrollBar*>(u"VScrForm"_qs)->setValue(3);
          QTest::mouseDClick(demo->findChild<QWidget*>(u"Label1_6"_qs), Qt::LeftButton);
        });
      });
      QTest::mouseClick(demo->findChild<QPushButton*>(u"Strt"_qs), Qt::LeftButton);
    });
    f.Choose("O_Rot");
    QCOMPARE(meanwhile, u"cam 5, 1.5: 100-110"_qs);
    QCOMPARE(f.Text("SizeCam"), u"F03 C07"_qs);
    QVERIFY(f.settings.CurrentFile.isEmpty());
    QVERIFY(f.Find<CamBar>(u"Barra_6"_qs)->Shown().selected);
  }

  void ProgramEndsWhileTurning_data() { NameRows("way", {"quit", "exit", "last question"}); }

  void ProgramEndsWhileTurning() {
    QFETCH(QString, way);
    WindowFixture f;
    QVERIFY(f.StartWith(u"100-110"_qs, 4));
    bool back = false;
    WhenOpens<BNKRTN>([&](BNKRTN* demo) {
      QTimer::singleShot(0, demo, [&] {
        if (way == u"exit"_qs) return QApplication::exit(3);
        if (way == u"last question"_qs) {
          f.program.IsSaved = false;
          f.prompts.Expect(Answer::No);
        }
        QApplication::quit();
      });
      QTest::mouseClick(demo->findChild<QPushButton*>(u"Strt"_qs), Qt::LeftButton);
    });
    QTimer::singleShot(30'000, &*f.window, [] { QApplication::exit(99); });  // it hangs
    QTimer::singleShot(0, &*f.window, [&] {
      f.Item("O_Rot")->trigger();
      back = true;
    });
    QCOMPARE(QApplication::exec(), way == u"exit"_qs ? 3 : 0);
    QVERIFY(back);
    QVERIFY(QApplication::activeModalWidget() == nullptr);
  }
};

}  // namespace nira

QTEST_MAIN(nira::BNKRTNTest)
#include "BNKRTNTest.moc"
