// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

namespace nira {

using HexBytes = std::vector<unsigned char>;

/// The number in hexadecimal digits, its lowest ones.
inline std::string HexDigits(std::size_t number, int digits) {
  std::string text;
  for (; digits > 0; --digits, number /= 16) text += "0123456789ABCDEF"[number % 16];
  return {text.rbegin(), text.rend()};
}

/// A line of a firmware file with its checksum, without its end.
inline std::string HexText(std::size_t offset, std::size_t type, const HexBytes& data) {
  std::size_t sum = data.size() + offset / 256 + offset % 256 + type;
  std::string line = ":" + HexDigits(data.size(), 2) + HexDigits(offset, 4) + HexDigits(type, 2);
  for (const unsigned char byte : data) {
    line += HexDigits(byte, 2);
    sum += byte;
  }
  return line + HexDigits((256 - sum % 256) % 256, 2);
}

/// A file of an image that begins at `address`: lines of 16 bytes, the last one of `last` bytes, a
/// base record for each 64 KiB but the lowest, the end record.
inline std::string HexFileText(const HexBytes& image, std::size_t address, std::size_t last) {
  constexpr std::size_t lineBytes = 16;
  constexpr std::size_t segment = 65536;
  std::string file;
  for (std::size_t at = 0; at < image.size();) {
    const std::size_t here = address + at;
    const bool newBase = here >= segment && (at == 0 || here % segment == 0);
    const HexBytes base = {static_cast<unsigned char>(here / segment / 256),
                           static_cast<unsigned char>(here / segment)};
    if (newBase) file += HexText(0, 4, base) + "\r\n";
    const std::size_t left = image.size() - at;
    std::size_t count = left > last ? std::min(lineBytes, left - last) : left;
    count = std::min(count, segment - here % segment);
    const auto from = image.begin() + static_cast<std::ptrdiff_t>(at);
    const HexBytes data(from, from + static_cast<std::ptrdiff_t>(count));
    file += HexText(here % segment, 0, data) + "\r\n";
    at += count;
  }
  return file + HexText(0, 1, {}) + "\r\n";
}

}  // namespace nira
