#include "files/CamFile.h"
#include "files/CamLines.h"
#include "model/Text.h"
#include "support/CamFileFixture.h"
#include "support/Rows.h"

#include <QDir>
#include <QTest>

#include <random>

#ifdef Q_OS_LINUX
#include <sys/stat.h>
#include <unistd.h>
#endif

Q_DECLARE_METATYPE(nira::LoadResult::Outcome)

namespace nira {

namespace {

using Outcome = LoadResult::Outcome;

/// The plain head with one of its lines (from 1) replaced.
QByteArray HeadWith(int line, const QByteArray& text) {
  QByteArrayList lines = PlainHead().split('\n');
  lines[line - 1] = text + '\r';
  return lines.join('\n');
}

QByteArray Zeros(std::size_t count) {
  return QByteArray(static_cast<qsizetype>(count), '0');
}

/// A row as a file keeps it: no full row, and no run that begins one degree after the OFF degree
/// of a phase across the end.
CamRow AsKept(CamRow row) {
  std::string cells;
  for (const auto cell : row) cells.push_back(static_cast<char>('0' + cell));
  const std::size_t gap = cells.find('0');
  if (gap == std::string::npos) return CamRow{};
  if (gap > 0 && cells.back() == '1') {
    for (std::size_t d = gap + 1; d < row.size() && row[d] == 1; ++d) row[d] = 0;
  }
  return row;
}

}  // namespace

/// Reading of cam files: what comes back, what is refused and in which words.
class CamFileTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void RandomProgramsComeBack() {
    std::mt19937 random(7);
    const auto pick = [&random](int count) { return static_cast<int>(random() % unsigned(count)); };
    for (int round = 0; round < 60; ++round) {
      CamFileFixture f(1 + pick(round % 10 == 0 ? 99 : 9), 1 + pick(32));
      CamFileFixture g(f.program.NumSizes(), f.program.NumCams());
      CamProgram expected = f.program;
      for (int cam = 0; cam < f.program.NumCams(); ++cam) {
        std::string text;
        for (int i = pick(24); i > 0; --i) text.push_back(static_cast<char>(11 + pick(245)));
        f.program.SetCamText(cam, FromBytes(text));
        bool written = false;
        for (int size = 1; size <= f.program.NumSizes(); ++size) {
          CamRow row{};
          const int density = pick(4);
          for (int d = 0, on = 0; d < 360 && density > 0; ++d) {
            if (pick(density == 1 ? 2 : 40) == 0) on = 1 - on;
            row[static_cast<std::size_t>(d)] = static_cast<std::uint8_t>(on);
          }
          if (pick(30) == 0) row.fill(1);
          f.program.SetRow(size, cam, row);
          expected.SetRow(size, cam, AsKept(row));
          written |= row != CamRow{} && row != RowOf(QStringLiteral("0-360"));
        }
        const bool blank = text.find_first_not_of(' ') == std::string::npos;
        if (written && !blank) expected.SetCamText(cam, FromBytes(text));
      }
      f.globals.CurrentFile = g.Path("out.CAM");
      QCOMPARE(f.file.SaveCamFile(), QString());
      QCOMPARE(g.file.LoadCamFile(f.globals.CurrentFile).outcome, Outcome::Loaded);
      QCOMPARE(ContentOf(g.program), ContentOf(expected));
    }
  }

  /// What a field holds after saving and loading: the reader takes the last characters only.
  void FieldsComeBackAsTheyDo_data() {
    QTest::addColumn<int>("field");
    QTest::addColumn<int>("written");
    QTest::addColumn<int>("read");
    const auto row = [](const char* name, int field, int written, int read) {
      QTest::addRow("%s %d", name, written) << field << written << read;
    };
    for (const int value : {0, 5, 99, 100, 255}) row("advance", 0, value, value);
    for (const int value : {0, 10, 12, 99, 100, 255}) row("delay", 1, value, value);
    for (const int value : {1, 5, 9}) row("delay of one digit", 1, value, value == 9 ? 1 : 0);
    row("delay of one digit", 2, 6, 1);
    row("delay of one digit", 2, 5, 0);
    for (const int value : {0, 5, 99, 100, 255}) row("ratio", 3, value, value);
    for (const int value : {0, 1, 22, 99}) row("output size", 4, value, value);
    row("output size", 4, 101, 1);
    for (const int value : {0, 5, -5, -10, -99, 359, 999}) row("encoder", 5, value, value);
    row("encoder", 5, -100, 100);
    row("encoder", 5, 1234, 234);
    for (const int value : {0, 1, 99}) row("direction", 6, value, value);
    row("direction", 6, 255, 55);
    for (const int value : {0, 1, 999}) row("speed", 7, value, value);
    row("speed", 7, 1000, 0);
    row("advance of cam 1 is not kept", 8, 7, 0);
  }

