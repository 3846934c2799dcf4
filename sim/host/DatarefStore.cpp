#include "host/DatarefStore.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "host/BuiltinDatarefDefaults.h"
#include "host/BuiltinDatarefs.h"

namespace sim {

namespace {

// Larger arrays than any X-Plane has; a declaration beyond this is a mistake, not a dataref.
constexpr int kMaxArrayLength = 1 << 16;

bool IsArray(DatarefType type) {
  return type == DatarefType::IntArray || type == DatarefType::FloatArray;
}

bool IsIntegral(DatarefType type) {
  return type == DatarefType::Int || type == DatarefType::IntArray;
}

XPLMDataTypeID TypeBit(DatarefType type) {
  switch (type) {
    case DatarefType::Int: return xplmType_Int;
    case DatarefType::Float: return xplmType_Float;
    case DatarefType::Double: return xplmType_Double;
    case DatarefType::IntArray: return xplmType_IntArray;
    case DatarefType::FloatArray: return xplmType_FloatArray;
  }
  return xplmType_Unknown;
}

// The value as the dataref's own type holds it: ints truncate (saturating), floats round to float.
double Normalize(DatarefType type, double value) {
  if (IsIntegral(type)) {
    if (std::isnan(value)) return 0;
    const double clamped = std::clamp(value, static_cast<double>(std::numeric_limits<int>::min()),
                                      static_cast<double>(std::numeric_limits<int>::max()));
    return std::trunc(clamped);
  }
  if (type == DatarefType::Double) return value;
  return static_cast<double>(static_cast<float>(value));
}

std::string FormatValue(DatarefType type, double value) {
  if (IsIntegral(type)) return std::to_string(static_cast<int>(value));
  return FormatEventNumber(value, type != DatarefType::Double);
}

// Copies elements offset.. into out, at most max of them; a null buffer asks for the length.
template <typename Element>
int CopyElementsOut(const std::vector<double>& values, Element* out, int offset, int max) {
  const auto length = static_cast<std::int64_t>(values.size());
  if (out == nullptr) return static_cast<int>(length);
  if (offset < 0 || max <= 0 || offset >= length) return 0;
  const auto count = static_cast<int>(std::min<std::int64_t>(max, length - offset));
  for (int i = 0; i < count; ++i) out[i] = static_cast<Element>(values[offset + i]);
  return count;
}

// Prefers the widest reader a plug-in offers; empty when it offers no scalar reader.
std::optional<double> ReadScalarThroughAccessors(const DatarefAccessors& a) {
  if (a.readDouble != nullptr) return a.readDouble(a.readRefcon);
  if (a.readFloat != nullptr) return a.readFloat(a.readRefcon);
  if (a.readInt != nullptr) return a.readInt(a.readRefcon);
  return std::nullopt;
}

std::optional<double> ReadElementThroughAccessors(const DatarefAccessors& a, int index) {
  if (a.readFloatArray != nullptr) {
    float value = 0;
    if (a.readFloatArray(a.readRefcon, &value, index, 1) == 1) return value;
    return std::nullopt;
  }
  if (a.readIntArray != nullptr) {
    int value = 0;
    if (a.readIntArray(a.readRefcon, &value, index, 1) == 1) return value;
    return std::nullopt;
  }
  return std::nullopt;
}

bool WriteScalarThroughAccessors(const DatarefAccessors& a, double value) {
  if (a.writeDouble != nullptr) {
    a.writeDouble(a.writeRefcon, value);
  } else if (a.writeFloat != nullptr) {
    a.writeFloat(a.writeRefcon, static_cast<float>(value));
  } else if (a.writeInt != nullptr) {
    a.writeInt(a.writeRefcon, static_cast<int>(Normalize(DatarefType::Int, value)));
  } else {
    return false;
  }
  return true;
}

bool WriteElementThroughAccessors(const DatarefAccessors& a, int index, double value) {
  if (a.writeFloatArray != nullptr) {
    float element = static_cast<float>(value);
    a.writeFloatArray(a.writeRefcon, &element, index, 1);
  } else if (a.writeIntArray != nullptr) {
    int element = static_cast<int>(Normalize(DatarefType::Int, value));
    a.writeIntArray(a.writeRefcon, &element, index, 1);
  } else {
    return false;
  }
  return true;
}

// The array length a plug-in reports, 1 when it has no array reader to ask.
int ArrayLengthThroughAccessors(const DatarefAccessors& a) {
  int length = 1;
  if (a.readFloatArray != nullptr) {
    length = a.readFloatArray(a.readRefcon, nullptr, 0, 0);
  } else if (a.readIntArray != nullptr) {
    length = a.readIntArray(a.readRefcon, nullptr, 0, 0);
  }
  return std::clamp(length, 0, kMaxArrayLength);
}

}  // namespace

DatarefStore::DatarefStore(EventLog& events, std::uint16_t generation)
    : events_(events), records_(HandleKind::Dataref, generation) {
  LoadBuiltins();
}

void DatarefStore::AddOlderSimulatorDatarefs() {
  for (const BuiltinDataref& older : OlderSimulatorDatarefs()) {
    if (!Has(older.path)) Add(DatarefDecl{older.path, older.type, older.length, older.writable});
  }
}

void DatarefStore::LoadBuiltins() {
  for (const BuiltinDataref& builtin : BuiltinDatarefs()) {
    Add(DatarefDecl{builtin.path, builtin.type, builtin.length, builtin.writable});
  }
  for (const BuiltinDatarefDefault& value : BuiltinDatarefDefaults()) {
    SetValue(value.path, -1, -1, value.value);
  }
}

// ---- lookup ------------------------------------------------------------------------------------

const DatarefStore::Record* DatarefStore::Live(XPLMDataRef handle) const {
  const Record* record = records_.Find(handle);
  return record != nullptr && record->alive ? record : nullptr;
}

DatarefStore::Record* DatarefStore::Live(XPLMDataRef handle) {
  Record* record = records_.Find(handle);
  return record != nullptr && record->alive ? record : nullptr;
}

const DatarefStore::Record* DatarefStore::LiveByPath(std::string_view path) const {
  const auto found = indexByPath_.find(path);
  if (found == indexByPath_.end()) return nullptr;
  const Record& record = records_.At(found->second);
  return record.alive ? &record : nullptr;
}

DatarefStore::Record* DatarefStore::LiveByPath(std::string_view path) {
  return const_cast<Record*>(std::as_const(*this).LiveByPath(path));
}

XPLMDataRef DatarefStore::Find(std::string_view path) const {
  const auto found = indexByPath_.find(path);
  if (found == indexByPath_.end() || !records_.At(found->second).alive) return nullptr;
  return records_.HandleOf(found->second);
}

bool DatarefStore::IsGood(XPLMDataRef handle) const { return Live(handle) != nullptr; }

bool DatarefStore::CanWrite(XPLMDataRef handle) const {
  const Record* record = Live(handle);
  return record != nullptr && record->writable;
}

XPLMDataTypeID DatarefStore::Types(XPLMDataRef handle) const {
  const Record* record = Live(handle);
  if (record == nullptr) return xplmType_Unknown;
  return record->pluginOwned ? record->pluginTypes : TypeBit(record->type);
}

// ---- plug-in datarefs --------------------------------------------------------------------------

XPLMDataRef DatarefStore::Register(std::string_view path, XPLMDataTypeID types, bool writable,
                                   const DatarefAccessors& accessors) {
  if (path.empty()) return nullptr;
  Record fresh;
  fresh.path = std::string(path);
  fresh.pluginOwned = true;
  fresh.writable = writable;
  fresh.pluginTypes = types;
  fresh.accessors = accessors;
  const auto found = indexByPath_.find(path);
  if (found != indexByPath_.end()) {
    Record& existing = records_.At(found->second);
    if (existing.alive) return nullptr;
    existing = std::move(fresh);
    return records_.HandleOf(found->second);
  }
  const std::size_t index = records_.Add(std::move(fresh));
  indexByPath_.emplace(std::string(path), index);
  return records_.HandleOf(index);
}

void DatarefStore::Unregister(XPLMDataRef handle) {
  Record* record = Live(handle);
  if (record == nullptr || !record->pluginOwned) return;
  record->alive = false;
  record->accessors = DatarefAccessors{};
}

// ---- reading through the SDK -------------------------------------------------------------------
// X-Plane converts nothing: reading a dataref as a type it does not have gives 0.

int DatarefStore::GetInt(XPLMDataRef handle) const {
  const Record* record = Live(handle);
  if (record == nullptr) return 0;
  if (record->pluginOwned) {
    const DatarefAccessors a = record->accessors;
    return a.readInt != nullptr ? a.readInt(a.readRefcon) : 0;
  }
  return record->type == DatarefType::Int ? static_cast<int>(record->values[0]) : 0;
}

float DatarefStore::GetFloat(XPLMDataRef handle) const {
  const Record* record = Live(handle);
  if (record == nullptr) return 0;
  if (record->pluginOwned) {
    const DatarefAccessors a = record->accessors;
    return a.readFloat != nullptr ? a.readFloat(a.readRefcon) : 0;
  }
  return record->type == DatarefType::Float ? static_cast<float>(record->values[0]) : 0;
}

double DatarefStore::GetDouble(XPLMDataRef handle) const {
  const Record* record = Live(handle);
  if (record == nullptr) return 0;
  if (record->pluginOwned) {
    const DatarefAccessors a = record->accessors;
    return a.readDouble != nullptr ? a.readDouble(a.readRefcon) : 0;
  }
  return record->type == DatarefType::Double ? record->values[0] : 0;
}

// A plug-in's array reader gets the caller's arguments as they are, null buffer included.
int DatarefStore::GetInts(XPLMDataRef handle, int* out, int offset, int max) const {
  const Record* record = Live(handle);
  if (record == nullptr) return 0;
  if (record->pluginOwned) {
    const DatarefAccessors a = record->accessors;
    return a.readIntArray != nullptr ? a.readIntArray(a.readRefcon, out, offset, max) : 0;
  }
  if (record->type != DatarefType::IntArray) return 0;
  return CopyElementsOut(record->values, out, offset, max);
}

int DatarefStore::GetFloats(XPLMDataRef handle, float* out, int offset, int max) const {
  const Record* record = Live(handle);
  if (record == nullptr) return 0;
  if (record->pluginOwned) {
    const DatarefAccessors a = record->accessors;
    return a.readFloatArray != nullptr ? a.readFloatArray(a.readRefcon, out, offset, max) : 0;
  }
  if (record->type != DatarefType::FloatArray) return 0;
  return CopyElementsOut(record->values, out, offset, max);
}

// The simulator's own datarefs here hold no byte data; only plug-in datarefs can.
int DatarefStore::GetBytes(XPLMDataRef handle, void* out, int offset, int maxBytes) const {
  const Record* record = Live(handle);
  if (record == nullptr || !record->pluginOwned) return 0;
  const DatarefAccessors a = record->accessors;
  return a.readData != nullptr ? a.readData(a.readRefcon, out, offset, maxBytes) : 0;
}

// ---- writing through the SDK -------------------------------------------------------------------
// A write to a read-only dataref, or as a type it does not have, is ignored.

DatarefStore::Record* DatarefStore::WritableSimRecord(XPLMDataRef handle, DatarefType type) {
  Record* record = Live(handle);
  if (record == nullptr || record->pluginOwned || !record->writable) return nullptr;
  return record->type == type ? record : nullptr;
}

void DatarefStore::StoreScalar(Record& record, double value, DatarefWriter writer) {
  record.values[0] = Normalize(record.type, value);
  if (writer == DatarefWriter::PluginUnderTest) {
    events_.Record("dataref-write " + record.path + " " + FormatValue(record.type, record.values[0]));
  }
}

template <typename Element>
void DatarefStore::StoreElements(Record& record, const Element* values, int offset, int count,
                                 DatarefWriter writer) {
  const auto length = static_cast<std::int64_t>(record.values.size());
  if (values == nullptr || offset < 0 || count <= 0 || offset >= length) return;
  const auto written = static_cast<int>(std::min<std::int64_t>(count, length - offset));
  for (int i = 0; i < written; ++i) {
    const int index = offset + i;
    record.values[index] = Normalize(record.type, static_cast<double>(values[i]));
    if (writer == DatarefWriter::PluginUnderTest) {
      events_.Record("dataref-write " + record.path + "[" + std::to_string(index) + "] " +
                     FormatValue(record.type, record.values[index]));
    }
  }
}

void DatarefStore::SetInt(XPLMDataRef handle, int value, DatarefWriter writer) {
  Record* record = Live(handle);
  if (record == nullptr || !record->writable) return;
  if (record->pluginOwned) {
    const DatarefAccessors a = record->accessors;
    if (a.writeInt != nullptr) a.writeInt(a.writeRefcon, value);
    return;
  }
  if (record->type == DatarefType::Int) StoreScalar(*record, value, writer);
}

void DatarefStore::SetFloat(XPLMDataRef handle, float value, DatarefWriter writer) {
  Record* record = Live(handle);
  if (record == nullptr || !record->writable) return;
  if (record->pluginOwned) {
    const DatarefAccessors a = record->accessors;
    if (a.writeFloat != nullptr) a.writeFloat(a.writeRefcon, value);
    return;
  }
  if (record->type == DatarefType::Float) StoreScalar(*record, value, writer);
}

void DatarefStore::SetDouble(XPLMDataRef handle, double value, DatarefWriter writer) {
  Record* record = Live(handle);
  if (record == nullptr || !record->writable) return;
  if (record->pluginOwned) {
    const DatarefAccessors a = record->accessors;
    if (a.writeDouble != nullptr) a.writeDouble(a.writeRefcon, value);
    return;
  }
  if (record->type == DatarefType::Double) StoreScalar(*record, value, writer);
}

void DatarefStore::SetInts(XPLMDataRef handle, const int* values, int offset, int count,
                           DatarefWriter writer) {
  Record* record = Live(handle);
  if (record == nullptr || !record->writable) return;
  if (record->pluginOwned) {
    const DatarefAccessors a = record->accessors;
    if (a.writeIntArray != nullptr) a.writeIntArray(a.writeRefcon, const_cast<int*>(values), offset, count);
    return;
  }
  if (record->type == DatarefType::IntArray) StoreElements(*record, values, offset, count, writer);
}

void DatarefStore::SetFloats(XPLMDataRef handle, const float* values, int offset, int count,
                             DatarefWriter writer) {
  Record* record = Live(handle);
  if (record == nullptr || !record->writable) return;
  if (record->pluginOwned) {
    const DatarefAccessors a = record->accessors;
    if (a.writeFloatArray != nullptr) {
      a.writeFloatArray(a.writeRefcon, const_cast<float*>(values), offset, count);
    }
    return;
  }
  if (record->type == DatarefType::FloatArray) StoreElements(*record, values, offset, count, writer);
}

void DatarefStore::SetBytes(XPLMDataRef handle, void* values, int offset, int length) {
  Record* record = Live(handle);
  if (record == nullptr || !record->writable || !record->pluginOwned) return;
  const DatarefAccessors a = record->accessors;
  if (a.writeData != nullptr) a.writeData(a.writeRefcon, values, offset, length);
}

// ---- the host's test interface -----------------------------------------------------------------

bool DatarefStore::Add(const DatarefDecl& decl) {
  if (decl.path.empty()) return false;
  const bool array = IsArray(decl.type);
  if (array && (decl.length < 1 || decl.length > kMaxArrayLength)) return false;
  Record fresh;
  fresh.path = decl.path;
  fresh.writable = decl.writable;
  fresh.type = decl.type;
  fresh.values.assign(array ? static_cast<std::size_t>(decl.length) : 1u, 0.0);
  // A path seen before keeps its slot, so handles found earlier name the new dataref.
  const auto found = indexByPath_.find(std::string_view(decl.path));
  if (found != indexByPath_.end()) {
    records_.At(found->second) = std::move(fresh);
    return true;
  }
  const std::size_t index = records_.Add(std::move(fresh));
  indexByPath_.emplace(decl.path, index);
  return true;
}

void DatarefStore::Remove(std::string_view path) {
  Record* record = LiveByPath(path);
  if (record == nullptr) return;
  record->alive = false;
  record->accessors = DatarefAccessors{};
}

bool DatarefStore::Has(std::string_view path) const { return LiveByPath(path) != nullptr; }

std::optional<DatarefDecl> DatarefStore::Describe(std::string_view path) const {
  const Record* record = LiveByPath(path);
  if (record == nullptr) return std::nullopt;
  if (!record->pluginOwned) {
    return DatarefDecl{record->path, record->type, static_cast<int>(record->values.size()),
                       record->writable};
  }
  // A plug-in dataref offering several types is described by its narrowest scalar one. One that
  // offers only byte data has no description in these terms.
  const XPLMDataTypeID types = record->pluginTypes;
  DatarefDecl decl{record->path, DatarefType::Int, 1, record->writable};
  if ((types & xplmType_Int) != 0) {
    decl.type = DatarefType::Int;
  } else if ((types & xplmType_Float) != 0) {
    decl.type = DatarefType::Float;
  } else if ((types & xplmType_Double) != 0) {
    decl.type = DatarefType::Double;
  } else if ((types & (xplmType_FloatArray | xplmType_IntArray)) != 0) {
    decl.type = (types & xplmType_FloatArray) != 0 ? DatarefType::FloatArray : DatarefType::IntArray;
    decl.length = ArrayLengthThroughAccessors(record->accessors);
  } else {
    return std::nullopt;
  }
  return decl;
}

bool DatarefStore::SetValue(std::string_view path, int first, int last, double value) {
  Record* record = LiveByPath(path);
  if (record == nullptr || record->pluginOwned) return false;
  const auto length = static_cast<int>(record->values.size());
  if (first == -1) {
    first = 0;
    last = length - 1;
  }
  if (first < 0 || last < first || last >= length) return false;
  std::fill(record->values.begin() + first, record->values.begin() + last + 1,
            Normalize(record->type, value));
  return true;
}

std::optional<double> DatarefStore::GetValue(std::string_view path, int index) const {
  const Record* record = LiveByPath(path);
  if (record == nullptr || index < -1) return std::nullopt;
  if (!record->pluginOwned) {
    if (index >= static_cast<int>(record->values.size())) return std::nullopt;
    return record->values[index < 0 ? 0 : index];
  }
  const DatarefAccessors a = record->accessors;
  if (index == -1) {
    if (auto scalar = ReadScalarThroughAccessors(a)) return scalar;
    return ReadElementThroughAccessors(a, 0);
  }
  if (a.readFloatArray != nullptr || a.readIntArray != nullptr) {
    return ReadElementThroughAccessors(a, index);
  }
  return index == 0 ? ReadScalarThroughAccessors(a) : std::nullopt;
}

// Index -1 writes the scalar, or every element of an array, as `dataref PATH = V` does.
bool DatarefStore::WriteAsOtherPlugin(std::string_view path, int index, double value) {
  Record* record = LiveByPath(path);
  if (record == nullptr || !record->writable || index < -1) return false;
  if (!record->pluginOwned) return SetValue(path, index, index, value);
  const DatarefAccessors a = record->accessors;
  if (index == -1) {
    if (WriteScalarThroughAccessors(a, value)) return true;
    const int length = ArrayLengthThroughAccessors(a);
    bool wrote = false;
    for (int element = 0; element < length; ++element) {
      wrote = WriteElementThroughAccessors(a, element, value) || wrote;
    }
    return wrote;
  }
  if (WriteElementThroughAccessors(a, index, value)) return true;
  return index == 0 && WriteScalarThroughAccessors(a, value);
}

}  // namespace sim
