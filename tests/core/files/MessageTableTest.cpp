// SPDX-License-Identifier: Apache-2.0
#include "files/MessageTable.h"
#include "files/ScriptFile.h"
#include "files/TextNumbers.h"
#include "files/WorkingFolder.h"
#include "ground/Text.h"
#include "support/CamFileFixture.h"
#include "support/Tables.h"

#include <QTest>

namespace nira {

/// The byte algorithm that takes a language script apart.
class MessageTableTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Pieces_data() {
    TextTable({"file", "texts"},  // the first five
              {{"quoted", "A\"\r\n\"\"B\"\"\r\n\" C \"\r\n", "A|\"B\"| C ||"},
               {"line 1 keeps its first", "\"A\"\r\n\"B\"\r\n", "\"A|B|||"},
               {"unquoted", "Alpha\r\nBravo\r\nCharlie\r\n", "Alph|rav|harli||"},
               {"LF only", "A\"\n\"B\"\n", "||||"},
               {"one byte", "\r", "||||"},
               {"line 1 empty", "\r\n\"B\"\r\n", "|B|||"},
               {"line of one character", "A\"\r\nX\r\n\"C\"\r\n", "A||C||"},
               {"an empty line takes the next", "A\"\r\n\r\n\"C\"\r\n\"D\"\r\n", "A|\n\"C|D||"},
               {"no last end", "A\"\r\n\"\u20AC\"\r\nx", "A|\u20AC|||"}});
  }

  void Pieces() {
    QFETCH(QString, file);
    QFETCH(QString, texts);
    MessageTable table;
    table.Parse("old\"\r\n\"old\"\r\n\"old\"\r\n\"old\"\r\n\"old\"\r\n\"old\"\r\n");
    table.Parse(ToBytes(file).value());
    QStringList got;
    for (int number = 1; number <= 5; ++number) got.append(table.Text(number));
    QCOMPARE(got.join(u'|'), texts);
    QCOMPARE(table.Text(6), QString());
  }

  void LongFilesAndTexts() {
    std::string file("a\0b\"\r\n\"", 7);
    file += std::string(5000, 'x') + "\"\r\n";
    for (int number = 3; number <= 700; ++number) file += '"' + std::to_string(number) + "\"\r\n";
    MessageTable table;
    table.Parse(file);
    QCOMPARE(table.Text(1), QString::fromLatin1("a\0b", 3));
    QCOMPARE(table.Text(2), QString(MessageTable::MaxText, u'x'));
    for (const int number : {3, 499, 500}) QCOMPARE(table.Text(number), QString::number(number));
    for (const int number : {501, 0, -1}) QCOMPARE(table.Text(number), QString());
  }

  /// A script that is gone from its folder is looked for in the working folder, and what it lacks
  /// is built in.
  void ScriptOfTheOptions() {
    CamFileFixture f;
    const WorkingFolder folder(f.folder.path());
    QVERIFY(WriteBytes(f.Path("Mine.scr"), "A\"\r\n"));
    for (const QString& name : {u"MINE.SCR"_qs, f.Path("Mine.scr"), u"/gone/mine.scr"_qs}) {
      QVERIFY(!ReadScript(f.texts, folder, name));
    }
    for (const QString& name : {QString(), u"none.SCR"_qs, f.folder.path()}) {
      QVERIFY(ReadScript(f.texts, folder, name));
      QCOMPARE(f.texts.Text(TextNumber::MessageFileNotFound), u"A"_qs);
    }
    const int missing = f.texts.Missing();
    QVERIFY(WriteBytes(f.Path("Mine.scr"), ""));
    QVERIFY(f.texts.Read(f.Path("Mine.scr")));
    QCOMPARE(f.texts.Text(1), QString());
    QCOMPARE(f.texts.Text(TextNumber::MessageFileNotFound), u"MESSAGE FILE NOT FOUND"_qs);
    QCOMPARE(f.texts.Missing(), missing + 1);
  }
};

}  // namespace nira

QTEST_APPLESS_MAIN(nira::MessageTableTest)
#include "MessageTableTest.moc"
