// SPDX-License-Identifier: Apache-2.0
#include "functions/BNKRTN.h"
#include "functions/CamLamp.h"
#include "functions/DegreeCircle.h"
#include "ground/Text.h"
#include "support/WindowFixture.h"

#include <QScrollBar>
#include <QTest>

namespace nira {

using namespace Qt::StringLiterals;

namespace {

/// Time that stands until it is moved.
struct StandingClock : Clock {
  std::int64_t Now() const override { return now; }
  void Pause(int ms, Yield) override { now += ms; }
  std::int64_t now = 1'000'000;
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
    window.emplace(program, texts, clock, nullptr);
    window->show();
    if (!QTest::qWaitForWindowActive(&*window)) qFatal("no window");
    Find<QTimer>("Timer1")->setInterval(1 << 30);  // no real second may come between
  }

  template <typename Control = QWidget>
  Control* Find(const char* name) const {
    return window->findChild<Control*>(QLatin1String(name));
  }
  QString Text(const char* name) const { return Find<QLabel>(name)->text(); }
  void Click(const char* name) const { QTest::mouseClick(Find(name), Qt::LeftButton); }
  /// The time has come for a timer that runs.
  void Tick(const char* name) const {
    const auto* timer = Find<QTimer>(name);
    QVERIFY(timer->isActive());
    QTimerEvent event(timer->timerId());
    QApplication::sendEvent(const_cast<QTimer*>(timer), &event);
  }
  void Turn(int ms) {
    clock.now += ms;
    Tick("Turn");
  }
  bool IsTurning() const { return Find<QTimer>("Turn")->isActive(); }
  QString Degree() const {
    Tick("Timer2");
    return Text("Vgradi");
  }
  /// Cams (from 1) whose lamps are lit.
  QList<int> Lit() const {
    QList<int> cams;
    for (int cam = 0; cam < program.NumCams(); ++cam) {
      if (window->findChild<CamLamp*>(u"Label1_%1"_qs.arg(cam))->IsLit()) cams.append(cam + 1);
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
  StandingClock clock;
  std::optional<BNKRTN> window;
};

}  // namespace

class BNKRTNTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  /// Every degree of more than a turn: lamps and degree, a change of size on the way, and one while
  /// the pointer stands.
  void Turns() {
    Demo d;
    auto* size = d.Find<QScrollBar>("VScrForm");
    d.Find<QScrollBar>("ScrolVel")->setValue(1991);  // a degree in a millisecond
    d.Click("Strt");
    for (int step = 0; step < 800; ++step, d.Turn(1)) {
      QCOMPARE(d.Lit(), d.On(size->value(), step % 360));
      QCOMPARE(d.Degree(), ZeroFilled(step % 360, 3));
      if (step != 400) continue;
      size->setValue(3);
      QCOMPARE(d.program.CurrentSize(), 3);
      QCOMPARE(d.Lit(), d.On(1, 40));  // from the next degree on
    }
    d.Click("Stp");
    QCOMPARE(d.Degree(), u"080"_qs);
    size->setValue(1);
    QCOMPARE(d.Lit(), d.On(1, 80));
    d.Click("Strt");  // a run starts at 0
    QCOMPARE(d.Degree(), u"000"_qs);
    QCOMPARE(d.Lit(), d.On(1, 0));
  }

  /// Degree 0 to the right, 90 below, ending on the circle.
  void Pointer() {
    DegreeCircle circle;
    circle.resize(401, 401);
    const int radius = circle.DemoRadius();
    int degree = 0;
    for (const QPoint& way : {QPoint(1, 0), QPoint(0, 1), QPoint(-1, 0), QPoint(0, -1)}) {
      const QPointF end = QPointF(200.5, 200.5) + radius * QPointF(way);
      QVERIFY((circle.EndOf(degree) - end).manhattanLength() < 0.01);
      degree += 90;
    }
  }

  /// A press on the circle and the arrow keys set the degree, but not while the pointer turns; the
  /// lamps' names say what they show.
  void DegreeByHand() {
    Demo d;
    auto* circle = d.Find<DegreeCircle>("Circle");
    const auto press = [circle](int degree) {
      QTest::mouseClick(circle, Qt::LeftButton, {}, circle->EndOf(degree).toPoint());
    };
    for (const int degree : {0, 45, 90, 200, 359}) {
      press(degree);
      QCOMPARE(d.Text("Vgradi"), ZeroFilled(degree, 3));
      QCOMPARE(d.Lit(), d.On(1, degree));
    }
    QVERIFY(d.Find("Label1_4")->accessibleName() == u"C5 , ON"_qs);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    QCOMPARE(d.Text("Vgradi"), u"000"_qs);
    QVERIFY(d.Find("Label1_4")->accessibleName() == u"C5 , OFF"_qs);
    QTest::mouseClick(circle, Qt::LeftButton, {}, QPoint(1, 1));   // beside the circle
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);  // START
    press(90);
    QVERIFY(d.IsTurning());
    QCOMPARE(d.Degree(), u"000"_qs);
  }

