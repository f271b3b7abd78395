// SPDX-License-Identifier: Apache-2.0
#include "model/AdvanceCalculator.h"
#include "model/Switching.h"
#include "support/Rows.h"

#include <QTest>

#include <tuple>
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
    QCOMPARE(A::Duration(600, 127), u"35.3 ms"_qs);
    QCOMPARE(A::Duration(1, 360), u"60000 ms"_qs);
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

  /// Each cam by the one value that is in force for it; whole turns change nothing.
  void Outputs() {
    CamProgram program;
    FunctionsBlock block;
    block.AdvanceOn = 1;
    block.AdvanceLast = 15;
    block.CamFunc = {10, 255, 0};
    block.CamFunc[16] = 99;  // of a cam that has a delay
    block.DelayOn = 1;
    block.Delay17to20 = 20;
    block.Delay21to24 = 1;
    block.Ratio25On = 1;
    block.Ratio25to32 = 4;
    program.SetFunctions(block);
    using Case = std::tuple<int, int, const char*>;
    for (const auto& [cam, speed, runs] : {Case{0, 600, "64-74"},  // 36 degrees
                                           {0, 16, "100-110"},     // 0.96 of a degree
                                           {0, 4000, "220-230"},   // 240
                                           {1, 4000, "100-110"},   // 17 turns
                                           {2, 4000, "100-110"},
                                           {16, 600, "172-182"},
                                           {19, 2200, "0-10 352-360"},  // 264
                                           {20, 600, "103-113"},
                                           {24, 600, "100-110"}}) {
      const CamRow row = RowOf(cam == 19 ? u"88-106"_qs : u"100-110"_qs);
      const Switching switching = Switching::Of(program, cam, speed);
      QCOMPARE(RunsOf(switching.Applied(row)), QString::fromLatin1(runs));
      const PhaseList moved = PhaseList::Of(switching.Applied(row));
      QCOMPARE(switching.Applied(PhaseList::Of(row).runs), moved.runs);
      QCOMPARE(switching.Applied(PhaseList::Of(row).phases.front()), moved.phases.front());
      QCOMPARE(switching.moved, cam != 2 && cam != 24);
      QCOMPARE(switching.ratio.value_or(-1), cam == 24 ? 4 : -1);
    }
    block.AdvanceOn = 0;
    program.SetFunctions(block);
    QVERIFY(!Switching::Of(program, 0, 600).moved);
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
