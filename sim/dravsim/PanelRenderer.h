// `show`: a unit's displays and lights drawn as plain text for the terminal.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "dravsim/PanelBoard.h"
#include "dravsim/PanelOutputs.h"

namespace dravsim {

// Several lines, each ending in '\n': the unit's name, model and slot, then one line per display
// and one for the lights, brightness and colours it has been sent.
std::string RenderUnit(const PanelUnit& unit, const PanelOutputView& view,
                       std::optional<std::int32_t> slot);

// Lights as '*' (lit) and '.' (dark), light 1 first.
std::string RenderLights(std::uint32_t mask, int count);

}  // namespace dravsim
