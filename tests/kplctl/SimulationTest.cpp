// SPDX-License-Identifier: Apache-2.0
#include "Simulation.h"
#include "support/CamFileFixture.h"

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
#ifndef Q_OS_LINUX
    QSKIP("simulated on Linux alone");
#endif
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

  void Refused_data() {
    QTest::addColumn<SimulateOptions>("options");
    const auto row = [](const char* name, auto set) {
      SimulateOptions options;
      set(options);
      QTest::newRow(name) << options;
    };
    const QString text = QStringLiteral(NIRA_SOURCE_FOLDER "/README.md");
    row("cams", [](auto& o) { o.cams = 33; });
    row("sizes", [](auto& o) { o.sizes = 0; });
    row("messages", [](auto& o) { o.messages = 256; });
    row("baud", [](auto& o) { o.baud = 0; });
    row("fault", [](auto& o) { o.faults = QStringList{u"nak=1"_qs, u"nonsense"_qs}; });
    row("no program", [](auto& o) { o.program = u"none.cam"_qs; });
    row("no cam file", [&](auto& o) { o.program = text; });
    row("other cams", [](auto& o) {
      o.cams = 16;
      o.program = QStringLiteral(NIRA_SOURCE_FOLDER "/samples/press.CAM");
    });
    row("no firmware", [](auto& o) { o.firmware = u"none.abs"_qs; });
    row("no HEX file", [&](auto& o) { o.firmware = text; });
    row("no folder", [](auto& o) { o.link = u"none/com1"_qs; });
  }

  void Refused() {
    QFETCH(SimulateOptions, options);
    QString out;
    QString err;
    QTextStream outStream(&out);
    QTextStream errStream(&err);
    QCOMPARE(Simulate(options, outStream, errStream), 1);
    QVERIFY(err.contains(u"kplctl: "_qs));
    QCOMPARE(out, QString());
  }
};

}  // namespace nira

Q_DECLARE_METATYPE(nira::SimulateOptions)

QTEST_GUILESS_MAIN(nira::SimulationTest)
#include "SimulationTest.moc"
