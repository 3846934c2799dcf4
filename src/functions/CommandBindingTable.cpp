// The command-button and key-stroke functions. The codes are the SDK's enumerated values: command
// buttons 1 start all engines, 2..9 the starters of engines 1..8, 47 flaps up, 48 flaps down,
// 59 autopilot disconnect; key strokes 71 and 72 elevator trim down and up, 93 transponder ident.
#include "functions/CommandBindingTable.h"

namespace drav {

namespace {

constexpr std::int32_t kNoSecondCode = 0;

// A row of one function.
constexpr CommandBindingRow One(FunctionId id, CommandBuild build, std::int32_t code,
                                std::int32_t codeForOn = kNoSecondCode, std::int32_t actOnRelease = 0,
                                const char* lightPath = nullptr) {
  return {id, id, build, code, codeForOn, actOnRelease, lightPath};
}

// Columns: function (or first and last id of a range), builder, code (of the first id), code for
// state 1, act on release, light dataref.
constexpr CommandBindingRow kCommandBindings[] = {
    // AP_DISENGAGE without X737Mode: the press disconnects (59), the release sends button 0.
    One(kFnAP_DISENGAGE, CommandBuild::kButtonPair, 0, 59, 1),
    // XPDR_IDENT: the key stroke idents; the light shows the transponder's ident flag.
    One(kFnXPDR_IDENT, CommandBuild::kKeyStrokeWithLight, 93, kNoSecondCode, 0, "sim/cockpit/radios/transponder_id"),
    // ENG_1_START .. ENG_8_START: engine n holds button n+1.
    {kFnENG_1_START, kFnENG_8_START, CommandBuild::kHeldButton, 2, kNoSecondCode, 0, nullptr},
    One(kFnENG_ALL_START, CommandBuild::kHeldButton, 1),
    // FLAPS_UP_DOWN: a switch turned on moves the flaps one notch up, turned off one notch down.
    One(kFnFLAPS_UP_DOWN, CommandBuild::kButtonPair, 48, 47),
    One(kFnFLAPS_EXTEND_1, CommandBuild::kButton, 48),
    One(kFnFLAPS_RETRACT_1, CommandBuild::kButton, 47),
    One(kFnELEV_TRIM_NOSE_UP, CommandBuild::kKeyStroke, 72),
    One(kFnELEV_TRIM_NOSE_DOWN, CommandBuild::kKeyStroke, 71),
};

}  // namespace

std::span<const CommandBindingRow> CommandBindingRows() { return kCommandBindings; }

const CommandBindingRow* FindCommandBinding(FunctionId id) {
  for (const CommandBindingRow& row : kCommandBindings) {
    if (id >= row.firstId && id <= row.lastId) return &row;
  }
  return nullptr;
}

}  // namespace drav
