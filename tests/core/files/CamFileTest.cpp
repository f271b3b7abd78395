// SPDX-License-Identifier: Apache-2.0
#include "files/CamFile.h"
#include "files/CamLines.h"
#include "files/LineReader.h"
#include "ground/Text.h"
#include "support/CamFileFixture.h"
#include "support/Rows.h"
#include "support/Tables.h"

#include <QTest>

#include <random>

#ifdef Q_OS_LINUX
#include <sys/stat.h>
#endif

namespace nira {

namespace {

using Kind = Fault::Kind;

/// The plain head with one of its lines (from 1) replaced.
QByteArray HeadWith(int line, const QByteArray& text) {
  QByteArrayList lines = PlainHead().split('\n');
  lines[line - 1] = text + '\r';
  return lines.join('\n');
}

QByteArray Zeros(std::size_t count) {
  return QByteArray(static_cast<qsizetype>(count), '0');
}

QByteArray Written(const CamProgram& program) {
  return QByteArray::fromStdString(WriteCamFile(program));
}

/// A row as a file keeps it: no full row, and no run that begins one degree after the OFF degree
/// of a phase across the end.
CamRow AsKept(CamRow row) {
  const auto gap = std::find(row.begin(), row.end(), 0);
  if (gap == row.end()) return CamRow{};
  if (gap != row.begin() && row.back() == 1) std::fill(gap, std::find(gap + 1, row.end(), 0), 0);
  return row;
}

}  // namespace

/// The cam file: what is written, what comes back, what is refused and in which words.
class CamFileTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void GoldenBytes() {
    CamFileFixture plain;
    plain.program.SetFunctions({2, 255, 2, 1, 12, 100, 4, 5, 0, 0, 0, 0, 1, {}});  // on is 1 only
    plain.program.SetRow(1, 0, RowOf(u"0-5 10-20 350-360"_qs));
    QCOMPARE(Written(plain.program),
             PlainHead() + " FORMATO N. 01\r\nC 01\r\n 010 020\r\n 350 005\r\nEND\r\n");

    CamFileFixture f(2, 3);
    f.program.SetFunctions({1, 1, 1, 1, 12, 100, 4, 5, 2, -5, 1, 120, 2, {9, 5, 210}});
    f.program.SetRow(1, 0, RowOf(u"0-5 10-20 350-360"_qs));
    f.program.SetRow(2, 0, RowOf(u"0-10"_qs));
    f.program.SetRow(2, 2, RowOf(u"359-360"_qs));
    f.program.SetCamText(0, u" \"\u20AC \u00E8 "_qs);
    f.program.SetCamText(1, u"of no phase"_qs);
    f.program.SetCamText(2, u"   "_qs);
    QCOMPARE(Written(f.program), FullFile());
  }

  void RandomProgramsComeBack() {
    std::mt19937 random(7);
    const auto pick = [&random](int count) { return static_cast<int>(random() % unsigned(count)); };
    for (int round = 0; round < 60; ++round) {
      CamFileFixture f(1 + pick(round % 10 == 0 ? 99 : 9), 1 + pick(32));
      CamFileFixture g(f.program.NumSizes(), f.program.NumCams());
      CamProgram expected = f.program;
      for (int cam = 0; cam < f.program.NumCams(); ++cam) {
        for (int size = 1; size <= f.program.NumSizes(); ++size) {
          CamRow row{};
          const int change = 1 << pick(9);
          auto on = static_cast<std::uint8_t>(pick(2));
          for (auto& cell : row) {
            if (pick(change) == 0) on ^= 1;
            cell = on;
          }
          f.program.SetRow(size, cam, row);
          expected.SetRow(size, cam, AsKept(row));
        }
        std::string text = "C";
        for (int i = pick(24); i > 0; --i) text.push_back(static_cast<char>(11 + pick(245)));
        f.program.SetRow(1, cam, RowOf(u"1-9"_qs));  // a text is kept with a phase only
        expected.SetRow(1, cam, RowOf(u"1-9"_qs));
        f.program.SetCamText(cam, FromBytes(text));
        expected.SetCamText(cam, FromBytes(text));
      }
      QVERIFY(!SaveCamFile(f.program, g.Path("out.CAM"), f.writer));
      QVERIFY(LoadCamFile(g.program, g.Path("out.CAM")));
      QCOMPARE(ContentOf(g.program), ContentOf(expected));
    }
  }

