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
    QCOMPARE(ChangedOnTheLine(f).join(u'|'),
             u"FORMATO IN USCITA 255 -> 55|SFASAMENTO ENCODER -5 -> 0-5"
             "|LIMITE DI VELOCITA' 32767 -> 2767"_qs);
    QVERIFY(OutOfRange(program).contains(u"SFASAMENTO ENCODER -5 (0-999)"_qs));
  }

  void Receives_data() {
    QTest::addColumn<int>("cams");
    QTest::addColumn<QString>("records");
    QTest::addColumn<QString>("block");  // a leading "!" names the bad record instead
    const auto row = [](const char* name, int cams, const QString& records, const QString& block) {
      QTest::newRow(name) << cams << records << block;
    };
    row("all off", 32, u"0 0 0 0 |0509012000"_qs, u"0000 7:0 0 0 0 0 0 5,90,1,2000"_qs);
    row("all on", 32, u"1 1 1 1 |0305ABFF|0CC8|4|0509012000"_qs,
        u"1111 2:5 171 210 12 200 4 5,90,1,2000"_qs);
    row("lowest bits", 32, u"E 3 f-2|FFFF|9|0000000000"_qs, u"0110 7:0 0 0 255 255 9 0,0,0,0"_qs);
    row("hexadecimal count", 32, u"1 0 0 0|0B"_qs + u"0102030405060708090A0B|0000000000"_qs,
        u"1000 10:1 2 3 0 0 0 0,0,0,0"_qs);
    // As this program sends them: hexadecimal the numbers are 50, 32 and 22.
    row("32 entries", 32, u"1 0 0 0|32"_qs + u"010203" + u"00"_qs.repeated(29) + u"|0000000000",
        u"1000 31:1 2 3 0 0 0 0,0,0,0"_qs);
    row("16 of 16", 16, u"16010203"_qs + u"00"_qs.repeated(13) + u"|0000000000",
        u"1000 15:1 2 3 0 0 0 0,0,0,0"_qs);
    row("16 cams, one entry", 16, u"0108|0509012000"_qs, u"0000 0:8 0 0 0 0 0 5,90,1,2000"_qs);
    row("16 cams, index above", 16, u"99|0509012000"_qs, u"1000 15:0 0 0 0 0 0 5,90,1,2000"_qs);
    row("signs and blanks", 32, u"0 0 1 0| 7|05-901+ 20"_qs, u"0010 7:0 0 0 0 0 7 5,-90,1,20"_qs);
    row("only nines", 32, u"0 0 0 0|9999999999"_qs, u"0000 7:0 0 0 0 0 0 99,999,9,9999"_qs);
    for (const QString& bad :
         {u"1 0 0"_qs, u"1 0 X 0"_qs, u"1 0 0 0|0305AB"_qs, u"0 1 0 0|0C"_qs, u"0 0 1 0|R"_qs,
          u"0 0 1 0|256"_qs, u"0 0 0 0|050901200"_qs, u"0 0 0 0|XX09012000"_qs,
          u"0 0 0 0|-109012000"_qs, u"0 0 0 0|050902562000"_qs, u"0 0 0 0|0000000000|x"_qs,
          u"0 0 0 0|0000000000|0 0 0 0"_qs}) {
      row(qPrintable(bad), 32, bad, u'!' + bad.section(u'|', -1));
    }
    for (const QString& early :
         {u""_qs, u"1 0 0 0 "_qs, u"0 0 0 0"_qs, u"1 1 1 1 |0108|0101|4"_qs}) {
      row(qPrintable(u"ends after "_qs + early), 32, early, u"!FORMATO N. 01"_qs);
    }
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
    const bool good = !reader.Read();
    QCOMPARE(good ? Shown(f) : QString(u'!' + QString::fromStdString(reader.Line())), block);
    if (good) QCOMPARE(reader.Line(), std::string("FORMATO N. 01"));
  }
};

}  // namespace nira

QTEST_APPLESS_MAIN(nira::WireFunctionsTest)
#include "WireFunctionsTest.moc"
