// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

namespace nira {

/// Where a start in `current` really works: a folder whose path contains "/VB5" gives
/// "/VB5/NIRA_QX" from the root of its drive, any other folder itself.
QString StartFolder(const QString& current);

/// The folder of the options file, the scripts and the work files: fixed once at start-up.
class WorkingFolder {
 public:
  static constexpr const char* OptionsName = "KlmQx_opt.def";

  explicit WorkingFolder(const QString& path, const QString& installedScripts = {})
      : path_(path), installedScripts_(installedScripts) {}

  /// `current` when it holds the options file or the default script; otherwise `usersFolder`,
  /// which is made when it is missing and given the scripts, and the new texts
  /// at their ends, of `installedScripts` that it lacks.
  static WorkingFolder Choose(const QString& current, const QString& usersFolder,
                              const QString& installedScripts);

  /// Folder of the scripts that came with the program beside `programFolder`; empty when none.
  static QString InstalledScripts(const QString& programFolder);

  const QString& Path() const { return path_; }

  /// Path of a name in this folder. An existing file is found without regard to case; an absolute
  /// path is returned as it is.
  QString Find(const QString& name) const;
  bool Has(const QString& name) const;

  /// Copies a script that came with the program here when there is none of its name.
  void BringScript(const QString& name) const;

 private:
  QString path_;
  QString installedScripts_;
};

}  // namespace nira
