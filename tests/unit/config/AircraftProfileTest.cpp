// Which file a unit's assignments come from: the user's aircraft's DRAV.INI when a line of it opens
// the unit's section, else the plug-in's own; both read by the same rules and, during a load, from
// their indexes.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "PluginFolderSupport.h"
#include "config/AircraftProfile.h"
#include "base/IniFile.h"
#include "host/SimHost.h"

namespace {

using drav::ProfileFile;

class AircraftProfileTest : public drav_test::PluginFolderTest {
 protected:
  AircraftProfileTest() : PluginFolderTest("aircraftprofile") {}

  void SetUp() override {
    PluginFolderTest::SetUp();
    sim::SimHost::Current().SetUserAircraft("Aircraft/Test Jet/jet.acf");
    drav::RefreshAircraftProfile();
  }
  void TearDown() override {
    sim::SimHost::Current().Reset({});
    PluginFolderTest::TearDown();
  }

  std::filesystem::path AircraftIni() const {
    // In the separators of the system, as X-Plane reports its paths.
    return (sim::SimHost::Current().UserAircraftFile().parent_path() / "DRAV.INI").make_preferred();
  }
  void GivenAircraftIni(const std::string& bytes) const { drav_test::WriteBytes(AircraftIni(), bytes); }

  static std::string Read(const char* section, const char* key) {
    return drav::ReadProfileValue(section, key, "<default>");
  }
};

TEST_F(AircraftProfileTest, TheAircraftFileSuppliesTheWholeSectionsItHolds) {
  GivenIni("[GFP8_1]\r\nFunction1=global one\r\nFunction2=global two\r\n[GFT8_1]\r\nFunction1=global toggle\r\n");
  GivenAircraftIni("[GFP8_1]\r\nFunction1=aircraft one\r\n");
  EXPECT_EQ(drav::AircraftProfilePath(), AircraftIni().string());
  EXPECT_EQ(drav::SectionProfile("GFP8_1"), ProfileFile::kThisAircraft);
  EXPECT_EQ(Read("GFP8_1", "Function1"), "aircraft one");
  EXPECT_EQ(Read("GFP8_1", "Function2"), "<default>") << "a key the aircraft's section lacks is not the global one";
  EXPECT_EQ(drav::SectionProfile("GFT8_1"), ProfileFile::kAllAircraft);
  EXPECT_EQ(Read("GFT8_1", "Function1"), "global toggle");
  EXPECT_EQ(Read("GF46_1", "Function1"), "<default>") << "a section in neither file";
}

TEST_F(AircraftProfileTest, TheAircraftFileIsReadByTheSameRules) {
  GivenIni("[GF46_1]\r\nFunction1=global\r\n[GFP8_1]\r\nFunction1=global\r\n");
  // A bracketed name opens its section even in a comment; the first copy of a section counts.
  GivenAircraftIni("; was [GF46_1]\r\nFunction1=from the comment's section\r\n[GFP8_1]\r\nFunction1=first\r\n"
                   "[GFP8_1]\r\nFunction1=second\r\n");
  EXPECT_EQ(Read("GF46_1", "Function1"), "from the comment's section");
  EXPECT_EQ(Read("GFP8_1", "Function1"), "first");
  // A UTF-16 file (Notepad's "Unicode") is read converted.
  const std::string text = "[GFT8_1]\r\nFunction1=wide\r\n";
  std::string wide = "\xFF\xFE";
  for (char c : text) wide += std::string{c, '\0'};
  GivenAircraftIni(wide);
  EXPECT_EQ(drav::SectionProfile("GFT8_1"), ProfileFile::kThisAircraft);
  EXPECT_EQ(Read("GFT8_1", "Function1"), "wide");
  EXPECT_EQ(Read("GFP8_1", "Function1"), "global") << "sections the new file lacks fall back";
}

TEST_F(AircraftProfileTest, WithoutAnAircraftFileEverySectionIsTheGlobalOneAndNothingIsWritten) {
  GivenIni("[GFP8_1]\r\nFunction1=global\r\n");
  {
    const drav::ProfileReadSnapshot load;
    EXPECT_EQ(drav::SectionProfile("GFP8_1"), ProfileFile::kAllAircraft);
    EXPECT_EQ(Read("GFP8_1", "Function1"), "global");
  }
  EXPECT_FALSE(std::filesystem::exists(AircraftIni()));
}

TEST_F(AircraftProfileTest, ALoadReadsBothFilesFromTheirIndexes) {
  GivenIni("[GFT8_1]\r\nFunction1=global before\r\n");
  GivenAircraftIni("[GFP8_1]\r\nFunction1=aircraft before\r\n");
  {
    const drav::ProfileReadSnapshot load;
    GivenIni("[GFT8_1]\r\nFunction1=global after\r\n");
    GivenAircraftIni("[GFP8_1]\r\nFunction1=aircraft after\r\n[GFT8_1]\r\nFunction1=aircraft after\r\n");
    EXPECT_EQ(Read("GFP8_1", "Function1"), "aircraft before");
    EXPECT_EQ(Read("GFT8_1", "Function1"), "global before") << "the aircraft's index decides whose section it is";
    // A write through the reader refreshes that file's index, and with it whose section is whose.
    drav::WriteIniValueAtPath(AircraftIni().string(), "GFT8_1", "Function2", "written");
    EXPECT_EQ(Read("GFT8_1", "Function2"), "written");
    EXPECT_EQ(Read("GFT8_1", "Function1"), "aircraft after");
  }
  EXPECT_EQ(Read("GFP8_1", "Function1"), "aircraft after");
}

TEST_F(AircraftProfileTest, AnAircraftLoadedLaterIsFoundWhenAsked) {
  GivenAircraftIni("[GFP8_1]\r\nFunction1=jet\r\n");
  sim::SimHost::Current().SetUserAircraft("Aircraft/Glider/glider.acf");
  EXPECT_EQ(Read("GFP8_1", "Function1"), "jet") << "until the plug-in asks X-Plane again";
  drav::RefreshAircraftProfile();
  EXPECT_EQ(Read("GFP8_1", "Function1"), "<default>");
  EXPECT_EQ(drav::SectionProfile("GFP8_1"), ProfileFile::kAllAircraft);
}

}  // namespace
