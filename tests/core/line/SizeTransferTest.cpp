// SPDX-License-Identifier: Apache-2.0
#include "line/Identity.h"
#include "line/SizeTransfer.h"
#include "support/CommFixture.h"
#include "support/Tables.h"

#include <QDir>
#include <QTest>

namespace nira {

using namespace Qt::StringLiterals;

namespace {

const QByteArray qx32 = "32 22 255  NIRA QX32-22F V1.00 and some more of it  \r\n";
const QByteArray qx16 = "16 44 180  NIRA QX16-44F V1.00\r\n";
const QString noAnswer =
    u"Critical RetryCancel:     Errore su Porta COM1\rVerificare le connessioni"_qs;
const QString gone = u"Critical Ok: [Errore su COM1] Errore 8020 generato da MsComm1\rgone"_qs;
const QString cut =
    u"Exclamation CancelOk: THE PROGRAMMER HAS FEWER CAMS OR SIZES THAN THE PROGRAM USES. "
    "GO ON WITHOUT THE OTHERS ?\n"_qs;

/// A reception of a 32-cam program, its frames in one string with "|" between.
const QByteArray reception =
    "FUNZIONI 32-22|1 0 0 0 |020508|0310001000|FORMATO N. 02|C 03\"NEW\"| 350 010|END";

/// A program with a phase, a description and a size that are in use, from a file that was saved.
struct TransferFixture : CommFixture {
  TransferFixture() {
    program.SetRow(1, 0, RowOf(u"10-20"_qs));
    program.SetCamText(0, u"OLD"_qs);
    program.SetMessageText(7, u"STAYS"_qs);
    program.SelectSize(2);
    program.SelectCam(4);
    settings.CurrentFile = u"press.CAM"_qs;
    program.TakeAsSaved();
  }

  QString Limits() const {
    return QStringLiteral("%1 %2 %3")
        .arg(program.NumCams())
        .arg(program.NumSizes())
        .arg(program.NumMessages());
  }
  JobMonitor Monitor() {
    return [this](const Job& job) { return TransferJobs(comm, report).Run(job); };
  }
  void Receive(const QByteArray& records, const QByteArray& identity = qx32) {
    QByteArrayList frames = records.split('|');
    for (QByteArray& frame : frames) frame = Frame(frame);
    Play(frames, identity);
  }
  /// Answers each query with the next of these, the last one again and again.
  void Identify(const QByteArrayList& replies, int afterMs = 5) {
    auto left = std::make_shared<QByteArrayList>(replies);
    serial.Device = [this, left, afterMs](const QByteArray& out) {
      if (!out.startsWith("?M")) return;
      serial.Send(left->size() > 1 ? left->takeFirst() : left->constFirst(), afterMs);
    };
  }
};

}  // namespace

/// The identity query and the two commands that transfer sizes.
class SizeTransferTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Identifies_data() {
    QTest::addColumn<QByteArray>("reply");
    QTest::addColumn<QString>("limits");
    QTest::addColumn<QString>("refused");  // "cams sizes" of the message, empty when accepted
    const auto row = [](const char* name, const QByteArray& reply, const QString& limits,
                        const QString& refused = {}) {
      QTest::newRow(name) << QByteArray(reply + '\r') << limits << refused;
    };
    row("32 cams", qx32, u"32 22 255"_qs);
    row("16 cams", qx16, u"16 44 180"_qs);
    row("other separators", "a16/22,180..NIRA", u"16 22 180"_qs);
    row("signs count for nothing", "32 22 255  xx32 44-180  NIRA", u"32 44 180"_qs);
    row("24 cams", "24 22 180  NIRA", u"32 22 180"_qs, u"24 22"_qs);
    row("89 sizes", "16 89 180  NIRA", u"16 22 180"_qs, u"16 89"_qs);
    row("200 messages", "16 44 200  NIRA", u"32 22 255"_qs, u"16 44"_qs);
    row("cams before the reply", "x 44 180  NIRA", u"32 22 180"_qs, u"0 44"_qs);
    row("earliest place", "255  NIRA", u"32 22 255"_qs, u"0 0"_qs);
    row("the first word counts", "16 44 180  NIRA 32 22 255  NIRA", u"16 44 180"_qs);
  }

