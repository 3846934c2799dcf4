// A simulator dataref (or a range of an array dataref) with a two-state on/off meaning, and the
// scalar value access of the avionic functions.
#pragma once

#include <XPLMDataAccess.h>

#include <cstdint>
#include <memory>

namespace drav {

enum DatarefValueType : std::int32_t {
  kIntScalar = 0,
  kFloatScalar = 1,
  kIntArray = 2,
  kFloatArray = 3,
};

// How a read value becomes a state; stored as float, as the mode numbers always were.
inline constexpr float kCompareEqual = 0.0f;
inline constexpr float kCompareGreater = 1.0f;
inline constexpr float kCompareAtLeast = 2.0f;
inline constexpr float kCompareNotEqual = 3.0f;
inline constexpr float kCompareLess = 4.0f;

struct DatarefBinding {
  std::int32_t state = 0;  // last evaluated or commanded state, 0 or 1
  std::unique_ptr<float[]> floatBuffer;  // count elements when valueType is kFloatArray
  std::unique_ptr<std::int32_t[]> intBuffer;  // count elements when valueType is kIntArray
  float onValue = 0.0f;
  float offValue = 0.0f;
  float compareMode = kCompareEqual;
  std::int32_t valueType = kIntScalar;
  XPLMDataRef dataref = nullptr;  // null when the simulator has no such dataref
  // Where the writes go: the same dataref, unless the simulator sets that one itself and takes the
  // wish through another (null: nothing takes them).
  XPLMDataRef writeDataref = nullptr;
  std::int32_t offset = 0;
  std::int32_t count = 0;

  DatarefBinding() = default;
  // Function records are copied with their modules; a copy gets buffers of its own.
  DatarefBinding(const DatarefBinding& other);
  DatarefBinding& operator=(const DatarefBinding& other);
  DatarefBinding(DatarefBinding&&) noexcept = default;
  DatarefBinding& operator=(DatarefBinding&&) noexcept = default;
};

// Stores the fields, allocates the array buffer for an array type, and looks the path up. An array
// range is limited to a sane count (non-positive or absurd counts bind nothing).
void InitBinding(DatarefBinding& binding, float onValue, float offValue, float compareMode, const char* path,
                 std::int32_t valueType, std::int32_t offset, std::int32_t count);
// Sends the binding's writes to path (of the same value type), or nowhere for a null path; the
// binding still reads its own dataref.
void RedirectBindingWrites(DatarefBinding& binding, const char* path);
// Evaluates the dataref (element 0 of an array range decides), stores and returns the state; a
// missing dataref returns 0 and leaves the state alone.
std::int32_t ReadBinding(DatarefBinding& binding);
// Writes onValue (forceOn, or state 1) or offValue to every element of the range; ints truncate.
void WriteBinding(DatarefBinding& binding, std::int32_t forceOn);

struct AvionicFunction;
float GetAvionicValue(const AvionicFunction& function);
void SetAvionicValue(AvionicFunction& function, float value);
// True when the handle exists and offers float access (decided once, when the object is built).
bool IsFloatDataref(XPLMDataRef dataref);

}  // namespace drav
