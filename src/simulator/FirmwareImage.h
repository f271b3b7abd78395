// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

#include <array>
#include <bitset>
#include <cstdint>
#include <map>
#include <optional>
#include <string_view>
#include <vector>

namespace nira {

/// One line of an Intel HEX file.
struct HexRecord {
  enum Type : std::uint8_t { Data = 0, End = 1, ExtendedSegment = 2, ExtendedLinear = 4 };

  std::uint8_t type = Data;  ///< other types than those above are possible
  std::uint16_t offset = 0;
  std::vector<std::uint8_t> data;

  /// None when a digit, the byte count or the checksum is wrong.
  static std::optional<HexRecord> Parse(std::string_view line);
};

/// The firmware of a simulated programmer: the bytes that HEX records put anywhere into 4 GiB, of
/// which as many pages can be written as the device has memory for.
class FirmwareImage {
 public:
  static constexpr std::size_t PageBytes = 4096;
  static constexpr std::size_t MaxPages = 4096;  ///< 16 MiB

  void Clear() { *this = FirmwareImage(); }

  /// Stores a record's data, or minds what it says about the records to come. What follows the
  /// end record changes nothing.
  void Take(const HexRecord& record);

  /// True when the end record has come.
  bool IsComplete() const { return complete_; }

  std::size_t Bytes() const;                        ///< bytes written
  std::size_t Refused() const { return refused_; }  ///< bytes for which no page was left
  std::optional<std::uint8_t> At(std::uint32_t address) const;  ///< none where nothing was written

  /// True when the same bytes stand at the same addresses, all of them.
  bool SameBytes(const FirmwareImage& other) const;

  /// The image that a HEX file describes, its end records last wherever they stand; none when it
  /// cannot be read or a line of it is wrong.
  static std::optional<FirmwareImage> OfFile(const QString& path);

 private:
  struct Page {
    std::array<std::uint8_t, PageBytes> bytes{};
    std::bitset<PageBytes> written;
    bool operator==(const Page&) const = default;
  };

  void Store(std::uint32_t address, std::uint8_t byte);

  std::map<std::uint32_t, Page> pages_;  // by address / PageBytes
  std::uint32_t base_ = 0;               // of the offsets to come
  bool segment_ = true;                  // an offset that runs over goes on at the base
  std::size_t refused_ = 0;
  bool complete_ = false;
};

}  // namespace nira
