// A log file that cannot be written: logging must lose its lines quietly (the simulator goes on)
// and pick up again once the file can be written. As root, a read-only file is still writable, so
// the log is also pointed at /dev/full, where every write fails whoever makes it.
#include <gtest/gtest.h>
#ifndef _WIN32
#include <unistd.h>
#endif

#include <cstdio>
#include <filesystem>
#include <string>

#include "../config/PluginFolderSupport.h"
#include "base/Log.h"

namespace {

// Whether permission bits stop this process writing: not for root, and a read-only folder on
// Windows does not stop files being made in it.
bool PermissionsStopWrites() {
#ifdef _WIN32
  return false;
#else
  return geteuid() != 0;
#endif
}

#ifdef _WIN32
const std::string kEnd = "\r\n";
#else
const std::string kEnd = "\n";
#endif

class LogFaultTest : public drav_test::PluginFolderTest {
 protected:
  LogFaultTest() : PluginFolderTest("logfault") {}
  void SetUp() override {
    PluginFolderTest::SetUp();
    drav::CurrentDebugSwitches().DebugEnabled = 1;
  }
};

TEST_F(LogFaultTest, LogOnAFullDeviceLosesLinesQuietlyAndRecovers) {
  if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "no /dev/full on this machine";
  std::filesystem::create_symlink("/dev/full", LogPath());
  for (int i = 0; i < 100; ++i) drav::LogLine("lost");
  drav::LogFormat("lost %d", 1);
  EXPECT_TRUE(std::filesystem::is_symlink(LogPath()));
  std::filesystem::remove(LogPath());
  drav::LogLine("kept");
  EXPECT_EQ(LogText(), "kept" + kEnd);
}

TEST_F(LogFaultTest, ReadOnlyLogFileIsLeftAsItWas) {
  if (!PermissionsStopWrites()) GTEST_SKIP() << "permissions do not stop this process";
  drav_test::WriteBytes(LogPath(), "old" + kEnd);
  using std::filesystem::perms;
  std::filesystem::permissions(LogPath(), perms::owner_read);
  drav::LogLine("lost");
  std::filesystem::permissions(LogPath(), perms::owner_read | perms::owner_write);
  EXPECT_EQ(LogText(), "old" + kEnd);
}

}  // namespace
