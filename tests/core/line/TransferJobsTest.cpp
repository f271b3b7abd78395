// SPDX-License-Identifier: Apache-2.0
#include "line/TransferJobs.h"
#include "support/CommFixture.h"

#include <QDir>
#include <QTest>

namespace nira {

using namespace Qt::StringLiterals;

namespace {

const QString timeout = u"None Ok: TIMEOUT SERIAL PORT "_qs;
const QString gone = u"Critical Ok: [Errore su COM1] Errore 8020 generato da MsComm1\rgone"_qs;
const QByteArray messages =
    "N. 001 \"A\r\r\nN. 002\r\n\r\nX. 255 say \"B\" now\"\r\nEND\r\nN. 009\r\n";
const QByteArrayList received = {"FUNZIONI 16-02", "0",        "0100000000", "FORMATO N. 01",
                                 "C 01\"UP\"",     " 010 020", "END"};
constexpr TransferEnd done = TransferEnd::Done;

QByteArrayList FramesOf(const QByteArrayList& records) {
  QByteArrayList frames;
  for (const QByteArray& record : records) frames.append(Frame(record));
  return frames;
}

/// Two sizes of 16 cams with phases in both and a description.
struct JobFixture : CommFixture {
  JobFixture() {
    program.SetLimits(2, 16, 255);
    program.SetRow(1, 0, RowOf(u"0-5 10-20 350-360"_qs));
    program.SetRow(2, 0, RowOf(u"1-2"_qs));
    program.SetRow(2, 15, RowOf(u"359-360"_qs));
    program.SetCamText(0, u"UP"_qs);
    program.SetCamText(1, u"NO PHASE"_qs);
  }

  /// What the log says after the opening, up to the first frame.
  QString Beginning() const {
    const qsizetype first = serial.Log.indexOf(u"handshake 2"_qs) + 1;
    return serial.Log.mid(first, 6).join(u'|');
  }
};

/// Keeps what is told of how far a job is, and when.
struct KeptCounts : KeptReport {
  explicit KeptCounts(const Clock& clock) : time(clock) {}
  void Count(const TransferCount& count) override { told.emplace_back(time.Now(), count); }

  const Clock& time;
  std::vector<std::pair<std::int64_t, TransferCount>> told;
};

}  // namespace

/// The four jobs, byte by byte, and what ends them early.
class TransferJobsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  /// It comes true soon and never jumps by more than a step, with a device that takes its time and
  /// with one that stops once.
  void TimeLeft() {
    for (const auto& [latency, stop] : {std::pair(25, 0), {0, 2500}}) {
      JobFixture f;
      f.program.SetLimits(22, 32, 255);
      for (int row = 0; row < 6 * 32; ++row) {
        f.program.SetRow(row / 32 + 1, row % 32, RowOf(u"0-5 10-20 30-40"_qs));
      }
      int frames = 0;
      f.serial.Device = [&, own = latency, once = stop](const QByteArray& out) {
        const int onLine = static_cast<int>(out.size() + 1) * 10'000 / f.settings.BaudRate;
        if (out.startsWith('\x02')) f.serial.Send("\x06", onLine + own + (++frames == 500) * once);
      };
      KeptCounts report(f.serial);
      QCOMPARE(TransferJobs(f.comm, report).Run({Job::SendSizes}), done);
      int before = report.told.front().second.Seconds;
      for (const auto& [at, count] : report.told) {
        QVERIFY(std::abs(count.Seconds - before) <= 10);
        before = count.Seconds;
        const double left = static_cast<double>(f.serial.Now() - at) / 1000;
        const bool settled = at - report.told.front().first >= 10'000;
        QVERIFY(!settled || std::abs(before - left) <= 4 + left / 5);
      }
      const TransferCount& last = report.told.back().second;
      QCOMPARE(last.Item * 10'000 + last.Items * 100 + last.Seconds, 222'201);
      QVERIFY(frames - last.Frames < 40);
    }
  }

  void SendsSizes() {
    JobFixture f;
    f.Acknowledge();
    QCOMPARE(f.Run("?FW"), done);
    QCOMPARE(f.serial.Written,
             "?FW\xDC\r" + Frames({"0", "0000000000", "F01", "C 01\"UP\"", " 010 020", " 350 005",
                                   "F02", "C 01", " 001 002", "C 16", " 359 000", "END"}));
    QCOMPARE(f.Beginning(),
             u"discard input|handshake 0|length 0|out 3f 46 57 dc 0d|pause 50"
             u"|discard input"_qs);
    QCOMPARE(f.serial.Log.count(u"pause 10"_qs), 2);  // after each size header
    QCOMPARE(f.report.Shown.join(u'|'),
             u"NIRA QX-16   360|0|1 TRASMISSIONE IN CORSO"
             u"|2 SIZE N. 1|50|2 SIZE N. 2|100"_qs);
  }

