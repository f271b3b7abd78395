#include "model/CamProgram.h"
#include "support/Rows.h"

#include <QTest>

#include <functional>
#include <limits>

Q_DECLARE_METATYPE(std::function<void(nira::CamProgram&)>)

namespace nira {

namespace {

using Operation = std::function<void(CamProgram&)>;

FunctionsBlock FullBlock() {
  FunctionsBlock block{1, 1, 1, 1, 2, 3, 4, 5, 6, -7, 1, 8, 2, {}};
  block.CamFunc.fill(9);
  return block;
}

/// Size 2 and cam 2 selected, something everywhere, limits of 3 sizes and 4 cams.
CamProgram FilledProgram() {
  CamProgram program;
  program.SetLimits(3, 4, 10);
  for (int size = 1; size <= 3; ++size) {
    for (int cam = 0; cam < 4; ++cam) program.SetPhase(size, cam, 10 * size + cam, 100);
  }
  program.SetPhase(2, 1, 350, 10);
  for (int cam = 0; cam < 4; ++cam) program.SetCamText(cam, QString::number(cam) + u" cam");
  program.SetMessageText(200, QStringLiteral("message"));
  program.SetFunctions(FullBlock());
  program.SelectSize(2);
  program.SelectCam(1);
  program.KeepUndoRow();
  return program;
}

bool SameContent(const CamProgram& a, const CamProgram& b) {
  return a.NumSizes() == b.NumSizes() && a.NumCams() == b.NumCams() &&
         ContentOf(a) == ContentOf(b) && a.Functions() == b.Functions();
}

bool SameSelection(const CamProgram& a, const CamProgram& b) {
  return a.CurrentSize() == b.CurrentSize() && a.CurrentCam() == b.CurrentCam() &&
         a.UndoRow() == b.UndoRow() && a.NumMessages() == b.NumMessages();
}

void AddOperation(const char* name, bool changes, const Operation& operation) {
  QTest::newRow(name) << operation << changes;
}

}  // namespace

/// Limits, clearing, selection, undo row and revision of the cam program.
class CamProgramTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void IndexOutsideChangesNothing_data() {
    QTest::addColumn<Operation>("operation");
    constexpr int least = std::numeric_limits<int>::min();
    constexpr int most = std::numeric_limits<int>::max();
    const auto row = [](const char* name, int index, const Operation& operation) {
      QTest::addRow("%s %d", name, index) << operation;
    };
    for (const int i : {least, -1, 0, 4, 99, 100, most}) {
      row("size", i, [i](CamProgram& p) { p.SetPhase(i, 1, 10, 20); });
      row("row", i, [i](CamProgram& p) { p.SetRow(i, 1, CamRow{}); });
      row("read", i, [i](CamProgram& p) { (void)p.CamMap(i, 1); });
      row("clear", i, [i](CamProgram& p) { p.ClearSize(i); });
      row("select", i, [i](CamProgram& p) { p.SelectSize(i); });
    }
    for (const int i : {least, -1, 4, 31, 32, most}) {
      row("cam", i, [i](CamProgram& p) { p.SetPhase(2, i, 10, 20); });
      row("row of cam", i, [i](CamProgram& p) { p.SetRow(2, i, CamRow{}); });
      row("read cam", i, [i](CamProgram& p) { (void)p.CamMap(2, i); });
      row("select cam", i, [i](CamProgram& p) { p.SelectCam(i); });
      row("text", i, [i](CamProgram& p) { (void)p.CamText(i); });
      row("set text", i, [i](CamProgram& p) { p.SetCamText(i, QStringLiteral("x")); });
    }
    for (const int i : {-1, 4, 32767, -32768}) {
      row("advances", i, [i](CamProgram& p) {
        FunctionsBlock block;
        block.AdvanceLast = static_cast<std::int16_t>(i);
        p.SetFunctions(block);
      });
    }
    for (const int i : {least, -1, 360, 361, most}) {
      row("ON", i, [i](CamProgram& p) { p.SetPhase(2, 1, i, 20); });
      row("OFF", i, [i](CamProgram& p) { p.SetPhase(2, 1, 20, i); });
      row("ON and OFF", i, [i](CamProgram& p) { p.SetPhase(2, 1, i, i); });
    }
    for (const int i : {least, -1, 0, 256, most}) {
      row("message", i, [i](CamProgram& p) { p.SetMessageText(i, QStringLiteral("x")); });
      row("read message", i, [i](CamProgram& p) { (void)p.MessageText(i); });
      row("messages", i, [i](CamProgram& p) { p.SetLimits(1, 1, i); });
    }
    for (const int i : {least, -1, 0, 100, most}) {
      row("sizes", i, [i](CamProgram& p) { p.SetLimits(i, 1, 1); });
    }
    for (const int i : {least, -1, 0, 33, most}) {
      row("cams", i, [i](CamProgram& p) { p.SetLimits(1, i, 1); });
    }
  }

