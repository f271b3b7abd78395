// SPDX-License-Identifier: Apache-2.0
#include "model/CamProgram.h"

#include "ground/Text.h"
#include "model/PhaseWrite.h"

#include <algorithm>
#include <utility>

namespace nira {

namespace {

[[noreturn]] void Outside(const char* what, int index) {
  throw IndexError(std::string(what) + " " + std::to_string(index));
}

void CheckText(const QString& text) {
  if (!text.contains(u'\n') && ToBytes(text)) return;
  throw std::invalid_argument("a text that no file can hold");
}

void CheckDegree(int degree) {
  if (degree < 0 || degree >= CamProgram::Degrees) Outside("degree", degree);
}

}  // namespace

CamProgram::CamProgram() : map_(static_cast<std::size_t>(MaxSizes) * MaxCams) {}

void CamProgram::SetLimits(int sizes, int cams, int messages) {
  if (sizes < 1 || sizes > MaxSizes) Outside("number of sizes", sizes);
  if (cams < 1 || cams > MaxCams) Outside("number of cams", cams);
  if (messages < 1 || messages > MaxMessages) Outside("number of messages", messages);
  if (sizes != numSizes_ || cams != numCams_) ++revision_;
  numSizes_ = sizes;
  numCams_ = cams;
  numMessages_ = messages;
  currentSize_ = std::min(currentSize_, sizes);
  currentCam_ = std::min(currentCam_, cams - 1);
}

void CamProgram::DimensionModel() {
  ClearStore();
  for (std::size_t cam = static_cast<std::size_t>(numCams_); cam < MaxCams; ++cam) {
    camText_[cam].clear();
    functions_.CamFunc[cam] = 0;
  }
}

void CamProgram::Empty(CamRow& row) {
  if (row == CamRow{}) return;
  row.fill(0);
  Count(row);
}

void CamProgram::Count(const CamRow& changed) {
  const auto index = static_cast<std::size_t>(&changed - map_.data());
  sizeRevision_[index / MaxCams] = ++revision_;
}

std::uint64_t CamProgram::Revision(int size) const {
  CheckSize(size);
  return sizeRevision_[static_cast<std::size_t>(size - 1)];
}

void CamProgram::ClearStore() {
  for (CamRow& row : map_) Empty(row);
}

void CamProgram::ClearSize(int size) {
  CheckSize(size);
  for (int cam = 0; cam < numCams_; ++cam) Empty(Row(size, cam));
}

void CamProgram::ClearAllSizes() {
  ClearStore();
}

void CamProgram::ClearFunctions() {
  FunctionsBlock block = functions_;
  block.Clear();
  if (block == functions_) return;
  functions_ = block;
  ++revision_;
}

void CamProgram::ClearCamLabels() {
  for (QString& text : camText_) {
    if (!text.isEmpty()) ++revision_;
    text.clear();
  }
}

void CamProgram::ResetProgram() {
  ClearFunctions();
  ClearAllSizes();
  ClearCamLabels();
  currentCam_ = 0;
  currentSize_ = 1;
}

void CamProgram::SetPhase(int size, int cam, int on, int off) {
  CamRow& row = Row(size, cam);
  CheckDegree(on);
  CheckDegree(off);
  if (WritePhase(row, on, off)) Count(row);
}

const CamRow& CamProgram::CamMap(int size, int cam) const {
  CheckSize(size);
  CheckCam(cam);
  return map_[static_cast<std::size_t>(size - 1) * MaxCams + static_cast<std::size_t>(cam)];
}

CamRow& CamProgram::Row(int size, int cam) {
  return const_cast<CamRow&>(std::as_const(*this).CamMap(size, cam));
}

void CamProgram::SetRow(int size, int cam, const CamRow& row) {
  CamRow& target = Row(size, cam);
  if (target == row) return;
  target = row;
  Count(target);
}

void CamProgram::KeepUndoRow() {
  undoRow_ = CamMap(currentSize_, currentCam_);
}

void CamProgram::RestoreUndoRow() {
  SetRow(currentSize_, currentCam_, undoRow_);
}

void CamProgram::SelectSize(int size) {
  CheckSize(size);
  currentSize_ = size;
}

void CamProgram::SelectCam(int cam) {
  CheckCam(cam);
  currentCam_ = cam;
}

const QString& CamProgram::CamText(int cam) const {
  CheckCam(cam);
  return camText_[static_cast<std::size_t>(cam)];
}

void CamProgram::SetCamText(int cam, const QString& text) {
  CheckCam(cam);
  CheckText(text);
  QString& target = camText_[static_cast<std::size_t>(cam)];
  if (target == text) return;
  target = text;
  ++revision_;
}

const QString& CamProgram::MessageText(int number) const {
  if (number < 1 || number > MaxMessages) Outside("message", number);
  return messageText_[static_cast<std::size_t>(number - 1)];
}

void CamProgram::SetMessageText(int number, const QString& text) {
  if (number < 1 || number > MaxMessages) Outside("message", number);
  CheckText(text);
  messageText_[static_cast<std::size_t>(number - 1)] = text;
}

int CamProgram::LastAdvance() const {
  return std::min<int>(functions_.AdvanceLast, numCams_ - 1);
}

void CamProgram::SetFunctions(const FunctionsBlock& functions) {
  const int last = functions.AdvanceLast;
  if (last < 0 || last >= MaxCams) Outside("last cam with an advance", last);
  if (functions_ == functions) return;
  functions_ = functions;
  ++revision_;
}

void CamProgram::CheckSize(int size) const {
  if (size < 1 || size > numSizes_) Outside("size", size);
}

void CamProgram::CheckCam(int cam) const {
  if (cam < 0 || cam >= numCams_) Outside("cam", cam);
}

}  // namespace nira