  void SendsOnAfterSilence() {
    JobFixture f;
    f.prompts.AnswerEverything(true);
    f.serial.Device = [&f](const QByteArray& out) {
      if (out != Frame("F01") && out.startsWith('\x02')) f.serial.Send("\x06");
    };
    QCOMPARE(f.Run("?FW"), TransferEnd::TimedOut);
    QCOMPARE(f.prompts.Shown(), QStringList(timeout));
    QVERIFY(f.serial.Written.endsWith(Frame("END")));
  }

  void ReceivesSizes() {
    JobFixture f;
    QVERIFY(WriteBytes(f.Path(u"_._"_qs), "stale"));
    f.Play(FramesOf(received));
    QCOMPARE(f.Run("?FR"), done);
    QCOMPARE(f.serial.Written, "?FR\xD7\r" + QByteArray(7, '\x06'));
    QCOMPARE(f.WorkBytes(), received.join("\r\n") + "\r\n");
    QCOMPARE(f.Beginning(),
             u"discard input|discard input|handshake 0|length 1"
             u"|out 3f 46 52 d7 0d|pause 50"_qs);
    QCOMPARE(f.report.Shown.join(u'|'),
             u"NIRA QX-16   360|0|1 RICEZIONE IN CORSO"
             u"|2 RECEIVING FORMATO N. 01|50"_qs);
  }

  /// Another reception in the folder is refused, and what came is what comes back.
  void WorkFileOfOne() {
    JobFixture f;
    WorkFile first(f.Path(u"_._"_qs));
    QVERIFY(!first.Create() && !first.Add("MINE"));
    f.prompts.Expect();
    QCOMPARE(f.Run("?FR"), TransferEnd::NoFile);
    QVERIFY(f.prompts.Shown().constFirst().contains(u"ANOTHER RECEPTION"_qs));
    QCOMPARE(f.serial.Written, QByteArray());
    QVERIFY(QFile::remove(first.Path()) && WriteBytes(first.Path(), "FOREIGN"));
    QCOMPARE(first.Content(), QByteArray("MINE\r\n"));
  }

  void ReceptionBreaksOff() {
    const QByteArray first = Frame("FUNZIONI 16-02");
    for (const QByteArrayList& pieces :
         {QByteArrayList{first}, QByteArrayList{first, Frame("END").chopped(1) + '!'}}) {
      JobFixture f;
      f.prompts.Expect();
      f.Play(pieces);
      QCOMPARE(f.Run("?FR"), TransferEnd::TimedOut);
      QCOMPARE(f.WorkBytes(), QByteArray("FUNZIONI 16-02\r\n"));
      QCOMPARE(f.prompts.Shown(), QStringList(timeout));
      QVERIFY(!f.serial.PortOpen());
    }
  }

  void ReceptionWithoutEnd() {
    JobFixture f;
    f.prompts.Expect();
    const QByteArray frame = Frame(QByteArray(4000, 'x'));
    f.serial.Device = [&f, &frame](const QByteArray&) { f.serial.Send(frame); };
    QCOMPARE(f.Run("?FR"), TransferEnd::TimedOut);
    QVERIFY(f.WorkBytes().size() > (7 << 20) && f.WorkBytes().size() <= WorkFile::MostBytes);
  }

  void SendsMessages() {
    JobFixture f;
    QVERIFY(WriteBytes(f.Path(u"press.msg"_qs), messages));
    QCOMPARE(f.Run("?AW", u"press.msg"_qs), done);
    QCOMPARE(f.serial.Written, QByteArray("?AW\xD7\rN001\"A\"\rN002\"\"\rN000\"\"\r"
                                          "N255\"B\" now\"\rEND\r"));
    QCOMPARE(f.Beginning().section(u'|', 0, 2), u"discard input|out 3f 41 57 d7 0d|pause 50"_qs);
    QCOMPARE(f.serial.Log.mid(f.serial.Log.size() - 2).join(u'|'), u"pause 10|out 45 4e 44 0d"_qs);
    QCOMPARE(f.report.Shown.join(u'|'),
             u"NIRA QX-16   360|0|1 TRANSMITTING ALARM MESSAGES|2 |100"_qs);
  }

  /// A programmer that drops CTS takes nothing more: closing tells it.
  void HeldMessages() {
    JobFixture f;
    QVERIFY(WriteBytes(f.Path(u"press.msg"_qs), messages));
    f.serial.Device = [&f](const QByteArray&) { f.serial.Holding = false; };
    QCOMPARE(f.Run("?AW", u"press.msg"_qs), done);
    QCOMPARE(f.serial.Written, QByteArray("?AW\xD7\r"));
    f.prompts.Expect();
    QVERIFY(!SerialLink(f.comm).ClosePort());
  }

