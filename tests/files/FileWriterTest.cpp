#include "files/FileWriter.h"
#include "support/CamFileFixture.h"

#include <QDir>
#include <QTest>

#ifdef Q_OS_LINUX
#include <cerrno>
#include <csignal>
#include <sys/resource.h>
#include <unistd.h>
#endif

namespace nira {

namespace {

using Backup = FileWriter::Backup;

#ifdef Q_OS_LINUX
/// No file can grow beyond some bytes while this lives: a disk that is full.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) {
    std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &old_);
    const rlimit limit{bytes, old_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FullDisk() { setrlimit(RLIMIT_FSIZE, &old_); }

 private:
  rlimit old_{};
};
#endif

}  // namespace

/// Files are replaced whole or not at all, and what is replaced first is kept.
class FileWriterTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void ReplacesAndKeepsTheFirst() {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("press.CAM"));
    const QString kept = path + QStringLiteral(".bak");
    QVERIFY(WriteBytes(path, "before"));
    QVERIFY(WriteBytes(kept, "of an earlier run, and longer"));
    FileWriter writer;
    QCOMPARE(writer.Write(path, "one", Backup::Yes), QString());
    QCOMPARE(ReadBytes(path), QByteArray("one"));
    QCOMPARE(ReadBytes(kept), QByteArray("before"));
    QCOMPARE(writer.Write(path, "two", Backup::Yes), QString());
    QCOMPARE(writer.Write(QDir(folder.path()).filePath(QStringLiteral("./press.CAM")), "three",
                          Backup::Yes),
             QString());
    QCOMPARE(ReadBytes(path), QByteArray("three"));
    QCOMPARE(ReadBytes(kept), QByteArray("before"));
    FileWriter nextRun;
    QCOMPARE(nextRun.Write(path, "four", Backup::Yes), QString());
    QCOMPARE(ReadBytes(kept), QByteArray("three"));
  }

  void KeepsNothingWhereNothingStood() {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("new.CAM"));
    FileWriter writer;
    QCOMPARE(writer.Write(path, "one", Backup::Yes), QString());
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList(QStringLiteral("new.CAM")));
    QCOMPARE(writer.Write(path, "two", Backup::No), QString());
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList(QStringLiteral("new.CAM")));
  }

  void KeepsALargeFile() {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("large.CAM"));
    QByteArray bytes;
    for (int i = 0; bytes.size() < (5 << 19); ++i) bytes += QByteArray::number(i) + "\r\n";
    QVERIFY(WriteBytes(path, bytes));
    FileWriter writer;
    QCOMPARE(writer.Write(path, std::string_view(bytes.constData(), std::size_t(bytes.size()) / 2),
                          Backup::Yes),
             QString());
    QCOMPARE(ReadBytes(path), bytes.left(bytes.size() / 2));
    QCOMPARE(ReadBytes(path + QStringLiteral(".bak")), bytes);
  }

  void FolderGone() {
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("sub/press.CAM"));
    FileWriter writer;
    QVERIFY(!writer.Write(path, "one", Backup::Yes).isEmpty());
    QVERIFY(!QFile::exists(path));
    QVERIFY(!writer.Write(QString(), "one", Backup::Yes).isEmpty());
    QVERIFY(!writer.Write(QString(), "one", Backup::No).isEmpty());
  }

  void TargetIsAFolder() {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("press.CAM"));
    QVERIFY(QDir().mkpath(path + QStringLiteral("/inside")));
    FileWriter writer;
    QVERIFY(!writer.Write(path, "one", Backup::Yes).isEmpty());
    QVERIFY(QFileInfo(path + QStringLiteral("/inside")).isDir());
    QCOMPARE(QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList(QStringLiteral("press.CAM")));
  }

  /// What cannot be kept is not overwritten.
  void BackupCannotBeWritten() {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("press.CAM"));
    QVERIFY(WriteBytes(path, "before"));
    QVERIFY(QDir().mkpath(path + QStringLiteral(".bak")));
    FileWriter writer;
    QVERIFY(!writer.Write(path, "one", Backup::Yes).isEmpty());
    QCOMPARE(ReadBytes(path), QByteArray("before"));
    QVERIFY(QDir().rmdir(path + QStringLiteral(".bak")));
    QCOMPARE(writer.Write(path, "one", Backup::Yes), QString());
    QCOMPARE(ReadBytes(path + QStringLiteral(".bak")), QByteArray("before"));
  }

