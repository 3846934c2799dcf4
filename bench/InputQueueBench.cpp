// The per-frame input path: a burst of decoded events handed from the input thread's side of the
// queue to the main thread's drain. It must stay lock- and allocation-free and cheap per event.
#include <benchmark/benchmark.h>

#include "modules/InputEventQueue.h"

namespace {

void BM_PushThenDrainBurst(benchmark::State& state) {
  static drav::InputEventQueue queue;
  const int burst = static_cast<int>(state.range(0));
  std::int64_t handled = 0;
  for (auto _ : state) {
    for (int i = 0; i < burst; ++i) drav::PushInputEvent(queue, 2, 0, i & 7, i & 1);
    drav::DrainQueue(queue, [&](const drav::InputEvent& event) { handled += event.value; });
  }
  benchmark::DoNotOptimize(handled);
  state.SetItemsProcessed(state.iterations() * burst);
}
BENCHMARK(BM_PushThenDrainBurst)->Arg(1)->Arg(16)->Arg(128);

// A frame with no input: the every-frame loop's whole cost when the panels are idle.
void BM_DrainEmptyQueue(benchmark::State& state) {
  static drav::InputEventQueue queue;
  for (auto _ : state) {
    bool any = drav::DrainQueue(queue, [](const drav::InputEvent&) {});
    benchmark::DoNotOptimize(any);
  }
}
BENCHMARK(BM_DrainEmptyQueue);

}  // namespace