  void IndexOutsideChangesNothing() {
    QFETCH(Operation, operation);
    const CamProgram before = FilledProgram();
    CamProgram program = before;
    QVERIFY_EXCEPTION_THROWN(operation(program), IndexError);
    QVERIFY(SameContent(program, before) && SameSelection(program, before));
    QCOMPARE(program.Revision(), before.Revision());
  }

  void DescriptionThatNoFileCanHold() {
    CamProgram program = FilledProgram();
    for (const QString& text :
         {QStringLiteral("two\nlines"), QStringLiteral("\u0416"), QStringLiteral("\U0001F600")}) {
      QVERIFY_EXCEPTION_THROWN(program.SetCamText(1, text), std::invalid_argument);
      QCOMPARE(program.CamText(1), QStringLiteral("1 cam"));
    }
    program.SetCamText(1, QStringLiteral("\u20AC \u00E8"));
    QCOMPARE(program.CamText(1), QStringLiteral("\u20AC \u00E8"));
  }

  void LimitsAloneLoseNothing() {
    const CamProgram before = FilledProgram();
    CamProgram program = before;
    program.SetLimits(1, 2, 1);
    QCOMPARE(program.CurrentSize(), 1);
    QCOMPARE(program.CurrentCam(), 1);
    QCOMPARE(program.Functions().AdvanceLast, 1);
    QVERIFY_EXCEPTION_THROWN((void)program.CamMap(2, 0), IndexError);
    QVERIFY_EXCEPTION_THROWN((void)program.CamText(2), IndexError);
    program.SetLimits(1, 1, 1);
    QCOMPARE(program.CurrentCam(), 0);
    QCOMPARE(program.Functions().AdvanceLast, 0);
    program.SetLimits(3, 4, 10);
    QCOMPARE(ContentOf(program), ContentOf(before));
    QCOMPARE(program.MessageText(200), QStringLiteral("message"));
  }

  void HiddenCellsNeverComeBack_data() {
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<QString>("content");
    QTest::newRow("ClearAllSizes") << Operation([](CamProgram& p) { p.ClearAllSizes(); })
                                   << QStringLiteral("1 = 0 cam; 2 = 1 cam; 3 = 2 cam; 4 = 3 cam");
    QTest::newRow("DimensionModel")
        << Operation([](CamProgram& p) { p.DimensionModel(); }) << QStringLiteral("1 = 0 cam");
    QTest::newRow("ResetProgram") << Operation([](CamProgram& p) { p.ResetProgram(); })
                                  << QString();
    QTest::newRow("labels and sizes") << Operation([](CamProgram& p) {
      p.ClearCamLabels();
      p.ClearAllSizes();
    }) << QString();
  }

  void HiddenCellsNeverComeBack() {
    QFETCH(Operation, operation);
    CamProgram program = FilledProgram();
    program.SetLimits(1, 1, 1);
    operation(program);
    program.SetLimits(3, 4, 10);
    QTEST(ContentOf(program), "content");
    QCOMPARE(program.MessageText(200), QStringLiteral("message"));
  }

  void DimensionModelKeepsWhatExists() {
    CamProgram program = FilledProgram();
    program.SetLimits(3, 2, 10);
    program.DimensionModel();
    program.SetLimits(3, 4, 10);
    QCOMPARE(ContentOf(program), QStringLiteral("1 = 0 cam; 2 = 1 cam"));
    QCOMPARE(program.Functions().CamFunc[1], 9);
    QCOMPARE(program.Functions().CamFunc[2], 0);
    QCOMPARE(program.Functions().CamFunc[31], 0);
    QCOMPARE(program.Functions().DelayOn, 1);
    QCOMPARE(program.CurrentSize(), 2);
  }

