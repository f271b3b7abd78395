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

  void ScriptsHoldTheTable() {
    for (const char* name : {"lang/p32qx_IT.SCR", "lang/p32qx_EN.SCR"}) {
      const int language = QByteArray(name).contains("EN") ? 1 : 0;
      MessageTable table;
      QVERIFY(table.Read(SourcePath(name)));
      for (int number = 1; number <= MessageTable::Count; ++number) {
        const QString expected = rows_.value(number).value(language);
        QVERIFY2(table.Text(number) == expected,
                 qPrintable(QString::number(number) + u" is \"" + table.Text(number) + u'"'));
        QVERIFY(!names_.contains(number) || !expected.trimmed().isEmpty());
      }
      const QByteArray bytes = ReadBytes(SourcePath(name));
      QCOMPARE(bytes.count("\"\r\n"), rows_.lastKey());
      for (const char c : QByteArray("\0\t\x81\x8D\x8F\x90\x9D", 7)) QVERIFY(!bytes.contains(c));
    }
  }

 private:
  QMap<int, QString> names_;
  QMap<int, QStringList> rows_;  // Italian, English
};

}  // namespace nira

QTEST_APPLESS_MAIN(nira::ScriptsTest)
#include "ScriptsTest.moc"
