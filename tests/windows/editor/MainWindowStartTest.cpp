// SPDX-License-Identifier: Apache-2.0
#include "editor/SpeedBox.h"
#include "support/Tables.h"
#include "support/WindowFixture.h"

#include <QScreen>
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
    QCOMPARE(ContentOf(f.program) + f.Lines(), QString());
    QCOMPARE(f.Text("DeviceBlock"), u"COM1  9600  non pronto\n/nodev/ttyS0"_qs);
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
    QCOMPARE(Shown(f.Find(u"New_Fil"_qs)->toolTip()), u"A & B (Ctrl+N)"_qs);
    QVERIFY(f.Text("StatusNote")
                .startsWith(QString::number(MessageTable().Missing() - 2) + u" TEXTS ARE MISSING"));
  }

  void OptionsAndScript_data() {
    TextTable({"options", "shown"},
              {{"no options file", "(not there)",
                "Exclamation Ok: FILE 'KlmQx_opt.DEF' NOT FOUND!!!\r SET OPTIONS"},
               {"English script", "\"p32qx_en.scr\",3,19200", ""},
               {"missing script", "\"gone.SCR\",3,19200\r\n/a.CAM\r\n",
                "Critical Ok: [UNRECOV. DEF.FILE ERROR]  FILE '\"gone.SCR\"' IS NOT AVAILABLE"}});
  }

  void OptionsAndScript() {
    QFETCH(QString, options);
    const bool starts = !options.contains(u"gone"_qs);
    WindowFixture f;
    f.Options(options.toLatin1());
    if (options.startsWith(u'(')) QVERIFY(QFile::remove(f.OptionsPath()));
    f.prompts.AnswerEverything(true);
    QCOMPARE(f.Start(), starts);
    QTEST(f.prompts.Shown().join(u'|'), "shown");
    // A script that is gone is forgotten, so that the next start succeeds.
    const QString kept = starts ? options : u"\"p32qx_IT.SCR\",3,19200\r\n"_qs;
    QCOMPARE(ReadBytes(f.OptionsPath()), kept.toLatin1());
    QVERIFY(starts || f.Start());
    if (options.contains(u"_en"_qs)) {
      QCOMPARE(f.Text("DeviceBlock"), u"COM3  19200  not ready\n/nodev/ttyS2"_qs);
      QCOMPARE(f.Text("SizeCam"), u"S01 C02"_qs);
    }
  }

  void StartFile_data() {
    TextTable({"bytes", "shown", "label"},
              {{"missing", "", "", "F01 C02"},
               {"bad", "CAMME\r\n", "Exclamation Ok: CAMME FILE O FORMATO NON VALIDO !", "F01 C01"},
               {"good", "sample", "", "F01 C01"}});
  }

  void StartFile() {
    QFETCH(QString, bytes);
    QFETCH(QString, shown);
    WindowFixture f;
    const QString path = f.Path(u"press.CAM"_qs);
    const bool good = bytes == u"sample"_qs;
    const bool current = shown.isEmpty();
    if (good) f.Sample(u"press.CAM"_qs);
    if (!current) QVERIFY(WriteBytes(path, bytes.toLatin1()));
    f.prompts.AnswerEverything(true);
    QVERIFY(f.Load(path));
    QCOMPARE(f.prompts.Shown().join(u'|'), shown);
    QCOMPARE(f.settings.CurrentFile, current ? path : QString());
    QTEST(f.Text("SizeCam"), "label");
    if (good) QCOMPARE(f.Item("F_Mnu_oldF_1")->text(), u"&1 "_qs + path);
    f.window->show();
    QVERIFY(QTest::qWaitForWindowActive(&*f.window));
    QCOMPARE(f.window->windowTitle(), current ? activeTitle + u"press.CAM"_qs : activeTitle);
  }

  /// Window and speed come back as they were left, but never beside the screen; a settings file
  /// that is none is begun anew.
  void PlaceOfTheLastRun_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("first run") << QByteArray();
    QTest::newRow("spoilt") << QByteArray("[window]\nplace=@ByteArray(none)\nspeed=fast\n");
    QTest::newRow("another file") << QByteArray(100 * 1024, '[');
  }

  void PlaceOfTheLastRun() {
    QFETCH(QByteArray, bytes);
    WindowFixture f;
    QVERIFY(WriteBytes(f.Path(u"user.ini"_qs), bytes));
    QVERIFY(f.Start());
    QCOMPARE(f.window->size(), QSize(800, 760));
    f.window->setGeometry(4000, 50, 200, 600);
    auto* speed = f.window->findChild<SpeedBox*>();
    QCOMPARE(speed->Speed(), 0);
    speed->SetSpeed(600);
    f.window->close();
    QVERIFY(f.Start());
    QCOMPARE(f.window->findChild<SpeedBox*>()->Speed(), 600);
    QCOMPARE(f.window->size(), QSize(800, 600));
    QVERIFY(f.window->screen()->availableGeometry().intersects(f.window->geometry()));
  }

  /// Where room is short the buttons of the programmer lose their words; nothing is folded away.
  void ToolbarGivesWay() {
    WindowFixture f;
    QVERIFY(f.Start());
    for (const int width : {800, 1024, 1366}) {
      f.window->resize(width, 768);
      QTest::qWait(0);
      const auto* button = f.Find<QToolButton>(u"Receive"_qs);
      QCOMPARE(button->toolButtonStyle() == Qt::ToolButtonTextBesideIcon, width > 800);
      QVERIFY(button->width() >= button->sizeHint().width());
      QVERIFY(!f.Find(u"qt_toolbar_ext_button"_qs)->isVisible());
      const auto* block = f.Find<QLabel>(u"DeviceBlock"_qs);
      QVERIFY(block->width() >= block->minimumSizeHint().width());
    }
  }

  /// What to begin with stands over the bars until something else does, and again when a file does
  /// not fit the model.
  void EmptyStart() {
    WindowFixture f;
    f.Recent({f.Sample(u"press.CAM"_qs)});
    QVERIFY(f.Start());
    const auto* panel = f.Find(u"StartPanel"_qs);
    QTRY_VERIFY(panel->isVisible());
    f.Press(Qt::Key_Escape);
    QVERIFY(!panel->isVisible());
    const QString other = f.Path(u"other.CAM"_qs);
    QVERIFY(WriteBytes(other, PlainHead().replace(" 2 - 1 ", " 16 - 44 ") + "END\r\n"));
    f.dialog.Expect(other);
    f.prompts.Expect();
    f.Click(u"OP_FIL"_qs);
    QTRY_VERIFY(panel->isVisible());
    QStringList told;
    for (const auto* label : panel->findChildren<QLabel*>()) told += label->text();
    QVERIFY(told.contains(u"Il file other.CAM è per 16 camme e 44 formati."));
    QVERIFY(told.contains(u"Il programma è impostato per 32 camme e 22 formati."));
    f.chooseModel = [](Carprg* window) { window->findChild<QRadioButton*>(u"O_QX_0"_qs)->click(); };
    f.Click(u"StartModel"_qs);
    QVERIFY(panel->isVisible());
    f.Click(u"StartRecent_1"_qs);  // the file that did not fit
    QCOMPARE(f.settings.CurrentFile, other);
    QVERIFY(!panel->isVisible());
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