  /// A degree takes tenths of a millisecond, as many as the setting is below the highest and one.
  void Speed() {
    Demo d;
    auto* speed = d.Find<QScrollBar>("ScrolVel");
    const auto degreeAfter = [&](std::initializer_list<int> waits) {
      for (const int ms : waits) d.Turn(ms);
      return d.Degree().toInt();
    };
    d.Click("Strt");
    QCOMPARE(degreeAfter({1, 1}), 20);
    speed->setValue(1500);
    QCOMPARE(degreeAfter({50}), 20);
    QCOMPARE(degreeAfter({1, 49, 1}), 22);  // 100.2 ms for two
    speed->setValue(1);
    QCOMPARE(degreeAfter({198}), 22);
    QCOMPARE(degreeAfter({2, 199}), 23);
    QTest::keyClick(speed, Qt::Key_End);
    QCOMPARE(degreeAfter({0}), 24);      // the degree that stood longer ends alone
    QCOMPARE(degreeAfter({60'000}), 4);  // of a minute without a frame a quarter of a second counts
  }

  void MeasuredSpeed() {
    Demo d;
    d.Click("Strt");
    d.Turn(250);
    d.Tick("Timer1");
    QCOMPARE(d.Text("lVeloc"), u"416.67"_qs);
    QCOMPARE(d.Text("LTarget"), u"1666.67"_qs);
    d.Tick("Timer1");
    QCOMPARE(d.Text("lVeloc"), u"0.00"_qs);
  }

  void CloseWhileTurning() {
    for (const bool byCam : {false, true}) {
      Demo d;
      d.Click("Strt");
      byCam ? QTest::mouseDClick(d.Find("Label1_8"), Qt::LeftButton) : d.Click("Command1");
      QVERIFY(!d.window->isVisible() && !d.IsTurning());
      QCOMPARE(d.program.CurrentCam(), byCam ? 8 : 0);
    }
  }

  /// The demo from the menu: the main window then shows what was selected in it.
  void FromTheMenu() {
    WindowFixture f;
    QVERIFY(f.StartWith(u"100-110"_qs, 4));
    WhenOpens<BNKRTN>([](BNKRTN* demo) {
      QTest::mouseClick(demo->findChild<QPushButton*>(u"Strt"_qs), Qt::LeftButton);
      demo->findChild<QScrollBar*>(u"VScrForm"_qs)->setValue(3);
      demo->findChild<QWidget*>(u"Label1_0"_qs)->setFocus();
      for (const auto key :
           {Qt::Key_Up, Qt::Key_Down, Qt::Key_Left, Qt::Key_Left, Qt::Key_Return}) {
        QTest::keyClick(demo->focusWidget(), key);
      }
    });
    f.Choose("O_Rot");
    QCOMPARE(f.Text("SizeCam"), u"F03 C07"_qs);
    QVERIFY(f.Find<CamBar>(u"Barra_6"_qs)->Shown().selected);
  }

  void ProgramEndsWhileTurning() {
    WindowFixture f;
    QVERIFY(f.StartWith(u"100-110"_qs, 4));
    f.program.IsSaved = false;
    f.prompts.Expect(Answer::No);
    bool back = false;
    WhenOpens<BNKRTN>([](BNKRTN* demo) {
      QTest::mouseClick(demo->findChild<QPushButton*>(u"Strt"_qs), Qt::LeftButton);
      QApplication::quit();
    });
    QTimer::singleShot(30'000, &*f.window, [] { QApplication::exit(99); });  // it hangs
    QTimer::singleShot(0, &*f.window, [&] {
      f.Item("O_Rot")->trigger();
      back = true;
    });
    QCOMPARE(QApplication::exec(), 0);
    QVERIFY(back && QApplication::activeModalWidget() == nullptr);
  }
};

}  // namespace nira

QTEST_MAIN(nira::BNKRTNTest)
#include "BNKRTNTest.moc"
