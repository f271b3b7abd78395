// SPDX-License-Identifier: Apache-2.0
#include "line/SETCOMM.h"
#include "support/WindowFixture.h"

#include <QFileInfo>
#include <QLockFile>

namespace nira {

/// The choice of port and speed, from the menu to the options file.
class SETCOMMTest : public QObject {
  Q_OBJECT

 private:
  static QString Marked(const SETCOMM* window) {
    QStringList marked;
    for (const auto* button : window->findChildren<QRadioButton*>()) {
      if (button->isChecked()) marked.append(button->objectName());
    }
    return marked.join(u' ');
  }

 private Q_SLOTS:
  /// What was clicked holds after Cancel too, but only OK writes it. Tab goes to the checked ones
  /// and to what unfolds the ports that are not there.
  void Chooses() {
    for (const char* button : {"OKButton", "CancelButton", "Escape"}) {
      WindowFixture f;
      const QByteArray options = "\"p32qx_IT.SCR\",1,9600\r\n/a.CAM\r\n";
      f.Options(options);
      QVERIFY(f.Start());
      QString marked;
      f.settings.PortErrorFlag = 8002;
      WhenOpens<SETCOMM>([&](SETCOMM* window) {
        QVERIFY(QTest::qWaitForWindowActive(window));
        QVERIFY(!window->findChild<QWidget*>(u"OpCOM_8"_qs)->isVisible());
        for (const auto key : {Qt::Key_Tab, Qt::Key_Space, Qt::Key_Tab}) {
          QTest::keyClick(window->focusWidget(), key);
        }
        marked = window->focusWidget()->objectName() + u' ';
        for (const char* click : {"OpCOM_8", "Baud192"}) {
          auto* choice = window->findChild<QRadioButton*>(QString::fromLatin1(click));
          QTest::mouseClick(choice, Qt::LeftButton, {}, QPoint(8, choice->height() / 2));
        }
        marked += Marked(window) + window->findChild<QLabel*>(u"SettPort"_qs)->text();
        auto* end = window->findChild<QPushButton*>(QString::fromLatin1(button));
        if (end == nullptr) return QTest::keyClick(window, Qt::Key_Escape);
        QTest::mouseClick(end, Qt::LeftButton);
      });
      f.Choose("setcom");
      QCOMPARE(marked, u"Baud96 OpCOM_8 Baud192COM8: 19200"_qs);
      QCOMPARE(f.settings.PortNumber * 100000 + f.settings.BaudRate, 819200);
      QCOMPARE(f.settings.PortErrorFlag, 0);
      const bool writes = QByteArray(button) == "OKButton";
      QCOMPARE(ReadBytes(f.OptionsPath()), writes ? "\"p32qx_IT.SCR\",8,19200\r\n" : options);
      QVERIFY(f.Text("DeviceBlock").startsWith(u"COM8  "));
    }
  }

  /// Each port says what stands behind it; a click on that is a click on the port.
  void Devices() {
    WindowFixture f;
    const QString adapter = QFileInfo(f.OptionsPath()).canonicalFilePath();
    for (const char* link : {"com2", "com3"}) {
      QVERIFY(WriteBytes(f.Path(QString::fromLatin1(link)), WorkingFolder::OptionsName));
    }
    QLockFile mark(f.Path(u"com3.simulated"_qs));
    QVERIFY(mark.lock());
    QVERIFY(f.Start());
    QStringList shown;
    WhenOpens<SETCOMM>([&](SETCOMM* window) {
      for (const auto* port : window->findChildren<QRadioButton*>()) {
        const QString device = port->accessibleDescription();
        if (!device.isEmpty() && port->isVisible())
          shown.append(port->text() + u' ' + device.trimmed());
      }
      for (auto* label : window->findChildren<QLabel*>()) {
        if (label->text() == u"programmatore simulato") QTest::mouseClick(label, Qt::LeftButton);
      }
      QTest::mouseClick(window->findChild<QPushButton*>(u"OKButton"_qs), Qt::LeftButton);
    });
    f.Choose("setcom");
    QCOMPARE(shown.join(u'|'), u"COM1 /nodev/ttyS0 non presente|COM2 "_qs + adapter + u"|COM3 " +
                                   adapter + u" programmatore simulato");
    QCOMPARE(f.settings.PortNumber, 3);
    const QString sign = u"\nprogrammatore simulato"_qs;
    QVERIFY(f.Text("DeviceBlock").endsWith(sign));
    QVERIFY(f.Find(u"DeviceBlock"_qs)->toolTip().contains(adapter));
    mark.unlock();
    f.window->LabCam_Click(1);  // a command alone looks nothing up
    QVERIFY(f.Text("DeviceBlock").endsWith(sign));
    WindowFixture::OtherWindow();
    f.Activate();
    QVERIFY(f.Text("DeviceBlock").endsWith(adapter));
  }

  void OptionsThatCannotBeWritten() {
    WindowFixture f;
    f.Options("\"p32qx_IT.SCR\",12,4800\r\n");  // neither is a choice of the window
    QVERIFY(f.Start());
    f.settings.PortErrorFlag = 8002;
    QVERIFY(QFile::remove(f.OptionsPath()) && f.folder.mkdir(f.OptionsPath()));
    f.prompts.Expect();
    WhenOpens<SETCOMM>([](SETCOMM* window) {
      QCOMPARE(Marked(window), QString());
      QVERIFY(window->findChild<QWidget*>(u"Baud3"_qs)->focusPolicy() & Qt::TabFocus);
      window->findChild<QRadioButton*>(u"Baud24"_qs)->click();
      QTest::mouseClick(window->findChild<QPushButton*>(u"OKButton"_qs), Qt::LeftButton);
    });
    f.Choose("setcom");
    QVERIFY(f.prompts.Shown().constFirst().startsWith(
        u"Critical Ok: IMPOSSIBILE SCRIVERE IL FILE\nKlmQx_opt.def\n"));
    QCOMPARE(f.Text("DeviceBlock").section(u' ', 0, 0), u"COM12"_qs);
    QCOMPARE(f.settings.BaudRate * 10000 + f.settings.PortErrorFlag, 24008002);
  }
};

}  // namespace nira

QTEST_MAIN(nira::SETCOMMTest)
#include "SETCOMMTest.moc"
