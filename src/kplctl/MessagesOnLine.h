// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "LineSession.h"

namespace nira {

// What `messages send` and `messages receive` do once the line stands. Each returns the exit
// status.

/// Sends a message file that is wholly good; nothing of another one.
int SendMessages(LineSession& session, const QString& file);

/// Receives the programmer's messages and writes them to a file, when all of them came whole.
int ReceiveMessages(LineSession& session, const QString& file);

}  // namespace nira
