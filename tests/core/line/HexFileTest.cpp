// SPDX-License-Identifier: Apache-2.0
#include "line/HexFile.h"
#include "support/FlashFixture.h"

#include <QTest>

namespace nira {

using namespace Qt::StringLiterals;

namespace {

const QByteArray data = HexOf("\x01\xAB\xCD");
const QByteArray end = ":00000001FF";

/// "3 lines, 3 bytes" of a file, or its first fault, "2 WrongDigit".
QString Found(const QString& path) {
  static const char* const names[] = {"None",       "NoRecord",   "TooShort",     "OddDigit",
                                      "WrongDigit", "WrongCount", "WrongChecksum"};
  HexFile file(path);
  while (const HexLine* line = file.Next()) {
    if (line->Found == HexLine::Fault::None) continue;
    return QString::number(line->Number) + u' ' +
           QString::fromLatin1(names[static_cast<int>(line->Found)]);
  }
  return QStringLiteral("%1 lines, %2 bytes").arg(file.Totals().Lines).arg(file.Totals().Bytes);
}

}  // namespace

/// The lines of firmware files, good and bad, and the record that names the program.
class HexFileTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Lines_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("found");
    const auto row = [](const char* name, const QByteArray& bytes, const QString& found) {
      QTest::newRow(name) << bytes << found;
    };
    row("last line open", data + "\r\n" + end, u"2 lines, 3 bytes"_qs);
    row("two empty last lines", end + "\n\n\n", u"2 NoRecord"_qs);
    row("empty file", "", u"0 lines, 0 bytes"_qs);
    row("checksum 00", ":01000000FF00\n", u"1 lines, 1 bytes"_qs);
    row("lower-case data", ":0300000001abcd84\n", u"1 lines, 3 bytes"_qs);
    row("wrong checksum", data + '\n' + data.chopped(2) + "85\n", u"2 WrongChecksum"_qs);
    row("wrong digit", ":0300000001AGCD84", u"1 WrongDigit"_qs);
    row("count too high", ":0400000001ABCD83", u"1 WrongCount"_qs);
    row("too short", ":00000000", u"1 TooShort"_qs);
    row("255 bytes", HexOf(QByteArray(255, 'x')), u"1 lines, 255 bytes"_qs);
    row("256 bytes", ":00" + HexOf(QByteArray(255, 'x')).mid(3) + "00", u"1 WrongCount"_qs);
  }

  void Lines() {
    QFETCH(QByteArray, bytes);
    FlashFixture f;
    QTEST(Found(f.File(bytes)), "found");
  }

  void OneGigabyte() {
    FlashFixture f;
    QFile file(f.File(data + "\n:"));
    QVERIFY(file.resize(1 << 30));  // zeros that take no room
    QCOMPARE(Found(file.fileName()), u"2 WrongCount"_qs);
  }

  void Program_data() {
    QTest::addColumn<QByteArrayList>("records");
    QTest::addColumn<QString>("program");
    const QString none = u"------ of ------"_qs;
    const auto row = [](const char* name, const QByteArrayList& records, const QString& program) {
      QTest::newRow(name) << records << program;
    };
    row("short year", {"a1 2C$120597"}, u"a1 2C$ of DEC 05 97"_qs);
    row("long year", {"FFFFFF01311997"}, u"FFFFFF of JAN 31 1997"_qs);
    row("the last one", {"111111040197", "222222050197", "no program"}, u"222222 of MAY 01 97"_qs);
    row("no month 13", {"A1B2C3130597"}, none);
    row("blank in the date", {"A1B2C312 597"}, none);
  }

  void Program() {
    QFETCH(QByteArrayList, records);
    FlashFixture f;
    QByteArray bytes = HexOf("A1B2C3120597", 0, 3) + '\n';  // no data record
    for (const QByteArray& record : records) bytes += HexOf(record) + '\n';
    HexFile file(f.File(bytes));
    while (file.Next() != nullptr) {
    }
    QTEST(QString(file.Program().Checksum + u" of " + file.Program().Date), "program");
  }
};

}  // namespace nira

QTEST_GUILESS_MAIN(nira::HexFileTest)
#include "HexFileTest.moc"
