// SPDX-License-Identifier: Apache-2.0
#include "DeviceFrame.h"
#include "support/DeviceFixture.h"
#include "support/Rows.h"

#include <QTest>

#include <random>

namespace nira {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

ProgrammerState OneMessage() {
  ProgrammerState state(32, 1, 1);
  state.SetMessage(1, "x");
  return state;
}

const QByteArray message = Frame("N 001\"x\"", '$');
const QByteArray noise("\x00\xFF\x55", 3);
const QByteArray ack = "\6";
const QByteArray nak = "\x15";

}  // namespace

/// What goes wrong on request, and what a hostile tool cannot make go wrong.
class DeviceFaultsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Words() {
    for (const char* bad :
         {"", "nak", "nak=", "nak=-1", "nak=x", "late", "late=x", "late=1@", "late=1@x",
          "late=600001", "model=1,2", "model=100,1,1", "model=1,2,3,4", "random=x", "random",
          "random=1,", "random=1,unplug", "nak=99999999999", "unknown=1"}) {
      Faults faults;
      QVERIFY2(!faults.Add(QString::fromLatin1(bad)).isEmpty(), bad);
    }
    FaultsOf({u"no-answer"_qs, u"no-answer=4"_qs, u"no-cts"_qs, u"unplug"_qs,
              u"random=7,late,nak"_qs, u"late=5@7"_qs});
  }

  void InAReception_data() {
    QTest::addColumn<QByteArray>("first");   // answer to F01
    QTest::addColumn<QByteArray>("second");  // to C 01 and a phase
    QTest::addColumn<QString>("kept");
    QTest::newRow("nak=2") << ack << nak + ack << QString();
    QTest::newRow("double-ack=1") << ack + ack << ack + ack << u"10-20"_qs;
    QTest::newRow("noise=2") << ack << noise + ack + ack << u"10-20"_qs;
    QTest::newRow("no-answer=2") << ack << QByteArray() << QString();
    QTest::newRow("late=501@1") << QByteArray() << ack + ack + ack << u"10-20"_qs;
    QTest::newRow("unplug=2") << ack << QByteArray() << QString();
  }

  void InAReception() {
    QFETCH(QByteArray, first);
    QFETCH(QByteArray, second);
    QFETCH(QString, kept);
    DeviceFixture f(ProgrammerState(), {QString::fromLatin1(QTest::currentDataTag())});
    QCOMPARE(f.Say(sendSizes + Frame("F01", 'D')), first);
    QCOMPARE(f.Say(Frame("C 01", 'a') + Frame(" 010 020", ' ')), second);
    QCOMPARE(RunsOf(f.device.State.Row(1, 0)), kept);
  }

  void InASending_data() {
    QTest::addColumn<QByteArray>("first");   // the answer to the command
    QTest::addColumn<QByteArray>("second");  // to the ACK
    QTest::addColumn<QByteArray>("third");   // comes without an ACK
    const QByteArray end = Frame("END", 'L');
    QTest::newRow("lost-ack=1") << message << QByteArray() << end;
    QTest::newRow("bad-checksum=1") << Frame("N 001\"x\"", '%') << end << QByteArray();
    QTest::newRow("noise=1") << noise + message << end << QByteArray();
    QTest::newRow("late=1000@2") << message << QByteArray() << end;
  }

  void InASending() {
    QFETCH(QByteArray, first);
    QFETCH(QByteArray, second);
    QFETCH(QByteArray, third);
    DeviceFixture f(OneMessage(), {QString::fromLatin1(QTest::currentDataTag())});
    QCOMPARE(f.Say(receiveMessages), first);
    QCOMPARE(f.Say("\6"), second);
    QCOMPARE(f.Listen(1900ms), third);
  }

  /// About one frame in twenty of each kind, always the same ones of a seed.
  void Random() {
    using Kind = Faults::Kind;
    const Faults one = FaultsOf({u"random=1"_qs});
    const Faults other = FaultsOf({u"random=2"_qs});
    const Faults noiseAlone = FaultsOf({u"random=1,noise"_qs});
    int strikes = 0;
    int differences = 0;
    for (std::uint64_t i = 0; i < 10'000; ++i) {
      const FrameNumber frame{1, i};
      strikes += one.Strikes(Kind::Noise, frame) ? 1 : 0;
      differences += one.Strikes(Kind::Noise, frame) != other.Strikes(Kind::Noise, frame) ? 1 : 0;
      QCOMPARE(noiseAlone.Strikes(Kind::Noise, frame), one.Strikes(Kind::Noise, frame));
      QVERIFY(!noiseAlone.Strikes(Kind::Nak, frame) && !one.Strikes(Kind::Unplug, frame));
    }
    QVERIFY2(strikes > 400 && strikes < 600, qPrintable(QString::number(strikes)));
    QVERIFY(differences > 500);
  }

  /// Bytes without end, of any kind and at any point of a job: nothing grows, nothing breaks, and
  /// the next command is obeyed.
  void Hostile_data() {
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QByteArray>("bytes");
    const QList<QByteArray> commands = {"",           identify,        sendSizes,     receiveSizes,
                                        sendMessages, receiveMessages, updateFirmware};
    std::mt19937 random(3);
    QByteArray garbage;
    for (int i = 0; i < 70'000; ++i) garbage.append(static_cast<char>(random()));
    for (const QByteArray& command : commands) {
      const QByteArray name = command.left(3);
      QTest::addRow("%s, one byte", name.constData()) << command << QByteArray(70'000, 'A');
      QTest::addRow("%s, a frame", name.constData()) << command << "\2" + QByteArray(70'000, 'F');
      QTest::addRow("%s, ACKs", name.constData()) << command << QByteArray(70'000, '\6');
      QTest::addRow("%s, lines", name.constData())
          << command << QByteArray(":0\r").repeated(20'000);
      QTest::addRow("%s, empty frames", name.constData())
          << command << Frame("", '#').repeated(9'000);
      QTest::addRow("%s, garbage", name.constData()) << command << garbage;
      QTest::addRow("%s, itself", name.constData())
          << command << QByteArray(command + "N").repeated(2'000);
    }
  }

  void Hostile() {
    QFETCH(QByteArray, command);
    QFETCH(QByteArray, bytes);
    Programmer device(OneMessage());
    Instant now{};
    std::size_t most = 0;
    // The tool reads nothing: what is sent has to wait.
    for (const char byte : QByteArray(command + bytes)) {
      device.Receive(byte, now += 1us);
      most = std::max(most, device.Sent().Waiting());
    }
    QVERIFY(most <= DeviceVoice::MaxWaiting);
    now += 10min;
    device.Run(now);
    now += DeviceFrameReader::MaxGap;
    for (const char byte : QByteArray('\r' + identify)) device.Receive(byte, now += 1ms);
    QVERIFY(QByteArray::fromStdString(device.Run(now + 10min))
                .endsWith("32-01F V1.00        0360  001 0100\r\n"));
  }

  void FirmwareWithoutEnd() {
    FirmwareImage image;
    for (std::uint32_t i = 0; i < FirmwareImage::MaxPages + 10; ++i) {
      HexRecord base{HexRecord::ExtendedLinear,
                     0,
                     {static_cast<std::uint8_t>(i >> 8U), static_cast<std::uint8_t>(i)}};
      image.Take(base);
      image.Take({HexRecord::Data, 0, {1}});
    }
    QCOMPARE(image.Bytes(), FirmwareImage::MaxPages);
    QCOMPARE(image.Refused(), std::size_t{10});
    QVERIFY(!image.SameBytes(image));
  }
};

}  // namespace nira

QTEST_APPLESS_MAIN(nira::DeviceFaultsTest)
#include "DeviceFaultsTest.moc"