  void Identifies() {
    QFETCH(QByteArray, reply);
    QFETCH(QString, refused);
    TransferFixture f;
    f.Identify({reply});
    f.settings.PortErrorFlag = 5;
    if (!refused.isEmpty()) f.prompts.Expect();
    QCOMPARE(IdentityQuery(f.comm), refused.isEmpty() ? Identity::Accepted : Identity::Rejected);
    QTEST(f.Limits(), "limits");
    QCOMPARE(f.settings.PortErrorFlag, 0);
    QCOMPARE(f.serial.PortOpen(), refused.isEmpty());
    if (refused.isEmpty()) return;
    QCOMPARE(f.prompts.Shown(),
             QStringList(u"None Ok: BAD DEVICE  CAM." + refused.section(u' ', 0, 0) + u" FORM." +
                         refused.section(u' ', 1)));
  }

  void AsksAgain_data() {
    QTest::addColumn<QByteArrayList>("replies");
    QTest::addColumn<QStringList>("answers");
    QTest::addColumn<int>("queries");
    QTest::addColumn<bool>("accepted");
    const QByteArrayList early = {"1234NIRA\r"};
    QTest::newRow("word too early")
        << QByteArrayList{early.first(), qx32} << QStringList() << 2 << true;
    QTest::newRow("noise") << QByteArrayList{"\r", "x\n", qx32} << QStringList() << 3 << true;
    QTest::newRow("retry") << QByteArrayList{"", "32 22", qx32}
                           << QStringList{u"Retry"_qs, u"Retry"_qs} << 3 << true;
    QTest::newRow("cancel") << QByteArrayList{""} << QStringList{u"Cancel"_qs} << 1 << false;
    // Another device that answers for two seconds: 10 ms, the reply's 5, 50 for an LF, 50 each.
    QTest::newRow("never an identity")
        << early << QStringList{u"Retry"_qs, u"Cancel"_qs} << 36 << false;
  }

  void AsksAgain() {
    QFETCH(QByteArrayList, replies);
    QFETCH(QStringList, answers);
    QFETCH(bool, accepted);
    TransferFixture f;
    f.Identify(replies);
    for (const QString& answer : answers) {
      f.prompts.Expect(answer == u"Retry" ? Answer::Retry : Answer::Cancel);
    }
    QCOMPARE(IdentityQuery(f.comm), accepted ? Identity::Accepted : Identity::Cancelled);
    QTEST(static_cast<int>(f.serial.Written.count("?M\x8C\r")), "queries");
    QTEST(static_cast<int>(f.serial.Log.count(u"pause 50"_qs)) + 1, "queries");
    const bool heard = QByteArray(QTest::currentDataTag()) == "never an identity";
    QCOMPARE(f.prompts.Shown(),
             QStringList(answers.size(), heard ? noAnswer + u"\rANSWER: 1234NIRA" : noAnswer));
    QCOMPARE(f.serial.PortOpen(), accepted);
    QCOMPARE(f.Limits(), u"32 22 255"_qs);
  }

  void AsksOnlyOnce() {
    TransferFixture f;
    f.comm.Busy = true;
    QCOMPARE(IdentityQuery(f.comm), Identity::PortError);
    QCOMPARE(SizeTransfer(f.comm).Tr_Siz(f.Monitor()), TransferEnd::Busy);
    QCOMPARE(SizeTransfer(f.comm).Rc_Siz(f.Monitor()), TransferEnd::Busy);
    QVERIFY(!AutSelQuery(f.comm));
    QVERIFY(f.comm.Busy && f.serial.Log.isEmpty());
  }

  void AutomaticSelection_data() {
    TextTable({"reply", "model"}, {{"30 characters", "16 99 001  NIRA 3456789012345\r", "16 99 1"},
                                   {"29 characters", "32 22 255  NIRA 345678901234\r", ""},
                                   {"24 cams", "24 22 255  NIRA QX32-22F V1.00\r\n", ""},
                                   {"no size", "32 00 255  NIRA QX32-22F V1.00\r\n", ""},
                                   {"256 messages", "32 22 256  NIRA QX32-22F V1.00\r\n", ""}});
  }

  void AutomaticSelection() {
    QFETCH(QString, reply);
    TransferFixture f;
    f.Identify({reply.toLatin1()});
    f.prompts.AnswerEverything(true);
    const auto model = AutSelQuery(f.comm);
    QCOMPARE(f.prompts.Shown().join(u'|'),
             model ? QString() : u"Exclamation Ok: ANSWER OF NO USE: "_qs + reply.trimmed());
    QTEST(model ? QStringLiteral("%1 %2 %3").arg(model->Cams).arg(model->Sizes).arg(model->Messages)
                : QString(),
          "model");
    QVERIFY(!f.serial.PortOpen() && !f.comm.Busy);
    QCOMPARE(f.Limits(), u"32 22 255"_qs);
  }

