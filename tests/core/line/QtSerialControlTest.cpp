// SPDX-License-Identifier: Apache-2.0
#include "ground/SystemClock.h"
#include "line/PortAccess.h"
#include "line/QtSerialControl.h"
#include "line/SimulatedMark.h"
#include "support/CamFileFixture.h"
#include "support/TestPty.h"

#include <QDir>
#include <QLockFile>
#include <QProcess>
#include <QTest>
#include <QTimer>

#include <array>
#include <functional>
#include <grp.h>
#include <optional>
#include <sys/stat.h>

namespace nira {

using namespace Qt::StringLiterals;

namespace {

constexpr int patience = 20000;  // ms until a wait that must end is a failure

/// A clock on which every look takes half a second.
class HurriedClock : public Clock {
 public:
  std::int64_t Now() const override { return now_ += 500; }
  void Pause(int, Yield) override {}

 private:
  mutable std::int64_t now_ = 0;
};

/// A clock on which nothing takes time but pauses.
class PausesAlone : public Clock {
 public:
  std::int64_t Now() const override { return now_; }
  void Pause(int ms, Yield) override { now_ += ms; }

 private:
  std::int64_t now_ = 0;
};

/// A pseudo-terminal that is port 1 of a working folder, and a control for it at a speed at which
/// the line takes no time.
struct PortFixture {
  explicit PortFixture(Clock* other = nullptr) : serial(names, texts, other ? *other : clock) {
    texts.Read(QStringLiteral(NIRA_SOURCE_FOLDER "/lang/p32qx_EN.SCR"));
    pty.emplace();
    Link(pty->Path);
  }

  void Link(const QString& target) const {
    QFile::remove(folder.filePath(u"com1"_qs));
    QVERIFY(QFile::link(target, folder.filePath(u"com1"_qs)));
  }
  void Open() {
    serial.PortOpen(true);
    serial.Settings(u"4000000,n,8,1"_qs);
    serial.InputLen(SerialControl::AllInput);
    serial.Handshaking(SerialControl::HandshakeRts);
  }
  std::int64_t Deadline() const { return clock.Now() + patience; }

  /// "number: description" of the error that `act` raises.
  static QString ErrorOf(const std::function<void()>& act) {
    try {
      act();
    } catch (const SerialError& error) {
      return QString::number(error.Number) + u": " + error.Description;
    }
    return u"no error"_qs;
  }
  QString OpenError() {
    return ErrorOf([this] { serial.PortOpen(true); });
  }

  QTemporaryDir folder;
  WorkingFolder working{folder.path()};
  PortNames names{working};
  MessageTable texts;
  SystemClock clock;
  std::optional<TestPty> pty;
  QtSerialControl serial;
};

}  // namespace

/// Port numbers and their devices, and a port of the system (a pseudo-terminal here).
class QtSerialControlTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void NamesDevices() {
    const QTemporaryDir devices;
    const QTemporaryDir folder;
    for (const char* name : {"ttyUSB10", "ttyUSB2", "ttyUSB0", "ttyACM1", "ttyACM0"}) {
      QVERIFY(WriteBytes(devices.filePath(QString::fromLatin1(name)), ""));
    }
    const WorkingFolder working(folder.path());
    const PortNames names(working, devices.path());
    const auto in = [&devices](const char* name) {
      return devices.filePath(QString::fromLatin1(name));
    };
    QCOMPARE(names.Device(1), in("ttyS0"));
    QCOMPARE(names.Device(4), in("ttyS3"));
    QCOMPARE(names.Device(6), in("ttyUSB2"));
    QCOMPARE(names.Device(7), in("ttyUSB10"));
    QCOMPARE(names.Device(8), in("ttyACM0"));
    for (const int none : {9, 0, -1, 32767}) QCOMPARE(names.Device(none), QString());
    QCOMPARE(names.Sought(7), u"COM7, "_qs + in("ttyUSB10"));
    QCOMPARE(PortNames(working, u"/none"_qs).Sought(6),
             u"COM6, /none/ttyUSB*, /none/ttyACM* (N. 2)"_qs);

