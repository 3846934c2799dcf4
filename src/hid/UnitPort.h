// A module's way to its panel unit: made once for a model and a unit, then asked for the unit's
// displays, indicators, brightness and input state. What each model can do, and with which
// encoder, is the port part of the model's row (ModelTable.cpp); a module names only the capability
// and its arguments.
//
// Every call answers as the flat per-model functions of GFDev.h always have: 1 for a unit outside
// the model's slots (or a model without slots), 3 for an empty slot or an unplugged unit, 2 when
// nothing could be built (an encoder that built nothing, or a capability the model lacks), else
// the operation's own result. The brightness setter answers 0 for an unplugged unit (the level is
// simply not sent); every getter writes its out value only on success.
//
// Main thread only, like the tables it reads; no allocation, no lock other than the unit's state
// lock for the input state, no I/O other than queueing a report (and the bounded feature read of
// the brightness getter).
#pragma once

#include <array>
#include <cstdint>

namespace drav {

class DeviceObject;
struct PortModel;  // ModelTable.h

class UnitPort {
 public:
  // A port to no unit: every call answers 1, as for a unit out of range.
  constexpr UnitPort() = default;
  UnitPort(std::uint32_t moduleType, std::int32_t unit);

  std::uint32_t ModuleType() const { return moduleType_; }
  std::int32_t Unit() const { return unit_; }

  // True while a unit sits in the slot and is plugged in.
  bool Present() const;

  // ---- outputs -------------------------------------------------------------------------------
  // Display n (1-based) shows the text (zero-terminated, null is blank); a display number the
  // model lacks builds nothing.
  std::int32_t SetDisplay(int display, const char* text) const;
  // The model's indicator lights, bit i for light i (the GF-MCPPro has 32, the others 8).
  std::int32_t SetIndicators(std::uint32_t mask) const;
  // GF-WCP: indicator 1..6 in colour 0..7 (11 for another indicator, 0 with nothing sent for a
  // colour of 8 or more).
  std::int32_t SetIndicatorColour(std::uint8_t indicator, std::uint8_t colour) const;
  // GF-DIO: the four output bytes.
  std::int32_t SetOutputs(const std::array<std::uint8_t, 4>& outputs) const;
  // GF-166: the type of each of its two encoders.
  std::int32_t SetEncoderType(std::uint8_t first, std::uint8_t second) const;

  // ---- brightness ----------------------------------------------------------------------------
  // The devices keep the low four bits (the GF-WCP keeps the value and relights its indicators).
  std::int32_t SetBrightness(std::int32_t value) const;
  // Reads the unit's level (the GF-WCP answers what it was last told, without a device read);
  // *level is written only on success, and a null level is skipped (the unit is read all the same).
  template <typename Level>
  std::int32_t GetBrightness(Level* level) const {
    std::uint32_t raw = 0;
    const std::int32_t result = ReadBrightness(raw);
    if (result == 0 && level != nullptr) *level = static_cast<Level>(raw);
    return result;
  }

  // ---- input ---------------------------------------------------------------------------------
  // The unit's last input state as its model's record (InputRecords.h). The steps counted since
  // the last take (encoder steps, the GF-LGT's and GF-LGT2's values) are cleared in the unit once
  // taken, so that the next take returns only what arrived since. Written only on success.
  template <typename Record>
  std::int32_t TakeInput(Record& out) const;

  // The device object of a present unit, or null with the answer for a unit out of range (1), an
  // empty slot or an unplugged unit (3). For the device layer's own flat functions, whose optional
  // out arguments need the state itself.
  DeviceObject* PresentObject(std::int32_t& result) const;

 private:
  std::int32_t ReadBrightness(std::uint32_t& raw) const;
  // The object in the slot, or null with 1 (out of range) or 3 (empty slot).
  DeviceObject* SlotObject(std::int32_t& result) const;

  // The model's row; null for a unit outside the model's slots.
  const PortModel* model_ = nullptr;
  std::uint32_t moduleType_ = 0;
  std::int32_t unit_ = -1;
};

}  // namespace drav
