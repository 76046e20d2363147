#include <gtest/gtest.h>

#include "transfer/TransferBench.h"

namespace {

using tintbench::testing::TransferBench;
using tintbench::testing::WireBlock;
namespace transfer = tintbench::transfer;
namespace ui = tintbench::ui;

constexpr const char* kImage = "/app/new image.rom";
constexpr const char* kRecord = "/app/FWLOAD.TXT";
const std::string kCancelled = std::string(8, '\x18') + std::string(8, '\x08');
const std::string kPart = "@IPS 1\r\nS1\r\n@EPS 1\r\n@PDD 1\r\n";

struct LoadBench : TransferBench {
  explicit LoadBench(const std::string& image, const char* firmware = "5.2")
      : TransferBench(transfer::kFirmwareFace) {
    Status.FirmwareVersion = firmware;
    if (!image.empty() || firmware[0] == '3') Files.Put(kImage, image);
    Facts.ExternalGroups = 2;
    Load();
    Window.TxtFile.Text = kImage;
  }
  bool Recorded() const { return Files.FileExists(kRecord); }
};

TEST(FirmwareLoad, CancelSendsNothingAndLeavesThePartsForTheNextTry) {
  LoadBench bench("S1\r\n");
  bench.Screen.Answers = {ui::Answer::Cancel};
  bench.Window.CommSend.Press();
  const auto boxes = bench.Boxes();
  ASSERT_EQ(boxes.size(), 2U);
  EXPECT_EQ(boxes[1], "ERROR [-1]\r\n\r\nTransfer file aborted !!!");
  EXPECT_TRUE(bench.Files.FileExists("/app/_FW_.000"));
  EXPECT_FALSE(bench.Recorded());
}

TEST(FirmwareLoad, AnImageThatCanNotBeCutHasNoBoxButTheResult) {
  for (const char* firmware : {"5.2", "3.0"}) {  // missing, empty
    LoadBench bench("", firmware);
    bench.Window.CommSend.Press();
    const auto boxes = bench.Boxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0], "ERROR [-1]\r\n\r\nTransfer file aborted !!!");
    EXPECT_EQ(bench.Window.LblProblem.IsShown(), firmware[0] == '5');
  }
}

TEST(FirmwareLoad, AGoodLoadDeletesItsPartsWaitsForFlashAndGroupsAndLinksUp) {
  LoadBench bench("S1\r\n");
  bench.Port.Wait(1.0).Reply("\x15").Expect(WireBlock(1, kPart)).Reply("\x06");
  bench.Port.Expect("\x04").Reply("\x06");
  const double start = bench.Clock.Now();
  bench.Window.CommSend.Press();
  EXPECT_EQ(bench.Boxes().size(), 2U);
  ASSERT_EQ(bench.Links.size(), 1U);
  EXPECT_NEAR(bench.LinkedAt[0] - start, 30 + 20, 1.0);
  EXPECT_FALSE(bench.Files.FileExists("/app/_FW_.000"));
  EXPECT_FALSE(bench.Recorded());
  EXPECT_EQ(bench.Window.TxtFile.Text.Get(), kImage);
  EXPECT_EQ(bench.Window.LblFwfile(2).Caption.Get(), "0");
}

TEST(FirmwareLoad, ABrokenOffLoadStillLeadsOutOfTheLoaderAndIsToldAtTheNextOpening) {
  for (const char* firmware : {"5.2", "3.0"}) {
    LoadBench bench("S1\r\n", firmware);
    bench.Port.Wait(1.0).Reply("\x18\x18").Expect(kCancelled);
    bench.Window.CommSend.Press();
    const auto boxes = bench.Boxes();
    ASSERT_EQ(boxes.size(), 3U);
    EXPECT_EQ(boxes[1].substr(0, 9), "Now, foll");
    EXPECT_EQ(boxes[2], "ERROR [3]\r\n\r\nTransfer file aborted !!!");
    EXPECT_TRUE(bench.Links.empty());
    EXPECT_TRUE(bench.Files.FileExists("/app/_FW_.000"));
    bench.Screen.Unload(bench.Window);
    bench.Load();
    EXPECT_TRUE(bench.Window.FrmBroken.IsShown());
    EXPECT_NE(bench.Window.LblBroken.Caption.Get().find("part 1 of 1 (ERROR [3])"),
              std::string::npos);
    bench.Window.CmdDismiss.Press();
    EXPECT_FALSE(bench.Window.FrmBroken.IsShown());
    EXPECT_FALSE(bench.Recorded());
  }
}

TEST(FirmwareLoad, ARecordOfAnyContentIsReadOrPassedOver) {
  for (const char* content :
       {"", ",,,", "9,9,9,9,x", "2,99999999999,-4,1e9,a,b", "\x01\xff,\n,,,,"}) {
    LoadBench bench("S1\r\n");
    bench.Screen.Unload(bench.Window);
    bench.Files.Put(kRecord, content);
    bench.Load();
    EXPECT_EQ(bench.Window.FrmBroken.IsShown(), !bench.Window.LblBroken.Caption->empty());
  }
}

}  // namespace
