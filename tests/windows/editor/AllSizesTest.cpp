// SPDX-License-Identifier: Apache-2.0
#include "editor/AllSizes.h"
#include "support/WindowFixture.h"

#include <QCheckBox>
#include <QMouseEvent>
#include <QScopeGuard>
#include <QScrollBar>
#include <QTest>

namespace nira {

class AllSizesTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  /// 99 sizes scroll, empty ones can go, and the main window goes to the selected one at once.
  void Window() {
    WindowFixture f;
    QVERIFY(f.StartWith(u"10-20"_qs, 3));
    f.program.SetLimits(99, 32, 255);
    f.program.SetRow(40, 3, RowOf(u"100-110 200-210"_qs));
    f.program.SetRow(99, 5, RowOf(u"0-1"_qs));
    QStringList seen;
    WhenOpens<AllSizes>([&](AllSizes* window) {
      const auto closed = qScopeGuard([window] { window->close(); });
      const auto row = [window](const char* name, int index) {
        return window->findChild<QWidget*>(QString::fromLatin1(name).arg(index));
      };
      const auto label = [&](const char* name, int index) {
        return static_cast<QLabel*>(row(name, index))->text();
      };
      const auto* scroll = window->findChild<QScrollBar*>(u"SizesScroll"_qs);
      const auto tell = [&] {
        int rows = 0;
        while (row("SizeBar_%1", rows) && row("SizeBar_%1", rows)->isVisible()) ++rows;
        seen.append(label("SizeNumber_%1", 0) + u'-' + label("SizeNumber_%1", rows - 1) + u' ' +
                    f.Text("SizeCam"));
        return rows;
      };
      const int fit = tell();
      QVERIFY(fit > 9 && fit < 99 && scroll->maximum() == 99 - fit);
      QTest::keyClick(window->focusWidget(), Qt::Key_End);
      QCOMPARE(tell(), fit);
      QTest::mouseClick(window->findChild<QCheckBox*>(u"HideEmpty"_qs), Qt::LeftButton);
      QCOMPARE(tell(), 3);
      seen.append(label("SizePhases_%1", 1));
      QWidget* bar = row("SizeBar_%1", 1);
      const QPointF place(bar->width() * 205.5 / 359, 3);
      QMouseEvent move(QEvent::MouseMove, place, bar->mapToGlobal(place), Qt::NoButton, {}, {});
      QApplication::sendEvent(bar, &move);
      seen.append(window->findChild<QLabel*>(u"SizesReading"_qs)->text());
      QTest::mouseClick(bar, Qt::LeftButton, {}, place.toPoint());
      tell();
      QTest::keyClick(window->focusWidget(), Qt::Key_Up);
      QTest::keyClick(window->focusWidget(), Qt::Key_Up);
      tell();
      QTest::mouseClick(row("SizePhases_%1", 2), Qt::LeftButton);
      QVERIFY(window->isVisible());
      QTest::mouseDClick(row("SizePhases_%1", 2), Qt::LeftButton);
      QVERIFY(!window->isVisible());
    });
    f.Press(Qt::Key_F4);
    const QString last = seen.value(0).section(u' ', 0, 0).section(u'-', 1);
    const QString first = QString::number(100 - last.toInt());
    QCOMPARE(seen, (QStringList{u"1-%1 F01 C04"_qs.arg(last), first + u"-99 F99 C04"_qs,
                                u"1-99 F99 C04"_qs, u"FASI 2   ON 20°"_qs, u"grado 205  ON: 40"_qs,
                                u"1-99 F40 C04"_qs, u"1-99 F01 C04"_qs}));
    QCOMPARE(f.Text("SizeCam"), u"F99 C04"_qs);
    QCOMPARE(f.program.CurrentCam(), 3);
  }
};

}  // namespace nira

QTEST_MAIN(nira::AllSizesTest)
#include "AllSizesTest.moc"
