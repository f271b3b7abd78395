// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QFont>
#include <QString>
#include <QWidget>

#include <memory>

class QPrinter;

namespace nira {

/// The platform's common dialogs. Set the properties, call a `Show...`, read the properties: on
/// Cancel they stand as they were, so an empty `FileName` comes back empty and a preset one as it
/// was. Each `Show...` returns true when the operator confirmed.
class clsCommonDialog {
 public:
  /// Values of `Flags` (the bits of the platform's own dialogs); others have no counterpart.
  static constexpr int ReadOnly = 1;  ///< offers to open read-only; Qt's dialogs have no such box
  static constexpr int OverwritePrompt = 2;
  static constexpr int PathMustExist = 2048;
  static constexpr int FileMustExist = 4096;

  clsCommonDialog();
  virtual ~clsCommonDialog();
  clsCommonDialog(const clsCommonDialog&) = delete;
  clsCommonDialog& operator=(const clsCommonDialog&) = delete;

  virtual bool ShowOpen(QWidget* parent);
  virtual bool ShowSave(QWidget* parent);
  virtual bool ShowFont(QWidget* parent);
  /// Chooses the printer of this run and its paper; what is printed is not chosen here.
  virtual bool ShowPrinter(QWidget* parent);

  QString DialogTitle;
  QString Filter;  ///< "label|pattern|label|pattern"
  int Flags = 0;
  QString FileName;  ///< path
  QString InitDir;   ///< where the file dialogs start while `FileName` is empty
  /// With `PathMustExist`: what is said before the name of a folder that does not exist.
  QString FolderNotFound;
  QFont Font;

  /// `FileName` without folders.
  QString FileTitle() const;

  /// True when the machine has a printer.
  virtual bool HasPrinter() const;

  /// The printer of this run, made at its first use and anew when `ShowPrinter` was confirmed.
  QPrinter& Printer();

 private:
  bool ShowFile(QWidget* parent, bool save);

  std::unique_ptr<QPrinter> printer_;
};

/// A filter in the form of `Filter` as the list of name filters that Qt's dialogs take: names match
/// in either case, and "*.*" stands for every file.
QStringList NameFilters(const QString& filter);

}  // namespace nira
