// SPDX-License-Identifier: Apache-2.0
#include "PtyLink.h"
#include "line/SimulatedMark.h"
#include "support/CamFileFixture.h"
#include "support/DeviceFixture.h"

#include <QFileInfo>
#include <QSerialPort>
#include <QSignalSpy>
#include <QTest>

namespace nira {

using namespace Qt::StringLiterals;

namespace {

constexpr int patience = 10'000;  // ms

/// A programmer on the link "com1" of a folder of its own.
struct LinkFixture {
  explicit LinkFixture(const QStringList& faults = {})
      : device(ProgrammerState(), FaultsOf(faults)) {}

  QTemporaryDir folder;
  QString path = folder.filePath(u"com1"_qs);
  Programmer device;
  PtyLink link{device, path};
};

/// Opens the port as a tool does, sends, and waits for an answer of so many bytes.
QByteArray Ask(const QString& path, const QByteArray& bytes, qsizetype length) {
  QSerialPort port(path);
  if (!port.setBaudRate(19200) || !port.open(QIODevice::ReadWrite)) return "not open";
  port.write(bytes);
  if (!QTest::qWaitFor([&] { return port.bytesAvailable() >= length; }, patience)) return "silent";
  return port.readAll();
}

}  // namespace

/// The programmer on a real port of the system.
class PtyLinkTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  /// Closed and opened again, each time it answers; then all is taken away.
  void Identity() {
    LinkFixture f;
    QCOMPARE(f.link.Open(), QString());
    QCOMPARE(QFileInfo(f.path).symLinkTarget(), f.link.Device());
    for (int round = 0; round < 3; ++round) {
      const QByteArray reply = Ask(f.path, identify, 54);
      QVERIFY2(reply.startsWith("32 22 255  NIRA") && reply.endsWith("\r\n"), reply.constData());
    }
    QVERIFY(IsSimulatedPort(f.path));
    f.link.Close();
    QVERIFY(!QFileInfo(f.path).isSymLink() && !IsSimulatedPort(f.path));
    QCOMPARE(QDir(f.folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList());
  }

  void InTheWay() {
    LinkFixture f;
    QVERIFY(WriteBytes(f.path, "mine"));
    QVERIFY(!f.link.Open().isEmpty());
    QCOMPARE(ReadBytes(f.path), QByteArray("mine"));
    QFile::remove(f.path);
    QCOMPARE(f.link.Open(), QString());
    PtyLink second(f.device, f.path);
    QVERIFY(second.Open().contains(u"another"_qs));
    QCOMPARE(QFileInfo(f.path).symLinkTarget(), f.link.Device());
  }

  /// A link that a simulator left behind is replaced, another one is not.
  void LeftBehind() {
    LinkFixture f;
    QVERIFY(QFile::link(u"/dev/null"_qs, f.path));
    QVERIFY(!f.link.Open().isEmpty());
    QVERIFY(
        WriteBytes(SimulatedMark(f.path), "999999999\nkplctl\n\n"));  // of a program that is gone
    QVERIFY(!IsSimulatedPort(f.path));
    QVERIFY(WriteBytes(SimulatedMark(f.path), "999999999\nkplctl\n\n"));
    QCOMPARE(f.link.Open(), QString());
    QCOMPARE(QFileInfo(f.path).symLinkTarget(), f.link.Device());
  }

  void UnpluggedAndBack() {
    LinkFixture f({u"unplug=1"_qs});
    f.link.UnpluggedTime = std::chrono::milliseconds(1);
    QCOMPARE(f.link.Open(), QString());
    bool linked = true;
    connect(&f.link, &PtyLink::Unplugged, this, [&] { linked = QFileInfo(f.path).isSymLink(); });
    QSignalSpy back(&f.link, &PtyLink::PluggedIn);
    QSerialPort port(f.path);
    QVERIFY(port.open(QIODevice::ReadWrite));
    connect(&port, &QSerialPort::errorOccurred, &port, &QSerialPort::close);
    port.write(receiveMessages);
    QTRY_VERIFY_WITH_TIMEOUT(!linked, patience);
    QTRY_COMPARE_WITH_TIMEOUT(back.size(), 1, patience);
    QCOMPARE(Ask(f.path, identify, 54).size(), 54);
  }
};

}  // namespace nira

QTEST_GUILESS_MAIN(nira::PtyLinkTest)
#include "PtyLinkTest.moc"
