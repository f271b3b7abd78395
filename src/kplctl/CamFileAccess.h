// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Console.h"
#include "files/CamFile.h"
#include "model/CamProgram.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace nira {

// How the commands of kplctl read, name and write cam files.

/// Numbers of cams and sizes to read a file into; what is not given comes from the file.
struct Dimensions {
  std::optional<int> cams;
  std::optional<int> sizes;
};

/// Reads a cam file into a program of those dimensions, after asking when the file has another
/// number of sizes.
Result<LoadedFile> ReadCamFile(const Console& console, const QString& file, const Dimensions& named,
                               CamProgram& program);

/// The same for a command that goes on with the program: prints the fault, or remarks about a
/// missing END and sizes that were left out. False when the file was not read.
bool OpenCamFile(const Console& console, const QString& file, const Dimensions& named,
                 CamProgram& program);

/// Writes a program, after asking when that replaces a file other than `from`; prints what was
/// written, or why nothing was. Returns the exit status.
int SaveCamFile(const Console& console, const QString& from, const QString& to,
                const CamProgram& program);

/// Asks before a file other than `from` is replaced by `to`, as the windows do.
bool MayReplace(const Console& console, const QString& from, const QString& to);

/// What a fault says, without its place.
QString FaultWords(const Fault& fault);

/// Prints "FILE:LINE: fault: " and its words.
void PrintFault(QTextStream& lines, const QString& file, const Fault& fault);

/// What the remark about a missing line END says.
extern const char* const WithoutEnd;

/// "32 cams, 22 sizes, 762 phases"
QString Summary(const CamProgram& program);

/// "1 line", "2 lines"
QString Counted(qsizetype count, const char* one);

}  // namespace nira
