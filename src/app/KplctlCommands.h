#pragma once

#include "app/Fault.h"
#include "dialogs/Prompts.h"
#include "files/FileWriter.h"
#include "files/MessageTable.h"
#include "model/CamProgram.h"

#include <QStringList>
#include <QTextStream>

#include <optional>

namespace nira {

/// The commands of kplctl: each does one thing to the named files, prints what it did and returns
/// the exit status, 0 when all went well and 1 when not.
class KplctlCommands {
 public:
  static constexpr int Good = 0;
  static constexpr int Failed = 1;

  /// Numbers of cams and sizes to read a file into; what is not given comes from the file.
  struct Dimensions {
    std::optional<int> cams;
    std::optional<int> sizes;
  };

  /// What to list; both count from 1, all when not given.
  struct Selection {
    std::optional<int> size;
    std::optional<int> cam;
  };

  KplctlCommands(Prompts& prompts, const MessageTable& texts, QTextStream& out, QTextStream& err)
      : prompts_(prompts), texts_(texts), out_(out), err_(err) {}

  /// Reads each cam file or language script and prints that it is good, or its first fault.
  int Check(const QStringList& files);

  /// Prints the functions and the phases of a cam file as the operator reads them.
  int List(const QString& file, const Selection& selection);

  /// Reads a cam file and writes it anew; nothing is written unless all of it was read.
  int Rewrite(const QString& from, const QString& to, const Dimensions& dimensions);

 private:
  bool CheckFile(const QString& file);
  bool CheckCamFile(const QString& file);
  bool CheckScriptOf(const QString& file);

  std::optional<Fault> Load(const QString& file, const Dimensions& named, CamProgram& program,
                            bool* cutOff = nullptr);

  bool MayReplace(const QString& from, const QString& to);

  void ListFunctions(const CamProgram& program);
  void ListSize(const CamProgram& program, int size, std::optional<int> cam);

  Prompts& prompts_;
  const MessageTable& texts_;
  QTextStream& out_;
  QTextStream& err_;
  FileWriter writer_;
};

}  // namespace nira