    QVERIFY(QFile::link(in("gone"), folder.filePath(u"com1"_qs)));
    QVERIFY(QFile::link(in("ttyACM1"), folder.filePath(u"com5"_qs)));
    QVERIFY(WriteBytes(folder.filePath(u"COM9"_qs), in("ttyUSB2").toLocal8Bit() + "\r\n"));
    QCOMPARE(names.Device(1), in("gone"));
    QCOMPARE(names.Device(5), in("ttyACM1"));
    QCOMPARE(names.Device(9), in("ttyUSB2"));
    QVERIFY(WriteBytes(folder.filePath(u"com2"_qs), QByteArray(10000, '\0')));
    QCOMPARE(names.Device(2), in("ttyS1"));
    QVERIFY(!names.Describe(1).Present);
    QVERIFY(names.Describe(5).Present && names.Describe(5).HeldBy.isEmpty());
  }

  void DescribesPorts() {
    PortFixture f;
    const PortInfo before = f.names.Describe(1);
    QVERIFY(before.Device == f.pty->Path && before.Permitted && !before.Simulated);
    QVERIFY(before.HeldBy.isEmpty());
    QLockFile mark(SimulatedMark(f.folder.filePath(u"com1"_qs)));
    QVERIFY(mark.tryLock());
    f.Open();
    const PortInfo held = f.names.All().front();
    QVERIFY(held.Number == 1 && held.Simulated && held.HeldBy.startsWith(u"tst_QtSerialCon"));
    QVERIFY(f.serial.IsSimulated());
    mark.unlock();
    QVERIFY(!f.serial.IsSimulated());
  }

  void ReadsAndWrites() {
    PortFixture f;
    f.pty->Send("stale");
    f.Open();
    QCOMPARE(f.serial.DeviceName(), f.pty->Path);
    QVERIFY(f.serial.CTSHolding());  // it has no modem lines
    QCOMPARE(f.serial.InBufferCount(), 0);
    f.serial.Output(QByteArray("\x02\0\xFF\r", 4));
    QTRY_COMPARE(f.pty->Arrived(), QByteArray("\x02\0\xFF\r", 4));
    f.pty->Send(QByteArray("\0\x11\x13\xFF\r\nabc", 9));
    QVERIFY(f.serial.WaitForInput(f.Deadline(), Yield::Painting));
    QTRY_COMPARE(f.serial.InBufferCount(), 9);
    f.serial.InputLen(SerialControl::OneCharacter);
    QCOMPARE(f.serial.Input(), QByteArray("\0", 1));
    QCOMPARE(f.serial.Input(), QByteArray("\x11"));
    f.serial.InputLen(SerialControl::AllInput);
    QCOMPARE(f.serial.Input(), QByteArray("\x13\xFF\r\nabc"));
    QVERIFY(!f.serial.WaitForInput(f.clock.Now(), Yield::Painting));
    f.pty->Send("dropped");
    f.serial.DiscardInput();
    QVERIFY(f.serial.Input().isEmpty());
    QVERIFY(f.ErrorOf([&f] { f.serial.Settings(u"0,n,8,1"_qs); }).startsWith(u"8020: "));
  }

  void WaitsInTheEventLoop() {
    PortFixture f;
    f.Open();
    for (const Yield yield : {Yield::Painting, Yield::Events}) {
      QTimer::singleShot(0, this, [&f] { f.pty->Send("x"); });
      QVERIFY(f.serial.WaitForInput(f.Deadline(), yield));
      QCOMPARE(f.serial.Input(), QByteArray("x"));
    }
  }

  void BoundsItsInput() {
    PortFixture f;
    f.serial.InBufferSize(4096);
    f.Open();
    for (int i = 0; i < 100; ++i) {
      f.pty->Send(QByteArray(100000, 'x'));
      QVERIFY(f.serial.WaitForInput(f.Deadline(), Yield::Painting));
      QVERIFY(f.serial.InBufferCount() <= 4096);
    }
    QVERIFY(f.serial.Input().size() <= 8192);
  }

