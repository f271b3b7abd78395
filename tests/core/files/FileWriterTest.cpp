// SPDX-License-Identifier: Apache-2.0
#include "files/FileWriter.h"
#include "support/CamFileFixture.h"

#include <QDir>
#include <QTest>

#ifdef Q_OS_LINUX
#include <cerrno>
#include <csignal>
#include <sys/resource.h>
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

struct Place {
  QTemporaryDir folder;
  QString path = folder.filePath(u"press.CAM"_qs);
  QString kept = path + u".bak"_qs;
  FileWriter writer;
};

}  // namespace

/// Files are replaced whole or not at all, and what is replaced first is kept.
class FileWriterTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void ReplacesAndKeepsTheFirst() {
    Place p;
    QVERIFY(WriteBytes(p.path, "before"));
    QVERIFY(WriteBytes(p.kept, "of an earlier run, and longer"));
    for (const QString& path : {p.path, QString(p.folder.path() + u"/./press.CAM")}) {
      QVERIFY(!p.writer.Write(path, "one", Backup::Yes));
      QCOMPARE(ReadBytes(p.path), QByteArray("one"));
      QCOMPARE(ReadBytes(p.kept), QByteArray("before"));
    }
    FileWriter nextRun;
    QVERIFY(!nextRun.Write(p.path, "four", Backup::Yes));
    QCOMPARE(ReadBytes(p.kept), QByteArray("one"));
  }

  /// What cannot be kept is not overwritten.
  void BackupCannotBeWritten() {
    Place p;
    QVERIFY(WriteBytes(p.path, "before"));
    QVERIFY(QDir().mkpath(p.kept));
    QVERIFY(p.writer.Write(p.path, "one", Backup::Yes));
    QCOMPARE(ReadBytes(p.path), QByteArray("before"));
    QVERIFY(QDir().rmdir(p.kept));
    QVERIFY(!p.writer.Write(p.path, "one", Backup::Yes));
    QCOMPARE(ReadBytes(p.kept), QByteArray("before"));
  }

  void PathsThatAreNoFile() {
    Place p;
    QVERIFY(QDir().mkpath(p.path + u"/inside"_qs));
    for (const QString& path : {p.path, p.folder.filePath(u"gone/press.CAM"_qs), QString()}) {
      for (const Backup backup : {Backup::No, Backup::Yes}) {
        QVERIFY(p.writer.Write(path, "one", backup));
        QCOMPARE(QDir(p.folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                 QStringList(u"press.CAM"_qs));
      }
    }
  }

#ifdef Q_OS_LINUX
  /// While the new file is written, and while the old one is kept.
  void DiskFull() {
    for (const auto& [oldSize, newSize] : {std::pair(10, 3 << 20), {3 << 20, 10}}) {
      Place p;
      const QByteArray old(oldSize, 'o');
      const std::string bytes(std::size_t(newSize), 'n');
      QVERIFY(WriteBytes(p.path, old));
      QString reason;
      {
        const FullDisk disk(100);
        reason = p.writer.Write(p.path, bytes, Backup::Yes).value_or(Fault()).Text;
      }
      QVERIFY2(reason.endsWith(qt_error_string(EFBIG)), qPrintable(reason));
      QVERIFY(ReadBytes(p.path) == old);
      const QStringList left = QDir(p.folder.path()).entryList(QDir::Files | QDir::Hidden);
      QVERIFY2(left.size() == (oldSize > 100 ? 1 : 2), qPrintable(left.join(u' ')));
      // With room again the save succeeds, and what is kept is the file before the failure.
      QVERIFY(!p.writer.Write(p.path, bytes, Backup::Yes));
      QVERIFY(ReadBytes(p.path) == QByteArray::fromStdString(bytes));
      QVERIFY(ReadBytes(p.kept) == old);
    }
  }

#endif
};

}  // namespace nira

QTEST_APPLESS_MAIN(nira::FileWriterTest)
#include "FileWriterTest.moc"
