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
  const int y = bar.height() / 2;
  for (int x = 0; x < bar.width(); ++x) {
    if (bar.pixel(x, y) != colour) continue;
    if (boxes.isEmpty() || boxes.last().first + boxes.last().second < x) {
      boxes.append({x, 1});
    } else {
      ++boxes.last().second;
    }
  }
  return boxes;
}

void MoveTo(QWidget* widget, QPoint place) {
  QMouseEvent move(QEvent::MouseMove, place, widget->mapToGlobal(place), Qt::NoButton, Qt::NoButton,
                   Qt::NoModifier);
  QApplication::sendEvent(widget, &move);
}

}  // namespace

/// The diagram: bars, labels, scale, size stepper and what the status bar says of them.
class DiagramTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Rows() {
    WindowFixture f;
    QVERIFY(f.Start());
    const auto visible = [&f] {
      int rows = 0;
      for (int cam = 0; cam < 32; ++cam) {
        const QString index = QString::number(cam);
        const bool number = f.Find(u"LabCam_"_qs + index)->isVisible();
        if (f.Find(u"LDefC_"_qs + index)->isVisible() != number) return -1;
        if (f.Find(u"Barra_"_qs + index)->isVisible() != number) return -2;
        if (number != (cam == rows)) return rows;
        ++rows;
      }
      return rows;
    };
    QCOMPARE(visible(), 32);
    const int low = f.Find(u"Barra_0"_qs)->height();
    f.program.SetRow(1, 20, RowOf(u"100-110"_qs));
    f.program.SetLimits(44, 16, 100);
    f.window->ShowSizeCam();
    QCOMPARE(visible(), 16);
    QVERIFY(f.Find(u"Barra_0"_qs)->height() > low && f.Find(u"Barra_0"_qs)->height() <= 36);
    QVERIFY(f.Find(u"Barra_15"_qs)->geometry().bottom() < f.Find(u"Diagram"_qs)->height());
    QCOMPARE(f.Text("StatusModel"), u"16 camme  44 formati  100 messaggi"_qs);
    f.Press(Qt::Key_End);
    QCOMPARE(f.Text("SizeCam"), u"F01 C16"_qs);
    QWidget other;
    other.show();
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    f.Activate();
    QVERIFY(f.window->windowTitle().contains(u" QX16-44F  100-Msg  "_qs));
    f.program.SetLimits(9, 32, 255);
    f.window->ShowSizeCam();
    QCOMPARE(visible(), 32);
    QVERIFY(!Boxes(Picture(f, u"Barra_20"_qs), black).isEmpty());
    f.program.SetLimits(9, 16, 255);  // the activation hides them as well
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
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
        QCOMPARE(QColor(at(345)), QColor(own ? blue : black));
        QCOMPARE(QColor(at(115)), QColor(own ? lightBlue : black));
        QCOMPARE(QColor(at(205)), QColor(own ? lightBlue : black));
        QCOMPARE(QColor(at(60)), QColor(own ? yellow : white));
        QCOMPARE(Boxes(bar, own ? lightBlue : black).size(), own ? 2 : 4);
        const QWidget* label = f.Find(u"LDefC_%1"_qs.arg(cam));
        QCOMPARE(label->palette().color(QPalette::WindowText), QColor(own ? blue : black));
        QCOMPARE(QColor(Picture(f, label->objectName()).pixel(2, 2)), QColor(own ? yellow : white));
      }
    }
  }

  void Widths_data() {
    QTest::addColumn<QString>("runs");
    QTest::addColumn<int>("width");
    for (const char* runs : {"0-1", "358-359", "359-360", "180-181", "0-359", "1-360",
                             "0-1 358-359", "0-1 359-360", "0-358", "10-20 21-22 23-359"}) {
      for (const int width : {700, 1024, 1290}) {
        if (width < 1024 && qstrlen(runs) > 15) continue;  // gaps of a degree are too small there
        QTest::newRow(qPrintable(QString::number(width) + u": " + QString::fromLatin1(runs)))
            << QString::fromLatin1(runs) << width;
      }
    }
  }

  void Widths() {
    QFETCH(QString, runs);
    QFETCH(int, width);
    WindowFixture f;
    f.window.emplace(f.instance);
    QVERIFY(f.window->Form_Load({}));
    f.window->resize(width, 768);
    f.window->show();
    QVERIFY(QTest::qWaitForWindowActive(&*f.window));
    f.program.SetRow(1, 0, RowOf(runs));
    f.window->ShowSizeCam();
    const QImage bar = Picture(f, u"Barra_0"_qs);
    const double unit = bar.width() / 359.0;
    const QList<std::pair<int, int>> boxes = Boxes(bar, black);
    const QStringList parts = runs.split(u' ');
    QCOMPARE(boxes.size(), parts.size());
    for (qsizetype i = 0; i < boxes.size(); ++i) {
      const int on = parts.at(i).section(u'-', 0, 0).toInt();
      const int off = parts.at(i).section(u'-', 1).toInt();
      const auto [first, count] = boxes.at(i);
      QVERIFY2(count >= 2, "too thin to be seen");
      QVERIFY2(first >= 1 && first + count <= bar.width() - 1, "outside the margin");
      const int end = bar.width() - 2;  // the margin on the right is twice the one on the left
      QVERIFY(std::abs(first - std::min(on * unit, end - 2.0)) <= 2);
      QVERIFY(std::abs(first + count - std::min(off * unit, end * 1.0)) <= 3);
    }
  }

  /// The bars keep what was drawn last, however the map changes behind them.
  void KeepsItsPicture() {
    WindowFixture f;
    QVERIFY(f.StartWith(u"0-30 100-130"_qs, 3));
    const QSize size = f.window->size();
    const QImage before = Picture(f, u"Barra_3"_qs);
    const QString lines = f.Lines();
    f.program.ClearSize(1);
    f.window->update();
    QCOMPARE(Picture(f, u"Barra_3"_qs), before);
    f.window->resize(size + QSize(150, 60));
    QApplication::processEvents();
    QCOMPARE(Boxes(Picture(f, u"Barra_3"_qs), lightBlue).size(), 1);
    QWidget other;
    other.show();
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    f.Activate();
    f.window->resize(size);
    QApplication::processEvents();
    QCOMPARE(Picture(f, u"Barra_3"_qs), before);
    QCOMPARE(f.Lines(), lines);
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
    QCOMPARE(f.Text("Tot_fasi"), u"002"_qs);
    QCOMPARE(Boxes(Picture(f, u"Barra_9"_qs), black).size(), 1);
    f.Step(false);
    QCOMPARE(f.Lines(), u"F001 010 020"_qs);
    QVERIFY(Boxes(Picture(f, u"Barra_9"_qs), black).isEmpty());
    for (int i = 0; i < 30; ++i) f.Step(true);
    QCOMPARE(f.Text("SizeCam"), u"F22 C04"_qs);
    QVERIFY(f.program.IsSaved);
    QWidget* stepper = f.Find(u"Picture1"_qs);
    const QPoint left(stepper->width() / 2 - 1, 3);
    const QPoint right(stepper->width() / 2, 3);
    QTest::mouseClick(stepper, Qt::RightButton, {}, left);
    QTest::mouseClick(stepper, Qt::LeftButton, {}, left);
    QTest::mouseDClick(stepper, Qt::LeftButton, {}, left);  // the second press of a quick pair
    QTest::mouseRelease(stepper, Qt::LeftButton, {}, left);
    QCOMPARE(f.Text("SizeCam"), u"F20 C04"_qs);
    QTest::mousePress(stepper, Qt::LeftButton, {}, right);
    const QImage pressed = Picture(f, u"Picture1"_qs);
    QTest::mouseRelease(stepper, Qt::LeftButton, {}, right);
    QCOMPARE(f.Text("SizeCam"), u"F21 C04"_qs);
    QVERIFY(pressed != Picture(f, u"Picture1"_qs));
  }

  void StatusBar() {
    WindowFixture f;
    QVERIFY(f.StartWith(u"10-20"_qs));
    QCOMPARE(f.Text("StatusChanged"), u"modificato"_qs);
    QWidget* bar = f.Find(u"Barra_5"_qs);
    for (const int degree : {0, 90, 200, 358}) {
      const QPoint place(qRound((degree + 0.5) * bar->width() / 359.0), 3);
      MoveTo(bar, place);
      QCOMPARE(f.Text("StatusDegree"), u"grado %1"_qs.arg(degree, 3, 10, QChar(u'0')));
    }
    MoveTo(f.Find(u"LabCam_5"_qs), QPoint(3, 3));
    QCOMPARE(f.Text("StatusDegree"), QString());
    f.settings.CurrentFile = f.Path(u"a.CAM"_qs);
    QVERIFY(WriteBytes(f.settings.CurrentFile, {}));
    f.Click(u"Sv_Fil"_qs);
    QCOMPARE(f.Text("StatusChanged"), u"salvato"_qs);
    QVERIFY(f.window->statusBar()->currentMessage().contains(f.settings.CurrentFile));
    f.Enter(u"\r"_qs);
    QCOMPARE(f.Text("StatusChanged"), u"salvato"_qs);
    f.Type(u"30\r"_qs);
    QCOMPARE(f.Text("StatusChanged"), u"modificato"_qs);
  }

  /// Nothing is cut off or covered, from a small screen to a very large one.
  void Fits_data() {
    QTest::addColumn<QSize>("size");
    for (const QSize size : {QSize(1024, 700), QSize(1280, 960), QSize(3840, 2100)}) {
      QTest::newRow(qPrintable(QString::number(size.width()))) << size;
    }
  }

  void Fits() {
    QFETCH(QSize, size);
    WindowFixture f;
    f.window.emplace(f.instance);
    QVERIFY(f.window->Form_Load({}));
    f.window->show();
    QVERIFY(QTest::qWaitForWindowActive(&*f.window));
    f.window->resize(size);
    QString runs;
    for (int degree = 0; degree < 360; degree += 2)
      runs += u"%1-%2 "_qs.arg(degree).arg(degree + 1);
    f.program.SetRow(1, 0, RowOf(runs));
    f.program.SetCamText(0, QString(20, u'W'));
    f.Press(Qt::Key_Home);
    f.ClickLine(0);
    QApplication::processEvents();
    QCOMPARE(f.window->size(), size);
    QCOMPARE(f.Text("Tot_fasi"), u"180"_qs);
    for (const QWidget* widget : f.window->centralWidget()->findChildren<QWidget*>()) {
      if (!widget->isVisible() || widget->objectName().isEmpty()) continue;
      const QRect place(widget->mapTo(&*f.window, QPoint()), widget->size());
      QVERIFY2(f.window->rect().contains(place), qPrintable(widget->objectName()));
    }
    for (const char* name : {"SizeCam", "Tot_fasi", "t_fasi", "LGrad", "LfONOF"}) {
      const auto* label = f.Find<QLabel>(QString::fromLatin1(name));
      QVERIFY2(label->width() >= label->sizeHint().width(), name);
    }
    const auto* list = f.Find<QListWidget>(u"Fase"_qs);
    QVERIFY(list->visualItemRect(list->item(0)).width() <= list->viewport()->width());
    QVERIFY(list->sizeHintForColumn(0) <= list->viewport()->width());
    for (const char* name : {"GRADION", "GRADIOFF"}) {
      const auto* box = f.Find<DegreeBox>(QString::fromLatin1(name));
      QVERIFY2(box->fontMetrics().horizontalAdvance(u"000"_qs) + 12 <= box->width(), name);
    }
    QVERIFY(f.Find(u"LabCam_31"_qs)->height() >= f.Find(u"LabCam_31"_qs)->fontMetrics().ascent());
    QVERIFY(!f.Find(u"LDefC_0"_qs)->toolTip().isEmpty() ||
            f.Find(u"LDefC_0"_qs)->width() >=
                f.Find(u"LDefC_0"_qs)->fontMetrics().horizontalAdvance(QString(20, u'W')));
  }
};

}  // namespace nira

QTEST_MAIN(nira::DiagramTest)
#include "DiagramTest.moc"
