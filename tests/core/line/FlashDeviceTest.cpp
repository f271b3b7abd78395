// SPDX-License-Identifier: Apache-2.0
#include "SimulatedSerial.h"
#include "support/DeviceFixture.h"
#include "support/FlashFixture.h"

namespace nira {

using namespace Qt::StringLiterals;

namespace {

const QString sample = QStringLiteral(NIRA_SOURCE_FOLDER "/samples/firmware.abs");

/// A programmer of the simulator, which has a memory, at the end of a line that takes its time.
struct DeviceFlash : FlashFixture {
  explicit DeviceFlash(const QStringList& faults)
      : device(ProgrammerState(), FaultsOf(faults)), line(device) {
    settings.BaudRate = 300;
  }

  /// Runs an update that the operator confirms, and answers the box at its end, if one comes.
  TransferEnd Run(const QString& path, std::optional<Answer> atEnd) {
    asked.Expect(Answer::Yes);
    if (atEnd) asked.Expect(*atEnd);
    return FlashUpdate(toDevice, shown, path).Run();
  }

  bool HasFirmwareOf(const QString& path) const {
    const auto image = FirmwareImage::OfFile(path);
    const FirmwareImage& firmware = device.State.Firmware;
    return image && firmware.IsComplete() && firmware.SameBytes(*image);
  }

  Programmer device;
  SimulatedSerial line;
  Comm toDevice{line, line, program, settings, texts, writer, working, asked};
};

/// A small file with all that a file can hold: base records, lines out of order, the end first.
QByteArray SmallFile() {
  const auto record = [](const QByteArray& data, std::size_t offset, std::size_t type = 0) {
    return QByteArray(HexOf(data, offset, type) + "\r\n");
  };
  QByteArray file = record({}, 0, 1) + record("A1B2C3120597", 0x7FF0);
  file += record(QByteArray(255, 'x'), 0x100) + record(QByteArray::fromHex("1000"), 0, 2);
  file += record("segment", 0xFFFC) + record(QByteArray::fromHex("0002"), 0, 4);
  return file + record("linear", 0) + record(QByteArray::fromHex("00000100"), 0, 5);
}

/// The programmer refuses each of the first lines that arrive, then is silent.
QStringList RefusedUntil(int line) {
  QStringList faults = {u"no-answer="_qs + QString::number(line)};
  for (int i = 1; i < line; ++i) faults.append(u"nak="_qs + QString::number(i));
  return faults;
}

}  // namespace

/// The update over a line at 19200 baud into a programmer that keeps what it accepts.
class FlashDeviceTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  /// All of the sample arrives, hardly later than the line can carry it.
  void WholeImage() {
    DeviceFlash f({});
    QCOMPARE(f.Run(sample, {}), TransferEnd::Done);
    QVERIFY(f.HasFirmwareOf(sample));
    QCOMPARE(f.device.State.Firmware.Bytes(), 65536U);
    const double ratio = static_cast<double>(f.line.Elapsed().count()) /
                         static_cast<double>(f.line.LeastTime().count());
    QVERIFY2(ratio < 1.02, qPrintable(QString::number(ratio)));
    QCOMPARE(f.settings.BaudRate, 300);
  }

  void Faults_data() {
    QTest::addColumn<QStringList>("faults");
    QTest::addColumn<TransferEnd>("end");
    QTest::addColumn<int>("lines");  // that were sent, repeats included
    const auto row = [](const char* name, const QStringList& faults, TransferEnd end, int lines) {
      QTest::newRow(name) << faults << end << lines;
    };
    using enum TransferEnd;
    row("none", {}, Done, 8);
    row("all passing ones", {u"random=6,nak,noise,double-ack,late"_qs}, Done, 9);
    row("acknowledgement lost", {u"lost-ack=5"_qs}, TimedOut, 5);
    row("CTS lost", {u"no-cts=3"_qs}, TimedOut, 4);
    row("refused for ever, then silent", RefusedUntil(300), TimedOut, 300);
  }

  void Faults() {
    QFETCH(QStringList, faults);
    QFETCH(TransferEnd, end);
    DeviceFlash f(faults);
    const QString path = f.File(SmallFile());
    const bool done = end == TransferEnd::Done;
    QCOMPARE(f.Run(path, done ? std::nullopt : std::optional(Answer::Ok)), end);
    QCOMPARE(f.HasFirmwareOf(path), done);
    const int refused = f.shown.RefusedInAll;
    QTEST(static_cast<int>(f.shown.Shown.filter(u"Transmit"_qs).size()) + refused, "lines");
    QVERIFY(!f.line.PortOpen());
    QCOMPARE(f.asked.boxes.size(), done ? 1U : 2U);
    const bool timeout = f.asked.boxes.back().text == u"TIMEOUT SERIAL PORT "_qs;
    QCOMPARE(timeout, end == TransferEnd::TimedOut);
  }
};

}  // namespace nira

QTEST_GUILESS_MAIN(nira::FlashDeviceTest)
#include "FlashDeviceTest.moc"
