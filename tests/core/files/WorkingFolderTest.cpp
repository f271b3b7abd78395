// SPDX-License-Identifier: Apache-2.0
#include "files/WorkingFolder.h"
#include "support/CamFileFixture.h"

#include <QDir>
#include <QTest>

#include <memory>

namespace nira {

/// Which folder the program works in, and what it finds there.
class WorkingFolderTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    root_ = std::make_unique<QTemporaryDir>();
    for (const char* name : {"here", "installed"}) QVERIFY(QDir().mkpath(At(name)));
    QVERIFY(WriteBytes(At("installed/p32qx_IT.SCR"), "italian"));
    QVERIFY(WriteBytes(At("installed/p32qx_en.scr"), "english"));
  }

  void StaysWhereItsFilesAre() {
    for (const auto& [name, stays] : {std::pair("here/KlmQx_opt.def/x", false),  // a folder
                                      {"here/p32qx_EN.SCR", false},
                                      {"here/P32QX_it.scr", true},
                                      {"here/KLMQX_OPT.DEF", true}}) {
      const QString path = At(name);
      QVERIFY(QDir().mkpath(QFileInfo(path).path()));
      QVERIFY(WriteBytes(path, "x"));
      const auto folder = WorkingFolder::Choose(At("here"), At("user/deep"), At("installed"));
      QCOMPARE(folder.Path(), stays ? At("here") : At("user/deep"));
      QCOMPARE(QFileInfo::exists(At("user")), !stays);
      for (const char* done : {"here", "user"}) QVERIFY(QDir(At(done)).removeRecursively());
    }
  }

  void ScriptsAreGivenOnce() {
    auto folder = WorkingFolder::Choose(At("here"), At("user"), At("installed"));
    QCOMPARE(QDir(At("user")).entryList(QDir::Files).size(), 2);
    QCOMPARE(ReadBytes(folder.Find(u"P32QX_EN.SCR"_qs)), QByteArray("english"));
    QVERIFY(QFile::remove(At("user/p32qx_IT.SCR")));
    QVERIFY(WriteBytes(At("user/P32qx_it.Scr"), "my own"));
    folder = WorkingFolder::Choose(At("here"), At("user"), At("installed"));
    QCOMPARE(QDir(At("user")).entryList(QDir::Files).size(), 2);
    QCOMPARE(ReadBytes(folder.Find(u"p32qx_IT.SCR"_qs)), QByteArray("my own"));
    folder.BringScript(u"p32qx_IT.SCR"_qs);
    QCOMPARE(ReadBytes(folder.Find(u"p32qx_IT.SCR"_qs)), QByteArray("my own"));
    QVERIFY(QFile::remove(At("user/P32qx_it.Scr")));
    folder.BringScript(u"p32qx_IT.SCR"_qs);  // the default one, when it is gone
    QVERIFY(folder.Has(u"p32qx_IT.SCR"_qs));
  }

  /// A later version's texts reach a user's copy, whose own lines stay.
  void NewTextsAreAdded() {
    QVERIFY(QDir().mkpath(At("user")));
    QVERIFY(WriteBytes(At("installed/a.scr"), "A\"\r\n\"B\"\r\n\"C\"\r\n"));
    for (const auto& [before, after] :
         {std::pair<QByteArray, QByteArray>("MINE\"\r\n", "MINE\"\r\n\"B\"\r\n\"C\"\r\n"),
          {"A\"\r\n\"B\"\r\n\"X\"\r\n\"Y\"\r\n", "A\"\r\n\"B\"\r\n\"X\"\r\n\"Y\"\r\n"},
          {"no script at all", "no script at all"}}) {
      QVERIFY(WriteBytes(At("user/a.scr"), before));
      WorkingFolder::Choose(At("here"), At("user"), At("installed"));
      QCOMPARE(ReadBytes(At("user/a.scr")), after);
    }
  }

  void FindsNames() {
    for (const char* name : {"here/Work.Cam", "here/both", "here/BOTH"}) WriteBytes(At(name), "x");
    const WorkingFolder folder(At("here"));
    QCOMPARE(folder.Find(u"WORK.CAM"_qs), At("here/Work.Cam"));
    QCOMPARE(folder.Find(u"both"_qs), At("here/both"));
    QCOMPARE(folder.Find(u"BOTH"_qs), At("here/BOTH"));
    QCOMPARE(folder.Find(u"none.x"_qs), At("here/none.x"));
    QCOMPARE(folder.Find(At("installed/x")), At("installed/x"));
    QVERIFY(folder.Has(u"WORK.CAM"_qs) && !folder.Has(u"none.x"_qs));
  }

  void FindsInstalledScripts() {
    QCOMPARE(WorkingFolder::InstalledScripts(At("usr/bin")), QString());
    for (const char* lang : {"usr/share/nira-kpl/lang", "usr/bin/lang"}) {
      QVERIFY(QDir().mkpath(At(lang)) && QDir().mkpath(At("usr/bin")));
      QCOMPARE(WorkingFolder::InstalledScripts(At("usr/bin")), At(lang));
    }
  }

  void StartFolders() {
    QCOMPARE(StartFolder(u"/a/VB5/x"_qs), u"/VB5/NIRA_QX"_qs);
    QCOMPARE(StartFolder(u"C:/VB5/x"_qs), u"C:/VB5/NIRA_QX"_qs);
    for (const QString& other : {u"/a/MyVB5"_qs, u"/a/vb5"_qs, QString()}) {
      QCOMPARE(StartFolder(other), other);
    }
  }

 private:
  QString At(const char* name) const { return root_->filePath(QString::fromLatin1(name)); }

  std::unique_ptr<QTemporaryDir> root_;
};

}  // namespace nira

QTEST_APPLESS_MAIN(nira::WorkingFolderTest)
#include "WorkingFolderTest.moc"