  void FieldsComeBackAsTheyDo() {
    QFETCH(int, field);
    QFETCH(int, written);
    CamFileFixture f;
    FunctionsBlock block{1, 1, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, {}};
    const auto byte = static_cast<std::uint8_t>(written);
    const auto word = static_cast<std::int16_t>(written);
    if (field == 0) block.CamFunc[1] = byte;
    if (field == 1) block.Delay17to20 = byte;
    if (field == 2) block.Delay21to24 = byte;
    if (field == 3) block.Ratio25to32 = byte;
    if (field == 4) block.OutputSize = byte;
    if (field == 5) block.EncoderShift = word;
    if (field == 6) block.RotationSense = byte;
    if (field == 7) block.SpeedLimit = word;
    if (field == 8) block.CamFunc[0] = byte;
    f.program.SetFunctions(block);
    const QByteArray bytes = QByteArray::fromStdString(WriteCamFile(f.program));
    f.program.ResetProgram();
    QCOMPARE(f.Load(bytes).outcome, Outcome::Loaded);
    const FunctionsBlock& got = f.program.Functions();
    const int values[] = {got.CamFunc[1],    got.Delay17to20, got.Delay21to24,
                          got.Ratio25to32,   got.OutputSize,  got.EncoderShift,
                          got.RotationSense, got.SpeedLimit,  got.CamFunc[0]};
    QTEST(values[field], "read");
    QVERIFY(got.AdvanceOn == 1 && got.DelayOn == 1 && got.Ratio25On == 1 && got.AdvanceLast == 1);
  }

