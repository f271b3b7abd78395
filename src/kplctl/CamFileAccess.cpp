// SPDX-License-Identifier: Apache-2.0
#include "CamFileAccess.h"

#include "Printable.h"
#include "files/CamLines.h"
#include "files/CamWords.h"
#include "files/LineReader.h"
#include "files/TextNumbers.h"
#include "line/FaultText.h"
#include "model/PhaseList.h"

#include <QFileInfo>

namespace nira {

const char* const WithoutEnd = "it has no line END: its end may be missing";

namespace {

/// The counts that the header names; none when the header names none.
std::optional<CamFileCounts> NamedCounts(std::string_view header) {
  const bool named =
      header.find(FunctionsWord) != std::string_view::npos && header.size() > FunctionsWord.size();
  return named ? std::optional(CountsOfHeader(header)) : std::nullopt;
}

bool IsWithin(std::int64_t number, int most) {
  return number >= 1 && number <= most;
}

/// Gives the program the named dimensions, otherwise those of the file's header; what neither
/// names stays as it is.
Refusal SetDimensions(std::string_view header, const Dimensions& named, CamProgram& program) {
  CamFileCounts counts{program.NumCams(), program.NumSizes()};
  counts = NamedCounts(header).value_or(counts);
  const std::int64_t cams = named.cams.value_or(counts.cams);
  const std::int64_t sizes = named.sizes.value_or(counts.sizes);
  if (!IsWithin(cams, CamProgram::MaxCams) || !IsWithin(sizes, CamProgram::MaxSizes)) {
    return Fault{.Line = 1,
                 .Text = QStringLiteral("%1 cams and %2 sizes found; 1 to %3 cams and 1 to %4 "
                                        "sizes are allowed")
                             .arg(counts.cams)
                             .arg(counts.sizes)
                             .arg(CamProgram::MaxCams)
                             .arg(CamProgram::MaxSizes)};
  }
  program.SetLimits(static_cast<int>(sizes), static_cast<int>(cams), CamProgram::MaxMessages);
  return std::nullopt;
}

qsizetype CountPhases(const CamProgram& program) {
  std::size_t count = 0;
  for (int size = 1; size <= program.NumSizes(); ++size) {
    for (int cam = 0; cam < program.NumCams(); ++cam) {
      count += PhaseList::Of(program.CamMap(size, cam)).phases.size();
    }
  }
  return static_cast<qsizetype>(count);
}

}  // namespace

Result<LoadedFile> ReadCamFile(const Console& console, const QString& file, const Dimensions& named,
                               CamProgram& program) {
  {
    LineReader lines(file);
    const auto header = lines.Next();
    if (lines.Failure()) return *lines.Failure();
    if (const auto fault = SetDimensions(header.value_or(std::string_view()), named, program)) {
      return *fault;
    }
  }
  auto result = LoadCamFile(program, file);
  if (result || result.Why().What != Fault::Kind::OtherSizes) return result;
  const QString question = FaultText(result.Why(), console.Texts);
  const bool taken = console.Ask.MsgBox(question, Buttons::OkCancel, Icon::None) == Answer::Ok;
  return taken ? LoadCamFile(program, file, OtherSizes::Take) : result;
}

bool OpenCamFile(const Console& console, const QString& file, const Dimensions& named,
                 CamProgram& program) {
  const auto loaded = ReadCamFile(console, file, named, program);
  if (!loaded) {
    PrintFault(console.Err, file, loaded.Why());
    return false;
  }
  if (loaded->WithoutEnd) console.Err << Printable(file) << ": " << WithoutEnd << '\n';
  if (loaded->LeftOut > 0) {
    console.Err << Printable(file) << ": " << Counted(loaded->LeftOut, "size") << " left out\n";
  }
  return true;
}

bool MayReplace(const Console& console, const QString& from, const QString& to) {
  const QFileInfo target(to);
  if (!target.exists() || target == QFileInfo(from)) return true;
  const QString question = console.Texts.Text(TextNumber::ReplaceFile) + u' ' + to;
  return console.Ask.MsgBox(question, Buttons::YesNo, Icon::Exclamation) == Answer::Yes;
}

int SaveCamFile(const Console& console, const QString& from, const QString& to,
                const CamProgram& program) {
  if (!MayReplace(console, from, to)) return Console::Failed;
  if (const auto refusal = SaveCamFile(program, to, console.Writer)) {
    PrintFault(console.Err, to, *refusal);
    return Console::Failed;
  }
  console.Out << Printable(to) << ": written: " << Summary(program) << '\n';
  return Console::Good;
}

QString FaultWords(const Fault& fault) {
  const QString reason = fault.Text.isEmpty() ? QStringLiteral("is not a file") : fault.Text;
  switch (fault.What) {
    case Fault::Kind::CannotRead:
      return reason;
    case Fault::Kind::CannotWrite:
      return QStringLiteral("cannot be written: ") + reason;
    case Fault::Kind::BadLine:
      return u'"' + fault.Text + u'"' + MessageTable().Text(TextNumber::BadFile);
    case Fault::Kind::CutOff:
      return QStringLiteral("the file ends after the line \"") + fault.Text + u'"';
    case Fault::Kind::OtherSizes:
      return QStringLiteral("not read: the question was answered with Cancel (--yes answers OK)");
    case Fault::Kind::NoSize:
      return QStringLiteral("it has no size of this number");
    default:
      return FaultText(fault, MessageTable());
  }
}

void PrintFault(QTextStream& lines, const QString& file, const Fault& fault) {
  lines << Printable(file);
  if (fault.Line > 0) lines << ':' << fault.Line;
  lines << ": fault: " << Printable(FaultWords(fault)) << '\n';
}

QString Summary(const CamProgram& program) {
  return Counted(program.NumCams(), "cam") + QStringLiteral(", ") +
         Counted(program.NumSizes(), "size") + QStringLiteral(", ") +
         Counted(CountPhases(program), "phase");
}

QString Counted(qsizetype count, const char* one) {
  const QString word = QString::fromLatin1(one);
  return QString::number(count) + u' ' + (count == 1 ? word : word + u's');
}

}  // namespace nira
