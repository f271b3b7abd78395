// SPDX-License-Identifier: Apache-2.0
#include "functions/CalcAnt.h"
#include "functions/FuncSel.h"
#include "support/Tables.h"
#include "support/WindowFixture.h"

#include <QCheckBox>
#include <QRadioButton>
#include <QScrollBar>

#include <random>

namespace nira {

using namespace Qt::StringLiterals;

namespace {

/// A block in few words: "ON 15" for advances up to index 15, "RIT", "RAP17", "RAP25".
FunctionsBlock BlockOf(const QString& words) {
  FunctionsBlock block;
  block.AdvanceOn = words.contains(u"ON"_qs);
  block.AdvanceLast = words.section(u' ', 1, 1).toShort();
  block.DelayOn = words.contains(u"RIT"_qs);
  block.Ratio17On = words.contains(u"RAP17"_qs);
  block.Ratio25On = words.contains(u"RAP25"_qs);
  block.Delay17to20 = 25;
  block.Delay21to24 = 110;
  block.Ratio17to24 = 6;
  block.Ratio25to32 = 4;
  for (std::size_t cam = 0; cam < 32; ++cam) block.CamFunc[cam] = std::uint8_t(cam == 8 ? 250 : 7);
  return block;
}

/// The functions window over a program of its own, and what a person does with it.
struct FunctionsFixture : WindowFixture {
  explicit FunctionsFixture(const QString& words = u"ON 15"_qs) {
    texts.Read(Path(u"p32qx_IT.SCR"_qs));
    program.SetLimits(22, words.endsWith(u"16 cams"_qs) ? 16 : 32, 255);
    program.SetFunctions(BlockOf(words));
    program.SelectCam(0);
  }