  void Blocks_data() {
    QTest::addColumn<QByteArray>("body");  // after the head of 8 lines
    QTest::addColumn<QString>("content");
    QTest::addColumn<int>("badLine");  // 0 = loaded
    QTest::addColumn<QString>("shown");
    const auto row = [](const char* name, const QByteArray& body, const char* content,
                        int badLine = 0, const QByteArray& shown = {}) {
      QTest::newRow(name) << body << QString::fromLatin1(content) << badLine
                          << QString::fromLatin1(shown);
    };
    const QByteArray one = " FORMATO N. 01\r\n";
    row("nothing more", "", "");
    row("END alone", "END\r\n", "");
    row("no end of last line", one + "C 01\r\n 010 020", "1.1: 10-20");
    row("END without line end", one + "C 01\r\n 010 020\r\nEND", "1.1: 10-20");
    row("LF", " FORMATO N. 01\nC 01\"a\"\n 010 020\nEND\n", "1.1: 10-20; 1 = a");
    row("nothing after END", one + "END\r\nC 01\r\n 010 020\r\n 999 999\r\n", "");
    row("a size line with END ends", one + " FORMATO N. 01 END\r\nC 01\r\n 010 020\r\n", "");
    row("END and a blank does not", one + "END \r\nC 01\r\n 010 020\r\n", "1.1: 10-20");
    row("blank lines", one + "\r\nC 01\r\n\r\n 010 020\r\n\r\n\r\n 030 040\r\n\r\nEND\r\n\r\n",
        "1.1: 10-20 30-40");
    row("other lines are skipped", one + "C 01\r\nx\r\n\"\r\n 010 020\r\n", "1.1: 10-20");
    row("last size line counts", one + one + "C 02\r\n 010 020\r\n", "1.2: 10-20");
    row("size line behind text", "C 01\r\nxx FORMATO N. 01\r\n 010 020\r\n", "1.1: 10-20");
    row("size line begins with C", one + "C 02 FORMATO N. 05\r\n 010 020\r\n", "1.2: 10-20");
    row("cam of the block before", one + "C 02\r\n" + one + " 010 020\r\n", "1.2: 10-20");
    row("cam from stray lines", "C 02\r\n" + one + " 010 020\r\n", "1.2: 10-20");
    row("width of the cam number", one + "C 0199\r\n 010 020\r\nCx2\r\n 030 040\r\n",
        "1.1: 10-20; 1.2: 30-40");
    row("phases later win", one + "C 01\r\n 010 050\r\n 020 030\r\n", "1.1: 20-30");
    row("phase across kills OFF+1", one + "C 01\r\n 011 016\r\n 350 010\r\n", "1.1: 0-10 350-360");
    row("short phase", one + "C 01\r\n 050 060\r\n 5 9\r\n", "");  // 59 and 59
    row("only first and last four", one + "C 01\r\n 010 anything 020\r\n", "1.1: 10-20");
    row("rounded", one + "C 01\r\n 9.6  20.4\r\n", "1.1: 10-20");
    row("blanks are phase 0 0", one + "C 01\r\n 000 010\r\n    \r\n", "");
    row("tab is no blank", one + "C 01\r\n\t010 020\r\n", "");
    row("text to the last quote", one + "C 01\"a\"b\"\r\n", "1 = a\"b");
    row("text of no closing quote", one + "C 01\"abc\r\n", "1 = ab");
    row("lone quote", one + "C 01\"abc\"\r\nC 01\"\r\n", "");
    row("empty text", one + "C 01\"abc\"\r\nC 01\"\"\r\n", "");
    row("text stays without one", one + "C 01\"abc\"\r\nC 01\r\n", "1 = abc");
    row("last text counts", one + "C 01\"a\"\r\n" + one + "C 01\"b\"\r\n", "1 = b");
    row("NUL", one + QByteArray("C 01\r\n@ 010 020\r\n 030@ 040\r\n").replace('@', '\0'),
        "1.1: 30-40");
    row("cam that is not there", one + "C 03\r\nC 01\r\n 010 020\r\n", "1.1: 10-20");
    row("its phase", one + "C 03\r\n 010 020\r\n", "", 11, " 010 020");
    row("its text", one + "C 01\"a\"\r\nC 03\"b\"\r\n 010 020\r\n", "1 = a", 11, "C 03\"b\"");
    row("cam 0", one + "C 00\r\n 010 020\r\n", "", 11, " 010 020");
    row("C alone", one + "C\r\n 010 020\r\n", "", 11, " 010 020");
    row("phase before any cam", one + " 010 020\r\n", "", 10, " 010 020");
    row("blanks before any cam", one + "  \r\n", "", 10, "  ");
    row("phase before any size", "C 01\r\n 010 020\r\n", "", 10, " 010 020");
    row("size 0", " FORMATO N. 00\r\nC 01\r\n 010 020\r\n", "", 11, " 010 020");
    row("size of no number", " FORMATO N. xx\r\nC 01\r\n 010 020\r\n", "", 11, " 010 020");
    row("size that is not there", " FORMATO N. 02\r\nC 01\"a\"\r\n 010 020\r\n", "1 = a", 11,
        " 010 020");
    row("empty size that is not there", " FORMATO N. 02\r\n" + one + "C 01\r\n 010 020\r\n",
        "1.1: 10-20");
    row("tail of the size line", " FORMATO N. 01 \r\nC 01\r\n 010 020\r\n", "1.1: 10-20");
    row("three digits", " FORMATO N. 101\r\nC 01\r\n 010 020\r\n", "1.1: 10-20");
    row("ON 360", one + "C 01\r\n 010 020\r\n 360 010\r\n", "1.1: 10-20", 12, " 360 010");
    row("OFF 360", one + "C 01\r\n 010 360\r\n", "", 11, " 010 360");
    row("below 0", one + "C 01\r\n -10 020\r\n", "", 11, " -10 020");
    row("999", one + "C 01\r\n 999 999\r\n", "", 11, " 999 999");
    row("phase is kept before", one + "C 01\r\n 010 020\r\n 400 010\r\n 030 040\r\n", "1.1: 10-20",
        12, " 400 010");
    row("longest line", one + "C 01\r\n 010" + Zeros(LineReader::MaxLine - 8) + " 020\r\n",
        "1.1: 10-20");
    row("line too long", one + "C 01\r\n 010" + Zeros(LineReader::MaxLine - 7) + " 020\r\n", "", 11,
        " 010" + Zeros(196) + "...");
    row("too long without end", one + "C 01\r\n" + Zeros(LineReader::MaxLine * 5), "", 11,
        Zeros(200) + "...");
  }