  /// A programmer that is not ready, does not answer, or is another one.
  void SendsNothing() {
    using enum TransferEnd;
    const auto monitor = [](const Job&) {
      QTest::qFail("the monitor ran", __FILE__, __LINE__);
      return Done;
    };
    for (const auto& [identity, end] : {std::pair{QByteArray(), PortError},
                                        {QByteArray(""), Cancelled},
                                        {QByteArray("24 22 255  NIRA\r"), NotIdentified}}) {
      TransferFixture f;
      f.serial.Holding = !identity.isNull();
      f.prompts.AnswerEverything(false);
      f.Identify({identity});
      QCOMPARE(SizeTransfer(f.comm).Tr_Siz(monitor), end);
      QCOMPARE(SizeTransfer(f.comm).Rc_Siz(monitor), end);
      QVERIFY(!f.serial.PortOpen());
      QCOMPARE(ContentOf(f.program), u"1.1: 10-20; 1 = OLD"_qs);
    }
  }

  void SmallerProgrammer_data() {
    QTest::addColumn<QString>("used");
    for (const char* used : {"nothing", "off", "phase", "text", "advance", "delay", "size"}) {
      QTest::newRow(used) << QString::fromLatin1(used);
    }
  }

  void SmallerProgrammer() {
    QFETCH(QString, used);
    const bool asked = used != u"nothing" && used != u"off";
    for (const Answer answer : {Answer::Cancel, Answer::Ok}) {
      TransferFixture f;
      f.program.SetLimits(50, 32, 255);
      FunctionsBlock functions;
      functions.AdvanceLast = 20;
      functions.AdvanceOn = used == u"advance";
      functions.CamFunc[16] = used == u"advance" || used == u"off" ? 9 : 0;
      functions.DelayOn = used == u"delay";
      f.program.SetFunctions(functions);
      if (used == u"phase") f.program.SetRow(44, 16, RowOf(u"1-2"_qs));
      if (used == u"size") f.program.SetRow(45, 0, RowOf(u"1-2"_qs));
      if (used == u"text") f.program.SetCamText(31, u"LAST"_qs);
      f.program.SelectSize(50);
      f.program.SelectCam(31);
      const QString content = ContentOf(f.program);
      const auto revision = f.program.Revision();
      f.Acknowledge(qx16);
      if (asked) f.prompts.Expect(answer);
      const bool goesOn = !asked || answer == Answer::Ok;
      QCOMPARE(SizeTransfer(f.comm).Tr_Siz(f.Monitor()),
               goesOn ? TransferEnd::Done : TransferEnd::Cancelled);
      QCOMPARE(f.prompts.Shown(), asked
                                      ? QStringList(cut + u"32 cams, 50 sizes -> 16 cams, 44 sizes")
                                      : QStringList());
      QCOMPARE(f.Limits(), goesOn ? u"16 44 180"_qs : u"32 50 255"_qs);
      QCOMPARE(f.serial.Written.contains("?FW"), goesOn);
      QCOMPARE(f.settings.CurrentFile, asked && goesOn ? QString() : u"press.CAM"_qs);
      QVERIFY(!f.serial.PortOpen());
      if (goesOn) continue;
      QCOMPARE(ContentOf(f.program), content);
      QCOMPARE(f.program.Revision(), revision);
      QCOMPARE(f.program.Functions(), functions);
      QCOMPARE(f.program.CurrentSize() * 100 + f.program.CurrentCam(), 5031);
    }
  }

