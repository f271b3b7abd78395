#include "files/SizeBlockReader.h"

#include "model/PhaseList.h"
#include "model/Text.h"

#include <algorithm>

namespace nira {

namespace {

/// A number from a file as an index; what 32 bits cannot hold stays outside every model.
int Index(std::string_view text) {
  return static_cast<int>(std::clamp<std::int64_t>(NumericValue(text), -1000000, 1000000));
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

/// True for " 350 010", the form in which phases are written.
bool IsPlainPhase(std::string_view line) {
  return line.size() == 8 && line[4] == ' ' && IsDigit(line[1]) && IsDigit(line[2]) &&
         IsDigit(line[3]) && IsDigit(line[5]) && IsDigit(line[6]) && IsDigit(line[7]);
}

int PlainDegree(std::string_view line, std::size_t position) {
  return (line[position] - '0') * 100 + (line[position + 1] - '0') * 10 +
         (line[position + 2] - '0');
}

}  // namespace

SizeBlockReader::Stop SizeBlockReader::ReadSizeBlock(int size) {
  return Read(size, false);
}

SizeBlockReader::Stop SizeBlockReader::SkipSizeBlock() {
  return Read(0, true);
}

SizeBlockReader::Stop SizeBlockReader::Read(int size, bool skip) {
  while (true) {
    auto line = lines_.Next();
    if (!line) return Stop::EndOfFile;
    if (line->empty() && !lines_.AtEnd()) line = lines_.Next();
    if (!line) return Stop::EndOfFile;
    try {
      if (lines_.Overlong()) throw IndexError("line length");
      const char first = line->empty() ? '\0' : line->front();
      if (first == 'C') {
        if (!skip) TakeCamLine(*line);
      } else if (first == ' ' && IsPlainPhase(*line)) {
        if (!skip) TakePhaseLine(*line, size);
      } else if (line->find("FORMATO N. ") != std::string_view::npos || *line == "END") {
        line_ = *line;
        return Stop::SizeOrEnd;
      } else if (first == ' ' && !skip) {
        TakePhaseLine(*line, size);
      }
    } catch (const std::logic_error&) {  // an index, or a description, that the model refuses
      line_ = *line;
      return Stop::BadLine;
    }
  }
}

void SizeBlockReader::TakeCamLine(std::string_view line) {
  cam_ = Index(line.substr(std::min<std::size_t>(2, line.size()), 2)) - 1;
  const std::size_t quote = line.find('"');
  if (quote == std::string_view::npos) return;
  std::string_view text = line.substr(quote + 1);
  if (!text.empty()) text.remove_suffix(1);
  program_.SetCamText(cam_, FromBytes(text));
}

void SizeBlockReader::TakePhaseLine(std::string_view line, int size) {
  if (IsPlainPhase(line)) {
    program_.SetPhase(size, cam_, PlainDegree(line, 1), PlainDegree(line, 5));
  } else {
    constexpr std::size_t width = PhaseList::EntryWidth + 1;
    program_.SetPhase(size, cam_, Index(line.substr(0, width)), Index(Tail(line, width)));
  }
}

}  // namespace nira
