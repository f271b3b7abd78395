// SPDX-License-Identifier: Apache-2.0
#include "files/OptionsFile.h"
#include "support/CamFileFixture.h"

#include <QDir>
#include <QTest>

namespace nira {

namespace {

struct OptionsFixture {
  QString Path(const char* name = WorkingFolder::OptionsName) const {
    return temporary.filePath(QString::fromLatin1(name));
  }
  /// The settings as one text.
  QString Settings() const {
    return globals.ScriptFile + u',' + QString::number(globals.PortNumber) + u',' +
           QString::number(globals.BaudRate);
  }

  QTemporaryDir temporary;
  WorkingFolder folder{temporary.path()};
  Globals globals;
  ScriptedPrompts prompts;
  FileWriter writer;
  OptionsFile options{folder, globals, prompts, writer};
};

}  // namespace

/// The options file: settings, recent files, and what stays of a broken one.
class OptionsFileTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void WritesOneLine() {
    OptionsFixture f;
    QCOMPARE(f.options.WriteOptions(), QString());
    QCOMPARE(ReadBytes(f.Path()), QByteArray("\"p32qx_IT.SCR\",1,9600\r\n"));
    QVERIFY(WriteBytes(f.Path(), "\"x\",2,3\r\n/a.CAM\r\n/b.CAM\r\n"));
    f.globals = {u"/home/\u00E8/\u0416, x.SCR"_qs, 12, 115200, 0, {}};
    QCOMPARE(f.options.WriteOptions(), QString());
    const QString written = f.Settings();
    QCOMPARE(f.options.ReadOptions(), QStringList());
    QCOMPARE(f.Settings(), written);
    QVERIFY(!QFile::exists(f.Path() + u".bak"_qs));
  }

  void MissingFileIsTold() {
    OptionsFixture f;
    f.globals = {u"x"_qs, 5, 300, 0, u"current"_qs};
    f.prompts.Expect(Answer::Ok);
    QCOMPARE(f.options.ReadOptions(), QStringList());
    QCOMPARE(f.prompts.Shown(),
             QStringList(u"Exclamation Ok: FILE 'KlmQx_opt.DEF' NOT FOUND!!!\r SET OPTIONS"_qs));
    QCOMPARE(f.Settings(), u"p32qx_IT.SCR,1,9600"_qs);
    QCOMPARE(f.globals.CurrentFile, u"current"_qs);
  }

  void Reads_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("settings");
    QTest::addColumn<QString>("recent");
    const auto row = [](const char* name, const QByteArray& bytes, const char* settings,
                        const char* recent = "") {
      QTest::newRow(name) << bytes << QString::fromLatin1(settings) << QString::fromLatin1(recent);
    };
    const char* const defaults = "p32qx_IT.SCR,1,9600";
    row("LF, no end", "\"a.SCR\",2,19200\n/p.CAM", "a.SCR,2,19200", "/p.CAM");
    row("comma in the name", "\"a,b.SCR\",2,19200", "a,b.SCR,2,19200");
    row("paths", "\"a\",2,3\r\n1\r\n\r\n3 x\r\n4\r\n5\r\n6\r\n", "a,2,3", "1||3 x|4|5");
    row("blanks", " \"a.SCR\" , 2 , 19200 ", "a.SCR,2,19200");
    row("empty file", "", defaults);
    row("binary", QByteArray(100, '\0'), "");
    row("open quote", "\"a.SCR,2,19200\r\n/1\r\n", defaults);
    row("no port", "\"a.SCR\",,19200\r\n/1\r\n", "a.SCR,1,9600");
    row("port too large", "\"a.SCR\",32768,19200", "a.SCR,1,9600");
    row("speed is text", "\"a.SCR\",2,fast\r\n/1\r\n", "a.SCR,2,9600");
    row("speed too large", "\"a.SCR\",2,2147483648", "a.SCR,2,9600");
    row("endless path", "\"a\",2,3\r\n/1\r\n" + QByteArray(200000, 'x'), "a,2,3", "/1");
  }

  void Reads() {
    QFETCH(QByteArray, bytes);
    QFETCH(QString, settings);
    OptionsFixture f;
    f.globals = {u"x"_qs, 5, 300, 0, {}};
    QVERIFY(WriteBytes(f.Path(), bytes));
    QTEST(f.options.ReadOptions().join(u'|'), "recent");
    if (!settings.isEmpty()) QCOMPARE(f.Settings(), settings);
  }

  void NameInAnyCase() {
    OptionsFixture f;
    QVERIFY(WriteBytes(f.Path("KLMqx_OPT.Def"), "\"a.SCR\",2,19200\r\n"));
    QCOMPARE(f.options.ReadOptions(), QStringList());
    f.globals.PortNumber = 3;
    QCOMPARE(f.options.WriteOptions(), QString());
    QCOMPARE(ReadBytes(f.Path("KLMqx_OPT.Def")), QByteArray("\"a.SCR\",3,19200\r\n"));
    OptionsFixture blocked;
    QVERIFY(QDir().mkpath(blocked.Path()));
    QVERIFY(!blocked.options.WriteOptions().isEmpty());
    QCOMPARE(blocked.options.ReadQuietly(), QStringList());
  }
};

}  // namespace nira

QTEST_APPLESS_MAIN(nira::OptionsFileTest)
#include "OptionsFileTest.moc"
