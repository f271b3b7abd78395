// SPDX-License-Identifier: Apache-2.0
#include "line/WireFunctions.h"
#include "support/CamFileFixture.h"

#include <QTest>

namespace nira {

using namespace Qt::StringLiterals;

namespace {

/// "1010 3:05 00 D2 12 100 4 5,90,1,2000": flags, last advance, advances, delays, ratio, the rest.
QString Shown(const FunctionsBlock& f) {
  QString text =
      QStringLiteral("%1%2%3%4 ").arg(f.AdvanceOn).arg(f.DelayOn).arg(f.Ratio25On).arg(f.Ratio17On);
  text += QString::number(f.AdvanceLast) + u':';
  for (int i = 0; i < 3; ++i) text += QString::number(f.CamFunc[std::size_t(i)]) + u' ';
  text += QStringLiteral("%1 %2 %3 ").arg(f.Delay17to20).arg(f.Delay21to24).arg(f.Ratio25to32);
  return text + QStringLiteral("%1,%2,%3,%4")
                    .arg(f.OutputSize)
                    .arg(f.EncoderShift)
                    .arg(f.RotationSense)
                    .arg(f.SpeedLimit);
}

FunctionsBlock Block() {
  FunctionsBlock f;
  f.CamFunc[0] = 5;
  f.CamFunc[1] = 171;
  f.CamFunc[2] = 210;
  f.AdvanceLast = 2;
  f.Delay17to20 = 12;
  f.Delay21to24 = 200;
  f.Ratio25to32 = 4;
  f.Ratio17to24 = 9;
  f.OutputSize = 5;
  f.EncoderShift = 90;
  f.RotationSense = 1;
  f.SpeedLimit = 2000;
  return f;
}

}  // namespace

/// The functions block on its way to the programmer and back.
class WireFunctionsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Sends_data() {
    QTest::addColumn<int>("cams");
    QTest::addColumn<QByteArray>("flags");  // "1010", then the last index
    QTest::addColumn<QString>("records");
    QTest::newRow("all off") << 32 << QByteArray("00002") << u"0000|0509012000"_qs;
    QTest::newRow("all on") << 32 << QByteArray("11112") << u"1111|0305ABD2|0CC8|4|0509012000"_qs;
    QTest::newRow("advances alone") << 32 << QByteArray("10000") << u"1000|0105|0509012000"_qs;
    QTest::newRow("ratio 17-24") << 32 << QByteArray("00012") << u"0001|0509012000"_qs;
    QTest::newRow("16 cams") << 16 << QByteArray("01112") << u"0305ABD2|0509012000"_qs;
    QTest::newRow("16 cams, one entry") << 16 << QByteArray("10000") << u"0|0509012000"_qs;
  }

  void Sends() {
    QFETCH(int, cams);
    QFETCH(QByteArray, flags);
    CamProgram program;
    program.SetLimits(22, cams, 255);
    FunctionsBlock f = Block();
    f.AdvanceOn = flags[0] == '1';
    f.DelayOn = flags[1] == '1';
    f.Ratio25On = flags[2] == '1';
    f.Ratio17On = flags[3] == '1';
    f.AdvanceLast = flags[4] - '0';
    program.SetFunctions(f);
    QStringList records;
    for (const std::string& record : FunctionsRecords(program)) {
      records.append(QString::fromStdString(record));
    }
    QTEST(records.join(u'|'), "records");
  }

  void SendsTheLastIndexOf32() {
    CamProgram program;
    FunctionsBlock f;
    f.AdvanceOn = 1;
    f.AdvanceLast = 31;
    f.OutputSize = 255;
    f.EncoderShift = -5;
    f.SpeedLimit = 32767;
    program.SetFunctions(f);
    const std::vector<std::string> records = FunctionsRecords(program);
    QCOMPARE(records.at(1), "32" + std::string(64, '0'));
    QCOMPARE(records.at(2), std::string("550-502767"));
  }

