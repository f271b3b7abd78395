#include "app/CommandLine.h"
#include "support/CamFileFixture.h"

#include <QTest>

namespace nira {

using namespace Qt::StringLiterals;

/// kplctl print, by its command line.
class PrintCommandTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Prints_data() {
    QTest::addColumn<QString>("options");
    QTest::addColumn<int>("status");
    QTest::addColumn<int>("pages");  // none: no file is written
    QTest::addColumn<QString>("said");
    const QString usage = u"Usage: kplctl print"_qs;
    QTest::newRow("all") << u""_qs << 0 << 22 << u"out.pdf: written: 22 pages\n"_qs;
    QTest::newRow("some") << u"--sizes 2-4"_qs << 0 << 3 << u"out.pdf: written: 3 pages\n"_qs;
    QTest::newRow("one") << u"--sizes 22 --no-functions --paper letter"_qs << 0 << 1
                         << u"out.pdf: written: 1 page\n"_qs;
    QTest::newRow("flowing") << u"--flowing --no-diagram --no-functions"_qs << 0 << 11
                             << u"out.pdf: written: 11 pages\n"_qs;
    for (const char* range : {"0", "23", "4-2", "1-23", "999999999"}) {
      QTest::addRow("out of range %s", range)
          << u"--sizes "_qs + QLatin1String(range) << 1 << 0
          << u"kplctl: --sizes "_qs + QLatin1String(range) + u" is out of range: 1-22\n"_qs;
    }
    for (const char* wrong : {"--sizes=", "--sizes=a", "--sizes=1-", "--sizes=-3", "--sizes=1-2-3",
                              "--sizes=99999999999", "--paper=A5", "--size=1", "more.pdf"}) {
      QTest::newRow(wrong) << QString::fromLatin1(wrong) << 2 << 0 << usage;
    }
  }

  void Prints() {
    QFETCH(QString, options);
    QFETCH(int, status);
    QFETCH(int, pages);
    QFETCH(QString, said);
    const QTemporaryDir folder;
    const QString in = folder.filePath(u"in.cam"_qs);
    const QString to = folder.filePath(u"out.pdf"_qs);
    QVERIFY(QFile::copy(QStringLiteral(NIRA_SOURCE_FOLDER "/samples/press.CAM"), in));
    QString output;
    QTextStream stream(&output);
    const QStringList line{u"kplctl"_qs, u"print"_qs, in, to};
    QCOMPARE(RunKplctl(line + options.split(u' ', Qt::SkipEmptyParts), stream, stream), status);
    QVERIFY2(output.contains(said), qPrintable(output));
    QCOMPARE(QFile::exists(to), pages > 0);
    if (pages > 0) QCOMPARE(ReadBytes(to).count("/Type /Page\n"), pages);
  }

  /// A file that stands there is asked about, and the program itself is never replaced.
  void Replacing() {
    const QTemporaryDir folder;
    const QString in = folder.filePath(u"in.cam"_qs);
    const QString to = folder.filePath(u"out.pdf"_qs);
    const QByteArray program = PlainHead() + " FORMATO N. 01\r\nEND\r\n";
    QVERIFY(WriteBytes(in, program) && WriteBytes(to, "old"));
    QString output;
    QTextStream stream(&output);
    QCOMPARE(RunKplctl({u"kplctl"_qs, u"print"_qs, in, to}, stream, stream), 1);
    QCOMPARE(ReadBytes(to), QByteArray("old"));
    QCOMPARE(RunKplctl({u"kplctl"_qs, u"print"_qs, in, in, u"--yes"_qs}, stream, stream), 1);
    QCOMPARE(ReadBytes(in), program);
    QCOMPARE(RunKplctl({u"kplctl"_qs, u"print"_qs, in, to, u"--yes"_qs}, stream, stream), 0);
    QVERIFY(ReadBytes(to).startsWith("%PDF-"));
  }
};

}  // namespace nira

QTEST_MAIN(nira::PrintCommandTest)
#include "PrintCommandTest.moc"
