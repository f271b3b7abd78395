// SPDX-License-Identifier: Apache-2.0
#include "line/UpdFlsh.h"
#include "support/FlashFixture.h"
#include "support/WindowFixture.h"

namespace nira {

using namespace Qt::StringLiterals;

namespace {

const QByteArray line = HexOf("\x12\x34", 0xABCD);
const QByteArray firmware = line + "\r\n:00000001FF\r\n";

/// A file dialog that chooses this path, none when it is empty, and keeps where it started.
class ChosenFile : public clsCommonDialog {
 public:
  QString Path;
  QString Started;

  bool ShowOpen(QWidget*) override {
    Started = InitDir;
    if (Path.isEmpty()) return false;
    FileName = Path;
    InitDir = u"elsewhere"_qs;
    return true;
  }
};

UpdFlsh* Window() {
  auto* window = qobject_cast<UpdFlsh*>(QApplication::activeModalWidget());
  if (window == nullptr) qFatal("no window");
  return window;
}

QString Text(const UpdFlsh* window, const char* name) {
  return window->findChild<QLabel*>(QString::fromLatin1(name))->text();
}

/// The colour in the middle of the lamp, "hidden" while it is not shown.
QString Lamp(const UpdFlsh* window) {
  auto* lamp = window->findChild<QWidget*>(u"Shape1"_qs);
  if (!lamp->isVisible()) return u"hidden"_qs;
  return lamp->grab().toImage().pixelColor(lamp->rect().center()).name();
}

/// Every way in which a person would try to close the window.
void TryToClose(UpdFlsh* window) {
  window->close();
  QTest::keyClick(window, Qt::Key_Escape);
  QTest::keyClick(window, Qt::Key_Return);
  QVERIFY(window->isVisible());
}

}  // namespace

/// The window of the firmware update.
class UpdFlshTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Updates() {
    FlashFixture f;
    const QString path = f.File(firmware);
    QStringList lamps;
    f.asked.Expect(Answer::Yes);
    f.asked.Expect(Answer::Retry);
    f.serial.Holding = false;
    f.asked.WhileShown = [&](const QString&) {
      lamps.append(Lamp(Window()));
      f.serial.Holding = lamps.size() == 2;
      QCOMPARE(Text(Window(), "LabFile"), u"WORKING FILE =new.abs (2 bytes)"_qs);
    };
    f.serial.Device = [&](const QByteArray& out) {
      f.serial.Send("\x06", 10);
      if (out.startsWith(":FU")) lamps.append(Lamp(Window()));
      TryToClose(Window());
    };
    UpdFlsh window(f.flash, path, nullptr);
    window.exec();
    QCOMPARE(window.End(), TransferEnd::Done);
    QCOMPARE(lamps, QStringList({u"hidden"_qs, u"#ff0000"_qs, u"#00ff00"_qs}));
    QCOMPARE(Text(&window, "LabTrans"), u"Transmit Line:      2  Bytes:       2  Addr:00000H"_qs);
    QCOMPARE(Text(&window, "LabMsg"), QString(u"DEVICE UPDATED WITH  " + path));
    QCOMPARE(window.findChild<QProgressBar*>(u"Progress"_qs)->value(), 100);
  }

  /// What stands on the window while the box at the end stands.
  void SaysWhatWentWrong() {
    for (const QByteArray& reply : {QByteArray("\xFF"), QByteArray("\x15")}) {
      FlashFixture f;
      QString message;
      f.asked.AnswerEverything(true);
      f.asked.WhileShown = [&](const QString&) { message = Text(Window(), "LabMsg"); };
      f.serial.Device = [&f, answer = reply](const QByteArray& out) mutable {
        f.serial.Send(out.startsWith(":FU") ? "\x06" : std::exchange(answer, "\xFF"));
      };
      UpdFlsh window(f.flash, f.File(firmware), nullptr);
      window.exec();
      QCOMPARE(message, reply == "\x15"
                            ? u"LINE REFUSED BY THE PROGRAMMER AND SENT AGAIN: 1"_qs
                            : u"DO NOT SWITCH THE PROGRAMMER OFF, DO NOT UNPLUG THE CABLE"_qs);
      QVERIFY(!window.isVisible() && !f.serial.PortOpen());
    }
  }

  void Menu() {
    FlashFixture f;
    ChosenFile dialog;
    dialog.InitDir = u"cams"_qs;
    dialog.FileName = u"old.CAM"_qs;
    QCOMPARE(Upd_Flash_Click(f.flash, dialog, nullptr), TransferEnd::Cancelled);
    QCOMPARE(dialog.Filter, u"File Absolute HEX(*.Abs)|*.abs|All Files (*.*)|*.*"_qs);
    QCOMPARE(dialog.Started, f.folder.path());
    dialog.Path = f.File(firmware);
    f.asked.Expect(Answer::No);
    QCOMPARE(Upd_Flash_Click(f.flash, dialog, nullptr), TransferEnd::Cancelled);
    QCOMPARE(f.asked.Shown(), QStringList(u"Question NoYes: UPDATE FLASH ?"_qs));
    QCOMPARE(dialog.InitDir, u"cams"_qs);
    f.flash.Busy = true;
    dialog.Started.clear();
    QCOMPARE(Upd_Flash_Click(f.flash, dialog, nullptr), TransferEnd::Busy);
    QVERIFY(dialog.Started.isEmpty());
  }
};

}  // namespace nira

QTEST_MAIN(nira::UpdFlshTest)
#include "UpdFlshTest.moc"
