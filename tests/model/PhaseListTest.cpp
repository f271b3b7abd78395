#include "model/PhaseList.h"
#include "support/Rows.h"

#include <QTest>

namespace nira {

/// A row as the lines of the phase list and as the boxes of the diagram.
class PhaseListTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void LinesAndRuns_data() {
    QTest::addColumn<QString>("row");
    QTest::addColumn<QString>("lines");
    QTest::addColumn<QString>("runs");  // e: colour of the ends, r: to the right edge
    const auto row = [](const char* name, const char* runs, const char* lines, const char* boxes) {
      QTest::newRow(name) << QString::fromLatin1(runs) << QString::fromLatin1(lines)
                          << QString::fromLatin1(boxes);
    };
    row("empty", "", "", "");
    row("one inside", "10-20", "F001 010 020", "10-20");
    row("full", "0-360", "F001 000 360", "0-360er");
    row("across the end", "0-10 350-360", "F001 350 010", "0-10e 350-360er");
    row("at degree 0", "0-10", "F001 000 010", "0-10e");
    row("degree 0 only", "0-1", "F001 000 001", "0-1e");
    row("at degree 359", "350-360", "F001 350 000", "350-360er");
    row("degree 359 only", "359-360", "F001 359 000", "359-360er");
    row("0 and 359 only", "0-1 359-360", "F001 359 001", "0-1e 359-360er");
    row("all but 359", "0-359", "F001 000 359", "0-359e");
    row("all but 0", "1-360", "F001 001 000", "1-360er");
    row("all but 180", "0-180 181-360", "F001 181 180", "0-180e 181-360er");
    row("the end first", "5-6 100-200 350-360", "F001 350 000|F002 005 006|F003 100 200",
        "350-360er 5-6 100-200");
    row("the scan goes on to 358", "0-10 348-359", "F001 000 010|F002 348 359", "0-10e 348-359");
    row("beside both ends", "0-2 3-4 356-357 358-360", "F001 358 002|F002 003 004|F003 356 357",
        "0-2e 358-360er 3-4 356-357");
    row("1 to 358", "1-359", "F001 001 359", "1-359");
  }

  void LinesAndRuns() {
    QFETCH(QString, row);
    const PhaseList list = PhaseList::Of(RowOf(row));
    QTEST(list.Lines().join(u'|'), "lines");
    QStringList runs;
    for (const Run& run : list.runs) {
      runs.append(QString::number(run.on) + u'-' + QString::number(run.off) +
                  (run.atEnd ? QStringLiteral("e") : QString()) +
                  (run.toTheEdge ? QStringLiteral("r") : QString()));
    }
    QTEST(runs.join(u' '), "runs");
  }

  void MostPhases() {
    for (const std::size_t first : {0U, 1U}) {
      CamRow row{};
      for (std::size_t d = first; d < row.size(); d += 2) row[d] = 1;
      const QStringList lines = PhaseList::Of(row).Lines();
      QCOMPARE(lines.size(), 180);
      QCOMPARE(lines.first(),
               first == 0 ? QStringLiteral("F001 000 001") : QStringLiteral("F001 359 000"));
      QCOMPARE(lines.last(),
               first == 0 ? QStringLiteral("F180 358 359") : QStringLiteral("F180 357 358"));
    }
  }

  void FieldsOfALine() {
    const QString line = PhaseLine(7, {350, 5});
    QCOMPARE(line, QStringLiteral("F007 350 005"));
    QCOMPARE(OnField(line), QStringLiteral("350"));
    QCOMPARE(OffField(line), QStringLiteral("005"));
    QCOMPARE(OnField(QString()), QString());
    QCOMPARE(OffField(QStringLiteral("F007 350")), QString());
  }
};

}  // namespace nira

QTEST_APPLESS_MAIN(nira::PhaseListTest)
#include "PhaseListTest.moc"
