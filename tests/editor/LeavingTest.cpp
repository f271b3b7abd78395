#include "support/WindowFixture.h"

#include <QContextMenuEvent>
#include <QDialog>
#include <QMessageBox>
#include <QTest>

namespace nira {

namespace {

using Action = std::function<void(WindowFixture&)>;

void PressOn(WindowFixture& f, const char* name) {
  f.Click(QString::fromLatin1(name));
}

void DropFile(WindowFixture& f) {
  f.prompts.Expect(Answer::Cancel);
  f.Drop({QUrl::fromLocalFile(f.Path(u"other.CAM"_qs))});
}

void Quit(WindowFixture& f) {
  f.prompts.Expect(Answer::Cancel);
  f.window->close();
}

/// What the operator may do while an entry stands in the OFF box, and that counts as a command.
const QList<std::pair<const char*, Action>>& Commands() {
  static const QList<std::pair<const char*, Action>> commands = {
      {"PageUp", [](auto& f) { f.Press(Qt::Key_PageUp); }},
      {"PageDown", [](auto& f) { f.Press(Qt::Key_PageDown); }},
      {"Home", [](auto& f) { f.Press(Qt::Key_Home); }},
      {"End", [](auto& f) { f.Press(Qt::Key_End); }},
      {"cam number", [](auto& f) { PressOn(f, "LabCam_7"); }},
      {"description", [](auto& f) { PressOn(f, "LDefC_7"); }},
      {"bar", [](auto& f) { PressOn(f, "Barra_7"); }},
      {"scale", [](auto& f) { PressOn(f, "Lab_1_2"); }},
      {"next size", [](auto& f) { f.Step(true); }},
      {"previous size, at the first", [](auto& f) { f.Step(false); }},
      {"save button", [](auto& f) { PressOn(f, "Sv_Fil"); }},
      {"save key", [](auto& f) { f.Press(Qt::Key_S, Qt::ControlModifier); }},
      {"save item", [](auto& f) { f.Choose("f_S"); }},
      {"open button",
       [](auto& f) {
         f.prompts.Expect(Answer::Cancel);
         PressOn(f, "OP_FIL");
       }},
      {"language",
       [](auto& f) {
         f.dialog.ExpectCancel();
         f.Choose("o_Setlng");
       }},
      {"about box",
       [](auto& f) {
         WhenOpens<QDialog>([](QDialog* about) { about->close(); });
         f.Choose("info");
       }},
      {"quit", Quit},
      {"drop", DropFile},
      {"drop from another program",
       [](auto& f) {
         QWidget other;
         other.show();
         other.activateWindow();
         QVERIFY(QTest::qWaitForWindowActive(&other));
         DropFile(f);
       }},
  };
  return commands;
}

const Action& CommandNamed(const QString& name) {
  for (const auto& [other, command] : Commands()) {
    if (name == QString::fromLatin1(other)) return command;
  }
  qFatal("no such command");
}

void CommandRows() {
  QTest::addColumn<QString>("command");
  for (const auto& [name, command] : Commands()) {
    QTest::newRow(name) << QString::fromLatin1(name);
  }
}

/// Phase 100-110 in cam 5, and a file of the program, so that saving asks nothing.
bool Begin(WindowFixture& f) {
  f.settings.CurrentFile = f.Path(u"now.CAM"_qs);
  return WriteBytes(f.settings.CurrentFile, "old") && f.StartWith(u"100-110"_qs, 4);
}

}  // namespace

/// When an entry is committed and when not, and to which cam.
class LeavingTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void TypedIsCommitted_data() { CommandRows(); }

  void TypedIsCommitted() {
    QFETCH(QString, command);
    WindowFixture f;
    QVERIFY(Begin(f));
    f.Enter(u"200\r21"_qs);
    CommandNamed(command)(f);
    QCOMPARE(ContentOf(f.program), u"1.5: 0-21 100-110 200-360"_qs);
    QVERIFY(f.Item("o_Undo")->isEnabled());
    QVERIFY2(f.Focus() != u"GRADIOFF"_qs, "the focus is still there");
    const PhaseList shown =
        PhaseList::Of(f.program.CamMap(f.program.CurrentSize(), f.program.CurrentCam()));
    QCOMPARE(f.Lines(), shown.Lines().join(u'|'));
    if (command.startsWith(u"save"_qs)) {
      QVERIFY(ReadBytes(f.settings.CurrentFile).contains("C 05\r\n 100 110\r\n 200 021\r\n"));
    }
  }

