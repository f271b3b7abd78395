// SPDX-License-Identifier: Apache-2.0
#include "CamFileAccess.h"
#include "Commands.h"
#include "ListingPainter.h"
#include "Printable.h"
#include "listing/Listing.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

namespace nira {

namespace {

struct SizeRange {
  qint64 first = 1;
  qint64 last = CamProgram::MaxSizes;
};

/// "1-4", or "3" alone; none for anything else. Numbers of more digits than any size has stay too
/// large.
std::optional<SizeRange> SizesOf(const QString& text) {
  static const QRegularExpression form(QStringLiteral("\\A([0-9]{1,9})(?:-([0-9]{1,9}))?\\z"));
  const QRegularExpressionMatch match = form.match(text);
  if (!match.hasMatch()) return std::nullopt;
  const qint64 first = match.captured(1).toLongLong();
  return SizeRange{first, match.hasCaptured(2) ? match.captured(2).toLongLong() : first};
}

std::optional<QPageSize::PageSizeId> PaperOf(const QString& name) {
  for (const QPageSize::PageSizeId id : {QPageSize::A4, QPageSize::Letter}) {
    if (name.compare(QPageSize::key(id), Qt::CaseInsensitive) == 0) return id;
  }
  return std::nullopt;
}

QString PrintFault(const Arguments& arguments) {
  if (arguments.Has("sizes") && !SizesOf(arguments.Text("sizes"))) {
    return QStringLiteral("--sizes takes a number or two with a dash between, as 1-4");
  }
  if (arguments.Has("paper") && !PaperOf(arguments.Text("paper"))) {
    return QStringLiteral("--paper takes A4 or Letter");
  }
  return {};
}

/// What is to be printed; none, with the reason told, when the program has not all of those sizes.
std::optional<ListingOptions> OptionsOf(const Console& console, const Arguments& arguments,
                                        const CamProgram& program) {
  SizeRange sizes{1, program.NumSizes()};
  if (arguments.Has("sizes")) sizes = SizesOf(arguments.Text("sizes")).value_or(SizeRange());
  if (sizes.first < 1 || sizes.first > sizes.last || sizes.last > program.NumSizes()) {
    console.Err << "kplctl: --sizes " << arguments.Text("sizes") << " is out of range: 1-"
                << program.NumSizes() << '\n';
    return std::nullopt;
  }
  ListingOptions options;
  options.FirstSize = static_cast<int>(sizes.first);
  options.LastSize = static_cast<int>(sizes.last);
  options.Functions = !arguments.Has("no-functions");
  options.Diagram = !arguments.Has("no-diagram");
  options.PagePerSize = !arguments.Has("flowing");
  return options;
}

int RunPrint(Console& console, const Arguments& arguments) {
  const QString& from = arguments.Words.first();
  const QString& to = arguments.Words.last();
  if (QFileInfo(to).exists() && QFileInfo(from) == QFileInfo(to)) {
    console.Err << Printable(to) << ": is the cam file itself\n";
    return Console::Failed;
  }
  CamProgram program;
  if (!OpenCamFile(console, from, {}, program)) return Console::Failed;
  const auto options = OptionsOf(console, arguments, program);
  if (!options) return Console::Failed;
  if (!MayReplace(console, {}, to)) return Console::Failed;
  const Listing listing(program, console.Texts, QFileInfo(from).absoluteFilePath(),
                        QDateTime::currentDateTime(), *options);
  ListingPainter painter(listing);
  const QPageSize paper(PaperOf(arguments.Text("paper")).value_or(QPageSize::A4));
  const QByteArray pdf = PdfOf(painter, QPageLayout(paper, QPageLayout::Portrait, QMarginsF()));
  const Refusal refusal = console.Writer.Write(
      to, {pdf.constData(), static_cast<std::size_t>(pdf.size())}, FileWriter::Backup::No);
  if (refusal) {
    nira::PrintFault(console.Err, to, *refusal);
    return Console::Failed;
  }
  console.Out << Printable(to) << ": written: " << Counted(painter.Pages(), "page") << '\n';
  return Console::Good;
}

}  // namespace

Command PrintCommand() {
  using enum Option::Kind;
  return {.name = "print",
          .synopsis = "FILE.cam OUT.pdf [--sizes 1-4] [--no-diagram] [--yes]",
          .summary = "write the sizes of a cam file as the pages that the print window shows",
          .fewest = 2,
          .most = 2,
          .options = {{"sizes", Text, "A-B", "these sizes alone"},
                      {"no-diagram", Flag, "", "without the diagrams"},
                      {"no-functions", Flag, "", "without the functions"},
                      {"flowing", Flag, "", "sizes one after another, not a page for each"},
                      {"paper", Text, "NAME", "A4 or Letter, otherwise A4"}},
          .run = RunPrint,
          .fault = PrintFault,
          .needsFonts = true};
}

}  // namespace nira
