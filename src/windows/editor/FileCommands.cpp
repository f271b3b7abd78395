// SPDX-License-Identifier: Apache-2.0
#include "editor/FileCommands.h"

#include "controls/BusyPointer.h"
#include "dialogs/clsCommonDialog.h"
#include "files/LineReader.h"
#include "files/OptionsFile.h"
#include "line/Carprg.h"
#include "line/FaultText.h"
#include "line/SerialLink.h"

#include <QFileInfo>

namespace nira {

namespace {

bool IsOfOtherModel(const Fault& fault) {
  return fault.What == Fault::Kind::WrongCams || fault.What == Fault::Kind::OtherSizes;
}

}  // namespace

QString ForcedName(const QString& name) {
  constexpr qsizetype longest = 200;
  if (name.isEmpty() || name.size() > longest) return name;
  const qsizetype dot = name.indexOf(u'.');
  return dot < 0 ? name + QStringLiteral(".CAM") : name.left(dot + 1) + QStringLiteral("CAM");
}

FileCommands::FileCommands(Instance& instance, QWidget* window)
    : QObject(window), instance_(instance), window_(window) {}

bool FileCommands::MayLoseWork() {
  return !instance_.Program.HasUnsavedWork() ||
         instance_.Ask.MsgBox(instance_.Text(TextNumber::NotSaved), Buttons::CancelOk,
                              Icon::Exclamation) == Answer::Ok;
}

bool FileCommands::IsOnFile() const {
  return !instance_.Program.Differs() && QFileInfo::exists(instance_.Settings.CurrentFile);
}

void FileCommands::f_newp_Click() {
  if (!MayLoseWork()) return;
  Carprg(instance_, window_).exec();
  f_New();
  Q_EMIT Note(instance_.Text(TextNumber::ProgramBegun));
}

void FileCommands::f_New() {
  instance_.Settings.CurrentFile.clear();
  instance_.Program.DimensionModel();
  instance_.Program.ResetProgram();
  instance_.Program.IsSaved = true;
  Q_EMIT ProgramReplaced();
}

void FileCommands::f_Open() {
  if (!MayLoseWork()) return;
  clsCommonDialog& dialog = instance_.Dialog;
  dialog.DialogTitle = instance_.Text(TextNumber::OpenTitle);
  dialog.Filter = instance_.Text(TextNumber::CamFiles) + QStringLiteral("(*.Cam)|*.cam|") +
                  instance_.Text(TextNumber::AllFiles) + QStringLiteral("(*.*)|*.*");
  dialog.Flags = clsCommonDialog::FileMustExist + clsCommonDialog::ReadOnly;
  dialog.FileName.clear();
  dialog.ShowOpen(window_);
  if (!QFileInfo::exists(dialog.FileName) || !CanBeRead(dialog.FileName)) return;
  instance_.Settings.CurrentFile = dialog.FileName;
  instance_.Program.ResetProgram();
  Load();
  instance_.Program.IsSaved = true;
}

bool FileCommands::CanBeRead(const QString& path) {
  const LineReader file(path);
  if (file.Failure()) TellFault(instance_.Ask, instance_.Texts, *file.Failure());
  return file.IsOpen();
}

/// Reads `CurrentFile`, after asking about another number of sizes; what it was refused for is
/// told.
Result<LoadedFile> FileCommands::Read() {
  const QString& current = instance_.Settings.CurrentFile;
  auto result = LoadCamFile(instance_.Program, current);
  if (!result && result.Why().What == Fault::Kind::OtherSizes) {
    const QString question = FaultText(result.Why(), instance_.Texts);
    if (instance_.Ask.MsgBox(question, Buttons::OkCancel, Icon::None) != Answer::Ok) return result;
    result = LoadCamFile(instance_.Program, current, OtherSizes::Take);
  }
  if (!result && result.Why().What != Fault::Kind::Missing) {
    TellFault(instance_.Ask, instance_.Texts, result.Why());
  }
  return result;
}

void FileCommands::Load() {
  const BusyPointer pointer;
  CamProgram& program = instance_.Program;
  QString& current = instance_.Settings.CurrentFile;
  program.ClearAllSizes();
  program.ClearCamLabels();
  const QString path = current;
  const Result<LoadedFile> result = Read();
  // The next Save has to ask for a name: it must not write over a file that was not taken whole.
  const bool keeps = result ? result->LeftOut == 0 : result.Why().What == Fault::Kind::Missing;
  if (!keeps) current.clear();
  Q_EMIT TitleChanged(instance_.Text(TextNumber::ProgramName) + QStringLiteral(" C ") +
                      QString::number(program.NumCams()) + QStringLiteral(" - ") +
                      QString::number(program.NumSizes()) + QStringLiteral("  [") + current + u']');
  program.SelectSize(1);
  Q_EMIT ProgramReplaced();
  if (result) {
    TakeAsRecent(path, *result);
  } else if (const Fault& why = result.Why(); IsOfOtherModel(why)) {
    Q_EMIT Refused(path, CountsOfHeader(why.Text.toStdString()));
  }
}

void FileCommands::TakeAsRecent(const QString& path, const LoadedFile& file) {
  QStringList notes;
  if (file.LeftOut > 0) {
    notes << instance_.Text(TextNumber::SizesLeftOut) + QString::number(file.LeftOut);
  }
  if (file.WithoutEnd) notes << instance_.Text(TextNumber::FileWithoutEnd) + path;
  if (notes.isEmpty()) notes << instance_.Text(TextNumber::FileOpened) + path;
  Q_EMIT Note(notes.join(QStringLiteral("  ")));
  QStringList paths = recent_;
  paths.removeAll(path);
  paths.prepend(path);
  SetRecent(paths);
  instance_.Dialog.InitDir = QFileInfo(path).absolutePath();
}

void FileCommands::SetRecent(const QStringList& paths) {
  recent_ = paths.mid(0, MaxRecent);
  Q_EMIT RecentChanged(recent_);
}

void FileCommands::F_Mnu_oldF_Click(const QString& path) {
  const bool there = QFileInfo::exists(path);
  if ((there && !CanBeRead(path)) || !MayLoseWork()) return;
  f_New();
  if (!there) {
    Q_EMIT Note(instance_.Text(TextNumber::FileNotFound) + path);
    return;
  }
  instance_.Settings.CurrentFile = path;
  Load();
}

void FileCommands::OpenAtStart(const QString& path) {
  instance_.Settings.CurrentFile = path;
  if (!QFileInfo::exists(path)) {
    Q_EMIT Note(instance_.Text(TextNumber::FileNotFound) + path);
    return;
  }
  if (!CanBeRead(path)) {
    instance_.Settings.CurrentFile.clear();  // Save must not write over it
    return;
  }
  instance_.Program.ResetProgram();
  Load();
  instance_.Program.IsSaved = true;
}

bool FileCommands::f_S() {
  return QFileInfo::exists(instance_.Settings.CurrentFile) ? Save(TextNumber::FileSaved) : f_Save();
}

bool FileCommands::f_Save() {
  QString& current = instance_.Settings.CurrentFile;
  clsCommonDialog& dialog = instance_.Dialog;
  dialog.DialogTitle = instance_.Text(TextNumber::SaveTitle);
  dialog.Filter = QStringLiteral("Cam Files (*.Cam)|*.cam|Tutti i File (*.*)|*.*");
  dialog.Flags = clsCommonDialog::OverwritePrompt + clsCommonDialog::PathMustExist;
  dialog.FileName = current;
  // On Cancel the preset name comes back, and is saved to.
  const bool chosenName = dialog.ShowSave(window_);
  if (dialog.FileName.isEmpty()) {
    Q_EMIT Note(instance_.Text(TextNumber::FileNotSaved));
    return false;
  }
  const QString chosen = QFileInfo(dialog.FileName).absoluteFilePath();
  const QString forced = ForcedName(chosen);
  if (!MayReplace(chosen, forced)) return false;
  const QString before = std::exchange(current, forced);
  if (!Save(chosenName ? TextNumber::FileSaved : TextNumber::SavedUnderPresent)) {
    current = before;
    return false;
  }
  instance_.Program.IsSaved = true;
  return true;
}

/// The dialog has asked about the name that was chosen, but knows nothing of the forced one.
bool FileCommands::MayReplace(const QString& chosen, const QString& forced) {
  if (forced == chosen || !QFileInfo::exists(forced)) return true;
  return instance_.Ask.MsgBox(instance_.Text(TextNumber::ReplaceFile) + u'\n' + forced,
                              Buttons::NoYes, Icon::Exclamation) == Answer::Yes;
}

/// `done` is what a file that was written is told with.
bool FileCommands::Save(TextNumber done) {
  SerialLink(instance_).ClosePort();
  const QString& current = instance_.Settings.CurrentFile;
  if (const auto refusal = SaveCamFile(instance_.Program, current, instance_.Writer)) {
    TellFault(instance_.Ask, instance_.Texts, *refusal);
    return false;
  }
  instance_.Program.TakeAsSaved();
  Q_EMIT Saved();
  Q_EMIT Note(instance_.Text(done) + current);
  return true;
}

}  // namespace nira
