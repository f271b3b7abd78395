// SPDX-License-Identifier: Apache-2.0
// Writes the sample firmware anew: the same bytes at every run. Made up, for no real processor.

#include "HexText.h"
#include "files/FileWriter.h"

#include <QCoreApplication>
#include <QDir>
#include <QTextStream>

#include <numeric>
#include <random>
#include <string_view>

namespace {

using namespace nira;

constexpr std::size_t start = 0x8000;  ///< first address; the image goes on into the next 64 KiB
constexpr std::size_t imageBytes = 65536;
constexpr std::string_view date = "11211997";  ///< month, day, year
constexpr std::size_t nameBytes = 6 + date.size();

void Put(HexBytes& image, std::size_t at, std::string_view text) {
  std::copy(text.begin(), text.end(), image.begin() + static_cast<std::ptrdiff_t>(at));
}

/// What a firmware looks like: a table of jumps, code, texts, empty memory, and at its very end
/// what names it.
HexBytes MakeImage() {
  HexBytes image(imageBytes, 0xFF);
  std::minstd_rand row(1997);  // the same row of numbers everywhere, at every run
  constexpr std::size_t code = 0xD800;
  for (std::size_t i = 0; i < code; ++i) image[i] = static_cast<unsigned char>(row() >> 8U);
  for (std::size_t i = 0; i < 64; i += 4) {
    image[i] = 0x02;  // each jumps somewhere into the code
    image[i + 3] = 0;
  }
  Put(image, code, "NIRA QX32-22F V1.00 (SAMPLE)   READY   SIZE   CAM   SPEED   ALARM   ");
  const std::size_t sum = std::accumulate(image.begin(), image.end(), std::size_t{0});
  Put(image, imageBytes - nameBytes, HexDigits(sum, 6) + std::string(date));
  return image;
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  const QStringList arguments = QCoreApplication::arguments();
  if (arguments.size() != 2) {
    QTextStream(stderr) << "Usage: make-firmware FOLDER\n";
    return 2;
  }
  const QString path = QDir(arguments.last()).filePath(QStringLiteral("firmware.abs"));
  const Refusal refusal =
      FileWriter().Write(path, HexFileText(MakeImage(), start, nameBytes), FileWriter::Backup::No);
  if (refusal) QTextStream(stderr) << path << ": " << refusal->Text << '\n';
  return refusal ? 1 : 0;
}
