#include "support/WindowFixture.h"

namespace nira {

using namespace Qt::StringLiterals;

/// The Sizes menu, from the question to what is on the screen.
class SizeCommandsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Numbers_data() {
    QTest::addColumn<QString>("item");
    QTest::addColumn<QString>("prompt");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QString>("told");
    QTest::addColumn<QString>("content");
    QTest::addColumn<QString>("label");
    const QString before = u"2.5: 10-20"_qs;
    const auto row = [&](const char* item, const QString& prompt, const char* answer,
                         const QString& told, const QString& content, const QString& label) {
      QTest::newRow(qPrintable(QString::fromLatin1(item) + u' ' + QString::fromLatin1(answer)))
          << QString::fromLatin1(item) << prompt << QString::fromLatin1(answer) << told << content
          << label;
    };
    const QString select = u"SELEZIONE FORMATO - ATTUALE: 2 / 22"_qs;
    const QString noSize = u"Exclamation Ok: NUMERO DI FORMATO NON VALIDO"_qs;
    row("s_sel", select, "7.6", {}, before, u"F08 C05"_qs);
    row("s_sel", select, "22", {}, before, u"F22 C05"_qs);
    for (const char* bad :
         {"23", "0", "-1", "", "abc", "(cancel)", "4294967298", "999999999999999999999999999999"}) {
      row("s_sel", select, bad, noSize, before, u"F01 C05"_qs);
    }
    const QString copy = u"COPIA NEL FORMATO N. ? - ATTUALE: 2 / 22"_qs;
    const QString noTarget = u"None Ok: FORMATO DI DESTINAZIONE NON VALIDO"_qs;
    row("O_Copy", copy, "2.5", {}, before, u"F02 C05"_qs);
    row("O_Copy", copy, " 22 ", {}, u"2.5: 10-20; 22.5: 10-20"_qs, u"F02 C05"_qs);
    for (const char* bad : {"3abc", "", "(cancel)", "0", "23", "1 2"}) {
      row("O_Copy", copy, bad, noTarget, before, u"F02 C05"_qs);
    }
    const QString cam = u"COPIA NELLA CAMMA N. ? - ATTUALE: 5 / 32"_qs;
    const QString noCam = u"None Ok: NUMERO DI CAMMA NON VALIDO"_qs;
    row("O_CopyC", cam, "32abc", {}, u"2.5: 10-20; 2.32: 10-20"_qs, u"F02 C05"_qs);
    for (const char* bad : {"33", "0", "", "(cancel)", "-5"}) {
      row("O_CopyC", cam, bad, noCam, before, u"F02 C05"_qs);
    }
    const QString shift = u"GRADI DI SPOSTAMENTO (+/-) DELLA CAMMA N. 5"_qs;
    row("o_Shc", shift, "-20", {}, u"2.5: 350-360"_qs, u"F02 C05"_qs);
    row("o_Shc", shift, "(cancel)", {}, before, u"F02 C05"_qs);
  }

  void Numbers() {
    QFETCH(QString, item);
    QFETCH(QString, answer);
    QFETCH(QString, told);
    WindowFixture f;
    QVERIFY(f.StartWith({}, 4));
    f.Step(true);
    f.program.SetRow(2, 4, RowOf(u"10-20"_qs));
    if (answer == u"(cancel)"_qs) {
      f.prompts.ExpectInput(std::nullopt);
    } else {
      f.prompts.ExpectInput(answer);
    }
    if (!told.isEmpty()) f.prompts.Expect();
    f.Choose(qPrintable(item));
    QTEST(f.prompts.inputs.at(0).prompt, "prompt");
    QCOMPARE(f.prompts.Shown().join(u'|'), told);
    QTEST(ContentOf(f.program), "content");
    QTEST(f.Text("SizeCam"), "label");
    QVERIFY(f.program.IsSaved);
  }

