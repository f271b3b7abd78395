// SPDX-License-Identifier: Apache-2.0
#include "controls/Shades.h"
#include "line/Monit_Com.h"
#include "line/UpdFlsh.h"
#include "messages/ModMsg.h"
#include "support/PaintRecorder.h"
#include "support/Themes.h"
#include "support/WindowFixture.h"

#include <QHash>
#include <QLineEdit>
#include <QTest>

#include <algorithm>

namespace nira {

using namespace Qt::StringLiterals;

namespace {

/// The contrast of what stands out most in a place of a picture with what most of it is.
double ContrastIn(const QImage& picture, const QRect& place) {
  QHash<QRgb, int> colours;
  for (int y = place.top(); y <= place.bottom(); ++y) {
    for (int x = place.left(); x <= place.right(); ++x) ++colours[picture.pixel(x, y)];
  }
  const auto byCount = [&](QRgb a, QRgb b) { return colours[a] < colours[b]; };
  const QList<QRgb> found = colours.keys();
  const QColor ground(*std::max_element(found.begin(), found.end(), byCount));
  double contrast = 1;
  for (const QRgb colour : found) contrast = std::max(contrast, Contrast(QColor(colour), ground));
  return contrast;
}

/// Opens a window by its class or by its menu entry over a sample program and acts on it.
void WithWindow(const QString& item, const std::function<void(QWidget*)>& act) {
  WindowFixture f;
  QVERIFY(f.Start(f.Sample(u"press.CAM"_qs)));
  f.program.ClearSize(9);
  f.Click(u"LabCam_10"_qs);
  f.Enter({});
  f.ClickLine(0);
  const auto show = [&](QWidget&& window) {
    window.show();
    QApplication::processEvents();
    act(&window);
  };
  if (item == u"MainWindow"_qs) {
    QTest::mouseClick(f.Find(u"Diagram"_qs), Qt::LeftButton, {}, {400, 4});  // pins the line
    return act(&*f.window);
  }
  if (item == u"Monit_Com"_qs) return show(Monit_Com(f.instance, nullptr));
  if (item == u"ModMsg"_qs) return show(ModMsg(f.instance, 1, nullptr));
  if (item == u"UpdFlsh"_qs) return show(UpdFlsh(f.instance, f.Path(u"a.abs"_qs), nullptr));
  bool seen = false;
  const auto look = [&](QDialog* dialog) {
    dialog->resize(dialog->size().expandedTo({1000, 700}));
    QApplication::processEvents();
    act(dialog);
    seen = true;
  };
  f.chooseModel = look;
  f.prompts.AnswerEverything(true);
  if (item != u"f_New"_qs) {
    WhenOpens<QDialog>([&](QDialog* dialog) {
      look(dialog);
      dialog->done(0);
    });
  }
  f.Choose(item.toLatin1().constData());
  QVERIFY(seen);
}

/// What the words of a window come to on the screen; those of disabled controls are left out.
QStringList Unreadable(QWidget* window) {
  const QImage picture = window->grab().toImage();
  const PaintRecorder words(window->size(), [=](QPaintDevice* paper) { window->render(paper); });
  QStringList unreadable;
  for (qsizetype i = 0; i < words.Words().size(); ++i) {
    const QRect whole = words.Places().at(i).toAlignedRect() & picture.rect();
    const QWidget* under = window->childAt(whole.center());
    if (under == nullptr) under = window;
    const QRect place = whole & under->rect().translated(under->mapTo(window, QPoint()));
    const bool rolledOut =
        place.height() < whole.height() / 2 || under->inherits("QAbstractScrollArea");
    if (words.Words().at(i).trimmed().isEmpty() || rolledOut || !under->isEnabled()) continue;
    const double contrast = ContrastIn(picture, place);
    if (contrast < 4.5) unreadable.append(words.Words().at(i) + u' ' + QString::number(contrast));
  }
  if (words.Words().isEmpty()) unreadable.append(u"no word was found"_qs);
  return unreadable;
}

/// Where something of a control is drawn that tells what it is or how it stands.
QList<QRect> Shapes(QWidget* window) {
  QList<QRect> shapes;
  const auto add = [&](const QWidget* of, const QRect& part) {
    if (!of->isVisible() || !of->isEnabled()) return;
    shapes.append(part.translated(of->mapTo(window, QPoint())));
  };
  for (const auto* button : window->findChildren<QAbstractButton*>()) {
    const bool toMark = button->inherits("QRadioButton") || button->inherits("QCheckBox");
    if (toMark) add(button, QRect(0, 0, 16, button->height()));
    if (button->inherits("QToolButton") && !button->icon().isNull()) add(button, button->rect());
  }
  for (const auto* box : window->findChildren<QLineEdit*>()) {
    if (box->hasFrame()) add(box, QRect(0, 4, 4, box->height() - 8));
  }
  for (const char* painted : {"Picture1", "Circle", "Shape1"}) {
    const auto* control = window->findChild<QWidget*>(QLatin1String(painted));
    if (control != nullptr) add(control, control->rect());
  }
  const auto* lamp = window->findChild<QLabel*>(u"LabCam_0"_qs);
  if (window->objectName() == u"MainWindow"_qs) {
    add(lamp, lamp->rect().adjusted(lamp->contentsRect().right() + 8, 0, 0, 0));
  }
  return shapes;
}

}  // namespace

/// What every window owes the eye, measured from its pixels.
class LookTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void Contrasts_data() {
    QTest::addColumn<QString>("item");
    QTest::addColumn<QPalette>("colours");
    const std::initializer_list<std::pair<const char*, QPalette>> themes = {
        {"light", {}}, {"dark", Dark(true)}, {"dark with unset roles", Dark(false)}};
    for (const auto& [theme, colours] : themes) {
      for (const char* item :
           {"MainWindow", "Fu_Set", "Al_Msg", "O_Rot", "o_Ant", "setcom", "Pr_size", "f_New",
            "info", "o_AllSizes", "Monit_Com", "ModMsg", "UpdFlsh"}) {
        QTest::addRow("%s: %s", theme, item) << QString::fromLatin1(item) << colours;
      }
    }
  }

