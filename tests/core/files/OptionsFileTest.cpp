// SPDX-License-Identifier: Apache-2.0
#include "files/OptionsFile.h"
#include "files/WorkingFolder.h"
#include "support/CamFileFixture.h"
#include "support/Tables.h"

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
    const QByteArray endless = "\"a\",2,3\r\n/1\r\n" + QByteArray(200000, 'x');
    const char* const defaults = "p32qx_IT.SCR,1,9600";
    TextTable({"bytes", "settings"},
              {{"LF, no end", "\"a.SCR\",2,19200\n/p.CAM", "a.SCR,2,19200|/p.CAM"},
               {"comma, blanks", " \"a,b.SCR\" , 2 , 19200 ", "a,b.SCR,2,19200"},
               {"paths", "\"a\",2,3\r\n1\r\n\r\n3 x\r\n4\r\n5\r\n6\r\n", "a,2,3|1||3 x|4|5"},
               {"open quote", "\"a.SCR,2,19200\r\n/1\r\n", defaults},
               {"port too large", "\"a.SCR\",32768,19200\r\n/1\r\n", "a.SCR,1,9600"},
               {"speed too large", "\"a.SCR\",2,2147483648", "a.SCR,2,9600"},
               {"endless path", endless.constData(), "a,2,3|/1"}});
  }

  void Reads() {
    QFETCH(QString, bytes);
    OptionsFixture f;
    QVERIFY(WriteBytes(f.Path(), bytes.toLatin1()));
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