  void Open() {
    functions.emplace(instance, demo, nullptr);
    functions->show();
    QVERIFY(QTest::qWaitForWindowActive(&*functions));
  }
  template <typename Widget = QWidget>
  Widget* Get(const QString& name) const {
    auto* widget = functions->findChild<Widget*>(name);
    if (widget == nullptr) qFatal("no control %s", qPrintable(name));
    return widget;
  }
  /// A click on a control; what waited for the click to arrive has happened then.
  void Hit(const QString& name) const {
    QWidget* widget = Get(name);
    const bool check = qobject_cast<QCheckBox*>(widget) != nullptr;
    const QPoint place(check ? 8 : widget->width() / 2, widget->height() / 2);
    QTest::mouseClick(widget, Qt::LeftButton, {}, place);
    QApplication::processEvents();
  }
  void Keys(const QString& keys) const {
    for (const QChar key : keys) {
      QWidget* focused = QApplication::focusWidget();
      if (key == u'\r') {
        QTest::keyClick(focused, Qt::Key_Return);
      } else if (key == u'\t') {
        QTest::keyClick(focused, Qt::Key_Tab);
      } else {
        QTest::sendKeyEvent(QTest::Click, focused, Qt::Key_unknown, key, Qt::NoModifier);
      }
      QApplication::processEvents();
    }
  }
  /// Types over what a box holds, or empties it.
  void Fill(const QString& name, const QString& text) const {
    Hit(name);
    QTest::keyClick(Get(name), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(Get(name), Qt::Key_Delete);
    Keys(text);
  }
  QString BoxText(const char* name) const { return Get<QLineEdit>(QString(name))->text(); }

  /// "007*16 -*16": the value of each column, "-" for one that is out of use.
  QString Columns() const {
    QStringList runs;
    QString last;
    int count = 0;
    for (int cam = 0; cam <= program.NumCams(); ++cam) {
      const QString value = cam == program.NumCams() ? QString() : Column(cam);
      if (value == last && ++count > 0) continue;
      if (count > 0) runs.append(last + u'*' + QString::number(count));
      last = value;
      count = 1;
    }
    return runs.join(u' ');
  }
  QString Column(int cam) const {
    const QString index = QString::number(cam);
    const auto* value = Get<QLabel>(u"lValAn_"_qs + index);
    const bool use = Get(u"LabCam_"_qs + index)->isEnabled();
    if (value->isVisible() != use || Get(u"Barra_"_qs + index)->isVisible() != use) return u"?"_qs;
    return use ? value->text() : u"-"_qs;
  }
  /// "ANT rit (rap17) rap25": capital when ticked, in brackets when disabled.
  QString Checks() const {
    QStringList shown;
    for (const char* name : {"ANT", "RIT", "RAP17", "RAP25"}) {
      const auto* box = Get<QCheckBox>(u"Chk"_qs + QString(name));
      const QString word = box->isChecked() ? QString(name) : QString(name).toLower();
      shown.append(box->isEnabled() ? word : u'(' + word + u')');
    }
    return shown.join(u' ');
  }
  /// The value editor: "title|cams|unit|box|value of highest, large change".
  QString Editor() const {
    const auto* scroll = Get<QScrollBar>(u"ScrVal"_qs);
    return QStringList{
        Get<QLabel>(u"Lantc"_qs)->text(), Get<QLabel>(u"LNcam"_qs)->text(),
        Get<QLabel>(u"Lmsec"_qs)->text(), BoxText("Tmsec"),
        u"%1 of %2, %3"_qs.arg(scroll->value()).arg(scroll->maximum()).arg(scroll->pageStep())}
        .join(u'|');
  }
  /// "1 15 RIT RAP25|output shift sense limit" of the block.
  QString Block() const {
    const FunctionsBlock& b = program.Functions();
    QString words = u"%1 %2"_qs.arg(b.AdvanceOn).arg(b.AdvanceLast);
    if (b.DelayOn == 1) words += u" RIT"_qs;
    if (b.Ratio17On == 1) words += u" RAP17"_qs;
    if (b.Ratio25On == 1) words += u" RAP25"_qs;
    return words + u"|%1 %2 %3 %4"_qs.arg(b.OutputSize)
                       .arg(b.EncoderShift)
                       .arg(b.RotationSense)
                       .arg(b.SpeedLimit);
  }
  /// The ranges that messages named so far.
  QString Told() const {
    QStringList ranges = prompts.Shown();
    return ranges.replaceInStrings(u"Exclamation Ok: VALORE FUORI LIMITI: "_qs, QString())
        .join(u';');
  }

  std::function<void()> demo = [] {};
  std::optional<FuncSel> functions;
};

}  // namespace

/// The functions window, by mouse and keys.
class FuncSelTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void OpensAndCloses_data() {
    TextTable({"columns", "checks", "count", "closed"},
              {{"OFF 3", "-*32", "ant rit rap17 rap25", "00", "0 0|0 0 0 0"},
               {"ON 15 RIT RAP25", "007*8 250*1 007*7 025*4 110*4 1/4*8", "ANT RIT (rap17) RAP25",
                "16", "1 15 RIT RAP25|0 0 0 0"},
               {"ON 15 RIT RAP17", "007*8 250*1 007*7 025*4 110*4 -*8", "ANT RIT (rap17) rap25",
                "16", "1 15 RIT|0 0 0 0"},
               {"OFF 11 RIT RAP17 RAP25 16 cams", "007*8 250*1 007*3 -*4",
                "ANT (rit) (rap17) (rap25)", "12", "1 11|0 0 0 0"},
               {"ON 0 16 cams", "-*16", "ant (rit) (rap17) (rap25)", "00", "0 0|0 0 0 0"},
               {"ON 31 RIT", "007*8 250*1 007*7 025*4 110*4 007*8", "ANT RIT (rap17) rap25", "32",
                "1 31 RIT|0 0 0 0"}});
  }

  void OpensAndCloses() {
    FunctionsFixture f(QString::fromLatin1(QTest::currentDataTag()));
    f.Open();
    QTEST(f.Columns(), "columns");
    QTEST(f.Checks(), "checks");
    QTEST(f.BoxText("TxANT"), "count");
    QCOMPARE(f.Get(u"TxANT"_qs)->isEnabled(), f.Checks().startsWith(u"ANT"_qs));
    f.functions->close();
    QTEST(f.Block(), "closed");
    QCOMPARE(f.Told(), QString());
    QVERIFY(f.program.IsSaved);
    const std::uint64_t revision = f.program.Revision();
    f.Open();
    f.Hit(u"tOK"_qs);
    QCOMPARE(f.program.Revision(), revision);  // looking changes nothing
  }

  /// Numbers that the boxes cannot show whole come back as the boxes show them.
  void ConfigurationAsTheBoxesHoldIt() {
    FunctionsFixture f;
    FunctionsBlock block = BlockOf(u"ON 15"_qs);
    block.OutputSize = block.RotationSense = 255;
    block.EncoderShift = -5;
    block.SpeedLimit = 12345;
    f.program.SetFunctions(block);
    f.Open();
    f.Hit(u"tOK"_qs);
    QCOMPARE(f.Block(), u"1 15|55 0 2 2345"_qs);
  }

