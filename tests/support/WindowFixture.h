// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "controls/CamBar.h"
#include "controls/DegreeBox.h"
#include "controls/UserSettings.h"
#include "dialogs/clsCommonDialog.h"
#include "editor/MainWindow.h"
#include "line/Carprg.h"
#include "support/CamFileFixture.h"
#include "support/Rows.h"
#include "support/ScriptedSerial.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QDropEvent>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPushButton>
#include <QStatusBar>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <array>
#include <deque>
#include <functional>
#include <memory>
#include <optional>

namespace nira {

/// A common dialog that answers as it was told in advance and keeps what it was asked. A dialog
/// without an answer fails the test, and so does an answer that no dialog took.
class ScriptedDialog : public clsCommonDialog {
 public:
  ~ScriptedDialog() override {
    if (!answers_.empty() && !QTest::currentTestFailed()) {
      QTest::qFail("fewer dialogs than scripted", __FILE__, __LINE__);
    }
  }

  void Expect(const QString& path) { answers_.push_back(path); }
  void ExpectCancel() { answers_.push_back(std::nullopt); }

  bool ShowOpen(QWidget*) override { return Show(QStringLiteral("open")); }
  bool ShowSave(QWidget*) override { return Show(QStringLiteral("save")); }
  bool ShowFont(QWidget*) override {
    shown.append(QStringLiteral("font; ") + Font.family());
    if (font) Font = *font;
    return font.has_value();
  }
  bool HasPrinter() const override { return printer; }
  bool ShowPrinter(QWidget*) override {
    shown.append(QStringLiteral("printer"));
    return true;
  }

  /// "open; title; filter; flags; preset" of each dialog so far.
  QStringList shown;
  /// Runs while a dialog is shown.
  std::function<void()> during = [] {};
  /// The machine has a printer.
  bool printer = false;
  /// The font that is chosen; none = Cancel.
  std::optional<QFont> font;

 private:
  bool Show(const QString& kind) {
    shown.append(QStringList{kind, DialogTitle, Filter, QString::number(Flags), FileName}.join(
        QStringLiteral("; ")));
    if (answers_.empty()) {
      QTest::qFail("unscripted dialog", __FILE__, __LINE__);
      return false;
    }
    const std::optional<QString> answer = answers_.front();
    answers_.pop_front();
    during();
    if (answer) FileName = *answer;
    return answer.has_value();
  }

  std::deque<std::optional<QString>> answers_;
};

/// A row for each name, in a column of this name.
inline void NameRows(const char* column, std::initializer_list<const char*> names) {
  QTest::addColumn<QString>(column);
  for (const char* name : names) QTest::newRow(name) << QString::fromLatin1(name);
}

/// Runs `act` on the next menu or dialog of this class that opens.
template <typename Widget>
void WhenOpens(const std::function<void(Widget*)>& act) {
  auto* timer = new QTimer(qApp);
  QObject::connect(timer, &QTimer::timeout, timer, [timer, act] {
    QWidget* popup = QApplication::activePopupWidget();
    auto* open = qobject_cast<Widget*>(popup ? popup : QApplication::activeModalWidget());
    if (open == nullptr) return;
    timer->stop();
    timer->deleteLater();
    act(open);
  });
  timer->start(0);
}

/// A main window in a folder of its own that holds the shipped scripts and an options file, and
/// what a person does with it. The port is the given one with its clock, or a scripted one without
/// a programmer: CTS is not held.
struct WindowFixture {
  explicit WindowFixture(SerialControl* port = nullptr, Clock* clock = nullptr)
      : instance{{port ? *port : serial, clock ? *clock : serial, program, settings, texts, writer,
                  working, prompts},
                 dialog,
                 user} {
    serial.Holding = false;
    const QDir scripts(QStringLiteral(NIRA_SOURCE_FOLDER "/lang"));
    for (const QString& name : scripts.entryList(QDir::Files)) {
      QFile::copy(scripts.filePath(name), folder.filePath(name));
    }
    Recent({});
    QObject::connect(&models_, &QTimer::timeout, &models_, [this] {
      if (auto* open = qobject_cast<Carprg*>(QApplication::activeModalWidget())) {
        chooseModel(open);
        QTest::mouseClick(open->findChild<QPushButton*>(QStringLiteral("OKP")), Qt::LeftButton);
      }
    });
    models_.start(0);
  }

  QString Path(const QString& name) const { return folder.filePath(name); }
  QString OptionsPath() const { return Path(QString::fromLatin1(WorkingFolder::OptionsName)); }
  void Options(const QByteArray& bytes) const { QVERIFY(WriteBytes(OptionsPath(), bytes)); }

  /// The shipped options, with recently used files.
  void Recent(const QStringList& paths) const {
    const QString head = QStringLiteral("\"p32qx_IT.SCR\",1,9600\r\n");
    Options(QFile::encodeName(head + paths.join(QStringLiteral("\r\n"))));
  }

  /// A copy of a program of the samples, under its name.
  QString Sample(const QString& name) const {
    const QString path = Path(name);
    QFile::copy(QStringLiteral(NIRA_SOURCE_FOLDER "/samples/") + name, path);
    return path;
  }

  /// Loads the window without showing it.
  bool Load(const QString& startFile = {}) {
    window.emplace(instance, ports);
    return window->Form_Load(startFile);
  }

  /// Loads the window; shown and active when that went well.
  bool Start(const QString& startFile = {}) {
    if (!Load(startFile)) return false;
    window->show();
    return QTest::qWaitForWindowActive(&*window);
  }

