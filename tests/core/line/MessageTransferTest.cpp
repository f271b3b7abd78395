// SPDX-License-Identifier: Apache-2.0
#include "line/MessageTransfer.h"
#include "messages/MessageTexts.h"
#include "support/CommFixture.h"
#include "support/Tables.h"

#include <QTest>

namespace nira {

using namespace Qt::StringLiterals;

namespace {

const QByteArray identity = "32 22 255  NIRA QX32-22F V1.00\r\n";

/// Messages that go over a scripted line, and a monitor that runs the job at once.
struct TransferFixture : CommFixture {
  TransferFixture() {
    for (const int number : {1, 2, 3, 4}) program.SetMessageText(number, u"OLD"_qs);
  }

  JobMonitor Monitor() {
    return [this](const Job& job) { return TransferJobs(comm, report).Run(job); };
  }
  TransferEnd Receive(const QString& chosen) {
    return MessageTransfer(comm).Msg_Rec([&] { return Path(chosen); }, Monitor());
  }
  /// The first four messages, "a|b|c|d".
  QString Messages() const {
    QStringList all;
    for (const int number : {1, 2, 3, 4}) all.append(program.MessageText(number));
    return all.join(u'|');
  }

  MessageTransfer transfer{comm};
};

}  // namespace

/// The messages on their way between the program, its files and the programmer.
class MessageTransferTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Asked_data() {
    TextTable({"text", "question"},
              {{"control", "A\003B", "CHARACTER NOT ALLOWED: \u2403\nMESSAGE 002\nSEND ANYWAY ?"},
               {"nothing", "", "NO MESSAGE HAS A TEXT\nSEND ANYWAY ?"}});
  }

  /// What is seldom meant goes out after a question only, whose return key says No.
  void Asked() {
    QFETCH(QString, text);
    TransferFixture f;
    ClearMessages(f.program);
    f.program.SetMessageText(2, text);
    f.Acknowledge(identity);
    for (const Answer answer : {Answer::No, Answer::Yes}) {
      f.prompts.Expect(answer);
      const bool sent = answer == Answer::Yes;
      QCOMPARE(f.transfer.Tr_M(f.Monitor()), sent ? TransferEnd::Done : TransferEnd::Cancelled);
      QCOMPARE(f.serial.Written.contains("?AW"), sent);
      const auto file = [&f] { return MessageTransfer::WorkPath(f.comm); };
      f.prompts.Expect(answer);
      f.serial.Written.clear();
      QCOMPARE(f.transfer.Msg_Trans(file, f.Monitor()),
               sent ? TransferEnd::Done : TransferEnd::Cancelled);
      QCOMPARE(f.serial.Written.contains("?AW"), sent);
      QVERIFY(!f.serial.PortOpen());
    }
    QTEST(f.prompts.boxes.front().text, "question");
    QCOMPARE(f.prompts.boxes.front().buttons, Buttons::NoYes);
    QVERIFY(f.settings.MsgSaved);
  }

  /// A record that came damaged, and one that came too late: the others would stand one number too
  /// high.
  void InPart_data() {
    QTest::addColumn<QByteArrayList>("pieces");
    QTest::addColumn<QString>("messages");
    QTest::addColumn<QString>("emptied");
    QTest::newRow("damaged") << QByteArrayList{Frame("N 001\"A\""),
                                               Frame("N 002\"B\"").chopped(1) + '!',
                                               Frame("N 003\"C\""), Frame("END")}
                             << u"A|OLD|C|OLD"_qs << u"A||C|"_qs;
    QTest::newRow("late") << QByteArrayList{Frame("N 001\"A\""), "!" + Frame("x"),
                                            Frame("N 002\"B\""), Frame("END")}
                          << u"OLD|OLD|OLD|OLD"_qs << u"OLD|OLD|OLD|OLD"_qs;
  }

  void InPart() {
    QFETCH(QByteArrayList, pieces);
    TransferFixture f;
    QVERIFY(WriteBytes(f.Path(u"a.MSG"_qs), "before"));
    f.prompts.AnswerEverything(true);
    f.Play(pieces, identity);
    QCOMPARE(f.Receive(u"a.MSG"_qs), TransferEnd::Incomplete);
    QCOMPARE(f.prompts.Shown(),
             QStringList(u"Exclamation Ok: MESSAGES NOT RECEIVED PROPERLY: 2"_qs));
    QTEST(f.Messages(), "messages");
    QCOMPARE(ReadBytes(f.Path(u"a.MSG"_qs)), QByteArray("before"));
    QVERIFY(ReadBytes(MessageTransfer::WorkPath(f.comm)).startsWith("N 001\"A\"\r\n\r\nN 00"));
    f.Play(pieces, identity);
    QCOMPARE(f.transfer.Rc_M(f.Monitor()), TransferEnd::Incomplete);
    QTEST(f.Messages(), "emptied");
  }

  /// What came and cannot take the place of the chosen file stays in the work file, and is told.
  void NotReplaced() {
    TransferFixture f;
    const QByteArrayList pieces = {Frame("N 001\"A\""), Frame("END")};
    QVERIFY(QDir().mkpath(f.Path(u"a.MSG/inside"_qs)));
    f.prompts.AnswerEverything(true);
    f.Play(pieces, identity);
    QCOMPARE(f.Receive(u"a.MSG"_qs), TransferEnd::NoFile);
    const QString work = MessageTransfer::WorkPath(f.comm);
    QVERIFY(f.prompts.boxes.back().text.endsWith(u"THE MESSAGES THAT CAME ARE IN "_qs + work));
    QCOMPARE(ReadBytes(work), QByteArray("N 001\"A\"\r\nEND\r\n"));
    QVERIFY(WriteBytes(f.Path(u"b.cam"_qs), "cams"));
    const QString tooLong = u"./"_qs.repeated(100);
    f.Play(pieces, identity);
    QCOMPARE(f.Receive(tooLong + u"c.MSG"), TransferEnd::NoFile);
    const auto file = [&] { return f.Path(tooLong + u"b.cam"); };
    QCOMPARE(f.transfer.Msg_Trans(file, f.Monitor()), TransferEnd::NoFile);
    f.settings.CurrentFile = f.Path(u"b.cam"_qs);
    f.Play(pieces, identity);
    QCOMPARE(f.Receive(u"b.cam"_qs), TransferEnd::NoFile);
    QVERIFY(f.prompts.boxes.back().text.endsWith(f.comm.Text(TextNumber::IsOpenCamFile)));
    QCOMPARE(ReadBytes(f.Path(u"b.cam"_qs)), QByteArray("cams"));
    WorkFile other(work);
    QVERIFY(!other.Create());  // another exchange in this folder
    QCOMPARE(f.transfer.Tr_M(f.Monitor()), TransferEnd::NoFile);
    QCOMPARE(f.transfer.Rc_M(f.Monitor()), TransferEnd::NoFile);
  }
};

}  // namespace nira

QTEST_GUILESS_MAIN(nira::MessageTransferTest)
#include "MessageTransferTest.moc"
