// SPDX-License-Identifier: Apache-2.0
#include "model/CamProgram.h"
#include "support/Rows.h"

#include <QTest>

#include <functional>
#include <limits>

Q_DECLARE_METATYPE(std::function<void(nira::CamProgram&)>)

namespace nira {

namespace {

using Operation = std::function<void(CamProgram&)>;

/// Size 2 and cam 2 selected, something everywhere, limits of 3 sizes and 4 cams.
CamProgram FilledProgram() {
  CamProgram program;
  program.SetLimits(3, 4, 10);
  for (int cam = 0; cam < 4; ++cam) {
    for (int size = 1; size <= 3; ++size) program.SetPhase(size, cam, 10 * size + cam, 100);
    program.SetCamText(cam, QString::number(cam) + u" cam");
  }
  program.SetPhase(2, 1, 350, 10);
  program.SetMessageText(200, u"message"_qs);
  FunctionsBlock block{1, 1, 1, 1, 2, 3, 4, 5, 6, -7, 1, 8, 2, {}};
  block.CamFunc.fill(9);
  program.SetFunctions(block);
  program.SelectSize(2);
  program.SelectCam(1);
  program.KeepUndoRow();
  return program;
}

bool SameContent(const CamProgram& a, const CamProgram& b) {
  return a.NumSizes() == b.NumSizes() && a.NumCams() == b.NumCams() &&
         ContentOf(a) == ContentOf(b) && a.Functions() == b.Functions();
}

}  // namespace

/// Limits, clearing, selection, undo row and revision of the cam program.
class CamProgramTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void IndexOutsideChangesNothing_data() {
    QTest::addColumn<Operation>("operation");
    using Indexed = void (*)(CamProgram&, int);
    const auto row = [](const char* name, const QList<int>& indexes, Indexed operation) {
      constexpr int least = std::numeric_limits<int>::min();
      constexpr int most = std::numeric_limits<int>::max();
      for (const int i : QList{least, -1, most} + indexes) {
        QTest::addRow("%s %d", name, i) << Operation([=](CamProgram& p) { operation(p, i); });
      }
    };
    row("size", {0, 4, 99, 100}, [](CamProgram& p, int i) { p.SetPhase(i, 1, 10, 20); });
    row("read", {0, 4}, [](CamProgram& p, int i) { (void)p.CamMap(i, 1); });
    row("clear", {0, 4}, [](CamProgram& p, int i) { p.ClearSize(i); });
    row("select", {0, 4}, [](CamProgram& p, int i) { p.SelectSize(i); });
    row("cam", {4, 31, 32}, [](CamProgram& p, int i) { p.SetPhase(2, i, 10, 20); });
    row("select cam", {4}, [](CamProgram& p, int i) { p.SelectCam(i); });
    row("set text", {4}, [](CamProgram& p, int i) { p.SetCamText(i, u"x"_qs); });
    row("ON", {360}, [](CamProgram& p, int i) { p.SetPhase(2, 1, i, 20); });
    row("OFF", {360}, [](CamProgram& p, int i) { p.SetPhase(2, 1, 20, i); });
    row("message", {0, 256}, [](CamProgram& p, int i) { p.SetMessageText(i, u"x"_qs); });
    row("messages", {0, 256}, [](CamProgram& p, int i) { p.SetLimits(1, 1, i); });
    row("sizes", {0, 100}, [](CamProgram& p, int i) { p.SetLimits(i, 1, 1); });
    row("cams", {0, 33}, [](CamProgram& p, int i) { p.SetLimits(1, i, 1); });
    row("advances", {32}, [](CamProgram& p, int i) {
      FunctionsBlock block;
      block.AdvanceLast = static_cast<std::int16_t>(i == 32 ? 32 : -1);
      p.SetFunctions(block);
    });
  }

  void IndexOutsideChangesNothing() {
    QFETCH(Operation, operation);
    const CamProgram before = FilledProgram();
    CamProgram program = before;
    QVERIFY_THROWS_EXCEPTION(IndexError, operation(program));
    QVERIFY(SameContent(program, before));
    QVERIFY(program.UndoRow() == before.UndoRow() && program.NumMessages() == 10);
    QCOMPARE(program.CurrentSize() * 10 + program.CurrentCam(), 21);
    QCOMPARE(program.Revision(), before.Revision());
  }

