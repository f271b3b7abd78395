#include "model/CamProgram.h"
#include "support/Rows.h"

#include <QTest>

#include <random>

namespace nira {

namespace {

/// What a row of '0' and '1' becomes, found by searching instead of walking.
std::string Expected(std::string row, std::size_t on, std::size_t off) {
  if (off > on) row.replace(on, off - on, off - on, '1');
  if (off < on) {
    row.replace(on, 360 - on, 360 - on, '1');
    if (off > 0) row.replace(0, off + 1, off + 1, '1');
  }
  const std::size_t end = std::min(row.find('0', off), row.size());
  row.replace(off, end - off, end - off, '0');
  if (on == 0) return row;
  const std::size_t gap = row.rfind('0', on - 1);
  const std::size_t begin = gap == std::string::npos ? 0 : gap + 1;
  return row.replace(begin, on - begin, on - begin, '0');
}

std::string Digits(const CamRow& row) {
  std::string digits;
  for (const auto cell : row) digits.push_back(static_cast<char>('0' + cell));
  return digits;
}

}  // namespace

/// Writing, cutting and deleting of phases in one row of the degree map.
class SetPhaseTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void OneEntry_data() {
    QTest::addColumn<QString>("before");
    QTest::addColumn<int>("on");
    QTest::addColumn<int>("off");
    QTest::addColumn<QString>("after");
    const auto row = [](const char* name, const char* before, int on, int off, const char* after) {
      QTest::newRow(name) << QString::fromLatin1(before) << on << off << QString::fromLatin1(after);
    };
    row("empty row", "", 10, 20, "10-20");
    row("shrinks the larger phase", "10-50", 20, 30, "20-30");
    row("merges what it spans", "10-20 40-50", 0, 100, "0-100");
    row("overlap at the end goes entirely", "15-40", 10, 20, "10-20");
    row("overlap at the start goes entirely", "5-15", 10, 20, "10-20");
    row("the run that begins at OFF goes", "20-30", 10, 20, "10-20");
    row("the run that ends at ON goes", "10-20", 20, 30, "20-30");
    row("the run at OFF+1 stays", "11-16", 5, 10, "5-10 11-16");
    row("no wrap of the backward cut", "355-360", 0, 10, "0-10 355-360");
    row("no wrap of the forward cut", "0-5", 350, 359, "0-5 350-359");
    row("0 to 359", "", 0, 359, "0-359");
    row("in a full row", "0-360", 100, 200, "100-200");
    row("across the end", "", 350, 10, "0-10 350-360");
    row("across, the run at OFF+1 goes", "100-110 11-16", 350, 10, "0-10 100-110 350-360");
    row("across, the run at OFF+2 stays", "12-16", 350, 10, "0-10 12-16 350-360");
    row("across, the run before ON goes", "340-350", 350, 10, "0-10 350-360");
    row("across to 0", "", 359, 0, "359-360");
    row("across to 0, the run at 0 goes", "0-5", 359, 0, "359-360");
    row("across to 0, the run at 1 stays", "1-5", 359, 0, "1-5 359-360");
    row("1 to 0", "", 1, 0, "1-360");
    row("100 to 99", "", 100, 99, "0-99");
    row("359 to 358", "", 359, 358, "0-358");
    row("350 to 0 beside 0-350", "0-350", 350, 0, "");
    row("across, in a full row", "0-360", 200, 100, "0-100");
    row("deletes the phase at 0", "0-10 20-30", 0, 0, "20-30");
    row("deletes around the degree", "20-30", 25, 25, "");
    row("deletes from its first degree", "20-30", 20, 20, "");
    row("deletes the phase that ends there", "20-30", 30, 30, "");
    row("deletes only what it touches", "20-30", 31, 31, "20-30");
    row("deletes one half, low", "0-10 350-360", 5, 5, "350-360");
    row("deletes one half, high", "0-10 350-360", 355, 355, "0-10");
    row("deletes at 359", "5-6 350-360", 359, 359, "5-6");
    row("deletes nothing", "", 0, 0, "");
  }

  void OneEntry() {
    QFETCH(QString, before);
    QFETCH(int, on);
    QFETCH(int, off);
    CamProgram program;
    program.SetLimits(3, 3, 1);
    const CamRow others = RowOf(QStringLiteral("0-7 100-200 300-360"));
    for (int size = 1; size <= 3; ++size) {
      for (int cam = 0; cam < 3; ++cam) program.SetRow(size, cam, others);
    }
    program.SetRow(2, 1, RowOf(before));
    program.SetPhase(2, 1, on, off);
    QTEST(RunsOf(program.CamMap(2, 1)), "after");
    program.SetRow(2, 1, others);
    for (int size = 1; size <= 3; ++size) {
      for (int cam = 0; cam < 3; ++cam) QCOMPARE(program.CamMap(size, cam), others);
    }
  }

  /// Random entries against the other formulation; what did not change is not counted as a change.
  void ManyEntries() {
    std::mt19937 random(20240);
    CamProgram program;
    int uncounted = 0;
    int overcounted = 0;
    for (int round = 0; round < 40000; ++round) {
      const auto pick = [&random](int count) {
        return static_cast<int>(random() % unsigned(count));
      };
      const auto degree = [&] {  // often near the end of the cycle, where the cases meet
        return pick(3) == 0 ? (350 + pick(20)) % 360 : pick(3) == 0 ? pick(30) : pick(360);
      };
      const int size = 1 + pick(3);
      const int cam = pick(3);
      if (pick(200) == 0) program.ClearSize(size);
      const int on = degree();
      const int off = pick(3) == 0 ? on : degree();
      const std::string before = Digits(program.CamMap(size, cam));
      const auto revision = program.Revision();
      program.SetPhase(size, cam, on, off);
      const std::string after = Digits(program.CamMap(size, cam));
      const std::string expected = Expected(before, std::size_t(on), std::size_t(off));
      if (after != expected) {
        qWarning("before  %s\non %d off %d", before.c_str(), on, off);
        QCOMPARE(QByteArray::fromStdString(after), QByteArray::fromStdString(expected));
      }
      const bool counted = program.Revision() != revision;
      uncounted += before != after && !counted;
      overcounted += before == after && counted;
    }
    QCOMPARE(uncounted, 0);
    QCOMPARE(overcounted, 0);
  }
};

}  // namespace nira

QTEST_APPLESS_MAIN(nira::SetPhaseTest)
#include "SetPhaseTest.moc"
