// SPDX-License-Identifier: Apache-2.0
#include "support/CamFileFixture.h"
#include "support/Kplctl.h"
#include "support/Tables.h"

#include <QProcess>
#include <QTest>

namespace nira {

using namespace Qt::StringLiterals;

/// kplctl print, by its command line.
class PrintCommandTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  /// Nothing is written where no pages are named.
  void Prints_data() {
    const char* usage = "\nkplctl print --help tells more\n";
    const char* range = " is out of range: 1-22\n";
    TextTable({"options", "status", "pages", "said"},
              {{"all", "", "0", "23", "out.pdf: written: 23 pages\n"},
               {"one", "--sizes 22 --no-functions --paper letter", "0", "1", "written: 1 page\n"},
               {"flowing", "--flowing --no-diagram --no-functions", "0", "11", "11 pages\n"},
               {"none", "--sizes 0", "1", "0", range},
               {"backwards", "--sizes 4-2", "1", "0", range},
               {"beyond", "--sizes 1-23", "1", "0", range},
               {"half a range", "--sizes=1-", "2", "0", usage},
               {"paper", "--paper=A5", "2", "0", usage},
               {"a word more", "more.pdf", "2", "0", usage}});
  }

  void Prints() {
    QFETCH(QString, options);
    QFETCH(QString, status);
    QFETCH(QString, pages);
    QFETCH(QString, said);
    const QTemporaryDir folder;
    const QString in = folder.filePath(u"in.cam"_qs);
    const QString to = folder.filePath(u"out.pdf"_qs);
    QVERIFY(QFile::copy(Sample("press.CAM"), in));
    const Ran ran =
        Kplctl(QStringList{u"print"_qs, in, to} + options.split(u' ', Qt::SkipEmptyParts));
    QCOMPARE(ran.status, status.toInt());
    const QString printed = ran.out + ran.err;
    QVERIFY2(printed.contains(said), qPrintable(printed));
    QCOMPARE(QFile::exists(to), pages != u"0"_qs);
    if (QFile::exists(to)) QCOMPARE(ReadBytes(to).count("/Type /Page\n"), pages.toInt());
  }

  /// The program itself, without a display and a session: it draws, and says nothing of its own.
  void FromTheShell() {
    const QTemporaryDir folder;
    QVERIFY(WriteBytes(folder.filePath(u"in.cam"_qs),
                       PlainHead() + " FORMATO N. 01\r\nC 01\r\n 010 020\r\nEND\r\n"));
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"DISPLAY", "XDG_RUNTIME_DIR", "QT_QPA_PLATFORM"}) {
      environment.remove(QString::fromLatin1(name));
    }
    process.setProcessEnvironment(environment);
    process.start(
        QCoreApplication::applicationDirPath() + u"/kplctl",
        {u"--yes"_qs, u"print"_qs, folder.filePath(u"in.cam"_qs), folder.filePath(u"out.pdf"_qs)});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 0);
    QCOMPARE(process.readAllStandardError(), QByteArray());
    QVERIFY(QFile::exists(folder.filePath(u"out.pdf"_qs)));
  }

  /// A file that stands there is asked about, and the program itself is never replaced.
  void Replacing() {
    const QTemporaryDir folder;
    const QString in = folder.filePath(u"in.cam"_qs);
    const QString to = folder.filePath(u"out.pdf"_qs);
    const QByteArray program = PlainHead() + " FORMATO N. 01\r\nEND\r\n";
    QVERIFY(WriteBytes(in, program) && WriteBytes(to, "old"));
    QCOMPARE(Kplctl({u"print"_qs, in, to}).status, 1);
    QCOMPARE(ReadBytes(to), QByteArray("old"));
    QCOMPARE(Kplctl({u"print"_qs, in, in, u"--yes"_qs}).status, 1);
    QCOMPARE(ReadBytes(in), program);
    QCOMPARE(Kplctl({u"print"_qs, in, to, u"--yes"_qs}).status, 0);
    QVERIFY(ReadBytes(to).startsWith("%PDF-"));
  }
};

}  // namespace nira

QTEST_MAIN(nira::PrintCommandTest)
#include "PrintCommandTest.moc"