  /// At least 4.5 for text, and 3 for shapes.
  void Contrasts() {
    QFETCH(QString, item);
    QFETCH(QPalette, colours);
    QApplication::setStyle(new ThemedStyle(colours));
    WithWindow(item, [](QWidget* window) {
      QCOMPARE(Unreadable(window).join(u", "_qs), QString());
      const QImage picture = window->grab().toImage();
      for (const QRect& shape : Shapes(window)) {
        QVERIFY2(picture.rect().contains(shape) && ContrastIn(picture, shape) >= 3,
                 qPrintable(window->childAt(shape.center())->objectName()));
      }
    });
  }

  /// The smallest window, whatever the one was that its controls were drawn for: no word stands on
  /// another one, and all can be read.
  void LeastWindow() {
    for (const QSize& start : {QSize(800, 560), QSize(1280, 960)}) {
      WindowFixture f;
      QVERIFY(f.Load(f.Sample(u"press.CAM"_qs)));
      f.window->resize(start);
      f.window->show();
      QVERIFY(QTest::qWaitForWindowActive(&*f.window));
      f.Enter({});
      f.Press(Qt::Key_Left);  // a selected text is painted twice
      const QSize least(800, 560);
      f.window->resize(least);
      QApplication::processEvents();
      QCOMPARE(f.window->size(), least);
      const PaintRecorder words(least, [&](QPaintDevice* paper) { f.window->render(paper); });
      QVERIFY2(words.Words().contains(u"LIGHT CURTAIN MUTE"_qs), "a description is cut");
      QCOMPARE(words.Overlap(), QString());
      QVERIFY(f.Find(u"Fase"_qs)->font().pixelSize() >= 14);
    }
  }

  /// The text of the rows follows their height, up to a size that is large enough.
  void RowText() {
    WindowFixture f;
    QVERIFY(f.Start());
    for (const int height : {560, 700, 960, 2000}) {
      f.window->resize(1000, height);
      QApplication::processEvents();
      const int rows = f.Find(u"Barra_31"_qs)->y() - f.Find(u"Barra_0"_qs)->y();
      const int pixels = f.Find(u"LDefC_31"_qs)->font().pixelSize();
      QVERIFY(std::abs(pixels - std::clamp(0.64 * rows / 31, 11.0, 18.0)) < 1);
    }
  }
};

}  // namespace nira

QTEST_MAIN(nira::LookTest)
#include "LookTest.moc"
