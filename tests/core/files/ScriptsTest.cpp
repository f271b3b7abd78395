// SPDX-License-Identifier: Apache-2.0
#include "files/MessageTable.h"
#include "ground/Text.h"
#include "support/CamFileFixture.h"

#include <QMap>
#include <QRegularExpression>
#include <QTest>

namespace nira {

namespace {

QString SourcePath(const char* name) {
  return QStringLiteral(NIRA_SOURCE_FOLDER "/") + QString::fromLatin1(name);
}

}  // namespace

/// The scripts that come with the program, their table and the numbers in the code: one set.
class ScriptsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() {
    const QString source = QString::fromUtf8(ReadBytes(SourcePath("src/core/files/TextNumbers.h")));
    static const QRegularExpression entry(u"^\\s*(\\w+) = (\\d+),"_qs,
                                          QRegularExpression::MultilineOption);
    for (auto found = entry.globalMatch(source); found.hasNext();) {
      const auto match = found.next();
      const int number = match.captured(2).toInt();
      QVERIFY2(!names_.contains(number), qPrintable(match.captured(1) + u" has a used number"));
      names_[number] = match.captured(1);
    }
    // An entry without a number of its own would escape the pattern.
    QCOMPARE(names_.size(), source.section(u'{', 2).section(u'}', 0, 0).count(u','));

    static const QRegularExpression row(u"^\\| *(\\d+) \\| (.+) \\| `(.+)` \\| `(.+)` \\|$"_qs);
    for (const QString& line :
         QString::fromUtf8(ReadBytes(SourcePath("docs/texts.md"))).split(u'\n')) {
      if (!line.startsWith(u'|') || line.contains(u"| number") || line.startsWith(u"|--")) continue;
      const auto match = row.match(line);
      QVERIFY2(match.hasMatch(), qPrintable(line));
      const int number = match.captured(1).toInt();
      QVERIFY2(!rows_.contains(number), qPrintable(line));
      rows_[number] = {match.captured(3), match.captured(4)};
    }
  }

  void EveryNumberHasARow() { QCOMPARE(rows_.keys(), names_.keys()); }

  void ScriptHoldsTheTable_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("language");
    QTest::newRow("Italian") << SourcePath("lang/p32qx_IT.SCR") << 0;
    QTest::newRow("English") << SourcePath("lang/p32qx_EN.SCR") << 1;
  }

  void ScriptHoldsTheTable() {
    QFETCH(QString, path);
    QFETCH(int, language);
    MessageTable table;
    QVERIFY(table.Read(path));
    for (int number = 1; number <= MessageTable::Count; ++number) {
      const QString expected = rows_.value(number).value(language);
      QVERIFY2(table.Text(number) == expected,
               qPrintable(QString::number(number) + u" is \"" + table.Text(number) + u'"'));
      QVERIFY(!names_.contains(number) || !table.Text(number).trimmed().isEmpty());
    }
    const QByteArray bytes = ReadBytes(path);
    QVERIFY(bytes.endsWith("\"\r\n"));
    QCOMPARE(bytes.count('\r'), bytes.count("\r\n"));
    QCOMPARE(bytes.count('\n'), bytes.count("\r\n"));
    for (const char c : QByteArray("\0\t\x81\x8D\x8F\x90\x9D", 7)) QVERIFY(!bytes.contains(c));
    QByteArrayList lines = bytes.chopped(2).split('\n');
    QCOMPARE(lines.size(), rows_.lastKey());
    lines[0].prepend('"');
    for (QByteArray& line : lines) {
      if (line.endsWith('\r')) line.chop(1);
      QVERIFY2(line.startsWith('"') && line.endsWith('"') && line.count('"') == 2,
               line.constData());
    }
  }

 private:
  QMap<int, QString> names_;
  QMap<int, QStringList> rows_;  // Italian, English
};

}  // namespace nira

QTEST_APPLESS_MAIN(nira::ScriptsTest)
#include "ScriptsTest.moc"
