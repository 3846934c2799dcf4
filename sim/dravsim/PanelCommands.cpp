#include "dravsim/PanelCommands.h"

#include <cctype>
#include <chrono>
#include <cstdio>
#include <thread>
#include <utility>

#include "dravsim/CommandArgs.h"
#include "dravsim/CommandHandlers.h"
#include "dravsim/PanelOutputs.h"
#include "dravsim/PanelRenderer.h"
#include "dravsim/ScenarioNumbers.h"
#include "hid/DeviceLayerControl.h"
#include "hid/GFDev.h"

namespace dravsim {
namespace {

// Generous: a loaded machine under a sanitizer may take long, but a scenario must never hang.
constexpr std::chrono::milliseconds kSettleTimeout{10'000};
constexpr std::chrono::milliseconds kFailingWritesWait{250};
// How long a panel's arrival or removal may take to reach the layer where notices lag; a device the
// layer does not take is given the short wait, since nothing tells when the layer has passed it over.
constexpr std::chrono::milliseconds kLaggingNoticeWait{3'000};
constexpr std::chrono::milliseconds kPassedOverNoticeWait{300};
constexpr std::uint16_t kForeignReportLength = 8;

std::string Hex(std::span<const std::uint8_t> bytes) {
  std::string text;
  for (const std::uint8_t byte : bytes) {
    char word[4];
    std::snprintf(word, sizeof word, "%02x", byte);
    if (!text.empty()) text += ' ';
    text += word;
  }
  return text;
}

std::string HexNumber(std::uint32_t value) {
  char text[16];
  std::snprintf(text, sizeof text, "0x%X", value);
  return text;
}

PanelUnit* UnitArg(ScenarioContext& ctx, const Invocation& call, std::size_t index) {
  if (call.args.size() <= index) {
    UsageError(ctx, call);
    return nullptr;
  }
  PanelUnit* unit = ctx.panels.Find(call.args[index].text);
  if (unit == nullptr) CommandError(ctx, call, "unknown unit " + Quoted(call.args[index].text));
  return unit;
}

std::optional<bool> OnOffArg(ScenarioContext& ctx, const Invocation& call, std::size_t index) {
  if (IsKeyword(call.args[index], "on")) return true;
  if (IsKeyword(call.args[index], "off")) return false;
  CommandError(ctx, call, "expected on or off, not " + Quoted(call.args[index].text));
  return std::nullopt;
}

std::optional<std::vector<std::uint8_t>> HexArgs(ScenarioContext& ctx, const Invocation& call,
                                                 std::size_t first) {
  if (call.args.size() <= first) {
    UsageError(ctx, call);
    return std::nullopt;
  }
  auto bytes = ParseHexBytes(call.args.subspan(first));
  if (!bytes) CommandError(ctx, call, "bytes are two-digit hex words, e.g. 02 ff 1A");
  return bytes;
}

bool ArgCount(ScenarioContext& ctx, const Invocation& call, std::size_t low, std::size_t high) {
  if (call.args.size() >= low && call.args.size() <= high) return true;
  UsageError(ctx, call);
  return false;
}

// The unit's slot in the device layer's table, when the layer holds it.
std::optional<std::int32_t> LayerSlot(const ScenarioContext& ctx, const PanelUnit& unit) {
  if (unit.model == nullptr) return std::nullopt;
  std::int32_t slot = -1;
  const std::string path = ctx.hid->LayerPath(unit.path);
  if (path.empty() || drav::GFDev_FindUnitByPath(unit.model->moduleType, path.c_str(), &slot) != 0) return std::nullopt;
  return slot;
}

// Where notices lag behind the command (a watcher thread sees the node come and go), the layer is
// asked again until the unit's presence there is what the command made it, or the notice wait
// passes (a device the layer does not take, or a layer that is not running, never gets there).
void AwaitLaggingNotices(ScenarioContext& ctx, const PanelUnit* unit, bool present) {
  const bool family = unit != nullptr && unit->model != nullptr;
  const auto deadline = std::chrono::steady_clock::now() + (family ? kLaggingNoticeWait : kPassedOverNoticeWait);
  for (;;) {
    drav::GFDev_ProcessDeviceChanges();
    const bool settled = family && drav::GFDev_UnitPresentAt(unit->model->moduleType, ctx.hid->LayerPath(unit->path)) == present;
    if (settled || std::chrono::steady_clock::now() >= deadline) return;
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
}

template <typename Condition>
bool WaitUntil(Condition condition) {
  const auto deadline = std::chrono::steady_clock::now() + kSettleTimeout;
  while (!condition()) {
    if (std::chrono::steady_clock::now() >= deadline) return false;
    std::this_thread::sleep_for(std::chrono::microseconds(200));
  }
  return true;
}

// The layer handles hot-plug notices on the main thread between frames; dravsim stands in for
// the simulator's message pump and lets it handle them before the next line. A unit that came back
// reads its state on its own thread and is shown everything once it has: dravsim waits for that and
// lets the layer announce it before the next line too.
void LetLayerSeeDeviceChanges(ScenarioContext& ctx, const Invocation& call, const PanelUnit* unit = nullptr,
                              bool present = true) {
  if (ctx.hid->NoticesLag() && ctx.plugin.enabled) {
    AwaitLaggingNotices(ctx, unit, present);
  } else {
    drav::GFDev_ProcessDeviceChanges();
  }
  if (!WaitUntil([] { return drav::GFDev_ReturnsSettled(); })) {
    return CommandError(ctx, call, "a returning unit did not read its state within " +
                                       std::to_string(kSettleTimeout.count()) + " ms");
  }
  drav::GFDev_ProcessDeviceChanges();
  WaitForPanelOutput(ctx, call);
}

// Sends one input report and waits until the unit's read thread has decoded and delivered it.
void SendInputReport(ScenarioContext& ctx, const Invocation& call, const PanelUnit& unit,
                     std::vector<std::uint8_t> report) {
  if (report.size() > unit.inputLength) {
    CommandError(ctx, call, "the report has " + std::to_string(report.size()) + " bytes; " +
                                unit.name + " reads " + std::to_string(unit.inputLength));
    return;
  }
  // A uhid board whose plug-in never started feeds another program (a Windows build under Wine,
  // say): the kernel hands the report to whoever reads the node, and there is no layer to wait for.
  if (ctx.options.uhid && !ctx.plugin.started) {
    ctx.Note(Hex(report) + " for another program");
    if (!ctx.hid->SendInput(unit.path, std::move(report))) {
      CommandError(ctx, call, "the uhid device refused the report");
    }
    return;
  }
  const auto slot = LayerSlot(ctx, unit);
  if (!slot) {
    CommandError(ctx, call, unit.name + " is not open in the device layer");
    return;
  }
  const std::uint32_t type = unit.model->moduleType;
  const std::uint64_t handledBefore = drav::GFDev_InputReportsHandled(type, *slot);
  const std::uint64_t takenBefore = ctx.hid->InputTaken(unit.path);
  ctx.Note(Hex(report));
  if (!ctx.hid->SendInput(unit.path, std::move(report))) {
    CommandError(ctx, call, "the virtual backend refused the report");
    return;
  }
  const bool handled = WaitUntil([&] {
    return ctx.hid->PendingInput(unit.path) == 0 &&
           drav::GFDev_InputReportsHandled(type, *slot) - handledBefore ==
               ctx.hid->InputTaken(unit.path) - takenBefore;
  });
  if (!handled) {
    CommandError(ctx, call, "the device layer did not handle the report within " +
                                std::to_string(kSettleTimeout.count()) + " ms");
    return;
  }
  WaitForPanelOutput(ctx, call);
}

void SendComposed(ScenarioContext& ctx, const Invocation& call, const PanelUnit& unit,
                  const InputBytes& bytes) {
  const std::size_t length = unit.input->Layout().length;
  SendInputReport(ctx, call, unit, std::vector<std::uint8_t>(bytes.begin(), bytes.begin() + length));
}

// The unit of a high-level command, when it is one of the family.
PanelUnit* PanelArg(ScenarioContext& ctx, const Invocation& call) {
  PanelUnit* unit = UnitArg(ctx, call, 0);
  if (unit != nullptr && !unit->input) {
    CommandError(ctx, call, unit->name + " is not a panel of the family");
    return nullptr;
  }
  return unit;
}

void PushButton(ScenarioContext& ctx, const Invocation& call, bool down) {
  if (!ArgCount(ctx, call, 2, 2)) return;
  PanelUnit* unit = PanelArg(ctx, call);
  if (unit == nullptr) return;
  if (!unit->input->Layout().pressable) {
    CommandError(ctx, call, "a " + std::string(unit->model->name) + " has no push buttons");
    return;
  }
  const auto button = IntegerArg(ctx, call, 1, 1, 64);
  if (!button) return;
  const std::string error = unit->input->SetInput(static_cast<int>(*button), down);
  if (!error.empty()) return CommandError(ctx, call, error);
  SendComposed(ctx, call, *unit, unit->input->Compose());
}

const std::vector<drav::VirtualSentReport> SentTo(ScenarioContext& ctx, const PanelUnit& unit) {
  return ctx.hid->Sent(unit.path);
}

PanelOutputView ViewOf(ScenarioContext& ctx, const PanelUnit& unit) {
  std::vector<drav::VirtualSentReport> shown = unit.face;
  const auto sent = SentTo(ctx, unit);
  shown.insert(shown.end(), sent.begin(), sent.end());
  return ViewOutputs(unit.model != nullptr ? unit.model->name : "", shown);
}

bool HasRole(const PanelUnit& unit, OutputRole role) {
  if (unit.model == nullptr) return false;
  for (const OutputReportRow& row : OutputReportsOf(unit.model->name)) {
    if (row.role == role) return true;
  }
  return false;
}

PanelUnit* UnitWithRole(ScenarioContext& ctx, const Invocation& call, OutputRole role,
                        std::string_view what) {
  PanelUnit* unit = UnitArg(ctx, call, 0);
  if (unit != nullptr && !HasRole(*unit, role)) {
    CommandError(ctx, call, unit->name + " (" + (unit->model ? unit->model->name : "not a panel") +
                                ") has no " + std::string(what));
    return nullptr;
  }
  return unit;
}

void Check(ScenarioContext& ctx, bool holds, const std::string& expected, const std::string& found) {
  if (holds) {
    ctx.Pass();
  } else {
    ctx.Fail(expected, found);
  }
}

// Trailing blanks are not visible on a display, so "1.5" and "1.5 " read the same.
std::string_view WithoutTrailingBlanks(std::string_view text) {
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

// `at UNIT`: the newcomer gets the path an unplugged unit had, as the kernel gives a freed node to
// the next device; that unit is known by a fresh path from now on.
bool TakePathOf(ScenarioContext& ctx, const Invocation& call, PanelUnit& unit, const std::string& previous) {
  PanelUnit* owner = ctx.panels.Find(previous);
  if (owner == nullptr) {
    CommandError(ctx, call, "no unit named " + Quoted(previous));
    return false;
  }
  std::string freshPath = owner->path + "#" + owner->name + std::to_string(++owner->renumberings);
  for (char& c : freshPath) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  if (!ctx.hid->Renumber(owner->path, freshPath)) {
    CommandError(ctx, call, owner->name + " still holds its path");
    return false;
  }
  unit.path = std::exchange(owner->path, freshPath);
  return true;
}

bool PlugUnit(ScenarioContext& ctx, const Invocation& call, PanelUnit unit,
              const drav::VirtualUnitSpec& spec, const std::string& takeFrom) {
  if (ctx.panels.Find(unit.name) != nullptr) {
    CommandError(ctx, call, "a unit named " + Quoted(unit.name) + " is already plugged");
    return false;
  }
  if (!takeFrom.empty() && !TakePathOf(ctx, call, unit, takeFrom)) return false;
  if (const std::string reason = ctx.hid->Unsupported(spec); !reason.empty()) {
    ctx.Skip(reason);
    return false;
  }
  if (!ctx.hid->Plug(unit.path, spec)) {
    CommandError(ctx, call, "the path " + unit.path + " is already present");
    return false;
  }
  ctx.Note(unit.path);
  const PanelUnit& added = ctx.panels.Add(std::move(unit));
  LetLayerSeeDeviceChanges(ctx, call, &added);
  return true;
}

bool ParsePlugOptions(ScenarioContext& ctx, const Invocation& call, std::size_t first, drav::VirtualUnitSpec& spec,
                      std::string& takeFrom) {
  for (std::size_t i = first; i < call.args.size(); i += 2) {
    if (i + 1 >= call.args.size()) {
      UsageError(ctx, call);
      return false;
    }
    if (IsKeyword(call.args[i], "version")) {
      const auto version = IntegerArg(ctx, call, i + 1, 0, 0xFFFF);
      if (!version) return false;
      spec.version = static_cast<std::uint16_t>(*version);
    } else if (IsKeyword(call.args[i], "serial")) {
      spec.serial = call.args[i + 1].text;
    } else if (IsKeyword(call.args[i], "port")) {
      spec.location = call.args[i + 1].text;
    } else if (IsKeyword(call.args[i], "at")) {
      takeFrom = call.args[i + 1].text;
    } else {
      UsageError(ctx, call);
      return false;
    }
  }
  return true;
}

std::optional<drav::VirtualFault> FaultArg(const Word& word) {
  constexpr std::array<std::pair<std::string_view, drav::VirtualFault>, 6> kFaults = {{
      {"open", drav::VirtualFault::Open},
      {"block", drav::VirtualFault::Block},
      {"feature-block", drav::VirtualFault::FeatureBlock},
      {"read", drav::VirtualFault::Read},
      {"write", drav::VirtualFault::Write},
      {"feature", drav::VirtualFault::Feature},
  }};
  for (const auto& [name, fault] : kFaults) {
    if (IsKeyword(word, name)) return fault;
  }
  return std::nullopt;
}

}  // namespace

namespace {

// A stalled unit has settled once its writer sits in the stalled write, or has nothing to send:
// its queue then changes only when the plug-in queues more, on this thread.
bool StalledUnitSettled(ScenarioContext& ctx, const PanelUnit& unit) {
  if (ctx.hid->BlockedWrites(unit.path) > 0 || ctx.hid->BlockedFeatureReads(unit.path) > 0) return true;
  const auto slot = LayerSlot(ctx, unit);
  return !slot || drav::GFDev_QueuedOutputReports(unit.model->moduleType, *slot) == 0;
}

}  // namespace

void WaitForPanelOutput(ScenarioContext& ctx, const Invocation& call) {
  // A unit reopened during a frame reads its state on its own thread; its return is announced at
  // the next frame, which then finds it read.
  if (!WaitUntil([] { return drav::GFDev_ReturnsSettled(); })) {
    return CommandError(ctx, call, "a returning unit did not read its state within " +
                                       std::to_string(kSettleTimeout.count()) + " ms");
  }
  std::vector<std::string> stalled;
  for (const PanelUnit& unit : ctx.panels.Units()) {
    if ((!unit.writesBlock && !unit.featuresBlock) || unit.model == nullptr) continue;
    stalled.push_back(unit.path);
    if (!WaitUntil([&] { return StalledUnitSettled(ctx, unit); })) {
      return CommandError(ctx, call, unit.name + "'s writer neither stalled nor finished");
    }
  }
  // A unit whose writes fail keeps its reports queued and retries them, so the layer never becomes
  // idle while one exists: then the other units get a short, bounded time to finish instead.
  if (ctx.panels.AnyWritesFail()) {
    drav::GFDev_WaitForOutputIdle(kFailingWritesWait);
    return;
  }
  if (!drav::GFDev_WaitForOutputIdleExcept(stalled, kSettleTimeout)) {
    CommandError(ctx, call, "the device layer still had reports to send after " +
                                std::to_string(kSettleTimeout.count()) + " ms");
  }
}

// ---- setting up ----------------------------------------------------------------------------------

void PlugCommand(ScenarioContext& ctx, const Invocation& call) {
  if (call.args.size() < 3 || !IsKeyword(call.args[1], "as")) return UsageError(ctx, call);
  const drav::PanelModel* model = FindPanelModelByName(call.args[0].text);
  const InputLayout* layout = FindInputLayout(call.args[0].text);
  const std::optional<drav::VirtualUnitSpec> modelSpec = model != nullptr ? PanelUnitSpec(*model) : std::nullopt;
  if (!modelSpec || layout == nullptr) {
    return CommandError(ctx, call, "unknown model " + Quoted(call.args[0].text));
  }
  drav::VirtualUnitSpec spec = *modelSpec;
  std::string takeFrom;
  if (!ParsePlugOptions(ctx, call, 3, spec, takeFrom)) return;

  PanelUnit unit;
  unit.name = call.args[2].text;
  unit.path = VirtualUnitPath(spec.vendorId, spec.productId, unit.name);
  unit.model = model;
  unit.input.emplace(*layout);
  unit.inputLength = layout->length;
  PlugUnit(ctx, call, std::move(unit), spec, takeFrom);
}

void HidDeviceCommand(ScenarioContext& ctx, const Invocation& call) {
  if (call.args.size() < 4 || !IsKeyword(call.args[2], "as")) return UsageError(ctx, call);
  const auto vendor = IntegerArg(ctx, call, 0, 0, 0xFFFF);
  const auto product = vendor ? IntegerArg(ctx, call, 1, 0, 0xFFFF) : std::nullopt;
  if (!product) return;
  drav::VirtualUnitSpec spec;
  spec.vendorId = static_cast<std::uint16_t>(*vendor);
  spec.productId = static_cast<std::uint16_t>(*product);
  spec.capabilities = {kForeignReportLength, kForeignReportLength, kForeignReportLength};
  std::string takeFrom;
  if (!ParsePlugOptions(ctx, call, 4, spec, takeFrom)) return;

  PanelUnit unit;
  unit.name = call.args[3].text;
  unit.path = VirtualUnitPath(spec.vendorId, spec.productId, unit.name);
  unit.inputLength = kForeignReportLength;
  PlugUnit(ctx, call, std::move(unit), spec, takeFrom);
}

void UnplugCommand(ScenarioContext& ctx, const Invocation& call) {
  if (!ArgCount(ctx, call, 1, 1)) return;
  const PanelUnit* unit = UnitArg(ctx, call, 0);
  if (unit == nullptr) return;
  if (!ctx.hid->Unplug(unit->path)) return CommandError(ctx, call, unit->name + " is not plugged");
  LetLayerSeeDeviceChanges(ctx, call, unit, false);
}

void ReplugCommand(ScenarioContext& ctx, const Invocation& call) {
  if (call.args.size() == 2 || (call.args.size() == 3 && !IsKeyword(call.args[1], "port"))) {
    return UsageError(ctx, call);
  }
  const PanelUnit* unit = UnitArg(ctx, call, 0);
  if (unit == nullptr) return;
  if (call.args.size() == 3 && !ctx.hid->SetLocation(unit->path, call.args[2].text)) {
    return CommandError(ctx, call, unit->name + " is still plugged");
  }
  if (!ctx.hid->Replug(unit->path)) return CommandError(ctx, call, unit->name + " is still plugged");
  LetLayerSeeDeviceChanges(ctx, call, unit);
}

void FeatureCommand(ScenarioContext& ctx, const Invocation& call) {
  if (call.args.size() < 4 || !IsKeyword(call.args[2], "=")) return UsageError(ctx, call);
  const PanelUnit* unit = UnitArg(ctx, call, 0);
  if (unit == nullptr) return;
  const auto id = IntegerArg(ctx, call, 1, 0, 255);
  if (!id) return;
  auto bytes = HexArgs(ctx, call, 3);
  if (!bytes) return;
  ctx.hid->SetFeatureAnswer(unit->path, static_cast<std::uint8_t>(*id), std::move(*bytes));
}

void FailCommand(ScenarioContext& ctx, const Invocation& call) {
  if (!ArgCount(ctx, call, 3, 3)) return;
  PanelUnit* unit = UnitArg(ctx, call, 0);
  if (unit == nullptr) return;
  const auto fault = FaultArg(call.args[1]);
  if (!fault) return UsageError(ctx, call);
  const auto on = OnOffArg(ctx, call, 2);
  if (!on) return;
  if (const std::string reason = ctx.hid->SetFault(unit->path, *fault, *on); !reason.empty()) {
    return ctx.Skip(reason);
  }
  if (*fault == drav::VirtualFault::Write) unit->writesFail = *on;
  if (*fault == drav::VirtualFault::Block) unit->writesBlock = *on;
  if (*fault == drav::VirtualFault::FeatureBlock) unit->featuresBlock = *on;
  WaitForPanelOutput(ctx, call);  // reports held back by a failing write go out once it works
}

// ---- acting on a panel ---------------------------------------------------------------------------

void ReportCommand(ScenarioContext& ctx, const Invocation& call) {
  PanelUnit* unit = UnitArg(ctx, call, 0);
  if (unit == nullptr) return;
  auto bytes = HexArgs(ctx, call, 1);
  if (!bytes) return;
  if (unit->model == nullptr) {
    return CommandError(ctx, call, unit->name + " is not a panel of the family");
  }
  SendInputReport(ctx, call, *unit, std::move(*bytes));
}

void PressCommand(ScenarioContext& ctx, const Invocation& call) { PushButton(ctx, call, true); }
void ReleaseCommand(ScenarioContext& ctx, const Invocation& call) { PushButton(ctx, call, false); }

void TapCommand(ScenarioContext& ctx, const Invocation& call) {
  const std::string button = call.args[0].text + " " + call.args[1].text;
  const int errorsBefore = ctx.Result().errors;
  for (const std::string& step : {"press " + button, std::string("frame"), "release " + button, std::string("frame")}) {
    ctx.runNestedLine(step);
    if (ctx.Result().errors != errorsBefore) return;  // one error for a tap that cannot be made
  }
}

void SwitchCommand(ScenarioContext& ctx, const Invocation& call) {
  if (!ArgCount(ctx, call, 3, 3)) return;
  PanelUnit* unit = PanelArg(ctx, call);
  if (unit == nullptr) return;
  if (!unit->input->Layout().switchable) {
    return CommandError(ctx, call, "a " + std::string(unit->model->name) + " has no switches");
  }
  const auto input = IntegerArg(ctx, call, 1, 1, 64);
  if (!input) return;
  const auto on = OnOffArg(ctx, call, 2);
  if (!on) return;
  const std::string error = unit->input->SetInput(static_cast<int>(*input), *on);
  if (!error.empty()) return CommandError(ctx, call, error);
  SendComposed(ctx, call, *unit, unit->input->Compose());
}

void TurnCommand(ScenarioContext& ctx, const Invocation& call) {
  if (!ArgCount(ctx, call, 3, 3)) return;
  PanelUnit* unit = PanelArg(ctx, call);
  if (unit == nullptr) return;
  const std::string& name = call.args[1].text;
  if (name.size() != 1 || call.args[1].quoted) {
    return CommandError(ctx, call, "an encoder is A..F, 1 or 2, not " + Quoted(name));
  }
  const auto steps = IntegerArg(ctx, call, 2, -128, 127);
  if (!steps) return;
  std::string error;
  const char encoder = static_cast<char>(std::toupper(static_cast<unsigned char>(name[0])));
  const auto report = unit->input->ComposeTurn(encoder, static_cast<int>(*steps), error);
  if (!report) return CommandError(ctx, call, error);
  SendComposed(ctx, call, *unit, *report);
}

void LeverCommand(ScenarioContext& ctx, const Invocation& call) {
  if (call.args.size() != 3 && call.args.size() != 5) return UsageError(ctx, call);
  PanelUnit* unit = PanelArg(ctx, call);
  if (unit == nullptr) return;
  const std::string& name = call.args[1].text;
  if (name.size() != 1) return CommandError(ctx, call, "a lever is A..F, not " + Quoted(name));
  const auto raw = IntegerArg(ctx, call, 2, 0, 255);
  if (!raw) return;
  std::optional<bool> switchOn;
  if (call.args.size() == 5) {
    if (!IsKeyword(call.args[3], "switch")) return UsageError(ctx, call);
    if (!(switchOn = OnOffArg(ctx, call, 4))) return;
  }
  const char lever = static_cast<char>(std::toupper(static_cast<unsigned char>(name[0])));
  const std::string error = unit->input->SetLever(lever, static_cast<int>(*raw), switchOn);
  if (!error.empty()) return CommandError(ctx, call, error);
  SendComposed(ctx, call, *unit, unit->input->Compose());
}

void SelectorCommand(ScenarioContext& ctx, const Invocation& call) {
  if (!ArgCount(ctx, call, 3, 3)) return;
  PanelUnit* unit = PanelArg(ctx, call);
  if (unit == nullptr) return;
  const auto selector = IntegerArg(ctx, call, 1, 1, 16);
  if (!selector) return;
  const auto position = IntegerArg(ctx, call, 2, 0, 255);
  if (!position) return;
  const std::string error =
      unit->input->SetSelector(static_cast<int>(*selector), static_cast<int>(*position));
  if (!error.empty()) return CommandError(ctx, call, error);
  SendComposed(ctx, call, *unit, unit->input->Compose());
}

// ---- checking ------------------------------------------------------------------------------------

void ExpectSentCommand(ScenarioContext& ctx, const Invocation& call) {
  if (call.args.size() < 3) return UsageError(ctx, call);
  const PanelUnit* unit = UnitArg(ctx, call, 0);
  if (unit == nullptr) return;
  using Kind = drav::VirtualSentReport::Kind;
  std::optional<Kind> kind;
  if (IsKeyword(call.args[1], "feature")) kind = Kind::Feature;
  if (IsKeyword(call.args[1], "output")) kind = Kind::Output;
  if (!kind) return UsageError(ctx, call);
  const auto bytes = HexArgs(ctx, call, 2);
  if (!bytes) return;

  const auto sent = SentTo(ctx, *unit);
  std::string found;
  bool holds = false;
  for (const drav::VirtualSentReport& report : sent) {
    holds = holds || (report.kind == *kind && report.bytes == *bytes);
    if (!found.empty()) found += ", ";
    found += std::string(report.kind == Kind::Feature ? "feature" : "output") + " [" +
             Hex(report.bytes) + "]";
  }
  Check(ctx, holds,
        "sent " + unit->name + " " + call.args[1].text + " [" + Hex(*bytes) + "]",
        found.empty() ? "nothing sent" : found);
}

void ExpectSentCountCommand(ScenarioContext& ctx, const Invocation& call) {
  if (!ArgCount(ctx, call, 2, 2)) return;
  const PanelUnit* unit = UnitArg(ctx, call, 0);
  if (unit == nullptr) return;
  const auto count = IntegerArg(ctx, call, 1, 0, 1'000'000'000);
  if (!count) return;
  const auto sent = SentTo(ctx, *unit).size();
  Check(ctx, static_cast<long long>(sent) == *count,
        "sent-count " + unit->name + " " + std::to_string(*count), std::to_string(sent));
}

void ExpectNoSentCommand(ScenarioContext& ctx, const Invocation& call) {
  if (!ArgCount(ctx, call, 1, 1)) return;
  const PanelUnit* unit = UnitArg(ctx, call, 0);
  if (unit == nullptr) return;
  const auto sent = SentTo(ctx, *unit);
  std::string found = std::to_string(sent.size()) + " report(s)";
  if (!sent.empty()) found += ", the first [" + Hex(sent.front().bytes) + "]";
  Check(ctx, sent.empty(), "no-sent " + unit->name, found);
}

void ExpectDisplayCommand(ScenarioContext& ctx, const Invocation& call) {
  if (!ArgCount(ctx, call, 3, 3)) return;
  const PanelUnit* unit = UnitWithRole(ctx, call, OutputRole::Display, "displays");
  if (unit == nullptr) return;
  const int displays = DisplayCount(unit->model->name);
  const auto display = IntegerArg(ctx, call, 1, 1, displays);
  if (!display) return;
  const std::string& text = call.args[2].text;
  const auto shown = ViewOf(ctx, *unit).displays[static_cast<std::size_t>(*display - 1)];
  Check(ctx, shown && WithoutTrailingBlanks(*shown) == WithoutTrailingBlanks(text),
        "display " + unit->name + " " + std::to_string(*display) + " " + Quoted(text),
        shown ? Quoted(*shown) : "nothing sent to it");
}

void ExpectLedsCommand(ScenarioContext& ctx, const Invocation& call) {
  if (!ArgCount(ctx, call, 2, 2)) return;
  const PanelUnit* unit = UnitWithRole(ctx, call, OutputRole::Leds, "indicator report");
  if (unit == nullptr) return;
  const auto mask = IntegerArg(ctx, call, 1, 0, 0xFFFFFFFFLL);
  if (!mask) return;
  const auto leds = ViewOf(ctx, *unit).leds;
  Check(ctx, leds && *leds == *mask,
        "leds " + unit->name + " " + HexNumber(static_cast<std::uint32_t>(*mask)),
        leds ? HexNumber(*leds) : "no light report sent");
}

void ExpectColourCommand(ScenarioContext& ctx, const Invocation& call) {
  if (!ArgCount(ctx, call, 5, 5)) return;
  const PanelUnit* unit = UnitWithRole(ctx, call, OutputRole::Colour, "coloured lights");
  if (unit == nullptr) return;
  const auto light = IntegerArg(ctx, call, 1, 1, kColouredLights);
  if (!light) return;
  std::array<int, 3> wanted{};
  for (std::size_t i = 0; i < 3; ++i) {
    const auto value = IntegerArg(ctx, call, 2 + i, 0, 255);
    if (!value) return;
    wanted[i] = static_cast<int>(*value);
  }
  const auto view = ViewOf(ctx, *unit);
  const auto index = static_cast<std::size_t>(*light - 1);
  const std::optional<Colour> colour =
      index < view.colours.size() ? view.colours[index] : std::nullopt;
  const auto text = [](int r, int g, int b) {
    return std::to_string(r) + " " + std::to_string(g) + " " + std::to_string(b);
  };
  const Colour found = colour.value_or(Colour{});
  Check(ctx,
        colour.has_value() && found.red == wanted[0] && found.green == wanted[1] &&
            found.blue == wanted[2],
        "colour " + unit->name + " " + std::to_string(*light) + " " +
            text(wanted[0], wanted[1], wanted[2]),
        colour.has_value() ? text(found.red, found.green, found.blue) : "no colour report for it");
}

void ExpectBrightnessCommand(ScenarioContext& ctx, const Invocation& call) {
  if (!ArgCount(ctx, call, 2, 2)) return;
  const PanelUnit* unit = UnitWithRole(ctx, call, OutputRole::Brightness, "brightness report");
  if (unit == nullptr) return;
  const auto value = IntegerArg(ctx, call, 1, 0, 255);
  if (!value) return;
  const auto brightness = ViewOf(ctx, *unit).brightness;
  Check(ctx, brightness && *brightness == *value,
        "brightness " + unit->name + " " + std::to_string(*value),
        brightness ? std::to_string(*brightness) : "no brightness report sent");
}

void ExpectUnitsCommand(ScenarioContext& ctx, const Invocation& call) {
  if (!ArgCount(ctx, call, 2, 2)) return;
  const drav::PanelModel* model = FindPanelModelByName(call.args[0].text);
  if (model == nullptr) return CommandError(ctx, call, "unknown model " + Quoted(call.args[0].text));
  const auto count = IntegerArg(ctx, call, 1, 0, model->slots);
  if (!count) return;
  const std::int32_t present = drav::GFDev_PresentUnitCount(model->moduleType);
  Check(ctx, present == *count,
        "units " + std::string(model->name) + " " + std::to_string(*count),
        std::to_string(present));
}

void PanelClearCommand(ScenarioContext& ctx, const Invocation& call) {
  ClearCommand(ctx, call);
  for (PanelUnit& unit : ctx.panels.Units()) FoldIntoFace(unit.face, ctx.hid->Sent(unit.path));
  ctx.hid->ClearSent();
}

void ShowCommand(ScenarioContext& ctx, const Invocation& call) {
  if (!ArgCount(ctx, call, 0, 1)) return;
  std::string text;
  if (call.args.size() == 1) {
    const PanelUnit* unit = UnitArg(ctx, call, 0);
    if (unit == nullptr) return;
    text = RenderUnit(*unit, ViewOf(ctx, *unit), LayerSlot(ctx, *unit), ctx.options.colour);
  } else {
    for (const PanelUnit& unit : ctx.panels.Units()) {
      text += RenderUnit(unit, ViewOf(ctx, unit), LayerSlot(ctx, unit), ctx.options.colour);
    }
    if (text.empty()) text = "(no units plugged)\n";
  }
  if (!text.empty() && text.back() == '\n') text.pop_back();
  ctx.Echo(text);
}

}  // namespace dravsim