  /// The erased phases stay on the screen until the next refresh, whatever happens to the window.
  void EraseSizeShowsLater() {
    WindowFixture f;
    QVERIFY(f.StartWith(u"10-20 100-110"_qs, 4));
    f.prompts.Expect(Answer::No);
    f.Click(u"Azz_Form"_qs);
    QCOMPARE(ContentOf(f.program), u"1.5: 10-20 100-110"_qs);
    f.prompts.Expect(Answer::Yes);
    f.Click(u"Azz_Form"_qs);
    QCOMPARE(f.prompts.Shown().constLast(), u"Question YesNo: AZZERARE IL FORMATO N. 1 ?"_qs);
    QCOMPARE(ContentOf(f.program), QString());
    const QString lines = u"F001 010 020|F002 100 110"_qs;
    f.window->resize(f.window->size() + QSize(40, 40));
    f.window->hide();
    f.window->show();
    QVERIFY(QTest::qWaitForWindowActive(&*f.window));
    QCOMPARE(f.Lines(), lines);
    QCOMPARE(f.Find<CamBar>(u"Barra_4"_qs)->Shown().runs.size(), std::size_t(2));
    f.Press(Qt::Key_PageDown);
    QCOMPARE(f.Lines(), QString());
    QVERIFY(f.Find<CamBar>(u"Barra_4"_qs)->Shown().runs.empty());
  }

  void EraseCamAndUndo() {
    WindowFixture f;
    QVERIFY(f.StartWith(u"10-20"_qs, 4));
    f.Enter(u"100\r110\r"_qs);
    f.prompts.Expect(Answer::Yes);
    f.Choose("O_ClC");
    QCOMPARE(f.prompts.Shown().constLast(), u"Question YesNo: AZZERARE LA CAMMA N. 5 ?"_qs);
    QCOMPARE(f.Lines(), QString());
    f.Choose("o_Undo");  // the row from before the last entry, not from before the erasing
    QCOMPARE(f.Lines(), u"F001 010 020"_qs);
  }

  void Import() {
    WindowFixture f;
    QVERIFY(f.StartWith(u"10-20"_qs, 4));
    const QString press = f.Sample(u"press.CAM"_qs);
    f.dialog.ExpectCancel();
    f.Choose("S_Imp");
    QCOMPARE(f.dialog.InitDir, f.folder.path());
    f.dialog.Expect(press);
    f.prompts.ExpectInput(u"23"_qs);
    f.prompts.Expect();
    f.Choose("S_Imp");
    QCOMPARE(f.prompts.inputs.at(0).prompt, u"IMPORTA IL FORMATO N. ? 1 - 22"_qs);
    QCOMPARE(f.prompts.Shown().constLast(), u"Exclamation Ok: NUMERO DI FORMATO NON VALIDO"_qs);
    f.dialog.Expect(press);
    f.prompts.ExpectInput(std::nullopt);
    f.prompts.Expect();
    f.Choose("S_Imp");
    QCOMPARE(f.prompts.Shown().constLast(),
             u"Exclamation Ok: File ["_qs + press + u"] FILE O FORMATO NON VALIDO !"_qs);
    QCOMPARE(ContentOf(f.program), u"1.5: 10-20"_qs);
    QVERIFY(f.program.IsSaved);
    f.dialog.Expect(press);
    f.prompts.ExpectInput(u"1"_qs);
    f.Choose("S_Imp");
    QVERIFY(!f.program.IsSaved);
    QVERIFY(QApplication::overrideCursor() == nullptr);
    QCOMPARE(f.Text("LDefC_0"), u"FEED GRIPPER"_qs);
    QCOMPARE(f.Runs(1, 0), u"0-92 268-360"_qs);
    QCOMPARE(f.Runs(1, 4), u"37-74"_qs);
  }

  void Descriptions_data() {
    QTest::addColumn<QStringList>("answers");
    QTest::addColumn<QString>("told");
    QTest::addColumn<QString>("text");
    const QString longTold = u"Information Ok: MASSIMO 20 CARATTERI"_qs;
    const QString eraseTold = u"Question OkCancel: CANCELLARE LA DESCRIZIONE DELLA CAMMA ?"_qs;
    QTest::newRow("new") << QStringList{u"BLOW OFF"_qs} << QString() << u"BLOW OFF"_qs;
    QTest::newRow("too long") << QStringList{QString(21, u'A'), u"B"_qs} << longTold << u"B"_qs;
    QTest::newRow("quotes") << QStringList{u"A \"B\" C"_qs} << QString() << u"A \"B\" C"_qs;
    QTest::newRow("foreign") << QStringList{u"\u0416"_qs}
                             << u"Exclamation Ok: CARATTERE NON AMMESSO: \u0416"_qs << u"OLD"_qs;
    QTest::newRow("emptied") << QStringList{u""_qs} << eraseTold << QString();
  }

