// SPDX-License-Identifier: Apache-2.0
#include "support/WindowFixture.h"

#include <QMouseEvent>
#include <QTest>

namespace nira {

namespace {

using Action = std::function<void(WindowFixture&)>;

/// What the operator may do while an entry stands in the OFF box, and that counts as a command.
const QList<std::pair<const char*, Action>>& AllCommands() {
  static const QList<std::pair<const char*, Action>> commands = {
      {"PageDown", [](auto& f) { f.Press(Qt::Key_PageDown); }},
      {"scale", [](auto& f) { f.Click(u"Lab_1_2"_qs); }},
      {"next size", [](auto& f) { f.Step(true); }},
      {"save", [](auto& f) { f.Click(u"Sv_Fil"_qs); }},
      {"quit",
       [](auto& f) {
         f.prompts.Expect(Answer::Cancel);
         f.window->close();
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

  /// The commit rebuilds the list under the pointer: the phase that was pressed is the one loaded,
  /// however the hand trembles and also by a double click.
  void PressOnTheList() {
    WindowFixture f;
    QVERIFY(Begin(f));
    f.program.SetRow(1, 0, RowOf(u"20-30 300-310"_qs));
    f.ClickLine(0);
    f.Press(Qt::Key_Home);  // the pair of cam 5, now for cam 1
    f.Click(u"GRADIOFF"_qs);
    auto* list = f.Find<QListWidget>(u"Fase"_qs);
    const QPoint place = list->visualItemRect(list->item(1)).center();
    QTest::mousePress(list->viewport(), Qt::LeftButton, {}, place);
    QMouseEvent jitter(QEvent::MouseMove, place, list->viewport()->mapToGlobal(place), Qt::NoButton,
                       Qt::LeftButton, {});
    QApplication::sendEvent(list->viewport(), &jitter);
    QTest::mouseRelease(list->viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(f.Lines(), u"F001 020 030|F002 100 110|F003 300 310"_qs);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(f.Boxes(), u"300 310"_qs);
  }

  void StaysWhileNothingIsDone() {
    WindowFixture f;
    QVERIFY(Begin(f));
    f.Enter(u"200\r21"_qs);
    QMenuBar* bar = f.window->menuBar();
    const QPoint place = bar->actionGeometry(bar->actions().constFirst()).center();
    QTest::mouseClick(bar, Qt::LeftButton, {}, place);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    QTest::keyClick(bar, Qt::Key_Escape);
    WindowFixture::OtherWindow();
    f.Activate();
    QWidget* box = f.Find(u"GRADIOFF"_qs);
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(box->width() - 4, box->height() / 2));
    QCOMPARE(ContentOf(f.program), u"1.5: 100-110"_qs);
    QCOMPARE(f.Boxes(), u"200 21"_qs);
    QCOMPARE(f.Focus(), u"GRADIOFF"_qs);
    f.Type(u"0\r"_qs);
    QCOMPARE(ContentOf(f.program), u"1.5: 100-110 200-210"_qs);
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
  void NothingOfTheOldEntryInANewProgram() {
    WindowFixture f;
    const QString press = f.Sample(u"press.CAM"_qs);
    QVERIFY(Begin(f));
    f.ClickLine(0);
    f.Click(u"GRADIOFF"_qs);  // looked at, nothing typed
    const auto other = WindowFixture::OtherWindow();
    f.Drop({QUrl::fromLocalFile(press)});
    QCOMPARE(f.settings.CurrentFile, press);
    const QString loaded = ContentOf(f.program);
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

  /// A phase that is entered by the OFF box alone is work again.
  void LaterEntryIsUnsavedWork() {
    WindowFixture f;
    QVERIFY(Begin(f));
    f.program.IsSaved = true;
    f.ClickLine(0);
    f.Click(u"GRADIOFF"_qs);
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
