// Files the writer must leave as the pilot has them: read-only, saved as UTF-16 by Notepad, absurdly
// large; and a DRAV.INI that is a link to a file shared with another installation. Each refusal is
// written to the plug-in's log and to X-Plane's Log.txt.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>

#include "PluginFolderSupport.h"
#include "base/IniFile.h"

namespace {

namespace fs = std::filesystem;

class IniFileGuardTest : public drav_test::PluginFolderTest {
 protected:
  IniFileGuardTest() : PluginFolderTest("iniguard") {}

  void SetUp() override {
    PluginFolderTest::SetUp();
    drav::CurrentDebugSwitches().DebugEnabled = 1;
  }

  static std::string Read(const char* section, const char* key) {
    return drav::ReadIniString(drav::kConfigFileName, section, key, "<default>");
  }
  static void Pick(const char* section, const char* key, const char* value) {
    drav::WriteIniValue(drav::kConfigFileName, section, key, value);
  }
  std::string IniBytes() const { return drav_test::ReadBytes(IniPath()).value_or("<no file>"); }
  std::string XPlaneLog() const {
    return drav_test::ReadBytes(PluginFolder().parent_path().parent_path().parent_path() / "Log.txt").value_or("");
  }
  bool NothingLeftBehind(const fs::path& folder) const {
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
      if (entry.path().string().ends_with("_TMP")) return false;
    }
    return true;
  }
  // Both logs hold a line with every one of the texts.
  void ExpectReported(std::initializer_list<const char*> texts) const {
    for (const std::string& log : {LogText(), XPlaneLog()}) {
      for (const char* text : texts) EXPECT_NE(log.find(text), std::string::npos) << text << " in\n" << log;
    }
  }
};

// UTF-16 with its byte-order mark, as Notepad's "Unicode" (little end first) and "Unicode big
// endian" save it.
std::string Utf16(const std::u16string& text, bool bigEndian) {
  std::string bytes = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
  for (char16_t unit : text) {
    const char high = static_cast<char>(unit >> 8);
    const char low = static_cast<char>(unit & 0xFF);
    bytes += bigEndian ? high : low;
    bytes += bigEndian ? low : high;
  }
  return bytes;
}

TEST_F(IniFileGuardTest, ReadOnlyFileIsNeverReplacedAndThePickSaysSo) {
  const std::string file = "[GFP8_1]\r\nFunction1=TAXI_LTS\r\n";
  GivenIni(file);
  const fs::perms readOnly = fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read;
  fs::permissions(IniPath(), readOnly);

  Pick("GFP8_1", "Function1", "PITOT_HEAT");

  EXPECT_EQ(IniBytes(), file);
  EXPECT_EQ(fs::status(IniPath()).permissions() & fs::perms::owner_write, fs::perms::none) << "still read-only";
  EXPECT_EQ(Read("GFP8_1", "Function1"), "TAXI_LTS");
  EXPECT_TRUE(NothingLeftBehind(PluginFolder()));
  ExpectReported({"DRAV.INI is read-only; [GFP8_1] Function1 is not stored"});
  fs::permissions(IniPath(), fs::perms::owner_write, fs::perm_options::add);
}

#ifndef _WIN32
TEST_F(IniFileGuardTest, RewrittenFileKeepsItsPermissions) {
  GivenIni("[GFP8_1]\r\nFunction1=TAXI_LTS\r\n");
  const fs::perms ownerOnly = fs::perms::owner_read | fs::perms::owner_write;
  fs::permissions(IniPath(), ownerOnly);
  Pick("GFP8_1", "Function1", "PITOT_HEAT");
  EXPECT_EQ(Read("GFP8_1", "Function1"), "PITOT_HEAT");
  EXPECT_EQ(fs::status(IniPath()).permissions(), ownerOnly);
}
#endif

