// SPDX-License-Identifier: Apache-2.0
#include "line/Monit_Com.h"
#include "support/CommFixture.h"

#include <QApplication>

#include <set>

namespace nira {

using namespace Qt::StringLiterals;

namespace {

/// Keeps the percentage that is on the screen.
class Screen : public QObject {
 public:
  bool eventFilter(QObject* picture, QEvent* event) override {
    if (event->type() == QEvent::Paint) {
      Percent = static_cast<const ProgressPicture*>(picture)->Percent();
    }
    return false;
  }
  int Percent = -1;
};

/// A monitor on a scripted line, and what it shows whenever the program sends something.
struct MonitorFixture : CommFixture {
  MonitorFixture() { monitor.findChild<QWidget*>(u"Picture1"_qs)->installEventFilter(&screen); }

  TransferEnd Run(const char* code, const QString& item = {}) {
    serial.Device = [this, device = serial.Device](const QByteArray& out) {
      Look();
      if (OnOutput) OnOutput();
      device(out);
    };
    WorkFile into(Path(u"_._"_qs));
    return monitor.Run({code, {}, &into, item});
  }

  void Look() {
    const auto text = [this](const QString& name) {
      return monitor.findChild<QLabel*>(name)->text();
    };
    const QString now = QStringList{monitor.windowTitle(), text(u"Label1"_qs), text(u"Label2"_qs),
                                    QString::number(screen.Percent)}
                            .join(u'|');
    counts = QStringList{text(u"Items"_qs), text(u"Frames"_qs), text(u"Seconds"_qs)}.join(u'|');
    if (shown.isEmpty() || shown.constLast() != now) shown.append(now);
    widths.insert(monitor.findChild<QLabel*>(u"Label2"_qs)->geometry().width());
    visible = visible && monitor.isVisible() && monitor.isModal();
  }

  std::function<void()> OnOutput;
  Monit_Com monitor{comm, nullptr};
  Screen screen;
  QStringList shown;
  QString counts;        // below the item, as last
  std::set<int> widths;  // of the line with the record
  bool visible = true;
};

}  // namespace

/// The window in which a transfer runs.
class MonitComTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  /// What it shows is on the screen although nothing but the job runs, and stands still.
  void ShowsTheJob() {
    MonitorFixture f;
    f.program.SetLimits(4, 32, 255);
    f.program.SetRow(3, 0, RowOf(u"10-20"_qs));
    f.Acknowledge();
    QCOMPARE(f.Run("?FW"), TransferEnd::Done);
    const QString head = u"NIRA QX-32   360|TRASMISSIONE IN CORSO|"_qs;
    QCOMPARE(f.shown, QStringList({head + u"|0", head + u"SIZE N. 1|25", head + u"SIZE N. 2|50",
                                   head + u"SIZE N. 3|75", head + u"SIZE N. 4|100"}));
    QVERIFY(f.visible);
    QVERIFY(!f.monitor.isVisible());
    QCOMPARE(f.counts, u"SIZE 4 OF 4|FRAMES: 8|ABOUT 1 S LEFT"_qs);
  }

  void NothingJumps() {
    MonitorFixture f;
    const QByteArray longRecord = "FORMATO N. " + QByteArray(300, 'W') + "\t\x7f 11";
    f.Play({Frame("FUNZIONI"), Frame(longRecord), Frame("FORMATO N. 02"), Frame("END")});
    QCOMPARE(f.Run("?FR", u"32 22 255  NIRA"_qs), TransferEnd::Done);
    QVERIFY(f.shown.constFirst().endsWith(u"|32 22 255  NIRA|0"_qs));
    QVERIFY(f.shown.at(1).contains(u"…|50"_qs));
    QCOMPARE(f.widths.size(), 1U);
  }

  /// Neither the operator nor another activation disturbs the job; every showing runs one.
  void OnceAShowingToTheEnd() {
    MonitorFixture f;
    f.OnOutput = [&f] {
      f.monitor.close();
      QTest::keyClick(&f.monitor, Qt::Key_Escape);
      QEvent again(QEvent::ActivationChange);
      QApplication::sendEvent(&f.monitor, &again);
      QApplication::processEvents();
    };
    f.Acknowledge();
    QCOMPARE(f.Run("?FW"), TransferEnd::Done);
    QVERIFY(f.visible);
    QCOMPARE(f.serial.Written.count("?FW"), 1);
    f.serial.GoneAfter(60);
    f.prompts.Expect();
    QCOMPARE(f.monitor.Run({Job::SendSizes}), TransferEnd::PortError);
    QCOMPARE(f.serial.Written.count("?FW"), 2);
  }
};

}  // namespace nira

QTEST_MAIN(nira::MonitComTest)
#include "MonitComTest.moc"
