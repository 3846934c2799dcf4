// The command-button and key-stroke functions. The codes are the SDK's enumerated values: command
// buttons 1 start all engines, 2..9 the starters of engines 1..8, 47 flaps up, 48 flaps down,
// 59 autopilot disconnect; key strokes 71 and 72 elevator trim down and up, 93 transponder ident.
#include "functions/CommandBindingTable.h"

namespace drav {

namespace {

constexpr std::int32_t kNoSecondCode = 0;

// Columns: first id, last id, builder, code (of the first id), code for state 1, act on release,
// light dataref.
constexpr CommandBindingRow kCommandBindings[] = {
    // AP_DISENGAGE without X737Mode: the press disconnects (59), the release sends button 0.
    {89, 89, CommandBuild::kButtonPair, 0, 59, 1, nullptr},
    // XPDR_IDENT: the key stroke idents; the light shows the transponder's ident flag.
    {153, 153, CommandBuild::kKeyStrokeWithLight, 93, kNoSecondCode, 0, "sim/cockpit/radios/transponder_id"},
    // ENG_1_START .. ENG_8_START: engine n holds button n+1.
    {253, 260, CommandBuild::kHeldButton, 2, kNoSecondCode, 0, nullptr},
    {261, 261, CommandBuild::kHeldButton, 1, kNoSecondCode, 0, nullptr},  // ENG_ALL_START
    // FLAPS_UP_DOWN: a switch turned on moves the flaps one notch up, turned off one notch down.
    {424, 424, CommandBuild::kButtonPair, 48, 47, 0, nullptr},
    {425, 425, CommandBuild::kButton, 48, kNoSecondCode, 0, nullptr},     // FLAPS_EXTEND_1
    {426, 426, CommandBuild::kButton, 47, kNoSecondCode, 0, nullptr},     // FLAPS_RETRACT_1
    {428, 428, CommandBuild::kKeyStroke, 72, kNoSecondCode, 0, nullptr},  // ELEV_TRIM_NOSE_UP
    {429, 429, CommandBuild::kKeyStroke, 71, kNoSecondCode, 0, nullptr},  // ELEV_TRIM_NOSE_DOWN
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
