// SPDX-License-Identifier: Apache-2.0
#include "DeviceFrame.h"
#include "support/DeviceFixture.h"

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
      QTest::addRow("%s, a frame", name.constData()) << command << "\2" + QByteArray(70'000, 'F');
      QTest::addRow("%s, ACKs", name.constData()) << command << QByteArray(70'000, '\6');
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