  /// The value editor over the cams clicked (from 1), and the columns after one step to the right,
  /// or to the left at the bar's end.
  void Selection_data() {
    TextTable({"block", "cams", "editor", "columns"},
              {{"advance above 210", "ON 15", "9", "ANTICIPO su CAMMA|9|msec.|250|210 of 210, 25",
                "007*8 209*1 007*7 -*16"},
               {"delay of 22", "OFF 0 RIT", "22",
                "RITARDO su CAMME|21 - 24|msec.|110|110 of 210, 25", "-*16 025*4 111*4 -*8"},
               {"ratio of 25", "ON 15 RAP25", "9 25", "RAPPORTO su CAMME|25 - 32|1 /|4|4 of 9, 2",
                "007*8 210*1 007*7 -*8 1/5*8"},
               {"delay after ratio", "OFF 0 RIT RAP25", "32 22",
                "RITARDO su CAMME|21 - 24|msec.|110|9 of 9, 2", "-*16 025*4 008*4 1/4*8"},
               {"advance of 24", "ON 31", "24", "ANTICIPO su CAMMA|24|msec.|7|7 of 210, 25",
                "007*8 250*1 007*14 008*1 007*8"}});
  }

  void Selection() {
    QFETCH(QString, block);
    QFETCH(QString, cams);
    FunctionsFixture f(block);
    f.Open();
    const QString before = f.Columns();
    for (const QString& cam : cams.split(u' ')) f.Hit(u"LabCam_%1"_qs.arg(cam.toInt() - 1));
    QTEST(f.Editor(), "editor");
    if (!before.contains(u"250"_qs)) QCOMPARE(f.Columns(), before);  // selecting stores nothing
    auto* scroll = f.Get<QScrollBar>(u"ScrVal"_qs);
    const bool atEnd = scroll->value() == scroll->maximum();
    QTest::keyClick(scroll, atEnd ? Qt::Key_Left : Qt::Key_Right);
    QTEST(f.Columns(), "columns");
    QCOMPARE(f.BoxText("Tmsec"), QString::number(scroll->value()));
  }

  void BarsShareOneScale() {
    FunctionsFixture f(u"ON 15 RIT RAP25"_qs);
    f.Open();
    const auto height = [&f](int cam) { return f.Get(u"Barra_%1"_qs.arg(cam))->height(); };
    const int full = height(8);  // 250, more than the scale holds
    const auto near = [](int a, int b) { return std::abs(a - b) <= 1; };
    QVERIFY(near(height(20), full * 110 / 210) && near(height(24), full * 4 / 9));
  }

  /// Boxes clicked and counts typed, one after another.
  void Boxes_data() {
    TextTable({"block", "clicks", "checks", "columns"},
              {{"ratio, then delay", "ON 3", "RAP17 RIT", "ANT (rit) RAP17 rap25",
                "007*4 -*12 1/6*8 -*8"},
               {"off and no group", "ON 3", "RIT ANT RIT", "ant rit rap17 rap25", "-*32"},
               {"17", "ON 3", "17", "ANT (rit) (rap17) rap25", "007*8 250*1 007*8 -*15"},
               {"32, then 5", "ON 3", "32 5", "ANT rit rap17 rap25", "007*5 -*27"},
               {"ratio stays", "ON 3", "RAP17 16", "ANT (rit) RAP17 rap25",
                "007*8 250*1 007*7 1/6*8 -*8"},
               {"no groups", "ON 3 16 cams", "RIT 16 ANT ANT", "ANT (rit) (rap17) (rap25)",
                "007*1 -*15"}});
  }

  void Boxes() {
    QFETCH(QString, block);
    QFETCH(QString, clicks);
    FunctionsFixture f(block);
    f.Open();
    for (const QString& word : clicks.split(u' ')) {
      if (word.toInt() > 0) {
        f.Fill(u"TxANT"_qs, word + u'\r');
      } else {
        f.Hit(u"Chk"_qs + word);
      }
    }
    QTEST(f.Checks(), "checks");
    QTEST(f.Columns(), "columns");
    QCOMPARE(f.program.Functions().Ratio17On == 1, f.Checks().contains(u"RAP17"_qs));
    QCOMPARE(f.Told(), QString());
  }

