// SPDX-License-Identifier: Apache-2.0
#include "CommandLine.h"
#include "support/CamFileFixture.h"

#include <QTest>

namespace nira {

using namespace Qt::StringLiterals;

/// Message files without windows.
class MessagesCommandTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Check_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("told");
    const auto row = [](const QByteArray& bytes, const char* told) {
      QTest::newRow(told) << bytes << QString(told);
    };
    row("N. 001 \"A\"\r\nN. 002\nN. 003 \" \"\r\nEND\r\n", ": good: 3 messages, 1 with text");
    row("N 001\"A\"\r\nN 002\"\"\r\nEND\r\n", ": good: 2 messages, 1 with text");
    row("N 001\"\r\n", ":1: fault: no closing double quote");
    row("N. 001\r\n\x1B[2J\r\n", ":2: fault: no message line: found \uFFFD[2J");
    row("N. 001\r\nN. 003\r\n", ":2: fault: the line of message 2 begins with N. 003");
    row("N. 001 A\r\n", ":1: fault: no double quote after the number: found  A");
    row("N. 001 \"A\r\n", ":1: fault: no closing double quote");
    row("N. 001 \"" + QByteArray(41, 'A') + "\"", ":1: fault: a text of 41 characters");
    row("N. 001 \"\x81\x7F\"",
        ":1: fault: character 2 of the text is a control character, code 127");
    row("N. 001\r\n" + QByteArray(1001, 'N'), ":2: fault: a line of more than 1000 bytes");
    QByteArray many;
    for (int n = 1; n <= 256; ++n)
      many += "N. " + QByteArray::number(n).rightJustified(3, '0') + "\n";
    row(many, ":256: fault: more than 255 messages");
  }

  void Check() {
    QFETCH(QByteArray, bytes);
    QFETCH(QString, told);
    CamFileFixture f;
    const QString path = f.Path("a.msg");
    QVERIFY(WriteBytes(path, bytes));
    QString printed;
    QTextStream out(&printed);
    for (const QStringList& command : {QStringList{u"check"_qs}, {u"messages"_qs, u"check"_qs}}) {
      printed.clear();
      const QStringList line = QStringList{u"kplctl"_qs} + command + QStringList{path};
      QCOMPARE(RunKplctl(line, out, out), told.contains(u"fault"_qs) ? 1 : 0);
      out.flush();
      QVERIFY2(printed.startsWith(path + told), qPrintable(printed));
    }
  }

  void List() {
    CamFileFixture f;
    QString printed;
    QString errors;
    QTextStream out(&printed);
    QTextStream err(&errors);
    QVERIFY(
        WriteBytes(f.Path("a.msg"), "N. 001\r\nN. 009 \"B\x80\"\r\nX \"C\"\r\nN. 004 \" \"\r\n"));
    const auto list = [&](const char* file) {
      return RunKplctl({u"kplctl"_qs, u"messages"_qs, u"list"_qs, f.Path(file)}, out, err);
    };
    QCOMPARE(list("a.msg"), 0);
    QCOMPARE(list("none.msg"), 1);
    QCOMPARE(RunKplctl({u"kplctl"_qs, u"messages"_qs, u"sort"_qs, f.Path("a.msg")}, out, err), 2);
    out.flush();
    err.flush();
    QCOMPARE(printed, u"002 B\u20AC\n"_qs);
    QVERIFY(errors.startsWith(f.Path("none.msg") + u": fault: "_qs));
  }
};

}  // namespace nira

QTEST_GUILESS_MAIN(nira::MessagesCommandTest)
#include "MessagesCommandTest.moc"
