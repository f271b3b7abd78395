// SPDX-License-Identifier: Apache-2.0
#include "sizes/SizeOperations.h"
#include "support/CamFileFixture.h"
#include "support/Rows.h"

#include <QTest>

namespace nira {

using namespace Qt::StringLiterals;

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
    QVERIFY_EXCEPTION_THROWN(CopySize(program, 1, 23), IndexError);
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
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("content");
    QTest::addColumn<QString>("told");
    const QString before = u"1.1: 1-2; 1.2: 3-4; 2.1: 5-6; 1 = OLD"_qs;
    const auto row = [](const char* name, const QByteArray& body, int number, int kind,
                        const QString& content, const QString& told = {}) {
      QTest::newRow(name) << body << number << kind << content << told;
    };
    constexpr int whole = -1;
    constexpr int withoutEnd = -2;
    constexpr int bad = static_cast<int>(Fault::Kind::BadLine);
    constexpr int noSize = static_cast<int>(Fault::Kind::NoSize);
    row("phases and descriptions",
        "FUNZIONI 99 - 3\r\n FORMATO N. 01\r\nC 01\r\n 100 110\r\n FORMATO N. 03\r\n"
        "C 02\"NEW\"\r\n 350 010\r\nEND\r\n",
        3, whole, u"1.2: 0-10 350-360; 2.1: 5-6; 1 = OLD; 2 = NEW"_qs);
    row("an empty size", "FUNZIONI\r\n FORMATO N. 02\r\nEND\r\n", 2, whole,
        u"2.1: 5-6; 1 = OLD"_qs);
    row("no such size", "FUNZIONI\r\n FORMATO N. 02\r\nEND\r\n", 1, noSize, before);
    row("no cam file", "SOMETHING\r\n FORMATO N. 01\r\n", 1, bad, before, u"SOMETHING"_qs);
    row("a cam beyond the program's",
        "FUNZIONI\r\n FORMATO N. 01\r\nC 01\r\n 100 110\r\nC 03\r\n 001 002\r\n", 1, bad, before,
        u" 001 002"_qs);
    const QByteArray cut = "FUNZIONI\n FORMATO N. 01\nC 01\n 100 110";
    const QString last = u"1.1: 100-110; 2.1: 5-6; 1 = OLD"_qs;
    row("cut in its last line", cut + "\nEN", 1, withoutEnd, last);
    row("cut behind the block", cut + "\n FORMATO N. 02", 1, whole, last);
    const QByteArray endless(100000, 'x');
    row("endless line", cut + "\n" + endless + "\nEND\n", 1, bad, before,
        QString(200, u'x') + u"..."_qs);
  }

  void Imports() {
    QFETCH(QByteArray, body);
    QFETCH(int, number);
    CamFileFixture f(2, 2);
    f.program.SetRow(1, 0, RowOf(u"1-2"_qs));
    f.program.SetRow(1, 1, RowOf(u"3-4"_qs));
    f.program.SetRow(2, 0, RowOf(u"5-6"_qs));
    f.program.SetCamText(0, u"OLD"_qs);
    QVERIFY(WriteBytes(f.Path("in.cam"), body));
    const auto result = ImportSize(f.program, f.Path("in.cam"), number, 1);
    const int kind = !result ? static_cast<int>(result.Why().What) : result->WithoutEnd ? -2 : -1;
    QTEST(kind, "kind");
    QTEST(ContentOf(f.program), "content");
    QTEST(result ? QString() : result.Why().Text, "told");
    const auto gone = ImportSize(f.program, f.folder.path(), number, 1);
    QVERIFY(!gone && gone.Why().What == Fault::Kind::CannotRead);
#ifdef Q_OS_LINUX
    // Opens, but its first page cannot be read.
    const auto failing = ImportSize(f.program, u"/proc/self/mem"_qs, number, 1);
    QVERIFY(!failing && failing.Why().What == Fault::Kind::CannotRead);
    QVERIFY(!failing.Why().Text.isEmpty());
#endif
  }
};

}  // namespace nira

QTEST_APPLESS_MAIN(nira::SizeOperationsTest)
#include "SizeOperationsTest.moc"