  void DescriptionThatNoFileCanHold() {
    CamProgram program = FilledProgram();
    for (const QString& text : {u"two\nlines"_qs, u"\u0416"_qs, u"\U0001F600"_qs}) {
      QVERIFY_THROWS_EXCEPTION(std::invalid_argument, program.SetCamText(1, text));
      QCOMPARE(program.CamText(1), u"1 cam"_qs);
    }
  }

  void LimitsAloneLoseNothing() {
    const CamProgram before = FilledProgram();
    CamProgram program = before;
    program.SetLimits(1, 1, 1);
    QCOMPARE(program.CurrentSize(), 1);
    QCOMPARE(program.CurrentCam(), 0);
    QCOMPARE(program.LastAdvance(), 0);
    QVERIFY_THROWS_EXCEPTION(IndexError, (void)program.CamMap(2, 0));
    program.SetLimits(3, 4, 10);
    QCOMPARE(program.Functions(), before.Functions());
    QCOMPARE(ContentOf(program), ContentOf(before));
    QCOMPARE(program.MessageText(200), u"message"_qs);
  }

  void HiddenCellsNeverComeBack() {
    using Clear = void (CamProgram::*)();
    for (const auto& [clear, left] : {std::pair<Clear, QString>(&CamProgram::ResetProgram, {}),
                                      {&CamProgram::DimensionModel, u"1 = 0 cam; 2 = 1 cam"_qs}}) {
      CamProgram program = FilledProgram();
      program.SetLimits(1, 2, 1);
      (program.*clear)();
      program.SetLimits(3, 4, 10);
      QCOMPARE(ContentOf(program), left);
      QCOMPARE(program.MessageText(200), u"message"_qs);
      const FunctionsBlock& got = program.Functions();
      QCOMPARE(got.CamFunc[2], 0);
      QCOMPARE(got.CamFunc[1], left.isEmpty() ? 0 : 9);
    }
  }

  void ClearingKeepsTheRest() {
    CamProgram program = FilledProgram();
    program.ClearSize(2);
    QVERIFY(!ContentOf(program).contains(u"2."_qs));
    QVERIFY(ContentOf(program).contains(u"1.4: 13-100; 3.1"));
    program.ClearFunctions();
    QVERIFY((program.Functions() == FunctionsBlock{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 2, {}}));
  }

  void UndoRowGoesToTheCamThatIsCurrent() {
    CamProgram program = FilledProgram();
    const CamRow kept = program.CamMap(2, 1);
    program.SetPhase(2, 1, 200, 210);
    program.RestoreUndoRow();
    QCOMPARE(program.CamMap(2, 1), kept);
    program.SelectSize(3);
    program.SelectCam(3);
    program.RestoreUndoRow();
    QCOMPARE(program.CamMap(3, 3), kept);
  }

  void RevisionCountsChanges_data() {
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<bool>("changes");
    const auto row = [](const char* name, bool changes, const Operation& operation) {
      QTest::newRow(name) << operation << changes;
    };
    row("same phase across", false, [](CamProgram& p) { p.SetPhase(2, 1, 350, 10); });
    row("other row", true, [](CamProgram& p) { p.SetRow(1, 1, CamRow{}); });
    row("same text", false, [](CamProgram& p) { p.SetCamText(1, p.CamText(1)); });
    row("other text", true, [](CamProgram& p) { p.SetCamText(1, QString()); });
    row("same functions", false, [](CamProgram& p) { p.SetFunctions(p.Functions()); });
    row("other functions", true, [](CamProgram& p) { p.SetFunctions({}); });
    row("undo of nothing", false, [](CamProgram& p) { p.RestoreUndoRow(); });
    row("undo elsewhere", true, [](CamProgram& p) { p.SelectCam(0), p.RestoreUndoRow(); });
    row("fewer sizes", true, [](CamProgram& p) { p.SetLimits(2, 4, 10); });
    row("clears all sizes", true, [](CamProgram& p) { p.ClearAllSizes(); });
    row("clears the texts", true, [](CamProgram& p) { p.ClearCamLabels(); });
  }

  /// Whoever compares two numbers learns whether the program is still the same.
  void RevisionCountsChanges() {
    QFETCH(Operation, operation);
    QFETCH(bool, changes);
    const CamProgram before = FilledProgram();
    CamProgram program = before;
    operation(program);
    QCOMPARE(SameContent(program, before), !changes);
    QCOMPARE(program.Revision() != before.Revision(), changes);
  }
};

}  // namespace nira

QTEST_APPLESS_MAIN(nira::CamProgramTest)
#include "CamProgramTest.moc"
