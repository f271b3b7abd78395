#include "files/WorkingFolder.h"

#include "model/Globals.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace nira {

QString StartFolder(const QString& current) {
  const QString path = QDir::fromNativeSeparators(current);
  if (!path.contains(QStringLiteral("/VB5"))) return current;
  const qsizetype root = path.indexOf(u'/');
  return path.left(root) + QStringLiteral("/VB5/NIRA_QX");
}

WorkingFolder WorkingFolder::Choose(const QString& current, const QString& usersFolder,
                                    const QString& installedScripts) {
  const WorkingFolder here(current);
  if (here.Has(QString::fromLatin1(OptionsName)) ||
      here.Has(QString::fromLatin1(Globals::DefaultScript))) {
    return here;
  }
  const WorkingFolder users(usersFolder);
  QDir().mkpath(usersFolder);
  const QDir scripts(installedScripts);
  const QStringList names = installedScripts.isEmpty()
                                ? QStringList()
                                : scripts.entryList({QStringLiteral("*.scr")}, QDir::Files);
  for (const QString& name : names) {
    if (!users.Has(name)) QFile::copy(scripts.filePath(name), QDir(usersFolder).filePath(name));
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
