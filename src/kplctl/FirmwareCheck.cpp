// SPDX-License-Identifier: Apache-2.0
#include "FirmwareCheck.h"

#include "CamFileAccess.h"
#include "Printable.h"
#include "ground/Text.h"
#include "line/HexRanges.h"

#include <optional>

namespace nira {

namespace {

QString HexFault(const HexLine& line) {
  switch (line.Found) {
    case HexLine::Fault::None:
      break;
    case HexLine::Fault::NoRecord:
      return QStringLiteral("it does not begin with \":\"");
    case HexLine::Fault::TooShort:
      return QStringLiteral("%1 characters, %2 is the least")
          .arg(line.Text.size())
          .arg(HexLine::Shortest);
    case HexLine::Fault::OddDigit:
      return QStringLiteral("an odd number of digits");
    case HexLine::Fault::WrongDigit:
      return QStringLiteral("a character that is no hexadecimal digit");
    case HexLine::Fault::WrongCount:
      if (line.Text.size() > HexLine::Longest) {
        return QStringLiteral("more than %1 characters").arg(HexLine::Longest);
      }
      return QStringLiteral("the byte count is %1, the line holds %2")
          .arg(line.Count())
          .arg(line.Bytes());
    case HexLine::Fault::WrongChecksum:
      return QStringLiteral("checksum %1 found, %2 expected")
          .arg(FromBytes(Tail(line.Text, 2)), FromBytes(line.Checksum()));
  }
  return {};
}

/// What is wrong with a line beyond what the update looks at.
QString RecordFault(const HexLine& line, bool taken) {
  if (!taken) {
    return QStringLiteral("an address record of %1 bytes, 2 expected").arg(line.Bytes());
  }
  if (line.Type() == HexLine::End && line.Bytes() > 0) {
    return QStringLiteral("an end record of %1 bytes, 0 expected").arg(line.Bytes());
  }
  if (line.Type() <= HexLine::LastKind) return {};
  return QStringLiteral("record type %1, the last is %2").arg(line.Type()).arg(HexLine::LastKind);
}

/// Reads the file to its end or to its first fault.
Refusal Read(HexFile& file, HexRanges& ranges) {
  if (!file.IsOpen()) return file.Failure();
  while (const HexLine* line = file.Next()) {
    const QString fault = line->Found == HexLine::Fault::None
                              ? RecordFault(*line, ranges.Take(*line))
                              : HexFault(*line);
    if (!fault.isEmpty()) return Fault{.Line = line->Number, .Text = fault};
  }
  if (file.Failure()) return file.Failure();
  if (file.Totals().Lines == 0) return Fault{.Text = QStringLiteral("it is empty")};
  return std::nullopt;
}

QString Address(std::uint64_t address) {
  return QString::number(address, 16).toUpper().rightJustified(8, u'0');
}

QString Row(const char* what, const HexRanges::Range& range) {
  return QStringLiteral("  ") + QString::fromLatin1(what).leftJustified(8) + Address(range.First) +
         u'-' + Address(range.Last) + QString::number(range.Bytes()).rightJustified(12) +
         (range.Bytes() == 1 ? QStringLiteral(" byte") : QStringLiteral(" bytes"));
}

void PrintRanges(QTextStream& out, const HexRanges& ranges) {
  std::optional<std::uint64_t> next;
  for (const HexRanges::Range& range : ranges.Ranges()) {
    if (next) out << Row("hole", {*next, range.First - 1}) << '\n';
    out << Row("filled", range) << '\n';
    next = range.Last + 1;
  }
  for (const HexRanges::Overlap& overlap : ranges.Overlaps()) {
    out << Row("again", overlap.Filled) << ", in line " << overlap.Line << '\n';
  }
  const auto kept = static_cast<std::int64_t>(ranges.Overlaps().size());
  if (ranges.OverlapCount() > kept) {
    out << "  again   in " << ranges.OverlapCount() - kept << " more places\n";
  }
  if (!ranges.Complete()) {
    out << "  more than " << HexRanges::MostRanges << " ranges: not all are shown\n";
  }
}

QString EndRemark(int endRecords) {
  if (endRecords == 1) return {};
  return endRecords == 0 ? QStringLiteral("; it has no end record: it may be incomplete")
                         : QString(QStringLiteral("; it has ") + QString::number(endRecords) +
                                   QStringLiteral(" end records"));
}

}  // namespace

bool CheckFirmware(const Console& console, const QString& file) {
  HexFile hex(file);
  HexRanges ranges;
  if (const auto fault = Read(hex, ranges)) {
    PrintFault(console.Out, file, *fault);
    return false;
  }
  const HexTotals& totals = hex.Totals();
  const ProgramIdentity program = hex.Program();
  console.Out << Printable(file) << ": good: " << Counted(totals.Lines, "line") << ", "
              << Counted(totals.Bytes, "byte") << ", program " << program.Checksum << " of "
              << program.Date << EndRemark(totals.EndRecords) << '\n';
  PrintRanges(console.Out, ranges);
  return true;
}

}  // namespace nira
