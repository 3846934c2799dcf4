// Simulator commands that the modules run, looked up by name through the optional SDK. A handle stays
// null when the simulator does not know the command; users skip null handles.
#pragma once

#include <XPLMUtilities.h>

#include <array>

namespace drav {

struct CommandPair {
  XPLMCommandRef press = nullptr;
  XPLMCommandRef release = nullptr;
};

struct CommandTriple {
  XPLMCommandRef on = nullptr;
  XPLMCommandRef off = nullptr;
  XPLMCommandRef toggle = nullptr;
};

inline constexpr int kEngineStartCommandCount = 14;
inline constexpr int kAnnunciatorCommandCount = 3;
inline constexpr int kX737McpCommandCount = 20;

// The handles, looked up afresh by every plug-in start (ModuleState); main thread only.
struct CommandTables {
  // GF-MESM starters, igniters, magnetos and mixture (press and release).
  std::array<CommandPair, kEngineStartCommandCount> engineStart{};
  // GF-WCP: clear master warning, clear master caution, clear master accept.
  std::array<XPLMCommandRef, kAnnunciatorCommandCount> annunciators{};
  // GF-MCPPro in x737 mode: the aircraft's MCP buttons (on, off, toggle).
  std::array<CommandTriple, kX737McpCommandCount> x737Mcp{};
};

// The running plug-in's tables.
const CommandTables& TheCommandTables();

// The names, for the resolvers and the tests.
struct CommandPairNames {
  const char* press;
  const char* release;
};
struct CommandTripleNames {
  const char* on;
  const char* off;
  const char* toggle;
};
extern const std::array<CommandPairNames, kEngineStartCommandCount> kEngineStartCommandNames;
extern const std::array<const char*, kAnnunciatorCommandCount> kAnnunciatorCommandNames;
extern const std::array<CommandTripleNames, kX737McpCommandCount> kX737McpCommandNames;

// Both columns row by row, then the annunciators: done at every enable.
void ResolveEngineAndAnnunciatorCommands();
// All "on" names, then all "off", then all "toggle": done when the x737 MCP comes on or goes off.
void ResolveX737McpCommands();

}  // namespace drav