#ifdef Q_OS_LINUX
  void DiskFull_data() {
    QTest::addColumn<int>("oldSize");
    QTest::addColumn<int>("newSize");
    QTest::addColumn<bool>("backup");
    QTest::newRow("small") << 10 << 1000 << false;
    QTest::newRow("large") << 10 << (3 << 20) << false;
    QTest::newRow("small, kept before") << 10 << 1000 << true;
    QTest::newRow("small backup") << 1000 << 10 << true;
    QTest::newRow("large backup") << (3 << 20) << 10 << true;
  }

  void DiskFull() {
    QFETCH(int, oldSize);
    QFETCH(int, newSize);
    QFETCH(bool, backup);
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("press.CAM"));
    const QByteArray old(oldSize, 'o');
    const std::string bytes(std::size_t(newSize), 'n');
    QVERIFY(WriteBytes(path, old));
    FileWriter writer;
    QString reason;
    {
      const FullDisk disk(100);
      reason = writer.Write(path, bytes, backup ? Backup::Yes : Backup::No);
    }
    QVERIFY2(reason.endsWith(qt_error_string(EFBIG)), qPrintable(reason));
    QVERIFY(ReadBytes(path) == old);
    const QStringList left = QDir(folder.path()).entryList(QDir::Files | QDir::Hidden);
    QVERIFY2(left.size() == 1 || (backup && oldSize <= 100 && left.size() == 2),
             qPrintable(left.join(u' ')));
    // With room again the save succeeds, and what is kept is the file from before the failure.
    QCOMPARE(writer.Write(path, bytes, Backup::Yes), QString());
    QVERIFY(ReadBytes(path) == QByteArray::fromStdString(bytes));
    QVERIFY(ReadBytes(path + QStringLiteral(".bak")) == old);
  }

  void NoPermission() {
    if (geteuid() == 0) QSKIP("root may write everywhere");
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("press.CAM"));
    QVERIFY(WriteBytes(path, "before"));
    FileWriter writer;
    QVERIFY(QFile::setPermissions(path, QFile::ReadOwner));
    QVERIFY(!writer.Write(path, "one", Backup::No).isEmpty());
    QCOMPARE(ReadBytes(path), QByteArray("before"));
    QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner));
    QVERIFY(QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::ExeOwner));
    for (const Backup backup : {Backup::No, Backup::Yes}) {
      QCOMPARE(writer.Write(path, "one", backup), qt_error_string(EACCES));
      QCOMPARE(ReadBytes(path), QByteArray("before"));
    }
    QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  }
#endif

  void SavesThroughTheCamFile() {
    CamFileFixture f;
    QVERIFY(!f.file.SaveCamFile().isEmpty());  // no name yet
    f.globals.CurrentFile = f.Path("press.CAM");
    QVERIFY(WriteBytes(f.globals.CurrentFile, "before"));
    f.program.IsSaved = false;
    QCOMPARE(f.file.SaveCamFile(), QString());
    QCOMPARE(ReadBytes(f.globals.CurrentFile), PlainHead() + " FORMATO N. 01\r\nEND\r\n");
    QCOMPARE(ReadBytes(f.Path("press.CAM.bak")), QByteArray("before"));
    QVERIFY(!f.program.IsSaved);
  }
};

}  // namespace nira

QTEST_APPLESS_MAIN(nira::FileWriterTest)
#include "FileWriterTest.moc"
