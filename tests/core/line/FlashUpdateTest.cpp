// SPDX-License-Identifier: Apache-2.0
#include "line/Timings.h"
#include "support/FlashFixture.h"

#include <QTest>

namespace nira {

using namespace Qt::StringLiterals;

namespace {

constexpr TransferEnd done = TransferEnd::Done;
const QString question = u"Question NoYes: UPDATE FLASH ?"_qs;
const QString unusable = u"Critical Ok: FILE UNUSABLE"_qs;
const QString timeout = u"None Ok: TIMEOUT SERIAL PORT "_qs;
const QByteArray command = ":FU\xD5";
const QByteArray first = HexOf("\x12\x34", 0xABCD);
const QByteArray second = HexOf("9361FE112197", 0x10);
const QByteArray last = ":00000001FF";
const QByteArray firmware = first + "\r\n" + second + "\r\n" + last + "\r\n";

struct UpdateFixture : FlashFixture {
  TransferEnd Run(const QByteArray& bytes) { return FlashUpdate(flash, shown, File(bytes)).Run(); }
};

}  // namespace

/// The update of the firmware, from the file to the last acknowledgement.
class FlashUpdateTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Updates() {
    UpdateFixture f;
    f.TakeAll();
    f.asked.Expect(Answer::Yes);
    f.settings.BaudRate = 300;
    SerialLink(f.flash).OpenPort();  // as another exchange may leave it
    f.serial.Log.clear();
    const std::int64_t begun = f.serial.Now();
    QCOMPARE(f.Run(firmware), done);
    QCOMPARE(f.Sent, QByteArrayList({command, first, second, last}));
    QCOMPARE(f.serial.Written, command + '\r' + first + '\r' + second + '\r' + last + '\r');
    QCOMPARE(f.serial.Log.mid(0, 8).join(u'|'),
             u"close|buffer 4096|open 3|19200,n,8,1|length 0|handshake 2|discard input"
             u"|out 3a 46 55 d5 0d"_qs);
    QCOMPARE(f.serial.Log.mid(f.serial.Log.size() - 2).join(u'|'), u"pause 3000|close"_qs);
    QCOMPARE(f.serial.Now() - begun, 4 * 30 + 3000);
    QCOMPARE(f.settings.BaudRate, 300);
    QCOMPARE(f.asked.Shown(), QStringList(question));
    const QStringList expected = {u"WORKING FILE =new.abs"_qs,
                                  u"Testing Line:         3  Tot.Bytes:        14"_qs,
                                  u"WORKING FILE =new.abs (14 bytes)"_qs,
                                  u" CRC Prog:  9361FE  Date Prog: NOV 21 97"_qs,
                                  u"Ready"_qs,
                                  u"Refused 0"_qs,
                                  u"Transmit Line:      1  Bytes:       2  Addr:2ABCDH"_qs,
                                  u"Transmit Line:      2  Bytes:      14  Addr:C0010H"_qs,
                                  u"33%"_qs,
                                  u"Transmit Line:      3  Bytes:      14  Addr:00000H"_qs,
                                  u"66%"_qs,
                                  u"100%"_qs,
                                  u"DEVICE UPDATED WITH  "_qs + f.Path(u"new.abs"_qs)};
    QCOMPARE(f.shown.Shown.join(u'\n'), expected.join(u'\n'));
  }

  void LinesWithoutDataGoLast() {
    UpdateFixture f;
    f.TakeAll();
    f.asked.Expect(Answer::Yes);
    const QByteArray other = HexOf({}, 0x1234, 1);
    QCOMPARE(f.Run(last + '\n' + first + '\n' + other + '\n' + second), done);
    QCOMPARE(f.Sent, QByteArrayList({command, first, second, last, other}));
    const QStringList lines = f.shown.Shown.filter(u"Transmit"_qs);
    QCOMPARE(lines.at(2), u"Transmit Line:      1  Bytes:      14  Addr:00000H"_qs);
    QCOMPARE(lines.at(3), u"Transmit Line:      3  Bytes:      14  Addr:01234H"_qs);
  }

  void Replies_data() {
    QTest::addColumn<QString>("replies");  // each to one output, "ms:hex"; "+" joins several
    QTest::addColumn<int>("outputs");
    QTest::addColumn<int>("lasted");  // ms; the end of a good update adds 3000
    QTest::addColumn<bool>("good");
    const auto row = [](const char* name, const QString& replies, int outputs, int lasted,
                        bool good) { QTest::newRow(name) << replies << outputs << lasted << good; };
    row("noise in one piece", u"1:06 2:FF0006 1:06 1:06"_qs, 4, 5, true);
    row("the first of two counts", u"1:06 2:1506 1:06 1:06 1:06"_qs, 5, 6, true);
    row("late", u"4999:06 5000:06 5000:06 1:06"_qs, 4, 15000, true);
    row("noise pushes nothing", u"1:06 2000:FF+4000:FF+5500:06"_qs, 2, 5001, false);
    row("doubled is none for the next", u"1:06 1:0606 -"_qs, 3, 5002, false);
    row("start refused", u"1:15+9:06 1:06 1:06 1:06"_qs, 4, 12, true);
    row("end unanswered", u"1:06 1:06 1:06 -"_qs, 4, 5003, false);
  }

