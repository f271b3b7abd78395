// SPDX-License-Identifier: Apache-2.0
#include "files/MessageTable.h"
#include "files/ScriptFile.h"
#include "files/TextNumbers.h"
#include "files/WorkingFolder.h"
#include "support/CamFileFixture.h"

#include <QTest>

namespace nira {

/// The byte algorithm that takes a language script apart.
class MessageTableTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Pieces_data() {
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("texts");  // the first five
    const auto row = [](const char* name, const QByteArray& file, const char* texts) {
      QTest::newRow(name) << file << QString::fromLatin1(texts);
    };
    row("quoted, line 1 without the first", "A\"\r\n\"\"B\"\"\r\n\" C \"\r\n", "A|\"B\"| C ||");
    row("line 1 keeps its first", "\"A\"\r\n\"B\"\r\n", "\"A|B|||");
    row("unquoted", "Alpha\r\nBravo\r\nCharlie\r\n", "Alph|rav|harli||");
    row("LF only", "A\"\n\"B\"\n", "||||");
    row("one byte", "\r", "||||");
    row("line 1 empty", "\r\n\"B\"\r\n", "|B|||");
    row("line of one character", "A\"\r\nX\r\n\"C\"\r\n", "A||C||");
    row("an empty line takes the next", "A\"\r\n\r\n\"C\"\r\n\"D\"\r\n", "A|\n\"C|D||");
    row("final CR LF and one more", "A\"\r\n\"B\"\r\nx", "A|B|||");
    row("code page", "\x80\xE8\"\r\n\"\xFF\"\r\n", "?\xE8|\xFF|||");
  }

  void Pieces() {
    QFETCH(QByteArray, file);
    QFETCH(QString, texts);
    MessageTable table;
    table.Parse("old\"\r\n\"old\"\r\n\"old\"\r\n\"old\"\r\n\"old\"\r\n\"old\"\r\n");
    table.Parse(file.toStdString());
    QStringList got;
    for (int number = 1; number <= 5; ++number) got.append(table.Text(number));
    QCOMPARE(got.join(u'|'), texts.replace(u'?', QChar(0x20AC)));
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
