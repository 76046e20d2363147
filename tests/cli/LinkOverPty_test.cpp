// The built program links up with the built machine over a pseudo-terminal, on the real clock, with
// an operator script and with windows.
#include "cli/PtyBench.h"

#include <thread>

namespace {

using namespace tintbench::testing;

class LinkOverPty : public PtyTest {};

TEST_F(LinkOverPty, AnOperatorScriptSeesTheGoodLink) {
  const auto machine = StartMachine({"--firmware", "6.1"});
  EXPECT_EQ(Play("click frmSplsh\n"
                 "until Form1.Visible is \"-1\" within 60\n"
                 "expect Form1.MMnuSerPort.Caption is \"port1: 19200,N,8,1\"\n"
                 "expect Form1.MMnuLoadfirmw.Caption has \"current version = 6.1\"\n"
                 "expect Form1.LblLink.Caption is \"Machine linked, configuration known\"\n"),
            0)
      << Contents(Path("transcript"));
}

TEST_F(LinkOverPty, TheWindowsLinkUpToo) {
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  const auto machine = StartMachine();
  Child tool(Tool({"KSVDEBUG(15)"}), Path("output"));
  ASSERT_TRUE(WaitUntil([&] { return Contents(Path("data/ksvdebug.txt")).starts_with("#jf*: A"); }))
      << Contents(Path("output"));
  ASSERT_TRUE(WaitUntil([&] { return fs::exists(Path("data/CONFIGUR/DEFSLAVE.CFR")); }));
  EXPECT_NE(Contents(Path("data/CONFIGUR/DEFSLAVE.CFR")).find("@PDD 1"), std::string::npos);
  tool.Kill(SIGHUP);
  EXPECT_EQ(tool.Wait(), 0) << Contents(Path("output"));
}

// In the window of commands with a valve on: all is closed from the front window on.
TEST_F(LinkOverPty, AProgramToldToEndSwitchesOffAndLetsTheMachineGoOn) {
  const auto machine = StartMachine();
  std::ofstream(Path("script")) << "click frmSplsh\n"
                                   "until Form1.Visible is \"-1\" within 60\n"
                                   "click Form1.MnuMaint\n"
                                   "click Form1.MMnuMaint\n"
                                   "press F3\n"
                                   "wait 600\n";
  Child tool(Tool({"KSVDEBUG(15)", "--operator", Path("script")}), Path("transcript"));
  ASSERT_TRUE(
      WaitUntil([&] { return Contents(Path("transcript")).find("> wait") != std::string::npos; }));
  tool.Kill(SIGTERM);
  EXPECT_EQ(tool.Wait(), 2);
  const std::string talk = Contents(Path("data/ksvdebug.txt"));
  EXPECT_TRUE(talk.ends_with("#a01*: A01\r\n#z*: A\r\n#pr*: A\r\n#ps*: A\r\n")) << talk;
}

TEST_F(LinkOverPty, ASecondCopyKeepsOutOfTheFolderAndAKilledOneLeavesItFree) {
  std::ofstream(Path("long")) << "wait 600\n";
  std::ofstream(Path("short")) << "until Form1.Visible is \"-1\" within 60\n";
  const auto demo = [this](const std::string& script) {
    return std::vector<std::string>{TINTBENCH_PROGRAM, "--demo",     "--data-dir",
                                    Path("data"),      "--operator", Path(script)};
  };
  Child first(demo("long"), Path("first"));
  ASSERT_TRUE(WaitUntil([&] { return fs::exists(Path("data/tintbench.lock")); }));
  EXPECT_EQ(Child(demo("short"), Path("second")).Wait(), 2);
  const std::string said = Contents(Path("second"));
  EXPECT_NE(said.find("process " + std::to_string(first.Id())), std::string::npos) << said;
  EXPECT_NE(said.find("--data-dir"), std::string::npos) << said;
  first.Kill();
  first.Wait();
  EXPECT_EQ(Child(demo("short"), Path("third")).Wait(), 0) << Contents(Path("third"));
}

TEST_F(LinkOverPty, AMachineThatDiesInTheTransferLeavesADefinedState) {
  const auto machine = StartMachine();
  std::thread killer([&] {
    if (WaitUntil([&] { return fs::exists(Path("data/TMP.TMP")); })) machine->Kill();
  });
  EXPECT_EQ(Play("answer OK has \"BUT IT WAS IMPOSSIBLE TO READ THE MACHINE CONFIGURATION !!\"\n"
                 "until Form1.Visible is \"-1\" within 60\n"),
            0)
      << Contents(Path("transcript"));
  killer.join();
  const std::string said = Contents(Path("transcript"));
  EXPECT_NE(said.find("was lost: check the adapter"), std::string::npos) << said;
  EXPECT_FALSE(fs::exists(Path("data/CONFIGUR/DEFSLAVE.CFR")));
}

}  // namespace
