// SPDX-License-Identifier: Apache-2.0
#include "line/Monit_Com.h"
#include "support/CommFixture.h"
#include "support/Tables.h"
#include "support/WindowFixture.h"

#include <memory>

namespace nira {

namespace {

const QByteArray qx32 = "32 22 255  NIRA QX32-22F V1.00\r\n";
const QByteArray qx16 = "16 44 180  NIRA QX16-44F V1.00\r\n";
const QString noAnswer = u" Errore su Porta COM1\rVerificare le connessioni"_qs;

/// A window with a programmer at its port, whose answers are those of a program or of messages.
struct LineFixture : WindowFixture {
  LineFixture() { serial.Holding = true; }

  /// Answers the identity query, acknowledges frames, and sends these records as they are asked
  /// for, "|" between them. Keeps what the monitor's item line showed when its job began.
  void Connect(const QByteArray& identity, const QByteArray& records = {}) {
    auto left = std::make_shared<QByteArrayList>(records.split('|'));
    serial.Device = [this, left, identity](const QByteArray& out) {
      if (out.startsWith("?M")) {
        if (OnQuery) OnQuery();
        serial.Send(identity, 5);
      } else if (out.startsWith('\x02')) {
        serial.Send("\x06");
      } else if (!left->empty() && !left->constFirst().isEmpty()) {
        if (out.startsWith('?')) {
          ItemLine = QApplication::activeModalWidget()->findChild<QLabel*>(u"Label2"_qs)->text();
        }
        serial.Send(Frame(left->takeFirst()), 60);
      }
    };
  }

  QString Limits() const {
    return QStringList{QString::number(program.NumCams()), QString::number(program.NumSizes()),
                       QString::number(program.NumMessages())}
        .join(u' ');
  }

  /// Starts with a program in the selected cam 5, connected to a programmer.
  bool StartConnected(const QByteArray& identity, const QByteArray& records = {}) {
    Connect(qx32);
    if (!StartWith(u"100-110"_qs, 4)) return false;
    Connect(identity, records);
    serial.Written.clear();
    return true;
  }

  std::function<void()> OnQuery;
  QString ItemLine;
};

}  // namespace

/// The line to the programmer, from the start and the menus of the main window.
class LineCommandsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Start_data() {
    // What answers (or "no CTS", "no port"), and the keys of the boxes.
    const QByteArray box = "Critical RetryCancel:    " + noAnswer.toUtf8();
    const QByteArray asked = box + '|' + box;
    TextTable(
        {"identity", "answers", "limits", "shown", "status"},
        {{"accepted", qx16.constData(), "", "16 44 180", "", "porta chiusa"},
         {"rejected", "24 22 255  NIRA\r", "O", "32 22 255", "None Ok: BAD DEVICE  CAM.24 FORM.22",
          ""},
         {"no answer", "", "RC", "32 22 255", asked.constData(), "porta chiusa"},
         {"no CTS", "no CTS", "", "32 22 255", "", "non pronto"},
         {"no port", "no port", "O", "32 22 255",
          "Critical Ok: [Errore su COM1] Errore 8002 generato da MsComm1\rnone", "errore 8002"}});
  }

  void Start() {
    QFETCH(QString, identity);
    QFETCH(QString, answers);
    QFETCH(QString, status);
    LineFixture f;
    f.Connect(identity.toLatin1());
    if (identity == u"no CTS") f.serial.Holding = false;
    if (identity == u"no port") f.serial.Refusal = SerialError(8002, u"none"_qs);
    for (const QChar answer : answers) {
      f.prompts.Expect(answer == u'R'   ? Answer::Retry
                       : answer == u'C' ? Answer::Cancel
                                        : Answer::Ok);
    }
    QCOMPARE(f.Load(), !status.isEmpty());
    QTEST(f.prompts.Shown().join(u'|'), "shown");
    QTEST(f.Limits(), "limits");
    QVERIFY(!f.serial.PortOpen());
    QVERIFY(!f.instance.Busy);
    if (status.isEmpty()) return;
    QCOMPARE(f.Text("DeviceBlock"), u"COM1  9600  "_qs + status + u"\n/nodev/ttyS0");
    QCOMPARE(f.Text("StatusModel").section(u' ', 0, 0), f.Limits().section(u' ', 0, 0));
  }

  void Transmits() {
    LineFixture f;
    QVERIFY(f.StartConnected(qx32));
    bool monitored = false;
    f.Enter(u"200\r21"_qs);  // a command commits it
    QCOMPARE(f.Text("StatusSent"), u"non inviato"_qs);
    WhenOpens<Monit_Com>([&monitored](Monit_Com*) { monitored = true; });
    f.Choose("Tr_Siz");
    QVERIFY(monitored);
    QVERIFY(f.serial.Written.contains(Frames({"C 05", " 100 110", " 200 021"})));
    QVERIFY(f.serial.Written.endsWith(Frame("END")));
    QVERIFY(!f.serial.PortOpen() && !f.instance.Busy);
    QCOMPARE(f.Text("StatusNote"), u"Trasmissione terminata"_qs);
    QCOMPARE(f.Text("StatusSent"), u"inviato 00:00"_qs);
    f.Choose("o_Undo");
    QCOMPARE(f.Text("StatusSent"), u"non inviato"_qs);
  }