  /// Starts with runs "10-20 350-360" in a cam (index from 0) of size 1, this cam selected and
  /// nothing of it work that could be lost.
  bool StartWith(const QString& runs, int cam = 0) {
    if (!Start()) return false;
    program.SetRow(1, cam, RowOf(runs));
    program.TakeAsSaved();
    window->LabCam_Click(cam);
    return true;
  }

  template <typename Widget = QWidget>
  Widget* Find(const QString& name) const {
    auto* widget = window->findChild<Widget*>(name);
    if (widget == nullptr) qFatal("no control %s", qPrintable(name));
    return widget;
  }
  QString Text(const char* label) const { return Find<QLabel>(QString::fromLatin1(label))->text(); }
  QString Box(const char* name) const { return Find<DegreeBox>(QString::fromLatin1(name))->text(); }
  /// "ON OFF" as the boxes show them.
  QString Boxes() const { return Box("GRADION") + u' ' + Box("GRADIOFF"); }
  QString Focus() const {
    const QWidget* widget = window->focusWidget();
    return widget ? widget->objectName() : QString();
  }
  /// The lines of the phase list.
  QString Lines() const {
    const auto* list = Find<QListWidget>(QStringLiteral("Fase"));
    QStringList lines;
    for (int row = 0; row < list->count(); ++row) lines.append(list->item(row)->text());
    return lines.join(u'|');
  }
  QString Runs(int size, int cam) const { return RunsOf(program.CamMap(size, cam)); }

  QAction* Item(const char* name) const {
    auto* item = window->findChild<QAction*>(QString::fromLatin1(name));
    if (item == nullptr) qFatal("no menu item %s", name);
    return item;
  }

  /// Makes the window active again, as a click or the end of a menu does.
  void Activate() const {
    auto* shown = const_cast<MainWindow*>(&*window);
    if (shown->isActiveWindow() || !shown->isVisible()) return;
    shown->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(shown));
  }

  /// Another window that is active until it goes or this one is activated.
  static std::unique_ptr<QWidget> OtherWindow() {
    auto other = std::make_unique<QWidget>();
    other->show();
    other->activateWindow();
    if (!QTest::qWaitForWindowActive(other.get())) qFatal("no other window");
    return other;
  }

  /// Clicks the menu and then the item.
  void Choose(const char* name) {
    Activate();
    const QAction* item = Item(name);
    QMenuBar* bar = window->menuBar();
    for (QAction* top : bar->actions()) {
      QMenu* menu = top->menu();
      const bool inside = menu && menu->actions().contains(item);
      if (top != item && !inside) continue;
      QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(top).center());
      if (!inside) break;
      QTest::mouseClick(menu, Qt::LeftButton, {},
                        menu->actionGeometry(const_cast<QAction*>(item)).center());
      if (menu->isVisible()) menu->close();  // the item is disabled
      break;
    }
    Activate();
  }

  void Click(const QString& name) const {
    Activate();
    QTest::mouseClick(Find(name), Qt::LeftButton);
  }
  void DoubleClick(const QString& name) const {
    Click(name);
    QTest::mouseDClick(Find(name), Qt::LeftButton);
  }
  /// Steps the size by a press on the left or right face.
  void Step(bool next) const {
    Activate();
    QWidget* stepper = Find(QStringLiteral("Picture1"));
    const QPoint place(stepper->width() * (next ? 3 : 1) / 4, stepper->height() / 2);
    QTest::mouseClick(stepper, Qt::LeftButton, {}, place);
  }
  void ClickLine(int row, bool twice = false) const {
    Activate();
    const auto* list = Find<QListWidget>(QStringLiteral("Fase"));
    const QPoint place = list->visualItemRect(list->item(row)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
    if (twice) QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, place);
  }

  /// Opens entry for the selected cam and types; "\r" is Enter, "\t" Tab, "\b" Backspace.
  void Enter(const QString& keys) {
    Click(QStringLiteral("GoPrCam"));
    Type(keys);
  }
  void Type(const QString& keys) const {
    for (const QChar key : keys) {
      const auto control = QStringLiteral("\r\t\b").indexOf(key);
      if (control < 0) {
        Press(Qt::Key(key.toUpper().unicode()), Qt::NoModifier, key);
      } else {
        Press(std::array{Qt::Key_Return, Qt::Key_Tab, Qt::Key_Backspace}.at(std::size_t(control)));
      }
    }
  }
  /// A key for whatever has the focus.
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
             const QString& text = {}) const {
    Activate();
    QWidget* target = QApplication::focusWidget();
    if (target == nullptr) target = const_cast<MainWindow*>(&*window);
    if (text.isEmpty()) return QTest::keyClick(target, key, modifiers);
    QTest::sendKeyEvent(QTest::Click, target, key, text, modifiers);
  }

  /// Drops files on the window.
  void Drop(const QList<QUrl>& urls) {
    QMimeData data;
    data.setUrls(urls);
    const QPoint place(100, 100);
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&*window, &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&*window, &drop);
    QApplication::processEvents();
  }

  QTemporaryDir temporary;
  QDir folder{temporary.path()};
  CamProgram program;
  Globals settings;
  MessageTable texts;
  FileWriter writer;
  WorkingFolder working{temporary.path()};
  ScriptedPrompts prompts;
  ScriptedDialog dialog;
  UserSettings user{Path(QStringLiteral("user.ini"))};
  ScriptedSerial serial;
  PortNames ports{working, QStringLiteral("/nodev")};
  Instance instance;
  std::optional<MainWindow> window;
  /// What the operator clicks in the choice of the model before OK.
  std::function<void(Carprg*)> chooseModel = [](Carprg*) {};

 private:
  QTimer models_;
};

}  // namespace nira
