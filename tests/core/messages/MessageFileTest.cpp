// SPDX-License-Identifier: Apache-2.0
#include "messages/MessageFile.h"
#include "support/CamFileFixture.h"
#include "support/Tables.h"

#include <QDir>
#include <QTest>

namespace nira {

using namespace Qt::StringLiterals;

namespace {

/// Messages in a folder of their own, and what reads and writes them.
struct Place : CamFileFixture {
  explicit Place(int messages = 4) { program.SetLimits(22, 32, messages); }

  /// The texts of the messages, "a|b||".
  QString Messages() const {
    QStringList all;
    for (int n = 1; n <= program.NumMessages(); ++n) all.append(program.MessageText(n));
    return all.join(u'|');
  }
  void SetMessages(const QString& all) {
    const QStringList parts = all.split(u'|');
    for (int n = 1; n <= parts.size(); ++n) program.SetMessageText(n, parts.at(n - 1));
  }

  Result<MessageFile> Read() const { return ReadMsgFile(path, program.NumMessages()); }
  Refusal Write(const QString& to) {
    return WriteMsgFile(program, to, writer, FileWriter::Backup::Yes);
  }

  QString path = Path("in.MSG");
};

}  // namespace

/// What comes from a message file into the program, and back.
class MessageFileTest : public QObject {
  Q_OBJECT

 private:
  static void Keeps(const QByteArray& bytes, int messages) {
    Place p(messages);
    QVERIFY(WriteBytes(p.path, bytes));
    const auto file = p.Read();
    QVERIFY(bool(file));
    ReplaceMessages(p.program, *file);
    QVERIFY(!p.Write(p.path));
    QCOMPARE(ReadBytes(p.path), bytes);
  }

 private Q_SLOTS:
  void Read_data() {
    const QByteArray longest(997, 'A');
    const QByteArray line = "N\"" + longest + '"';
    const QByteArray cleared = longest + "|||";
    const QByteArray kept = longest + "|b|c|d";
    TextTable(
        {"bytes", "cleared", "kept"},
        {{"written form", "N. 001 \"ONE\"\r\nN. 002\r\nN. 003 \" C \"\r\nN. 004\r\n", "ONE| | C | ",
          "ONE|b| C |d"},
         {"by position", "N. 009 \"X\"\nN. 001 \"Y\"", "X|Y||", "X|Y|c|d"},
         {"lines that are none", "n. 001 \"X\"\r\n\r\n N. 003 \"Z\"\r\nEND\r\n", "|||", "a|b|c|d"},
         {"quotes", "N\"A\"B\"\r\nN\"\r\nN\"ABC\r\nN x\r\n", "A\"B||AB| ", "A\"B||AB|d"},
         {"more lines", "N\"X\"\r\nN\"X\"\r\nN\"X\"\r\nN\"X\"\r\nN\"Y\"\r\n", "X|X|X|X", "X|X|X|X"},
         {"empty file", "", "|||", "a|b|c|d"},
         {"longest", line.constData(), cleared.constData(), kept.constData()}});
  }

  void Read() {
    QFETCH(QString, bytes);
    Place p;
    QVERIFY(WriteBytes(p.path, bytes.toLatin1()));
    p.SetMessages(u"a|b|c|d|beyond"_qs);
    const auto file = p.Read();
    QVERIFY(bool(file));
    MergeMessages(p.program, *file);
    QTEST(p.Messages(), "kept");
    p.SetMessages(u"a|b|c|d"_qs);
    ReplaceMessages(p.program, *file);
    QTEST(p.Messages(), "cleared");
    QCOMPARE(p.program.MessageText(5), u"beyond"_qs);
    QCOMPARE(file->HasMessages(), !bytes.startsWith(u'n'));
  }

  void Refused() {
    using enum Fault::Kind;
    Place p;
    QCOMPARE(p.Read().Why().What, NoMessages);
    for (const int length : {998, 3'000'000}) {
      const QByteArray lines = "N\"X\"\r\nN\"" + QByteArray(length, 'A') + "\"\r\nN\"Y\"";
      QVERIFY(WriteBytes(p.path, lines));
      QCOMPARE(p.Read().Why().What, BadLine);
      QCOMPARE(p.Read().Why().Line, 2);
      QVERIFY(bool(ReadMsgFile(p.path, 1)));  // what is not read does not matter
    }
    QVERIFY(QFile::remove(p.path) && QDir().mkpath(p.path));
    QCOMPARE(p.Read().Why().What, CannotRead);
    QCOMPARE(p.Read().Why().Path, p.path);
    QCOMPARE(p.Write(p.path).value_or(Fault()).What, CannotWrite);
  }

  /// Opening and saving changes no byte.
  void OpenedAndSaved() {
    Keeps(ReadBytes(QStringLiteral(NIRA_SOURCE_FOLDER "/samples/press_EN.MSG")), 180);
    QByteArray bytes;
    for (int code = 1; code < 256; ++code) {  // each alone in a text, line end left out
      bytes += "N. " + QByteArray::number(code).rightJustified(3, '0');
      if (code != '\n' && code != ' ') bytes += " \"" + QByteArray(1, char(code)) + '"';
      bytes += "\r\n";
    }
    Keeps(bytes, 255);
  }

  /// The model takes nothing that no file could hold.
  void ForeignTexts() {
    CamProgram program;
    for (const QString& text : {u"a\nb"_qs, u"\u0416"_qs}) {
      QVERIFY_THROWS_EXCEPTION(std::invalid_argument, program.SetMessageText(1, text));
    }
    QCOMPARE(program.MessageText(1), QString());
  }
};

}  // namespace nira

QTEST_GUILESS_MAIN(nira::MessageFileTest)
#include "MessageFileTest.moc"
