// Input reports composed from a unit's input state, checked against bytes worked out by hand from
// each model's report format, and the layouts' consistency with the device table.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "dravsim/PanelModels.h"
#include "hid/ModelTable.h"

namespace dravsim {
namespace {

std::vector<std::uint8_t> Bytes(const PanelInputState& state, const InputBytes& report) {
  return {report.begin(), report.begin() + state.Layout().length};
}

std::vector<std::uint8_t> Now(const PanelInputState& state) { return Bytes(state, state.Compose()); }

std::vector<std::uint8_t> Turn(const PanelInputState& state, char encoder, int steps) {
  std::string error;
  const auto report = state.ComposeTurn(encoder, steps, error);
  EXPECT_TRUE(report.has_value()) << error;
  return report ? Bytes(state, *report) : std::vector<std::uint8_t>{};
}

PanelInputState StateOf(std::string_view model) {
  const InputLayout* layout = FindInputLayout(model);
  EXPECT_NE(layout, nullptr) << model;
  return PanelInputState(*layout);
}

using V = std::vector<std::uint8_t>;

TEST(PanelModelsTest, EveryModelHasALayoutWithTheDeclaredInputLength) {
  const std::map<std::string, int> lengths = {
      {"GF-45", 3},   {"GF-46", 4},   {"GF-166", 4},   {"GF-P8", 2},    {"GF-T8", 2},
      {"GF-WCP", 2},  {"GF-RP48", 6}, {"GF-LGT", 3},   {"GF-LGT2", 5},  {"GF-MCP", 8},
      {"GF-MCPPro", 8}, {"GF-EFIS", 8}, {"GF-SECM", 4}, {"GF-MESM", 2}, {"GF-TQ6", 8},
      {"GF-DIO", 8},  {"GF-ATC", 3},  {"GF-FMC", 5}};
  ASSERT_EQ(drav::PanelModels().size(), lengths.size());
  for (const drav::PanelModel& model : drav::PanelModels()) {
    const InputLayout* layout = FindInputLayout(model.name);
    ASSERT_NE(layout, nullptr) << model.name;
    EXPECT_EQ(layout->length, lengths.at(model.name)) << model.name;
  }
  EXPECT_EQ(FindInputLayout("GF-TPM"), nullptr);
}

TEST(PanelModelsTest, EveryFieldLiesInsideTheReportAfterTheReportId) {
  for (const InputLayout& layout : AllInputLayouts()) {
    for (const InputBit& input : layout.inputs) {
      EXPECT_LT(input.byte, layout.length) << layout.model;
      EXPECT_LT(input.bit, 8) << layout.model;
    }
    for (const EncoderField& encoder : layout.encoders) {
      EXPECT_GE(encoder.byte, 1) << layout.model;
      EXPECT_LT(encoder.byte, layout.length) << layout.model;
    }
    for (const LeverField& lever : layout.levers) EXPECT_LT(lever.byte, layout.length);
    for (const SelectorField& selector : layout.selectors) {
      EXPECT_LT(selector.byte, layout.length) << layout.model;
      for (const std::uint8_t code : selector.codes) EXPECT_EQ(code & ~selector.mask, 0);
    }
    EXPECT_EQ(layout.rest[0], 0) << layout.model << ": the report id";
  }
}

TEST(PanelModelsTest, ButtonBitsAccumulateAndReleaseOnTheirOwn) {
  PanelInputState p8 = StateOf("GF-P8");
  EXPECT_EQ(p8.SetInput(3, true), "");
  EXPECT_EQ(Now(p8), (V{0x00, 0x04}));
  p8.SetInput(1, true);
  p8.SetInput(8, true);
  EXPECT_EQ(Now(p8), (V{0x00, 0x85}));
  p8.SetInput(3, false);
  EXPECT_EQ(Now(p8), (V{0x00, 0x81}));
}

TEST(PanelModelsTest, RadioDialsAreSignedBytesThatLastOneReport) {
  PanelInputState gf46 = StateOf("GF-46");
  EXPECT_EQ(Turn(gf46, '1', 5), (V{0x00, 0x05, 0x00, 0x00}));
  EXPECT_EQ(Turn(gf46, '2', -1), (V{0x00, 0x00, 0xFF, 0x00}));
  gf46.SetInput(1, true);
  EXPECT_EQ(Turn(gf46, '1', -127), (V{0x00, 0x81, 0x00, 0x01}));
  EXPECT_EQ(Now(gf46), (V{0x00, 0x00, 0x00, 0x01})) << "the detents are not kept";

  PanelInputState gf166 = StateOf("GF-166");
  gf166.SetInput(3, true);  // button R
  EXPECT_EQ(Now(gf166), (V{0x00, 0x00, 0x00, 0x04}));
}

TEST(PanelModelsTest, MCPEncodersAndTheDisengageBar) {
  PanelInputState mcp = StateOf("GF-MCP");
  EXPECT_EQ(Turn(mcp, 'E', 3), (V{0, 0, 0, 0, 0, 0x03, 0, 0}));
  mcp.SetInput(8, true);
  mcp.SetInput(9, true);
  EXPECT_EQ(Now(mcp), (V{0, 0, 0, 0, 0, 0, 0x80, 0x01}));
}

TEST(PanelModelsTest, MCPProNibblesAndItsBigEndianInputWord) {
  PanelInputState pro = StateOf("GF-MCPPro");
  EXPECT_EQ(Turn(pro, 'A', 1), (V{0, 0x10, 0, 0, 0, 0, 0, 0}));
  EXPECT_EQ(Turn(pro, 'B', -8), (V{0, 0, 0x80, 0, 0, 0, 0, 0}));
  EXPECT_EQ(Turn(pro, 'C', -1), (V{0, 0x0F, 0, 0, 0, 0, 0, 0}));
  EXPECT_EQ(Turn(pro, 'D', 7), (V{0, 0, 0, 0x70, 0, 0, 0, 0}));
  EXPECT_EQ(Turn(pro, 'E', 2), (V{0, 0, 0x02, 0, 0, 0, 0, 0}));
  EXPECT_EQ(Turn(pro, 'F', -1), (V{0, 0, 0, 0x0F, 0, 0, 0, 0}));
  // The word 0x00000102: inputs 2 and 9 (bits 1 and 8).
  pro.SetInput(2, true);
  pro.SetInput(9, true);
  EXPECT_EQ(Now(pro), (V{0, 0, 0, 0, 0, 0, 0x01, 0x02}));
  pro.SetInput(24, true);
  EXPECT_EQ(Now(pro), (V{0, 0, 0, 0, 0, 0x80, 0x01, 0x02}));

  std::string error;
  EXPECT_FALSE(pro.ComposeTurn('A', 8, error).has_value()) << "a nibble holds -8..7";
  EXPECT_NE(error.find("-8..7"), std::string::npos) << error;
}

TEST(PanelModelsTest, EFISInputsSelectorsAndTheMissingContact) {
  PanelInputState efis = StateOf("GF-EFIS");
  for (int input = 1; input <= 16; ++input) {
    if (input == 8) continue;
    EXPECT_EQ(efis.SetInput(input, true), "") << input;
  }
  // All sixteen inputs that exist: the decoder's word 0xFF7F.
  EXPECT_EQ(Now(efis), (V{0, 0, 0, 0, 0, 0x7F, 0x18, 0x3F}));
  EXPECT_NE(efis.SetInput(8, true), "");

  PanelInputState fresh = StateOf("GF-EFIS");
  EXPECT_EQ(fresh.SetSelector(1, 2), "");
  EXPECT_EQ(fresh.SetSelector(2, 6), "");
  EXPECT_EQ(Now(fresh), (V{0, 0, 0, 0, 0, 0, 0xC2, 0}));
  EXPECT_NE(fresh.SetSelector(2, 7), "");
  EXPECT_NE(fresh.SetSelector(1, 4), "");
  EXPECT_EQ(Turn(fresh, 'B', -2), (V{0, 0, 0, 0, 0xFE, 0, 0xC2, 0}));
}

TEST(PanelModelsTest, SECMSwitchesWithInvertedContactsAndTheKey) {
  PanelInputState secm = StateOf("GF-SECM");
  EXPECT_EQ(Now(secm), (V{0, 0, 0x55, 0x4A})) << "every switch off, rocker at rest";
  secm.SetInput(3, true);  // word bit 2 = NOT bit 6 of byte 2
  secm.SetInput(1, true);  // word bit 0 = bit 2 of byte 3
  EXPECT_EQ(Now(secm), (V{0, 0, 0x15, 0x4E}));
  secm.SetInput(3, false);
  EXPECT_EQ(Now(secm), (V{0, 0, 0x55, 0x4E}));
  EXPECT_EQ(secm.SetSelector(1, 1), "");
  EXPECT_EQ(Now(secm)[1], 0x40);
  secm.SetSelector(1, 5);
  EXPECT_EQ(Now(secm)[1], 0x04) << "the old position's bit is gone";
  EXPECT_NE(secm.SetSelector(1, 0), "");
  EXPECT_NE(secm.SetInput(13, true), "");
}

TEST(PanelModelsTest, MESMSelectorsUseTheirOwnCodes) {
  PanelInputState mesm = StateOf("GF-MESM");
  mesm.SetSelector(1, 4);
  mesm.SetSelector(2, 1);
  mesm.SetSelector(3, 2);
  EXPECT_EQ(Now(mesm), (V{0, 0x93}));
  mesm.SetSelector(2, 2);
  mesm.SetSelector(3, 3);
  EXPECT_EQ(Now(mesm), (V{0, 0x43}));
  EXPECT_NE(mesm.SetSelector(2, 4), "");
  EXPECT_NE(mesm.SetSelector(4, 1), "");
}

TEST(PanelModelsTest, TQ6LeversAndTheirSwitches) {
  PanelInputState tq6 = StateOf("GF-TQ6");
  EXPECT_EQ(tq6.SetLever('A', 128, std::nullopt), "");
  EXPECT_EQ(tq6.SetLever('E', 10, true), "");  // byte 7 bit 0, the decoder's 0x10 (lever E)
  EXPECT_EQ(tq6.SetLever('B', 255, true), "");  // byte 7 bit 3, the decoder's 0x02 (lever B)
  EXPECT_EQ(Now(tq6), (V{0, 0x80, 0xFF, 0, 0, 0x0A, 0, 0x09}));
  EXPECT_EQ(tq6.SetLever('E', 10, false), "");
  EXPECT_EQ(Now(tq6)[7], 0x08);
  EXPECT_NE(tq6.SetLever('A', 0, true), "") << "lever A has no switch";
  EXPECT_NE(tq6.SetLever('G', 0, std::nullopt), "");
  EXPECT_NE(tq6.SetLever('C', 256, std::nullopt), "");
}

TEST(PanelModelsTest, DIOInputsSpanSevenBytes) {
  PanelInputState dio = StateOf("GF-DIO");
  dio.SetInput(1, true);
  dio.SetInput(56, true);
  dio.SetInput(10, true);
  EXPECT_EQ(Now(dio), (V{0, 0x01, 0x02, 0, 0, 0, 0, 0x80}));
  EXPECT_NE(dio.SetInput(57, true), "");
  EXPECT_NE(dio.SetInput(0, true), "");
}

TEST(PanelModelsTest, WordsAModelHasNoControlForAreRefused) {
  std::string error;
  EXPECT_FALSE(StateOf("GF-P8").ComposeTurn('A', 1, error).has_value());
  EXPECT_NE(error.find("no encoders"), std::string::npos) << error;
  EXPECT_FALSE(StateOf("GF-RP48").ComposeTurn('E', 1, error).has_value());
  EXPECT_NE(error.find("A, B, C, D"), std::string::npos) << error;
  EXPECT_FALSE(StateOf("GF-RP48").ComposeTurn('A', 128, error).has_value());
  EXPECT_NE(StateOf("GF-P8").SetSelector(1, 1), "");
  EXPECT_NE(StateOf("GF-MCP").SetLever('A', 1, std::nullopt), "");
  EXPECT_NE(StateOf("GF-45").SetInput(1, true), "");
  EXPECT_FALSE(FindInputLayout("GF-T8")->pressable);
  EXPECT_FALSE(FindInputLayout("GF-P8")->switchable);
}

}  // namespace
}  // namespace dravsim
