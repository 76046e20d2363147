// The window of transfers of the built program against the built machine, on the real clock.
#include "cli/PtyBench.h"

namespace {

using namespace tintbench::testing;

class TransferOverPty : public PtyTest {
 protected:
  // A script that opens one face, with these steps in it.
  static std::string Opening(const std::string& title, const std::string& item,
                             const std::string& steps) {
    return "click frmSplsh\nuntil Form1.Visible is \"-1\" within 60\nclick Form1." + title +
           "\nclick Form1." + item + "\n" + steps;
  }
  static std::string Configuration(const std::string& steps) {
    return Opening("MnuMachConf", "MMnuGetconf",
                   "click FormXmod.CommSel\nfile \"mine.cfr\"\n" + steps);
  }
};

TEST_F(TransferOverPty, AConfigurationIsReceivedChangedSentAndFoundAgainInTheMachine) {
  const auto machine = StartMachine();
  ASSERT_EQ(Play(Configuration("click FormXmod.CommRec\n"
                               "until FormXmod.LblEstat.Caption is \"FILE TRANSFER SUCCESSFUL\" "
                               "within 60\n"
                               "until FormXmod.CommSend.Enabled is \"-1\" within 60\n")),
            0)
      << Contents(Path("transcript"));
  const fs::path file = Path("data/CONFIGUR/mine.cfr");
  std::string text = Contents(file);
  const std::size_t label = text.find(",\"", text.find("@GEN 1 "));
  ASSERT_NE(label, std::string::npos);
  const std::size_t end = text.find('"', label + 2);
  text.replace(label, end - label + 1, ",\"CHANGED\"");
  text.resize(text.find_last_not_of('\x1A') + 1);
  std::ofstream(file, std::ios::binary) << text;
  EXPECT_EQ(Play(Configuration("tick FormXmod.OptBsize(1)\n"
                               "type FormXmod.Txtwait \"40\"\n"
                               "click FormXmod.CommSend\n"
                               "until FormXmod.LblCompare.Caption is "
                               "\"The machine runs what was sent: mine.cfr.\" within 120\n"
                               "until FormXmod.CommSend.Enabled is \"-1\" within 60\n")),
            0)
      << Contents(Path("transcript"));
  EXPECT_NE(Contents(Path("data/CONFIGUR/DEFSLAVE.CFR")).find("\"CHANGED\""), std::string::npos);
}

// A killed program neither sweeps up nor tells anybody; the next one does both.
TEST_F(TransferOverPty, AProgramKilledInTheMiddleOfALoadTellsOfItAtTheNextOpening) {
  const auto machine = StartMachine();
  std::ofstream(Path("data/new.rom")) << std::string(70000, 'x') << "\n"
                                      << "end\n";
  std::ofstream(Path("long")) << Opening("MnuMachConf", "MMnuLoadfirmw",
                                         "click FormXmod.CommSel1\nfile \"new.rom\"\n"
                                         "click FormXmod.CommSend\nanswer OK has \"ABORT\"\n"
                                         "wait 600\n");
  {
    Child tool(Tool({"--operator", Path("long")}), Path("first"));
    ASSERT_TRUE(WaitUntil([&] { return Contents(Path("data/FWLOAD.TXT")).starts_with("2,1,2,"); }))
        << Contents(Path("first"));
    tool.Kill();
  }
  EXPECT_TRUE(fs::exists(Path("data/_FW_.001")));
  EXPECT_EQ(Play(Opening("MnuMachConf", "MMnuLoadfirmw",
                         "expect FormXmod.LblBroken.Caption has "
                         "\"The load of new.rom stopped at part 1 of 2.\"\n"
                         "click FormXmod.CmdDismiss\n"
                         "expect FormXmod.FrmBroken.Visible is \"0\"\n")),
            0)
      << Contents(Path("transcript"));
  EXPECT_FALSE(fs::exists(Path("data/_FW_.000")));
  EXPECT_FALSE(fs::exists(Path("data/_FW_.001")));
  EXPECT_FALSE(fs::exists(Path("data/FWLOAD.TXT")));
}

}  // namespace