  /// Closing takes as long as the line does at the speed that was set.
  void ClosingWaitsForTheLine() {
    PausesAlone clock;
    PortFixture f(&clock);
    f.Open();
    f.serial.Settings(u"300,n,8,1"_qs);
    f.serial.Output(QByteArray(30, 'x'));
    f.serial.PortOpen(false);
    QCOMPARE(clock.Now(), 999);  // a byte is 33,333 us
  }

  /// Neither then, nor when the adapter goes meanwhile, is anything told as sent.
  void OutputThatIsNotTaken() {
    for (const bool unplugged : {false, true}) {
      HurriedClock hurried;
      PortFixture f(&hurried);
      f.Open();
      const QString notTaken =
          u"8020: THE PROGRAMMER DOES NOT TAKE THE DATA ON THE PORT: "_qs + f.pty->Path;
      QVERIFY(f.ErrorOf([&f] { f.serial.Output(QByteArray(100000, 'x')); }).startsWith(notTaken));
      if (unplugged) f.pty->Unplug();
      const QString closing = f.ErrorOf([&f] { f.serial.PortOpen(false); });
      QVERIFY2(closing.startsWith(unplugged ? u"8020: INPUT OR OUTPUT FAILED"_qs : notTaken),
               qPrintable(closing));
      QVERIFY(!f.serial.PortOpen());
      f.serial.PortOpen(false);  // once is enough
    }
  }

  void GoneAndBack_data() {
    QTest::addColumn<int>("operation");
    for (int operation = 0; operation < 6; ++operation) {
      QTest::addRow("operation %d", operation) << operation;
    }
  }

  void GoneAndBack() {
    QFETCH(int, operation);
    PortFixture f;
    f.Open();
    f.pty->Send("last");
    QVERIFY(f.serial.WaitForInput(f.Deadline(), Yield::Painting));
    QTRY_COMPARE(f.serial.InBufferCount(), 4);
    f.pty->Unplug();
    QCOMPARE(f.serial.Input(), QByteArray("last"));  // what had come is not lost
    SerialControl& serial = f.serial;
    const std::array<std::function<void()>, 6> operations = {
        [&] { serial.WaitForInput(f.Deadline(), Yield::Events); },
        [&] {
          while (true) serial.Output("x");
        },
        [&] {
          while (serial.Input().isEmpty()) continue;
        },
        [&] { serial.CTSHolding(); },
        [&] { serial.Handshaking(0), serial.DiscardInput(); },
        [&] {
          while (serial.PortOpen()) QTest::qWait(0);  // seen by the event loop alone
          serial.DiscardOutput();
        }};
    const QString error = f.ErrorOf(operations.at(std::size_t(operation)));
    QCOMPARE(error, QString(u"8020: INPUT OR OUTPUT FAILED ON THE PORT: " + f.pty->Path +
                            u"\nCHECK THE CABLE AND THE ADAPTER"
                            u"\nTHE PORT WENT AWAY WHILE IT WAS IN USE"));
    QVERIFY(!f.serial.PortOpen());
    f.serial.PortOpen(false);
    f.pty.reset();
    f.pty.emplace();
    f.Link(f.pty->Path);
    f.Open();
    f.serial.Output("back");
    QTRY_COMPARE(f.pty->Arrived(), QByteArray("back"));
  }

