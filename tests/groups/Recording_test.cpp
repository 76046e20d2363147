// The recording's lines byte for byte, its limit, and what a disk that fails does to it.
#include "groups/Recording.h"

#include <gtest/gtest.h>

#include "base/MemoryFileSystem.h"
#include "ui/NotingScreen.h"

namespace tintbench::groups {
namespace {

constexpr const char* kFolder = "/data/MGROUPS";
constexpr const char* kFile = "/data/MGROUPS/20261115.G07";

class RecordingTest : public ::testing::Test {
 protected:
  RecordingTest() {
    group_.Address = 7;
    group_.Text = "07";
    group_.Digital[1].Enabled = true;
    group_.Analogue[2].Enabled = true;
    window_.LblCap.Caption = "02";
    window_.LblValve.Caption = "03";
    window_.LblStirring.Caption = "04";
    window_.LblMotor.Caption = "05";
    window_.LblIdiDescr(1).Caption = "Door";
    window_.LblIdiDescr(1).ToolTipText = "sensor type = 32";
    window_.LblCnIdi(1).Caption = "1";
    window_.FrmInputs(3).Caption = "Level[ C ]";
    window_.FrmInputs(3).ToolTipText = "sensor type = LEVEL";
    window_.LblCnIan(2).Caption = "2";
    window_.ChkMemo.Click = [this] { record_.ChkMemo_Click(); };
    Open();
  }

  void Open() {
    record_.Load();
    record_.BuildSymbols();
  }
  void Record(bool on) { window_.ChkMemo.Value = on ? ui::kChecked : ui::kUnchecked; }
  // What the file holds behind `before` bytes.
  std::string Written(std::size_t before = 0) const { return files_.Get(kFile).substr(before); }
  std::size_t Size() const { return files_.Get(kFile).size(); }