  /// Another programmer's numbers must not hide what is in use: sent to the right one afterwards
  /// the program would lose it. Where they hide nothing they stay.
  void RejectedProgrammer() {
    for (const bool receive : {false, true}) {
      TransferFixture f;
      f.prompts.AnswerEverything(true);
      f.Identify({"16 89 255  NIRA\r"});
      SizeTransfer transfer(f.comm);
      const auto run = receive ? &SizeTransfer::Rc_Siz : &SizeTransfer::Tr_Siz;
      FunctionsBlock functions;
      functions.AdvanceOn = 1;
      functions.AdvanceLast = 31;
      functions.CamFunc.fill(9);
      f.program.SetFunctions(functions);
      f.program.TakeAsSaved();
      QCOMPARE((transfer.*run)(f.Monitor()), TransferEnd::NotIdentified);
      QCOMPARE(f.Limits() + f.settings.CurrentFile, u"32 22 255press.CAM"_qs);
      QVERIFY(!f.program.Differs() && f.program.CurrentCam() == 4);
      f.program.SetFunctions({});
      QCOMPARE((transfer.*run)(f.Monitor()), TransferEnd::NotIdentified);
      QCOMPARE(f.Limits(), u"16 22 255"_qs);
      f.program.SetFunctions(functions);
      f.program.SetLimits(22, 32, 255);
      QCOMPARE(f.program.LastAdvance(), 31);
    }
  }

  /// A program of 44 sizes and a reception from a programmer of 22: asked is about unsaved work
  /// alone, and limits and file stay until what came was taken over.
  void ReceivesFromSmaller() {
    TransferFixture f;
    f.program.SetLimits(44, 32, 255);
    f.program.SetRow(44, 0, RowOf(u"1-2"_qs));
    f.program.TakeAsSaved();
    for (const QByteArray& records : {QByteArray("FUNZIONI 32-22|0 0 0 0|END"), reception}) {
      const bool whole = records == reception;
      f.Receive(records);
      if (!whole) f.prompts.Expect();
      QCOMPARE(SizeTransfer(f.comm).Rc_Siz(f.Monitor()) == TransferEnd::Done, whole);
      QCOMPARE(f.Limits() + f.settings.CurrentFile,
               whole ? u"32 22 255"_qs : u"32 44 255press.CAM"_qs);
      QCOMPARE(f.program.Differs(), whole);
    }
  }

  void SendsNothingOnlyWhenAsked() {
    TransferFixture f;
    f.program.SetRow(1, 0, RowOf(u"0-360"_qs));  // always ON: never sent
    f.Acknowledge(qx32);
    for (const Answer answer : {Answer::No, Answer::Yes}) {
      f.prompts.Expect(answer);
      QCOMPARE(SizeTransfer(f.comm).Tr_Siz(f.Monitor()),
               answer == Answer::Yes ? TransferEnd::Done : TransferEnd::Cancelled);
      QVERIFY(f.serial.Written.isEmpty() == (answer == Answer::No));
    }
    QVERIFY(f.prompts.Shown().constFirst().startsWith(u"Exclamation NoYes: NO SIZE HOLDS"_qs));
  }

  /// Values that no operator can give are taken, and told, and so is what goes out changed.
  void Remarks() {
    TransferFixture f;
    f.Receive("FUNZIONI 32-22|0 0 0 0|050-592000|FORMATO N. 01|C 01| 001 002|END");
    SizeTransfer in(f.comm);
    QCOMPARE(in.Rc_Siz(f.Monitor()), TransferEnd::Done);
    QCOMPARE(in.Remark(),
             u"RECEIVED VALUES OUT OF RANGE: SENSO DI ROTAZIONE 9 (0-1), 050-592000"_qs);
    FunctionsBlock functions;
    functions.EncoderShift = -5;
    f.program.SetFunctions(functions);
    f.Acknowledge(qx32);
    SizeTransfer out(f.comm);
    QCOMPARE(out.Tr_Siz(f.Monitor()), TransferEnd::Done);
    QCOMPARE(out.Remark(), u"VALUES THAT WENT OUT CHANGED: SFASAMENTO ENCODER -5 -> 0-5"_qs);
  }

  void Receives() {
    TransferFixture f;
    f.Receive(reception);
    QCOMPARE(SizeTransfer(f.comm).Rc_Siz(f.Monitor()), TransferEnd::Done);
    QCOMPARE(ContentOf(f.program), u"2.3: 0-10 350-360; 3 = NEW"_qs);
    const FunctionsBlock& functions = f.program.Functions();
    QCOMPARE(functions.AdvanceOn * 100 + functions.AdvanceLast * 10 + functions.CamFunc[1], 118);
    QCOMPARE(functions.OutputSize * 10000 + functions.EncoderShift, 30100);
    QCOMPARE(functions.SpeedLimit, std::int16_t(1000));
    QCOMPARE(f.program.CurrentSize() * 100 + f.program.CurrentCam(), 100);
    QVERIFY(!f.program.IsSaved && !f.serial.PortOpen());
    QCOMPARE(f.settings.CurrentFile, u"press.CAM"_qs);
    QCOMPARE(f.program.MessageText(7), u"STAYS"_qs);
    QCOMPARE(f.serial.Written, "?M\x8C\r?FR\xD7\r" + QByteArray(8, '\x06'));
  }

