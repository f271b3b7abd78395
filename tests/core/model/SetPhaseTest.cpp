// SPDX-License-Identifier: Apache-2.0
#include "model/CamProgram.h"
#include "model/PhaseMove.h"
#include "model/PhasePreview.h"
#include "support/Rows.h"
#include "support/Tables.h"

#include <QMap>
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

/// "1,2>0-100" for phases that become one, "1>" for one that goes, "+5-10" for a new one, then what
/// is to be minded.
QString Told(const PhasePreview& preview) {
  QStringList words;
  for (const PhaseChange& change : preview.changes) {
    QStringList numbers;
    for (const int number : change.numbers) numbers.append(QString::number(number));
    const bool goes = change.kind == PhaseChange::Kind::Deleted;
    const QString after = QStringLiteral("%1-%2").arg(change.after.on).arg(change.after.off);
    const QString sign = numbers.isEmpty() ? QStringLiteral("+") : QStringLiteral(">");
    words.append(numbers.join(u',') + sign + (goes ? QString() : after));
  }
  if (preview.neighbourGoes) words.append(QStringLiteral("beside"));
  if (!preview.keptInFile) words.append(QStringLiteral("file"));
  return words.join(u' ');
}

}  // namespace

/// Phases in one row of the degree map: writing, cutting and deleting them, and how they are shown.
class SetPhaseTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void OneEntry_data() {
    TextTable({"before", "entry", "after", "told"},
              {{"shrinks the larger phase", "10-50", "20 30", "20-30", "1>20-30"},
               {"merges what it spans", "10-20 40-50", "0 100", "0-100", "1,2>0-100"},
               {"overlap at the end goes entirely", "15-40", "10 20", "10-20", "1>10-20"},
               {"the run that ends at ON goes", "10-20", "20 30", "20-30", "1>20-30"},
               {"the run at OFF+1 stays", "11-16", "5 10", "5-10 11-16", "+5-10"},
               {"no wrap of the backward cut", "355-360", "0 10", "0-10 355-360", "1>355-10"},
               {"a run at OFF+1 the file loses", "11-16 355-360", "0 10", "0-10 11-16 355-360",
                "1>355-10 file"},
               {"across, OFF+1 goes", "100-110 11-16", "350 10", "0-10 100-110 350-360",
                "+350-10 1> beside"},
               {"across to 0, the run at 0 goes", "0-5", "359 0", "359-360", "1>359-0"},
               {"350 to 0 beside 0-350", "0-350", "350 0", "", "1> beside"},
               {"deletes the phase that ends there", "20-30", "30 30", "", "1>"},
               {"deletes one half", "0-10 350-360", "5 5", "350-360", "1>350-0"},
               {"is there already", "0-10 350-360", "350 10", "0-10 350-360", ""}});
  }

  void OneEntry() {
    QFETCH(QString, before);
    QFETCH(QString, entry);
    CamProgram program;
    program.SetLimits(3, 3, 1);
    const CamRow others = RowOf(u"0-7 100-200 300-360"_qs);
    for (int i = 0; i < 9; ++i) program.SetRow(1 + i / 3, i % 3, others);
    program.SetRow(2, 1, RowOf(before));
    program.SetPhase(2, 1, entry.section(u' ', 0, 0).toInt(), entry.section(u' ', 1).toInt());
    QTEST(RunsOf(program.CamMap(2, 1)), "after");
    const int on = entry.section(u' ', 0, 0).toInt();
    QTEST(Told(PhasePreview::Of(RowOf(before), on, entry.section(u' ', 1).toInt())), "told");
    program.SetRow(2, 1, others);
    for (int i = 0; i < 9; ++i) QCOMPARE(program.CamMap(1 + i / 3, i % 3), others);
  }

  /// "w 20": the first phase is moved as a whole by 20 degrees, "on" and "off" one of its ends;
  /// "x": it is deleted. Undo is one step.
  void Moving_data() {
    TextTable({"before", "move", "after", "told"},
              {{"apart from where it was", "10-20 40-50", "w 15", "25-35 40-50", "1>25-35"},
               {"back across the end", "10-20 40-50", "w -15", "0-5 40-50 355-360", "1>355-5"},
               {"off the end", "0-10 350-360", "w 12", "2-22", "1>2-22"},
               {"over another one", "10-20 40-50", "w 30", "40-50", "1> beside"},
               {"onto the beginning of one", "10-20 40-50", "off 20", "10-40", "1,2>10-40"},
               {"shorter", "10-20 40-50", "on 4", "14-20 40-50", "1>14-20"},
               {"a degree is left", "10-20", "off -400", "10-11", "1>10-11"},
               {"all but two", "10-20", "on -400", "0-20 22-360", "1>22-20"},
               {"all but one stays", "0-359", "w 5", "0-359", ""},
               {"ON in across the end", "0-10 350-360", "on 15", "5-10", "1>5-10"},
               {"across, one degree beside it", "0-10 12-20 350-360", "off 1", "0-11 350-360",
                "1>350-11 2> beside"},
               {"the whole cycle shorter", "0-360", "off -10", "0-350", "1>0-350"},
               {"the whole cycle stays", "0-360", "w 10", "0-360", "file"},
               {"and becomes no longer", "0-360", "on -10", "0-360", "file"},
               {"a half", "0-10 100-110 350-360", "x", "100-110", ""}});
  }

  void Moving() {
    QFETCH(QString, before);
    QFETCH(QString, move);
    QFETCH(QString, after);
    CamProgram program;
    program.SelectSize(2);
    program.SelectCam(3);
    program.SetRow(2, 3, RowOf(before));
    const Phase phase = PhaseList::Of(RowOf(before)).phases.front();
    const QMap<QString, PhasePart> parts = {
        {u"w"_qs, PhasePart::Whole}, {u"on"_qs, PhasePart::On}, {u"off"_qs, PhasePart::Off}};
    std::optional<Phase> wanted;
    if (move != u"x"_qs) {
      const int degrees = move.section(u' ', 1).toInt();
      wanted = Moved(phase, parts.value(move.section(u' ', 0, 0)), degrees);
      QTEST(Told(PhasePreview::OfReplacing(RowOf(before), phase, *wanted)), "told");
    }
    const auto revision = program.Revision();
    QCOMPARE(ReplacePhase(program, phase, wanted), before != after);
    QCOMPARE(RunsOf(program.CamMap(2, 3)), after);
    QCOMPARE(program.Revision() - revision, before == after ? 0U : 1U);
    QCOMPARE(program.IsSaved, before == after);
    QCOMPARE(RunsOf(program.UndoRow()), before == after ? QString() : before);
    QVERIFY(!ReplacePhase(program, {77, 78}, Phase{90, 95}));  // there is none
  }

  /// Random entries against the other formulation; what did not change is not counted as a change.
  void ManyEntries() {
    std::mt19937 random(20240);
    const auto pick = [&random](int count) { return static_cast<int>(random() % unsigned(count)); };
    const auto degree = [&] {  // often near the end of the cycle, where the cases meet
      return pick(3) == 0 ? (350 + pick(20)) % 360 : pick(3) == 0 ? pick(30) : pick(360);
    };
    CamProgram program;
    for (int round = 0; round < 40000; ++round) {
      const int cam = pick(3);
      if (pick(200) == 0) program.ClearSize(1);
      const int on = degree();
      const int off = pick(3) == 0 ? on : degree();
      const std::string before = Digits(program.CamMap(1, cam));
      const auto revision = program.Revision();
      program.SetPhase(1, cam, on, off);
      const std::string after = Digits(program.CamMap(1, cam));
      const auto what =
          u"on %1 off %2 in %3"_qs.arg(on).arg(off).arg(QString::fromStdString(before));
      QVERIFY2(after == Expected(before, std::size_t(on), std::size_t(off)), qPrintable(what));
      QVERIFY2((program.Revision() != revision) == (before != after), qPrintable(what));
    }
  }

  /// The lines of the list and the boxes; e: in the colour of the ends, r: to the right edge.
  void ListAndBoxes_data() {
    TextTable(
        {"lines", "runs"},
        {{"", "", ""},
         {"1-359", "F001 001 359", "1-359"},
         {"0-360", "F001 000 360", "0-360er"},
         {"0-180 181-360", "F001 181 180", "0-180e 181-360er"},
         {"5-6 100-200 350-360", "F001 350 000|F002 005 006|F003 100 200", "350-360er 5-6 100-200"},
         {"0-2 3-4 358-360", "F001 358 002|F002 003 004", "0-2e 358-360er 3-4"}});
  }

  void ListAndBoxes() {
    const PhaseList list = PhaseList::Of(RowOf(QString::fromLatin1(QTest::currentDataTag())));
    QTEST(list.Lines().join(u'|'), "lines");
    QStringList runs;
    for (const Run& run : list.runs) {
      runs.append(QString::number(run.on) + u'-' + QString::number(run.off) +
                  (run.atEnd ? u"e"_qs : QString()) + (run.toTheEdge ? u"r"_qs : QString()));
    }
    QTEST(runs.join(u' '), "runs");
  }
};

}  // namespace nira

QTEST_APPLESS_MAIN(nira::SetPhaseTest)
#include "SetPhaseTest.moc"
