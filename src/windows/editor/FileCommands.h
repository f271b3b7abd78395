// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "controls/Instance.h"
#include "files/CamFile.h"

#include <QObject>
#include <QStringList>
#include <QWidget>

namespace nira {

/// What the File menu does with cam files, and the ways in which one is opened otherwise.
class FileCommands : public QObject {
  Q_OBJECT

 public:
  FileCommands(Instance& instance, QWidget* window);

  /// A new program begins with the choice of the model. Asks first when unsaved work would be
  /// thrown away: the choice itself has no way back.
  void f_newp_Click();

  /// Opens the file that the operator chooses.
  void f_Open();

  /// Saves to `CurrentFile`, or as "Save As" does when there is no such file. True when saved.
  bool f_S();

  /// Saves under the name that the operator chooses, with the extension forced. True when saved.
  bool f_Save();

  /// Opens a file of the recent list, or one that was dropped on the window.
  void F_Mnu_oldF_Click(const QString& path);

  /// Opens the file of the command line.
  void OpenAtStart(const QString& path);

  /// `CurrentFile` holds the program as it is now.
  bool IsOnFile() const;

  /// Recently used files, the last one first, at most five.
  void SetRecent(const QStringList& paths);

 Q_SIGNALS:
  /// Another program is in memory: everything has to be drawn anew.
  void ProgramReplaced();
  void Saved();
  void TitleChanged(const QString& title);
  /// A file was not taken for its numbers of cams and sizes.
  void Refused(const QString& path, const nira::CamFileCounts& counts);
  void RecentChanged(const QStringList& paths);
  /// What was done, or not.
  void Note(const QString& text);

 private:
  void f_New();
  void Load();
  /// True when nothing is unsaved or the operator agrees to lose it.
  bool MayLoseWork();
  Result<LoadedFile> Read();
  void TakeAsRecent(const QString& path, const LoadedFile& file);
  bool CanBeRead(const QString& path);
  bool Save(TextNumber done);
  bool MayReplace(const QString& chosen, const QString& forced);

  Instance& instance_;
  QWidget* window_;
  QStringList recent_;
};

/// The name under which "Save As" stores: cut after its first "." wherever that stands and ended by
/// "CAM", or with ".CAM" added. Empty names and those above 200 characters stay as they are.
QString ForcedName(const QString& name);

}  // namespace nira
