#include "modules/GF46_Module.h"

#include "hid/InputRecords.h"
#include "hid/ModelRows.h"
#include "base/Log.h"
#include "base/Settings.h"
#include "modules/ModelDialogRows.h"
#include "modules/ModuleRegistry.h"

namespace drav {

namespace {

constexpr std::int32_t kDial1 = 0;
constexpr std::int32_t kDial2 = 1;
constexpr std::int32_t kModeButton = 2;

const RadioModelTraits kGF46Model = {
    kModuleGF46,
    2,
    3,
    "    ",
    "      ",
    true,
    "GF46_Module::SetDisplay -  Alpha Display = %s",
    "GF46_Module::SetDisplay -  char_display = %s",
    "GF46_Module::SetDisplay -  Freq Display = %s",
    "GF46_Module::SetDisplay -  char_freqval = %s",
};

bool IsModeIndex(std::int32_t index) { return index >= 0 && index < kModeCount; }

}  // namespace

GF46_Module::GF46_Module() : GFRadioModule(kGF46Model) {}

std::int32_t GF46_Module::GetButton(const void* record, std::int32_t* value) {
  if (record == nullptr || value == nullptr) return -1;
  const auto& input = *static_cast<const GF46InputRecord*>(record);
  const bool traced = CurrentDebugSwitches().DebugGetButtonFunction != 0;
  if (traced) LogFormat("GF46_Module::GetButton -  Dial 1 = %d, Dial 2 = %d", input.encoder1, input.encoder2);

  std::int32_t control = -1;
  if (input.encoder1 != 0) {
    *value = input.encoder1;
    control = kDial1;
  }
  if (input.encoder2 != 0) {
    *value = input.encoder2;
    control = kDial2;
  }
  if (input.buttons == lastButton) return control;

  // The button's change is reported even when a dial moved in the same record; that count is lost.
  *value = input.buttons & 1;
  lastButton = input.buttons;
  if (traced) LogBits16("GF46_Module::GetButton - BtnState", input.buttons);
  return kModeButton;
}

void GF46_Module::HandleInput(std::int32_t control, std::int32_t value) {
  if (CurrentDebugSwitches().DebugHandleInputFunction != 0) {
    LogFormat("GF46_Module::HandleInput -  Button = %d, Value = %d", control, value);
  }
  if (!HasSelection()) return;
  if (control == kDial1) {
    TurnOuterRing(value);
  } else if (control == kDial2) {
    TurnInnerRing(value);
  } else if (control == kModeButton && value == 1) {
    StepToNextMode();
  }
}

// The button only moves forward, and reselects only when the next used mode shows something
// else: modes repeating the same function just advance the index.
void GF46_Module::StepToNextMode() {
  if (!IsModeIndex(modeIndex)) return;
  const std::int32_t old = modeFunction[modeIndex];
  if (old == 0) return;
  do {
    modeIndex = (modeIndex + 1) % kModeCount;
  } while (modeFunction[modeIndex] == 0);
  const std::int32_t next = modeFunction[modeIndex];
  if (next == old) return;
  SelectFunction(next);
  SetDisplay();
}

namespace {

// The radios' eight modes.
constexpr const AssignmentKeyGroup* kFunctionKeys[] = {&kRadioModeKeys};

}  // namespace

// ---- the model's descriptor -------------------------------------------------------------------------

namespace {

using namespace std::chrono_literals;
using WS = WriteStrategy;

// The model's row in the device layer (the fields: ModelTable.h and DeviceClasses.h).
constexpr PanelModel kPanelRow = Model(kModuleGF46, "GF-46", "GF46", "GF46_%d", 0x0018, 16,
    {false, kModelQueue, WS::FeatureRetry, 0ms, kNoInitialQuery, false,
     kDecoder<GF46InputRecord, DecodeGF46Input>, nullptr, AfterOpen::Nothing, sizeof(GF46InputRecord)},
    {.setDisplay = &SendDisplay<EncodeRadioDisplay<EncodeSixteenSegmentDisplay, EncodeGF46Display2>>,
     .setBrightness = &SendBrightness<kGF46BrightnessReport>,
     .readBrightness = &ReadBrightnessReport<kGF46BrightnessReport>});

}  // namespace

constexpr ModelDescriptor kGF46Descriptor = {
    &kPanelRow,
    nullptr,  // the device layer's count
    &MakeModuleVector<GF46_Module>,
    &LoadAs<GF46_Module, LoadRadioAssignments>,
    kFunctionKeys,
    // brightness
    {&ReadUnitBrightness<kModuleGF46>, &WriteUnitBrightness<kModuleGF46>, false},
    &RadioDialogRows,
};

}  // namespace drav
