// SPDX-License-Identifier: Apache-2.0
#include "messages/MessageFile.h"
#include "support/CamFileFixture.h"

#include <QDir>
#include <QTest>

namespace nira {

using namespace Qt::StringLiterals;

namespace {

using Reading = MessageFile::Reading;

/// Messages and what reads and writes them, in a folder of its own, with the Italian texts.
struct Place {
  explicit Place(int messages = 4) {
    program.SetLimits(22, 32, messages);
    if (!texts.Read(QStringLiteral(NIRA_SOURCE_FOLDER "/lang/p32qx_IT.SCR"))) qFatal("no script");
    globals.MsgFile = path;
  }

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

  QTemporaryDir temporary;
  QString path = temporary.filePath(u"in.MSG"_qs);
  WorkingFolder folder{temporary.path()};
  CamProgram program;
  Globals globals;
  ScriptedPrompts prompts;
  MessageTable texts;
  FileWriter writer;
  MessageFile file{program, globals, folder, prompts, texts, writer};
};

}  // namespace

/// What comes from a message file into the program, and back.
class MessageFileTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Read_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("cleared");
    QTest::addColumn<QString>("kept");
    const auto row = [](const char* name, const QByteArray& bytes, const QString& cleared,
                        const QString& kept) { QTest::newRow(name) << bytes << cleared << kept; };
    row("written form", "N. 001 \"ONE\"\r\nN. 002\r\nN. 003 \" C \"\r\nN. 004\r\n",
        u"ONE| | C | "_qs, u"ONE|b| C |d"_qs);
    row("by position", "N. 009 \"X\"\r\nN. 001 \"Y\"\r\n", u"X|Y||"_qs, u"X|Y|c|d"_qs);
    row("LF, no last end", "N. 001 \"X\"\nN. 002 \"Y\"", u"X|Y||"_qs, u"X|Y|c|d"_qs);
    row("lines that are none", "n. 001 \"X\"\r\n\r\n N. 003 \"Z\"\r\nEND\r\n", u"|||"_qs,
        u"a|b|c|d"_qs);
    row("quotes", "N\"A\"B\"\r\nN\"\r\nN\"ABC\r\nN x\r\n", u"A\"B||AB| "_qs, u"A\"B||AB|d"_qs);
    row("more lines", QByteArray("N. 001 \"X\"\r\n").repeated(9), u"X|X|X|X"_qs, u"X|X|X|X"_qs);
    row("empty file", "", u"|||"_qs, u"a|b|c|d"_qs);
    row("all over", QByteArray("N\"\0\x01\x80\x81\r\xFF\"\r\n", 11),
        u"\0\x01\u20AC\u0081\r\u00FF|||"_qs, u"\0\x01\u20AC\u0081\r\u00FF|b|c|d"_qs);
    row("too long for the display", "N\"" + QByteArray(997, 'A') + "\"",
        QString(997, u'A') + u"|||"_qs, QString(997, u'A') + u"|b|c|d"_qs);
  }

  void Read() {
    QFETCH(QByteArray, bytes);
    Place p;
    QVERIFY(WriteBytes(p.path, bytes));
    p.SetMessages(u"a|b|c|d|beyond"_qs);
    QVERIFY(p.file.ReadTexts(p.path, Reading::Keeping));
    QTEST(p.Messages(), "kept");
    p.SetMessages(u"a|b|c|d"_qs);
    QVERIFY(p.file.ReadMsgFile());
    QTEST(p.Messages(), "cleared");
    QCOMPARE(p.program.MessageText(5), u"beyond"_qs);
  }

  void Refused_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("told");
    QTest::newRow("missing") << QByteArray() << u"Exclamation Ok: FILE MESSAGGI NON TROVATO"_qs;
    QTest::newRow("folder") << QByteArray()
                            << u"Critical Ok: IMPOSSIBILE LEGGERE IL FILE\n%1\nis not a file"_qs;
    for (const int length : {998, 3'000'000}) {
      QTest::addRow("line of %d", length + 3)
          << "N\"X\"\r\nN\"" + QByteArray(length, 'A') + "\"\r\nN\"Y\""
          << u"Exclamation Ok: %1 FILE O FORMATO NON VALIDO !"_qs;
    }
  }

  /// What cannot be read changes nothing.
  void Refused() {
    QFETCH(QByteArray, bytes);
    QFETCH(QString, told);
    Place p;
    if (!bytes.isEmpty()) QVERIFY(WriteBytes(p.path, bytes));
    if (told.contains(u"not a file"_qs)) QVERIFY(QDir().mkpath(p.path));
    p.SetMessages(u"a|b|c|d"_qs);
    p.globals.MsgSaved = false;
    p.prompts.Expect();
    QVERIFY(!p.file.ReadMsgFile());
    QCOMPARE(p.prompts.Shown(), QStringList(told.contains(u'%') ? told.arg(p.path) : told));
    QCOMPARE(p.Messages(), u"a|b|c|d"_qs);
    QVERIFY(!p.globals.MsgSaved);
  }

  void OpenedAndSaved_data() {
    QTest::addColumn<QString>("sample");
    QTest::addColumn<int>("messages");
    QTest::newRow("Italian") << u"press_IT.MSG"_qs << 255;
    QTest::newRow("English") << u"press_EN.MSG"_qs << 180;
    QTest::newRow("every code") << QString() << 255;
  }

  /// Opening and saving changes no byte.
  void OpenedAndSaved() {
    QFETCH(QString, sample);
    QFETCH(int, messages);
    Place p(messages);
    QByteArray bytes = ReadBytes(QStringLiteral(NIRA_SOURCE_FOLDER "/samples/") + sample);
    if (sample.isEmpty()) {
      bytes.clear();
      for (int code = 1; code < 256; ++code) {  // alone in a text, "\n" left out
        bytes += "N. " + QByteArray::number(code).rightJustified(3, '0');
        if (code != '\n' && code != ' ') bytes += " \"" + QByteArray(1, char(code)) + '"';
        bytes += "\r\n";
      }
    }
    QVERIFY(WriteBytes(p.path, bytes));
    QVERIFY(p.file.ReadMsgFile());
    p.prompts.Expect(Answer::Yes);
    QVERIFY(p.file.WriteMsgFile());
    QCOMPARE(ReadBytes(p.path), bytes);
    if (sample.isEmpty()) return;
    for (int n = 1; n <= messages; ++n) {
      const QString& text = p.program.MessageText(n);
      QVERIFY2(text.size() > 20 && text.size() <= 40 && text.at(20) != u' ', qPrintable(text));
    }
  }

  void Written() {
    Place p;
    p.SetMessages(u"ONE"_qs);
    QVERIFY(WriteBytes(p.path, "old"));
    p.globals.MsgSaved = false;
    for (const Answer answer : {Answer::No, Answer::Yes}) {
      p.prompts.Expect(answer);
      QCOMPARE(p.file.WriteMsgFile(), answer == Answer::Yes);
      QCOMPARE(p.globals.MsgSaved, answer == Answer::Yes);
      QCOMPARE(ReadBytes(p.path).startsWith("N. 001 \"ONE\"\r\n"), answer == Answer::Yes);
    }
    QCOMPARE(p.prompts.Shown().at(0), u"Exclamation YesNo: SOVRASCRIVERE FILE in.MSG"_qs);
    QCOMPARE(ReadBytes(p.path + u".bak"), QByteArray("old"));
    p.globals.MsgFile = p.temporary.filePath(u"gone/a.MSG"_qs);
    p.globals.MsgSaved = false;
    p.prompts.Expect();
    QVERIFY(!p.file.WriteMsgFile());
    QVERIFY(p.prompts.Shown().constLast().startsWith(
        u"Critical Ok: IMPOSSIBILE SCRIVERE IL FILE\n"_qs + p.globals.MsgFile));
    QVERIFY(!p.globals.MsgSaved);
  }

  /// The work file is written without a word and without a copy, and the operator's stays the one.
  void WorkFile() {
    Place p;
    p.SetMessages(u"ONE"_qs);
    for (const bool saved : {true, false}) {
      QVERIFY(WriteBytes(p.file.WorkPath(), "old"));
      p.globals.MsgSaved = saved;
      QVERIFY(p.file.WriteWorkFile());
      QCOMPARE(p.globals.MsgSaved, saved);
    }
    QCOMPARE(QDir(p.temporary.path()).entryList(QDir::Files), QStringList(u"~.~"_qs));
    p.SetMessages(u"||THREE|"_qs);
    p.globals.MsgSaved = true;
    QVERIFY(p.file.ReadWorkFile());
    QCOMPARE(p.Messages(), u"ONE| | | "_qs);
    QVERIFY(!p.globals.MsgSaved);
    QCOMPARE(p.globals.MsgFile, p.path);
    QVERIFY(QFile::remove(p.file.WorkPath()));
    p.globals.MsgSaved = true;
    p.prompts.Expect();
    QVERIFY(!p.file.ReadWorkFile());
    QVERIFY(p.globals.MsgSaved);
  }

  /// The model takes nothing that no file could hold.
  void ForeignTexts() {
    CamProgram program;
    for (const QString& text : {u"a\nb"_qs, u"\u0416"_qs}) {
      QVERIFY_EXCEPTION_THROWN(program.SetMessageText(1, text), std::invalid_argument);
    }
    QCOMPARE(program.MessageText(1), QString());
  }
};

}  // namespace nira

QTEST_GUILESS_MAIN(nira::MessageFileTest)
#include "MessageFileTest.moc"
