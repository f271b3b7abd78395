// SPDX-License-Identifier: Apache-2.0
#include "Arguments.h"

namespace nira {

std::optional<int> Arguments::Number(const char* option) const {
  if (!Has(option)) return std::nullopt;
  return Text(option).toInt();
}

QString Arguments::OutOfRange(const char* option, int most) const {
  const auto number = Number(option);
  if (!number || (*number >= 1 && *number <= most)) return {};
  return QStringLiteral("--") + QLatin1String(option) + u' ' + QString::number(*number) +
         QStringLiteral(" is out of range: 1 to ") + QString::number(most);
}

}  // namespace nira
