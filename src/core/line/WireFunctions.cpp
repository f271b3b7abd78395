// SPDX-License-Identifier: Apache-2.0
#include "line/WireFunctions.h"

#include "files/CamFile.h"
#include "files/CamWords.h"
#include "ground/Text.h"
#include "model/FunctionFields.h"
#include "model/FunctionRules.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <optional>

namespace nira {

namespace {

/// A value that a program can hold although no operator can give it, by its name in the cam file.
struct NamedField {
  const char* field;
  const char* words;
  int digits = 0;  ///< that its record has for it; 0: as many as it takes
};

constexpr NamedField namedFields[] = {
    {"Delay17to20", "RITARDO CAMS 17-20"},     {"Delay21to24", "RITARDO CAMS 21-24"},
    {"Ratio25to32", "RAPPORTO CAMS 25-32"},    {"OutputSize", "FORMATO IN USCITA", 2},
    {"EncoderShift", "SFASAMENTO ENCODER", 3}, {"RotationSense", "SENSO DI ROTAZIONE"},
    {"SpeedLimit", "LIMITE DI VELOCITA'", 4},
};

std::string PairOf(unsigned value) {
  constexpr const char* digits = "0123456789ABCDEF";
  return {digits[value / 16 % 16], digits[value % 16]};
}

/// The number that `count` hexadecimal digits at `position` (from 0) are; none when the record is
/// too short or holds something else there.
std::optional<int> Hexadecimal(std::string_view record, std::size_t position, std::size_t count) {
  if (record.size() < position + count) return std::nullopt;
  const char* first = record.data() + position;
  const char* last = first + count;
  int value = 0;
  const auto [end, error] = std::from_chars(first, last, value, 16);
  if (error != std::errc() || end != last || *first == '-') return std::nullopt;
  return value;
}

std::optional<int> PairAt(std::string_view record, std::size_t position) {
  return Hexadecimal(record, position, 2);
}

std::string EntriesRecord(const FunctionsBlock& f, int last) {
  std::string record = ZeroFill(last + 1, 2);
  for (int i = 0; i <= last; ++i) record += PairOf(f.CamFunc[static_cast<std::size_t>(i)]);
  return record;
}

std::string ConfigurationRecord(const FunctionsBlock& f) {
  return ZeroFill(f.OutputSize, 2) + ZeroFill(f.EncoderShift, 3) + std::to_string(f.RotationSense) +
         ZeroFill(f.SpeedLimit, 4);
}

/// How many entries the record has for a number that it announces. It is hexadecimal; but a program
/// of this tool that was never stored in the programmer's own form announces its entries in
/// decimal, which shows when there are just as many.
int EntryCount(std::string_view record, int announced) {
  const auto there = static_cast<int>(record.size() / 2) - 1;
  const bool decimal = there < announced && NumericValue(record.substr(0, 2)) == there;
  return decimal ? there : announced;
}

}  // namespace

std::vector<std::string> FunctionsRecords(const CamProgram& program) {
  const FunctionsBlock& f = program.Functions();
  const int last = program.LastAdvance();
  std::vector<std::string> records;
  if (HasGroups(program.NumCams())) {
    records.push_back(std::to_string(f.AdvanceOn) + std::to_string(f.DelayOn) +
                      std::to_string(f.Ratio25On) + std::to_string(f.Ratio17On));
    if (f.AdvanceOn != 0) records.push_back(EntriesRecord(f, last));
    if (f.DelayOn != 0) records.push_back(PairOf(f.Delay17to20) + PairOf(f.Delay21to24));
    if (f.Ratio25On != 0) records.push_back(std::to_string(f.Ratio25to32));
  } else {
    records.push_back(last < 1 ? std::to_string(last) : EntriesRecord(f, last));
  }
  records.push_back(ConfigurationRecord(f));
  return records;
}

QStringList ChangedOnTheLine(const FunctionsBlock& functions) {
  QStringList changed;
  for (const NamedField& named : namedFields) {
    const int value = FindFunctionField(QLatin1String(named.field))->Value(functions);
    const QString text = QString::number(value);
    if (named.digits == 0 || (value >= 0 && text.size() <= named.digits)) continue;
    changed.append(QLatin1String(named.words) + u' ' + text + QStringLiteral(" -> ") +
                   ZeroFilled(value, named.digits));
  }
  return changed;
}

QStringList OutOfRange(const CamProgram& program) {
  QStringList values;
  for (const NamedField& named : namedFields) {
    const FunctionField* field = FindFunctionField(QLatin1String(named.field));
    const int value = field->Value(program.Functions());
    const int largest = field->Largest(program);
    if (value >= 0 && value <= largest) continue;
    values.append(QLatin1String(named.words) +
                  QStringLiteral(" %1 (0-%2)").arg(value).arg(largest));
  }
  return values;
}

Refusal WireFunctions::Read() {
  if (ReadRecords() && Next() && AtSize()) return std::nullopt;
  return Fault{.What = Fault::Kind::BadLine, .Text = ShownLine(line_)};
}

bool WireFunctions::ReadRecords() {
  if (!HasGroups(numCams_)) {
    return Take(&WireFunctions::EntriesOrIndex) && Take(&WireFunctions::Configuration);
  }
  return Take(&WireFunctions::Flags) && (block_.AdvanceOn == 0 || Take(&WireFunctions::Entries)) &&
         (block_.DelayOn == 0 || Take(&WireFunctions::Delays)) &&
         (block_.Ratio25On == 0 || Take(&WireFunctions::Ratio)) &&
         Take(&WireFunctions::Configuration);
}

bool WireFunctions::Next() {
  const auto line = lines_.Next();
  if (line) line_ = *line;
  return line && !lines_.Overlong();
}

bool WireFunctions::AtSize() const {
  return line_.find(SizeWords) != std::string::npos;
}

bool WireFunctions::Take(Parser parser) {
  return Next() && !AtSize() && (this->*parser)(line_);
}

/// One hexadecimal digit each at characters 1, 3, 5 and 7; the lowest bit is the flag.
bool WireFunctions::Flags(std::string_view record) {
  std::size_t position = 0;
  for (std::uint8_t* flag :
       {&block_.AdvanceOn, &block_.DelayOn, &block_.Ratio25On, &block_.Ratio17On}) {
    const auto digit = Hexadecimal(record, position, 1);
    if (!digit) return false;
    *flag = static_cast<std::uint8_t>(*digit & 1);
    position += 2;
  }
  return true;
}

void WireFunctions::SetLast(std::int64_t index) {
  block_.AdvanceLast = static_cast<std::int16_t>(std::clamp<std::int64_t>(index, 0, numCams_ - 1));
}

/// The number of entries and then each entry, a hexadecimal pair each. No entry beyond the cams is
/// asked for.
bool WireFunctions::Entries(std::string_view record) {
  const auto announced = PairAt(record, 0);
  if (!announced) return false;
  const int count = EntryCount(record, *announced);
  for (int i = 0; i < std::min(count, numCams_); ++i) {
    const auto entry = PairAt(record, 2 * static_cast<std::size_t>(i) + 2);
    if (!entry) return false;
    block_.CamFunc[static_cast<std::size_t>(i)] =
        static_cast<std::uint8_t>(std::min(*entry, HighestTime));
  }
  SetLast(count - 1);
  return true;
}

/// On a programmer without groups: the entries, or no more than the index of the last one.
bool WireFunctions::EntriesOrIndex(std::string_view record) {
  constexpr std::size_t shortestEntries = 4;
  if (record.size() >= shortestEntries) {
    if (!Entries(record)) return false;
  } else {
    std::int16_t index = 0;
    if (!Store(index, record)) return false;
    SetLast(index);
  }
  block_.AdvanceOn = block_.AdvanceLast > 0 ? 1 : 0;
  return true;
}

bool WireFunctions::Delays(std::string_view record) {
  const auto first = PairAt(record, 0);
  const auto second = PairAt(record, 2);
  if (!first || !second) return false;
  block_.Delay17to20 = static_cast<std::uint8_t>(*first);
  block_.Delay21to24 = static_cast<std::uint8_t>(*second);
  return true;
}

bool WireFunctions::Ratio(std::string_view record) {
  return Store(block_.Ratio25to32, record);
}

/// Output size, encoder shift, direction and speed limit: 2 and 3 characters, what the others
/// leave, and the last 4.
bool WireFunctions::Configuration(std::string_view record) {
  constexpr std::size_t others = 2 + 3 + 4;
  record = record.substr(0, record.find_last_not_of(' ') + 1);
  if (record.size() <= others) return false;
  return Store(block_.OutputSize, record.substr(0, 2)) &&
         Store(block_.EncoderShift, record.substr(2, 3)) &&
         Store(block_.RotationSense, record.substr(5, record.size() - others)) &&
         Store(block_.SpeedLimit, Tail(record, 4));
}

/// Takes a number by the one rule for numbers; false when there is none, or none that the field can
/// hold.
template <typename Number>
bool WireFunctions::Store(Number& field, std::string_view text) {
  const std::string number = NumberPart(text);
  if (number.find_first_of("0123456789") == std::string::npos) return false;
  const std::int64_t value = NumericValue(text);
  using Limits = std::numeric_limits<Number>;
  if (value < Limits::min() || value > Limits::max()) return false;
  field = static_cast<Number>(value);
  const auto blanks = static_cast<std::size_t>(std::count(text.begin(), text.end(), ' '));
  if (number.size() + blanks < text.size()) doubtful_ = line_;
  return true;
}

}  // namespace nira
