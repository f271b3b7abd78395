// SPDX-License-Identifier: Apache-2.0
// A language script.

#include "Fuzz.h"
#include "files/MessageTable.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const nira_fuzz::InputFile file("fuzz.SCR");
  nira::MessageTable texts;
  texts.Read(file.Put(data, size));
  for (int number = 0; number <= nira::MessageTable::Count + 1; ++number) {
    nira_fuzz::Hold(texts.Text(number).size() <= nira::MessageTable::MaxText);
  }
  return 0;
}
