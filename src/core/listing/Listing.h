// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "files/MessageTable.h"
#include "model/CamProgram.h"
#include "model/PhaseList.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <vector>

namespace nira {

/// What of a program is printed. Sizes count from 1.
struct ListingOptions {
  int FirstSize = 1;
  int LastSize = 1;
  bool Functions = true;
  bool Diagram = true;
  bool PagePerSize = true;  ///< otherwise the sizes follow one another
  bool Modified = false;    ///< the program is no longer what its file holds
};

/// A program as text for paper: headings, the functions block and the cams of each size. It reads
/// the program when it is asked, so the program must not change before the listing is printed.
class Listing {
 public:
  static constexpr int DescriptionWidth = 20;  ///< characters of the column

  struct Cam {
    QString number;  ///< two digits, from 01
    QString description;
    QStringList phases;  ///< "350-010": ON and OFF degree
  };

  /// Sizes outside the program are left out.
  Listing(const CamProgram& program, const MessageTable& texts, const QString& file,
          const QDateTime& date, const ListingOptions& options);

  const ListingOptions& Options() const { return options_; }
  const QString& File() const { return file_; }

  QString ProgramLine() const;  ///< "NIRA-KPL   PROGRAMMATORE DI CAMME"
  QString FileLine() const;     ///< "File: press.CAM (modificato)"
  QString ModelLine() const;    ///< "QX32   32 camme  22 formati  255 messaggi", "1 formato"
  QString DateLine() const;     ///< "2026-11-21 14:05"
  QString PageLine(int page, int pages) const;
  QString FunctionsHeading() const;
  QString SizeHeading(int size, bool continued) const;
  QStringList ColumnHeadings() const;  ///< of number, description, phases
  QString NoPhases() const;

  /// The functions block line by line in the cam file's words, but as the functions window counts:
  /// cams from 1, with the advance of cam 1 and the ratio of cams 17-24, which no file keeps.
  QStringList FunctionLines() const;

  int CamCount() const { return program_.NumCams(); }
  /// Of a cam (from 0), as `Cam` has them.
  static QString NumberOf(int cam);
  QString DescriptionOf(int cam) const;
  bool HasPhases(int size) const;
  /// Cam (from 0) of a size.
  Cam CamOf(int size, int cam) const;
  int PhaseCount(int size, int cam) const;
  std::vector<Run> RunsOf(int size, int cam) const;

 private:
  QStringList AdvanceLines() const;
  QStringList GroupLines() const;
  const QString& Text(TextNumber number) const { return texts_.Text(number); }

  const CamProgram& program_;
  const MessageTable& texts_;
  QString file_;
  QDateTime date_;
  ListingOptions options_;
};

}  // namespace nira
