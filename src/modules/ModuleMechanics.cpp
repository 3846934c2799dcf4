#include "modules/ModuleMechanics.h"

#include <bit>
#include <cstring>

#include "base/Log.h"
#include "base/Settings.h"

namespace drav {

namespace {

std::uint32_t BankMask(std::int32_t width) {
  if (width >= 32) return ~std::uint32_t{0};
  if (width <= 0) return 0;
  return (std::uint32_t{1} << width) - 1;
}

}  // namespace

std::int32_t DetectBankChange(const InputBank& bank, std::int32_t* value) {
  if (bank.prev == nullptr) return -1;
  const std::uint32_t changed = (bank.state ^ *bank.prev) & BankMask(bank.width);
  if (changed == 0) return -1;

  const int bitIndex = std::countr_zero(changed);
  const std::uint32_t bit = std::uint32_t{1} << bitIndex;
  *bank.prev ^= bit;
  if (value != nullptr) *value = (bank.state & bit) != 0 ? 1 : 0;
  return bank.baseControl + bitIndex;
}

std::int32_t FirstEncoderMove(std::span<const EncoderMove> encoders, std::int32_t* value) {
  for (const EncoderMove& encoder : encoders) {
    if (encoder.count == 0) continue;
    if (value != nullptr) *value = encoder.count;
    return encoder.control;
  }
  return -1;
}

std::int32_t DecodeFirstChange(std::span<const EncoderMove> encoders, std::span<const InputBank> banks,
                               std::int32_t* value) {
  std::int32_t control = FirstEncoderMove(encoders, value);
  for (std::size_t i = 0; control == -1 && i < banks.size(); ++i) {
    control = DetectBankChange(banks[i], value);
  }
  return control;
}

bool DisplayLoggingEnabled() { return CurrentDebugSwitches().DebugSetDisplayFunction != 0; }

void LogSentLightMask(const char* label, std::uint32_t mask) {
  if (DisplayLoggingEnabled()) LogBits16(label != nullptr ? label : "", mask);
}

bool DisplayTextCache::Matches(const char* text) const {
  return std::strncmp(last_, text, kCapacity - 1) == 0;
}

void DisplayTextCache::Remember(const char* text) {
  std::size_t length = 0;
  while (length < kCapacity - 1 && text[length] != '\0') ++length;
  std::memcpy(last_, text, length);
  last_[length] = '\0';
}

}  // namespace drav
