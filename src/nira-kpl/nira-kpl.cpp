// SPDX-License-Identifier: Apache-2.0
#include "controls/ProgramStyle.h"
#include "controls/UserSettings.h"
#include "dialogs/QtPrompts.h"
#include "dialogs/clsCommonDialog.h"
#include "editor/MainWindow.h"
#include "files/OptionsFile.h"
#include "files/ScriptFile.h"
#include "ground/SystemClock.h"
#include "line/QtSerialControl.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QStandardPaths>

namespace {

using namespace nira;

QString UsersFolder() {
  const QString path = QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation);
  QDir().mkpath(path);
  return path;
}

QString UserSettingsPath() {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
  return QDir(folder).filePath(QStringLiteral("nira-kpl.ini"));
}

/// The text that a second instance shows comes from the script, which is not read yet; without one
/// it is the built-in one.
QString AlreadyRunningText(const WorkingFolder& folder) {
  MessageTable texts;
  ReadScript(texts, folder, ReadOptions(folder).Settings.ScriptFile);
  return texts.Text(TextNumber::AlreadyRunning);
}

/// The cam file of the command line, absolute, without the quotes that a shell may have left on it.
QString StartFile(const QStringList& arguments) {
  if (arguments.isEmpty()) return {};
  QString path = arguments.constFirst();
  if (path.size() > 1 && path.startsWith(u'"') && path.endsWith(u'"')) {
    path = path.mid(1, path.size() - 2);
  }
  return path.isEmpty() ? path : QFileInfo(path).absoluteFilePath();
}

}  // namespace

int main(int argc, char** argv) {
  // The menus stay in the window, under the operator's finger; looking for a desktop's own menu bar
  // would cost a tenth of the start.
  QApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
  QApplication::setStyle(new nira::ProgramStyle);
  QApplication app(argc, argv);
  QApplication::setApplicationName(QStringLiteral("nira-kpl"));
  QApplication::setApplicationVersion(QStringLiteral(NIRA_VERSION));

  QCommandLineParser parser;
  parser.setApplicationDescription(
      QStringLiteral("Programs electronic cam programmers: phases, files, transfer."));
  parser.addHelpOption();
  parser.addVersionOption();
  parser.addPositionalArgument(QStringLiteral("file"), QStringLiteral("Cam file to open."),
                               QStringLiteral("[file.cam]"));
  parser.process(app);
  const QString startFile = StartFile(parser.positionalArguments());

  const QString usersFolder = UsersFolder();
  QDir::setCurrent(StartFolder(QDir::currentPath()));
  const WorkingFolder folder =
      WorkingFolder::Choose(QDir::currentPath(), usersFolder,
                            WorkingFolder::InstalledScripts(QApplication::applicationDirPath()));
  CamProgram program;
  Globals settings;
  MessageTable texts;
  FileWriter writer;
  QtPrompts prompts;
  clsCommonDialog dialog;
  UserSettings user(UserSettingsPath());
  SystemClock clock;
  const PortNames ports(folder);
  QtSerialControl serial(ports, texts, clock);
  Instance instance{
      {serial, clock, program, settings, texts, writer, folder, prompts}, dialog, user};

  QLockFile lock(QDir(usersFolder).filePath(QStringLiteral("nira-kpl.lock")));
  lock.setStaleLockTime(0);  // held as long as its process lives, whatever the clock says
  if (!lock.tryLock() && lock.error() == QLockFile::LockFailedError) {
    prompts.MsgBox(AlreadyRunningText(folder), Buttons::Ok, Icon::Exclamation, {});
    return 1;
  }

  MainWindow window(instance, ports);
  if (!window.Form_Load(startFile)) return 1;
  window.show();
  return QApplication::exec();
}