  /// Even where the pair is the one that the boxes showed before: it was typed for this cam.
  void TypedAgainIsCommitted() {
    WindowFixture f;
    QVERIFY(Begin(f));
    f.ClickLine(0);
    f.Press(Qt::Key_PageDown);
    f.Click(u"GRADION"_qs);
    f.Type(u"100\r110"_qs);
    f.Press(Qt::Key_PageDown);
    QCOMPARE(ContentOf(f.program), u"1.5: 100-110; 1.6: 100-110"_qs);
  }

  void UntouchedIsNot_data() { CommandRows(); }

  void UntouchedIsNot() {
    QFETCH(QString, command);
    WindowFixture f;
    QVERIFY(Begin(f));
    f.ClickLine(0);
    f.Press(Qt::Key_Home);  // the boxes hold the pair of another cam now
    f.Click(u"GRADIOFF"_qs);
    f.program.IsSaved = false;
    CommandNamed(command)(f);
    QCOMPARE(ContentOf(f.program), u"1.5: 100-110"_qs);
    QVERIFY(!f.Item("o_Undo")->isEnabled());
    QVERIFY2(f.Focus() != u"GRADIOFF"_qs, "the focus is still there");
  }

  void PassingCommits_data() {
    QTest::addColumn<QString>("way");
    for (const char* way : {"Enter", "Tab", "Backtab", "list", "list, on no line", "ON box"}) {
      QTest::newRow(way) << QString::fromLatin1(way);
    }
  }