  /// The status bar follows the port, also when a box of the exchange has closed over the window.
  void FollowsPort() {
    LineFixture f;
    QVERIFY(f.StartConnected(qx32));
    f.OnQuery = [&f] {
      QEvent activated(QEvent::ActivationChange);
      QApplication::sendEvent(&*f.window, &activated);
      f.serial.Settings(u"300,n,8,1"_qs);
      QTRY_COMPARE(f.Text("DeviceBlock"), u"COM1  300,n,8,1  porta aperta\n/nodev/ttyS0"_qs);
    };
    f.Choose("Tr_Siz");
    QVERIFY(f.Text("DeviceBlock").contains(u"porta chiusa"));
  }

  /// The limits of another programmer show at once; a program that they cut is asked about.
  void TakesLimits() {
    LineFixture f;
    QVERIFY(f.StartConnected("16 22 180  NIRA\r"));
    f.program.SetRow(1, 20, RowOf(u"10-20"_qs));
    f.settings.CurrentFile = f.Path(u"press.CAM"_qs);
    f.prompts.Expect(Answer::Ok);
    f.Choose("Tr_Siz");
    QVERIFY(f.serial.Written.endsWith(Frame("END")));
    QCOMPARE(f.Text("StatusModel"), u"16 camme  22 formati  180 messaggi"_qs);
    QVERIFY(f.window->windowTitle().endsWith(u" QX16-22F  180-Msg  "_qs));
    QVERIFY(!f.Find(u"LabCam_16"_qs)->isVisible());
  }

  void Receives() {
    LineFixture f;
    QVERIFY(f.StartConnected(qx32,
                             "FUNZIONI 32-22|0 0 0 0 |0000090000|FORMATO N. 01|C 01| 350 010|END"));
    f.Enter(u"200\r210\r"_qs);
    f.prompts.Expect(Answer::Ok);  // unsaved work
    f.Choose("Rc_Siz");
    QVERIFY(!f.serial.PortOpen() && !f.Item("o_Undo")->isEnabled());
    QCOMPARE(ContentOf(f.program), u"1.1: 0-10 350-360"_qs);
    QCOMPARE(f.Lines() + u' ' + f.Boxes(), u"F001 350 010 350 010"_qs);
    QVERIFY(!f.program.IsSaved);
    QCOMPARE(f.Text("StatusChanged"), u"modificato"_qs);
    QCOMPARE(f.Text("StatusSent"), u"ricevuto 00:00"_qs);
    QCOMPARE(f.Text("StatusNote"),
             u"Ricezione terminata  VALORI RICEVUTI FUORI LIMITI: SENSO DI ROTAZIONE 9 (0-1)"_qs);
  }

