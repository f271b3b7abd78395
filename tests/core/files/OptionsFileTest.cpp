// SPDX-License-Identifier: Apache-2.0
#include "files/OptionsFile.h"
#include "files/WorkingFolder.h"
#include "support/CamFileFixture.h"

#include <QDir>
#include <QTest>

namespace nira {

namespace {

struct OptionsFixture {
  QString Path(const char* name = WorkingFolder::OptionsName) const {
    return temporary.filePath(QString::fromLatin1(name));
  }
  Refusal Write(const Options& options) { return WriteOptions(options, folder, writer); }

  /// What the file says: the settings, and behind "|" each recent file.
  QString Read() const {
    const auto [found, settings, recent] = ReadOptions(folder);
    return (QStringList{settings.ScriptFile + u',' + QString::number(settings.PortNumber) + u',' +
                        QString::number(settings.BaudRate)} +
            recent)
        .join(u'|');
  }

  QTemporaryDir temporary;
  WorkingFolder folder{temporary.path()};
  FileWriter writer;
};

}  // namespace

/// The options file: settings, recent files, and what stays of a broken one.
class OptionsFileTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void WritesOneLine() {
    OptionsFixture f;
    QVERIFY(!ReadOptions(f.folder).Found);
    QCOMPARE(f.Read(), u"p32qx_IT.SCR,1,9600"_qs);
    QVERIFY(!f.Write({}));
    QCOMPARE(ReadBytes(f.Path()), QByteArray("\"p32qx_IT.SCR\",1,9600\r\n"));
    QVERIFY(WriteBytes(f.Path(), "\"x\",2,3\r\n/a.CAM\r\n/b.CAM\r\n"));
    QVERIFY(!f.Write({u"/home/\u00E8/\u0416, x.SCR"_qs, 12, 115200}));
    QVERIFY(ReadOptions(f.folder).Found);
    QCOMPARE(f.Read(), u"/home/\u00E8/\u0416, x.SCR,12,115200"_qs);
    QVERIFY(!QFile::exists(f.Path() + u".bak"_qs));
  }

  void Reads_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("settings");
    const auto row = [](const char* name, const QByteArray& bytes, const char* settings) {
      QTest::newRow(name) << bytes << QString::fromLatin1(settings);
    };
    const char* const defaults = "p32qx_IT.SCR,1,9600";
    row("LF, no end", "\"a.SCR\",2,19200\n/p.CAM", "a.SCR,2,19200|/p.CAM");
    row("comma in the name", "\"a,b.SCR\",2,19200", "a,b.SCR,2,19200");
    row("paths", "\"a\",2,3\r\n1\r\n\r\n3 x\r\n4\r\n5\r\n6\r\n", "a,2,3|1||3 x|4|5");
    row("blanks", " \"a.SCR\" , 2 , 19200 ", "a.SCR,2,19200");
    row("empty file", "", defaults);
    row("open quote", "\"a.SCR,2,19200\r\n/1\r\n", defaults);
    row("no port", "\"a.SCR\",,19200\r\n/1\r\n", "a.SCR,1,9600");
    row("port too large", "\"a.SCR\",32768,19200", "a.SCR,1,9600");
    row("speed is text", "\"a.SCR\",2,fast\r\n/1\r\n", "a.SCR,2,9600");
    row("speed too large", "\"a.SCR\",2,2147483648", "a.SCR,2,9600");
    row("endless path", "\"a\",2,3\r\n/1\r\n" + QByteArray(200000, 'x'), "a,2,3|/1");
  }

  void Reads() {
    QFETCH(QByteArray, bytes);
    OptionsFixture f;
    QVERIFY(WriteBytes(f.Path(), bytes));
    QTEST(f.Read(), "settings");
  }

  void NameInAnyCase() {
    OptionsFixture f;
    QVERIFY(WriteBytes(f.Path("KLMqx_OPT.Def"), "\"a.SCR\",2,19200\r\n"));
    QVERIFY(ReadOptions(f.folder).Found);
    QVERIFY(!f.Write({u"a.SCR"_qs, 3, 19200}));
    QCOMPARE(ReadBytes(f.Path("KLMqx_OPT.Def")), QByteArray("\"a.SCR\",3,19200\r\n"));
    OptionsFixture blocked;
    QVERIFY(QDir().mkpath(blocked.Path()));
    QCOMPARE(FaultText(blocked.Write({}).value_or(Fault()), MessageTable()),
             u"CANNOT WRITE THE FILE\nKlmQx_opt.def\nIT IS NOT A FILE"_qs);
    QCOMPARE(blocked.Read(), u"p32qx_IT.SCR,1,9600"_qs);
  }
};

}  // namespace nira

QTEST_APPLESS_MAIN(nira::OptionsFileTest)
#include "OptionsFileTest.moc"
