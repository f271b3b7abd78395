// SPDX-License-Identifier: Apache-2.0
#include "line/Checksum.h"
#include "line/Wire.h"
#include "support/CommFixture.h"

#include <QTest>

namespace nira {

using namespace Qt::StringLiterals;

namespace {

const QString timeout = u"None Ok: TIMEOUT SERIAL PORT "_qs;
const QString noAnswer = u"    Errore su Porta COM1\rVerificare le connessioni"_qs;

/// A fixture whose port is open, with nothing written yet.
struct OpenFixture : CommFixture {
  OpenFixture() {
    SerialLink(comm).OpenPort();
    serial.Log.clear();
  }
  Wire wire{comm};
};

}  // namespace

/// Checksums, the opening of the port and the four ways of exchanging bytes.
class WireTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Checksums() {
    QCOMPARE(FrameChecksum("\x02\x03"), '\x23');   // 3 is raised
    QCOMPARE(FrameChecksum("\x02\x03z"), '\x23');  // what follows the ETX does not count
    QCOMPARE(FrameChecksum("\x02"
                           "END\x03"),
             '\x4C');
    QCOMPARE(FrameChecksum("\x02"
                           "12\x03"),
             ' ');  // 0 becomes a blank
    QCOMPARE(CommandChecksum("?M"), '\x8C');
    QCOMPARE(CommandChecksum("\x1F"), '?');  // below 32: raised
    QCOMPARE(CommandChecksum("\x20"), ' ');
    QVERIFY_THROWS_EXCEPTION(std::overflow_error, CommandChecksum("?TOO LONG"));
  }

  void OpensAndConfigures() {
    CommFixture f;
    f.settings.PortNumber = 3;
    f.settings.BaudRate = 19200;
    SerialLink link(f.comm);
    QVERIFY(link.OpenPort());
    const QString settings = u"19200,n,8,1|length 0|handshake 2"_qs;
    QCOMPARE(f.serial.Log.join(u'|'), QString(u"buffer 4096|open 3|" + settings));
    f.serial.Log.clear();
    QVERIFY(link.OpenPort());  // open already
    QCOMPARE(f.serial.Log.join(u'|'), settings);
    f.serial.Log.clear();
    f.serial.Holding = false;
    QVERIFY(!link.OpenPort());
    QCOMPARE(f.settings.PortErrorFlag, 1);
    QCOMPARE(f.serial.Log.constLast(), u"close"_qs);
    QVERIFY(link.ClosePort());
    QCOMPARE(f.serial.Log.count(u"close"_qs), 1);
  }

  void FailedOpeningsAreTold() {
    CommFixture f;
    f.settings.PortNumber = 2;
    f.serial.Refusal = SerialError(8005, u"BUSY"_qs);
    f.prompts.Expect();
    QVERIFY(!SerialLink(f.comm).OpenPort());
    QCOMPARE(f.settings.PortErrorFlag, 8005);
    f.serial.Refusal.reset();
    f.serial.GoneAfter(1);  // at the handshake: closed again
    f.prompts.Expect();
    QVERIFY(!SerialLink(f.comm).OpenPort());
    QVERIFY(!f.serial.PortOpen());
    QCOMPARE(
        f.prompts.Shown(),
        QStringList({u"Critical Ok: [Errore su COM2] Errore 8005 generato da MsComm1\rBUSY"_qs,
                     u"Critical Ok: [Errore su COM2] Errore 8020 generato da MsComm1\rgone"_qs}));
  }

  void SendsFrames_data() {
    QTest::addColumn<QByteArrayList>("answers");  // to each output; "-" is none
    QTest::addColumn<int>("outputs");
    QTest::addColumn<bool>("sent");
    QTest::newRow("ACK") << QByteArrayList{"\x06"} << 1 << true;
    QTest::newRow("NAK") << QByteArrayList{"\x15", "\x15", "\x06"} << 3 << true;
    QTest::newRow("noise before the ACK") << QByteArrayList{"x\x06", "\x06"} << 2 << true;
    QTest::newRow("silence") << QByteArrayList{"-"} << 1 << false;
  }

  void SendsFrames() {
    QFETCH(QByteArrayList, answers);
    QFETCH(int, outputs);
    QFETCH(bool, sent);
    OpenFixture f;
    if (!sent) f.prompts.Expect();
    f.serial.Send("\x06");  // of an earlier frame: discarded
    f.serial.Device = [&f, &answers](const QByteArray&) {
      const QByteArray answer = answers.takeFirst();
      if (answer != "-") f.serial.Send(answer, 2999);
    };
    const auto start = f.serial.Now();
    QCOMPARE(f.wire.SendFrame("F01"), sent);
    QCOMPARE(f.serial.Written, Frame("F01").repeated(outputs));
    QCOMPARE(f.serial.Log.count(u"discard input"_qs), 1);
    QCOMPARE(f.prompts.Shown(), sent ? QStringList() : QStringList(timeout));
    QCOMPARE(f.serial.Now() - start, (outputs - 1) * 2999 + (sent ? 2999 : 3000));
  }

