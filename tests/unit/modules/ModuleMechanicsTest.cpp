#include "modules/ModuleMechanics.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/Settings.h"

namespace drav {
namespace {

// ---- bank change detection ------------------------------------------------------------------

TEST(BankChangeTest, TwoBitsChangedTogetherAreReportedLowestFirstFromSuccessiveRecords) {
  std::uint32_t prev = 0;
  const InputBank bank{0b0010'0100, &prev, 8, 0};
  std::int32_t value = -5;

  EXPECT_EQ(DetectBankChange(bank, &value), 2);
  EXPECT_EQ(value, 1);
  EXPECT_EQ(prev, 0b0000'0100u);  // only the reported bit is recorded

  value = -5;
  EXPECT_EQ(DetectBankChange(bank, &value), 5);  // the same record again
  EXPECT_EQ(value, 1);

  value = -5;
  EXPECT_EQ(DetectBankChange(bank, &value), -1);
  EXPECT_EQ(value, -5);  // left alone when nothing is reported
}

TEST(BankChangeTest, ReleaseReportsZeroAndControlsStartAtTheBankBase) {
  std::uint32_t prev = 0b1000'0001;
  std::int32_t value = -1;
  EXPECT_EQ(DetectBankChange(InputBank{0b1000'0000, &prev, 8, 8}, &value), 8);
  EXPECT_EQ(value, 0);
  EXPECT_EQ(prev, 0b1000'0000u);
}

TEST(BankChangeTest, ThirtyTwoBitBankReachesBit31) {
  std::uint32_t prev = 0;
  std::int32_t value = 0;
  const InputBank bank{0x8000'0000u, &prev, 32, 100};
  EXPECT_EQ(DetectBankChange(bank, &value), 131);
  EXPECT_EQ(value, 1);
  EXPECT_EQ(prev, 0x8000'0000u);
  EXPECT_EQ(DetectBankChange(InputBank{0, &prev, 32, 100}, &value), 131);
  EXPECT_EQ(value, 0);
}

TEST(BankChangeTest, BitsAboveTheBankWidthAreNotInputs) {
  std::uint32_t prev = 0;
  std::int32_t value = 0;
  EXPECT_EQ(DetectBankChange(InputBank{0x0300, &prev, 8, 0}, &value), -1);
  EXPECT_EQ(prev, 0u);
  EXPECT_EQ(DetectBankChange(InputBank{0x0001, nullptr, 8, 0}, &value), -1);  // no state: no crash
}

// ---- encoders and the decoding order --------------------------------------------------------

TEST(EncoderMoveTest, FirstMovedEncoderInTheModelsOrderWins) {
  const EncoderMove encoders[] = {{0, 8}, {2, 9}, {-1, 10}};
  std::int32_t value = 0;
  EXPECT_EQ(FirstEncoderMove(encoders, &value), 9);
  EXPECT_EQ(value, 2);

  const EncoderMove reversed[] = {{0, 8}, {0, 9}, {-3, 10}};
  EXPECT_EQ(FirstEncoderMove(reversed, &value), 10);
  EXPECT_EQ(value, -3);  // the sign is the direction

  const EncoderMove still[] = {{0, 8}, {0, 9}};
  value = 42;
  EXPECT_EQ(FirstEncoderMove(still, &value), -1);
  EXPECT_EQ(value, 42);
}

TEST(DecodeFirstChangeTest, EncodersComeBeforeButtonsAndTheButtonWaitsForALaterRecord) {
  std::uint32_t prev = 0;
  std::int32_t value = 0;
  const EncoderMove moved[] = {{0, 8}, {1, 9}};
  const InputBank pressed[] = {{0b0001, &prev, 8, 0}};
  EXPECT_EQ(DecodeFirstChange(moved, pressed, &value), 9);
  EXPECT_EQ(value, 1);
  EXPECT_EQ(prev, 0u);  // the button change is still pending

  const EncoderMove still[] = {{0, 8}, {0, 9}};
  EXPECT_EQ(DecodeFirstChange(still, pressed, &value), 0);
  EXPECT_EQ(value, 1);
  EXPECT_EQ(DecodeFirstChange(still, pressed, &value), -1);
}

TEST(DecodeFirstChangeTest, BanksAreCheckedInOrder) {
  std::uint32_t prevFirst = 0;
  std::uint32_t prevSecond = 0;
  std::int32_t value = 0;
  const InputBank banks[] = {{0b10, &prevFirst, 8, 0}, {0b01, &prevSecond, 8, 8}};
  EXPECT_EQ(DecodeFirstChange({}, banks, &value), 1);
  EXPECT_EQ(DecodeFirstChange({}, banks, &value), 8);
  EXPECT_EQ(DecodeFirstChange({}, banks, &value), -1);
}

// ---- light masks and display texts ------------------------------------------------------------

class OutputCacheTest : public ::testing::Test {
 protected:
  void SetUp() override { gDebug = DebugSwitches{}; }
  void TearDown() override { gDebug = DebugSwitches{}; }
};

using LightMaskSenderTest = OutputCacheTest;

TEST_F(LightMaskSenderTest, PowerOffSendsZeroOnEveryCall) {
  LightMaskSender sender;
  std::vector<std::uint32_t> sent;
  auto send = [&sent](std::uint32_t mask) { sent.push_back(mask); };

  sender.Update(true, 0b101, send, "Test::SetDisplay - Indicators");
  for (int i = 0; i < 3; ++i) sender.Update(false, 0b101, send, "Test::SetDisplay - Indicators");
  EXPECT_EQ(sent, (std::vector<std::uint32_t>{0b101, 0, 0, 0}));
  EXPECT_EQ(sender.LastSent(), 0u);

  sender.Update(true, 0b101, send, "Test::SetDisplay - Indicators");  // power back: lit again
  EXPECT_EQ(sent.back(), 0b101u);
}

TEST_F(LightMaskSenderTest, OnlyChangedMasksAreSent) {
  LightMaskSender sender;
  std::vector<std::uint32_t> sent;
  auto send = [&sent](std::uint32_t mask) { sent.push_back(mask); };

  sender.Update(true, 0, send, "L");  // nothing lit, nothing sent yet: the unit is dark already
  sender.Update(true, 0b11, send, "L");
  sender.Update(true, 0b11, send, "L");
  sender.Update(true, 0x8000'0001u, send, "L");
  EXPECT_EQ(sent, (std::vector<std::uint32_t>{0b11, 0x8000'0001u}));
}

TEST_F(LightMaskSenderTest, FailedSendStillCountsAsSent) {
  LightMaskSender sender;
  int calls = 0;
  auto failingSend = [&calls](std::uint32_t) {
    ++calls;
    return 3;  // the device layer's "no device"
  };
  gDebug.DebugSetDisplayFunction = 1;  // the log path runs as well
  sender.Update(true, 0b100, failingSend, "L");
  sender.Update(true, 0b100, failingSend, "L");
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(sender.LastSent(), 0b100u);
}

TEST_F(LightMaskSenderTest, ClearSendsZeroAndForgets) {
  LightMaskSender sender;
  std::vector<std::uint32_t> sent;
  auto send = [&sent](std::uint32_t mask) { sent.push_back(mask); };
  sender.Update(true, 0b1, send, "L");
  sender.Clear(send);
  sender.Update(true, 0b1, send, "L");
  EXPECT_EQ(sent, (std::vector<std::uint32_t>{0b1, 0, 0b1}));
}

using DisplayTextCacheTest = OutputCacheTest;

TEST_F(DisplayTextCacheTest, PoweredSendsAndLogsOnlyChanges) {
  DisplayTextCache cache;
  std::vector<std::string> sent;
  std::vector<std::string> logged;
  auto send = [&sent](const char* text) { sent.emplace_back(text); };
  auto log = [&logged](const char* text) { logged.emplace_back(text); };

  cache.Update(true, "118.00", "      ", send, log);  // the log switch is off
  gDebug.DebugSetDisplayFunction = 1;
  cache.Update(true, "118.00", "      ", send, log);
  cache.Update(true, "121.50", "      ", send, log);
  EXPECT_EQ(sent, (std::vector<std::string>{"118.00", "121.50"}));
  EXPECT_EQ(logged, (std::vector<std::string>{"121.50"}));
  EXPECT_STREQ(cache.LastText(), "121.50");
}

TEST_F(DisplayTextCacheTest, UnpoweredSendsTheBlankEveryCallAndForgets) {
  DisplayTextCache cache;
  std::vector<std::string> sent;
  auto send = [&sent](const char* text) { sent.emplace_back(text); };
  auto log = [](const char*) {};

  cache.Update(true, "ALT", "    ", send, log);
  cache.Update(false, "ALT", "    ", send, log);
  cache.Update(false, "ALT", "    ", send, log);
  EXPECT_STREQ(cache.LastText(), "");
  cache.Update(true, "ALT", "    ", send, log);  // power back: the same text is sent again
  EXPECT_EQ(sent, (std::vector<std::string>{"ALT", "    ", "    ", "ALT"}));

  cache.Forget();
  cache.Update(true, "ALT", "    ", send, log);
  EXPECT_EQ(sent.size(), 5u);
}

TEST_F(DisplayTextCacheTest, OverlongAndNullTextsStayBounded) {
  DisplayTextCache cache;
  int sends = 0;
  auto send = [&sends](const char*) { ++sends; };
  auto log = [](const char*) {};
  const std::string longText(100, '8');

  cache.Update(true, longText.c_str(), " ", send, log);
  cache.Update(true, longText.c_str(), " ", send, log);
  EXPECT_EQ(sends, 1);
  EXPECT_EQ(std::string(cache.LastText()).size(), DisplayTextCache::kCapacity - 1);

  cache.Update(true, nullptr, " ", send, log);  // as the empty text
  EXPECT_EQ(sends, 2);
  EXPECT_STREQ(cache.LastText(), "");
  cache.Update(false, nullptr, nullptr, send, log);
  EXPECT_EQ(sends, 3);
}

}  // namespace
}  // namespace drav
