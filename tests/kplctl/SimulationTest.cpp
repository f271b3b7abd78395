// SPDX-License-Identifier: Apache-2.0
#include "Simulation.h"
#include "support/CamFileFixture.h"
#include "support/Kplctl.h"

#include <QFileInfo>
#include <QTest>
#include <QTextStream>
#include <QTimer>

#include <csignal>

namespace nira {

using namespace Qt::StringLiterals;

/// kplctl simulate, from its options to the interrupt.
class SimulationTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void UntilInterrupted() {
    CamFileFixture f;
    SimulateOptions options;
    options.program = Sample("press.CAM");
    options.messages = 180;
    options.link = f.Path("com1");
    bool linked = false;
    QTimer::singleShot(0, this, [&] {
      linked = QFileInfo(options.link).isSymLink();
      std::raise(SIGTERM);
    });
    QString out;
    QString err;
    QTextStream outStream(&out);
    QTextStream errStream(&err);
    QCOMPARE(Simulate(options, outStream, errStream), 0);
    QVERIFY(linked && !QFileInfo(options.link).isSymLink());
    QVERIFY2(out.contains(u"32 cams, 22 sizes and 180 messages on "_qs), qPrintable(out));
    QCOMPARE(err, QString());
  }

  void Refused() {
    for (const char* options :
         {"--cams 33", "--fault no-cts=3", "--fault nak=1 --fault nonsense", "--program none.cam",
          "--firmware " NIRA_SOURCE_FOLDER "/README.md", "--link none/com1"}) {
      const Ran ran = Kplctl(QString(u"simulate "_qs + options).split(u' '));
      QCOMPARE(ran.status, 1);
      QVERIFY2(ran.err.startsWith(u"kplctl: "_qs), options);
    }
  }
};

}  // namespace nira

QTEST_GUILESS_MAIN(nira::SimulationTest)
#include "SimulationTest.moc"
