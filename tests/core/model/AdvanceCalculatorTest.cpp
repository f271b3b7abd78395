// SPDX-License-Identifier: Apache-2.0
#include "model/AdvanceCalculator.h"
#include "support/Rows.h"

#include <QTest>

#include <utility>

namespace nira {

using namespace Qt::StringLiterals;

class AdvanceCalculatorTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Examples() {
    using A = AdvanceCalculator;
    QCOMPARE(A::Angle(345, 100), 206);  // 207 in exact arithmetic
    QCOMPARE(A::Turns(A::Angle(4000, 210)), 14);
    QCOMPARE(A::Degrees(A::Angle(4000, 210)), 0);
    QCOMPARE(A::TimeFor(100, 360), 600);
  }

  /// Double precision falls one degree short of exact arithmetic at 38 pairs and nowhere else.
  void EveryPair() {
    int different = 0;
    for (int n = 1; n <= 4000; ++n) {
      for (int t = 0; t <= 210; ++t) {
        const int lacks = n * 6 * t / 1000 - AdvanceCalculator::Angle(n, t);
        if (lacks < 0 || lacks > 1) QFAIL(qPrintable(u"%1 rev/min, %2 ms"_qs.arg(n).arg(t)));
        different += lacks;
      }
    }
    QCOMPARE(different, 38);
  }

  void EveryWantedAngle() {
    for (int n = 1; n <= 4000; ++n) {
      AdvanceCalculator::Setting expected;
      for (int wanted = 1; wanted <= 360; ++wanted) {
        const int time = (wanted * 1000 + 3) / 6 / n;  // thirds: no halves to round
        if (time <= 210) expected = {wanted, time};
        if (AdvanceCalculator::Fitting(n, wanted) == expected) continue;
        QFAIL(qPrintable(u"%1 rev/min, %2 degrees"_qs.arg(n).arg(wanted)));
      }
    }
  }

  /// A full turn shifts by 1.
  void Shift() {
    const CamRow row = RowOf(u"50-60 100-101"_qs);
    for (const auto& [angle, runs] : {std::pair(0, "50-60 100-101"),
                                      {90, "10-11 320-330"},
                                      {359, "51-61 101-102"},
                                      {360, "49-59 99-100"},
                                      {720, "48-58 98-99"}}) {
      QCOMPARE(RunsOf(AdvanceCalculator::Shifted(row, angle)), QString::fromLatin1(runs));
    }
  }
};

}  // namespace nira

QTEST_APPLESS_MAIN(nira::AdvanceCalculatorTest)
#include "AdvanceCalculatorTest.moc"