  void AsksAboutUnsavedWork() {
    TransferFixture f;
    f.program.SetCamText(0, u"NEWER"_qs);
    f.Receive(reception);
    f.prompts.Expect(Answer::Cancel);
    QCOMPARE(SizeTransfer(f.comm).Rc_Siz(f.Monitor()), TransferEnd::Cancelled);
    QVERIFY(f.serial.Log.isEmpty());
    f.prompts.Expect(Answer::Ok);
    QCOMPARE(SizeTransfer(f.comm).Rc_Siz(f.Monitor()), TransferEnd::Done);
    QCOMPARE(f.prompts.Shown().constFirst(),
             u"Exclamation CancelOk: THE CAM PROGRAM HAS NOT BEEN SAVED !"_qs);
  }

  void BadReceptions_data() {
    QTest::addColumn<QByteArray>("records");
    QTest::addColumn<QString>("told");
    const auto row = [](const char* name, const QByteArray& records, const QString& told) {
      QTest::newRow(name) << records << told;
    };
    const auto bad = [](const QString& line) -> QString {
      return u"Exclamation Ok: " + line + u" INVALID FILE OR SIZE !";
    };
    const QString timeout = u"None Ok: TIMEOUT SERIAL PORT "_qs;
    row("no header", "0 0 0 0|FORMATO N. 01|END", bad(u"0 0 0 0"_qs));
    row("other cams", "FUNZIONI 16-44|END", u"None Ok: WRONG DSP  C.16"_qs);
    row("blank before the dash", "FUNZIONI 32 -22|END", u"None Ok: WRONG DSP  C.2 "_qs);
    row("bad functions", "FUNZIONI 32-22|1 0 0 0|XX|FORMATO N. 01|END", bad(u"XX"_qs));
    row("no functions", "FUNZIONI 32-22|FORMATO N. 01|END", bad(u"FORMATO N. 01"_qs));
    row("size above", "FUNZIONI 32-22|0 0 0 0|0000000000|FORMATO N. 23|C 01| 001 002|END",
        bad(u" 001 002"_qs));
    row("cam above", "FUNZIONI 32-22|0 0 0 0|0000000000|FORMATO N. 01|C 33| 001 002|END",
        bad(u" 001 002"_qs));
    row("degree above", "FUNZIONI 32-22|0 0 0 0|0000000000|FORMATO N. 01|C 01| 001 360|END",
        bad(u" 001 360"_qs));
    row("cut", "FUNZIONI 32-22|0 0 0 0|0000000000|FORMATO N. 01|C 01", timeout);
  }

  void BadReceptions() {
    QFETCH(QByteArray, records);
    TransferFixture f;
    f.prompts.Expect();
    f.Receive(records);
    QVERIFY(SizeTransfer(f.comm).Rc_Siz(f.Monitor()) != TransferEnd::Done);
    QTEST(f.prompts.Shown().join(u'|'), "told");
    QCOMPARE(ContentOf(f.program), u"1.1: 10-20; 1 = OLD"_qs);
    QCOMPARE(f.program.CurrentSize() * 100 + f.program.CurrentCam(), 204);
    QVERIFY(!f.program.HasUnsavedWork() && !f.serial.PortOpen());
  }

  void PortGone() {
    for (int operation = 0;; ++operation) {
      TransferFixture f;
      f.Receive(reception);
      f.serial.GoneAfter(operation);
      f.prompts.AnswerEverything(true);
      const TransferEnd end = SizeTransfer(f.comm).Rc_Siz(f.Monitor());
      if (!f.serial.Gone) break;
      QCOMPARE(end, TransferEnd::PortError);
      QCOMPARE(f.prompts.Shown(), QStringList(gone));
      QCOMPARE(ContentOf(f.program), u"1.1: 10-20; 1 = OLD"_qs);
      QVERIFY(!f.comm.Busy && !f.serial.PortOpen());
    }
  }
};

}  // namespace nira

QTEST_APPLESS_MAIN(nira::SizeTransferTest)
#include "SizeTransferTest.moc"
