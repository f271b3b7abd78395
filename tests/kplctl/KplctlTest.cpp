// SPDX-License-Identifier: Apache-2.0
#include "support/CamFileFixture.h"
#include "support/Kplctl.h"

#include <QTest>

#include <tuple>

namespace nira {

using namespace Qt::StringLiterals;

/// The same work without windows.
class KplctlTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Check() {
    const Ran good = Kplctl(
        {u"check"_qs, Sample("press.CAM"), Sample("carton.CAM"), Sample("../lang/p32qx_IT.SCR")});
    QCOMPARE(good.status, 0);
    QCOMPARE(good.out.count(u": good: "_qs), 3);
    QVERIFY(!good.out.contains(u"missing"_qs));
    CamFileFixture f;
    QVERIFY(WriteBytes(f.Path("short.scr"), "a\"\r\n\"b\"\r\n"));
    const QString missing = QString::number(MessageTable().Missing() - 1);
    QVERIFY(Kplctl({u"check"_qs, f.Path("short.scr")})
                .out.endsWith(u"2 texts; "_qs + missing + u" used texts are missing\n"_qs));
  }

  void Faults() {
    using Row = std::tuple<const char*, QByteArray, const char*>;
    for (const auto& [name, bytes, place] :
         {Row{"a.cam", "FUNZIONI  2 - 1 \r\nX\r\n", ":2: "},
          Row{"c.scr", "a\"\r\n\"b\"\n\"c\"\r\n", ":2: "}, Row{"d.txt", "x", "d.txt"},
          Row{"e.cam", "\x1B[2J FUNZI\r\n", ":1: "}}) {
      CamFileFixture f;
      QVERIFY(WriteBytes(f.Path(name), bytes));
      const Ran ran = Kplctl({u"check"_qs, Sample("smallest.CAM"), f.Path(name)});
      QCOMPARE(ran.status, 1);
      const QString printed = ran.out + ran.err;
      QVERIFY2(printed.contains(QString(place)), qPrintable(printed));
      QVERIFY(!printed.contains(QChar(0x1B)));
      QVERIFY(ran.out.contains(u"smallest.CAM: good"_qs));
    }
  }

  void List() {
    const Ran ran =
        Kplctl({u"list"_qs, Sample("press.CAM"), u"--size"_qs, u"1"_qs, u"--cam"_qs, u"5"_qs});
    QCOMPARE(ran.status, 0);
    QVERIFY(ran.out.contains(u"\nCam 05 TRANSFER LOWER\nF001 037 074\n"_qs));
    QCOMPARE(Kplctl({u"list"_qs, Sample("press.CAM"), u"--size"_qs, u"23"_qs}).status, 1);
    QCOMPARE(Kplctl({u"list"_qs, Sample("none.CAM")}).status, 1);
  }

  /// The samples are canonical: written anew they are what they were.
  void Rewrite() {
    for (const char* sample : {"press.CAM", "carton.CAM", "smallest.CAM"}) {
      CamFileFixture f;
      QCOMPARE(Kplctl({u"rewrite"_qs, Sample(sample), f.Path("out.cam")}).status, 0);
      QCOMPARE(ReadBytes(f.Path("out.cam")), ReadBytes(Sample(sample)));
    }
  }

  void NothingIsWritten() {
    const QByteArray good = PlainHead() + " FORMATO N. 01\r\nEND\r\n";
    for (const auto& [options, bytes] : {std::pair(u"--yes"_qs, good.left(40)),
                                         {u"--yes --cams 3"_qs, good},
                                         {u"--sizes 3"_qs, good}}) {
      CamFileFixture f;
      QVERIFY(WriteBytes(f.Path("in.cam"), bytes));
      QVERIFY(WriteBytes(f.Path("out.cam"), "old"));
      const Ran ran = Kplctl(QStringList{u"rewrite"_qs, f.Path("in.cam"), f.Path("out.cam")} +
                             options.split(u' ', Qt::SkipEmptyParts));
      QCOMPARE(ran.status, 1);
      QVERIFY(!ran.err.isEmpty());
      QCOMPARE(ReadBytes(f.Path("out.cam")), QByteArray("old"));
    }
  }

  void Yes() {
    CamFileFixture f;
    QVERIFY(WriteBytes(f.Path("in.cam"), PlainHead() + " FORMATO N. 01\r\nC 02\r\n 001 005\r\n"));
    QVERIFY(WriteBytes(f.Path("out.cam"), "old"));
    const Ran ran = Kplctl(
        {u"rewrite"_qs, f.Path("in.cam"), f.Path("out.cam"), u"--yes"_qs, u"--sizes"_qs, u"2"_qs});
    QCOMPARE(ran.status, 0);
    QVERIFY(ran.err.contains(u"1 BAD TOTAL FORMATS 2"_qs));
    QVERIFY(ran.err.contains(u"no line END"_qs));
    QVERIFY(ReadBytes(f.Path("out.cam")).endsWith("C 02\r\n 001 005\r\n FORMATO N. 02\r\nEND\r\n"));
    QCOMPARE(ReadBytes(f.Path("out.cam.bak")), QByteArray("old"));
  }

  void Usage() {
    QCOMPARE(Kplctl({u"--help"_qs}).status, 0);
    QVERIFY(Kplctl({u"--version"_qs}).out.contains(u"0.1"_qs));
    for (const QStringList& wrong : {QStringList{}, {u"erase"_qs}, {u"rewrite"_qs, u"a"_qs}}) {
      QCOMPARE(Kplctl(wrong).status, 2);
    }
  }
};

}  // namespace nira

QTEST_GUILESS_MAIN(nira::KplctlTest)
#include "KplctlTest.moc"