  void Receives_data() {
    QTest::addColumn<int>("cams");
    QTest::addColumn<QString>("records");
    QTest::addColumn<QString>("block");  // a leading "!" names the bad record instead
    const auto row = [](const char* name, int cams, const QString& records, const QString& block) {
      QTest::newRow(name) << cams << records << block;
    };
    const QString none = u"0 0 0 0 0 0 0,0,0,0"_qs;
    row("all off", 32, u"0 0 0 0 |0509012000"_qs, u"0000 7:0 0 0 0 0 0 5,90,1,2000"_qs);
    row("all on", 32, u"1 1 1 1 |0305ABFF|0CC8|4|0509012000"_qs,
        u"1111 2:5 171 210 12 200 4 5,90,1,2000"_qs);
    row("lowest bits", 32, u"E 3 f-2|FFFF|9|0000000000"_qs, u"0110 7:0 0 0 255 255 9 0,0,0,0"_qs);
    row("hexadecimal count", 32, u"1 0 0 0|0B"_qs + u"0102030405060708090A0B|0000000000"_qs,
        u"1000 10:1 2 3 0 0 0 0,0,0,0"_qs);
    row("count beyond the cams", 16, u"FF0102030405060708090A0B0C0D0E0F1011|0000000000"_qs,
        u"1000 15:1 2 3 0 0 0 0,0,0,0"_qs);
    row("no entry", 32, u"1 0 0 0|00|0000000000"_qs, u"1000 0:"_qs + none);
    row("16 cams, entries", 16, u"020508|0509012000"_qs, u"1000 1:5 8 0 0 0 0 5,90,1,2000"_qs);
    row("16 cams, one entry", 16, u"0108|0509012000"_qs, u"0000 0:8 0 0 0 0 0 5,90,1,2000"_qs);
    row("16 cams, index", 16, u"0|0509012000"_qs, u"0000 0:0 0 0 0 0 0 5,90,1,2000"_qs);
    row("16 cams, index above", 16, u"99|0509012000"_qs, u"1000 15:0 0 0 0 0 0 5,90,1,2000"_qs);
    row("ends early", 32, u"1 0 0 0"_qs, u"1000 7:"_qs + none);
    row("nothing", 32, QString(), u"0000 7:"_qs + none);
    row("more behind", 32, u"0 0 0 0|0000000000|x|y"_qs, u"0000 7:"_qs + none);
    row("flags short", 32, u"1 0 0"_qs, u"!1 0 0"_qs);
    row("flags are text", 32, u"1 0 X 0"_qs, u"!1 0 X 0"_qs);
    row("entry missing", 32, u"1 0 0 0|0305AB|0000000000"_qs, u"!0305AB"_qs);
    row("delay missing", 32, u"0 1 0 0|0C"_qs, u"!0C"_qs);
    row("ratio is text", 32, u"0 0 1 0|R"_qs, u"!R"_qs);
    row("ratio beyond a byte", 32, u"0 0 1 0|256"_qs, u"!256"_qs);
    row("rest signed", 32, u"0 0 0 0|05-9012000"_qs, u"!05-9012000"_qs);
  }

  void Receives() {
    QFETCH(int, cams);
    QFETCH(QString, records);
    QFETCH(QString, block);
    QTemporaryDir folder;
    const QString path = folder.filePath(u"in"_qs);
    const QString text = records.isEmpty() ? QString() : QString(records + u'|');
    QVERIFY(WriteBytes(path, QString(text + u"FORMATO N. 01|END").replace(u'|', u'\n').toLatin1()));
    LineReader lines(path);
    FunctionsBlock f;
    f.AdvanceLast = 7;
    WireFunctions reader(lines, f, cams);
    const bool good = reader.Read();
    QCOMPARE(good ? Shown(f) : QString(u'!' + QString::fromStdString(reader.Line())), block);
    if (good) QCOMPARE(reader.Line(), std::string("FORMATO N. 01"));
  }
};

}  // namespace nira

QTEST_APPLESS_MAIN(nira::WireFunctionsTest)
#include "WireFunctionsTest.moc"
