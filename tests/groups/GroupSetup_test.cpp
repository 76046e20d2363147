// How the rows of a group come out of its records, good ones and each way of being unusable.
#include <gtest/gtest.h>

#include "groups/GroupBench.h"

namespace tintbench::testing {

TEST(GroupSetup, BuildsDigitalRows) {
  struct Case {
    const char* Record;
    const char* Caption;
    const char* Connector;
    const char* Enquiry;
    bool Offered;
    bool Function;
  };
  for (const Case& row : std::initializer_list<Case>{
           {"31,0,,,,,,|", "suction-pump motor disabling", "0", "#ig07031*", true, true},
           {" 38 , 12 ,,,,,,|", "tank reserve", "12", "#ig07038*", true, true},
           {"32,1,,,,,,|", "delivery-pump motor disabling", "1", "#ig07032*", true, false},
           {"31,,,,,,,|", "suction-pump motor disabling", "?", "", false, false},
           {"99,2,,,,,,|", "99 = UNKNOWN", "2", "", false, false},
           {",2,,,,,,|", "= UNKNOWN", "2", "", false, false},
           {"|", "= UNKNOWN", "?", "", false, false}}) {
    GroupBench bench;
    bench.Facts.GroupInputs[config::kDigitalInput][7] = row.Record;
    bench.Open();
    EXPECT_EQ(bench.Window.LblIdiDescr(0).Caption.Get(), row.Caption) << row.Record;
    EXPECT_EQ(bench.Window.LblCnIdi(0).Caption.Get(), row.Connector) << row.Record;
    EXPECT_EQ(bench.Window.TheGroup().Digital[0].Enquiry, row.Enquiry) << row.Record;
    EXPECT_EQ(bench.Window.ChkIdiOff(0).Tag.Get() == "1", row.Offered) << row.Record;
    EXPECT_EQ(bench.Window.ChkIdiXOff(0).IsUsable(), row.Function) << row.Record;
    EXPECT_EQ(bench.Window.FrmInputs(0).Enabled, row.Offered) << row.Record;
    EXPECT_FALSE(bench.Window.ChkIdiOff(1).Visible);
  }
}

TEST(GroupSetup, BuildsAnalogueRows) {
  struct Case {
    const char* Record;
    int Row;
    const char* Enquiry;
  };
  for (const Case& row : std::initializer_list<Case>{{"01,0,BAR,-1,3,-0.5,2.5,|", 0, "#ig07101*"},
                                                     {"2,3,BAR,0,10,0,10,|", 1, "#ig07102*"},
                                                     {"03,10,%,0,100,5,5,|", 2, "#ig07103*"},
                                                     {"01,4,BAR,-1,3,-0.5,2.5,|", 0, ""},
                                                     {"01,,BAR,-1,3,-0.5,2.5,|", 0, ""},
                                                     {"01,0,BAR,,3,-0.5,2.5,|", 0, ""},
                                                     {"01,0,BAR,-1,,-0.5,2.5,|", 0, ""},
                                                     {"01,0,BAR,-1,3,,2.5,|", 0, ""},
                                                     {"01,0,BAR,-1,3,-0.5,,|", 0, ""},
                                                     {"01,0,BAR,3,3,3,3,|", 0, ""},
                                                     {"01,0,BAR,-1,3,2.5,-0.5,|", 0, ""},
                                                     {"01,0,BAR,-1,3,-2,2.5,|", 0, ""},
                                                     {"01,0,BAR,-1,3,-0.5,4,|", 0, ""},
                                                     {"01,0,BAR,0,10,1,8,|01,9,,,,,,|", 0, ""},
                                                     {"05,0,BAR,0,10,1,8,|", 0, ""},
                                                     {"|,,,|", 0, ""}}) {
    GroupBench bench;
    bench.Facts.GroupInputs[config::kAnalogueInput][7] = row.Record;
    bench.Open();
    const bool usable = *row.Enquiry != '\0';
    const auto at = static_cast<std::size_t>(row.Row);
    EXPECT_EQ(bench.Window.TheGroup().Analogue.at(at).Enquiry, row.Enquiry) << row.Record;
    EXPECT_EQ(bench.Window.ChkIanOff(row.Row).IsUsable(), usable) << row.Record;
    EXPECT_EQ(bench.Window.LblCurr(row.Row).Enabled, usable) << row.Record;
  }
}

TEST(GroupSetup, AGroupWithoutElementsOffersNone) {
  GroupBench bench;
  bench.Facts.GroupElements[7] = {};
  bench.Open();
  for (const auto element : {groups::kCap, groups::kValve, groups::kStirring, groups::kMotor}) {
    EXPECT_FALSE(bench.Window.SwitchOf(element).On.Enabled);
    EXPECT_EQ(bench.Window.StateOf(element), groups::ElementState::Off);
  }
}

TEST(GroupSetup, TellsAnAddressThatIsNone) {
  struct Case {
    const char* Address;
    const char* Title;
    const char* Box;
  };
  for (const Case& row :
       {Case{"33", "UNKNOWN GROUP ( 33 )", "Group address( 33 ) error!\r\nPlease exit!"},
        Case{"0", "GROUP n. 0",
             "Some data are incorrect!\r\nPlease exit and check configuration "
             "parameters!"}}) {
    GroupBench bench;
    bench.Open(row.Address);
    EXPECT_EQ(bench.Window.Caption.Get(), row.Title);
    EXPECT_EQ(bench.Window.StatusBar1.Text.Get(), "Generic error! ");
    EXPECT_EQ(bench.Screen.Boxes.at(0).Text, row.Box);
    EXPECT_TRUE(bench.Close());
  }
}

// What one group leaves in the window isn't seen in the next.
TEST(GroupSetup, StartsAnewForEachGroup) {
  GroupBench bench;
  bench.Open();
  bench.Press(bench.Window.ChkIdiOff(0));
  EXPECT_TRUE(bench.Close());
  bench.Open("8");
  EXPECT_EQ(bench.Window.FrmInputs(1).Caption.Get(), "Suction Pressure[  ]");
  EXPECT_EQ(bench.Window.LblIdiDescr(0).Caption.Get(), "");
  EXPECT_EQ(bench.Window.ChkIdiOff(0).Value, ui::kUnchecked);
  EXPECT_TRUE(bench.Window.TxtEnqTime.Locked);
}

}  // namespace tintbench::testing
