// SPDX-License-Identifier: Apache-2.0
#include "support/FlashFixture.h"
#include "support/Kplctl.h"

#include <QTest>

namespace nira {

using namespace Qt::StringLiterals;

namespace {

const QByteArray end = ":00000001FF\n";

/// What a call of kplctl prints; its status comes last.
QString Printed(const QStringList& arguments) {
  const Ran ran = Kplctl(arguments);
  return ran.out + ran.err + QString::number(ran.status);
}

QByteArray At(std::size_t offset, int bytes) {
  return HexOf(QByteArray(bytes, 'x'), offset) + '\n';
}

QByteArray Base(const char* hex, std::size_t type) {
  return HexOf(QByteArray::fromHex(hex), 0, type) + '\n';
}

}  // namespace

/// What kplctl says of firmware files.
class FirmwareCheckTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Check_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("printed");  // behind the path, line ends as "|"
    const auto row = [](const char* name, const QByteArray& bytes, const QString& printed) {
      QTest::newRow(name) << bytes << printed;
    };
    const QString unnamed = u", program ------ of ------"_qs;
    row("hole, out of order", At(0x300, 1) + At(0x100, 16) + At(0x110, 16) + end,
        u": good: 4 lines, 33 bytes"_qs + unnamed +
            u"|  filled  00000100-0000011F          32 bytes"
            u"|  hole    00000120-000002FF         480 bytes"
            u"|  filled  00000300-00000300           1 byte|0"_qs);
    row("filled again", At(0x100, 16) + At(0x120, 16) + At(0x10C, 32) + end,
        u": good: 4 lines, 64 bytes"_qs + unnamed +
            u"|  filled  00000100-0000012F          48 bytes"
            u"|  again   0000010C-0000010F           4 bytes, in line 3"
            u"|  again   00000120-0000012B          12 bytes, in line 3|0"_qs);
    row("segment base, running over", Base("1234", 2) + At(0xFFFE, 4) + end,
        u": good: 3 lines, 6 bytes"_qs + unnamed +
            u"|  filled  00012340-00012341           2 bytes"
            u"|  hole    00012342-0002233D       65532 bytes"
            u"|  filled  0002233E-0002233F           2 bytes|0"_qs);
    row("named, no end", HexOf("A1B2C3120597"),
        u": good: 1 line, 12 bytes, program A1B2C3 of DEC 05 97"
        u"; it has no end record: it may be incomplete"
        u"|  filled  00000000-0000000B          12 bytes|0"_qs);
    row("checksum", At(0, 1) + ":00000001fe\n", u":2: fault: checksum fe found, FF expected|1"_qs);
    row("empty", "", u": fault: it is empty|1"_qs);
    row("type", Base("01", 6), u":1: fault: record type 6, the last is 5|1"_qs);
  }

  void Check() {
    QFETCH(QByteArray, bytes);
    FlashFixture f;
    const QString path = f.File(bytes);
    QString printed = Printed({u"check"_qs, path});
    QVERIFY(printed.startsWith(path));
    QTEST(printed.mid(path.size()).replace(u'\n', u'|'), "printed");
  }

  /// Bytes at every second address: what is kept and printed stays bounded.
  void Scattered() {
    FlashFixture f;
    QByteArray bytes;
    for (std::size_t offset = 0; offset < 10000; offset += 2) bytes += At(offset, 1);
    const QString printed = Printed({u"check"_qs, f.File(bytes + bytes + end)});
    QCOMPARE(printed.count(u"  filled"_qs), 4096);
    QVERIFY(printed.contains(u"\n  again   in 4080 more places\n  more than 4096 ranges"_qs));
  }

  void Flash() {
    FlashFixture f;
    const QString printed = Printed({u"flash"_qs, u"--yes"_qs, f.File(At(0, 16) + ":00\n")});
    QCOMPARE(printed,
             u"WORKING FILE =new.abs\nTesting Line:         2  Tot.Bytes:        16\n"
             u"PARITY ERROR IN LINE 2\nFILE UNUSABLE\n"_qs +
                 f.Path("new.abs") + u": NOT sent: a line of it is bad\n1"_qs);
    QVERIFY(Printed({u"flash"_qs, u"x.abs"_qs, u"--port"_qs, u"0"_qs}).endsWith(u'2'));
  }
};

}  // namespace nira

QTEST_GUILESS_MAIN(nira::FirmwareCheckTest)
#include "FirmwareCheckTest.moc"
