// Commands that drive the scenario itself rather than the simulator.
#include <chrono>
#include <thread>

#include "dravsim/CommandArgs.h"
#include "dravsim/CommandHandlers.h"

namespace dravsim {

void ClearCommand(ScenarioContext& ctx, const Invocation& /*call*/) {
  // The simulator's half; PanelClearCommand adds the record of sent reports.
  ctx.host.ClearEvents();
}

void EchoCommand(ScenarioContext& ctx, const Invocation& call) {
  std::string text;
  for (std::size_t i = 0; i < call.args.size(); ++i) {
    if (i > 0) text += ' ';
    text += call.args[i].text;
  }
  ctx.Echo(text);
}

void SleepMsCommand(ScenarioContext& ctx, const Invocation& call) {
  const auto milliseconds = IntegerArg(ctx, call, 0, 0, 600'000);
  if (milliseconds) std::this_thread::sleep_for(std::chrono::milliseconds(*milliseconds));
}

}  // namespace dravsim
