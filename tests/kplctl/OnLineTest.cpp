// SPDX-License-Identifier: Apache-2.0
#include "MessagesOnLine.h"
#include "ProgramTransfer.h"
#include "SimulatedSerial.h"
#include "files/CamLines.h"
#include "support/CamFileFixture.h"
#include "support/DeviceFixture.h"
#include "support/Kplctl.h"
#include "support/ScriptedSerial.h"

#include <csignal>

namespace nira {

using namespace Qt::StringLiterals;

namespace {

/// Answers as the command line does: nothing is tried again.
class Operator : public ScriptedPrompts {
 public:
  Answer MsgBox(const QString& text, Buttons buttons, Icon icon, const QString& title) override {
    const Answer answer = ScriptedPrompts::MsgBox(text, buttons, icon, title);
    return buttons == Buttons::RetryCancel ? Answer::Cancel : answer;
  }
};

/// The commands that talk to a programmer, with a simulated one on virtual time.
struct LineFixture {
  explicit LineFixture(const QStringList& faults = {},
                       const ProgrammerState& state = ProgrammerState())
      : device(state, FaultsOf(faults)) {
    texts.Read(QStringLiteral(NIRA_SOURCE_FOLDER "/lang/p32qx_EN.SCR"));
    prompts.AnswerEverything(true);
  }

  QString Path(const QString& name) const { return folder.filePath(name); }

  int Run(const std::function<int(LineSession&)>& command) {
    out.clear();
    err.clear();
    LineSession session(console, arguments, working, names, serial, serial);
    const int status = command(session);
    const bool traced = session.EndTrace();
    outStream.flush();
    errStream.flush();
    return traced ? status : Console::Failed;
  }

  int Send(const QString& file, bool verify = false) {
    arguments.Words = QStringList{file};
    if (verify) arguments.SetOption("verify", {});
    return Run([this](LineSession& session) { return SendProgram(session, arguments); });
  }

  int Receive(const QString& file) {
    arguments.Words = QStringList{file};
    return Run([this](LineSession& session) { return ReceiveProgram(session, arguments); });
  }

  QTemporaryDir folder;
  WorkingFolder working{folder.path()};
  PortNames names{working};
  Programmer device;
  SimulatedSerial serial{device};
  Operator prompts;
  MessageTable texts;
  FileWriter writer;
  QString out;
  QString err;
  QTextStream outStream{&out};
  QTextStream errStream{&err};
  Console console{prompts, texts, writer, outStream, errStream};
  Arguments arguments;
};

/// What a trace says went over the line in one direction.
QByteArray Traced(const QByteArray& trace, char arrow) {
  QByteArray bytes;
  for (const QByteArray& line : trace.split('\n')) {
    if (line.size() > 12 && line.at(11) == arrow) {
      bytes += QByteArray::fromHex(line.mid(13, 3 * LineTrace::Width - 1));
    }
  }
  return bytes;
}

}  // namespace

/// ports, identify, send and receive.
class OnLineTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Identify() {
    LineFixture f;
    QCOMPARE(f.Run(IdentifyProgrammer), 0);
    QVERIFY2(f.out.startsWith(u"32 22 255  NIRA"_qs) && f.out.contains(u"messages  255\n"_qs),
             qPrintable(f.out));
    QVERIFY(!f.serial.PortOpen());
  }

  /// All of a program arrives, comes back and is written as Save writes it.
  void ThereAndBack() {
    LineFixture f;
    f.arguments.SetOption("trace", f.Path(u"t"_qs));
    QCOMPARE(f.Send(Sample("press.CAM"), true), 0);
    QVERIFY2(f.out.contains(u": read back: the same"_qs), qPrintable(f.out + f.err));
    QVERIFY2(f.err.contains(u"\n100 %  "_qs) && !f.err.contains(u'\r'), qPrintable(f.err));
    const QByteArray trace = ReadBytes(f.Path(u"t"_qs));
    QCOMPARE(Traced(trace, '>').size(), f.serial.BytesSent());
    QCOMPARE(Traced(trace, '<').size(), f.serial.BytesReceived());
    QVERIFY(Traced(trace, '>')
                .startsWith("?M\x8C\r"
                            "?FW\xDC\r\2"));

    const QString back = f.Path(u"back.cam"_qs);
    QCOMPARE(f.Receive(back), 0);
    QVERIFY(WriteBytes(back, "old"));
    f.prompts.AnswerEverything(false);
    QCOMPARE(f.Receive(back), 1);  // asked, and not replaced
    QCOMPARE(ReadBytes(back), QByteArray("old"));
    f.prompts.AnswerEverything(true);
    QCOMPARE(f.Receive(back), 0);
    QCOMPARE(Kplctl({u"check"_qs, back}).status, 0);
    QVERIFY(!f.serial.PortOpen());
    QVERIFY(!QFile::exists(f.Path(u"_._"_qs)));  // that one is the windows'
  }