  void RefusesToOpen() {
    PortFixture f;
    f.Open();
    QtSerialControl second(f.names, f.texts, f.clock);
    const QString busy = f.ErrorOf([&second] { second.PortOpen(true); });
    QVERIFY2(busy.startsWith(u"8005: THE PORT IS ALREADY IN USE: "_qs + f.pty->Path +
                             u"\nCLOSE THE PROGRAM THAT USES IT: tst_QtSerialCon ("),
             qPrintable(busy));
    QVERIFY(PortHolder(f.pty->Path.replace(u"/pts"_qs, u"/./pts"_qs)).startsWith(u"tst_QtSerial"));
    QCOMPARE(f.serial.OtherHolder(), QString());
    QProcess reader;
    reader.setStandardInputFile(f.pty->Path);
    f.serial.PortOpen(false);
    reader.start(u"sleep"_qs, {u"60"_qs});
    QVERIFY(reader.waitForStarted());
    second.PortOpen(true);
    QVERIFY2(second.OtherHolder().startsWith(u"sleep ("_qs), qPrintable(second.OtherHolder()));
    reader.kill();
    reader.waitForFinished();
    second.PortOpen(false);

    const QString missing =
        u"8002: NO SUCH PORT: COM1, %1\nCONNECT THE ADAPTER OR CHOOSE ANOTHER PORT"_qs;
    const QString plain = f.folder.filePath(u"plain"_qs);
    QVERIFY(WriteBytes(plain, "no port"));
    for (const QString& target : {plain, f.folder.filePath(u"gone"_qs), f.folder.path()}) {
      f.Link(target);
      QCOMPARE(f.OpenError(), missing.arg(target));
    }
    QCOMPARE(ReadBytes(plain), QByteArray("no port"));
    QVERIFY(!f.serial.PortOpen());
    QVERIFY(f.ErrorOf([&f] { f.serial.Output("x"); }).startsWith(u"8020: "));
  }

  void LeftLocked() {
    const PortFixture f;
    const QString lock = u"/var/lock/LCK.."_qs + f.pty->Path.mid(5).replace(u'/', u'_');
    if (!WriteBytes(lock, "999999999\nother\nhere\n")) QSKIP("no locks here");
    const SerialError error =
        PortErrors(f.texts).Opening(f.pty->Path, {}, QSerialPort::PermissionError, {});
    QVERIFY(QFile::remove(lock));
    QCOMPARE(error.Description,
             QString(u"THE PORT IS ALREADY IN USE: " + f.pty->Path +
                     u"\nIT IS LOCKED BY A PROGRAM THAT HAS ENDED, REMOVE THE FILE " + lock));
  }

  /// The group of the device is named where joining it would help: not to its owner, and not when
  /// the group may do nothing either.
  void RefusesWithoutPermission_data() {
    QTest::addColumn<int>("mode");
    QTest::newRow("nobody may") << 0;
    QTest::newRow("the group may") << 060;
  }

  void RefusesWithoutPermission() {
    QFETCH(int, mode);
    const QString advice = mode != 0 && ::geteuid() == 0
                               ? u"ADD THE USER TO THE GROUP tty, THEN LOG IN AGAIN"_qs
                               : u"ASK THE ADMINISTRATOR FOR PERMISSION TO USE THE DEVICE"_qs;
    PortFixture f;
    const QByteArray path = QFile::encodeName(f.pty->Path);
    const group* owning = ::getgrnam("tty");
    QVERIFY(::geteuid() != 0 ||
            (owning != nullptr && !::chown(path.constData(), 0, owning->gr_gid)));
    QCOMPARE(::chmod(path.constData(), mode_t(mode)), 0);
    QCOMPARE(::chmod(QFile::encodeName(f.folder.path()).constData(), 0755), 0);
    const uid_t user = ::geteuid();
    constexpr uid_t nobody = 65534;
    if (user == 0 && ::setresuid(nobody, nobody, 0) != 0) QSKIP("cannot leave the superuser");
    const QString error = f.OpenError();
    const bool permitted = f.names.Describe(1).Permitted;
    QCOMPARE(::setresuid(user, user, user), 0);
    QCOMPARE(error, QString(u"70: NO PERMISSION ON THE PORT: " + f.pty->Path + u'\n' + advice));
    QVERIFY(!permitted);
  }
};

}  // namespace nira

QTEST_GUILESS_MAIN(nira::QtSerialControlTest)
#include "QtSerialControlTest.moc"
