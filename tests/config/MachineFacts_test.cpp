#include "config/MachineFacts.h"

#include <gtest/gtest.h>

#include "base/FailingFileSystem.h"
#include "base/ScratchFolder.h"

namespace tintbench::config {
namespace {

using testing::FailingFileSystem;
using testing::ScratchFolder;

class Facts : public ::testing::Test {
 protected:
  bool Read(const std::string& content, int slave = 1) {
    return ExecuteConfigKnown(files_, folder_.Put("x.cfg", content), slave, facts_);
  }

  const ScratchFolder folder_;
  base::StandardFileSystem files_;
  MachineFacts facts_;
};

const std::string kMotor = "1,2,3,7,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22,";

TEST_F(Facts, BadLinesEndTheReading) {
  const std::string bad[] = {
      "@@@@ 1 x",
      "@CIR 1 0,1,0000,0,0,0,1",
      "@CIR 1 -1,1,0000,0,0,0,1",
      "@CIR 1 x,1,0000,0,0,0,1",
      "@CIR 1 1,1,0000,0,,0,1",
      "@CIR 1 1,1,0000,0,0,,1",
      "@CIR 1 1,1,0000,0,0,0,",
      "@TAP 1 0,2,0,10",
      "@TAP 1 1,,0,10",
      "@TAP 1 1,2,0,",
      "@MOT 1 0,2,3,7",
      "@MOT 1 1,2,3,",
      "@MOT 1 " + kMotor + ",24",
      "@AGI 1 0,1,2,3,4",
      "@AGI 1 1,1,2,3",
      "@GEN 1 1,2,3,4,5,1,7,8,9,\"L\"",
      "@GEN 1 1,2,3,4,5,1,7,8,9,,11",
      "@GEN 1 1,2,3,4,5,1,7,8,,\"L\",11",
      "@GEN 1 1,2,3,4,,1,7,8,9,\"L\",11",
      "@GEN 1 1,2,3,4,5,,7,8,9,\"L\",11",
      "@GEN 1 1,2,3,4,5,1,7,,9,\"L\",11",
      "@SGA 1 1,2,3,4,5,6,7,8,9",
      "@ILE 1 1,2,",
      "@IDI 1 31,5,0,0,\"010\"",
      "@IDI 1 31,5,0,0,\"00\"",
      "@IDI 1 31,5,0,0,\"0121\"",
      "@IDI 1 31,5,0,0,0G",
      "@IAN 1 1,2,3,4,5,6,7,8,9,10,11,FF",
      "@FUN 1 1,",
      "@IND 1 1,2",
      "@CIR 1 1,1,0,0,0,0," + std::string(5000, '1'),
  };
  for (const std::string& line : bad) {
    EXPECT_FALSE(Read("@AGI 1 5,0,0,0,9\r\n" + line + "\r\n@SGA 1 1,2,3,4,5,6,7,8,9,1\r\n"))
        << line;
    EXPECT_EQ(facts_.ElementLists[kStirrings], "") << line;
    EXPECT_EQ(facts_.GroupElements[9][kGroupStirring], "05") << line;
    EXPECT_FALSE(facts_.HasPuncher) << line;
  }
}

TEST_F(Facts, AFileThatCannotBeReadLeavesClearedFacts) {
  ASSERT_TRUE(Read("@SGA 1 1,2,3,4,5,6,7,8,9,1\n@ILE 1 9,0,4,0,0\n"));
  EXPECT_TRUE(facts_.HasPuncher);
  EXPECT_FALSE(ExecuteConfigKnown(files_, folder_.Path("missing"), 1, facts_));
  EXPECT_FALSE(facts_.HasPuncher);
  EXPECT_EQ(facts_.PhotocellConnector, -1);
  EXPECT_EQ(facts_.ConnectorSensors[4], 0);

  FailingFileSystem failing(2);
  EXPECT_FALSE(ExecuteConfigKnown(failing, folder_.Path("x.cfg"), 1, facts_));
  EXPECT_FALSE(facts_.HasPuncher);
}

// What was taken before the empty parameter has effect, what comes after it has not.
TEST_F(Facts, ABadLineHasEffectUpToItsFault) {
  EXPECT_FALSE(Read("@GEN 1 1,2,3,4,5,1,7,,9,\"LABEL\",2"));
  EXPECT_EQ(facts_.MonoPurgeLimit, 2);
  EXPECT_EQ(facts_.MaxValves, 9);
  EXPECT_EQ(facts_.CapCount, 5);
  EXPECT_TRUE(facts_.HasShelf);
  EXPECT_FALSE(Read("@GEN 1 1,2,3,4,5,1,7,8,9,\"LABEL\","));
  EXPECT_EQ(facts_.MonoPurgeLimit, 0);
  EXPECT_EQ(facts_.CapCount, 0);
  EXPECT_FALSE(Read("@CIR 1 3,1,0000,0,32,2,"));
  EXPECT_EQ(facts_.GroupElements[32][kGroupCircuit], "03");
  EXPECT_EQ(facts_.CircuitCapList, "02,");
  EXPECT_EQ(facts_.CircuitMotorList, "");
  EXPECT_FALSE(Read("@TAP 1 4,3,0,"));
  EXPECT_EQ(facts_.CapTypeList, "3,");
  EXPECT_EQ(facts_.CapThreePositionList, "04,");
  EXPECT_EQ(facts_.PoweredCapCount, 0);
}

TEST_F(Facts, DrawsAllFacts) {
  ASSERT_TRUE(
      Read("% header\r\n@ICS 1\r\n"
           "@GEN 1 3,2,1,0,4,1,0,2,16,\"PERLIA POMPE MONO\",4\r\n"
           "@SGA 1 1,2,3,4,5,6,7,8,9,1\r\n"
           "@TAP 1 01,3,0,12,0,0\r\n@TAP 1 2,0,0,7.5,0,0\r\n@TAP 1 3,15,0,0,0,0\r\n"
           "  @CIR    1   01,1,0000,0,0,1,1\r\n@cir 1 112,1,0000,0,7,0,2\r\n"
           "@MOT 1 " +
           kMotor +
           "600,24\r\n"
           "@AGI 1 5,0,0,0,7\r\n"
           "@ILE 1 9,0,4,0,0\r\n@ILE 1 22,0,5,0,0\r\n@ILE 1 21,0,20,0,0\r\n@ILE 1 3,0,21,0,0\r\n"
           "@IDI 1 31,5,0,0,\"0720\"\r\n@IDI 1 38,6,0,0,07\r\n@IDI 1 38,6,0,0,\"\"\r\n"
           "@IAN 1 2,1,\"bar\",0,10,6,1.5,9,9,10,11,\"0f\"\r\n"
           "@FUN 1 1,\"10100\"\r\n@FUN 1 33,\"1\"\r\n"
           "@IND 1 1,2,12.5\r\n"
           "@CIR 2 9,1,0000,0,0,1,1\r\n@XYZ 1 1,,2\r\n@TEL 1 \r\n@ECS 1\r\n@PDD 1\r\n"));
  EXPECT_EQ(facts_.ElementLists, (std::array<std::string, 4>{"01,12,", "01,02,03,", "01,", "05,"}));
  EXPECT_EQ(facts_.GroupElements[7], (std::array<std::string, 4>{"12", "05", "01", "10100"}));
  EXPECT_EQ(facts_.GroupElements[1], (std::array<std::string, 4>{}));
  EXPECT_EQ(facts_.GroupInputs[kDigitalInput][7], "31,5,,,,,,|38,6,,,,,,|");
  EXPECT_EQ(facts_.GroupInputs[kDigitalInput][32], "31,5,,,,,,|");
  EXPECT_EQ(facts_.GroupInputs[kAnalogueInput][15], "2,1,bar,0,10,1.5,9,|");
  EXPECT_EQ(facts_.ConnectorSensors[4], 9);
  EXPECT_EQ(facts_.ConnectorSensors[5], 0);
  EXPECT_EQ(facts_.ConnectorSensors[20], 21);
  EXPECT_EQ(facts_.PhotocellConnector, 4);
  EXPECT_EQ(facts_.MaxValves, 16);
  EXPECT_EQ(facts_.ExternalGroups, 2);
  EXPECT_EQ(facts_.CapCount, 4);
  EXPECT_TRUE(facts_.HasShelf && facts_.HasPuncher);
  EXPECT_EQ(facts_.MonoPurgeLimit, 4);
  EXPECT_EQ(facts_.MachineLabel, "PERLIA POMPE MONO");
  EXPECT_EQ(facts_.ValveTestTime, 600);
  EXPECT_EQ(facts_.ResetTimeout, 12.5);
  EXPECT_EQ(facts_.CircuitCapList, "01,00,");
  EXPECT_EQ(facts_.CircuitMotorList, "01,02,");
  EXPECT_EQ(facts_.CapTypeList, "3,0,15,");
  EXPECT_EQ(facts_.CapTimeList, "12,7.5,0,");
  EXPECT_EQ(facts_.CapThreePositionList, "01,");
  EXPECT_EQ(facts_.PoweredCapCount, 2);
}

TEST_F(Facts, ValuesOutOfRangeCountAsNone) {
  ASSERT_TRUE(
      Read("@GEN 1 1,2,3,4,99999999999,2,7,0,65,\"L\",5\n@CIR 1 1,1,0,0,33,0,0\n"
           "@MOT 1 " +
           kMotor + "500\n@MOT 1 " + kMotor + "601\n@@@@ 2 x\n@@@@ 1\n"));
  EXPECT_EQ(facts_.MonoPurgeLimit, 0);
  EXPECT_EQ(facts_.MaxValves, 0);
  EXPECT_EQ(facts_.ExternalGroups, 0);
  EXPECT_EQ(facts_.CapCount, 32767);
  EXPECT_FALSE(facts_.HasShelf);
  EXPECT_EQ(facts_.ValveTestTime, 0);
  for (const auto& group : facts_.GroupElements) EXPECT_EQ(group[kGroupCircuit], "");
  ASSERT_TRUE(Read("", 16));
  EXPECT_EQ(facts_.CapCount, 0);
}

}  // namespace
}  // namespace tintbench::config
