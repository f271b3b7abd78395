// SPDX-License-Identifier: Apache-2.0
#include "controls/ProgramStyle.h"
#include "editor/AllSizes.h"
#include "editor/PreviewField.h"
#include "support/Tables.h"
#include "support/WindowFixture.h"

#include <QCheckBox>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QScopeGuard>
#include <QTest>
#include <QToolTip>
#include <QWheelEvent>

namespace nira {

namespace {

constexpr QRgb yellow = 0xffffff00;
constexpr QRgb white = 0xffffffff;
constexpr QRgb blue = 0xff0000ff;
constexpr QRgb lightBlue = 0xff5555ff;
constexpr QRgb black = 0xff000000;

/// What stands on the screen in the place of a control.
QImage Picture(const WindowFixture& f, const QString& name) {
  const QWidget* widget = f.Find(name);
  const QPixmap shown = const_cast<MainWindow&>(*f.window).grab();
  return shown.toImage().copy(QRect(widget->mapTo(&*f.window, QPoint()), widget->size()));
}

/// Moves the pointer over the bar of a cam to the middle of a degree; 359 lies at its right edge.
void PointAt(const WindowFixture& f, int cam, int degree) {
  QWidget* bar = f.Find(u"Barra_%1"_qs.arg(cam));
  const QPoint place(qRound((degree + 0.5) * bar->width() / 359.0), 3);
  QMouseEvent move(QEvent::MouseMove, place, bar->mapToGlobal(place), Qt::NoButton, {}, {});
  QApplication::sendEvent(bar, &move);
}

/// The button goes down, moves or goes up at a place of a control.
void Mouse(QWidget* widget, QEvent::Type type, const QPoint& place) {
  const bool move = type == QEvent::MouseMove;
  QMouseEvent event(type, place, widget->mapToGlobal(place), move ? Qt::NoButton : Qt::LeftButton,
                    type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, {});
  QApplication::sendEvent(widget, &event);
}

/// Presses on the lower scale.
void PinAt(const WindowFixture& f, int degree) {
  const QWidget* bar = f.Find(u"Barra_31"_qs);
  const QPoint place(qRound((degree + 0.5) * bar->width() / 359.0), bar->height() + 8);
  QTest::mouseClick(f.Find(u"Diagram"_qs), Qt::LeftButton, {}, bar->pos() + place);
}

/// The boxes of a bar on the screen as "first+width" from left to right.
QList<std::pair<int, int>> Boxes(const QImage& bar, QRgb colour) {
  QList<std::pair<int, int>> boxes;
  for (int x = 0; x < bar.width(); ++x) {
    if (bar.pixel(x, bar.height() / 2) != colour) continue;
    const bool more = !boxes.isEmpty() && boxes.last().first + boxes.last().second == x;
    more ? void(++boxes.last().second) : boxes.append({x, 1});
  }
  return boxes;
}

}  // namespace

/// The diagram: bars, labels, scale, size stepper and what the status bar says of them.
class DiagramTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Rows() {
    WindowFixture f;
    QVERIFY(f.Start());
    const auto visible = [&f] {  // -1 where a row is not shown as a whole or not from the top
      int rows = 0;
      for (int cam = 0; cam < 32; ++cam) {
        const QString index = QString::number(cam);
        const bool number = f.Find(u"LabCam_"_qs + index)->isVisible();
        if (f.Find(u"LDefC_"_qs + index)->isVisible() != number) return -1;
        if (f.Find(u"Barra_"_qs + index)->isVisible() != number) return -1;
        if (number && cam != rows++) return -1;
      }
      return rows;
    };
    QCOMPARE(visible(), 32);
    f.program.SetRow(1, 20, RowOf(u"100-110"_qs));
    f.program.SetLimits(44, 16, 100);
    f.window->ShowSizeCam();
    QCOMPARE(visible(), 16);
    QCOMPARE(f.Text("StatusModel"), u"16 camme  44 formati  100 messaggi"_qs);
    f.Press(Qt::Key_End);
    QCOMPARE(f.Text("SizeCam"), u"F01 C16"_qs);
    f.program.SetLimits(9, 32, 255);
    f.window->ShowSizeCam();
    QCOMPARE(visible(), 32);
    QVERIFY(!Boxes(Picture(f, u"Barra_20"_qs), black).isEmpty());
    f.program.SetLimits(9, 16, 255);  // the activation hides them as well
    WindowFixture::OtherWindow();
    f.Activate();
    QVERIFY(f.window->windowTitle().contains(u" QX16-09F  255-Msg  "_qs));
    QCOMPARE(visible(), 16);
  }

