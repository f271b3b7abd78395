// SPDX-License-Identifier: Apache-2.0
#include "Pseudoterminal.h"

namespace nira {

QString Pseudoterminal::Open() {
  return QStringLiteral("a simulated programmer on a port is available on Linux alone");
}
void Pseudoterminal::Close() {}
std::optional<std::string> Pseudoterminal::Read() {
  return std::nullopt;
}
void Pseudoterminal::Write(std::string_view /*bytes*/) {}
bool Pseudoterminal::HoldOpen() {
  return false;
}
void Pseudoterminal::LetGo() {}
std::optional<int> Pseudoterminal::Baud() const {
  return std::nullopt;
}

}  // namespace nira
