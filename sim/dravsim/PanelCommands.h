// The commands that plug virtual panels, act on them and check what the plug-in sent them.
#pragma once

#include "dravsim/CommandTable.h"

namespace dravsim {

// Setting up
void PlugCommand(ScenarioContext& ctx, const Invocation& call);
void HidDeviceCommand(ScenarioContext& ctx, const Invocation& call);
void UnplugCommand(ScenarioContext& ctx, const Invocation& call);
void ReplugCommand(ScenarioContext& ctx, const Invocation& call);
void FeatureCommand(ScenarioContext& ctx, const Invocation& call);
void FailCommand(ScenarioContext& ctx, const Invocation& call);

// Acting on a panel
void ReportCommand(ScenarioContext& ctx, const Invocation& call);
void PressCommand(ScenarioContext& ctx, const Invocation& call);
// A pilot's tap: press, a frame, release, a frame.
void TapCommand(ScenarioContext& ctx, const Invocation& call);
void ReleaseCommand(ScenarioContext& ctx, const Invocation& call);
void SwitchCommand(ScenarioContext& ctx, const Invocation& call);
void TurnCommand(ScenarioContext& ctx, const Invocation& call);
void LeverCommand(ScenarioContext& ctx, const Invocation& call);
void SelectorCommand(ScenarioContext& ctx, const Invocation& call);

// Checking
void ExpectSentCommand(ScenarioContext& ctx, const Invocation& call);
void ExpectSentCountCommand(ScenarioContext& ctx, const Invocation& call);
void ExpectNoSentCommand(ScenarioContext& ctx, const Invocation& call);
void ExpectDisplayCommand(ScenarioContext& ctx, const Invocation& call);
void ExpectLedsCommand(ScenarioContext& ctx, const Invocation& call);
void ExpectColourCommand(ScenarioContext& ctx, const Invocation& call);
void ExpectBrightnessCommand(ScenarioContext& ctx, const Invocation& call);
void ExpectUnitsCommand(ScenarioContext& ctx, const Invocation& call);
void PanelClearCommand(ScenarioContext& ctx, const Invocation& call);  // events and sent reports
void ShowCommand(ScenarioContext& ctx, const Invocation& call);

// Every report the plug-in queued has been sent; an ERROR for the line when the device layer is
// still busy after a generous time-out.
void WaitForPanelOutput(ScenarioContext& ctx, const Invocation& call);

// A command that lets the plug-in run (and so queue reports), finished only once they are sent.
template <CommandHandler Handler>
void ThenWaitForPanelOutput(ScenarioContext& ctx, const Invocation& call) {
  Handler(ctx, call);
  WaitForPanelOutput(ctx, call);
}

}  // namespace dravsim
