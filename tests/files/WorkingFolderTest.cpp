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
    QVERIFY(WriteBytes(At("installed/readme"), "x"));
  }
  void cleanup() { root_.reset(); }

  void StaysWhereItsFilesAre_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("stays");
    QTest::newRow("options file") << QStringLiteral("KlmQx_opt.def") << true;
    QTest::newRow("in other case") << QStringLiteral("KLMQX_OPT.DEF") << true;
    QTest::newRow("default script") << QStringLiteral("P32QX_it.scr") << true;
    QTest::newRow("other script") << QStringLiteral("p32qx_EN.SCR") << false;
    QTest::newRow("a folder of that name") << QStringLiteral("KlmQx_opt.def/x") << false;
  }

  void StaysWhereItsFilesAre() {
    QFETCH(QString, name);
    QFETCH(bool, stays);
    const QString path = At("here/") + name;
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    QVERIFY(WriteBytes(path, "x"));
    const auto folder = WorkingFolder::Choose(At("here"), At("user/deep"), At("installed"));
    QCOMPARE(folder.Path(), stays ? At("here") : At("user/deep"));
    QCOMPARE(QFileInfo::exists(At("user")), !stays);
  }

  void ScriptsAreGivenOnce() {
    auto folder = WorkingFolder::Choose(At("here"), At("user"), At("installed"));
    const QStringList scripts = {QStringLiteral("p32qx_IT.SCR"), QStringLiteral("p32qx_en.scr")};
    QCOMPARE(QDir(At("user")).entryList(QDir::Files, QDir::Name).size(), 2);
    for (const QString& name : scripts) QVERIFY(folder.Has(name));
    QCOMPARE(ReadBytes(folder.Find(QStringLiteral("P32QX_EN.SCR"))), QByteArray("english"));
    QVERIFY(QFile::remove(At("user/p32qx_IT.SCR")));
    QVERIFY(WriteBytes(At("user/P32qx_it.Scr"), "my own"));
    folder = WorkingFolder::Choose(At("here"), At("user"), At("installed"));
    QCOMPARE(QDir(At("user")).entryList(QDir::Files).size(), 2);
    QCOMPARE(ReadBytes(folder.Find(scripts[0])), QByteArray("my own"));
  }

  void NoInstalledScripts() {
    const auto folder = WorkingFolder::Choose(At("here"), At("user"), QString());
    QCOMPARE(folder.Path(), At("user"));
    QVERIFY(QDir(At("user")).isEmpty());
  }

  void FindsNames() {
    QVERIFY(WriteBytes(At("here/Work.Cam"), "x"));
    QVERIFY(WriteBytes(At("here/both"), "x"));
    QVERIFY(WriteBytes(At("here/BOTH"), "x"));
    const WorkingFolder folder(At("here"));
    QCOMPARE(folder.Find(QStringLiteral("WORK.CAM")), At("here/Work.Cam"));
    QCOMPARE(folder.Find(QStringLiteral("both")), At("here/both"));
    QCOMPARE(folder.Find(QStringLiteral("BOTH")), At("here/BOTH"));
    QCOMPARE(folder.Find(QStringLiteral("none.x")), At("here/none.x"));
    QCOMPARE(folder.Find(At("installed/readme")), At("installed/readme"));
    QVERIFY(!folder.Has(QStringLiteral("none.x")));
  }

  void FindsInstalledScripts() {
    QCOMPARE(WorkingFolder::InstalledScripts(At("usr/bin")), QString());
    QVERIFY(QDir().mkpath(At("usr/share/nira-kpl/lang")) && QDir().mkpath(At("usr/bin")));
    QCOMPARE(WorkingFolder::InstalledScripts(At("usr/bin")), At("usr/share/nira-kpl/lang"));
    QVERIFY(QDir().mkpath(At("usr/bin/lang")));
    QCOMPARE(WorkingFolder::InstalledScripts(At("usr/bin")), At("usr/bin/lang"));
  }

  void StartFolders_data() {
    QTest::addColumn<QString>("current");
    QTest::addColumn<QString>("start");
    const auto row = [](const char* current, const char* start) {
      QTest::newRow(current) << QString::fromLatin1(current) << QString::fromLatin1(start);
    };
    row("/a/VB5/x", "/VB5/NIRA_QX");
    row("/VB5", "/VB5/NIRA_QX");
    row("C:/VB5/x", "C:/VB5/NIRA_QX");
    row("/a/MyVB5", "/a/MyVB5");
    row("/a/vb5", "/a/vb5");
    row("/", "/");
    row("", "");
  }

  void StartFolders() {
    QFETCH(QString, current);
    QTEST(StartFolder(current), "start");
  }

 private:
  QString At(const char* name) const { return root_->filePath(QString::fromLatin1(name)); }

  std::unique_ptr<QTemporaryDir> root_;

  /// A later version's texts reach a user's copy, whose own lines stay.
  void NewTextsAreAdded() {
    QTemporaryDir folder;
    const QDir dir(folder.path());
    QVERIFY(dir.mkpath(u"lang"_qs) && dir.mkpath(u"user"_qs));
    const QString copy = dir.filePath(u"user/a.scr"_qs);
    QVERIFY(WriteBytes(dir.filePath(u"lang/a.scr"_qs), "A\"\r\n\"B\"\r\n\"C\"\r\n"));
    for (const auto& [before, after] :
         {std::pair<QByteArray, QByteArray>("MINE\"\r\n", "MINE\"\r\n\"B\"\r\n\"C\"\r\n"),
          {"A\"\r\n\"B\"\r\n\"X\"\r\n\"Y\"\r\n", "A\"\r\n\"B\"\r\n\"X\"\r\n\"Y\"\r\n"},
          {"no script at all", "no script at all"}}) {
      QVERIFY(WriteBytes(copy, before));
      WorkingFolder::Choose(dir.path(), dir.filePath(u"user"_qs), dir.filePath(u"lang"_qs));
      QCOMPARE(ReadBytes(copy), after);
    }
  }
};

}  // namespace nira

QTEST_APPLESS_MAIN(nira::WorkingFolderTest)
#include "WorkingFolderTest.moc"
