// The water table and wet density dialogs' checks, conversions and the derivation after them.
#include <gtest/gtest.h>

#include "core/common/file_access.h"
#include "core/editing/parameter_dialogs.h"
#include "core/io/dat_reader.h"
#include "support/test_support.h"

namespace marlview {
namespace {

class ParameterDialogTest : public ::testing::Test {
 protected:
  ParameterDialogTest() {
    t.data.Write("T.DAT", test::SimpleDat(100).Bytes());
    OpenDatSounding(*t.session, t.prompts, t.data.File("T.DAT"));
    t.session->SoundingOpen = true;
  }
  float Head(int r) {
    const SoundingStore& s = t.session->Sounding();
    return s.AlignedFixedPressure[2](r, s.HeadPressureChannel);
  }
  test::TestSession t;
};

TEST_F(ParameterDialogTest, WaterTableIsEnteredInTheUsersUnitAndRederived) {
  EXPECT_EQ(WaterTableDialogText(*t.session), "2.40");
  EXPECT_FALSE(ChangeWaterTableDepth(*t.session, "1,5", t.prompts));
  EXPECT_FALSE(ChangeWaterTableDepth(*t.session, "", t.prompts));
  EXPECT_EQ(t.prompts.Log(), (std::vector<std::string>{"! Please enter a valid depth", "! Please enter a valid depth"}));
  EXPECT_EQ(Head(100), 0) << "2 m lies above the water table of 2.40 m";
  ASSERT_TRUE(ChangeWaterTableDepth(*t.session, "1.5", t.prompts));
  EXPECT_NEAR(Head(100), 0.5 * 9.804, 1e-4);
  t.session->DepthUnitIsMetric = 0;
  ASSERT_TRUE(ChangeWaterTableDepth(*t.session, "3.2808399", t.prompts));
  EXPECT_NEAR(t.session->Sounding().WaterTableDepth, 1.0, 1e-6);
  EXPECT_EQ(WaterTableDialogText(*t.session), "3.28");
  SetWaterTableUndefined(*t.session);
  EXPECT_EQ(WaterTableDialogText(*t.session), "UNDEFINED");
  EXPECT_EQ(Head(100), 0);
}

TEST_F(ParameterDialogTest, WetDensityMustBePositiveAndMaySaveAsDefault) {
  EXPECT_FALSE(ChangeWetDensity(*t.session, "0", t.prompts));
  EXPECT_FALSE(ChangeWetDensity(*t.session, "heavy", t.prompts));
  EXPECT_EQ(t.prompts.Log().back(),
            "! Invalid soil density entry. Soil density must be a number greater than 0");
  t.prompts.Script({"No"});
  ASSERT_TRUE(ChangeWetDensity(*t.session, "110", t.prompts));
  EXPECT_FLOAT_EQ(t.session->general.SoilDensity, 110);
  EXPECT_FALSE(FileExists(t.session->SettingsPath("GENERAL SETTINGS.txt")));
  const SoundingStore& s = t.session->Sounding();
  EXPECT_FLOAT_EQ(s.AlignedFixedPressure[0](1, s.WetDensityChannel), 110);

  t.session->general.SoilDensityUnits = 1;
  EXPECT_EQ(WetDensityUnitText(*t.session), "(kg/m^3)");
  t.prompts.Script({"Yes"});
  ASSERT_TRUE(ChangeWetDensity(*t.session, "1922.2", t.prompts));
  EXPECT_NEAR(t.session->general.SoilDensity, 120, 1e-3);
  EXPECT_EQ(WetDensityDialogText(*t.session), "1922.2");
  EXPECT_EQ(t.prompts.Log().back(), "? SAVE WET DENSITY AS DEFAULT? -> Yes");
  EXPECT_NEAR(ReadGeneralSettings(ReadWholeFile(t.session->SettingsPath("GENERAL SETTINGS.txt"))).SoilDensity, 120,
              1e-3);
}

}  // namespace
}  // namespace marlview
