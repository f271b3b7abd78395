// SPDX-License-Identifier: Apache-2.0
#include "support/WindowFixture.h"

#include <QMouseEvent>
#include <QTest>

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

  void StatusBar() {
    WindowFixture f;
    QVERIFY(f.StartWith(u"10-20"_qs));
    QCOMPARE(f.Text("StatusChanged"), u"senza file"_qs);
    QWidget* bar = f.Find(u"Barra_5"_qs);
    for (const int degree : {0, 200, 358}) {
      const QPoint place(qRound((degree + 0.5) * bar->width() / 359.0), 3);
      QMouseEvent move(QEvent::MouseMove, place, bar->mapToGlobal(place), Qt::NoButton, {}, {});
      QApplication::sendEvent(bar, &move);
      QCOMPARE(f.Text("StatusDegree"), u"grado %1"_qs.arg(degree, 3, 10, QChar(u'0')));
    }
    f.settings.CurrentFile = f.Path(u"a.CAM"_qs);
    QVERIFY(WriteBytes(f.settings.CurrentFile, {}));
    f.Click(u"Sv_Fil"_qs);
    QCOMPARE(f.Text("StatusChanged"), u"salvato"_qs);
    QVERIFY(f.window->statusBar()->currentMessage().contains(f.settings.CurrentFile));
    f.Enter(u"\r30\r"_qs);
    QCOMPARE(f.Text("StatusChanged"), u"modificato"_qs);
  }
};

}  // namespace nira

QTEST_MAIN(nira::DiagramTest)
#include "DiagramTest.moc"