  void RefusesMessageFiles() {
    const QByteArray endless(70000, 'N');
    const QByteArray message = "N. 001 \"A\"\r\n";
    for (const QByteArray& bytes :
         QByteArrayList{"END\r\n" + message, endless, message + endless}) {
      JobFixture f;
      QVERIFY(WriteBytes(f.Path(u"press.msg"_qs), bytes));
      f.prompts.Expect();
      QCOMPARE(f.Run("?AW", u"press.msg"_qs), TransferEnd::BadFile);
      QCOMPARE(f.prompts.Shown(), QStringList(u"Critical Ok:  INVALID FILE OR SIZE !"_qs));
      const bool begun = bytes.startsWith(message);
      QCOMPARE(f.serial.Written, QByteArray(begun ? "?AW\xD7\rN001\"A\"\rEND\r" : ""));
    }
  }

  void ReceivesMessages() {
    JobFixture f;
    f.program.SetLimits(2, 16, 100);
    const QByteArrayList pieces = {Frame("N 007\"A\""), Frame("bad").chopped(1) + '!',
                                   Frame("N 250\"BEN 9\""), Frame("END")};
    f.Play(pieces);
    f.prompts.Expect();
    QCOMPARE(f.Run("?AR", u"press.msg"_qs), TransferEnd::Incomplete);
    QCOMPARE(f.serial.Written, "?AR\xD2\r" + QByteArray(4, '\x06'));
    QCOMPARE(f.Beginning(),
             u"discard input|discard input|handshake 0|length 1"
             u"|out 3f 41 52 d2 0d|pause 10"_qs);
    QCOMPARE(f.report.Shown.join(u'|'),
             u"NIRA QX-16   360|0|1 RECEIVING ALARM MESSAGES|2 RECEIVING 007|7"
             u"|2 RECEIVING 250|100"_qs);
  }

  void MessagesWaitForTheirEnd() {
    JobFixture f;
    f.serial.Device = [&f](const QByteArray& out) {
      if (out.startsWith('?')) f.serial.Send(Frame("END").chopped(1) + '!', 4000);
      if (out.startsWith('\x06')) f.serial.Send(Frame("END"), 7000);
    };
    f.prompts.Expect();
    QCOMPARE(f.Run("?AR", u"~.~"_qs), TransferEnd::Incomplete);
    QCOMPARE(f.prompts.Shown(),
             QStringList(u"Exclamation Ok: MESSAGES NOT RECEIVED PROPERLY: 1-4"_qs));
    QCOMPARE(ReadBytes(f.Path(u"~.~"_qs)), QByteArray("\r\n\r\n\r\n\r\nEND\r\n"));
  }

  /// Folders stand where the files should be.
  void FilesThatCannotBe() {
    for (const char* code : {"?FR", "?AR", "?AW"}) {
      JobFixture f;
      QVERIFY(QDir().mkpath(f.Path(u"file/inside"_qs)));
      f.prompts.Expect();
      QCOMPARE(f.Run(code, u"file"_qs), TransferEnd::NoFile);
      QCOMPARE(f.serial.Written, QByteArray());
      const QString what = code[2] == 'R' ? u"WRITE"_qs : u"READ"_qs;
      QVERIFY(f.prompts.Shown().constFirst().startsWith(u"Critical Ok: CANNOT " + what));
    }
  }

  void PortGone_data() {
    QTest::addColumn<QByteArray>("code");
    for (const char* code : {"?FW", "?AW", "?AR"}) QTest::newRow(code) << QByteArray(code);
  }

  /// Whatever operation meets it, the job ends with the platform's error, and the next one runs.
  void PortGone() {
    QFETCH(QByteArray, code);
    bool whole = false;
    for (int operation = 0; !whole; ++operation) {
      JobFixture f;
      QVERIFY(WriteBytes(f.Path(u"~.~"_qs), messages));
      const auto device = [&f, &code] {
        if (code == "?FW") f.Acknowledge();
        if (code.endsWith('R')) f.Play(FramesOf(received));
      };
      device();
      f.serial.GoneAfter(operation);
      f.prompts.AnswerEverything(true);
      const TransferEnd end = f.Run(code.constData(), u"~.~"_qs);
      whole = !f.serial.Gone;
      QVERIFY(!whole || operation > 5);
      QCOMPARE(end, whole ? done : TransferEnd::PortError);
      QCOMPARE(f.prompts.Shown(), whole ? QStringList() : QStringList(gone));
      QCOMPARE(f.settings.PortErrorFlag, whole ? 0 : 8020);
      if (whole) break;
      device();
      QVERIFY(WriteBytes(f.Path(u"~.~"_qs), messages));
      QCOMPARE(f.Run(code.constData(), u"~.~"_qs), done);
    }
  }
};

}  // namespace nira

QTEST_APPLESS_MAIN(nira::TransferJobsTest)
#include "TransferJobsTest.moc"
