// SPDX-License-Identifier: Apache-2.0
#include "Simulation.h"
#include "support/CamFileFixture.h"

#include <QFileInfo>
#include <QTest>
#include <QTextStream>
#include <QTimer>

#include <csignal>
#include <functional>

namespace nira {

using namespace Qt::StringLiterals;

/// kplctl simulate, from its options to the interrupt.
class SimulationTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void UntilInterrupted() {
    CamFileFixture f;
    SimulateOptions options;
    options.program = QStringLiteral(NIRA_SOURCE_FOLDER "/samples/press.CAM");
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
    const QString text = QStringLiteral(NIRA_SOURCE_FOLDER "/README.md");
    const std::function<void(SimulateOptions&)> wrong[] = {
        [](auto& o) { o.cams = 33; },
        [](auto& o) {
          o.faults = QStringList{u"nak=1"_qs, u"nonsense"_qs};
        },
        [](auto& o) { o.program = u"none.cam"_qs; }, [&](auto& o) { o.firmware = text; },
        [](auto& o) { o.link = u"none/com1"_qs; }};
    for (const auto& set : wrong) {
      SimulateOptions options;
      set(options);
      QString printed;
      QTextStream stream(&printed);
      QCOMPARE(Simulate(options, stream, stream), 1);
      QVERIFY(printed.startsWith(u"kplctl: "_qs));
    }
  }
};

}  // namespace nira

QTEST_GUILESS_MAIN(nira::SimulationTest)
#include "SimulationTest.moc"
