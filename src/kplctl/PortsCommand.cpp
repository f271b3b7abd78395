// SPDX-License-Identifier: Apache-2.0
#include "Commands.h"
#include "Printable.h"
#include "line/PortAccess.h"
#include "line/PortNames.h"
#include "line/SimulatedMark.h"

#include <QDir>

#include <algorithm>

namespace nira {

namespace {

/// What the machine has, and those numbered ports of it that this user may not look at.
std::vector<PortInfo> FoundPorts(const PortNames& names) {
  std::vector<PortInfo> ports = names.All();
  for (int number = 1; number <= PortNames::Ports; ++number) {
    const PortInfo port = names.Describe(number);
    const bool listed = std::any_of(ports.begin(), ports.end(), [&port](const PortInfo& other) {
      return other.Device == port.Device;
    });
    if (port.Present && !port.Permitted && !listed) ports.push_back(port);
  }
  std::stable_sort(ports.begin(), ports.end(), [](const PortInfo& a, const PortInfo& b) {
    return a.Number > 0 && (b.Number == 0 || a.Number < b.Number);
  });
  return ports;
}

/// A simulated programmer holds its own port as long as nobody else does.
bool HeldByItself(const PortInfo& port, const PortNames& names) {
  const qint64 process = port.Simulated ? SimulatorProcess(names.Link(port.Number)) : 0;
  return process > 0 && port.HeldBy.endsWith(QStringLiteral("(%1)").arg(process));
}

QString PortState(const PortInfo& port, const PortNames& names) {
  const bool free = port.HeldBy.isEmpty() || HeldByItself(port, names);
  QString state = free ? QStringLiteral("free") : QString(u"in use by " + port.HeldBy);
  if (port.Permitted) return state;
  const QString group = GroupToJoin(port.Device);
  state += QStringLiteral(", no permission");
  if (!group.isEmpty()) state += QStringLiteral(": join the group ") + group;
  return state;
}

QStringList PortRow(const PortInfo& port, const PortNames& names) {
  const auto orDash = [](const QString& text) {
    return text.isEmpty() ? QStringLiteral("-") : Printable(text);
  };
  const QString number = port.Number > 0 ? QString::number(port.Number) : QString();
  const QString description =
      port.Simulated ? QStringLiteral("simulated programmer") : port.Description;
  return {orDash(number), orDash(port.Device), orDash(description), orDash(port.SerialNumber),
          Printable(PortState(port, names))};
}

/// Prints rows of as many cells, each column as wide as its widest cell.
void PrintTable(QTextStream& lines, const QList<QStringList>& rows) {
  for (const QStringList& row : rows) {
    QString line;
    for (qsizetype column = 0; column < row.size(); ++column) {
      qsizetype width = 0;
      for (const QStringList& other : rows) width = std::max(width, other.at(column).size());
      line += row.at(column).leftJustified(width + 2);
    }
    lines << line.trimmed() << '\n';
  }
}

int RunPorts(Console& console, const Arguments& /*arguments*/) {
  const WorkingFolder folder(QDir::currentPath());
  const PortNames names(folder);
  const std::vector<PortInfo> ports = FoundPorts(names);
  if (ports.empty()) {
    console.Out << "no serial port on this machine\n";
    return Console::Good;
  }
  QList<QStringList> rows = {{QStringLiteral("port"), QStringLiteral("device"),
                              QStringLiteral("description"), QStringLiteral("serial number"),
                              QStringLiteral("state")}};
  for (const PortInfo& port : ports) rows.append(PortRow(port, names));
  PrintTable(console.Out, rows);
  return Console::Good;
}

}  // namespace

Command PortsCommand() {
  return {.name = "ports",
          .synopsis = "",
          .summary = "list the serial ports of the machine and who uses them",
          .fewest = 0,
          .most = 0,
          .run = RunPorts};
}

}  // namespace nira
