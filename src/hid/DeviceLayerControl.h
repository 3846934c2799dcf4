// The device layer's entry points beyond the flat access interface: hot-plug handling on the main
// thread, and the quiescence checks that let a test or dravsim know that every report has been
// handled before it looks at the results.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace drav {

// Main thread: handles the arrivals and removals the backend noticed since the last call (on
// Windows the notification window does this while the simulator pumps its messages; elsewhere the
// plug-in calls it every frame). Does nothing while the layer is stopped.
void GFDev_ProcessDeviceChanges();

// Main thread: told (from GFDev_ProcessDeviceChanges) when a unit the layer knew came back and is
// open and read again, so that its module can show it everything as it shows a fresh unit. Null
// tells nobody; the handler stays set across the layer's stop and start.
using GFDevUnitReturnHandler = void (*)(std::uint32_t moduleType, std::int32_t unit);
void GFDev_SetUnitReturnHandler(GFDevUnitReturnHandler handler);
// False while a unit that came back and opened is still reading its initial state (its return is
// announced by a later GFDev_ProcessDeviceChanges); for the tests and dravsim, which wait for it.
bool GFDev_ReturnsSettled();

// Main thread, every frame: hands the newest input state of every unit whose input the callback
// refused (its queue was full) to the callback again, without waiting for the input mutex (a unit
// that is delivering right now is tried at the next call). Cheap when nothing was refused.
void GFDev_RedeliverRefusedInput();
// Read threads: a unit's input was refused (DeviceObject.cpp).
void GFDev_NoteInputRefused();
// GFDev_DeliverInput with its own wait for the input mutex.
bool GFDev_DeliverInputWithin(std::uint32_t moduleType, std::uint16_t unit, const void* record,
                              std::chrono::milliseconds wait);

// Units of a model that are present (GF-ATC and GF-FMC included, which have no count function).
std::int32_t GFDev_PresentUnitCount(std::uint32_t moduleType);
// The upper-cased device path held in a slot; empty when the slot is empty or out of range.
std::string GFDev_UnitPath(std::uint32_t moduleType, std::int32_t unit);
// Whether a unit of the model is held at that path (any case) and present.
bool GFDev_UnitPresentAt(std::uint32_t moduleType, const std::string& path);
// Input reports the unit's read thread has finished with (decoded and delivered, or dropped) since
// the unit's object was created; 0 for an empty slot.
std::uint64_t GFDev_InputReportsHandled(std::uint32_t moduleType, std::int32_t unit);
// Blocks until every running unit's output queue is empty and no report is being sent. False when
// the time-out passed first.
bool GFDev_WaitForOutputIdle(std::chrono::milliseconds timeout);
// The same, except for the units whose paths are listed (units known to be stalled, which never
// become idle while they are).
bool GFDev_WaitForOutputIdleExcept(std::span<const std::string> stalledPaths, std::chrono::milliseconds timeout);
// Reports waiting in the unit's output queue (not counting one being sent); 0 for an empty slot.
std::size_t GFDev_QueuedOutputReports(std::uint32_t moduleType, std::int32_t unit);

}  // namespace drav
