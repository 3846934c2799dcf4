// The simulator's screen as an SVG picture, drawn from a display list: widget windows as X-Plane's
// dark panels with their title bars and close boxes, captions as text, scroll bars as a track and
// a thumb, custom widgets and plug-in windows by what they drew (texts, OpenGL shapes), plug-in
// windows on top.
#pragma once

#include <string>
#include <string_view>

#include "dravsim/CommandTable.h"
#include "host/DisplayList.h"

namespace dravsim {

std::string RenderScreenSvg(const sim::DisplayList& screen);

// Text safe inside an XML element or a double-quoted attribute.
std::string EscapeXml(std::string_view text);

// `screenshot FILE.svg`: a relative FILE is relative to dravsim's current directory.
void ScreenshotCommand(ScenarioContext& ctx, const Invocation& call);

}  // namespace dravsim