  void Colours() {
    WindowFixture f;
    const QString runs = u"0-30 100-130 200-210 330-360"_qs;
    QVERIFY(f.StartWith(runs, 3));
    f.program.SetRow(1, 4, RowOf(runs));
    f.program.SetCamText(3, u"TEXT"_qs);
    f.program.SetCamText(4, u"TEXT"_qs);
    for (int selected = 3; selected <= 4; ++selected) {
      f.Click(u"LabCam_%1"_qs.arg(selected));
      for (int cam = 3; cam <= 4; ++cam) {
        const bool own = cam == selected;
        const QImage bar = Picture(f, u"Barra_%1"_qs.arg(cam));
        const double unit = bar.width() / 359.0;
        const auto at = [&](int degree) {
          return bar.pixel(static_cast<int>(degree * unit), bar.height() / 2);
        };
        QCOMPARE(QColor(at(15)), QColor(own ? blue : black));
        QCOMPARE(QColor(at(115)), QColor(own ? lightBlue : black));
        QCOMPARE(QColor(at(60)), QColor(own ? yellow : white));
        QCOMPARE(Boxes(bar, own ? lightBlue : black).size(), own ? 2 : 4);
        const QWidget* label = f.Find(u"LDefC_%1"_qs.arg(cam));
        QCOMPARE(label->palette().color(QPalette::WindowText), QColor(own ? blue : black));
        QCOMPARE(QColor(Picture(f, label->objectName()).pixel(2, 2)), QColor(own ? yellow : white));
      }
    }
  }

  /// Every phase is seen and stays within the bar, the shortest at either end as well.
  void Widths() {
    WindowFixture f;
    QVERIFY(f.Start());
    for (const char* runs : {"0-1", "359-360", "180-181", "0-359", "1-360", "0-1 358-359"}) {
      f.program.SetRow(1, 0, RowOf(QString::fromLatin1(runs)));
      f.window->ShowSizeCam();
      const QImage bar = Picture(f, u"Barra_0"_qs);
      const QList<std::pair<int, int>> boxes = Boxes(bar, black);
      QCOMPARE(boxes.size(), QByteArray(runs).count('-'));
      for (const auto& [first, width] : boxes) {
        QVERIFY2(width >= 2 && first >= 1 && first + width < bar.width(), runs);
      }
    }
  }

  /// The bars keep what was drawn last, however the map changes behind them.
  void KeepsItsPicture() {
    WindowFixture f;
    QVERIFY(f.StartWith(u"0-30 100-130"_qs, 3));
    const QImage before = Picture(f, u"Barra_3"_qs);
    f.program.ClearSize(1);
    f.window->update();
    QCOMPARE(Picture(f, u"Barra_3"_qs), before);
    WindowFixture::OtherWindow();
    f.Activate();
    QCOMPARE(Picture(f, u"Barra_3"_qs), before);
    f.window->resize(f.window->size() + QSize(150, 60));
    QApplication::processEvents();
    QCOMPARE(Boxes(Picture(f, u"Barra_3"_qs), lightBlue).size(), 1);
    f.Press(Qt::Key_PageDown);
    QVERIFY(Boxes(Picture(f, u"Barra_3"_qs), black).isEmpty());
  }

