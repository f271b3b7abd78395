// SPDX-License-Identifier: Apache-2.0
// An options file; what it says is the same once written.

#include "Fuzz.h"
#include "files/FileWriter.h"
#include "files/OptionsFile.h"
#include "files/WorkingFolder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace nira;
  static const nira_fuzz::InputFile file(WorkingFolder::OptionsName);
  static const WorkingFolder folder(file.Folder());
  file.Put(data, size);
  const StoredOptions options = ReadOptions(folder);
  nira_fuzz::Hold(options.Recent.size() <= MaxRecent);
  return 0;
}
