// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

namespace nira {

/// The text as a terminal may show it: every control character, line end and invisible character
/// of another file's or a file name's content is replaced, so that none of it reaches the terminal
/// as a command.
QString Printable(const QString& text);

}  // namespace nira
