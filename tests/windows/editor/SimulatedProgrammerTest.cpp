// SPDX-License-Identifier: Apache-2.0
#include "SimulatedSerial.h"
#include "ground/Text.h"
#include "line/Monit_Com.h"
#include "messages/AlMsg.h"
#include "support/DeviceFixture.h"
#include "support/Tables.h"
#include "support/WindowFixture.h"

#include <QRegularExpression>

namespace nira {

using namespace Qt::StringLiterals;

namespace {

/// A programmer on a line whose time is virtual.
struct Simulated {
  explicit Simulated(const QStringList& faults) : device(ProgrammerState(), FaultsOf(faults)) {}
  Programmer device;
  SimulatedSerial line{device};
};

/// The main window with it at the port.
struct SimulatedWindow : Simulated, WindowFixture {
  explicit SimulatedWindow(const QString& faults = {})
      : Simulated(faults.split(u' ', Qt::SkipEmptyParts)), WindowFixture(&line, &line) {}

  /// The program in memory as "Save As" writes it, but for the descriptions: those of cams without
  /// a phase in size 1 do not go over the line.
  QString Saved(const QString& name) {
    dialog.Expect(Path(name));
    Choose("f_save");
    return FromBytes(ReadBytes(Path(name)).toStdString())
        .remove(QRegularExpression(u"\"[^\"]*\""_qs));
  }

  static void ClickIn(const QWidget* window, const char* button) {
    QTest::mouseClick(window->findChild<QPushButton*>(QString::fromLatin1(button)), Qt::LeftButton);
  }
};

}  // namespace

/// The windows with a whole programmer at the port: what goes out comes back.
class SimulatedProgrammerTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void ThereAndBack_data() {
    // The boxes of each way; with one in receiving the program stays as it was.
    const char* timeout = "None Ok: TIMEOUT SERIAL PORT ";
    TextTable({"faults", "sending", "receiving"},
              {{"late, refused", "late=1900 nak=1 nak=30", "", ""},
               {"ACK lost", "lost-ack=30", timeout, ""},
               {"bad checksum", "bad-checksum=30", "", timeout}});
  }

  void ThereAndBack() {
    QFETCH(QString, faults);
    QFETCH(QString, sending);
    QFETCH(QString, receiving);
    SimulatedWindow f(faults);
    QVERIFY(f.Start(f.Sample(u"press.CAM"_qs)));
    const QString whole = f.Saved(u"sent.CAM"_qs);
    bool said = false;
    WhenOpens<Monit_Com>([&said](const Monit_Com* monitor) {
      said = monitor->findChild<QLabel*>(u"Simulated"_qs)->isVisible();
    });
    if (!sending.isEmpty()) f.prompts.Expect();
    f.Choose("Tr_Siz");
    QVERIFY(said);
    QTEST(f.prompts.Shown().join(u'|'), "sending");
    f.prompts.boxes.clear();
    f.Choose("f_newp");
    const QString empty = f.Saved(u"empty.CAM"_qs);
    if (!receiving.isEmpty()) f.prompts.Expect();
    f.Choose("Rc_Siz");
    QTEST(f.prompts.Shown().join(u'|'), "receiving");
    QVERIFY(!f.line.PortOpen());
    QCOMPARE(f.program.IsSaved, !receiving.isEmpty());
    QCOMPARE(f.Saved(u"received.CAM"_qs), receiving.isEmpty() ? whole : empty);
    QVERIFY(whole.size() > 2 * empty.size());
    QCOMPARE(f.program.CamText(0), receiving.isEmpty() ? u"FEED GRIPPER"_qs : QString());
  }

  /// The adapter pulled out in the middle: the job ends, the window does not, and the port opens
  /// again when it is back.
  void Unplugged() {
    SimulatedWindow f(u"unplug=20"_qs);
    QVERIFY(f.Start(f.Sample(u"press.CAM"_qs)));
    for (const char* job : {"Tr_Siz", "Rc_Siz"}) {
      f.prompts.Expect();  // in the middle, and as long as it is out
      f.Choose(job);
      QVERIFY(f.prompts.Shown().constLast().contains(u"Errore su COM1] Errore "));
      QVERIFY(f.device.IsUnplugged() && !f.line.PortOpen() && f.window->isVisible());
    }
    f.device.PlugIn();
    f.chooseModel = [](Carprg* window) {
      SimulatedWindow::ClickIn(window, "AutSel");
      QVERIFY(window->findChild<QLabel*>(u"Simulated"_qs)->isVisible());
    };
    f.Choose("f_New");
    QCOMPARE(f.settings.PortErrorFlag, 0);
    QCOMPARE(f.program.NumSizes(), 22);
  }

  void MessagesFromTheEditor() {
    SimulatedWindow f;
    QVERIFY(f.Start());
    f.settings.MsgFile = f.Path(u"own.MSG"_qs);
    f.program.SetMessageText(1, u"ONE"_qs);
    f.program.SetMessageText(255, u"LAST"_qs);
    QString first;
    WhenOpens<AlMsg>([&](AlMsg* open) {
      SimulatedWindow::ClickIn(open, "Tr_M");
      QVERIFY(f.settings.MsgSaved);
      f.device.State.SetMessage(1, "OTHER");
      f.program.SetMessageText(2, u"GOES"_qs);
      SimulatedWindow::ClickIn(open, "Rc_M");
      first = open->findChild<QListWidget*>(u"LstAlr"_qs)->item(0)->text();
      f.prompts.Expect(Answer::Yes);
      open->close();
    });
    f.Choose("Al_Msg");
    QCOMPARE(f.device.State.Message(255), std::string("LAST"));
    QCOMPARE(first, u"001 OTHER"_qs);
    QVERIFY(f.program.MessageText(2).trimmed().isEmpty());
    QVERIFY(!f.settings.MsgSaved && !f.line.PortOpen());
    QCOMPARE(f.settings.MsgFile, f.Path(u"own.MSG"_qs));
  }
};

}  // namespace nira

QTEST_MAIN(nira::SimulatedProgrammerTest)
#include "SimulatedProgrammerTest.moc"
