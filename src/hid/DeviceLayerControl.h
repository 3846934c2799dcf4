// The device layer's entry points beyond the flat access interface: hot-plug handling on the main
// thread, and the quiescence checks that let a test or dravsim know that every report has been
// handled before it looks at the results.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace drav {

class InputDelivery;

// Main thread: handles the arrivals and removals the backend noticed since the last call (on
// Windows the notification window does this while the simulator pumps its messages; elsewhere the
// plug-in calls it every frame). Does nothing while the layer is stopped.
void GFDev_ProcessDeviceChanges();

// Main thread: told (from GFDev_ProcessDeviceChanges) when a unit joined while the layer runs, or
// came back, and is open and has read its initial state, so that the plug-in can give a newcomer
// its module and show either everything as it shows a fresh unit. Null tells nobody; the handler
// stays set across the layer's stop and start.
using GFDevUnitReturnHandler = void (*)(std::uint32_t moduleType, std::int32_t unit);
void GFDev_SetUnitReturnHandler(GFDevUnitReturnHandler handler);
// False while a unit that joined or came back and opened is still reading its initial state (it is
// announced by a later GFDev_ProcessDeviceChanges); for the tests and dravsim, which wait for it.
bool GFDev_ReturnsSettled();

// Where the layer remembers which unit had which number, from one start to the next: a unit is
// known by a text of its own ("serial X" for a unit with a serial number, "port P" for one without,
// P being where it is attached), and each number of a model is remembered for at most one such text.
class UnitNumberMemory {
 public:
  virtual ~UnitNumberMemory() = default;
  // Who each number of the model is remembered for, index = unit number (0-based), "" for nobody.
  virtual std::vector<std::string> Recall(std::uint32_t moduleType, std::int32_t slots) = 0;
  // Remembers `who` for the number; an empty `who` forgets whoever had it.
  virtual void Remember(std::uint32_t moduleType, std::int32_t unit, const std::string& who) = 0;
};
// Main thread: the memory the layer numbers its units by (null: first come, first numbered). It
// must outlive the layer's use of it; it stays set across the layer's stop and start.
void GFDev_SetUnitNumberMemory(UnitNumberMemory* memory);
// The text a unit is remembered by: its serial, else its port, else (where the system keeps a
// device's path by its port) its path.
std::string GFDev_RememberedIdentity(const std::string& serial, const std::string& location, const std::string& path);

// Main thread: one past the highest unit number of the model whose slot holds a present unit;
// numbers kept free for absent units make it larger than the count of present units.
std::int32_t GFDev_UnitSpan(std::uint32_t moduleType);

// Main thread: while one lives, no input callback runs (read threads wait their turn), so that the
// plug-in can change what the callback reads, such as a container of modules growing mid-flight.
class GFDevInputHold {
 public:
  GFDevInputHold();
  ~GFDevInputHold();
  GFDevInputHold(const GFDevInputHold&) = delete;
  GFDevInputHold& operator=(const GFDevInputHold&) = delete;

 private:
  InputDelivery& input_;
};

// Main thread, every frame: hands the newest input state of every unit whose input the callback
// refused (its queue was full) to the callback again, without waiting for the input mutex (a unit
// that is delivering right now is tried at the next call). Cheap when nothing was refused.
void GFDev_RedeliverRefusedInput();
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