  /// What cannot be written is told before the line is used; what came all the same is kept.
  void NowhereToWrite() {
    LineFixture f;
    QCOMPARE(f.Receive(f.Path(u"none/back.cam"_qs)), 1);
    QVERIFY2(f.err.contains(u"cannot be written: "_qs), qPrintable(f.err));
    QCOMPARE(f.serial.BytesSent(), 0);
    const QString back = f.Path(u"back.cam"_qs);
    f.device.Finished = [&back](const Programmer::Job& job) {
      if (job.command == "?FR") QDir().mkpath(back);
    };
    QCOMPARE(f.Receive(back), 1);
    const QString kept = f.err.section(u"what came is kept in "_qs, 1).trimmed();
    QVERIFY2(ReadBytes(kept).startsWith("FUNZIONI 32-22\r\n"), qPrintable(f.err));
    QVERIFY(QDir(QFileInfo(kept).path()).removeRecursively());
  }

  void MessagesThereAndBack() {
    LineFixture f;
    const QString sample = Sample("press_IT.MSG");
    const QString back = f.Path(u"back.msg"_qs);
    const auto send = [&f](const QString& file) {
      return f.Run([&file](LineSession& session) { return SendMessages(session, file); });
    };
    const auto receive = [&back](LineSession& session) { return ReceiveMessages(session, back); };
    QCOMPARE(send(sample), 0);
    QVERIFY(WriteBytes(back, "old"));
    QCOMPARE(f.Run(receive), 0);
    QCOMPARE(ReadBytes(back), ReadBytes(sample));
    QCOMPARE(ReadBytes(back + u".bak"), QByteArray("old"));
    QVERIFY2(f.out.contains(u"255 messages"_qs), qPrintable(f.out));
    QVERIFY(!f.serial.PortOpen());
    QVERIFY(WriteBytes(f.Path(u"bad.msg"_qs), "N. 001 \"A\"\r\nX\r\n"));
    const auto sent = f.serial.BytesSent();
    QCOMPARE(send(f.Path(u"bad.msg"_qs)), 1);
    QCOMPARE(f.serial.BytesSent(), sent);
    LineFixture damaged({u"bad-checksum=9"_qs});
    QCOMPARE(damaged.Run(receive), 1);
    QVERIFY2(damaged.err.contains(u"NOT received: not all of it came"_qs), qPrintable(damaged.err));
    const QString kept = damaged.err.section(u"what came is kept in "_qs, 1).trimmed();
    QVERIFY2(ReadBytes(kept).endsWith("END\r\n"), qPrintable(damaged.err));
    QVERIFY(QDir(QFileInfo(kept).path()).removeRecursively());
    const auto sendAll = [&sample](LineSession& session) { return SendMessages(session, sample); };
    LineFixture silent({u"no-answer"_qs});
    QCOMPARE(silent.Run(sendAll), 1);
    QVERIFY2(silent.err.contains(u"NOT sent: the programmer did not answer"_qs) &&
                 !silent.err.contains(u"a part"_qs),
             qPrintable(silent.err));
  }

  /// What the programmer holds is another program than what was sent.
  void VerifyTells() {
    LineFixture f;
    f.device.Finished = [&f](const Programmer::Job& job) {
      if (job.command != "?FW") return;
      f.device.State.SwitchOn(3, 6, 358, 0);
      f.device.State.Functions.SpeedLimit = 7;
      f.device.State.SetCamText(0, "OTHER");
    };
    QCOMPARE(f.Send(Sample("press.CAM"), true), 1);
    for (const char* told :
         {"size 3, cam 7: nothing in the file, 358-000 in the programmer",
          "SpeedLimit: ", "description of cam 1: ", "NOT the same: 3 differences"}) {
      QVERIFY2(f.err.contains(QString::fromLatin1(told)), qPrintable(f.err));
    }
  }

  void Failures_data() {
    QTest::addColumn<QString>("told");
    QTest::newRow("no-cts") << u"does not hold the CTS line"_qs;
    QTest::newRow("unplug=40") << u"the port failed; the programmer may hold a part"_qs;
    QTest::newRow("no-answer=1300") << u"did not answer"_qs;
    QTest::newRow("model=32,99,255") << u"not a programmer that this program serves"_qs;
  }

