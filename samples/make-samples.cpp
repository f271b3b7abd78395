// SPDX-License-Identifier: Apache-2.0
// Writes the sample programs and messages anew: the same bytes at every run, through the program's
// own writer.

#include "PressMessages.h"
#include "files/CamLines.h"
#include "files/FileWriter.h"
#include "messages/MessageFile.h"
#include "model/CamProgram.h"
#include "model/PhaseList.h"

#include <QCoreApplication>
#include <QDir>
#include <QTextStream>

#include <random>
#include <vector>

namespace {

using namespace nira;

/// A phase in size 1, and by how many tenths of a degree its ends move from size to size.
struct MovingPhase {
  int on;
  int off;
  int onTenths = 0;
  int offTenths = 0;
};

/// What one cam of the machine does.
struct Track {
  int number;  ///< of the cam, from 1
  const char* description;
  std::vector<MovingPhase> phases;
  int every = 1;   ///< works in each size, in every second one, ...
  int offset = 0;  ///< ... counted from here
  int trim = 2;    ///< degrees by which each product was trimmed at most
};

/// A transfer press with 0 at the top: it forms between 120 and 180 degrees, ejects on the way up
/// and moves the parts on around 0.
const std::vector<Track>& PressTracks() {
  static const std::vector<Track> tracks = {
      {1, "FEED GRIPPER", {{268, 92, 8, -6}}},
      {2, "FEED RETRACT", {{104, 236, -6, 10}}},
      {3, "TRANSFER CLAMP", {{302, 64, 10, -8}}},
      {4, "TRANSFER LIFT", {{318, 22, 12, 4}}},
      {5, "TRANSFER LOWER", {{38, 76, 2, -4}}},
      {6, "TRANSFER RETURN", {{98, 226, -5, 7}}},
      {7, "BLANK DESTACKER", {{188, 262, 6, 6}}},
      {8, "SUCTION CUPS", {{196, 338, 5, -9}}},
      {9, "DOUBLE BLANK CHECK", {{240, 252}, {286, 298}}},
      {10, "BLANK IN PLACE", {{352, 14, 0, 3}}},
      {11, "BLOW OFF DIE 1", {{204, 222, 3, 5}, {246, 258, 3, 5}}},
      {12, "BLOW OFF DIE 2", {{210, 230, 3, 5}, {252, 266, 3, 5}}},
      {13, "BLOW OFF DIE 3", {{216, 238, 3, 5}}, 3, 1},
      {15, "EJECTOR LOWER DIE", {{192, 248, 4, 6}}},
      {16, "EJECTOR UPPER DIE", {{176, 206, 2, 3}}},
      {17, "BRAKE MONITOR", {{344, 16}}, 1, 0, 0},
      {18, "CLUTCH RELEASE", {{334, 8, -2, 0}}},
      {19, "DIE CUSHION LOCK", {{172, 214, 2, 8}}},
      {20, "DIE CUSHION UP", {{228, 330, 8, -6}}},
      {21, "SCRAP CHUTE", {{126, 162, 0, 4}, {264, 300, 0, 4}}, 2},
      {22, "QUALIT\u00c0 PEZZO", {{60, 72}, {272, 284, 5, 5}}},
      {25, "LUBE SPRAY LEFT", {{24, 48, 4, 6}, {330, 350, -2, 0}}},
      {26, "LUBE SPRAY RIGHT", {{28, 52, 4, 6}, {326, 346, -2, 0}}},
      {27, "LUBE SPRAY DIE 3", {{32, 58, 4, 6}}, 3, 1},
      {28, "GEAR OIL PULSE", {{90, 100}, {210, 220}, {330, 340}}, 1, 0, 0},
      {29, "PART COUNTER", {{258, 270}}},
      {30, "CONVEYOR STEP", {{236, 312, 4, 2}}},
      {32, "LIGHT CURTAIN MUTE", {{186, 348}}, 1, 0, 0},
  };
  return tracks;
}

/// A carton machine: a blank is drawn at 0, folded, glued and pushed out within one turn.
const std::vector<Track>& CartonTracks() {
  static const std::vector<Track> tracks = {
      {1, "BLANK SUCTION", {{338, 42, -1, 4}}},
      {2, "BLANK RELEASE", {{58, 80, 4, 5}}},
      {3, "ERECTOR PUSHER", {{70, 148, 3, 5}}},
      {4, "PR\u00c9-FOLD FLAP", {{112, 176, 2, 3}}},
      {5, "GLUE GUN 1", {{150, 158, 3, 5}, {172, 180, 4, 6}, {198, 206, 5, 7}}, 1, 0, 1},
      {6, "GLUE GUN 2", {{154, 162, 3, 5}, {202, 210, 5, 7}}, 1, 0, 1},
      {7, "GLUE GUN 3", {{178, 190, 4, 6}}, 4, 2},
      {8, "LEAFLET INSERT", {{210, 246, 2, 2}}, 2, 1},
      {9, "PRODUCT PUSHER", {{222, 296, 1, 4}}},
      {10, "SIDE FLAP CLOSE", {{262, 330, 2, 2}}},
      {11, "PRESS BELT STEP", {{300, 20, 2, 2}}},
      {12, "CODE JET N\u00b0 1", {{318, 324}, {338, 344}}, 1, 0, 1},
      {14, "REJECT GATE", {{346, 34}}},
      {15, "QUALIT\u00c0 CARTONE", {{40, 52}, {130, 142, 2, 2}}},
      {16, "CYCLE COUNT", {{0, 12}}, 1, 0, 0},
  };
  return tracks;
}

int Turned(int degree) {
  return ((degree % CamProgram::Degrees) + CamProgram::Degrees) % CamProgram::Degrees;
}

/// Sets the phases of a machine in every size; each product is trimmed a little.
void SetTracks(CamProgram& program, const std::vector<Track>& tracks) {
  std::minstd_rand trims(1987);  // the same row of numbers everywhere, at every run
  const auto trim = [&trims](int most) {
    return static_cast<int>(trims() % static_cast<unsigned>(2 * most + 1)) - most;
  };
  for (const Track& track : tracks) {
    program.SetCamText(track.number - 1, QString::fromUtf8(track.description));
    for (int size = 1; size <= program.NumSizes(); ++size) {
      if ((size + track.offset) % track.every != 0) continue;
      for (const MovingPhase& phase : track.phases) {
        const int on = phase.on + phase.onTenths * (size - 1) / 10 + trim(track.trim);
        const int off = phase.off + phase.offTenths * (size - 1) / 10 + trim(track.trim);
        program.SetPhase(size, track.number - 1, Turned(on), Turned(off));
      }
    }
  }
}

CamProgram Press() {
  CamProgram program;
  program.SetLimits(22, 32, CamProgram::MaxMessages);
  program.ResetProgram();
  SetTracks(program, PressTracks());
  FunctionsBlock f;
  f.AdvanceOn = 1;
  f.AdvanceLast = 15;
  f.CamFunc = {0, 12, 18, 24, 24, 16, 35, 42, 8, 8, 55, 55, 60, 0, 70, 65};
  f.DelayOn = 1;
  f.Delay17to20 = 25;
  f.Delay21to24 = 110;
  f.Ratio25On = 1;
  f.Ratio25to32 = 4;
  f.OutputSize = 5;
  f.EncoderShift = 118;
  f.RotationSense = 1;
  f.SpeedLimit = 640;
  program.SetFunctions(f);
  return program;
}

CamProgram Carton() {
  CamProgram program;
  program.SetLimits(44, 16, CamProgram::MaxMessages);
  program.ResetProgram();
  SetTracks(program, CartonTracks());
  FunctionsBlock f;
  f.AdvanceOn = 1;
  f.AdvanceLast = 11;
  f.CamFunc = {0, 10, 14, 0, 32, 32, 36, 20, 15, 0, 12, 6};
  f.OutputSize = 12;
  f.EncoderShift = 45;
  f.SpeedLimit = 210;
  program.SetFunctions(f);
  return program;
}

CamProgram Smallest() {
  CamProgram program;
  program.SetLimits(1, 1, CamProgram::MaxMessages);
  program.ResetProgram();
  return program;
}

/// Two rows as one text: the second begins at character 21.
QString TwoRows(const char* const (&rows)[2]) {
  return QString::fromUtf8(rows[0]).leftJustified(20) + QString::fromUtf8(rows[1]);
}

/// The alarms of the press in the language of `rows`, for a programmer of so many messages.
std::string PressAlarms(int messages, const char* const (PressMessage::*rows)[2]) {
  CamProgram program;
  program.SetLimits(22, 32, messages);
  for (int number = 1; number <= messages; ++number) {
    program.SetMessageText(number, TwoRows(pressMessages[number - 1].*rows));
  }
  return WriteMessageLines(program);
}

bool Write(const std::string& bytes, const QString& path) {
  const Refusal refusal = FileWriter().Write(path, bytes, FileWriter::Backup::No);
  if (refusal) QTextStream(stderr) << path << ": " << refusal->Text << '\n';
  return !refusal;
}

bool Write(const CamProgram& program, const QString& path) {
  return Write(WriteCamFile(program), path);
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  const QStringList arguments = QCoreApplication::arguments();
  if (arguments.size() != 2) {
    QTextStream(stderr) << "Usage: make-samples FOLDER\n";
    return 2;
  }
  const QDir folder(arguments.last());
  const bool written = Write(Press(), folder.filePath(QStringLiteral("press.CAM"))) &&
                       Write(Carton(), folder.filePath(QStringLiteral("carton.CAM"))) &&
                       Write(Smallest(), folder.filePath(QStringLiteral("smallest.CAM"))) &&
                       Write(PressAlarms(255, &PressMessage::italian),
                             folder.filePath(QStringLiteral("press_IT.MSG"))) &&
                       Write(PressAlarms(180, &PressMessage::english),
                             folder.filePath(QStringLiteral("press_EN.MSG")));
  return written ? 0 : 1;
}
