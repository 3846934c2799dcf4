// The opaque handles that the simulator host gives out (datarefs, commands, menus, windows, probes).
//
// A handle is never a pointer: it encodes what kind of object it names, the Reset it belongs to and
// an index into a table that only grows. So a handle stays valid however the tables change, and a
// stale, foreign or garbage handle is recognised as bad instead of being dereferenced.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <utility>

namespace sim {

enum class HandleKind : std::uint8_t { Dataref = 1, Command, Menu, Window, Probe, Widget };

static_assert(sizeof(std::uintptr_t) >= 8, "the handle layout needs 64-bit pointers");

// Bits 0-31 index + 1 (so no handle is null), 32-47 the Reset generation, 48-55 the kind.
inline void* EncodeHandle(HandleKind kind, std::uint16_t generation, std::size_t index) {
  const std::uintptr_t value = (static_cast<std::uintptr_t>(kind) << 48) |
                               (static_cast<std::uintptr_t>(generation) << 32) |
                               static_cast<std::uintptr_t>((index + 1) & 0xFFFFFFFFu);
  return reinterpret_cast<void*>(value);
}

// The index a handle names, or -1 when it is not a handle of this kind and generation.
inline std::int64_t DecodeHandle(HandleKind kind, std::uint16_t generation, const void* handle) {
  const auto value = reinterpret_cast<std::uintptr_t>(handle);
  if ((value >> 56) != 0) return -1;
  if (((value >> 48) & 0xFFu) != static_cast<std::uintptr_t>(kind)) return -1;
  if (((value >> 32) & 0xFFFFu) != generation) return -1;
  const std::uintptr_t slot = value & 0xFFFFFFFFu;
  return slot == 0 ? -1 : static_cast<std::int64_t>(slot - 1);
}

// Records addressed by handle. Records are never erased (a removed one is marked by its owner), and a
// deque keeps references to them stable while callbacks add more.
template <typename Record>
class SlotTable {
 public:
  SlotTable(HandleKind kind, std::uint16_t generation) : kind_(kind), generation_(generation) {}

  std::size_t Add(Record record) {
    records_.push_back(std::move(record));
    return records_.size() - 1;
  }

  void* HandleOf(std::size_t index) const { return EncodeHandle(kind_, generation_, index); }

  // The record a handle names, or null for a bad handle (whether the record is still alive is the
  // owner's business).
  Record* Find(const void* handle) {
    const std::int64_t index = DecodeHandle(kind_, generation_, handle);
    if (index < 0 || static_cast<std::size_t>(index) >= records_.size()) return nullptr;
    return &records_[static_cast<std::size_t>(index)];
  }
  const Record* Find(const void* handle) const { return const_cast<SlotTable*>(this)->Find(handle); }

  std::size_t Size() const { return records_.size(); }
  Record& At(std::size_t index) { return records_[index]; }
  const Record& At(std::size_t index) const { return records_[index]; }

 private:
  HandleKind kind_;
  std::uint16_t generation_;
  std::deque<Record> records_;
};

}  // namespace sim