  /// Nothing that went wrong ends with status 0; the port is closed.
  void Failures() {
    QFETCH(QString, told);
    LineFixture f({QString::fromLatin1(QTest::currentDataTag())});
    QCOMPARE(f.Send(Sample("press.CAM")), 1);
    QVERIFY2(f.err.contains(told), qPrintable(f.err));
    QVERIFY(!f.serial.PortOpen());
    const QString back = f.Path(u"back.cam"_qs);
    QCOMPARE(LineFixture({u"bad-checksum=9"_qs}).Receive(back), 1);
    QVERIFY(!QFile::exists(back));
  }

  /// Ctrl+C in the middle of the exchange.
  void InterruptedInTheMiddle() {
#ifndef Q_OS_UNIX
    QSKIP("signals are for Unix");
#endif
    LineFixture f;
    f.device.Finished = [](const Programmer::Job& job) {
      if (job.command == "?M") std::raise(SIGINT);
    };
    QCOMPARE(f.Send(Sample("press.CAM")), 1);
    QVERIFY2(f.err.contains(u"NOT sent: interrupted"_qs), qPrintable(f.err));
    QVERIFY(!f.serial.PortOpen());
    LineFixture next;
    QCOMPARE(next.Send(Sample("press.CAM")), 0);  // the next command is a new one
  }

  /// While nothing comes, and nothing goes out.
  void InterruptedInAWait() {
#ifndef Q_OS_UNIX
    QSKIP("signals are for Unix");
#endif
    struct Silent : ScriptedSerial {
      bool WaitForInput(std::int64_t deadline, Yield yield) override {
        std::raise(SIGINT);
        return ScriptedSerial::WaitForInput(deadline, yield);
      }
    } serial;
    const Interrupt interrupt;
    LineTrace trace(serial);
    LinePort port(serial, serial, trace, interrupt);
    port.PortOpen(true);
    const std::int64_t begun = serial.Now();
    QVERIFY_THROWS_EXCEPTION(Interrupted, port.WaitForInput(begun + 3000, Yield::Painting));
    QVERIFY(serial.Now() - begun <= LinePort::Patience);
  }

  void TraceRefused() {
    LineFixture f;
    QVERIFY(WriteBytes(f.Path(u"in.cam"_qs), ReadBytes(Sample("press.CAM"))));
    for (const QString& trace : {f.Path(u"in.cam"_qs), f.Path(u"in.cam.bak"_qs), f.Path(u"_._"_qs),
                                 f.Path(u"none/t"_qs), u"/dev/full"_qs}) {
      f.arguments.SetOption("trace", trace);
      QCOMPARE(f.Send(f.Path(u"in.cam"_qs)), 1);
      QVERIFY2(f.err.contains(u"NOT sent: trace "_qs), qPrintable(f.err));
    }
    QCOMPARE(ReadBytes(f.Path(u"in.cam"_qs)), ReadBytes(Sample("press.CAM")));
    QCOMPARE(f.serial.BytesSent(), 0);
  }

  void Ports() {
#ifndef Q_OS_LINUX
    QSKIP("links are for Linux");
#endif
    const LineFixture f;
    QVERIFY(QFile::link(u"/dev/null"_qs, f.Path(u"com3"_qs)));
    const QString before = QDir::currentPath();
    QDir::setCurrent(f.folder.path());
    const Ran ran = Kplctl({u"ports"_qs});
    QDir::setCurrent(before);
    QCOMPARE(ran.status, 0);
    const QString row = ran.out.section(u"\n3 "_qs, 1).section(u'\n', 0, 0).simplified();
    QVERIFY2(row.startsWith(u"/dev/null - - "_qs), qPrintable(ran.out));
  }

  /// A device by its path; one that has a number keeps it.
  void Devices() {
    LineFixture f;
    QVERIFY(QFile::link(u"/dev/null"_qs, f.Path(u"com3"_qs)));
    f.arguments.SetOption("port", u"/dev/null"_qs);
    QCOMPARE(LineSession(f.console, f.arguments, f.working, f.names, f.serial, f.serial)
                 .Settings.PortNumber,
             3);
    f.arguments.SetOption("port", u"ttyNone"_qs);
    QCOMPARE(LineSession(f.console, f.arguments, f.working, f.names, f.serial, f.serial)
                 .Settings.PortNumber,
             0);
    QCOMPARE(f.names.Device(0), u"/dev/ttyNone"_qs);
    LineFixture silent({u"no-answer"_qs});
    silent.arguments = f.arguments;
    QCOMPARE(silent.Run(IdentifyProgrammer), 1);
    QVERIFY(silent.prompts.Shown().constFirst().contains(u" Errore su Porta simulator\r"_qs));
  }
};

}  // namespace nira

QTEST_GUILESS_MAIN(nira::OnLineTest)
#include "OnLineTest.moc"