  base::VirtualClock clock_{{2026, 11, 15, 9, 15, 2}};
  testing::NotingScreen screen_{clock_};
  testing::MemoryFileSystem files_;
  GroupWindow window_;
  Group group_;
  Recording record_{screen_, files_, kFolder, window_, group_};
};

TEST_F(RecordingTest, WritesHeaderAndMarksByteForByte) {
  const std::string stars(70, '*');
  const std::string dashes(70, '-');
  const std::string header =
      "'\r\n'" + stars +
      "\r\n'\r\n' HEADER\r\n'\r\n' MONITORING SESSION DESCRIPTION FOR GROUP[ 07 ]\r\n'\r\n"
      "' Symbols:\r\n"
      "' 1) symbol[ >) ] = command to machine\r\n"
      "' 2) symbol[ -) ] = enable/disable switch\r\n"
      "' 3) symbol[ =) ] = data value\r\n'\r\n"
      "' General commands and data:\r\n"
      "' >) Disp_cond = Verify dispensing conditions\r\n"
      "' -) START_REC = Start recording\r\n"
      "' -) END_REC = End recording\r\n"
      "' -) ENQ_ON = Enquire ON\r\n"
      "' -) ENQ_OFF = Enquire OFF\r\n"
      "' =) Enq_time[ msec. ] = Enquire time[ milliseconds ]\r\n"
      "' >) C_02_OPEN = Cap[ 02 ] OPEN\r\n"
      "' >) C_02_CLOSE = Cap[ 02 ] CLOSED\r\n"
      "' >) V_03_ON = Valve[ 03 ] ON\r\n"
      "' >) V_03_OFF = Valve[ 03 ] OFF\r\n"
      "' >) S_04_ON = Stirring[ 04 ] ON\r\n"
      "' >) S_04_OFF = Stirring[ 04 ] OFF\r\n"
      "' >) M_05_ON = Motor[ 05 ] ON\r\n"
      "' >) M_05_OFF = Motor[ 05 ] OFF\r\n"
      "' =) M_05_speed = Motor[ 05 ] speed\r\n'\r\n"
      "' Digital inputs:\r\n'\r\n"
      "' Door on connector[ 1 ], sensor type = 32\r\n"
      "' -) IDI_2_ON = digital input[ 1 ] enabled for enquiry\r\n"
      "' -) IDI_2_OFF = digital input[ 1 ] disabled for enquiry\r\n"
      "' >) IDI_2_ENQ = digital input[ 1 ] enquired\r\n"
      "' >) IDI_2_Xfun(1) = digital input[ 1 ] X_function set to 1\r\n"
      "' >) IDI_2_Xfun(0) = digital input[ 1 ] X_function set to 0\r\n'\r\n'\r\n"
      "' Analogical inputs:\r\n'\r\n"
      "' Level[ C ] on connector[ 2 ], sensor type = LEVEL\r\n"
      "' -) IAN_3_ON = analogical input[ 3 ] enabled for enquiry\r\n"
      "' -) IAN_3_OFF = analogical input[ 3 ] disabled for enquiry\r\n"
      "' >) IAN_3_ENQ = analogical input[ 3 ] enquired\r\n"
      "' >) IAN_3_Xfun(1) = analogical input[ 3 ] X_function set to 1\r\n"
      "' >) IAN_3_Xfun(0) = analogical input[ 3 ] X_function set to 0\r\n'\r\n'\r\n";
  const std::string start = "'" + dashes + "\r\n'\r\n09:15:02. -) START_REC\r\n'\r\n";
  const auto end = [&](const std::string& reason) {
    return "'\r\n09:15:02. -) END_REC" + reason + "\r\n'\r\n'" + dashes + "\r\n'\r\n";
  };
  Record(true);
  EXPECT_EQ(Written(), header + start);
  std::size_t before = Size();
  Record(false);
  EXPECT_EQ(Written(before), end(""));
  record_.WriteRecordLine("dropped, for no file is open");
  before = Size();
  Record(true);
  EXPECT_EQ(Written(before), start);
  before = Size();
  record_.Unload();
  EXPECT_EQ(Written(before), end("[ FORCED BY EXITING FROM GROUP MONITORING ]"));
  // A window that opens anew on the file describes its session anew.
  before = Size();
  Open();
  EXPECT_EQ(window_.ChkMemo.Value, ui::kUnchecked);
  Record(true);
  EXPECT_EQ(Written(before), header + start);
}

TEST_F(RecordingTest, KnowsTheSymbolOfEachInputInUse) {
  EXPECT_EQ(record_.Symbol(Mark::EnquiryTime), ". =) Enq_time[ msec. ]");
  EXPECT_EQ(record_.Symbol(Mark::MotorSpeed), ". =) M_05_speed");
  EXPECT_EQ(record_.InputSymbol(config::kDigitalInput, 1, InputMark::FunctionOn),
            ". >) IDI_2_Xfun(1)");
  EXPECT_EQ(record_.InputSymbol(config::kAnalogueInput, 2, InputMark::Off), ". -) IAN_3_OFF");
  EXPECT_EQ(record_.InputSymbol(config::kDigitalInput, 0, InputMark::On), "");
}

TEST_F(RecordingTest, KeepsItsLimit) {
  EXPECT_EQ(window_.ChkMemo.ToolTipText.Get(), kFile);
  EXPECT_EQ(window_.LblKb.ToolTipText.Get(), "MAX. FILE SIZE = 1000 kb");
  EXPECT_EQ(window_.LblKb.Caption.Get(), " 0");
  Record(true);
  record_.WriteRecordLine(std::string(5 * 1024, 'x'));
  record_.CheckFileSize(false);
  EXPECT_EQ(window_.ChkMemo.Value, ui::kChecked);
  const std::string exceeded = "09:15:02. FILE SIZE[ 6.6 kb ]  EXCEEDS MAX. LIMIT[ 6 kb ]";
  record_.SetLimitKb(6);
  EXPECT_EQ(window_.LblKb.Caption.Get(), " 6.6");
  EXPECT_EQ(window_.StatusBar1.Text.Get(), exceeded + ". FORCED END RECORDING!");
  EXPECT_NE(Written().find(exceeded + ". FORCED END RECORDING!\r\n'\r\n09:15:02. -) END_REC\r\n"),
            std::string::npos);
  EXPECT_EQ(window_.ChkMemo.Value, ui::kUnchecked);
  EXPECT_FALSE(window_.ChkMemo.Enabled);
  // Raised, but not far enough; no file is open any more.
  record_.SetLimitKb(6.7);
  EXPECT_FALSE(window_.ChkMemo.Enabled);
  EXPECT_EQ(window_.StatusBar1.Text->find("FORCED"), std::string::npos);
  record_.SetLimitKb(8);
  EXPECT_TRUE(window_.ChkMemo.Enabled);
  EXPECT_EQ(window_.StatusBar1.Text.Get(), "09:15:02. FILE SIZE MAX. LIMIT[ 8 kb ] INCREASED");
  // A limit of nothing blocks at once, and is the usual one again in the next window.
  record_.SetLimitKb(0);
  EXPECT_FALSE(window_.ChkMemo.Enabled);
  Open();
  EXPECT_TRUE(window_.ChkMemo.Enabled);
  EXPECT_EQ(record_.LimitKb(), 1000);
  files_.Put(kFile, std::string(1000 * 1024, 'x'));
  Open();
  EXPECT_FALSE(window_.ChkMemo.Enabled);
  EXPECT_EQ(window_.StatusBar1.Text.Get(),
            "09:15:02. FILE SIZE[ 1000 kb ]  EXCEEDS MAX. LIMIT[ 1000 kb ]");
}

TEST_F(RecordingTest, EndsWithAWholeLineWhicheverOperationFails) {
  for (int operation = 1;; ++operation) {
    SCOPED_TRACE("operation " + std::to_string(operation));
    files_.Put(kFile, "an older session, cut o");
    screen_.Boxes.clear();
    Open();
    files_.FailAt(operation);
    Record(true);
    for (int line = 0; line < 9; ++line) record_.WriteRecordLine("09:15:02. >) IAN_3_ENQ");
    if (window_.ChkMemo.Value == ui::kChecked) {
      Record(false);
    } else {
      // Told once: by a box to the hand that has just begun it, otherwise in the window.
      EXPECT_EQ(screen_.Boxes.size() + (window_.LblRecord.Caption->empty() ? 0 : 1), 1U);
      EXPECT_TRUE(window_.ChkMemo.Enabled);
    }
    const bool failed = files_.HasFailed();
    files_.FailAt(0);
    // The cutting off may have failed too; then the next opening ends the line.
    Record(true);
    Record(false);
    const std::string content = Written();
    EXPECT_EQ(content.substr(content.size() - 3), "'\r\n");
    for (std::size_t at = content.find('\n'); at != std::string::npos;
         at = content.find('\n', at + 1)) {
      EXPECT_EQ(content.at(at - 1), '\r');
    }
    if (!failed || operation > 400) break;
    EXPECT_EQ(content.find("_ENQ'"), std::string::npos);
  }
}

}  // namespace
}  // namespace tintbench::groups