  /// What is typed into a box, how it is left - Enter, Tab, with the button or the window's frame -
  /// and what the block holds after closing.
  void Typing_data() {
    TextTable(
        {"block", "box", "text", "leave", "told", "result"},
        {// A count counts however its box is left; a wrong one is told once, not on closing.
         {"count, frame", "ON 15", "TxANT", "5", "close", "", "1 4|0 0 0 0"},
         {"count, button", "ON 15", "TxANT", "5", "exit", "", "1 4|0 0 0 0"},
         {"too high, Enter", "ON 15", "TxANT", "33", "enter", "1-32", "1 15|0 0 0 0"},
         {"empty, Tab", "ON 15", "TxANT", "", "tab", "1-32", "1 15|0 0 0 0"},
         {"too high, button", "ON 15", "TxANT", "33", "exit", "", "1 15|0 0 0 0"},
         {"beside ratio 25", "ON 15 RAP25", "TxANT", "25", "enter", "1-24", "1 15 RAP25|0 0 0 0"},
         {"up to ratio 25", "ON 15 RAP25", "TxANT", "24", "close", "", "1 23 RAP25|0 0 0 0"},
         {"two digits", "ON 15", "TxANT", "1x24", "enter", "", "1 11|0 0 0 0"},
         // The configuration is taken over by closing, wrong or not; only Enter looks at it.
         {"wrong size, Enter", "ON 15", "Tforusc", "99", "enter", " 1 22", "1 15|99 0 0 0"},
         {"sense, Enter", "ON 15", "Trotaz", "2", "enter", " 0-1", "1 15|0 0 2 0"},
         {"limit, Enter", "ON 15", "Tlimvel", "a-1.59999", "enter", "", "1 15|0 0 0 1599"},
         {"shift, Enter", "ON 15", "Tsfas", "-999", "enter", "", "1 15|0 -99 0 0"},
         {"shift, letters", "ON 15", "Tsfas", "\u20acx", "tab", "", "1 15|0 0 0 0"}});
  }

  void Typing() {
    QFETCH(QString, block);
    QFETCH(QString, box);
    QFETCH(QString, text);
    QFETCH(QString, leave);
    QFETCH(QString, told);
    FunctionsFixture f(block);
    f.Open();
    f.Fill(box, text);
    if (!told.isEmpty()) f.prompts.Expect();
    if (leave == u"enter"_qs) f.Keys(u"\r"_qs);
    if (leave == u"tab"_qs) f.Keys(u"\t"_qs);
    if (leave == u"exit"_qs) f.Hit(u"tOK"_qs);
    QCOMPARE(f.functions->isVisible(), leave != u"exit"_qs);
    QCOMPARE(QApplication::focusWidget() == f.Get(box),
             leave == u"enter"_qs || leave == u"close"_qs);
    QCOMPARE(f.Told(), told);
    // What was refused stays where it is, marked, with what is allowed in words.
    if (!told.isEmpty()) QCOMPARE(f.Get<QLineEdit>(box)->text(), text);
    const QString note = f.Get<QLabel>(u"Note"_qs)->text();
    QCOMPARE(note.section(u": "_qs, 1).startsWith(text + u" non ammesso, da "_qs), !told.isEmpty());
    const QPalette shown = f.Get(box)->palette();
    QCOMPARE(shown.color(QPalette::Base) != QApplication::palette().color(QPalette::Base),
             !told.isEmpty());
    f.functions->close();
    QApplication::processEvents();
    QCOMPARE(f.Told(), told);
    QTEST(f.Block(), "result");
  }

  void TypedValue_data() {
    TextTable({"cam", "keys", "told", "columns"},
              {{"too high", "1", "211\r", "0-210", "007*8 250*1 007*7 025*4 110*4 1/4*8"},
               {"empty", "1", "\r", "", "000*1 007*7 250*1 007*7 025*4 110*4 1/4*8"},
               {"of cam 21", "21", "30\r", "", "007*8 250*1 007*7 030*4 110*4 1/4*8"},
               {"ratio too high", "25", "10\r", "0-9", "007*8 250*1 007*7 025*4 110*4 1/4*8"}});
  }

  void TypedValue() {
    QFETCH(QString, cam);
    QFETCH(QString, keys);
    QFETCH(QString, told);
    FunctionsFixture f(u"ON 15 RIT RAP25"_qs);
    f.Open();
    f.Hit(u"LabCam_%1"_qs.arg(cam.toInt() - 1));
    if (!told.isEmpty()) f.prompts.Expect();
    f.Fill(u"Tmsec"_qs, keys);
    QCOMPARE(f.Told(), told);
    QTEST(f.Columns(), "columns");
  }