TEST_F(IniFileGuardTest, LinkedFileIsRewrittenAtItsTargetAndTheLinkStays) {
  const fs::path shared = PluginFolder().parent_path() / "shared";
  fs::create_directories(shared / "config");
  const fs::path target = shared / "config" / "DRAV.INI";
  drav_test::WriteBytes(target, "[GFP8_1]\r\nFunction1=TAXI_LTS\r\n");
  // A relative link to a second link, which names the file itself.
  std::error_code error;
  fs::create_symlink(target, shared / "DRAV.INI", error);
  if (!error) fs::create_symlink(fs::path("..") / "shared" / "DRAV.INI", IniPath(), error);
  if (error) GTEST_SKIP() << "links cannot be made here: " << error.message();

  Pick("GFP8_1", "Function1", "PITOT_HEAT");
  Pick("GFP8_2", "Function2", "BEACON_LTS");

  EXPECT_TRUE(fs::is_symlink(fs::symlink_status(IniPath())));
  EXPECT_TRUE(fs::is_symlink(fs::symlink_status(shared / "DRAV.INI")));
  EXPECT_EQ(drav_test::ReadBytes(target).value_or(""),
            "[GFP8_1]\r\nFunction1=PITOT_HEAT\r\n[GFP8_2]\r\nFunction2=BEACON_LTS\r\n");
  EXPECT_TRUE(NothingLeftBehind(PluginFolder()));
  EXPECT_TRUE(NothingLeftBehind(target.parent_path()));
}

// A link that leads round in a circle names no file: the write says it stored nothing and the
// link is left as the pilot made it.
TEST_F(IniFileGuardTest, ALinkInACircleStoresNothing) {
  std::error_code error;
  fs::create_symlink("DRAV.INI", IniPath(), error);
  if (error) GTEST_SKIP() << "links cannot be made here: " << error.message();
  EXPECT_FALSE(drav::WriteIniValueAtPath(IniPath().string(), "GFP8_1", "Function1", "PITOT_HEAT"));
  EXPECT_EQ(fs::read_symlink(IniPath(), error), fs::path("DRAV.INI"));
  EXPECT_EQ(Read("GFP8_1", "Function1"), "<default>");
}

TEST_F(IniFileGuardTest, Utf16FileIsReadAndNeverRewritten) {
  for (const bool bigEndian : {false, true}) {
    // A comment with a letter outside ASCII and one outside the 16-bit plane.
    const std::string file = Utf16(u"; Caf\u00e9 \U0001F6E9\r\n[GFP8_1]\r\nFunction1=TAXI_LTS\r\n"
                                   u"[CONFIG]\r\nElevatorTrimIncrement=0.25\r\n",
                                   bigEndian);
    GivenIni(file);
    EXPECT_EQ(Read("GFP8_1", "Function1"), "TAXI_LTS") << "big endian " << bigEndian;
    {
      const drav::IniReadSnapshot load;
      EXPECT_EQ(Read("CONFIG", "ElevatorTrimIncrement"), "0.25") << "big endian " << bigEndian;
    }
    Pick("GFP8_1", "Function1", "PITOT_HEAT");
    EXPECT_EQ(IniBytes(), file);
    EXPECT_TRUE(NothingLeftBehind(PluginFolder()));
  }
  ExpectReported({"DRAV.INI is saved as UTF-16 (Unicode)", "[GFP8_1] Function1 is not stored"});
}

TEST_F(IniFileGuardTest, FileOfExactly16MegabytesIsRead) {
  GivenIni("[GFP8_1]\r\nFunction1=TAXI_LTS\r\n");
  fs::resize_file(IniPath(), 16u << 20);
  EXPECT_EQ(Read("GFP8_1", "Function1"), "TAXI_LTS");
}

TEST_F(IniFileGuardTest, FileOver16MegabytesReadsAsAbsentAtOnceAndIsNeverRewritten) {
  const std::string head = "[CONFIG]\r\nRMK166EncoderType=2\r\n[GFP8_1]\r\nFunction1=TAXI_LTS\r\n";
  GivenIni(head);
  fs::resize_file(IniPath(), (16u << 20) + 1);  // the rest is NULs, written in no time

  const auto start = std::chrono::steady_clock::now();
  {
    const drav::IniReadSnapshot load;
    for (int key = 0; key < 200; ++key) EXPECT_EQ(Read("GFP8_1", "Function1"), "<default>");
  }
  EXPECT_EQ(Read("CONFIG", "RMK166EncoderType"), "<default>") << "also outside a load";
  // 201 scans of 16 MB would take seconds; not reading the file at all takes far less than one.
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(500));

  Pick("GFP8_1", "Function1", "PITOT_HEAT");
  EXPECT_EQ(fs::file_size(IniPath()), (16u << 20) + 1);
  EXPECT_EQ(IniBytes().substr(0, head.size()), head);
  EXPECT_TRUE(NothingLeftBehind(PluginFolder()));
  ExpectReported({"DRAV.INI is larger than 16 MB (16 MB): every section of it reads as absent",
                  "DRAV.INI is larger than 16 MB; [GFP8_1] Function1 is not stored"});
}

}  // namespace
