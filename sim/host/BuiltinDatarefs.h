// The simulator's own datarefs that the plug-in reads or writes, as X-Plane 12 declares them: path,
// type, array length (the newest length where X-Plane widened an array) and writability.
#pragma once

#include <span>

#include "host/SimHost.h"

namespace sim {

struct BuiltinDataref {
  const char* path;
  DatarefType type;
  int length;  // elements of an array type, 1 for a scalar
  bool writable;
};

std::span<const BuiltinDataref> BuiltinDatarefs();

// What a simulator older than X-Plane 12 adds to them: the names X-Plane 12 no longer has.
inline constexpr int kFirstXPlane12Version = 12000;
std::span<const BuiltinDataref> OlderSimulatorDatarefs();

}  // namespace sim
