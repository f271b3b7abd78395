// SPDX-License-Identifier: Apache-2.0
#include "model/AdvanceCalculator.h"
#include "support/Rows.h"

#include <QTest>

#include <bit>

namespace nira {

using namespace Qt::StringLiterals;

namespace {

__extension__ using Wide = unsigned __int128;

/// A product as double precision keeps it: its first 53 bits, the rest rounded half to even.
Wide Kept(Wide product) {
  int bits = 0;
  while (product >> bits != 0) ++bits;
  if (bits <= 53) return product;
  const Wide unit = Wide(1) << (bits - 53);
  const Wide rest = product % unit;
  const Wide down = product - rest;
  const bool up = rest * 2 > unit || (rest * 2 == unit && (down / unit) % 2 == 1);
  return up ? down + unit : down;
}

/// (n x 0.006) x t step by step in whole numbers, on the 53 bits that a double has of 0.006.
int StepByStep(int n, int t) {
  const auto bits = std::bit_cast<std::uint64_t>(0.006);
  const int fraction = 1075 - static_cast<int>(bits >> 52);  // binary places of the mantissa
  const Wide mantissa = (bits & ((std::uint64_t(1) << 52) - 1)) | (std::uint64_t(1) << 52);
  const Wide angle = Kept(Kept(Wide(n) * mantissa) * Wide(t));
  return static_cast<int>(angle >> fraction);
}

/// a x 166.6666666667 in ten-thousand-millionths, to the nearest integer, halves to the even one.
std::int64_t AtOneTurn(int a) {
  constexpr std::int64_t one = 10'000'000'000;
  const std::int64_t exact = a * std::int64_t(1'666'666'666'667);
  const std::int64_t rest = exact % one;
  const bool up = rest * 2 > one || (rest * 2 == one && (exact / one) % 2 == 1);
  return exact / one + (up ? 1 : 0);
}

}  // namespace

class AdvanceCalculatorTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Examples() {
    using A = AdvanceCalculator;
    QCOMPARE(A::Angle(1000, 10), 60);
    QCOMPARE(A::Angle(345, 100), 206);  // 207 in exact arithmetic
    QCOMPARE(A::Turns(A::Angle(4000, 210)), 14);
    QCOMPARE(A::Degrees(A::Angle(4000, 210)), 0);
    QCOMPARE(A::TimeFor(100, 360), 600);
    QCOMPARE(A::TimeFor(100, 127), 211);
    QVERIFY((A::Fitting(100, 360) == A::Setting{126, 210}));
  }

  void EveryPair() {
    int different = 0;
    for (int n = 1; n <= 4000; ++n) {
      for (int t = 0; t <= 210; ++t) {
        const int angle = AdvanceCalculator::Angle(n, t);
        if (angle != StepByStep(n, t)) QFAIL(qPrintable(u"%1 rev/min, %2 ms"_qs.arg(n).arg(t)));
        if (angle != n * 6 * t / 1000) ++different;
      }
    }
    QCOMPARE(different, 38);  // from exact arithmetic
  }

  void EveryWantedAngle() {
    for (int n = 1; n <= 4000; ++n) {
      AdvanceCalculator::Setting expected;
      for (int wanted = 1; wanted <= 360; ++wanted) {
        const auto time = static_cast<int>(AtOneTurn(wanted) / n);
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