  void Descriptions() {
    QFETCH(QStringList, answers);
    QFETCH(QString, told);
    WindowFixture f;
    QVERIFY(f.StartWith(u"10-20"_qs, 4));
    f.program.SetCamText(4, u"OLD"_qs);
    for (const QString& answer : answers) f.prompts.ExpectInput(answer);
    if (!told.isEmpty()) f.prompts.Expect();
    f.DoubleClick(u"LDefC_7"_qs);
    QCOMPARE(f.prompts.inputs.at(0).prompt, u"DESCRIZIONE CAMMA N.5"_qs);
    QCOMPARE(f.prompts.inputs.at(0).preset, u"OLD"_qs);
    QCOMPARE(f.prompts.Shown().join(u'|'), told);
    QTEST(f.program.CamText(4), "text");
    QVERIFY(f.program.IsSaved);
    // Cancel and then Cancel keep whatever stands there now.
    const QString kept = f.program.CamText(4);
    f.prompts.ExpectInput(std::nullopt);
    if (!kept.isEmpty()) f.prompts.Expect(Answer::Cancel);
    f.DoubleClick(u"LDefC_4"_qs);
    QCOMPARE(f.program.CamText(4), kept);
  }

  void Model_data() {
    QTest::addColumn<int>("cams");
    QTest::addColumn<int>("sizes");
    QTest::addColumn<QString>("clicks");
    QTest::addColumn<QString>("opened");
    QTest::addColumn<QString>("status");
    const char* const c16 = "16 camme  44 formati  255 messaggi";
    QTest::newRow("as it is") << 32 << 22 << QString() << u"QX32 22 FORMATI"_qs
                              << u"32 camme  22 formati  255 messaggi"_qs;
    QTest::newRow("16, 99") << 16 << 99 << QString() << u"QX16 99 FORMATI"_qs
                            << u"16 camme  99 formati  255 messaggi"_qs;
    QTest::newRow("not in the table") << 32 << 45 << QString() << u"QX32 22 FORMATI"_qs
                                      << u"32 camme  22 formati  255 messaggi"_qs;
    QTest::newRow("to 16") << 32 << 89 << u"O_QX_0"_qs << u"QX32 89 FORMATI"_qs
                           << QString::fromLatin1(c16);
    QTest::newRow("to 16, 99") << 32 << 22 << u"O_QX_0 O_F_1"_qs << u"QX32 22 FORMATI"_qs
                               << u"16 camme  99 formati  255 messaggi"_qs;
    QTest::newRow("there and back")
        << 32 << 89 << u"O_QX_0 O_F_1 O_QX_1"_qs << u"QX32 89 FORMATI"_qs
        << u"32 camme  22 formati  255 messaggi"_qs;
  }

  void Model() {
    QFETCH(QString, clicks);
    WindowFixture f;
    QVERIFY(f.StartWith(u"10-20"_qs, 4));
    QFETCH(int, cams);
    QFETCH(int, sizes);
    f.program.SetLimits(sizes, cams, 255);
    f.settings.CurrentFile = u"/kept.CAM"_qs;
    f.Enter(u"30\r40\r"_qs);
    QString opened;
    f.chooseModel = [&](Carprg* window) {
      for (const auto* option : window->findChildren<QRadioButton*>()) {
        if (option->isChecked()) opened += (opened.isEmpty() ? u""_qs : u" "_qs) + option->text();
      }
      QCOMPARE(window->findChild<QLabel*>(u"LabCom"_qs)->text(),
               u"Serial Port COM1 unconnected"_qs);
      QVERIFY(!window->findChild<QPushButton*>(u"AutSel"_qs)->isEnabled());
      QTest::keyClick(window, Qt::Key_Escape);
      QVERIFY(window->isVisible());
      for (const QString& click : clicks.split(u' ', Qt::SkipEmptyParts)) {
        window->findChild<QRadioButton*>(click)->click();
      }
    };
    f.prompts.Expect(Answer::Ok);
    f.Choose("f_New");
    QTEST(opened, "opened");
    QTEST(f.Text("StatusModel"), "status");
    QCOMPARE(ContentOf(f.program), QString());
    QVERIFY(f.program.IsSaved);
    QVERIFY(!f.Item("o_Undo")->isEnabled());
    QCOMPARE(f.settings.CurrentFile, u"/kept.CAM"_qs);
    QCOMPARE(f.Text("SizeCam"), u"F01 C01"_qs);
    QCOMPARE(f.Find(u"LabCam_16"_qs)->isVisible(), f.program.NumCams() == 32);
  }
};

}  // namespace nira

QTEST_MAIN(nira::SizeCommandsTest)
#include "SizeCommandsTest.moc"
