#include "modules/GF45_Module.h"

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

const RadioModelTraits kGF45Model = {
    kModuleGF45,
    0,
    1,
    "    ",
    "     ",
    false,
    "GF45_Module::SetDisplay -  Alpha Display = %s",
    "GF45_Module::SetDisplay -  char_display = %s",
    "GF45_Module::SetDisplay -  Freq Display = %s",
    "GF45_Module::SetDisplay -  char_freqval = %s",
};

}  // namespace

GF45_Module::GF45_Module() : GFRadioModule(kGF45Model) {}

std::int32_t GF45_Module::GetButton(const void* record, std::int32_t* value) {
  if (record == nullptr || value == nullptr) return -1;
  const auto& input = *static_cast<const GF45InputRecord*>(record);
  if (CurrentDebugSwitches().DebugGetButtonFunction != 0) {
    LogFormat("GF45_Module::GetButton -  Dial 1 = %d, Dial 2 = %d", input.encoder1, input.encoder2);
  }
  if (input.encoder1 != 0) {
    *value = input.encoder1;
    return kDial1;
  }
  if (input.encoder2 != 0) {
    *value = input.encoder2;
    return kDial2;
  }
  return -1;
}

// A unit with nothing selected ignores its encoder without a trace.
void GF45_Module::HandleInput(std::int32_t control, std::int32_t value) {
  if (!HasSelection()) return;
  if (CurrentDebugSwitches().DebugHandleInputFunction != 0) {
    LogFormat("GF45_Module::HandleInput - Button = %d, Value= %d", control, value);
  }
  if (control == kDial1) {
    TurnOuterRing(value);
  } else {
    TurnInnerRing(value);
  }
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
constexpr PanelModel kPanelRow = Model(kModuleGF45, "GF-45", "GF45", "GF45_%d", 0x0010, 16,
    {false, kModelQueue, WS::FeatureDrop, 0ms, kNoInitialQuery, false,
     kDecoder<GF45InputRecord, DecodeGF45Input>, nullptr, AfterOpen::Nothing, sizeof(GF45InputRecord)},
    {.setDisplay = &SendDisplay<EncodeRadioDisplay<EncodeSixteenSegmentDisplay, EncodeGF45Display2>>,
     .setBrightness = &SendBrightness<kGF45BrightnessReport>});  // the unit cannot tell its level

}  // namespace

constexpr ModelDescriptor kGF45Descriptor = {
    &kPanelRow,
    nullptr,  // the device layer's count
    &MakeModuleVector<GF45_Module>,
    &LoadAs<GF45_Module, LoadRadioAssignments>,
    kFunctionKeys,
    {nullptr, &WriteUnitBrightness<kModuleGF45>, false},  // sent, never asked
    &RadioDialogRows,
};

}  // namespace drav
