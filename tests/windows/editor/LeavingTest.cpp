// SPDX-License-Identifier: Apache-2.0
#include "dialogs/About.h"
#include "support/WindowFixture.h"

#include <QTest>

namespace nira {

namespace {

using Action = std::function<void(WindowFixture&)>;

/// What the operator may do while an entry stands in the OFF box, and that counts as a command.
const QList<std::pair<const char*, Action>>& AllCommands() {
  static const QList<std::pair<const char*, Action>> commands = {
      {"PageDown", [](auto& f) { f.Press(Qt::Key_PageDown); }},
      {"End", [](auto& f) { f.Press(Qt::Key_End); }},
      {"cam number", [](auto& f) { f.Click(u"LabCam_7"_qs); }},
      {"scale", [](auto& f) { f.Click(u"Lab_1_2"_qs); }},
      {"next size", [](auto& f) { f.Step(true); }},
      {"save button", [](auto& f) { f.Click(u"Sv_Fil"_qs); }},
      {"save key", [](auto& f) { f.Press(Qt::Key_S, Qt::ControlModifier); }},
      {"about box",
       [](auto& f) {
         bool opened = false;
         WhenOpens<About>([&opened](About* about) {
           opened = true;
           about->close();
         });
         f.Choose("info");
         QVERIFY(opened);
       }},
      {"quit",
       [](auto& f) {
         f.prompts.Expect(Answer::Cancel);
         f.window->close();
       }},
      {"drop from another program",
       [](auto& f) {
         const auto other = WindowFixture::OtherWindow();
         f.prompts.Expect(Answer::Cancel);
         f.Drop({QUrl::fromLocalFile(f.Path(u"other.CAM"_qs))});
       }},
  };
  return commands;
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
  void Commands_data() {
    QTest::addColumn<Action>("command");
    QTest::addColumn<bool>("typed");
    for (const auto& [name, command] : AllCommands()) {
      QTest::addRow("%s, typed", name) << command << true;
      QTest::addRow("%s, looked at", name) << command << false;
    }
  }

  /// A command commits what was typed, and only that.
  void Commands() {
    QFETCH(Action, command);
    QFETCH(bool, typed);
    WindowFixture f;
    QVERIFY(Begin(f));
    if (typed) {
      f.Enter(u"200\r21"_qs);
    } else {
      f.ClickLine(0);
      f.Press(Qt::Key_Home);  // the boxes hold the pair of another cam now
      f.Click(u"GRADIOFF"_qs);
      f.program.IsSaved = false;
    }
    command(f);
    QCOMPARE(ContentOf(f.program), typed ? u"1.5: 0-21 100-110 200-360"_qs : u"1.5: 100-110"_qs);
    QCOMPARE(f.Item("o_Undo")->isEnabled(), typed);
    QVERIFY2(f.Focus() != u"GRADIOFF"_qs, "the focus is still there");
    const CamProgram& program = f.program;
    QCOMPARE(f.Lines(), PhaseList::Of(program.CamMap(program.CurrentSize(), program.CurrentCam()))
                            .Lines()
                            .join(u'|'));
    const QByteArray file = ReadBytes(f.settings.CurrentFile);
    const bool saves = QByteArray(QTest::currentDataTag()).startsWith("save");
    QCOMPARE(file.contains("C 05\r\n 100 110\r\n 200 021\r\n"), saves && typed);
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

  void PassingCommits_data() { NameRows("way", {"Enter", "Tab", "Backtab", "list", "ON box"}); }

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
    if (way == u"list"_qs) {
      f.program.SetRow(1, 0, RowOf(u"20-30 300-310"_qs));
      f.window->RefreshCam(0);
      f.ClickLine(1);
      QCOMPARE(f.Boxes(), u"100 110"_qs);  // the second line after the commit
      QCOMPARE(f.Runs(1, 0), u"20-30 100-110 300-310"_qs);
    } else {
      QCOMPARE(ContentOf(f.program), u"1.1: 100-110; 1.5: 100-110"_qs);
    }
    QVERIFY(f.Item("o_Undo")->isEnabled());
  }

  void StaysWhileNothingIsDone_data() { NameRows("what", {"menu", "other window", "click back"}); }

  void StaysWhileNothingIsDone() {
    QFETCH(QString, what);
    WindowFixture f;
    QVERIFY(Begin(f));
    f.Enter(u"200\r21"_qs);
    QMenuBar* bar = f.window->menuBar();
    if (what == u"menu"_qs) {
      const QPoint place = bar->actionGeometry(bar->actions().constFirst()).center();
      QTest::mouseClick(bar, Qt::LeftButton, {}, place);
      QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
      QTest::keyClick(bar, Qt::Key_Escape);
    } else {
      const auto other = WindowFixture::OtherWindow();
      QCOMPARE(ContentOf(f.program), u"1.5: 100-110"_qs);
      if (what == u"click back"_qs) {
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
    NameRows("way", {"drop", "open by keys", "recent"});
  }

  void NothingOfTheOldEntryInANewProgram() {
    QFETCH(QString, way);
    WindowFixture f;
    const QString press = f.Sample(u"press.CAM"_qs);
    f.Recent({press});
    QVERIFY(Begin(f));
    f.ClickLine(0);
    f.Click(u"GRADIOFF"_qs);  // looked at, nothing typed
    if (way == u"recent"_qs) f.Choose("F_Mnu_oldF_1");
    if (way == u"open by keys"_qs) {
      f.dialog.Expect(press);
      f.Press(Qt::Key_F, Qt::AltModifier, u"f"_qs);
      QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_O);
    }
    if (way == u"drop"_qs) {
      const auto other = WindowFixture::OtherWindow();
      f.Drop({QUrl::fromLocalFile(press)});
    }
    QCOMPARE(f.settings.CurrentFile, press);
    const QString loaded = ContentOf(f.program);
    QVERIFY(loaded.contains(u"FEED GRIPPER"_qs));
    f.ClickLine(0);  // the operator looks at what was loaded
    QCOMPARE(ContentOf(f.program), loaded);
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
  void LaterEntryIsUnsavedWork_data() { NameRows("way", {"f_save", "OFF box alone"}); }

  void LaterEntryIsUnsavedWork() {
    QFETCH(QString, way);
    WindowFixture f;
    QVERIFY(Begin(f));
    f.program.IsSaved = true;
    if (way == u"OFF box alone"_qs) {
      f.ClickLine(0);
      f.Click(u"GRADIOFF"_qs);
    } else {  // the focus stands in the ON box all the time
      f.Enter({});
      f.prompts.AnswerEverything(true);
      f.dialog.Expect(f.Path(u"new.CAM"_qs));
      f.Choose("f_save");
      QVERIFY(f.program.IsSaved);
      f.Press(Qt::Key_A, Qt::ControlModifier);
      f.Type(u"300\r"_qs);
    }
    f.Type(u"310"_qs);
    f.prompts.AnswerEverything(false);  // Cancel
    f.window->close();
    QVERIFY(ContentOf(f.program).contains(u"-310"_qs));
    QVERIFY(f.prompts.Shown().join(u'|').startsWith(u"Exclamation YesNoCancel: IL PROG"_qs));
    QVERIFY(f.window->isVisible());
  }
};

}  // namespace nira

QTEST_MAIN(nira::LeavingTest)
#include "LeavingTest.moc"
