// SPDX-License-Identifier: Apache-2.0
#include "support/CamFileFixture.h"
#include "support/Kplctl.h"

#include <QTest>

namespace nira {

using namespace Qt::StringLiterals;

/// Message files without windows.
class MessagesCommandTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Check() {
    QByteArray many;
    for (int n = 1; n <= 256; ++n) {
      many += "N. " + QByteArray::number(n).rightJustified(3, '0') + "\n";
    }
    CamFileFixture f;
    const QString path = f.Path("a.msg");
    for (const auto& [bytes, told] : std::initializer_list<std::pair<QByteArray, QString>>{
             {"N. 001 \"A\"\r\nN. 002\nN. 003 \" \"\r\nEND\r\n",
              u"good: 3 messages, 1 with text"_qs},
             {"N 001\"A\"\r\nN 002\"\"\r\nEND\r\n", u"good: 2 messages, 1 with text"_qs},
             {"N 001\"\r\n", u"no closing double quote"_qs},
             {"N. 001\r\n\x1B[2J\r\n", u"no message line: found \uFFFD[2J"_qs},
             {"N. 001\r\nN. 003\r\n", u"the line of message 2 begins with N. 003"_qs},
             {"N. 001 \"" + QByteArray(41, 'A') + "\"", u"a text of 41 characters"_qs},
             {"N. 001 \"\x81\x7F\"",
              u"character 2 of the text is a control character, code 127"_qs},
             {many, u"more than 255 messages"_qs}}) {
      QVERIFY(WriteBytes(path, bytes));
      const bool good = told.startsWith(u"good"_qs);
      const QString line = QString::number(bytes.contains("1\r\n") ? 2 : bytes == many ? 256 : 1);
      for (const QStringList& command : {QStringList{u"check"_qs}, {u"messages"_qs, u"check"_qs}}) {
        const Ran ran = Kplctl(command + QStringList{path});
        QCOMPARE(ran.status, good ? 0 : 1);
        const QString printed = ran.out + ran.err;
        const QString place = good ? u": "_qs : u':' + line + u": fault: ";
        QVERIFY2(printed.startsWith(path + place + told), qPrintable(printed));
      }
    }
  }

  void List() {
    CamFileFixture f;
    QVERIFY(
        WriteBytes(f.Path("a.msg"), "N. 001\r\nN. 009 \"B\x80\"\r\nX \"C\"\r\nN. 004 \" \"\r\n"));
    const Ran ran = Kplctl({u"messages"_qs, u"list"_qs, f.Path("a.msg")});
    QCOMPARE(ran.status, 0);
    QCOMPARE(ran.out, u"002 B\u20AC\n"_qs);
    const Ran none = Kplctl({u"messages"_qs, u"list"_qs, f.Path("none.msg")});
    QCOMPARE(none.status, 1);
    QVERIFY(none.err.startsWith(f.Path("none.msg") + u": fault: "_qs));
    QCOMPARE(Kplctl({u"messages"_qs, u"sort"_qs, f.Path("a.msg")}).status, 2);
  }
};

}  // namespace nira

QTEST_GUILESS_MAIN(nira::MessagesCommandTest)
#include "MessagesCommandTest.moc"