  /// A delay above the range that is left behind a ratio: the bar stands at the typed value
  /// already.
  void TypedAtTheEndOfTheBar() {
    FunctionsFixture f(u"OFF 0 RIT RAP25"_qs);
    f.Open();
    f.Hit(u"LabCam_31"_qs);
    f.Hit(u"LabCam_21"_qs);
    f.Fill(u"Tmsec"_qs, u"9\r"_qs);
    QCOMPARE(f.Columns(), u"-*16 025*4 009*4 1/4*8"_qs);
  }

  /// What the boxes make of the selected cam is what the editor says and lets enter.
  void EditorFollowsTheBoxes() {
    FunctionsFixture f(u"ON 7 RAP25"_qs);
    f.program.SelectCam(31);
    f.Open();
    QCOMPARE(f.Editor().section(u'|', 1), u"25 - 32|1 /|4|4 of 9, 2"_qs);
    f.Hit(u"ChkRAP25"_qs);
    QVERIFY(!f.Get(u"Tmsec"_qs)->isEnabled() && !f.Get(u"ScrVal"_qs)->isEnabled());
    f.Fill(u"TxANT"_qs, u"32\r"_qs);
    QCOMPARE(f.Editor().section(u'|', 1), u"32|msec.|7|7 of 210, 25"_qs);
    QVERIFY(f.Get(u"Tmsec"_qs)->isEnabled());
  }

