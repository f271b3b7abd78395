// SPDX-License-Identifier: Apache-2.0
#include "support/WindowFixture.h"

#include <QTest>
#include <QTextDocument>

namespace nira {

namespace {

const QString activeTitle = QStringLiteral("NIRA-KPL PROGRAMMATORE DI CAMME QX32-22F  255-Msg  ");

/// What a tooltip shows.
QString Shown(const QString& tip) {
  if (!Qt::mightBeRichText(tip)) return tip;
  QTextDocument document;
  document.setHtml(tip);
  return document.toPlainText();
}

}  // namespace

/// The start of the program and what the main window shows before anything was done.
class MainWindowStartTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Defaults() {
    WindowFixture f;
    QVERIFY(f.Start());
    QCOMPARE(f.Text("SizeCam"), u"F01 C02"_qs);
    QCOMPARE(f.window->windowTitle(), activeTitle);
    QVERIFY(f.program.IsSaved);
    QCOMPARE(ContentOf(f.program) + f.Lines(), QString());
    QCOMPARE(f.Text("StatusPort"), u"COM1  9600  /nodev/ttyS0  programmatore non pronto"_qs);
    QCOMPARE(f.Text("StatusModel"), u"32 camme  22 formati  255 messaggi"_qs);
  }

  /// A script is anybody's file: its texts are shown as they stand.
  void TipsArePlainText() {
    WindowFixture f;
    const QByteArray script =
        "\"\r\n" + QByteArray("\"\"\r\n").repeated(119) + "\"A & <b>B\"\r\n\"A & B\"\r\n\r\n";
    QVERIFY(WriteBytes(f.Path(u"p32qx_IT.SCR"_qs), script));
    QVERIFY(f.Start());
    QCOMPARE(Shown(f.Find(u"GoPrCam"_qs)->toolTip()), u"A & <b>B"_qs);
    QCOMPARE(Shown(f.Find(u"New_Fil"_qs)->toolTip()), u"A & B"_qs);
    QCOMPARE(f.Find(u"OP_FIL"_qs)->toolTip(), MessageTable().Text(TextNumber::TipOpFil));
    QVERIFY(f.window->statusBar()->currentMessage().startsWith(
        QString::number(MessageTable().Missing() - 2) + u" TEXTS ARE MISSING"));
  }

  void OptionsAndScript_data() {
    QTest::addColumn<QByteArray>("options");  // null: no file
    QTest::addColumn<bool>("starts");
    QTest::addColumn<QString>("shown");
    QTest::newRow("no options file")
        << QByteArray() << true
        << u"Exclamation Ok: FILE 'KlmQx_opt.DEF' NOT FOUND!!!\r SET OPTIONS"_qs;
    QTest::newRow("English script") << QByteArray("\"p32qx_en.scr\",3,19200") << true << QString();
    QTest::newRow("missing script")
        << QByteArray("\"gone.SCR\",3,19200\r\n/a.CAM\r\n") << false
        << u"Critical Ok: [UNRECOV. DEF.FILE ERROR]  FILE '\"gone.SCR\"' IS NOT AVAILABLE"_qs;
  }

  void OptionsAndScript() {
    QFETCH(QByteArray, options);
    QFETCH(bool, starts);
    WindowFixture f;
    f.Options(options);
    if (options.isNull()) QVERIFY(QFile::remove(f.OptionsPath()));
    f.prompts.AnswerEverything(true);
    QCOMPARE(f.Start(), starts);
    QTEST(f.prompts.Shown().join(u'|'), "shown");
    QCOMPARE(QFile::exists(f.OptionsPath()), !options.isNull());
    // A script that is gone is forgotten, so that the next start succeeds.
    const QByteArray kept = starts ? options : QByteArray("\"p32qx_IT.SCR\",3,19200\r\n");
    if (!options.isNull()) QCOMPARE(ReadBytes(f.OptionsPath()), kept);
    QVERIFY(starts || f.Start());
    if (options.contains("_en")) {
      QCOMPARE(f.Text("StatusPort"), u"COM3  19200  /nodev/ttyS2  programmer not ready"_qs);
      QCOMPARE(f.Text("SizeCam"), u"S01 C02"_qs);
    }
  }

  void StartFile_data() {
    QTest::addColumn<QByteArray>("bytes");  // null: no file
    QTest::addColumn<QString>("shown");
    QTest::addColumn<bool>("current");
    QTest::addColumn<QString>("label");
    QTest::newRow("missing") << QByteArray() << QString() << true << u"F01 C02"_qs;
    QTest::newRow("bad") << QByteArray("CAMME\r\n")
                         << u"Exclamation Ok: CAMME FILE O FORMATO NON VALIDO !"_qs << false
                         << u"F01 C01"_qs;
    QTest::newRow("good") << QByteArray("sample") << QString() << true << u"F01 C01"_qs;
  }

  void StartFile() {
    QFETCH(QByteArray, bytes);
    QFETCH(bool, current);
    WindowFixture f;
    const QString path = f.Path(u"press.CAM"_qs);
    const bool good = bytes == "sample";
    if (good) f.Sample(u"press.CAM"_qs);
    if (!good && !bytes.isNull()) QVERIFY(WriteBytes(path, bytes));
    f.prompts.AnswerEverything(true);
    QVERIFY(f.Load(path));
    QTEST(f.prompts.Shown().join(u'|'), "shown");
    QCOMPARE(f.settings.CurrentFile, current ? path : QString());
    QTEST(f.Text("SizeCam"), "label");
    if (good) {
      QCOMPARE(f.window->windowTitle(), u"PROGRAMMATORE DI CAMME C 32 - 22  ["_qs + path + u']');
      QCOMPARE(f.Lines(), u"F001 268 092"_qs);
      QCOMPARE(f.Item("F_Mnu_oldF_1")->text(), u"&1 "_qs + path);
    }
    f.window->show();
    QVERIFY(QTest::qWaitForWindowActive(&*f.window));
    QCOMPARE(f.window->windowTitle(), current ? activeTitle + u"press.CAM"_qs : activeTitle);
  }

  void ShortcutsDoNotClash() {
    WindowFixture f;
    QVERIFY(f.Start());
    QSet<QString> used;
    for (const QAction* action : f.window->findChildren<QAction*>()) {
      for (const QKeySequence& key : action->shortcuts()) {
        QVERIFY2(!used.contains(key.toString()), qPrintable(key.toString()));
        used.insert(key.toString());
      }
    }
    QVERIFY(used.size() >= 3);
  }
};

}  // namespace nira

QTEST_MAIN(nira::MainWindowStartTest)
#include "MainWindowStartTest.moc"