  /// What the fields hold after saving and loading: the reader takes the last characters only.
  void FieldsComeBackAsTheyDo() {
    using Block = FunctionsBlock;
    for (const auto& [written, read] :
         {std::pair(Block{1, 1, 1, 0, 10, 5, 255, 0, 99, -5, 99, 999, 1, {5, 255}},
                    Block{1, 1, 1, 0, 10, 0, 255, 0, 99, -5, 99, 999, 1, {0, 255}}),
          {{1, 1, 1, 0, 255, 6, 5, 0, 101, -99, 255, 1000, 1, {7, 5}},
           {1, 1, 1, 0, 255, 1, 5, 0, 1, -99, 55, 0, 1, {0, 5}}},
          {{1, 1, 1, 0, 5, 255, 99, 0, 0, -100, 0, 1234, 1, {}},
           {1, 1, 1, 0, 0, 255, 99, 0, 0, 100, 0, 234, 1, {}}}}) {
      CamFileFixture f;
      f.program.SetFunctions(written);
      const QByteArray file = Written(f.program);
      f.program.ResetProgram();
      QVERIFY(f.Loads(file));
      QVERIFY2(f.program.Functions() == read, file.constData());
    }
  }

  void Reads_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("content");
    QTest::addColumn<int>("badLine");  // 0 = loaded
    QTest::addColumn<QString>("shown");
    const auto row = [](const char* name, QByteArray body, const char* content, int badLine = 0,
                        const QByteArray& shown = {}) {
      body.replace("|", "\r\n").replace('@', '\0');
      QTest::newRow(name) << PlainHead() + body << QString::fromLatin1(content) << badLine
                          << QString::fromLatin1(shown);
    };
    const QByteArray one = " FORMATO N. 01|";
    row("LF", " FORMATO N. 01\nC 01\"a\"\n 010 020\nEND\n", "1.1: 10-20; 1 = a");
    row("nothing after END", one + "END|C 01| 010 020| 999 999|", "");
    row("other lines", one + "|C 01|x||\"| 010 020|| 030 040|", "1.1: 10-20 30-40");
    row("cam of the block before", one + "C 02|" + one + " 010 020|", "1.2: 10-20");
    row("cam number", one + "C 0199| 010 020|Cx2| 030 040|", "1.1: 10-20; 1.2: 30-40");
    row("phases later win", one + "C 01| 011 016| 350 010|", "1.1: 0-10 350-360");
    row("rounded ends of the line", one + "C 01| 9.6 anything 20.4|", "1.1: 10-20");
    row("text to the last quote", one + "C 01\"a\"b\"|", "1 = a\"b");
    row("text of no closing quote", one + "C 01\"abc|", "1 = ab");
    row("NUL", one + "C 01|@ 010 020| 030@ 040|", "1.1: 30-40");
    row("cam that is not there", one + "C 03|C 01| 010 020|", "1.1: 10-20");
    row("its phase", one + "C 01\"a\"|C 03| 010 020|", "1 = a", 12, " 010 020");
    row("its text", one + "C 03\"b\"| 010 020|", "", 10, "C 03\"b\"");
    row("blanks before any cam", one + "  |", "", 10, "  ");
    row("size beyond", " FORMATO N. 02|" + one + "C 01| 010 020|", "1.1: 10-20");
    row("ON 360", one + "C 01| 010 020| 360 010| 030 040|", "1.1: 10-20", 12, " 360 010");
    row("longest", one + "C 01| 010" + Zeros(LineReader::MaxLine - 8) + " 020|", "1.1: 10-20");
    row("line too long", one + "C 01| 010" + Zeros(LineReader::MaxLine - 7) + " 020|", "", 11,
        " 010" + Zeros(196) + "...");
    // The functions block, here without the plain head before it.
    const auto head = [](const char* name, const QByteArray& bytes, int badLine,
                         const QByteArray& shown) {
      QTest::addRow("%s, line %d", name, badLine)
          << bytes << QString() << badLine << QString::fromLatin1(shown);
    };
    head("empty file", "", 1, "");
    head("cut behind the header", "FUNZIONI", 1, "FUNZIONI");
    const QByteArrayList lines = PlainHead().split('\n');
    for (int k = 1; k < 8; ++k) {
      const int next = k < 7 ? k + 1 : 7;
      head("cut", lines.mid(0, k).join('\n'), k, lines[k - 1].chopped(1));
      head("garbled", HeadWith(k + 1, "garbled"), k + 1, "garbled");
      head(k < 7 ? "removed" : "cut before the last",
           (lines.mid(0, k) + lines.mid(k + 1)).join('\n'), next,
           lines[k < 7 ? k + 1 : 6].chopped(1));
    }
    head("ratios neither ON nor OFF", HeadWith(4, "RAPPORTI  Off"), 4, "RAPPORTI  Off");
    head("more advances than cams", HeadWith(2, "ANTICIPI ON   3 "), 2, "ANTICIPI ON   3 ");
    head("a value line too few", HeadWith(2, "ANTICIPI ON   1 "), 4, "RAPPORTI OFF");
    head("advance 256", HeadWith(2, "ANTICIPI ON   1 \r\n 256"), 3, " 256");
    head("direction -1", HeadWith(7, "SENSO -1 "), 7, "SENSO -1 ");
    head("too long", "FUNZIONI" + Zeros(LineReader::MaxLine), 1, "FUNZIONI" + Zeros(192) + "...");
  }

  void Reads() {
    QFETCH(QByteArray, bytes);
    QFETCH(int, badLine);
    QFETCH(QString, shown);
    CamFileFixture f;
    QCOMPARE(f.Loads(bytes), badLine == 0);
    const bool cut = QByteArray(QTest::currentDataTag()).startsWith("cut");
    if (badLine > 0) QVERIFY(f.fault.What == (cut ? Kind::CutOff : Kind::BadLine));
    QCOMPARE(f.fault.Line, badLine);
    QCOMPARE(f.fault.Text, shown);
    QTEST(ContentOf(f.program), "content");
  }

  void AdvanceCount() {
    for (const auto& [section, values] : {std::pair<QByteArray, QList<int>>("OFF", {0, 1, 9, 9}),
                                          {"ON    0 ", {1, 0, 9, 9}},
                                          {"ON    2 \r\nx  5 \r\nx  6 ", {1, 1, 9, 5}}}) {
      CamFileFixture f;
      f.program.SetFunctions({0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, {9, 9}});
      QVERIFY(f.Loads(HeadWith(2, "ANTICIPI " + section)));
      const FunctionsBlock& got = f.program.Functions();
      QCOMPARE((QList<int>{got.AdvanceOn, got.AdvanceLast, got.CamFunc[0], got.CamFunc[1]}),
               values);
    }
  }

  /// What was read before the fault stays; a section that says neither ON nor OFF sets nothing.
  void WhatWasReadBeforeAFaultStays() {
    CamFileFixture f;
    f.program.SetFunctions({1, 1, 1, 0, 0, 0, 0, 0, 7, 7, 7, 7, 1, {}});
    QByteArray head = HeadWith(3, "RITARDI ON\r\n 12 \r\n 13 ").replace("RAPPORTI OFF", "RAPPORTI");
    QVERIFY(!f.Loads(head));
    QVERIFY((f.program.Functions() == FunctionsBlock{0, 1, 1, 0, 12, 13, 0, 0, 7, 7, 7, 7, 1, {}}));
    head.replace("RAPPORTI", "RAPPORTI OFF")
        .replace("SENSO", "senso")
        .replace("TA    0", "TA    2");
    QVERIFY(!f.Loads(head));
    QVERIFY((f.program.Functions() == FunctionsBlock{0, 1, 0, 0, 12, 13, 0, 0, 2, 0, 7, 7, 1, {}}));
  }

  void OutputSizeIsSelected() {
    CamFileFixture f(3, 2);
    f.program.SelectCam(1);
    for (const auto& [output, selected] : {std::pair{" 2 ", 2}, {" 4 ", 1}}) {
      f.program.SelectSize(3);
      const QByteArray head = HeadWith(5, QByteArray("FORMATO IN USCITA   ") + output);
      QVERIFY(f.Loads(QByteArray(head).replace("- 1 ", "- 3 ") + "END\r\n"));
      QCOMPARE(f.program.CurrentSize(), selected);
      QCOMPARE(f.program.CurrentCam(), 1);
    }
  }

  void WrongNumberOfSizes() {
    const QByteArray bytes =
        HeadWith(1, "FUNZIONI  2 - 3 ") +
        " FORMATO N. 03\r\nC 02\"c\"\r\n 030 040\r\nC 99\"x\"\r\n 999 999\r\n  \r\n"
        " FORMATO N. 01\r\nC 01\"a\"\r\n 010 020\r\n"
        " FORMATO N. 02\r\nC 02\"b\"\r\n 020 030\r\nEND\r\n";
    CamFileFixture f;
    const auto loaded = f.Load(bytes, OtherSizes::Take);
    QVERIFY(loaded && !loaded->WithoutEnd);
    QCOMPARE(loaded->LeftOut, 2);
    QCOMPARE(ContentOf(f.program), u"1.1: 10-20; 1 = a"_qs);
    QCOMPARE(f.program.NumSizes(), 1);
    // The cam of a block that was passed over is forgotten.
    QVERIFY(!f.Load(HeadWith(1, "FUNZIONI  2 - 3 ") +
                        " FORMATO N. 02\r\nC 01\r\n FORMATO N. 01\r\n 010 020\r\n",
                    OtherSizes::Take));
    QCOMPARE(f.fault.Line, 12);
  }

  void HeaderCounts_data() {
    TextTable({"shown"}, {{"FUNZIONI 2 1", "21 WRONG NUMBER OF CAMS 2"},
                          {"  FUNZIONI  2 - 1 ", "0 WRONG NUMBER OF CAMS 2"},
                          {"FUNZIONI -2 - 1 ", "-2 WRONG NUMBER OF CAMS 2"},
                          {"FUNZIONI  2 - x ", "0 BAD TOTAL FORMATS 1"},
                          {"FUNZIONI 2.4   1 ", ""}});
  }

  void HeaderCounts() {
    QFETCH(QString, shown);
    CamFileFixture f;
    f.program.SetPhase(1, 0, 10, 20);
    const auto revision = f.program.Revision();
    QCOMPARE(f.Loads(HeadWith(1, QTest::currentDataTag())), shown.isEmpty());
    QCOMPARE(FaultText(f.fault, f.texts), shown);
    QCOMPARE(f.program.Revision() == revision, !shown.isEmpty());
  }

  /// The bare header skips the checks, and the program before it is not emptied.
  void BareHeader() {
    CamFileFixture f;
    f.program.SetPhase(1, 1, 10, 20);
    f.Loads(HeadWith(1, "FUNZIONI") + " FORMATO N. 01\r\nC 01\r\n 030 040\r\n");
    QCOMPARE(ContentOf(f.program), u"1.1: 30-40; 1.2: 10-20"_qs);
    f.Loads(PlainHead());
    QCOMPARE(ContentOf(f.program), QString());
  }

  void WhatIsNoFile() {
    CamFileFixture f;
    const auto revision = f.program.Revision();
    QStringList paths = {QString(), f.Path("none.cam"), f.folder.path()};
#ifdef Q_OS_LINUX
    paths += f.Path("pipe.cam");
    QCOMPARE(mkfifo(QFile::encodeName(paths.last()).constData(), 0600), 0);
#endif
    for (const QString& path : paths) {
      const auto result = LoadCamFile(f.program, path);
      const bool there = QFile::exists(path);
      QVERIFY(!result && result.Why().What == (there ? Kind::CannotRead : Kind::Missing));
    }
    QCOMPARE(f.program.Revision(), revision);
  }
};

}  // namespace nira

QTEST_APPLESS_MAIN(nira::CamFileTest)
#include "CamFileTest.moc"
