// Holds back the wake-up of each unit's write thread while the calling thread queues a run of
// reports, and wakes every unit that was given one once when the run ends. Loading a unit's
// assignments queues a few dozen light and display reports in a row; waking the writer for each
// of them cost a system call, and often a switch to the writer and back, per report, a large part
// of an aircraft load. Reports queued outside a batch wake their writer at once, as before.
//
// The queue itself is not touched: the reports are queued (and counted for the writer) at once, in
// order and under the queue's capacity rules; only the signal waits. Batches nest: an inner one
// joins the outermost, which wakes the writers when it ends. One thread's batch never holds back
// another thread's reports. Main thread only, like the device objects it names.
#pragma once

namespace drav {

class DeviceObject;

class WriterWakeBatch {
 public:
  WriterWakeBatch();
  ~WriterWakeBatch();  // the outermost wakes each unit it holds, in the order they were first held
  WriterWakeBatch(const WriterWakeBatch&) = delete;
  WriterWakeBatch& operator=(const WriterWakeBatch&) = delete;

 private:
  friend class DeviceObject;
  // The outermost batch open on the calling thread, or nullptr.
  static WriterWakeBatch* OpenOnThisThread();
  // Remembers the unit (once) to be woken at the end.
  void Hold(DeviceObject& object);
  // A unit that goes away before the end is taken out of the list.
  void Forget(DeviceObject& object);

  bool outermost_;
  DeviceObject* first_ = nullptr;
  DeviceObject* last_ = nullptr;
};

}  // namespace drav