  /// While the programmer is asked the windows are alive, but what the operator does to them is
  /// lost: nothing may change the program or use the port now.
  void NothingMeanwhile() {
    LineFixture f;
    QVERIFY(f.StartConnected(qx32));
    f.Recent({f.Sample(u"press.CAM"_qs)});
    f.ClickLine(0);
    bool asked = false;
    f.OnQuery = [&] {
      asked = true;
      f.Press(Qt::Key_PageDown);
      f.Press(Qt::Key_O, Qt::ControlModifier);
      f.Press(Qt::Key_F, Qt::AltModifier);
      for (const char* item : {"f_newp", "Tr_Siz", "setcom", "info"}) f.Choose(item);
      for (const char* name : {"New_Fil", "GoPrCam", "LabCam_7", "GRADIOFF"}) {
        f.Click(QString::fromLatin1(name));
      }
      f.Item("f_newp")->trigger();
      f.Type(u"12\r"_qs);
      f.Step(true);
      QTest::mouseDClick(f.Find(u"LDefC_4"_qs), Qt::LeftButton);
      QMimeData data;
      data.setUrls({QUrl::fromLocalFile(f.Path(u"press.CAM"_qs))});
      QDropEvent drop(QPointF(100, 100), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
      QApplication::sendEvent(&*f.window, &drop);
      f.window->close();
    };
    f.Choose("Tr_Siz");
    QVERIFY(asked);
    QVERIFY(f.window->isVisible());
    QVERIFY(QApplication::activePopupWidget() == nullptr);
    QCOMPARE(ContentOf(f.program), u"1.5: 100-110"_qs);
    QCOMPARE(f.Text("SizeCam"), u"F01 C05"_qs);
    QCOMPARE(f.Boxes(), u"100 110"_qs);
    QVERIFY(f.settings.CurrentFile.isEmpty());
    QCOMPARE(f.serial.Written.count("?M"), 1);
    QVERIFY(f.serial.Written.endsWith(Frame("END")));
    f.OnQuery = nullptr;
    f.Press(Qt::Key_PageDown);
    QCOMPARE(f.Text("SizeCam"), u"F01 C06"_qs);
  }

  void Messages_data() {
    // The path in the dialog, none for Cancel; a file that stands there; the answer to the question
    // whether it is replaced; the file that is sent or filled, if any.
    TextTable({"chosen", "before", "answer", "file"},
              {{"send", "a.MSG", "a.MSG", "", "a.MSG"},
               {"send, Cancel", "", "", "", ""},
               {"send, not there", "a.MSG", "", "", ""},
               {"receive, own extension", "a.txt", "a.txt", "", "a.txt"},
               {"receive, replace", "a", "a.MSG", "Yes", "a.MSG"},
               {"receive, do not replace", "a", "a.MSG", "No", ""}});
  }

  void Messages() {
    QFETCH(QString, chosen);
    QFETCH(QString, before);
    QFETCH(QString, answer);
    QFETCH(QString, file);
    const bool send = QByteArray(QTest::currentDataTag()).startsWith("send");
    LineFixture f;
    QVERIFY(f.StartConnected(qx32, send ? "" : "N 001\"OVERLOAD\"|N 002|x|N 004\"DOOR\"|END"));
    const QByteArray lines = "N. 001 \"OVERLOAD\"\r\nN. 002\r\n";
    if (!before.isEmpty()) QVERIFY(WriteBytes(f.Path(before), lines));
    chosen.isEmpty() ? f.dialog.ExpectCancel() : f.dialog.Expect(f.Path(chosen));
    if (!answer.isEmpty()) f.prompts.Expect(answer == u"Yes" ? Answer::Yes : Answer::No);
    if (file.isEmpty()) f.prompts.Expect();
    f.Choose(send ? "Msg_Trans" : "Msg_Rec");
    QVERIFY(!f.serial.PortOpen());
    const QStringList asked = f.dialog.shown.constFirst().split(u"; "_qs);
    QCOMPARE(asked.at(2), u"Tutti i File (*.Msg)|*.msg|Tutti i File (*.*)|*.*"_qs);
    if (file.isEmpty()) {
      QCOMPARE(f.prompts.Shown().constLast(), u"Critical Ok: FILE MESSAGGI NON TROVATO"_qs);
      QCOMPARE(f.serial.Written, QByteArray("?M\x8C\r"));
    } else if (send) {
      QCOMPARE(f.serial.Written, QByteArray("?M\x8C\r?AW\xD7\rN001\"OVERLOAD\"\rN002\"\"\rEND\r"));
    } else {
      QCOMPARE(asked.at(3), u"2050"_qs);
      QCOMPARE(f.program.MessageText(4), u"DOOR"_qs);
      QCOMPARE(f.ItemLine, u"32 22 255  NIRA QX32-22F V1.0"_qs);
      QCOMPARE(ReadBytes(f.Path(file)),
               QByteArray("N 001\"OVERLOAD\"\r\nN 002\r\nx\r\nN 004\"DOOR\"\r\nEND\r\n"));
      if (!before.isEmpty()) QCOMPARE(ReadBytes(f.Path(file + u".bak")), lines);
    }
  }

  /// A number of sizes that is no choice of the window becomes one.
  void AutSel() {
    LineFixture f;
    QVERIFY(f.StartConnected("16 07 100  NIRA and some more of it    \r"));
    QStringList chosen;
    f.chooseModel = [&](Carprg* window) {
      f.OnQuery = [&, window] {
        QTest::mouseClick(window->findChild<QPushButton*>(u"OKP"_qs), Qt::LeftButton);
        window->close();
        window->findChild<QTimer*>(u"Timer1"_qs)->start(0);
        QTRY_COMPARE(window->findChild<QLabel*>(u"LabCom"_qs)->text(),
                     u"Serial Port COM1 Connected to 9600,n,8,1"_qs);
      };
      QTest::mouseClick(window->findChild<QPushButton*>(u"AutSel"_qs), Qt::LeftButton);
      QVERIFY(window->isVisible());
      for (const auto* option : window->findChildren<QRadioButton*>()) {
        if (option->isChecked()) chosen.append(option->text());
      }
      QCOMPARE(window->findChild<QLabel*>(u"LabCom"_qs)->text(),
               u"Serial Port COM1 unconnected"_qs);
    };
    f.Choose("f_New");
    QCOMPARE(chosen.join(u' '), u"QX16  7 FORMATI"_qs);
    QCOMPARE(f.Limits(), u"16 7 100"_qs);
    QVERIFY(!f.serial.PortOpen());
  }
};

}  // namespace nira

QTEST_MAIN(nira::LineCommandsTest)
#include "LineCommandsTest.moc"
