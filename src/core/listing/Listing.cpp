// SPDX-License-Identifier: Apache-2.0
#include "listing/Listing.h"

#include "files/TextNumbers.h"
#include "ground/ProgramTitle.h"
#include "ground/Text.h"
#include "model/FunctionRules.h"

#include <algorithm>
#include <string>

namespace nira {

namespace {

QString PhaseText(const Phase& phase) {
  return ZeroFilled(phase.on, PhaseList::EntryWidth) + u'-' +
         ZeroFilled(phase.off, PhaseList::EntryWidth);
}

QString NumberLine(const std::string& words, int number) {
  return QString::fromStdString(words) + QString::number(number).rightJustified(4);
}

}  // namespace

Listing::Listing(const CamProgram& program, const MessageTable& texts, const QString& file,
                 const QDateTime& date, const ListingOptions& options)
    : program_(program), texts_(texts), file_(file), date_(date), options_(options) {
  options_.FirstSize = std::max(options_.FirstSize, 1);
  options_.LastSize = std::min(options_.LastSize, program.NumSizes());
}

QString Listing::ProgramLine() const {
  return QLatin1String(ProgramTitle) + QStringLiteral("   ") + Text(TextNumber::ProgramName);
}

QString Listing::FileLine() const {
  if (file_.isEmpty()) return Text(TextNumber::PrintedFile) + Text(TextNumber::PrintedNoFile);
  return Text(TextNumber::PrintedFile) + file_ +
         (options_.Modified ? Text(TextNumber::PrintedModified) : QString());
}

QString Listing::ModelLine() const {
  const auto counted = [](int count, const QString& one, const QString& more) -> QString {
    return QStringLiteral("  ") + QString::number(count) + u' ' + (count == 1 ? one : more);
  };
  return QStringLiteral("QX") + QString::number(program_.NumCams()) + u' ' +
         counted(program_.NumCams(), Text(TextNumber::CamWord).toLower(),
                 Text(TextNumber::StatusCams)) +
         counted(program_.NumSizes(), Text(TextNumber::SizeWord).toLower(),
                 Text(TextNumber::StatusSizes)) +
         QStringLiteral("  ") + QString::number(program_.NumMessages()) + u' ' +
         Text(TextNumber::StatusMessages);
}

QString Listing::DateLine() const {
  return date_.toString(QStringLiteral("yyyy-MM-dd HH:mm"));
}

QString Listing::PageLine(int page, int pages) const {
  return Text(TextNumber::PrintedPage) + QString::number(page) + QStringLiteral(" / ") +
         QString::number(pages);
}

QString Listing::FunctionsHeading() const {
  return Text(TextNumber::PrintedFunctions);
}

QString Listing::SizeHeading(int size, bool continued) const {
  const QString heading = Text(TextNumber::SendingSize) + ZeroFilled(size, 2);
  return continued ? QString(heading + u' ' + Text(TextNumber::PrintedContinued)) : heading;
}

QStringList Listing::ColumnHeadings() const {
  return {Text(TextNumber::PrintedCam), Text(TextNumber::PrintedDescription),
          Text(TextNumber::PrintedPhases)};
}

QString Listing::NoPhases() const {
  return Text(TextNumber::PrintedNoPhases);
}

QStringList Listing::FunctionLines() const {
  const FunctionsBlock& block = program_.Functions();
  return AdvanceLines() + GroupLines() +
         QStringList{NumberLine("FORMATO IN USCITA   ", block.OutputSize),
                     NumberLine("SFASAMENTO ENCODER  ", block.EncoderShift),
                     NumberLine("SENSO DI ROTAZIONE  ", block.RotationSense),
                     NumberLine("LIMITE DI VELOCITA'  ", block.SpeedLimit)};
}

/// How many cams have an advance, and which advance each of them has that is in no group.
QStringList Listing::AdvanceLines() const {
  const FunctionsBlock& block = program_.Functions();
  if (block.AdvanceOn != 1) return {QStringLiteral("ANTICIPI OFF")};
  const int count = program_.LastAdvance() + 1;
  QStringList lines{NumberLine("ANTICIPI ON   ", count)};
  const EnabledFunctions enabled = EnabledIn(block, program_.NumCams());
  for (int cam = 0; cam < count; ++cam) {
    if (ShownValue(cam, enabled) != FunctionValue::Advance) continue;
    lines.append(NumberLine("ANTICIPO CAMS  " + ZeroFill(cam + 1, 2) + " ms  ",
                            FieldOf(block, FunctionValue::Advance, cam)));
  }
  return lines;
}

QStringList Listing::GroupLines() const {
  const FunctionsBlock& block = program_.Functions();
  const EnabledFunctions enabled = EnabledIn(block, program_.NumCams());
  QStringList lines;
  lines.append(enabled.delay ? QStringLiteral("RITARDI ON") : QStringLiteral("RITARDI OFF"));
  if (enabled.delay) {
    lines.append(NumberLine("RITARDO CAMS 17-20   ms.", block.Delay17to20));
    lines.append(NumberLine("RITARDO CAMS 21-24   ms.", block.Delay21to24));
  }
  const bool ratios = enabled.ratio17 || enabled.ratio25;
  lines.append(ratios ? QStringLiteral("RAPPORTI  ON") : QStringLiteral("RAPPORTI OFF"));
  if (enabled.ratio17) lines.append(NumberLine("RAPPORTO CAMS 17-24 = ", block.Ratio17to24));
  if (enabled.ratio25) lines.append(NumberLine("RAPPORTO CAMS 25-32 = ", block.Ratio25to32));
  return lines;
}

bool Listing::HasPhases(int size) const {
  for (int cam = 0; cam < program_.NumCams(); ++cam) {
    const CamRow& row = program_.CamMap(size, cam);
    if (std::find(row.begin(), row.end(), std::uint8_t{1}) != row.end()) return true;
  }
  return false;
}

QString Listing::NumberOf(int cam) {
  return ZeroFilled(cam + 1, 2);
}

QString Listing::DescriptionOf(int cam) const {
  return program_.CamText(cam).left(DescriptionWidth);
}

Listing::Cam Listing::CamOf(int size, int cam) const {
  Cam entry{NumberOf(cam), DescriptionOf(cam), {}};
  for (const Phase& phase : PhaseList::Of(program_.CamMap(size, cam)).phases) {
    entry.phases.append(PhaseText(phase));
  }
  return entry;
}

int Listing::PhaseCount(int size, int cam) const {
  return static_cast<int>(PhaseList::Of(program_.CamMap(size, cam)).phases.size());
}

std::vector<Run> Listing::RunsOf(int size, int cam) const {
  return PhaseList::Of(program_.CamMap(size, cam)).runs;
}

}  // namespace nira