  void ClearSizeLeavesTheOthers() {
    CamProgram program = FilledProgram();
    CamProgram expected = program;
    for (int cam = 0; cam < 4; ++cam) expected.SetRow(2, cam, CamRow{});
    program.ClearSize(2);
    QCOMPARE(ContentOf(program), ContentOf(expected));
  }

  void ClearFunctionsKeepsAdvanceLast() {
    CamProgram program = FilledProgram();
    program.ClearFunctions();
    FunctionsBlock expected;
    expected.AdvanceLast = 2;
    QVERIFY(program.Functions() == expected);
  }

  void ResetSelectsTheFirst() {
    CamProgram program = FilledProgram();
    program.ResetProgram();
    QCOMPARE(program.CurrentSize(), 1);
    QCOMPARE(program.CurrentCam(), 0);
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
    QCOMPARE(program.UndoRow(), kept);
  }

  void RevisionCountsChanges_data() {
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<bool>("changes");
    AddOperation("new phase", true, [](CamProgram& p) { p.SetPhase(1, 1, 200, 210); });
    AddOperation("same phase", false, [](CamProgram& p) { p.SetPhase(1, 1, 11, 100); });
    AddOperation("same phase across", false, [](CamProgram& p) { p.SetPhase(2, 1, 350, 10); });
    AddOperation("deletes none", false, [](CamProgram& p) { p.SetPhase(1, 1, 200, 200); });
    AddOperation("deletes one", true, [](CamProgram& p) { p.SetPhase(1, 1, 100, 100); });
    AddOperation("same row", false, [](CamProgram& p) { p.SetRow(1, 1, p.CamMap(1, 1)); });
    AddOperation("other row", true, [](CamProgram& p) { p.SetRow(1, 1, CamRow{}); });
    AddOperation("same text", false, [](CamProgram& p) { p.SetCamText(1, p.CamText(1)); });
    AddOperation("other text", true, [](CamProgram& p) { p.SetCamText(1, QString()); });
    AddOperation("same functions", false, [](CamProgram& p) { p.SetFunctions(p.Functions()); });
    AddOperation("other functions", true, [](CamProgram& p) { p.SetFunctions({}); });
    AddOperation("selection", false, [](CamProgram& p) { p.SelectSize(3), p.SelectCam(0); });
    AddOperation("undo of nothing", false, [](CamProgram& p) { p.RestoreUndoRow(); });
    AddOperation("undo elsewhere", true, [](CamProgram& p) { p.SelectCam(0), p.RestoreUndoRow(); });
    AddOperation("message", false, [](CamProgram& p) { p.SetMessageText(1, QString()); });
    AddOperation("same limits", false, [](CamProgram& p) { p.SetLimits(3, 4, 10); });
    AddOperation("fewer sizes", true, [](CamProgram& p) { p.SetLimits(2, 4, 10); });
    AddOperation("fewer cams", true, [](CamProgram& p) { p.SetLimits(3, 2, 10); });
    AddOperation("clears a size", true, [](CamProgram& p) { p.ClearSize(3); });
    AddOperation("clears all sizes", true, [](CamProgram& p) { p.ClearAllSizes(); });
    AddOperation("clears the texts", true, [](CamProgram& p) { p.ClearCamLabels(); });
    AddOperation("clears the functions", true, [](CamProgram& p) { p.ClearFunctions(); });
    AddOperation("dimensions", true, [](CamProgram& p) { p.DimensionModel(); });
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

  void RevisionOfAnEmptyProgramStays() {
    CamProgram program;
    const auto revision = program.Revision();
    program.ClearSize(1);
    program.ClearAllSizes();
    program.ClearCamLabels();
    program.ClearFunctions();
    program.DimensionModel();
    program.ResetProgram();
    QCOMPARE(program.Revision(), revision);
  }
};

}  // namespace nira

QTEST_APPLESS_MAIN(nira::CamProgramTest)
#include "CamProgramTest.moc"
