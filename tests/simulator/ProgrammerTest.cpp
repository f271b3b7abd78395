// SPDX-License-Identifier: Apache-2.0
#include "DeviceFrame.h"
#include "support/DeviceFixture.h"
#include "support/Rows.h"

#include <QTest>

namespace nira {

using namespace Qt::StringLiterals;

namespace {

const QByteArray identity = "32 22 255  NIRA QX32-22F V1.00        0360  001 0100\r\n";

/// Functions, one size with a text, one without.
ProgrammerState SmallState(int cams) {
  ProgrammerState state(cams, 2, 2);
  state.Functions = {1, 1, 1, 0, 12, 100, 4, 5, 5, 90, 1, 2000, 2, {5, 0, 210}};
  state.SetCamText(0, "Press");
  for (const int size : {1, 2}) state.SwitchOn(size, 0, 350, 5);
  state.SwitchOn(1, 0, 10, 20);
  state.SwitchOn(2, 2, 0, 359);
  return state;
}

}  // namespace

/// What the programmer answers, byte for byte.
class ProgrammerTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Identity() {
    DeviceFixture f;
    QCOMPARE(f.Say(identify), identity);
    QCOMPARE(f.Say("?M\x8D\r"), QByteArray());  // wrong checksum
    QCOMPARE(DeviceFixture(ProgrammerState(), {u"model=24,7,99"_qs}).Say(identify).left(28),
             QByteArray("24 07 099  NIRA QX24-07F V1."));
  }

  void FramesThatAreNotTaken() {
    DeviceFixture f;
    QCOMPARE(f.Say(sendSizes + Frame("F01", 'D') + Frame("C 01", 'a') + Frame("C 02", 'x')),
             QByteArray("\6\6\x15"));
    QCOMPARE(f.Say(Frame(" 010 020", '!')), QByteArray("\x15"));
    QCOMPARE(f.Say(Frame(" 010 020", ' ')), QByteArray("\6"));
    QCOMPARE(f.Say("\2 350" + Frame(" 350 005", ' ')), QByteArray("\6"));  // broken off, begun anew
    QCOMPARE(f.Say("\2 100"), QByteArray());
    f.Listen(DeviceFrameReader::MaxGap);
    QCOMPARE(f.Say(identify), identity);  // broken off for good
    QCOMPARE(RunsOf(f.device.State.Row(1, 0)), u"0-5 10-20 350-360"_qs);
    QCOMPARE(f.Say(Frame("F01", 'D')), QByteArray());  // no job any more
  }

  void SizesOut() {
    const QByteArray sizes =
        Frame("FORMATO N. 01", '.') + Frame("C 01\"Press\"", '&') + Frame(" 010 020", ' ') +
        Frame(" 350 005", ' ') + Frame("FORMATO N. 02", '-') + Frame("C 01", 'a') +
        Frame(" 350 005", ' ') + Frame("C 03", 'c') + Frame(" 000 359", ',') + Frame("END", 'L');
    const QByteArray scalars = Frame("0509012000", ',');
    QCOMPARE(DeviceFixture(SmallState(32)).Collect(receiveSizes),
             Frame("FUNZIONI 32-02", '+') + Frame("1 1 1 0 ", '"') + Frame("030500D2", 's') +
                 Frame("0C64", 'r') + Frame("4", '7') + scalars + sizes);
    QCOMPARE(DeviceFixture(SmallState(16)).Collect(receiveSizes),
             Frame("FUNZIONI 16-02", '-') + Frame("030500D2", 's') + scalars + sizes);
  }

  void Messages() {
    DeviceFixture f(SmallState(32));
    const QByteArray full(40, 'x');
    QCOMPARE(f.Say(sendMessages + "N002\"HOT\"\rN001\"" + full + "yz\"\rN003\"no\"\r"),
             QByteArray());
    QCOMPARE(f.device.State.Message(1), full.toStdString());
    f.Say("N001\"\"\rN002x\rNx02\"a\"\rN002\rN00\rEND\rN002\"late\"\r");
    QCOMPARE(f.Collect(receiveMessages),
             Frame("N 001\"\"", '\\') + Frame("N 002\"HOT\"", ',') + Frame("END", 'L'));
  }

  void Firmware() {
    DeviceFixture f;
    QCOMPARE(f.Say(updateFirmware), QByteArray("\6"));
    for (const char* bad :
         {":0200000041423C\r", ":020000004142\r", ":03000000414279\r", ":0200000041427\r",
          ":02000000414G7B\r", "02000000414200\r", ":\r", ":020000014142\r"}) {
      QCOMPARE(f.Say(bad), QByteArray("\x15"));
    }
    // Data at the end of a segment, in another 64 KiB and beyond its end, then the end.
    for (const char* good : {":020000023000CC\r", ":02FFFF00aabb9b\r\n", ":020000040001F9\r",
                             ":01001000FFF0\r", ":02FFFF0041427D\r", ":00000001FF\r"}) {
      QCOMPARE(f.Say(good), QByteArray("\6"));
    }
    const FirmwareImage& image = f.device.State.Firmware;
    QVERIFY(image.IsComplete());
    QCOMPARE(image.Bytes(), std::size_t{5});
    for (const auto& [address, byte] :
         {std::pair{0x3FFFFU, 0xAA}, {0x30000U, 0xBB}, {0x20000U, 0x42}, {0x10010U, 0xFF}}) {
      QCOMPARE(int{image.At(address).value_or(0)}, byte);
    }
  }
};

}  // namespace nira

QTEST_APPLESS_MAIN(nira::ProgrammerTest)
#include "ProgrammerTest.moc"
