#include "app/KplctlCommands.h"

#include "app/Printable.h"
#include "app/ScriptCheck.h"
#include "files/CamFile.h"
#include "files/CamWords.h"
#include "model/PhaseList.h"
#include "model/Text.h"

#include <QFileInfo>

namespace nira {

namespace {

constexpr const char* withoutEnd = "it has no line END: its end may be missing";

/// Passes questions on and keeps the last message, which is printed with the file's name and line.
class KeptMessage : public Prompts {
 public:
  explicit KeptMessage(Prompts& prompts) : prompts_(prompts) {}

  Answer MsgBox(const QString& text, Buttons buttons, Icon icon, const QString& title) override {
    if (buttons != Buttons::Ok) return prompts_.MsgBox(text, buttons, icon, title);
    Text = text;
    return Answer::Ok;
  }

  std::optional<QString> InputBox(const QString& prompt, const QString& preset) override {
    return prompts_.InputBox(prompt, preset);
  }

  QString Text;

 private:
  Prompts& prompts_;
};

void PrintFault(QTextStream& lines, const QString& file, const Fault& fault) {
  lines << Printable(file);
  if (fault.line > 0) lines << ':' << fault.line;
  lines << ": fault: " << Printable(fault.text) << '\n';
}

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
std::optional<Fault> SetDimensions(std::string_view header, const KplctlCommands::Dimensions& named,
                                   CamProgram& program) {
  CamFileCounts counts{program.NumCams(), program.NumSizes()};
  counts = NamedCounts(header).value_or(counts);
  const std::int64_t cams = named.cams.value_or(counts.cams);
  const std::int64_t sizes = named.sizes.value_or(counts.sizes);
  if (!IsWithin(cams, CamProgram::MaxCams) || !IsWithin(sizes, CamProgram::MaxSizes)) {
    return Fault{1, QStringLiteral("%1 cams and %2 sizes found; 1 to %3 cams and 1 to %4 sizes "
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
std::optional<Fault> FaultOf(const LoadResult& result, const QString& message,
                             const MessageTable& texts) {
  switch (result.outcome) {
    case LoadResult::Outcome::Loaded:
      return std::nullopt;
    case LoadResult::Outcome::Missing:
      return Fault{0, QStringLiteral("cannot be read any more")};
    case LoadResult::Outcome::WrongCams:
      return Fault{result.line, message};
    case LoadResult::Outcome::Declined:
      return Fault{
          result.line,
          QStringLiteral("not read: the question was answered with Cancel (--yes answers OK)")};
    case LoadResult::Outcome::Bad:
      break;
  }
  return Fault{result.line, BadLine(result, texts)};
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

QString Counted(qsizetype count, const char* one) {
  const QString word = QString::fromLatin1(one);
  return QString::number(count) + u' ' + (count == 1 ? word : word + u's');
}

QString Summary(const CamProgram& program) {
  return Counted(program.NumCams(), "cam") + QStringLiteral(", ") +
         Counted(program.NumSizes(), "size") + QStringLiteral(", ") +
         Counted(CountPhases(program), "phase");
}

/// Why a number from the command line is not taken; empty when it is, or when none was given.
QString OutOfRange(const char* option, std::optional<int> number, int most) {
  if (!number || IsWithin(*number, most)) return {};
  return QLatin1String(option) + u' ' + QString::number(*number) +
         QStringLiteral(" is out of range: 1 to ") + QString::number(most);
}

}  // namespace

int KplctlCommands::Check(const QStringList& files) {
  bool good = true;
  for (const QString& file : files) {
    good = CheckFile(file) && good;
    out_.flush();
  }
  return good ? Good : Failed;
}

bool KplctlCommands::CheckFile(const QString& file) {
  const QString extension = QFileInfo(file).suffix().toLower();
  if (extension == QStringLiteral("cam")) return CheckCamFile(file);
  if (extension == QStringLiteral("scr")) return CheckScriptOf(file);
  PrintFault(out_, file, {0, QStringLiteral("neither a .cam nor a .scr file by its name")});
  return false;
}

bool KplctlCommands::CheckCamFile(const QString& file) {
  CamProgram program;
  bool cutOff = false;
  if (const auto fault = Load(file, {}, program, &cutOff)) {
    PrintFault(out_, file, *fault);
    return false;
  }
  out_ << Printable(file) << ": good: " << Summary(program);
  if (cutOff) out_ << "; " << withoutEnd;
  out_ << '\n';
  return true;
}

bool KplctlCommands::CheckScriptOf(const QString& file) {
  const ScriptReport report = CheckScriptFile(file);
  if (report.fault) {
    PrintFault(out_, file, *report.fault);
    return false;
  }
  out_ << Printable(file) << ": good: " << Counted(report.lines, "line") << ", "
       << Counted(report.texts, "text") << '\n';
  return true;
}

std::optional<Fault> KplctlCommands::Load(const QString& file, const Dimensions& named,
                                          CamProgram& program, bool* cutOff) {
  {
    LineReader lines(file);
    if (!lines.IsOpen()) return Fault{0, lines.Error()};
    const auto header = lines.Next();
    if (auto fault = SetDimensions(header.value_or(std::string_view()), named, program)) {
      return fault;
    }
  }
  Globals globals;
  KeptMessage kept(prompts_);
  const LoadResult result = CamFile(program, globals, kept, texts_, writer_).LoadCamFile(file);
  if (cutOff != nullptr) *cutOff = result.cutOff;
  return FaultOf(result, kept.Text, texts_);
}

int KplctlCommands::List(const QString& file, const Selection& selection) {
  CamProgram program;
  if (const auto fault = Load(file, {}, program)) {
    PrintFault(err_, file, *fault);
    return Failed;
  }
  QString reason = OutOfRange("--size", selection.size, program.NumSizes());
  if (reason.isEmpty()) reason = OutOfRange("--cam", selection.cam, program.NumCams());
  if (!reason.isEmpty()) {
    err_ << Printable(file) << ": " << reason << '\n';
    return Failed;
  }
  out_ << Printable(file) << ": " << Summary(program) << '\n';
  ListFunctions(program);
  const int first = selection.size.value_or(1);
  const int last = selection.size.value_or(program.NumSizes());
  for (int size = first; size <= last; ++size) ListSize(program, size, selection.cam);
  return Good;
}

void KplctlCommands::ListFunctions(const CamProgram& program) {
  const FunctionsBlock& f = program.Functions();
  if (f.AdvanceOn == 1) {
    out_ << "Advances: on, cams 1 to " << f.AdvanceLast + 1 << '\n';
    for (int cam = 0; cam <= f.AdvanceLast; ++cam) {
      out_ << "  cam " << ZeroFilled(cam + 1, 2) << ": " << f.CamFunc[static_cast<std::size_t>(cam)]
           << " ms\n";
    }
  } else {
    out_ << "Advances: off\n";
  }
  if (f.DelayOn == 1) {
    out_ << "Delays: on, cams 17-20: " << f.Delay17to20 << " ms, cams 21-24: " << f.Delay21to24
         << " ms\n";
  } else {
    out_ << "Delays: off\n";
  }
  if (f.Ratio25On == 1) {
    out_ << "Ratio: on, cams 25-32: 1/" << f.Ratio25to32 << '\n';
  } else {
    out_ << "Ratio: off\n";
  }
  out_ << "Output size: " << f.OutputSize << "\nEncoder shift: " << f.EncoderShift
       << "\nDirection of rotation: " << f.RotationSense << "\nSpeed limit: " << f.SpeedLimit
       << '\n';
}

void KplctlCommands::ListSize(const CamProgram& program, int size, std::optional<int> cam) {
  out_ << "\nSize " << ZeroFilled(size, 2) << '\n';
  const int first = cam.value_or(1);
  const int last = cam.value_or(program.NumCams());
  bool any = cam.has_value();
  for (int number = first; number <= last; ++number) {
    const QStringList phases = PhaseList::Of(program.CamMap(size, number - 1)).Lines();
    if (phases.isEmpty() && !cam) continue;
    any = true;
    out_ << "Cam " << ZeroFilled(number, 2);
    const QString description = Printable(program.CamText(number - 1));
    if (!description.isEmpty()) out_ << ' ' << description;
    out_ << (phases.isEmpty() ? ": no phases\n" : "\n");
    for (const QString& phase : phases) out_ << phase << '\n';
  }
  if (!any) out_ << "no phases\n";
}

/// Asks before another file is replaced, as the windows do.
bool KplctlCommands::MayReplace(const QString& from, const QString& to) {
  const QFileInfo target(to);
  if (!target.exists() || target == QFileInfo(from)) return true;
  const QString& known = texts_.Text(TextNumber::ReplaceFile);
  const QString question = known.isEmpty() ? QStringLiteral("THE FILE ALREADY EXISTS") : known;
  return prompts_.MsgBox(question + u' ' + to, Buttons::YesNo, Icon::Exclamation) == Answer::Yes;
}

int KplctlCommands::Rewrite(const QString& from, const QString& to, const Dimensions& dimensions) {
  QString reason = OutOfRange("--cams", dimensions.cams, CamProgram::MaxCams);
  if (reason.isEmpty()) {
    reason = OutOfRange("--sizes", dimensions.sizes, CamProgram::MaxSizes);
  }
  if (!reason.isEmpty()) {
    err_ << "kplctl: " << reason << '\n';
    return Failed;
  }
  CamProgram program;
  bool cutOff = false;
  if (const auto fault = Load(from, dimensions, program, &cutOff)) {
    PrintFault(err_, from, *fault);
    return Failed;
  }
  if (cutOff) err_ << Printable(from) << ": " << withoutEnd << '\n';
  if (!MayReplace(from, to)) return Failed;
  Globals globals;
  globals.CurrentFile = to;
  const QString failure = CamFile(program, globals, prompts_, texts_, writer_).SaveCamFile();
  if (!failure.isEmpty()) {
    err_ << Printable(to) << ": cannot be written: " << Printable(failure) << '\n';
    return Failed;
  }
  out_ << Printable(to) << ": written: " << Summary(program) << '\n';
  return Good;
}

}  // namespace nira
