// SPDX-License-Identifier: Apache-2.0
#include "CommandLine.h"
#include "support/CamFileFixture.h"

#include <QProcess>
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
    const QString usage = u"\nkplctl print --help tells more\n"_qs;
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

  void FromTheShell_data() {
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("status");
    QTest::newRow("plain") << u"print @/in.cam @/out.pdf"_qs << 0;
    QTest::newRow("option first") << u"--yes print @/in.cam @/out.pdf"_qs << 0;
    QTest::newRow("dashes first") << u"-- print @/in.cam @/out.pdf"_qs << 0;
    QTest::newRow("no option of ours") << u"print @/in.cam @/out.pdf -platform foo"_qs << 2;
    QTest::newRow("no option at all") << u"-platform foo print @/in.cam @/out.pdf"_qs << 2;
    QTest::newRow("nothing to print") << u"print --help"_qs << 0;
  }

  /// The program itself, without a display and a session: it draws, and says nothing of its own.
  void FromTheShell() {
    QFETCH(QString, line);
    QFETCH(int, status);
    const QTemporaryDir folder;
    QVERIFY(WriteBytes(folder.filePath(u"in.cam"_qs),
                       PlainHead() + " FORMATO N. 01\r\nC 01\r\n 010 020\r\nEND\r\n"));
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"DISPLAY", "XDG_RUNTIME_DIR", "QT_QPA_PLATFORM"}) {
      environment.remove(QString::fromLatin1(name));
    }
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationDirPath() + u"/kplctl",
                  line.replace(u'@', folder.path()).split(u' '));
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), status);
    QCOMPARE(process.readAllStandardError().isEmpty(), status == 0);
    const bool prints = status == 0 && !line.endsWith(u"--help"_qs);
    QCOMPARE(QFile::exists(folder.filePath(u"out.pdf"_qs)), prints);
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
