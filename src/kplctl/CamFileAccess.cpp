// SPDX-License-Identifier: Apache-2.0
#include "CamFileAccess.h"

#include "ConsolePrompts.h"
#include "Printable.h"
#include "files/CamFile.h"
#include "files/CamLines.h"
#include "files/CamWords.h"
#include "model/PhaseList.h"

#include <QFileInfo>

namespace nira {

const char* const WithoutEnd = "it has no line END: its end may be missing";

namespace {

/// Passes questions on and keeps the last message, which is printed with the file's name and line.
class KeptMessage : public Prompts {
 public:
  explicit KeptMessage(Prompts& prompts) : prompts_(prompts) {}

  Answer MsgBox(const QString& text, Buttons buttons, Icon icon, const QString& title) override {
    if (buttons != Buttons::Ok) return prompts_.MsgBox(text, buttons, icon, title);
    Text = text;
    return Answer::Ok;
  }

  std::optional<QString> InputBox(const QString& prompt, const QString& preset,
                                  const QString& title) override {
    return prompts_.InputBox(prompt, preset, title);
  }

  QString Text;

 private:
  Prompts& prompts_;
};

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
std::optional<FileFault> SetDimensions(std::string_view header, const Dimensions& named,
                                       CamProgram& program) {
  CamFileCounts counts{program.NumCams(), program.NumSizes()};
  counts = NamedCounts(header).value_or(counts);
  const std::int64_t cams = named.cams.value_or(counts.cams);
  const std::int64_t sizes = named.sizes.value_or(counts.sizes);
  if (!IsWithin(cams, CamProgram::MaxCams) || !IsWithin(sizes, CamProgram::MaxSizes)) {
    return FileFault{1, QStringLiteral("%1 cams and %2 sizes found; 1 to %3 cams and 1 to %4 sizes "
                                       "are allowed")
                            .arg(counts.cams)
                            .arg(counts.sizes)
                            .arg(CamProgram::MaxCams)
                            .arg(CamProgram::MaxSizes)};
  }
  program.SetLimits(static_cast<int>(sizes), static_cast<int>(cams), CamProgram::MaxMessages);
  return std::nullopt;
}

QString BadLine(const LoadResult& result, const MessageTable& texts) {
  const QString line = u'"' + result.text + u'"';
  if (result.cutOff) return QStringLiteral("the file ends after the line ") + line;
  const QString& known = texts.Text(TextNumber::BadFile);
  return line + (known.isEmpty() ? QStringLiteral(" is no line that can stand here") : known);
}

/// What a reading ended with, in words; none when the file was read.
std::optional<FileFault> FaultOf(const LoadResult& result, const QString& message,
                                 const MessageTable& texts) {
  switch (result.outcome) {
    case LoadResult::Outcome::Loaded:
      return std::nullopt;
    case LoadResult::Outcome::Missing:
      return FileFault{0, QStringLiteral("cannot be read any more")};
    case LoadResult::Outcome::WrongCams:
      return FileFault{result.line, message};
    case LoadResult::Outcome::Declined:
      return FileFault{
          result.line,
          QStringLiteral("not read: the question was answered with Cancel (--yes answers OK)")};
    case LoadResult::Outcome::Bad:
      break;
  }
  return FileFault{result.line, BadLine(result, texts)};
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

std::optional<FileFault> ReadCamFile(const Console& console, const QString& file,
                                     const Dimensions& named, CamProgram& program, bool& cutOff) {
  {
    LineReader lines(file);
    if (!lines.IsOpen()) return FileFault{0, lines.Error()};
    const auto header = lines.Next();
    if (auto fault = SetDimensions(header.value_or(std::string_view()), named, program)) {
      return fault;
    }
  }
  Globals globals;
  KeptMessage kept(console.Ask);
  CamFile reader(program, globals, kept, console.Texts, console.Writer);
  const LoadResult result = reader.LoadCamFile(file);
  cutOff = result.cutOff;
  return FaultOf(result, kept.Text, console.Texts);
}

bool OpenCamFile(const Console& console, const QString& file, const Dimensions& named,
                 CamProgram& program) {
  bool cutOff = false;
  if (const auto fault = ReadCamFile(console, file, named, program, cutOff)) {
    PrintFault(console.Err, file, *fault);
    return false;
  }
  if (cutOff) console.Err << Printable(file) << ": " << WithoutEnd << '\n';
  return true;
}

bool MayReplace(const Console& console, const QString& from, const QString& to) {
  const QFileInfo target(to);
  if (!target.exists() || target == QFileInfo(from)) return true;
  const QString& known = console.Texts.Text(TextNumber::ReplaceFile);
  const QString question = known.isEmpty() ? QStringLiteral("THE FILE ALREADY EXISTS") : known;
  return console.Ask.MsgBox(question + u' ' + to, Buttons::YesNo, Icon::Exclamation) == Answer::Yes;
}

int SaveCamFile(const Console& console, const QString& from, const QString& to,
                CamProgram& program) {
  if (!MayReplace(console, from, to)) return Console::Failed;
  Globals globals;
  globals.CurrentFile = to;
  CamFile file(program, globals, console.Ask, console.Texts, console.Writer);
  const QString failure = file.SaveCamFile();
  if (!failure.isEmpty()) {
    console.Err << Printable(to) << ": cannot be written: " << Printable(failure) << '\n';
    return Console::Failed;
  }
  console.Out << Printable(to) << ": written: " << Summary(program) << '\n';
  return Console::Good;
}

CamProgram ReadBack(CamProgram& program) {
  const std::string bytes = WriteCamFile(program);
  LineReader lines{std::string_view(bytes)};
  CamProgram back;
  back.SetLimits(program.NumSizes(), program.NumCams(), program.NumMessages());
  QString unseen;  // the reader has nothing to ask about its own writer's lines
  QTextStream stream(&unseen);
  ConsolePrompts silent(stream, false);
  Globals globals;
  const MessageTable texts;
  FileWriter writer;
  CamFile(back, globals, silent, texts, writer).ReadCamFile(lines);
  return back;
}

void PrintFault(QTextStream& lines, const QString& file, const FileFault& fault) {
  lines << Printable(file);
  if (fault.line > 0) lines << ':' << fault.line;
  lines << ": fault: " << Printable(fault.text) << '\n';
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