  void Sizes() {
    WindowFixture f;
    QVERIFY(f.StartWith(u"10-20"_qs, 3));
    f.program.SetRow(2, 3, RowOf(u"40-50 60-70"_qs));
    f.program.SetRow(2, 9, RowOf(u"100-110"_qs));
    f.Step(false);
    QCOMPARE(f.Text("SizeCam"), u"F01 C04"_qs);
    f.Step(true);
    QCOMPARE(f.Text("SizeCam"), u"F02 C04"_qs);
    QCOMPARE(f.Lines(), u"F001 040 050|F002 060 070"_qs);
    QCOMPARE(Boxes(Picture(f, u"Barra_9"_qs), black).size(), 1);
    for (int i = 0; i < 30; ++i) f.Step(true);
    QCOMPARE(f.Text("SizeCam"), u"F22 C04"_qs);
    QVERIFY(f.program.IsSaved);
    QWidget* stepper = f.Find(u"Picture1"_qs);
    const QPoint left(stepper->width() / 2 - 1, 3);
    QTest::mouseClick(stepper, Qt::RightButton, {}, left);
    QTest::mouseClick(stepper, Qt::LeftButton, {}, left);
    QTest::mouseDClick(stepper, Qt::LeftButton, {}, left);  // the second press of a quick pair
    QCOMPARE(f.Text("SizeCam"), u"F20 C04"_qs);
    QTest::mousePress(stepper, Qt::LeftButton, {}, left + QPoint(1, 0));
    const QImage pressed = Picture(f, u"Picture1"_qs);
    QTest::mouseRelease(stepper, Qt::LeftButton, {}, left);
    QCOMPARE(f.Text("SizeCam"), u"F21 C04"_qs);
    QVERIFY(pressed != Picture(f, u"Picture1"_qs));
  }

  /// Line, lamps, words and tip tell what is drawn, also when the map behind it has changed.
  void HoverLine() {
    WindowFixture f;
    QVERIFY(f.StartWith(u"350-360 0-10 100-110"_qs, 3));
    f.program.SetRow(1, 5, RowOf(u"109-110"_qs));
    f.program.SetCamText(5, u"<LIFT>"_qs);
    f.Press(Qt::Key_PageDown);
    f.program.ClearSize(1);
    const auto lit = [&f](int cam) {
      const QWidget* number = f.Find(u"LabCam_%1"_qs.arg(cam));
      const QRect place(number->mapTo(&*f.window, QPoint()), number->size());
      const QImage shown = f.window->grab(place).toImage();
      for (int x = 0; x < shown.width(); ++x) {
        if (shown.pixel(x, shown.height() / 2) == 0xffff5555) return true;
      }
      return false;
    };
    const std::array<std::pair<int, const char*>, 6> readings = {
        {{99, "grado 099"},
         {100, "grado 100  ON: 4"},
         {109, "grado 109  ON: 4  6 <LIFT>"},
         {110, "grado 110"},
         {355, "grado 355  ON: 4"},
         {359, "grado 359  ON: 4"}}};
    for (const auto& [degree, text] : readings) {
      PointAt(f, 5, degree);
      QCOMPARE(f.Text("StatusDegree"), QString::fromLatin1(text));
      QCOMPARE(lit(3), f.Text("StatusDegree").contains(u" 4"_qs));
      QCOMPARE(lit(5), degree == 109);
    }
    PointAt(f, 3, 200);
    const QImage crossed = Picture(f, u"Barra_9"_qs);
    QVERIFY(qRed(crossed.pixel(qRound(200 * crossed.width() / 359.0), 5)) > 150);
    QVERIFY(qBlue(crossed.pixel(qRound(200 * crossed.width() / 359.0), 5)) < 150);
    auto* bar = f.Find<CamBar>(u"Barra_5"_qs);
    QCOMPARE(ProgramStyle().styleHint(QStyle::SH_ToolTip_WakeUpDelay, nullptr, bar, nullptr), 300);
    QHelpEvent over(QEvent::ToolTip, bar->BoxOf({109, 110}).center(), QCursor::pos());
    QApplication::sendEvent(bar, &over);
    QVERIFY(QToolTip::text().contains(u"C06 &lt;LIFT&gt;   F001</b><br>ON 109  OFF 110   1°"_qs));
    f.Press(Qt::Key_PageDown);
    QCOMPARE(f.Text("StatusDegree"), u"grado 200"_qs);
  }

