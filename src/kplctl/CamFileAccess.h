// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Console.h"
#include "FileFault.h"
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

/// Reads a cam file into a program of those dimensions; the fault says why it was not read.
/// `cutOff` tells that it was read but lacks its line END.
std::optional<FileFault> ReadCamFile(const Console& console, const QString& file,
                                     const Dimensions& named, CamProgram& program, bool& cutOff);

/// The same for a command that goes on with the program: prints the fault, or a remark about a
/// missing END. False when the file was not read.
bool OpenCamFile(const Console& console, const QString& file, const Dimensions& named,
                 CamProgram& program);

/// Writes a program, after asking when that replaces a file other than `from`; prints what was
/// written, or why nothing was. Returns the exit status.
int SaveCamFile(const Console& console, const QString& from, const QString& to,
                CamProgram& program);

/// Asks before a file other than `from` is replaced by `to`, as the windows do.
bool MayReplace(const Console& console, const QString& from, const QString& to);

/// What the program comes back as from its cam file: without what the file's layout loses.
CamProgram ReadBack(CamProgram& program);

/// Prints "FILE:LINE: fault: TEXT".
void PrintFault(QTextStream& lines, const QString& file, const FileFault& fault);

/// What the remark about a missing line END says.
extern const char* const WithoutEnd;

/// "32 cams, 22 sizes, 762 phases"
QString Summary(const CamProgram& program);

/// "1 line", "2 lines"
QString Counted(qsizetype count, const char* one);

}  // namespace nira
