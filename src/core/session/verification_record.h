// A cone's verification: how its three channels read against a reference load cell or pressure
// transducer at a row of applied loads.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace marlview {

inline constexpr int kVerificationChannels = 3;
inline constexpr int kMaxVerificationRows = 10;
// The deviation of a row whose applied value is 0: a marker, never a real percentage.
inline constexpr float kNoDeviation = 1000.0f;

struct VerificationChannel {
  std::string ChannelTitle;
  std::string ChannelUnits;
  std::array<float, 5> ChannelCoefficientsA{};
  std::array<float, 5> ChannelCoefficientsB{};
  float ChannelRange = 0;
  float ChannelOffset = 0;
  float ChannelScale = 0;
  int16_t RowCount = 0;
  // Rows 1..RowCount; row 0 is unused.
  std::array<float, kMaxVerificationRows + 1> RowAppliedLoad{};
  std::array<float, kMaxVerificationRows + 1> RowApplied{};
  std::array<float, kMaxVerificationRows + 1> RowMeasuredLoad{};
  std::array<float, kMaxVerificationRows + 1> RowMeasured{};
  // Percent, or kNoDeviation.
  std::array<float, kMaxVerificationRows + 1> RowDeviation{};
};

struct VerificationRecord {
  std::string FileName;
  // "Q3MTL" when the file's text names that family, else "FIELDBOX": the report takes the header
  // settings of that family.
  std::string Family = "FIELDBOX";
  std::string ConeId, TestDate, OperatorName;
  std::string CellManufacturer, CellSerialNumber, CellCapacity, CellSensitivity;
  std::string TransducerManufacturer, TransducerSerialNumber, TransducerCapacity, TransducerSensitivity;
  // Channels 1..3; index 0 is unused.
  std::array<VerificationChannel, kVerificationChannels + 1> Channel{};
};

}  // namespace marlview