  void Blocks() {
    QFETCH(QByteArray, body);
    QFETCH(int, badLine);
    QFETCH(QString, shown);
    CamFileFixture f;
    if (badLine > 0) f.prompts.Expect(Answer::Ok);
    const LoadResult result = f.Load(PlainHead() + body);
    QCOMPARE(f.prompts.Shown(),
             badLine == 0 ? QStringList() : QStringList(u"Exclamation Ok: " + shown + u" BAD!"));
    QCOMPARE(result.outcome, badLine == 0 ? Outcome::Loaded : Outcome::Bad);
    QCOMPARE(result.line, badLine);
    QCOMPARE(result.text, shown);
    QTEST(ContentOf(f.program), "content");
  }

  void SizesInAnyOrder() {
    CamFileFixture f(4, 2);
    QByteArray bytes = PlainHead().replace("- 1 ", "- 4 ");
    for (const char* size : {"03", "01", "04", "03"}) {
      bytes += QByteArray(" FORMATO N. ") + size + "\r\nC 01\r\n 1" + size + " 200\r\n";
    }
    QCOMPARE(f.Load(bytes + "END\r\n").outcome, Outcome::Loaded);
    QCOMPARE(ContentOf(f.program), QStringLiteral("1.1: 101-200; 3.1: 103-200; 4.1: 104-200"));
  }

