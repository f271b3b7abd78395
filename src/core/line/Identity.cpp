// SPDX-License-Identifier: Apache-2.0
#include "line/Identity.h"

#include "ground/Text.h"
#include "line/SerialLink.h"
#include "line/Timings.h"
#include "line/Wire.h"

#include <algorithm>
#include <cstdlib>

namespace nira {

namespace {

constexpr std::string_view makersWord = "NIRA";
constexpr std::string_view identityCommand = "?M";

/// The number in `count` characters from `position` (from 1) on, without its sign; 0 when they
/// begin before the reply.
int NumberAt(std::string_view reply, std::int64_t position, std::size_t count) {
  if (position < 1 || static_cast<std::size_t>(position) > reply.size()) return 0;
  const std::string_view field = reply.substr(static_cast<std::size_t>(position) - 1, count);
  return static_cast<int>(std::abs(NumericValue(field)));
}

bool OneOf(int number, int first, int second) {
  return number == first || number == second;
}

/// The query with a way out for callers that ask once; the port's failure is told.
Reply AskOnce(Comm& comm) {
  try {
    return Wire(comm).Query(identityCommand, Buttons::Ok);
  } catch (const SerialError& error) {
    SerialLink(comm).Report(error);
    Reply reply;
    reply.Ended = Reply::End::NotOpened;
    return reply;
  }
}

/// Asks until an identity comes. A device that goes on answering something else counts, after the
/// time of a reply, as one that does not answer.
Identity AskUntilAnswered(Comm& comm, std::string& identity) {
  Wire wire(comm);
  std::int64_t since = comm.Time.Now();
  while (true) {
    Reply reply = wire.Query(identityCommand, Buttons::RetryCancel);
    if (reply.Ended == Reply::End::NotOpened) return Identity::PortError;
    if (reply.Ended == Reply::End::Answered) {
      if (IdentityFields(reply.Text)) {
        identity = std::move(reply.Text);
        return Identity::Accepted;
      }
      if (comm.Time.Now() - since >= Timings::LineReply) {
        reply.Ended = Reply::End::NoAnswer;
        reply.Said = wire.TellNoAnswer(Buttons::RetryCancel, reply.Text);
      }
    }
    if (reply.Ended == Reply::End::NoAnswer) {
      if (reply.Said != Answer::Retry) return Identity::Cancelled;
      since = comm.Time.Now();
    }
    comm.Time.Pause(Timings::AskAgain, Yield::Events);
  }
}

}  // namespace

std::optional<ProgrammerLimits> IdentityFields(std::string_view reply) {
  constexpr std::size_t first = 6;
  const std::size_t found = reply.find(makersWord);
  if (found == std::string_view::npos || found + 1 < first) return std::nullopt;
  const auto p = static_cast<std::int64_t>(found) + 1;
  return ProgrammerLimits{NumberAt(reply, p - 11, 2), NumberAt(reply, p - 8, 2),
                          NumberAt(reply, p - 5, 3)};
}

std::optional<ProgrammerLimits> ModelOf(std::string_view reply) {
  constexpr std::size_t shortest = 30;
  if (reply.size() < shortest) return std::nullopt;
  const ProgrammerLimits limits{NumberAt(reply, 1, 2), NumberAt(reply, 4, 2),
                                NumberAt(reply, 7, 3)};
  const bool sane = OneOf(limits.Cams, 16, 32) && limits.Sizes >= 1 &&
                    limits.Sizes <= CamProgram::MaxSizes && limits.Messages >= 1 &&
                    limits.Messages <= CamProgram::MaxMessages;
  return sane ? std::optional(limits) : std::nullopt;
}

Identity AskIdentity(Comm& comm, std::string& reply) {
  comm.Settings.PortErrorFlag = 0;
  try {
    return AskUntilAnswered(comm, reply);
  } catch (const SerialError& error) {
    SerialLink(comm).Report(error);
    return Identity::PortError;
  }
}

Identity TakeIdentity(Comm& comm, std::string_view reply) {
  CamProgram& program = comm.Program;
  const ProgrammerLimits found = IdentityFields(reply).value_or(ProgrammerLimits());
  bool accepted = OneOf(found.Messages, 180, 255);
  if (accepted) program.SetLimits(program.NumSizes(), program.NumCams(), found.Messages);
  accepted = accepted && OneOf(found.Cams, 16, 32);
  if (accepted) program.SetLimits(program.NumSizes(), found.Cams, found.Messages);
  accepted = accepted && OneOf(found.Sizes, 22, 44);
  if (accepted) {
    program.SetLimits(found.Sizes, found.Cams, found.Messages);
    return Identity::Accepted;
  }
  comm.Ask.MsgBox(QStringLiteral("BAD DEVICE  CAM.") + QString::number(found.Cams) +
                      QStringLiteral(" FORM.") + QString::number(found.Sizes),
                  Buttons::Ok, Icon::None);
  SerialLink(comm).ClosePort();
  return Identity::Rejected;
}

Identity IdentityQuery(Comm& comm) {
  const CommLock lock(comm);
  if (!lock.Taken()) return Identity::PortError;
  std::string reply;
  const Identity asked = AskIdentity(comm, reply);
  return asked == Identity::Accepted ? TakeIdentity(comm, reply) : asked;
}

std::optional<ProgrammerLimits> AutSelQuery(Comm& comm) {
  const CommLock lock(comm);
  if (!lock.Taken()) return std::nullopt;
  const Reply reply = AskOnce(comm);
  SerialLink(comm).ClosePort();
  if (reply.Ended != Reply::End::Answered) return std::nullopt;
  const auto model = ModelOf(reply.Text);
  if (!model) {
    comm.Ask.MsgBox(comm.Text(TextNumber::AnswerOfNoUse) + ShownAnswer(reply.Text), Buttons::Ok,
                    Icon::Exclamation);
  }
  return model;
}

std::optional<QString> AskBeforeMessages(Comm& comm) {
  const Reply reply = AskOnce(comm);
  if (reply.Ended != Reply::End::Answered) return std::nullopt;
  const QString text = FromBytes(reply.Text);
  return text.left(std::max<qsizetype>(text.size() - 3, 0));
}

}  // namespace nira
