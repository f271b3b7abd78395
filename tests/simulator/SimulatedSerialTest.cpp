// SPDX-License-Identifier: Apache-2.0
#include "SimulatedSerial.h"
#include "support/DeviceFixture.h"

#include <QTest>

namespace nira {

using namespace Qt::StringLiterals;

namespace {

constexpr int identityLength = 54;

/// A programmer on an open port.
struct Port {
  explicit Port(const QStringList& faults = {}, const QString& settings = u"9600,n,8,1"_qs)
      : device(ProgrammerState(), FaultsOf(faults)) {
    serial.PortOpen(true);
    serial.Settings(settings);
    serial.InputLen(SerialControl::AllInput);
  }

  /// All that arrives before nothing does for a second.
  QByteArray ReadAll() {
    QByteArray bytes;
    while (serial.WaitForInput(serial.Now() + 1000, Yield::Painting)) bytes += serial.Input();
    return bytes;
  }

  Programmer device;
  SimulatedSerial serial{device};
};

}  // namespace

/// The control and its virtual time.
class SimulatedSerialTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Pace_data() {
    QTest::addColumn<QString>("settings");
    QTest::addColumn<int>("ms");  // 58 bytes of 10 bits
    QTest::newRow("300") << u"300,n,8,1"_qs << 1933;
    QTest::newRow("9600") << u"9600,n,8,1"_qs << 60;
    QTest::newRow("19200") << u"19200,n,8,1"_qs << 30;
  }

  void Pace() {
    QFETCH(QString, settings);
    QFETCH(int, ms);
    Port port({}, settings);
    port.serial.Pause(10, Yield::Events);
    const auto begin = port.serial.Now();
    port.serial.Output(identify);
    QByteArray reply;
    while (reply.size() < identityLength) {
      QVERIFY(port.serial.WaitForInput(begin + 2000, Yield::Events));
      reply += port.serial.Input();
    }
    QCOMPARE(port.serial.Now() - begin, ms);
    QCOMPARE(port.serial.BytesSent(), identify.size());
    QCOMPARE(port.serial.BytesReceived(), identityLength);
    QCOMPARE(port.serial.LeastTime(), port.serial.Elapsed());
    QVERIFY(!port.serial.WaitForInput(begin + 5000, Yield::Events));
    QCOMPARE(port.serial.Now(), begin + 5000);
  }

  void Reading() {
    Port port;
    port.serial.Output(identify);
    port.serial.Pause(1000, Yield::Events);
    QCOMPARE(port.serial.InBufferCount(), identityLength);
    port.serial.InputLen(SerialControl::OneCharacter);
    QCOMPARE(port.serial.Input(), QByteArray("3"));
    port.serial.InputLen(SerialControl::AllInput);
    QCOMPARE(port.serial.Input().size(), identityLength - 1);
    QVERIFY(port.serial.Input().isEmpty());
    port.serial.InBufferSize(20);
    port.serial.Output(identify);
    port.serial.Pause(1000, Yield::Events);
    QCOMPARE(port.serial.InBufferCount(), 20);  // the rest is lost
    port.serial.DiscardInput();
    QCOMPARE(port.serial.InBufferCount(), 0);
  }

  void Cts() {
    Port port({u"no-cts"_qs});
    QVERIFY(!port.serial.CTSHolding());
    port.serial.Output(identify);
    QCOMPARE(port.ReadAll().size(), identityLength);
    port.serial.Handshaking(SerialControl::HandshakeRts);
    port.serial.Output(identify);
    QVERIFY(port.ReadAll().isEmpty());
    port.serial.Handshaking(SerialControl::HandshakeNone);
    QCOMPARE(port.ReadAll().size(), identityLength);
    QVERIFY(Port().serial.CTSHolding());
  }

  /// Nothing written is dropped by closing, but what CTS holds back is in the end.
  void Closing() {
    Port port;
    port.serial.Output(sendMessages + "N001\"x\"\r");
    port.serial.PortOpen(false);
    QCOMPARE(port.device.State.Message(1), std::string("x"));
    QVERIFY(port.serial.Now() < 100);

    Port held({u"no-cts"_qs});
    held.serial.Handshaking(SerialControl::HandshakeRts);
    held.serial.Output(identify);
    held.serial.PortOpen(false);
    QVERIFY(held.serial.Now() >= 2000 && held.serial.Now() < 2100);
    held.serial.PortOpen(true);
    held.serial.Handshaking(SerialControl::HandshakeNone);
    QVERIFY(held.ReadAll().isEmpty());
  }

  void OpensWithoutOldInput() {
    Port port;
    port.serial.Output(identify);
    port.serial.PortOpen(false);
    port.serial.Pause(1000, Yield::Events);
    port.serial.PortOpen(true);
    QVERIFY(port.ReadAll().isEmpty());
  }

  void Unplugged() {
    Port port({u"unplug=1"_qs});
    port.serial.Output(receiveMessages);
    QVERIFY_EXCEPTION_THROWN(port.ReadAll(), SerialError);
    QVERIFY_EXCEPTION_THROWN(port.serial.Output("x"), SerialError);
    QVERIFY_EXCEPTION_THROWN(port.serial.CTSHolding(), SerialError);
    port.serial.PortOpen(false);
    QVERIFY_EXCEPTION_THROWN(port.serial.PortOpen(true), SerialError);
    port.device.PlugIn();
    port.serial.PortOpen(true);
    port.serial.Output(identify);
    QCOMPARE(port.ReadAll().size(), identityLength);
  }

  void NotOpen() {
    Port port;
    QVERIFY_EXCEPTION_THROWN(port.serial.Settings(u"fast"_qs), SerialError);
    port.serial.PortOpen(false);
    QVERIFY_EXCEPTION_THROWN(port.serial.Input(), SerialError);
    QVERIFY_EXCEPTION_THROWN(port.serial.WaitForInput(1, Yield::Events), SerialError);
  }
};

}  // namespace nira

QTEST_APPLESS_MAIN(nira::SimulatedSerialTest)
#include "SimulatedSerialTest.moc"