  void PassingCommits() {
    QFETCH(QString, way);
    WindowFixture f;
    QVERIFY(Begin(f));
    f.ClickLine(0);
    f.Press(Qt::Key_Home);
    f.Click(u"GRADIOFF"_qs);
    if (way == u"Enter"_qs) f.Press(Qt::Key_Return);
    if (way == u"Tab"_qs) f.Press(Qt::Key_Tab);
    if (way == u"Backtab"_qs) f.Press(Qt::Key_Backtab, Qt::ShiftModifier);
    if (way == u"ON box"_qs) f.Click(u"GRADION"_qs);
    if (way.startsWith(u"list"_qs)) {
      f.program.SetRow(1, 0, RowOf(u"20-30 300-310"_qs));
      f.window->RefreshCam(0);
      auto* list = f.Find<QListWidget>(u"Fase"_qs);
      if (way == u"list"_qs) {
        f.ClickLine(1);
        QCOMPARE(f.Boxes(), u"100 110"_qs);  // the second line after the commit
      } else {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->viewport()->rect().bottomRight() - QPoint(3, 3));
      }
      QCOMPARE(f.Runs(1, 0), u"20-30 100-110 300-310"_qs);
    } else {
      QCOMPARE(ContentOf(f.program), u"1.1: 100-110; 1.5: 100-110"_qs);
    }
    QVERIFY(f.Item("o_Undo")->isEnabled());
  }

  void StaysWhileNothingIsDone_data() {
    QTest::addColumn<QString>("what");
    for (const char* what : {"menu by mouse", "menu by key", "own menu", "message", "other window",
                             "other window, back by a click"}) {
      QTest::newRow(what) << QString::fromLatin1(what);
    }
  }

  void StaysWhileNothingIsDone() {
    QFETCH(QString, what);
    WindowFixture f;
    QVERIFY(Begin(f));
    f.Enter(u"200\r21"_qs);
    QMenuBar* bar = f.window->menuBar();
    if (what == u"menu by mouse"_qs) {
      const QPoint place = bar->actionGeometry(bar->actions().constFirst()).center();
      QTest::mouseClick(bar, Qt::LeftButton, {}, place);
      QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
      QTest::keyClick(bar, Qt::Key_Escape);
    } else if (what == u"menu by key"_qs) {
      f.Press(Qt::Key_F, Qt::AltModifier, u"f"_qs);
      QVERIFY(QApplication::activePopupWidget() != nullptr);
      QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
      QTest::keyClick(bar, Qt::Key_Escape);
    } else if (what == u"own menu"_qs) {
      WhenOpens<QMenu>([](QMenu* menu) { menu->close(); });
      QWidget* box = f.Find(u"GRADIOFF"_qs);
      QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5),
                              box->mapToGlobal(QPoint(5, 5)));
      QApplication::sendEvent(box, &event);
    } else if (what == u"message"_qs) {
      WhenOpens<QMessageBox>([](QMessageBox* box) { box->close(); });
      QMessageBox(QMessageBox::Warning, u"x"_qs, u"y"_qs, QMessageBox::Ok, &*f.window).exec();
    } else {
      QWidget other;
      other.show();
      other.activateWindow();
      QVERIFY(QTest::qWaitForWindowActive(&other));
      QCOMPARE(ContentOf(f.program), u"1.5: 100-110"_qs);
      if (what.endsWith(u"click"_qs)) {
        f.Activate();
        QWidget* box = f.Find(u"GRADIOFF"_qs);
        QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(box->width() - 4, box->height() / 2));
      }
    }
    f.Activate();
    QCOMPARE(ContentOf(f.program), u"1.5: 100-110"_qs);
    QCOMPARE(f.Boxes(), u"200 21"_qs);
    QCOMPARE(f.Focus(), u"GRADIOFF"_qs);
    QVERIFY(!f.Item("o_Undo")->isEnabled());
    f.Type(u"0\r"_qs);
    QCOMPARE(ContentOf(f.program), u"1.5: 100-110 200-210"_qs);
  }

  /// The text that the first key replaces is still selected after a look into a menu.
  void SelectionSurvivesAMenu() {
    WindowFixture f;
    QVERIFY(Begin(f));
    f.Enter(u"\r"_qs);
    f.Press(Qt::Key_F, Qt::AltModifier, u"f"_qs);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    QTest::keyClick(f.window->menuBar(), Qt::Key_Escape);
    f.Type(u"5"_qs);
    QCOMPARE(f.Boxes(), u"100 5"_qs);
  }

  void StepThenCommand() {
    WindowFixture f;
    QVERIFY(Begin(f));
    f.Enter(u"200\r#"_qs);
    f.Press(Qt::Key_PageDown);  // from the last cam, where the entry goes
    QCOMPARE(ContentOf(f.program), u"1.5: 100-110; 1.32: 200-360"_qs);
    QCOMPARE(f.Text("SizeCam"), u"F01 C01"_qs);
  }

  void UndoTakesTheEntryBackThatItCommits() {
    WindowFixture f;
    QVERIFY(Begin(f));
    f.Enter(u"10\r20\r"_qs);
    f.Type(u"30\r40"_qs);
    f.Choose("o_Undo");
    QCOMPARE(ContentOf(f.program), u"1.5: 10-20 100-110"_qs);
    QVERIFY(!f.Item("o_Undo")->isEnabled());
  }

  /// A program that replaces the one in memory must not get an entry that was never meant for it.
  void NothingOfTheOldEntryInANewProgram_data() {
    QTest::addColumn<QString>("way");
    for (const char* way : {"drop", "drop from another program", "open by keys", "recent"}) {
      QTest::newRow(way) << QString::fromLatin1(way);
    }
  }

  void NothingOfTheOldEntryInANewProgram() {
    QFETCH(QString, way);
    WindowFixture f;
    const QString press = f.Sample(u"press.CAM"_qs);
    f.Options(QFile::encodeName(u"\"p32qx_IT.SCR\",1,9600\r\n"_qs + press + u"\r\n"));
    QVERIFY(Begin(f));
    f.ClickLine(0);
    f.Click(u"GRADIOFF"_qs);  // looked at, nothing typed
    if (way == u"recent"_qs) f.Choose("F_Mnu_oldF_1");
    if (way == u"open by keys"_qs) {
      f.dialog.Expect(press);
      f.Press(Qt::Key_F, Qt::AltModifier, u"f"_qs);
      QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_O);
    }
    if (way.startsWith(u"drop"_qs)) {
      QWidget other;
      if (way != u"drop"_qs) {
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
      }
      f.Drop({QUrl::fromLocalFile(press)});
    }
    QCOMPARE(f.settings.CurrentFile, press);
    const QString loaded = ContentOf(f.program);
    QVERIFY(loaded.contains(u"FEED GRIPPER"_qs));
    f.ClickLine(0);  // the operator looks at what was loaded
    QCOMPARE(ContentOf(f.program), loaded);
  }

  /// The same from the ON box, and the boxes hold a pair of the new program.
  void NothingOfTheOldPairInANewProgram() {
    WindowFixture f;
    const QString press = f.Sample(u"press.CAM"_qs);
    QVERIFY(Begin(f));
    f.Enter({});
    f.program.IsSaved = true;
    f.dialog.Expect(press);
    f.Choose("f_open");
    const QString loaded = ContentOf(f.program);
    f.Type(u"\r\r"_qs);
    QCOMPARE(ContentOf(f.program), loaded);
    QCOMPARE(f.Boxes(), u"268 092"_qs);
    QVERIFY(f.program.IsSaved);
  }

  /// A stepping key that changed no text has moved the selection all the same.
  void NoCommandWorksOnACamThatIsNotShown() {
    WindowFixture f;
    QVERIFY(Begin(f));
    f.program.SetRow(1, 31, RowOf(u"1-2"_qs));
    f.Enter(u"\r"_qs);
    f.Press(Qt::Key_Right);
    f.Type(u"#"_qs);
    f.Click(u"GoPrCam"_qs);
    QCOMPARE(f.Text("SizeCam"), u"F01 C32"_qs);
    QCOMPARE(f.Boxes(), u"001 002"_qs);
    f.Type(u"\r\r"_qs);
    QCOMPARE(ContentOf(f.program), u"1.5: 100-110; 1.32: 1-2"_qs);
  }

  /// Whatever made the program count as saved: a phase that is entered later is work again.
  void LaterEntryIsUnsavedWork_data() {
    QTest::addColumn<QString>("way");
    for (const char* way :
         {"f_save", "f_newp", "f_open", "F_Mnu_oldF_1", "drop", "OFF box alone"}) {
      QTest::newRow(way) << QString::fromLatin1(way);
    }
  }

  void LaterEntryIsUnsavedWork() {
    QFETCH(QString, way);
    WindowFixture f;
    const QString press = f.Sample(u"press.CAM"_qs);
    f.Options(QFile::encodeName(u"\"p32qx_IT.SCR\",1,9600\r\n"_qs + press + u"\r\n"));
    QVERIFY(Begin(f));
    const bool offAlone = way.startsWith(u"OFF"_qs);
    if (offAlone) f.ClickLine(0);
    if (!offAlone) f.Enter({});  // the focus stands in the ON box
    f.prompts.AnswerEverything(true);
    if (way == u"f_save"_qs) f.dialog.Expect(f.Path(u"new.CAM"_qs));
    if (way == u"f_open"_qs) f.dialog.Expect(press);
    if (way == u"drop"_qs) {
      f.Drop({QUrl::fromLocalFile(press)});
    } else if (!offAlone) {
      f.Choose(way.toLatin1().constData());
    }
    QVERIFY(f.program.IsSaved);
    if (f.Focus() == u"Fase"_qs) f.Click(u"GRADION"_qs);  // another program left the boxes
    if (offAlone) {
      f.Click(u"GRADIOFF"_qs);
    } else {
      f.Press(Qt::Key_A, Qt::ControlModifier);
      f.Type(u"300\r"_qs);
    }
    f.Type(u"310"_qs);
    f.prompts.boxes.clear();
    f.prompts.AnswerEverything(false);  // Cancel
    f.window->close();
    QVERIFY(ContentOf(f.program).contains(u"-310"_qs));
    QCOMPARE(f.prompts.Shown().join(u'|'),
             u"Exclamation YesNoCancel: IL PROGRAMMA DI CAMME NON E' STATO SALVATO !"_qs);
    QVERIFY(f.window->isVisible());
  }
};

}  // namespace nira

QTEST_MAIN(nira::LeavingTest)
#include "LeavingTest.moc"
