// SPDX-License-Identifier: Apache-2.0
#include "dialogs/About.h"

namespace nira {

QStringList About::SystemTools() {
  return {QStringLiteral("msinfo32")};
}

}  // namespace nira
