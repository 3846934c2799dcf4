#include "hid/ReportQueue.h"

#include <gtest/gtest.h>

#include <vector>

namespace drav {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Reports = std::vector<Bytes>;

Bytes Report(std::uint8_t id, std::uint8_t value) { return {id, value}; }

std::vector<std::uint8_t> Taken(ReportQueue& queue) {
  std::optional<QueuedReport> report = queue.TakeFront();
  if (!report) return {};
  return {report->bytes.begin(), report->bytes.begin() + static_cast<std::ptrdiff_t>(report->length)};
}

// Everything left, in the order it is taken.
Reports TakenAll(ReportQueue& queue) {
  Reports all;
  for (Bytes report = Taken(queue); !report.empty(); report = Taken(queue)) all.push_back(report);
  return all;
}

TEST(ReportQueueTest, FullQueueDropsTheNewestAndKeepsTheOrder) {
  ReportQueue queue(25);
  for (int i = 0; i < 25; ++i) EXPECT_TRUE(queue.Append(Report(2, static_cast<std::uint8_t>(i)), ReportKind::Feature));
  EXPECT_FALSE(queue.Append(Report(2, 99), ReportKind::Feature));  // the 26th
  EXPECT_EQ(queue.Count(), 25u);
  for (int i = 0; i < 25; ++i) EXPECT_EQ(Taken(queue), Report(2, static_cast<std::uint8_t>(i)));
  EXPECT_FALSE(queue.TakeFront().has_value());
  // Room again once reports were taken, and the ring wraps without losing its order.
  for (int i = 0; i < 25; ++i) EXPECT_TRUE(queue.Append(Report(3, static_cast<std::uint8_t>(i)), ReportKind::Output));
  EXPECT_EQ(Taken(queue), Report(3, 0));
  EXPECT_TRUE(queue.Append(Report(3, 25), ReportKind::Output));
  for (int i = 1; i <= 25; ++i) EXPECT_EQ(Taken(queue), Report(3, static_cast<std::uint8_t>(i)));
}

TEST(ReportQueueTest, FullQueueKeepsTheNewestReportOfEachKind) {
  ReportQueue queue(4, 1);
  EXPECT_TRUE(queue.Append(Report(2, 1), ReportKind::Feature));  // light
  EXPECT_TRUE(queue.Append(Report(3, 1), ReportKind::Feature));  // brightness
  EXPECT_TRUE(queue.Append(Report(2, 2), ReportKind::Feature));
  EXPECT_TRUE(queue.Append(Report(5, 1), ReportKind::Feature));  // display
  // Full: the oldest report that a newer one overrides goes, the others keep their order.
  EXPECT_TRUE(queue.Append(Report(2, 3), ReportKind::Feature));  // light 1 goes
  EXPECT_TRUE(queue.Append(Report(3, 2), ReportKind::Feature));  // brightness 1 goes
  EXPECT_TRUE(queue.Append(Report(9, 1), ReportKind::Feature));  // light 2 goes, light 3 overrides it
  EXPECT_EQ(queue.Count(), 4u);
  // The same report id as another kind, or of another length, is something else: nothing queued
  // is overridden now, so the newest is refused.
  EXPECT_FALSE(queue.Append(Report(5, 2), ReportKind::Output));
  EXPECT_FALSE(queue.Append(std::vector<std::uint8_t>{5, 2, 0}, ReportKind::Feature));
  EXPECT_TRUE(queue.Append(Report(5, 2), ReportKind::Feature));
  EXPECT_EQ(TakenAll(queue), (Reports{Report(2, 3), Report(3, 2), Report(9, 1), Report(5, 2)}));
}

TEST(ReportQueueTest, AKeyOfTwoBytesKeepsOneReportPerAddressedLight) {
  ReportQueue queue(3, 2);
  EXPECT_TRUE(queue.Append(std::vector<std::uint8_t>{2, 1, 100}, ReportKind::Output));
  EXPECT_TRUE(queue.Append(std::vector<std::uint8_t>{2, 2, 100}, ReportKind::Output));
  EXPECT_TRUE(queue.Append(std::vector<std::uint8_t>{2, 3, 100}, ReportKind::Output));
  EXPECT_FALSE(queue.Append(std::vector<std::uint8_t>{2, 4, 0}, ReportKind::Output));
  EXPECT_TRUE(queue.Append(std::vector<std::uint8_t>{2, 2, 0}, ReportKind::Output));
  EXPECT_EQ(TakenAll(queue), (Reports{{2, 1, 100}, {2, 3, 100}, {2, 2, 0}}));
}

TEST(ReportQueueTest, PushedBackReportComesFirstEvenWhenTheQueueFilledMeanwhile) {
  ReportQueue queue(2);
  queue.Append(Report(1, 1), ReportKind::Feature);
  std::optional<QueuedReport> failed = queue.TakeFront();
  ASSERT_TRUE(failed.has_value());
  // While the write thread held the failed report, encoders filled the queue again.
  EXPECT_TRUE(queue.Append(Report(1, 2), ReportKind::Feature));
  EXPECT_TRUE(queue.Append(Report(1, 3), ReportKind::Output));
  EXPECT_TRUE(queue.PushFront(*failed));
  EXPECT_EQ(queue.Count(), 3u);
  EXPECT_FALSE(queue.Append(Report(1, 4), ReportKind::Feature));
  EXPECT_EQ(Taken(queue), Report(1, 1));
  std::optional<QueuedReport> second = queue.TakeFront();
  ASSERT_TRUE(second.has_value());
  EXPECT_EQ(second->kind, ReportKind::Feature);
  std::optional<QueuedReport> third = queue.TakeFront();
  ASSERT_TRUE(third.has_value());
  EXPECT_EQ(third->kind, ReportKind::Output);
}

TEST(ReportQueueTest, RefusesWhatNoSlotCanHoldAndClearsEverything) {
  ReportQueue queue(4);
  EXPECT_FALSE(queue.Append({}, ReportKind::Feature));
  EXPECT_FALSE(queue.Append(std::vector<std::uint8_t>(kMaxQueuedReportLength + 1, 1), ReportKind::Output));
  EXPECT_TRUE(queue.Append(std::vector<std::uint8_t>(kMaxQueuedReportLength, 7), ReportKind::Output));
  EXPECT_TRUE(queue.Append(Report(1, 1), ReportKind::Feature));
  queue.Clear();
  EXPECT_EQ(queue.Count(), 0u);
  EXPECT_FALSE(queue.TakeFront().has_value());

  ReportQueue none(0);  // input-only units
  EXPECT_FALSE(none.Append(Report(1, 1), ReportKind::Feature));
}

}  // namespace
}  // namespace drav