  void Functions_data() {
    QTest::addColumn<QByteArray>("head");
    QTest::addColumn<int>("badLine");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char* name, const QByteArray& head, int badLine,
                        const QByteArray& shown) {
      QTest::newRow(name) << head << badLine << QString::fromLatin1(shown);
    };
    row("empty file", "", 1, "");
    row("other file", "x\xE8y\r\n" + PlainHead(), 1, "x\xE8y");
    row("lower case", PlainHead().toLower(), 1, "funzioni  2 - 1 ");
    row("header alone", "FUNZIONI", 1, "FUNZIONI");
    row("header and an empty line", "FUNZIONI\r\n\r\n", 2, "");
    row("binary", QByteArray(100, '\0'), 1, QByteArray(100, '\0'));
    const QByteArrayList lines = PlainHead().split('\n');
    for (int k = 1; k < 8; ++k) {
      QTest::addRow("cut after line %d", k)
          << lines.mid(0, k).join('\n') << k << QString::fromLatin1(lines[k - 1]).chopped(1);
      QTest::addRow("garbled line %d", k + 1) << HeadWith(k + 1, "garbled") << k + 1 << "garbled";
      QTest::addRow("no line %d", k + 1)
          << (lines.mid(0, k) + lines.mid(k + 1)).join('\n') << (k < 7 ? k + 1 : 7)
          << QString::fromLatin1(lines[k < 7 ? k + 1 : 6]).chopped(1);
    }
    row("neither ON nor OFF", HeadWith(2, "ANTICIPI"), 2, "ANTICIPI");
    row("delays neither", HeadWith(3, "RITARDI off"), 3, "RITARDI off");
    row("ratios neither", HeadWith(4, "RAPPORTI  Off"), 4, "RAPPORTI  Off");
    row("more advances than cams", HeadWith(2, "ANTICIPI ON   3 "), 2, "ANTICIPI ON   3 ");
    row("a value line too few", HeadWith(2, "ANTICIPI ON   1 "), 4, "RAPPORTI OFF");
    row("no value line", "FUNZIONI\r\nANTICIPI ON   2 \r\nANTICIPO 7 \r\n", 3, "ANTICIPO 7 ");
    row("no delay line", "FUNZIONI\r\nANTICIPI OFF\r\nRITARDI ON\r\n 12 ", 4, " 12 ");
    row("no ratio line", "FUNZIONI\r\nANTICIPI OFF\r\nRITARDI OFF\r\nRAPPORTI ON", 4,
        "RAPPORTI ON");
    row("advance 256", HeadWith(2, "ANTICIPI ON   1 \r\n 256"), 3, " 256");
    row("advance -1", HeadWith(2, "ANTICIPI ON   1 \r\n  -1"), 3, "  -1");
    row("delay 256", HeadWith(3, "RITARDI ON\r\n 1 \r\n 256"), 5, " 256");
    row("ratio 256", HeadWith(4, "RAPPORTI ON\r\n 256"), 5, " 256");
    row("output size 256", HeadWith(5, "FORMATO 256"), 5, "FORMATO 256");
    row("output size -1", HeadWith(5, "FORMATO -1"), 5, "FORMATO -1");
    row("direction -1", HeadWith(7, "SENSO -1 "), 7, "SENSO -1 ");
    row("line too long", HeadWith(6, "SFASAMENTO" + Zeros(LineReader::MaxLine)), 6,
        "SFASAMENTO" + Zeros(190) + "...");
    row("header too long", "FUNZIONI" + Zeros(LineReader::MaxLine), 1,
        "FUNZIONI" + Zeros(192) + "...");
  }

  void Functions() {
    QFETCH(QByteArray, head);
    QFETCH(int, badLine);
    QFETCH(QString, shown);
    CamFileFixture f;
    f.prompts.Expect(Answer::Ok);
    const LoadResult result = f.Load(head);
    QCOMPARE(f.prompts.Shown(), QStringList(u"Exclamation Ok: " + shown + u" BAD!"));
    QCOMPARE(result.outcome, Outcome::Bad);
    QCOMPARE(result.line, badLine);
    QCOMPARE(result.text, shown);
    QVERIFY(result.Refused());
  }

  void AdvanceCount_data() {
    QTest::addColumn<QByteArray>("section");
    QTest::addColumn<int>("on");
    QTest::addColumn<int>("last");
    QTest::addColumn<QList<int>>("values");
    QTest::newRow("OFF leaves the count") << QByteArray("ANTICIPI OFF") << 0 << 1 << QList{9, 9};
    QTest::newRow("one") << QByteArray("ANTICIPI ON    1 \r\nx  5 ") << 1 << 1 << QList{9, 5};
    QTest::newRow("none") << QByteArray("ANTICIPI ON    0 ") << 1 << 0 << QList{9, 9};
    QTest::newRow("below 0") << QByteArray("ANTICIPI ON   -2 ") << 1 << 0 << QList{9, 9};
    QTest::newRow("as many as cams")
        << QByteArray("ANTICIPI ON    2 \r\nx  5 \r\nx  6 ") << 1 << 1 << QList{9, 5};
    QTest::newRow("no number") << QByteArray("ANTICIPI ON") << 1 << 0 << QList{9, 9};
  }

  void AdvanceCount() {
    QFETCH(QByteArray, section);
    CamFileFixture f;
    FunctionsBlock block;
    block.AdvanceLast = 1;
    block.CamFunc.fill(9);
    f.program.SetFunctions(block);
    QCOMPARE(f.Load(HeadWith(2, section)).outcome, Outcome::Loaded);
    const FunctionsBlock& got = f.program.Functions();
    QTEST(int(got.AdvanceOn), "on");
    QTEST(int(got.AdvanceLast), "last");
    QTEST((QList<int>{got.CamFunc[0], got.CamFunc[1]}), "values");
  }

  void WhatWasReadBeforeAFaultStays() {
    CamFileFixture f;
    f.program.SetFunctions({1, 1, 1, 0, 0, 0, 0, 0, 7, 7, 7, 7, 1, {}});
    f.prompts.Expect(Answer::Ok);
    QByteArray head = HeadWith(6, "SFASAMENTO ENCODER   12 ")
                          .replace("RITARDI OFF", "RITARDI ON\r\n 12 \r\n 13 ");
    head.replace("SENSO", "senso").replace("USCITA    0 ", "USCITA    2 ");
    QCOMPARE(f.Load(head).outcome, Outcome::Bad);
    const FunctionsBlock expected{0, 1, 0, 0, 12, 13, 0, 0, 2, 12, 7, 7, 1, {}};
    QVERIFY(f.program.Functions() == expected);
  }

  /// A section that says neither ON nor OFF is bad and sets nothing.
  void FlagOfABadSectionStays() {
    for (const int line : {2, 3, 4}) {
      CamFileFixture f;
      FunctionsBlock block;
      block.AdvanceOn = block.DelayOn = block.Ratio25On = 1;
      f.program.SetFunctions(block);
      f.prompts.Expect(Answer::Ok);
      const char* const words[] = {"ANTICIPI", "RITARDI", "RAPPORTI"};
      QCOMPARE(f.Load(HeadWith(line, words[line - 2])).outcome, Outcome::Bad);
      const FunctionsBlock& got = f.program.Functions();
      QCOMPARE(QList<int>({got.AdvanceOn, got.DelayOn, got.Ratio25On}),
               QList<int>({line == 2, line <= 3, 1}));
    }
  }

  void OutputSizeIsSelected_data() {
    QTest::addColumn<QByteArray>("output");
    QTest::addColumn<int>("selected");
    QTest::newRow("0") << QByteArray(" 0 ") << 1;
    QTest::newRow("2") << QByteArray(" 2 ") << 2;
    QTest::newRow("beyond the program") << QByteArray(" 4 ") << 1;
  }

  void OutputSizeIsSelected() {
    QFETCH(QByteArray, output);
    CamFileFixture f(3, 2);
    f.program.SelectSize(3);
    f.program.SelectCam(1);
    const QByteArray head = HeadWith(5, "FORMATO IN USCITA   " + output).replace("- 1 ", "- 3 ");
    QCOMPARE(f.Load(head + "END\r\n").outcome, Outcome::Loaded);
    QTEST(f.program.CurrentSize(), "selected");
    QCOMPARE(f.program.CurrentCam(), 1);
  }

  void WrongNumberOfCams() {
    CamFileFixture f;
    f.program.SetPhase(1, 0, 10, 20);
    f.program.SetCamText(0, QStringLiteral("a"));
    const auto revision = f.program.Revision();
    f.prompts.Expect(Answer::Ok);
    const LoadResult result = f.Load(HeadWith(1, "FUNZIONI  24 - 22 "));
    QCOMPARE(result.outcome, Outcome::WrongCams);
    QCOMPARE(f.prompts.Shown(),
             QStringList(QStringLiteral("Critical Ok: 24 WRONG NUMBER OF CAMS 2")));
    QCOMPARE(f.program.Revision(), revision);
    QCOMPARE(ContentOf(f.program), QStringLiteral("1.1: 10-20; 1 = a"));
  }

  void WrongNumberOfSizes() {
    const QByteArray bytes =
        HeadWith(1, "FUNZIONI  2 - 3 ") +
        " FORMATO N. 03\r\nC 02\"c\"\r\n 030 040\r\nC 99\"x\"\r\n 999 999\r\n  \r\n"
        " FORMATO N. 01\r\nC 01\"a\"\r\n 010 020\r\n"
        " FORMATO N. 02\r\nC 02\"b\"\r\n 020 030\r\nEND\r\n";
    CamFileFixture f;
    f.program.SetPhase(1, 1, 100, 200);
    f.prompts.Expect(Answer::Cancel);
    const auto revision = f.program.Revision();
    QCOMPARE(f.Load(bytes).outcome, Outcome::Declined);
    QCOMPARE(f.program.Revision(), revision);
    QCOMPARE(ContentOf(f.program), QStringLiteral("1.2: 100-200"));
    f.prompts.Expect(Answer::Ok);
    QCOMPARE(f.Load(bytes).outcome, Outcome::Loaded);
    QCOMPARE(ContentOf(f.program), QStringLiteral("1.1: 10-20; 1 = a"));
    QCOMPARE(f.program.NumSizes(), 1);
    const QString question = QStringLiteral("None OkCancel: 3 BAD TOTAL FORMATS 1");
    QCOMPARE(f.prompts.Shown(), QStringList({question, question}));
    // The next file is asked about again, and the cam of a block that was passed over is forgotten.
    f.prompts.Expect(Answer::Ok);
    QCOMPARE(f.Load(PlainHead() + " FORMATO N. 02\r\nC 01\r\n 010 020\r\n").outcome, Outcome::Bad);
    f.prompts.Expect(Answer::Ok);
    f.prompts.Expect(Answer::Ok);
    const LoadResult result = f.Load(HeadWith(1, "FUNZIONI  2 - 3 ") +
                                     " FORMATO N. 02\r\nC 01\r\n FORMATO N. 01\r\n 010 020\r\n");
    QCOMPARE(result.outcome, Outcome::Bad);
    QCOMPARE(result.line, 12);
  }

  void HeaderCounts_data() {
    QTest::addColumn<QByteArray>("header");
    QTest::addColumn<QString>("shown");
    const QString cams = QStringLiteral("Critical Ok: %1 WRONG NUMBER OF CAMS 2");
    const QString sizes = QStringLiteral("None OkCancel: %1 BAD TOTAL FORMATS 1");
    QTest::newRow("as written") << QByteArray("FUNZIONI  2 - 1 ") << QString();
    QTest::newRow("bare tail") << QByteArray("FUNZIONI 2 1") << cams.arg(21);
    QTest::newRow("no numbers") << QByteArray("FUNZIONI ") << cams.arg(0);
    QTest::newRow("word later") << QByteArray("  FUNZIONI  2 - 1 ") << cams.arg(0);
    QTest::newRow("below 0") << QByteArray("FUNZIONI -2 - 1 ") << cams.arg(-2);
    QTest::newRow("sizes 0") << QByteArray("FUNZIONI  2 - x ") << sizes.arg(0);
    QTest::newRow("three digits") << QByteArray("FUNZIONI  2 - 101") << sizes.arg(101);
    QTest::newRow("fraction") << QByteArray("FUNZIONI 2.4   1 ") << QString();
  }

  void HeaderCounts() {
    QFETCH(QByteArray, header);
    QFETCH(QString, shown);
    CamFileFixture f;
    if (!shown.isEmpty()) {
      f.prompts.Expect(shown.startsWith(u'C') ? Answer::Ok : Answer::Cancel);
    }
    const LoadResult result = f.Load(HeadWith(1, header));
    QCOMPARE(f.prompts.Shown().join(u'|'), shown);
    QCOMPARE(result.outcome == Outcome::Loaded, shown.isEmpty());
  }

  /// The bare header skips the checks, and the program before it is not emptied.
  void BareHeader() {
    CamFileFixture f;
    f.program.SetPhase(1, 1, 10, 20);
    QCOMPARE(f.Load(HeadWith(1, "FUNZIONI") + " FORMATO N. 01\r\nC 01\r\n 030 040\r\n").outcome,
             Outcome::Loaded);
    QCOMPARE(ContentOf(f.program), QStringLiteral("1.1: 30-40; 1.2: 10-20"));
    QCOMPARE(f.Load(PlainHead()).outcome, Outcome::Loaded);
    QCOMPARE(ContentOf(f.program), QString());
  }

  void WhatIsNoFileIsMissing() {
    CamFileFixture f;
    f.program.SetPhase(1, 1, 10, 20);
    const auto revision = f.program.Revision();
    QStringList paths = {QString(), f.Path("none.cam"), f.folder.path()};
#ifdef Q_OS_LINUX
    const QString pipe = f.Path("pipe.cam");
    QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    const QString secret = f.Path("secret.cam");
    QVERIFY(WriteBytes(secret, PlainHead()));
    QVERIFY(QFile::setPermissions(secret, {}));
    paths += pipe;
    if (geteuid() != 0) paths += secret;
#endif
    for (const QString& path : paths) {
      const LoadResult result = f.file.LoadCamFile(path);
      QCOMPARE(result.outcome, Outcome::Missing);
      QVERIFY(!result.Refused());
    }
    QCOMPARE(f.program.Revision(), revision);
  }

  void HugeFileWithoutLines() {
    CamFileFixture f;
    const QString path = f.Path("huge.cam");
    QVERIFY(WriteBytes(path, PlainHead()));
    QVERIFY(QFile::resize(path, 100 << 20));
    f.prompts.Expect(Answer::Ok);
    QCOMPARE(f.file.LoadCamFile(path).outcome, Outcome::Bad);
    QCOMPARE(f.file.LoadCamFile(f.Path("none.cam")).outcome, Outcome::Missing);
  }
};

}  // namespace nira

QTEST_APPLESS_MAIN(nira::CamFileTest)
#include "CamFileTest.moc"
