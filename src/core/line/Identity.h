// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "line/Comm.h"

#include <optional>
#include <string>
#include <string_view>

namespace nira {

/// The numbers by which a programmer says what it is.
struct ProgrammerLimits {
  int Cams = 0;
  int Sizes = 0;
  int Messages = 0;
  bool operator==(const ProgrammerLimits&) const = default;
};

/// The fields of an identity reply, found before the maker's word; what begins before the reply is
/// 0. None when the reply is no identity: no maker's word at character 6 or later.
std::optional<ProgrammerLimits> IdentityFields(std::string_view reply);

/// The same numbers at their fixed places, when the reply has at least 30 characters and all three
/// make sense: 16 or 32 cams, 1 to 99 sizes, 1 to 255 messages.
std::optional<ProgrammerLimits> ModelOf(std::string_view reply);

/// How the identity query ended.
enum class Identity {
  Accepted,   ///< the limits of the program are the programmer's; the port is open
  Rejected,   ///< another programmer; told, port closed
  Cancelled,  ///< no answer, and the operator gave up; port closed
  PortError,  ///< the port did not open or failed, or another exchange goes on
};

/// Asks the programmer who it is, until it answers or the operator cancels, and takes its limits
/// over. A rejected programmer has changed those limits that were checked before the bad one.
Identity IdentityQuery(Comm& comm);

/// The two halves of it, for a caller that has to do something between them: `AskIdentity` gets the
/// reply and changes nothing (`Accepted` when there is one), `TakeIdentity` checks it.
Identity AskIdentity(Comm& comm, std::string& reply);
Identity TakeIdentity(Comm& comm, std::string_view reply);

/// Asks the programmer for its model and closes the port; none, after a message, when it did not
/// answer or its numbers make no sense.
std::optional<ProgrammerLimits> AutSelQuery(Comm& comm);

/// Asks the programmer for its identity before messages are exchanged. The reply without its last
/// three characters, for `Label2`, with the port open; none, after a message and with the port
/// closed, when the port failed or nothing answered.
std::optional<QString> AskBeforeMessages(Comm& comm);

}  // namespace nira
