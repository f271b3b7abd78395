// SPDX-License-Identifier: Apache-2.0
#include "sizes/SizeOperations.h"
#include "support/CamFileFixture.h"
#include "support/Rows.h"
#include "support/Tables.h"

#include <QTest>

namespace nira {

using namespace Qt::StringLiterals;

namespace {

/// What an import says: nothing, or what is missing, or the bad line.
QString Told(const Result<LoadedFile>& result) {
  if (result) return result->WithoutEnd ? u"without END"_qs : QString();
  if (result.Why().What == Fault::Kind::NoSize) return u"no size"_qs;
  return result.Why().What == Fault::Kind::BadLine ? result.Why().Text : u"another fault"_qs;
}

}  // namespace

/// Operations on whole sizes and cams.
class SizeOperationsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Copies() {
    CamProgram program;
    program.SetRow(1, 0, RowOf(u"10-20"_qs));
    program.SetRow(2, 1, RowOf(u"50-60"_qs));
    CopySize(program, 1, 2);
    QCOMPARE(ContentOf(program), u"1.1: 10-20; 2.1: 10-20"_qs);
    CopySize(program, 1, 1);
    CopyCam(program, 2, 0, 31);
    CopyCam(program, 2, 0, 0);
    QCOMPARE(ContentOf(program), u"1.1: 10-20; 2.1: 10-20; 2.32: 10-20"_qs);
    EraseCam(program, 2, 0);
    QCOMPARE(ContentOf(program), u"1.1: 10-20; 2.32: 10-20"_qs);
    QVERIFY_THROWS_EXCEPTION(IndexError, CopySize(program, 1, 23));
  }

  void Shifts() {
    for (const auto& [typed, runs] : {std::pair("-1", u"9-19 359-360"_qs),
                                      {"2.5", u"2-3 12-22"_qs},
                                      {"3abc", u"3-4 13-23"_qs},
                                      {"-360000000000000000000000000001.5", u"8-18 358-359"_qs},
                                      {"359.5", u"0-1 10-20"_qs}}) {
      CamProgram program;
      program.SetRow(1, 3, RowOf(u"0-1 10-20"_qs));
      ShiftCam(program, 1, 3, ShiftOf(typed));
      QCOMPARE(RunsOf(program.CamMap(1, 3)), runs);
    }
  }

  void Imports_data() {
    const char* before = "1.1: 1-2; 1.2: 3-4; 2.1: 5-6; 1 = OLD";
    const char* last = "1.1: 100-110; 2.1: 5-6; 1 = OLD";
    const QByteArray cut = "FUNZIONI\n FORMATO N. 01\nC 01\n 100 110";
    const QByteArray inItsEnd = cut + "\nEN";
    const QByteArray behind = cut + "\n FORMATO N. 02";
    const QByteArray endless = cut + '\n' + QByteArray(100000, 'x') + "\nEND\n";
    const QByteArray shown = QByteArray(200, 'x') + "...";
    TextTable(
        {"body", "number", "told", "content"},
        {{"phases and descriptions",
          "FUNZIONI 99 - 3\r\n FORMATO N. 01\r\nC 01\r\n 100 110\r\n FORMATO N. 03\r\n"
          "C 02\"NEW\"\r\n 350 010\r\nEND\r\n",
          "3", "", "1.2: 0-10 350-360; 2.1: 5-6; 1 = OLD; 2 = NEW"},
         {"an empty size", "FUNZIONI\n FORMATO N. 02\nEND\n", "2", "", "2.1: 5-6; 1 = OLD"},
         {"no such size", "FUNZIONI\n FORMATO N. 02\nEND\n", "1", "no size", before},
         {"no cam file", "SOMETHING\n FORMATO N. 01\n", "1", "SOMETHING", before},
         {"a cam beyond the program's",
          "FUNZIONI\n FORMATO N. 01\nC 01\n 100 110\nC 03\n 001 002\n", "1", " 001 002", before},
         {"cut in its last line", inItsEnd.constData(), "1", "without END", last},
         {"cut behind the block", behind.constData(), "1", "", last},
         {"endless line", endless.constData(), "1", shown.constData(), before}});
  }

  void Imports() {
    QFETCH(QString, body);
    QFETCH(QString, number);
    CamFileFixture f(2, 2);
    f.program.SetRow(1, 0, RowOf(u"1-2"_qs));
    f.program.SetRow(1, 1, RowOf(u"3-4"_qs));
    f.program.SetRow(2, 0, RowOf(u"5-6"_qs));
    f.program.SetCamText(0, u"OLD"_qs);
    QVERIFY(WriteBytes(f.Path("in.cam"), body.toLatin1()));
    QTEST(Told(ImportSize(f.program, f.Path("in.cam"), number.toInt(), 1)), "told");
    QTEST(ContentOf(f.program), "content");
  }

  void ImportsNoFile() {
    CamFileFixture f;
    const auto gone = ImportSize(f.program, f.folder.path(), 1, 1);
    QVERIFY(!gone && gone.Why().What == Fault::Kind::CannotRead);
#ifdef Q_OS_LINUX
    // Opens, but its first page cannot be read.
    const auto failing = ImportSize(f.program, u"/proc/self/mem"_qs, 1, 1);
    QVERIFY(!failing && failing.Why().What == Fault::Kind::CannotRead);
    QVERIFY(!failing.Why().Text.isEmpty());
#endif
  }
};

}  // namespace nira

QTEST_APPLESS_MAIN(nira::SizeOperationsTest)
#include "SizeOperationsTest.moc"
