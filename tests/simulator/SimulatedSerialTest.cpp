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
  /// A query and its reply, 58 bytes of 10 bits, take what the line needs.
  void Pace() {
    Port port({}, u"300,n,8,1"_qs);
    port.serial.Pause(10, Yield::Events);
    port.serial.Output(identify);
    QCOMPARE(port.ReadAll().size(), identityLength);
    QCOMPARE(port.serial.Now(), 10 + 1933 + 1000);
    QCOMPARE(port.serial.BytesSent() + port.serial.BytesReceived(), 58);
    QCOMPARE(port.serial.LeastTime() / std::chrono::milliseconds(1), 10 + 1933);
  }

  void Reading() {
    Port port;
    port.serial.Output(identify);
    port.serial.Pause(1000, Yield::Events);
    QCOMPARE(port.serial.InBufferCount(), identityLength);
    QCOMPARE(port.serial.Input().size(), identityLength);
    port.serial.InBufferSize(20);
    port.serial.Output(identify);
    port.serial.Pause(1000, Yield::Events);
    QCOMPARE(port.serial.InBufferCount(), 20);  // the rest is lost
    port.serial.DiscardInput();
    QCOMPARE(port.serial.InBufferCount(), 0);
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

  void Unplugged() {
    Port port({u"unplug=1"_qs});
    port.serial.Output(receiveMessages);
    QVERIFY_THROWS_EXCEPTION(SerialError, port.ReadAll());
    QVERIFY_THROWS_EXCEPTION(SerialError, port.serial.Output("x"));
    port.serial.PortOpen(false);
    QVERIFY_THROWS_EXCEPTION(SerialError, port.serial.PortOpen(true));
    port.device.PlugIn();
    port.serial.PortOpen(true);
    port.serial.Output(identify);
    QCOMPARE(port.ReadAll().size(), identityLength);
  }
};

}  // namespace nira

QTEST_APPLESS_MAIN(nira::SimulatedSerialTest)
#include "SimulatedSerialTest.moc"
