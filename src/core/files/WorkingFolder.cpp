// SPDX-License-Identifier: Apache-2.0
#include "files/WorkingFolder.h"

#include "files/FileWriter.h"
#include "files/MessageTable.h"
#include "model/Options.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace nira {

namespace {

/// The lines of a script, at most as many bytes as its reader looks at.
QList<QByteArray> ScriptLines(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return {};
  QList<QByteArray> lines = file.read(MessageTable::MaxScript).split('\n');
  if (lines.constLast().isEmpty()) lines.removeLast();
  return lines;
}

/// A later version of the program brings texts of higher numbers: the user's copy of a script gets
/// the lines that it lacks at its end, and keeps its own. A failure leaves it as it is.
void AddNewTexts(const QString& copy, const QString& installed) {
  QList<QByteArray> own = ScriptLines(copy);
  const QList<QByteArray> all = ScriptLines(installed);
  if (own.isEmpty() || own.size() >= all.size() || !own.constLast().endsWith('\r')) return;
  own.append(all.mid(own.size()));
  const QByteArray bytes = own.join('\n') + '\n';
  FileWriter().Write(copy, {bytes.constData(), static_cast<std::size_t>(bytes.size())},
                     FileWriter::Backup::No);
}

}  // namespace

QString StartFolder(const QString& current) {
  const QString path = QDir::fromNativeSeparators(current);
  if (!path.contains(QStringLiteral("/VB5"))) return current;
  const qsizetype root = path.indexOf(u'/');
  return path.left(root) + QStringLiteral("/VB5/NIRA_QX");
}

WorkingFolder WorkingFolder::Choose(const QString& current, const QString& usersFolder,
                                    const QString& installedScripts) {
  const WorkingFolder here(current, installedScripts);
  if (here.Has(QString::fromLatin1(OptionsName)) ||
      here.Has(QString::fromLatin1(Options::DefaultScript))) {
    return here;
  }
  const WorkingFolder users(usersFolder, installedScripts);
  QDir().mkpath(usersFolder);
  const QDir scripts(installedScripts);
  const QStringList names = installedScripts.isEmpty()
                                ? QStringList()
                                : scripts.entryList({QStringLiteral("*.scr")}, QDir::Files);
  for (const QString& name : names) {
    if (users.Has(name)) {
      AddNewTexts(users.Find(name), scripts.filePath(name));
    } else {
      QFile::copy(scripts.filePath(name), QDir(usersFolder).filePath(name));
    }
  }
  return users;
}

QString WorkingFolder::InstalledScripts(const QString& programFolder) {
  const QDir folder(programFolder);
  for (const char* place : {"lang", "../share/nira-kpl/lang"}) {
    const QString path = QDir::cleanPath(folder.filePath(QString::fromLatin1(place)));
    if (QFileInfo(path).isDir()) return path;
  }
  return {};
}

void WorkingFolder::BringScript(const QString& name) const {
  if (installedScripts_.isEmpty() || Has(name)) return;
  QFile::copy(QDir(installedScripts_).filePath(name), QDir(path_).filePath(name));
}

QString WorkingFolder::Find(const QString& name) const {
  const QDir folder(path_);
  const QString path = folder.filePath(name);
  if (QDir::isAbsolutePath(name) || QFileInfo::exists(path)) return path;
  const QStringList names = folder.entryList(QDir::Files | QDir::Hidden, QDir::Name);
  for (const QString& other : names) {
    if (other.compare(name, Qt::CaseInsensitive) == 0) return folder.filePath(other);
  }
  return path;
}

bool WorkingFolder::Has(const QString& name) const {
  return QFileInfo(Find(name)).isFile();
}

}  // namespace nira