  void Replies() {
    QFETCH(QString, replies);
    QFETCH(bool, good);
    UpdateFixture f;
    QStringList left = replies.split(u' ');
    f.serial.Device = [&](const QByteArray&) {
      for (const QString& reply : (left.isEmpty() ? QString() : left.takeFirst()).split(u'+')) {
        const QByteArray bytes = QByteArray::fromHex(reply.section(u':', 1).toLatin1());
        if (!bytes.isEmpty()) f.serial.Send(bytes, reply.section(u':', 0, 0).toInt());
      }
    };
    f.asked.WhileShown = [&f](const QString&) { f.serial.Send("\x06"); };  // to nothing
    f.asked.Expect(Answer::Yes);
    if (!good) f.asked.Expect();
    const std::int64_t begun = f.serial.Now();
    QCOMPARE(f.Run(firmware), good ? done : TransferEnd::TimedOut);
    QTEST(int(f.serial.Written.count('\r')), "outputs");
    QTEST(int(f.serial.Now() - begun - (good ? 3000 : 0)), "lasted");
    QCOMPARE(f.asked.Shown().mid(1), good ? QStringList() : QStringList(timeout));
    QVERIFY(!f.serial.PortOpen());
    QCOMPARE(f.shown.Message.isEmpty(), !good);
  }

  /// Nothing that cannot be flashed reaches the port; one that was open is closed.
  void BadFiles() {
    for (const bool badDigit : {false, true}) {  // or no record at all
      UpdateFixture f;
      SerialLink(f.flash).OpenPort();
      f.serial.Log.clear();
      f.asked.Expect();
      QCOMPARE(f.Run(first + '\n' + (badDigit ? QByteArray(second.chopped(1) + "G") : "END")),
               TransferEnd::BadFile);
      QCOMPARE(f.asked.Shown(), QStringList(unusable));
      QCOMPARE(f.shown.Message, badDigit ? u"PARITY ERROR IN LINE 2"_qs : QString());
      QCOMPARE(f.serial.Log, QStringList(u"close"_qs));
    }
  }

  void GivenUp() {
    UpdateFixture f;
    f.serial.Holding = false;
    f.asked.Expect(Answer::Yes);
    f.asked.Expect(Answer::Cancel);
    QCOMPARE(f.Run(first), TransferEnd::Cancelled);
    QCOMPARE(f.shown.Message, u"THE FILE HAS NO END RECORD: IT MAY BE INCOMPLETE"_qs);
    QVERIFY(f.serial.Written.isEmpty() && !f.serial.PortOpen());
    f.asked.Expect();
    QCOMPARE(FlashUpdate(f.flash, f.shown, f.folder.path()).Run(), TransferEnd::NoFile);
  }

  /// What was tested is sent, to the last line, whatever stands in the file by then.
  void FileChanges() {
    UpdateFixture f;
    f.TakeAll();
    f.asked.Expect(Answer::Yes);
    f.asked.WhileShown = [&f](const QString&) { f.File(HexOf("other") + "\nEND\n"); };
    QCOMPARE(f.Run(firmware), done);
    QCOMPARE(f.Sent, QByteArrayList({command, first, second, last}));
  }

  /// More than is kept from the test to the end is refused before the port is touched.
  void TooLarge() {
    UpdateFixture f;
    f.asked.Expect();
    const QByteArray line = HexOf(QByteArray(255, 'x')) + '\n';
    QCOMPARE(f.Run(line.repeated(qsizetype(FlashUpdate::MostText) / line.size() + 1)),
             TransferEnd::BadFile);
    QCOMPARE(f.shown.Message, u"THE FILE IS TOO LARGE: MORE THAN 16 MB"_qs);
    QVERIFY(f.serial.Log.filter(u"open"_qs).isEmpty());
  }

  /// Whichever operation meets it first: told once, closed, nothing else asked.
  void Unplugged() {
    bool ended = false;
    for (int operations = 0; !ended; ++operations) {
      UpdateFixture f;
      f.TakeAll();
      f.asked.AnswerEverything(true);
      SerialLink(f.flash).OpenPort();
      f.serial.GoneAfter(operations);
      const TransferEnd end = f.Run(firmware);
      ended = !f.serial.Gone;
      QVERIFY(!f.serial.PortOpen());
      if (ended || end == done) continue;  // gone in the pause after the last line
      QCOMPARE(end, TransferEnd::PortError);
      QCOMPARE(f.asked.Shown().count(
                   u"Critical Ok: [Errore su COM3] Errore 8020 generato da MsComm1\rgone"_qs),
               1);
      QCOMPARE(f.settings.PortErrorFlag, 8020);
    }
  }
};

}  // namespace nira

QTEST_GUILESS_MAIN(nira::FlashUpdateTest)
#include "FlashUpdateTest.moc"