  /// A pinned line stays, moves by keys round the cycle, and measures forward to a second one.
  void Pins() {
    WindowFixture f;
    QVERIFY(f.StartWith(u"100-110"_qs, 3));
    PinAt(f, 350);
    PointAt(f, 3, 20);
    f.Press(Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(f.Text("StatusDegree"), u"grado 000"_qs);
    f.Press(Qt::Key_Left);
    QCOMPARE(f.Text("StatusDegree"), u"grado 359"_qs);
    PinAt(f, 300);
    PinAt(f, 105);
    QCOMPARE(f.Text("StatusDegree"), u"grado 105  +106°  ON: 4"_qs);
    f.Press(Qt::Key_PageDown);
    f.Find(u"Fase"_qs)->setFocus();
    f.Press(Qt::Key_Escape);
    QCOMPARE(f.Text("StatusDegree"), u"grado 020"_qs);
    QCOMPARE(f.Focus(), u"Fase"_qs);
    QCOMPARE(f.program.CurrentCam(), 4);
    f.Press(Qt::Key_PageUp);
    f.Press(Qt::Key_Down);
    QApplication::sendEvent(f.Find(u"Diagram"_qs), std::make_unique<QEvent>(QEvent::Leave).get());
    const QImage before = Picture(f, u"Diagram"_qs);
    f.Press(Qt::Key_Backtab, Qt::ShiftModifier);
    QVERIFY(Picture(f, u"Diagram"_qs) != before);  // the focus is seen
    f.Press(Qt::Key_Space);
    f.Press(Qt::Key_Right);
    QCOMPARE(f.Text("StatusDegree"), u"grado 101  ON: 4"_qs);
    QCOMPARE(f.Find(u"Barra_3"_qs)->accessibleName(), u"CAMMA 4, 1 fase: 100-110"_qs);
    QCOMPARE(f.Find(u"Barra_4"_qs)->accessibleName(), u"CAMMA 5, nessuna fase"_qs);
  }

  /// A press on a run selects its phase, one on the empty part of a bar its cam.
  void Clicks() {
    WindowFixture f;
    QVERIFY(f.StartWith(u"0-10 100-110 350-360"_qs, 3));
    f.program.SetRow(1, 5, RowOf(u"20-30 200-210"_qs));
    f.window->ShowSizeCam();
    const auto click = [&f](int cam, int degree, bool twice = false) {
      QWidget* bar = f.Find(u"Barra_%1"_qs.arg(cam));
      const QPoint place(qRound((degree + 0.5) * bar->width() / 359.0), 3);
      QTest::mouseClick(bar, Qt::LeftButton, {}, place);
      if (twice) QTest::mouseDClick(bar, Qt::LeftButton, {}, place);
    };
    click(5, 205);
    QCOMPARE(f.Text("SizeCam") + u' ' + f.Boxes() + u' ' + f.Focus(), u"F01 C06 200 210 Fase"_qs);
    QVERIFY(f.Find<QListWidget>(u"Fase"_qs)->item(1)->isSelected());
    click(5, 209, true);  // at its OFF end
    QCOMPARE(f.Focus(), u"GRADIOFF"_qs);
    click(5, 100, true);
    click(3, 5, true);
    QCOMPARE(f.Text("SizeCam") + u' ' + f.Boxes() + u' ' + f.Focus(),
             u"F01 C04 350 010 GRADION"_qs);
    f.Type(u"\r15"_qs);
    click(5, 25);  // what was typed goes to the cam it was typed for
    QCOMPARE(f.Runs(1, 3), u"0-15 100-110 350-360"_qs);
    QCOMPARE(f.Boxes(), u"020 030"_qs);
    f.program.ClearSize(1);
    click(3, 105);  // drawn, and there no more
    QCOMPARE(f.Text("SizeCam") + u' ' + f.Boxes() + f.Lines(), u"F01 C04 020 030"_qs);
    f.prompts.Expect(Answer::No);
    WhenOpens<QMenu>([&f](QMenu* menu) {
      QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(f.Item("O_ClC")).center());
    });
    QContextMenuEvent wanted(QContextMenuEvent::Mouse, QPoint(5, 5), QCursor::pos());
    QApplication::sendEvent(f.Find(u"LDefC_9"_qs), &wanted);
    QTRY_COMPARE(f.prompts.Shown().value(0), u"Question NoYes: AZZERARE LA CAMMA N. 10 ?"_qs);
    QMenu* opened = nullptr;
    WhenOpens<QMenu>([&opened](QMenu* menu) { (opened = menu)->close(); });
    QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(5, 5), QCursor::pos());
    QApplication::sendEvent(f.Find(u"Fase"_qs), &key);
    QTRY_VERIFY(opened != nullptr);
  }

  /// The ends of the selected run and the run itself follow the pointer; what ends a drag otherwise
  /// than by its release puts it back.
  void Drags_data() {
    TextTable(
        {"grip", "way", "end", "boxes", "after"},
        {{"inwards", "200", "10,0", "release", "210 230", "0-10 100-110 210-230 350-360"},
         {"run", "215", "-50,0", "release", "150 180", "0-10 100-110 150-180 350-360"},
         {"over a neighbour", "215", "-95,0", "release", "105 135", "0-10 105-135 350-360"},
         {"beyond the edge", "215", "155,0", "release", "355 025", "0-25 100-110 355-360"},
         {"a click", "215", "0,3", "release", "200 230", ""},
         {"an unselected run", "105", "30,0", "release", "100 110", ""},
         {"left upwards", "230", "20,-999", "release", "200 240", "0-10 100-110 200-240 350-360"},
         {"Escape", "230", "20,0", "Escape", "200 230", ""},
         {"other window", "230", "20,0", "window", "200 230", ""},
         {"a command", "230", "20,0", "command", "200 230", ""}});
  }

  void Drags() {
    QFETCH(QString, end);
    QFETCH(QString, way);
    WindowFixture f;
    const QString before = u"0-10 100-110 200-230 350-360"_qs;
    QVERIFY(f.StartWith(before, 3));
    f.ClickLine(2);
    f.prompts.AnswerEverything(false);
    auto* bar = f.Find<CamBar>(u"Barra_3"_qs);
    const double unit = bar->width() / 359.0;
    QFETCH(QString, grip);
    const QPoint from(qRound(grip.toInt() * unit), 3);
    const int degrees = way.section(u',', 0, 0).toInt();
    const QPoint step(qRound(degrees * unit), way.section(u',', 1).toInt());
    Mouse(bar, QEvent::MouseButtonPress, from);
    Mouse(bar, QEvent::MouseMove, from + QPoint(qRound(degrees / 2 * unit), 0));
    Mouse(bar, QEvent::MouseMove, from + step);
    QCOMPARE(f.Runs(1, 3), before);
    const Qt::CursorShape shown = bar->cursor().shape();
    if (grip == u"215"_qs) QCOMPARE(shown, Qt::ClosedHandCursor);
    if (grip.endsWith(u'0')) QCOMPARE(shown, Qt::SizeHorCursor);
    if (end == u"Escape"_qs) f.Press(Qt::Key_Escape);
    if (end == u"window"_qs) WindowFixture::OtherWindow();
    if (end == u"command"_qs) f.Item("s_sel")->trigger();
    Mouse(bar, QEvent::MouseButtonRelease, from + step);
    QTEST(f.Boxes(), "boxes");
    QFETCH(QString, after);
    QCOMPARE(f.Runs(1, 3), after.isEmpty() ? before : after);
    QCOMPARE(f.Item("o_Undo")->isEnabled(), !after.isEmpty());
    QCOMPARE(f.program.IsSaved, after.isEmpty());
    QVERIFY(f.Find<QListWidget>(u"Fase"_qs)->currentItem()->text().endsWith(f.Boxes()));
    f.Activate();
    f.Choose("o_Undo");
    QCOMPARE(f.Runs(1, 3), before);
  }

  /// The selected phase is framed and flagged; the one that was written is selected, not loaded.
  void Marks() {
    WindowFixture f;
    QVERIFY(f.StartWith(u"100-110 200-230"_qs, 3));
    const auto flags = [&f] {
      const QImage shown = Picture(f, u"Diagram"_qs);
      const QRect mark = f.Find(u"Lab_1_4"_qs)->geometry();
      QStringList found;
      for (int x = 0; x < shown.width(); ++x) {
        const bool flag = shown.pixel(x, mark.top() - 1) == lightBlue;
        if (flag && shown.pixel(x - 1, mark.top() - 1) != lightBlue)
          found.append(QString::number(x));
      }
      return found.size();
    };
    QCOMPARE(flags(), 0);
    f.ClickLine(1);
    QCOMPARE(flags(), 2);
    const auto* bar = f.Find<CamBar>(u"Barra_3"_qs);
    const QRect box = bar->BoxOf({200, 230});
    const QImage framed = Picture(f, u"Barra_3"_qs);
    QCOMPARE(QColor(framed.pixel(box.left(), box.top() + 1)), QColor(black));
    QCOMPARE(QColor(framed.pixel(box.left(), box.center().y())), QColor(white));  // a handle
    QCOMPARE(QColor(framed.pixel(box.center())), QColor(lightBlue));
    f.Enter(u"300\r310\r"_qs);
    const QList<QListWidgetItem*> chosen = f.Find<QListWidget>(u"Fase"_qs)->selectedItems();
    QCOMPARE(chosen.value(0)->text(), u"F003 300 310"_qs);
    QCOMPARE(chosen.value(0)->data(Qt::UserRole).toString(), u"10°"_qs);
    QCOMPARE(f.Boxes(), u"100 310"_qs);
    QCOMPARE(f.Text("OnSum"), u"ON 50°  14 %"_qs);
    f.window->ShowSizeCam();  // as after an exchange
    QCOMPARE(flags(), 2);
    f.Press(Qt::Key_PageDown);
    QCOMPARE(flags(), 0);
  }

  /// What two Enters would do, in words and in the bar, and amber where nobody asked for it.
  void Preview() {
    WindowFixture f;
    QVERIFY(f.StartWith(u"10-20 100-110"_qs, 3));
    const auto told = [&f]() -> QString {
      const auto* field = f.Find<PreviewField>(u"Preview"_qs);
      return (field->Amber() ? u"! "_qs : QString()) + field->text();
    };
    QVERIFY(!f.Find(u"Preview"_qs)->isVisible());
    f.Enter({});
    QCOMPARE(told(), u"Invio, Invio:\nnessuna modifica"_qs);
    const QImage before = Picture(f, u"Barra_3"_qs);
    f.Type(u"15"_qs);
    QCOMPARE(told(), u"Invio, Invio:\nF001 010-020 → 015-020  5°"_qs);
    const QImage hatched = Picture(f, u"Barra_3"_qs);
    const auto* bar = f.Find<CamBar>(u"Barra_3"_qs);
    QVERIFY(hatched.copy(bar->BoxOf({10, 15})) != before.copy(bar->BoxOf({10, 15})));
    QCOMPARE(hatched.copy(bar->BoxOf({100, 110})), before.copy(bar->BoxOf({100, 110})));
    f.Type(u"\r105"_qs);
    QCOMPARE(told(), u"Invio, Invio:\nunisce F001 e F002: 015-105  90°"_qs);
    f.Type(u"\r"_qs);  // the ON box loads what it had before
    QCOMPARE(told(), u"! coppia non in elenco\nF001 015-105 → 010-105  95°"_qs);
    f.Type(u"350\r14"_qs);
    const QString both = u"nuova fase 350-014  24°; cancella F001 015-105"_qs;
    QCOMPARE(told(), u"! sparisce una fase vicina\n"_qs + both);
    QCOMPARE(f.Runs(1, 3), u"15-105"_qs);
    f.Type(u"0#"_qs);  // to an empty cam; the box is full
    const QString typed = u"nuova fase 350-140  150°"_qs;
    QCOMPARE(told(), u"Invio, Invio:\n"_qs + typed);
    f.Type(u"\r7"_qs);
    f.Click(u"LabCam_9"_qs);
    f.Find(u"Fase"_qs)->setFocus();
    f.Press(Qt::Key_PageDown);  // what was typed was meant for another cam
    QVERIFY(told().startsWith(u"! coppia non in elenco\nnuova fase 007-"_qs));
  }

  /// With a speed: times beside degrees, and below the drawn runs where the outputs really switch.
  void Speed() {
    WindowFixture f;
    QVERIFY(f.StartWith(u"100-120"_qs, 3));
    FunctionsBlock block;
    block.AdvanceOn = block.Ratio25On = 1;
    block.AdvanceLast = 3;
    block.CamFunc[3] = 25;
    f.program.SetFunctions(block);
    f.program.ClearSize(1);  // line and tip tell what is drawn
    const auto speed = [&f](const QString& typed) {
      f.ClickLine(0);
      f.Click(u"Speed"_qs);
      f.Type(typed + u'\r');
      return f.Box("Speed");
    };
    const auto* bar = f.Find<CamBar>(u"Barra_3"_qs);
    f.ClickLine(0);
    const QImage before = Picture(f, u"Diagram"_qs);
    const QImage drawn = Picture(f, u"Barra_3"_qs);
    QCOMPARE(speed(u"600"_qs), u"600"_qs);  // 90 degrees
    PointAt(f, 3, 300);                     // the outline of the row leaves the line in sight
    QImage line = Picture(f, u"Barra_3"_qs);
    PointAt(f, 30, -9);
    line = line.copy(0, line.height() - 1, line.width(), 1);
    const QRect box = bar->BoxOf({10, 30});
    QCOMPARE(Boxes(line, 0xff8e0f8e), (QList{std::pair(box.left(), box.width())}));
    const QRect runs = drawn.rect().adjusted(0, 0, 0, -2);
    QCOMPARE(Picture(f, u"Barra_3"_qs).copy(runs), drawn.copy(runs));
    const QRect ratios(bar->geometry().right() + 2, f.Find(u"Barra_24"_qs)->y(), 9, 99);
    QVERIFY(Picture(f, u"Diagram"_qs).copy(ratios) != before.copy(ratios));
    QHelpEvent over(QEvent::ToolTip, bar->BoxOf({100, 120}).center(), QCursor::pos());
    QApplication::sendEvent(f.Find(u"Barra_3"_qs), &over);
    QVERIFY(
        QToolTip::text().contains(u"20°   5.6 ms<br>R.P.M. 600:  ON 010  OFF 030   -90°</p>"_qs));
    const auto* phase = f.Find<QListWidget>(u"Fase"_qs)->item(0);
    QCOMPARE(phase->data(Qt::UserRole + 1).toString(), u"5.6 ms"_qs);
    QCOMPARE(f.Text("Preview"), u"Invio, Invio:\nnuova fase 100-120  20°  5.6 ms"_qs);
    for (const auto& none : {u""_qs, u"1.5"_qs, u"-1"_qs}) QCOMPARE(speed(none), u"600"_qs);
    QCOMPARE(speed(u"0"_qs), u"0"_qs);
    QCOMPARE(Picture(f, u"Barra_3"_qs), drawn);
  }

  /// 99 sizes scroll, empty ones can go, and the main window follows each choice at once.
  void OneCamOnAllSizes() {
    WindowFixture f;
    QVERIFY(f.StartWith(u"10-20"_qs, 3));
    f.program.SetLimits(99, 32, 255);
    f.program.SetRow(40, 3, RowOf(u"100-110 200-210"_qs));
    f.program.SetRow(99, 5, RowOf(u"0-1"_qs));
    QStringList seen;
    WhenOpens<AllSizes>([&](AllSizes* window) {
      const auto closed = qScopeGuard([window] { window->close(); });
      const auto row = [window](const char* control, int index) {
        return window->findChild<QLabel*>(QString::fromLatin1(control) + QString::number(index));
      };
      const auto tell = [&] {
        int last = 0;
        while (row("SizeNumber_", last + 1) && row("SizeNumber_", last + 1)->isVisible()) ++last;
        seen.append(row("SizeNumber_", last)->text() + u' ' + f.Text("SizeCam").left(3));
        return last;
      };
      const int last = tell();
      QVERIFY(last > 9 && last < 50);
      QTest::keyClick(window->focusWidget(), Qt::Key_End);
      QCOMPARE(tell(), last);
      for (int turn : {120, -120, -120}) {
        QWheelEvent wheel({9, 9}, QCursor::pos(), {}, {0, turn}, {}, {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(window, &wheel);
        seen.append(row("SizeNumber_", last)->text());
      }
      QTest::mouseClick(window->findChild<QCheckBox*>(u"HideEmpty"_qs), Qt::LeftButton);
      auto* bar = window->findChild<CamBar*>(u"SizeBar_1"_qs);
      Mouse(bar, QEvent::MouseMove, bar->BoxOf({200, 210}).center());
      seen.append(window->findChild<QLabel*>(u"SizesReading"_qs)->text().mid(11));
      QTest::mouseClick(bar, Qt::LeftButton);
      QCOMPARE(tell(), 2);
      QTest::keyClick(window->focusWidget(), Qt::Key_Up);
      tell();
      QTest::mouseClick(row("SizePhases_", 2), Qt::LeftButton);
      QTest::mouseDClick(row("SizePhases_", 2), Qt::LeftButton);
      QVERIFY(!window->isVisible());
    });
    f.Press(Qt::Key_F4);
    QCOMPARE(seen.mid(1), (QStringList{u"99 F99"_qs, u"96"_qs, u"99"_qs, u"99"_qs, u"ON: 40"_qs,
                                       u"99 F40"_qs, u"99 F01"_qs}));
    QCOMPARE(f.Text("SizeCam"), u"F99 C04"_qs);
  }

  void StatusBar() {
    WindowFixture f;
    QVERIFY(f.StartWith(u"10-20"_qs));
    QCOMPARE(f.Text("StatusChanged"), u"senza file"_qs);
    f.settings.CurrentFile = f.Path(u"a.CAM"_qs);
    QVERIFY(WriteBytes(f.settings.CurrentFile, {}));
    f.Click(u"Sv_Fil"_qs);
    QCOMPARE(f.Text("StatusChanged"), u"salvato"_qs);
    QVERIFY(f.Text("StatusNote").contains(f.settings.CurrentFile));
    f.Enter(u"\r30\r"_qs);
    QCOMPARE(f.Text("StatusChanged"), u"modificato"_qs);
    f.Click(u"StatusChanged"_qs);
    QCOMPARE(f.Text("StatusChanged"), u"salvato"_qs);
  }
};

}  // namespace nira

QTEST_MAIN(nira::DiagramTest)
#include "DiagramTest.moc"
