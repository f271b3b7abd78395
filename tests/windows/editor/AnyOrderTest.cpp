// SPDX-License-Identifier: Apache-2.0
#include "support/WindowFixture.h"

#include <QTest>

#include <random>

namespace nira {

namespace {

using Action = std::function<void(WindowFixture&)>;

/// Presses where the bar of the selected cam is ON for the first time, and drags from there.
void Drag(const WindowFixture& f, int pixels) {
  auto* bar = f.Find<CamBar>(u"Barra_%1"_qs.arg(f.program.CurrentCam()));
  if (bar->Shown().runs.empty()) return;
  const QPoint from = bar->BoxOf(bar->Shown().runs.front()).center();
  QTest::mouseClick(bar, Qt::LeftButton, {}, from);
  QTest::mousePress(bar, Qt::LeftButton, {}, from);
  const QPoint to = from + QPoint(pixels, 0);
  QMouseEvent move(QEvent::MouseMove, to, bar->mapToGlobal(to), Qt::NoButton, Qt::LeftButton, {});
  QApplication::sendEvent(bar, &move);
  QTest::mouseRelease(bar, Qt::LeftButton, {}, to);
}

/// The first of the actions may be no commands: they write into a box, or do nothing.
constexpr qsizetype writing = 15;

const QList<std::pair<const char*, Action>>& Actions() {
  static const QList<std::pair<const char*, Action>> actions = {
      {"0", [](auto& f) { f.Type(u"0"_qs); }},
      {"Backspace", [](auto& f) { f.Type(u"\b"_qs); }},
      {"!", [](auto& f) { f.Type(u"!"_qs); }},
      {"#", [](auto& f) { f.Type(u"#"_qs); }},
      {"Del", [](auto& f) { f.Press(Qt::Key_Delete); }},
      {"Shift+Right", [](auto& f) { f.Press(Qt::Key_Right, Qt::ShiftModifier); }},
      {"Ctrl+Z", [](auto& f) { f.Press(Qt::Key_Z, Qt::ControlModifier); }},
      {"Escape", [](auto& f) { f.Press(Qt::Key_Escape); }},
      {"other window", [](auto&) { WindowFixture::OtherWindow(); }},
      {"Down", [](auto& f) { f.Press(Qt::Key_Down); }},
      {"OFF box",
       [](auto& f) {
         if (f.Find(u"GRADIOFF"_qs)->isVisible()) f.Click(u"GRADIOFF"_qs);
       }},
      {"drag", [](auto& f) { Drag(f, 97); }},
      {"drag back", [](auto& f) { Drag(f, -301); }},
      {"list",
       [](auto& f) {
         const auto* list = f.template Find<QListWidget>(u"Fase"_qs);
         if (list->count() > 0) f.ClickLine(list->count() / 2);
       }},
      {"Undo", [](auto& f) { f.Choose("o_Undo"); }},
      {"Enter", [](auto& f) { f.Type(u"\r"_qs); }},
      {"Ins", [](auto& f) { f.Press(Qt::Key_Insert); }},
      {"Backtab", [](auto& f) { f.Press(Qt::Key_Backtab, Qt::ShiftModifier); }},
      {"PageDown", [](auto& f) { f.Press(Qt::Key_PageDown); }},
      {"entry", [](auto& f) { f.Click(u"GoPrCam"_qs); }},
      {"cam 9 twice", [](auto& f) { f.DoubleClick(u"LabCam_8"_qs); }},
      {"bar", [](auto& f) { f.Click(u"Barra_20"_qs); }},
      {"next size", [](auto& f) { f.Step(true); }},
      {"save", [](auto& f) { f.Click(u"Sv_Fil"_qs); }},
      {"drop", [](auto& f) { f.Drop({QUrl::fromLocalFile(f.Path(u"press.CAM"_qs))}); }},
      {"recent", [](auto& f) { f.Choose("F_Mnu_oldF_1"); }},
      {"size by key", [](auto& f) { f.Press(Qt::Key_PageUp, Qt::ControlModifier); }},
  };
  return actions;
}

}  // namespace

/// Whatever an operator does in whatever order, what is shown is what is in memory.
class AnyOrderTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void ShowsTheProgram_data() {
    QTest::addColumn<unsigned>("seed");
    for (const unsigned seed : {1U, 2U, 3U}) QTest::addRow("%u", seed) << seed;
  }

  void ShowsTheProgram() {
    QFETCH(unsigned, seed);
    WindowFixture f;
    f.prompts.AnswerEverything(true);
    f.Recent({f.Sample(u"press.CAM"_qs)});
    QVERIFY(f.Start(f.Path(u"press.CAM"_qs)));
    std::mt19937 random(seed);
    QStringList done;
    bool stepped = false;
    for (int i = 0; i < 400; ++i) {
      const auto chosen = qsizetype(random() % std::size_t(Actions().size()));
      const auto& [name, action] = Actions().at(chosen);
      done.append(QString::fromLatin1(name));
      const int camBefore = f.program.CurrentCam();
      action(f);
      const QByteArray trace =
          done.mid(std::max<qsizetype>(0, done.size() - 12)).join(u", "_qs).toUtf8();
      const CamProgram& program = f.program;
      const int cam = program.CurrentCam();
      const int size = program.CurrentSize();
      QVERIFY2(cam >= 0 && cam < 32 && size >= 1 && size <= 22, trace.constData());
      QVERIFY2(f.Box("GRADION").size() <= 3 && f.Box("GRADIOFF").size() <= 3, trace.constData());
      // A stepping code alone moves on to a cam that is not shown until the next command.
      stepped = chosen < writing && (stepped || cam != camBefore);
      for (int other = 0; other < 32; ++other) {
        const auto* bar = f.Find<CamBar>(u"Barra_%1"_qs.arg(other));
        QVERIFY2(bar->Shown().runs == PhaseList::Of(program.CamMap(size, other)).runs,
                 trace.constData());
        if (!stepped) QVERIFY2(bar->Shown().selected == (other == cam), trace.constData());
      }
      if (stepped) continue;
      QVERIFY2(f.Lines() == PhaseList::Of(program.CamMap(size, cam)).Lines().join(u'|'),
               trace.constData());
      QVERIFY2(f.Text("SizeCam") ==
                   u"F%1 C%2"_qs.arg(size, 2, 10, QChar(u'0')).arg(cam + 1, 2, 10, QChar(u'0')),
               trace.constData());
    }
  }
};

}  // namespace nira

QTEST_MAIN(nira::AnyOrderTest)
#include "AnyOrderTest.moc"