  /// A size too high puts the number of sizes into the other box, which tells of it when it is
  /// left; one message for one loss of the focus, however often windows come and go over the box.
  void OutputSizeGoesAstray() {
    FunctionsFixture f(u"ON 15 RIT"_qs);
    f.Open();
    f.prompts.Expect();
    f.Fill(u"Tforusc"_qs, u"23\r"_qs);
    QCOMPARE(f.BoxText("Tforusc") + u' ' + f.BoxText("TxANT"), u"23 22"_qs);
    f.Hit(u"TxANT"_qs);
    WindowFixture::OtherWindow();
    f.functions->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&*f.functions));
    f.prompts.Expect();
    f.Hit(u"ChkANT"_qs);
    QCOMPARE(f.Told(), u" 1 22;1-16"_qs);
  }

  /// The option buttons lead to their boxes, and from then on Enter has nothing to press.
  void ButtonsAndKeys() {
    FunctionsFixture f;
    bool opened = false;
    f.demo = [&opened] { opened = true; };
    f.Open();
    for (const char* row : {"forusc", "sfas", "rotaz", "limvel"}) {
      auto* option = f.Get<QRadioButton>(u'O' + QString(row));
      QTest::mouseClick(option, Qt::LeftButton, {}, QPoint(8, option->height() / 2));
      auto* box = f.Get<QLineEdit>(u'T' + QString(row));
      QCOMPARE(QApplication::focusWidget(), box);
      QCOMPARE(box->selectedText(), box->text());
    }
    f.Keys(u"\r"_qs);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QVERIFY(f.functions->isVisible());
    f.Get(u"tDEMO"_qs)->setFocus();
    f.Keys(u"\r"_qs);
    QVERIFY(opened);
    QTest::keyClick(&*f.functions, Qt::Key_X, Qt::AltModifier);
    QTRY_VERIFY(!f.functions->isVisible());
  }

  /// A click anywhere in a column in use is one on its cam, and sets nothing.
  void ClicksInTheColumns() {
    FunctionsFixture f(u"ON 3 RAP25"_qs);
    f.program.SetCamText(2, u"FEED"_qs);
    f.Open();
    const QString before = f.Columns();
    QStringList editors;
    for (const int cam : {2, 8, 26}) {
      const QPoint place = f.Get(u"LabCam_%1"_qs.arg(cam))->geometry().center();
      QTest::mouseClick(f.Get(u"Columns"_qs), Qt::LeftButton, {}, QPoint(place.x(), 90));
      editors.append(f.Editor().section(u'|', 1, 1) + u' ' +
                     f.Get<QLabel>(u"Description"_qs)->text());
    }
    QCOMPARE(editors, (QStringList{u"3 C03 FEED"_qs, u"3 C03 FEED"_qs, u"25 - 32 C27"_qs}));
    f.Hit(u"Barra_1"_qs);
    QCOMPARE(f.program.CurrentCam(), 1);
    QCOMPARE(f.Columns(), before);
  }

  /// From one cam in use to the next, past those that are not.
  void KeysInTheColumns() {
    FunctionsFixture f(u"ON 3 RAP25"_qs);
    f.Open();
    QList<int> cams;
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_End, Qt::Key_Left, Qt::Key_Home,
                              Qt::Key_End, Qt::Key_Right}) {
      QTest::keyClick(f.Get(u"Columns"_qs), key);
      cams.append(f.program.CurrentCam());
    }
    QCOMPARE(cams, (QList<int>{0, 1, 31, 30, 0, 31, 31}));
    f.program.SelectCam(24);
    f.Open();
    QTest::keyClick(f.Get(u"Columns"_qs), Qt::Key_Left);
    QCOMPARE(f.program.CurrentCam(), 3);
  }

  /// From the menu, into the calculator over the cam just selected, and back with the time that it
  /// found: typed into the value's box it is the cam's, and until then nothing is. The cam that is
  /// selected here is selected in the main window.
  void CalculatorAndBack() {
    WindowFixture f;
    QVERIFY(f.Start(f.Sample(u"press.CAM"_qs)));
    QString seen;
    WhenOpens<FuncSel>([&](FuncSel* open) {
      const auto click = [open](const QString& name) {
        QTest::mouseClick(open->findChild<QWidget*>(name), Qt::LeftButton);
      };
      click(u"LabCam_4"_qs);
      click(u"ChkRIT"_qs);
      WhenOpens<CalcAnt>([&seen](CalcAnt* calculator) {
        seen = calculator->findChild<QLabel*>(u"Label14"_qs)->text();
        calculator->findChild<QScrollBar*>(u"ScrollAnt"_qs)->setValue(50);
        QTest::mouseClick(calculator->findChild<QWidget*>(u"Command1"_qs), Qt::LeftButton);
      });
      click(u"tDEMO"_qs);
      auto* box = open->findChild<QLineEdit*>(u"Tmsec"_qs);
      seen += u' ' + box->text() + u' ' + QString::number(f.program.Functions().CamFunc[4]);
      box->setText(u"50"_qs);
      QTest::keyClick(box, Qt::Key_Return);
      click(u"tOK"_qs);
    });
    f.Choose("Fu_Set");
    QCOMPARE(seen, u"F01 C05 24 24"_qs);
    QCOMPARE(f.Text("SizeCam"), u"F01 C05"_qs);
    QVERIFY(f.Find<CamBar>(u"Barra_4"_qs)->Shown().selected);
    QCOMPARE(int(f.program.Functions().CamFunc[4]), 50);
    QCOMPARE(int(f.program.Functions().DelayOn), 0);  // the boxes stood as they were left
  }

  /// Whatever is clicked and typed in whatever order, the block stays inside the model and the
  /// columns show it.
  void AnyOrder() {
    FunctionsFixture f;
    f.prompts.AnswerEverything(true);
    f.Open();
    std::mt19937 random(4);
    static constexpr const char* names[] = {"ChkANT",  "ChkRIT", "ChkRAP17", "ChkRAP25",
                                            "TxANT",   "Tmsec",  "Tforusc",  "Tsfas",
                                            "Oforusc", "ScrVal", "LabCam_"};
    for (int i = 0; i < 1500; ++i) {
      QString name(names[random() % std::size(names)]);
      if (name.endsWith(u'_')) name += QString::number(random() % 32);
      f.Hit(name);
      f.Keys(u"0123456789-a\r\t"_qs.mid(qsizetype(random() % 14), 1 + qsizetype(random() % 2)));
      const FunctionsBlock& block = f.program.Functions();
      QVERIFY(block.AdvanceLast >= 0 && block.AdvanceLast < 32);
      const auto* scroll = f.Get<QScrollBar>(u"ScrVal"_qs);
      QVERIFY(scroll->maximum() == HighestTime || scroll->maximum() == HighestRatio);
      QVERIFY(!f.Checks().contains(u"RIT RAP17"_qs));
      QVERIFY(!f.Columns().contains(u'?'));
      if (f.Get<QCheckBox>(u"ChkRAP25"_qs)->isChecked()) {
        QCOMPARE(f.Column(31), u"1/"_qs + QString::number(block.Ratio25to32));
      }
    }
  }
};

}  // namespace nira

QTEST_MAIN(nira::FuncSelTest)
#include "FuncSelTest.moc"