  void KeepsARecordInItsFrame() {
    OpenFixture f;
    f.Acknowledge();
    QVERIFY(f.wire.SendFrame("C 01\"A\x02\x03\""));
    QCOMPARE(f.serial.Written, Frame("C 01\"A  \""));
  }

  void ReceivesFrames_data() {
    QTest::addColumn<QByteArrayList>("arriving");  // a piece each 2999 ms
    QTest::addColumn<QByteArray>("record");
    QTest::addColumn<bool>("acknowledged");
    QTest::addColumn<int>("after");  // ms
    const auto row = [](const char* name, const QByteArrayList& arriving, const QByteArray& record,
                        bool acknowledged) {
      const auto last = static_cast<int>(arriving.size() - 1) * 2999;
      QTest::newRow(name) << arriving << record << acknowledged
                          << (acknowledged ? last : last + 3000);
    };
    const QByteArray good = Frame("C 01");
    row("whole", {good}, "C 01", true);
    row("in pieces", {good.left(2), good.mid(2, 3), good.mid(5)}, "C 01", true);
    row("no record", {Frame("")}, "", true);
    row("wrong checksum", {good.chopped(1) + '!'}, "", true);
    row("noise first", {"x" + good}, "", true);
    row("two lines in one", {Frame("END\nC 01")}, "", true);
    row("partial at the deadline", {good.chopped(1)}, "", false);
    row("no ETX", {good.left(3), "1"}, "", false);
    row("longest", {Frame(QByteArray(4090, 'x'))}, QByteArray(4090, 'x'), true);
    row("1 MB", {Frame(QByteArray(1 << 20, 'x'))}, "", true);
  }

  void ReceivesFrames() {
    QFETCH(QByteArrayList, arriving);
    QFETCH(QByteArray, record);
    QFETCH(bool, acknowledged);
    OpenFixture f;
    f.serial.InputLen(SerialControl::OneCharacter);
    for (qsizetype i = 0; i < arriving.size(); ++i) {
      f.serial.Send(arriving.at(i), static_cast<int>(i) * 2999);
    }
    if (acknowledged) f.serial.Send("next", static_cast<int>(arriving.size()) * 2999);
    const auto start = f.serial.Now();
    QCOMPARE(QByteArray::fromStdString(f.wire.ReceiveFrame()), record);
    QTEST(static_cast<int>(f.serial.Now() - start), "after");
    QCOMPARE(f.serial.Written, acknowledged ? QByteArray("\x06") : QByteArray());
    QVERIFY(!acknowledged || f.serial.Log.endsWith(u"out 06"_qs));
    QCOMPARE(f.serial.Log.contains(u"discard output"_qs), acknowledged);
  }

  void Queries_data() {
    QTest::addColumn<QByteArrayList>("arriving");  // a piece each 999 ms after the query
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("answered");
    QTest::newRow("CR LF") << QByteArrayList{"32\r\n"} << QByteArray("32\r\n") << true;
    QTest::newRow("LF alone") << QByteArrayList{"32\n"} << QByteArray("32\n") << true;
    QTest::newRow("CR, LF later") << QByteArrayList{"3", "2\r", "\n"} << QByteArray("32\r") << true;
    QTest::newRow("blanks") << QByteArrayList{"  3 2  \r"} << QByteArray("3 2  \r") << true;
    QTest::newRow("no line end") << QByteArrayList{"32"} << QByteArray() << false;
    QTest::newRow("too late") << QByteArrayList{"3", "2", "", "\r"} << QByteArray() << false;
    QTest::newRow("too long") << QByteArrayList{QByteArray(5000, '3') + "2", "\r"} << QByteArray()
                              << false;
  }

  void Queries() {
    QFETCH(QByteArrayList, arriving);
    QFETCH(bool, answered);
    CommFixture f;
    if (!answered) f.prompts.Expect(Answer::Retry);
    f.serial.Holder = u"cat (7)"_qs;
    f.serial.Device = [&f, &arriving](const QByteArray&) {
      for (qsizetype i = 0; i < arriving.size(); ++i) {
        f.serial.Send(arriving.at(i), static_cast<int>(i) * 999);
      }
    };
    const Reply reply = Wire(f.comm).Query("?M", Buttons::RetryCancel);
    QTEST(QByteArray::fromStdString(reply.Text), "text");
    QCOMPARE(f.serial.Written, QByteArray::fromHex("3F4D8C0D"));
    QCOMPARE(f.serial.Log.mid(f.serial.Log.indexOf(u"pause 10"_qs)).mid(0, 2),
             QStringList({u"pause 10"_qs, u"out 3f 4d 8c 0d"_qs}));
    QCOMPARE(reply.Ended, answered ? Reply::End::Answered : Reply::End::NoAnswer);
    QCOMPARE(f.serial.PortOpen(), answered);
    if (answered) return;
    QCOMPARE(reply.Said, Answer::Retry);
    QCOMPARE(f.prompts.Shown(), QStringList(u"Critical RetryCancel: " + noAnswer +
                                            u"\rCLOSE THE PROGRAM THAT USES IT: cat (7)"));
    QCOMPARE(f.serial.Now(), 1000 + 10 + 2000);
  }
};

}  // namespace nira

QTEST_APPLESS_MAIN(nira::WireTest)
#include "WireTest.moc"
