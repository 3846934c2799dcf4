// Dataref bindings and the avionic value access. Everything here runs on the simulator's thread;
// reads and writes reuse the binding's own buffers, so the per-frame paths never allocate.
#include "functions/DatarefBinding.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <utility>

#include "functions/FunctionObjects.h"

namespace drav {

namespace {

// The widest range any binding needs is an engine or light array of 16; 64 leaves room for aircraft
// arrays without letting a corrupt count allocate or copy a huge buffer. A count outside 1..64
// binds nothing: the binding behaves exactly like one whose dataref the simulator does not have.
constexpr std::int32_t kMaxArrayRange = 64;

bool IsKnownValueType(std::int32_t valueType) { return valueType >= kIntScalar && valueType <= kFloatArray; }

bool IsArrayValueType(std::int32_t valueType) { return valueType == kIntArray || valueType == kFloatArray; }

bool IsSaneArrayCount(std::int32_t count) { return count > 0 && count <= kMaxArrayRange; }

// Truncation toward zero, as a C cast would do, but defined for every float: NaN writes 0 and values
// beyond the int range saturate instead of being undefined behaviour.
std::int32_t TruncateToInt(float value) {
  if (std::isnan(value)) return 0;
  constexpr float kTwoToThe31 = 2147483648.0f;
  if (value >= kTwoToThe31) return std::numeric_limits<std::int32_t>::max();
  if (value <= -kTwoToThe31) return std::numeric_limits<std::int32_t>::min();
  return static_cast<std::int32_t>(value);
}

template <typename Element>
std::unique_ptr<Element[]> CopyBuffer(const std::unique_ptr<Element[]>& source, std::int32_t count) {
  if (source == nullptr || count <= 0) return nullptr;
  auto copy = std::make_unique<Element[]>(static_cast<std::size_t>(count));
  std::copy_n(source.get(), count, copy.get());
  return copy;
}

// Only element 0 of an array range decides; when the simulator copied nothing (a range past the
// end of its array) the value is 0, never what an earlier read left in the buffer.
float ReadIntArrayHead(DatarefBinding& binding) {
  if (binding.intBuffer == nullptr) return 0.0f;
  const int copied = XPLMGetDatavi(binding.dataref, binding.intBuffer.get(), binding.offset, binding.count);
  return copied > 0 ? static_cast<float>(binding.intBuffer[0]) : 0.0f;
}

float ReadFloatArrayHead(DatarefBinding& binding) {
  if (binding.floatBuffer == nullptr) return 0.0f;
  const int copied = XPLMGetDatavf(binding.dataref, binding.floatBuffer.get(), binding.offset, binding.count);
  return copied > 0 ? binding.floatBuffer[0] : 0.0f;
}

float ReadBoundValue(DatarefBinding& binding) {
  switch (binding.valueType) {
    case kIntScalar: return static_cast<float>(XPLMGetDatai(binding.dataref));
    case kFloatScalar: return XPLMGetDataf(binding.dataref);
    case kIntArray: return ReadIntArrayHead(binding);
    case kFloatArray: return ReadFloatArrayHead(binding);
    default: return 0.0f;
  }
}

// The mode is a float that only ever holds 0 to 4; anything else compares for equality.
bool ValueMeansOn(float value, float onValue, float compareMode) {
  if (compareMode == kCompareAtLeast) return value >= onValue;
  if (compareMode == kCompareGreater) return value > onValue;
  if (compareMode == kCompareNotEqual) return value != onValue;
  if (compareMode == kCompareLess) return value < onValue;
  return value == onValue;
}

// One setter call for the whole range: every element gets the same value.
void WriteIntArray(DatarefBinding& binding, float value) {
  if (binding.intBuffer == nullptr) return;
  std::fill_n(binding.intBuffer.get(), binding.count, TruncateToInt(value));
  XPLMSetDatavi(binding.writeDataref, binding.intBuffer.get(), binding.offset, binding.count);
}

void WriteFloatArray(DatarefBinding& binding, float value) {
  if (binding.floatBuffer == nullptr) return;
  std::fill_n(binding.floatBuffer.get(), binding.count, value);
  XPLMSetDatavf(binding.writeDataref, binding.floatBuffer.get(), binding.offset, binding.count);
}

void WriteBoundValue(DatarefBinding& binding, float value) {
  switch (binding.valueType) {
    case kIntScalar: XPLMSetDatai(binding.writeDataref, TruncateToInt(value)); break;
    case kFloatScalar: XPLMSetDataf(binding.writeDataref, value); break;
    case kIntArray: WriteIntArray(binding, value); break;
    case kFloatArray: WriteFloatArray(binding, value); break;
    default: break;
  }
}

void AllocateArrayBuffer(DatarefBinding& binding) {
  const auto elements = static_cast<std::size_t>(binding.count);
  if (binding.valueType == kIntArray) binding.intBuffer = std::make_unique<std::int32_t[]>(elements);
  if (binding.valueType == kFloatArray) binding.floatBuffer = std::make_unique<float[]>(elements);
}

float InvertFlag(float value) { return value != 0.0f ? 0.0f : 1.0f; }

}  // namespace

DatarefBinding::DatarefBinding(const DatarefBinding& other)
    : state(other.state),
      floatBuffer(CopyBuffer(other.floatBuffer, other.count)),
      intBuffer(CopyBuffer(other.intBuffer, other.count)),
      onValue(other.onValue),
      offValue(other.offValue),
      compareMode(other.compareMode),
      valueType(other.valueType),
      dataref(other.dataref),
      writeDataref(other.writeDataref),
      offset(other.offset),
      count(other.count) {}

DatarefBinding& DatarefBinding::operator=(const DatarefBinding& other) {
  if (this != &other) {
    DatarefBinding copy(other);
    *this = std::move(copy);
  }
  return *this;
}

// A rebuilt binding starts over: fresh buffers, state 0. The range itself is not checked against
// the simulator's array length; the SDK clamps it. An unknown value type, an absurd array count or
// a null path leave the dataref null, so the binding reads 0 and never writes.
void InitBinding(DatarefBinding& binding, float onValue, float offValue, float compareMode, const char* path,
                 std::int32_t valueType, std::int32_t offset, std::int32_t count) {
  binding.state = 0;
  binding.onValue = onValue;
  binding.offValue = offValue;
  binding.compareMode = compareMode;
  binding.valueType = valueType;
  binding.offset = offset;
  binding.count = count;
  binding.intBuffer.reset();
  binding.floatBuffer.reset();
  binding.dataref = nullptr;
  binding.writeDataref = nullptr;

  if (!IsKnownValueType(valueType) || path == nullptr) return;
  if (IsArrayValueType(valueType)) {
    if (!IsSaneArrayCount(count)) return;
    AllocateArrayBuffer(binding);
  }
  binding.dataref = XPLMFindDataRef(path);
  binding.writeDataref = binding.dataref;
}

void RedirectBindingWrites(DatarefBinding& binding, const char* path) {
  binding.writeDataref = path != nullptr ? XPLMFindDataRef(path) : nullptr;
}

std::int32_t ReadBinding(DatarefBinding& binding) {
  if (binding.dataref == nullptr) return 0;
  const float value = ReadBoundValue(binding);
  binding.state = ValueMeansOn(value, binding.onValue, binding.compareMode) ? 1 : 0;
  return binding.state;
}

// Callers set the binding's state to the commanded one first; forceOn writes the on value whatever
// the state (a selector position that reports again must write its value again).
void WriteBinding(DatarefBinding& binding, std::int32_t forceOn) {
  const float value = (forceOn != 0 || binding.state == 1) ? binding.onValue : binding.offValue;
  if (binding.writeDataref == nullptr) return;
  WriteBoundValue(binding, value);
}

float GetAvionicValue(const AvionicFunction& function) {
  if (function.dataref == nullptr) return 0.0f;
  const float value =
      function.isFloat ? XPLMGetDataf(function.dataref) : static_cast<float>(XPLMGetDatai(function.dataref));
  return function.invertedFlag ? InvertFlag(value) : value;
}

void SetAvionicValue(AvionicFunction& function, float value) {
  if (function.dataref == nullptr) return;
  if (function.invertedFlag) value = InvertFlag(value);
  if (function.isFloat) {
    XPLMSetDataf(function.dataref, value);
  } else {
    XPLMSetDatai(function.dataref, TruncateToInt(value));
  }
}

// A dataref that offers both int and float access is used as float.
bool IsFloatDataref(XPLMDataRef dataref) {
  return dataref != nullptr && (XPLMGetDataRefTypes(dataref) & xplmType_Float) != 0;
}

}  // namespace drav
