// The decoders of the machine's answers, on panels without a screen.
#include "state/StateDecoder.h"

#include <gtest/gtest.h>

#include <string>

namespace tintbench::state {

namespace {

// Panels of a machine whose connectors 1 and 20 and all fixed bits are named.
class Decoding : public ::testing::Test {
 protected:
  explicit Decoding(const std::string& window = "Form1") : form(window) {
    facts.ConnectorSensors[1] = 1;
    facts.ConnectorSensors[20] = 5;
    names = BuildSensorNames(true, facts, selectors);
    RebuildAllPanels(panels, styles, names);
  }

  // Values of the inputs in use, from bit 0; "-" for one that is disabled.
  std::string Inputs() {
    std::string states;
    for (int bit = 0; bit < kInputBits; ++bit) {
      const ui::CheckBox& box = panels.ICheck1(bit);
      if (box.Tag->empty()) continue;
      states += box.Enabled ? std::to_string(box.Value) : "-";
    }
    return states;
  }
  std::string Outputs() {
    std::string states;
    for (int output = 0; output < kOutputBits; ++output) {
      const ui::CheckBox& box = panels.OCheck2(output);
      if (box.Tag->empty()) continue;
      states += box.Enabled ? std::to_string(box.Value) : "-";
    }
    return states;
  }

  config::MachineFacts facts;
  config::SelectorCatalogue selectors;
  SensorNames names;
  ErrorTable errors;
  PanelStyles styles;
  ui::Form form;
  SensorPanels panels{form};
  int firmware = 5;
  StateDecoder decoder{names, errors, [this] { return firmware; }};
};

TEST_F(Decoding, InputsByBitAndLevel) {
  struct Case {
    const char* Answer;
    bool Good;
    const char* States;  // connectors 1 and 20, four drivers, four switches
    const char* Words;
  };
  const Case cases[] = {
      {"AF0FFFFF", false, "----------", "[ INVALID DATA ]"},
      {"A00000000", true, "1100000000", "Slave Address =16"},
      {"AFFFFFFFF", true, "0011111111", "Slave Address =15"},
      {"", false, "----------", "[ INVALID DATA ]"},
      {"AFFFFFFFF", true, "0011111111", "Slave Address =15"},
      {"a01ffffff", true, "0011110000", "Slave Address =1"},
      {"A81FFFFFE", true, "1011110001", "Slave Address =1"},
      {"A1117FFFF", true, "0110001000", "Slave Address =1"},
      {"AGZGGGGGG", true, "0000000000", "Slave Address =16"},
      {"N00000000", false, "----------", "[ INVALID DATA ]"},
      {"A000000000", false, "----------", "[ INVALID DATA ]"},
  };
  for (const Case& wanted : cases) {
    SCOPED_TRACE(wanted.Answer);
    EXPECT_EQ(decoder.DecodeInputs(panels, wanted.Answer), wanted.Good);
    EXPECT_EQ(Inputs(), wanted.States);
    EXPECT_EQ(panels.ILabel1.Caption.Get(), wanted.Words);
  }
}

TEST_F(Decoding, CardTakesTheColoursAndPairsTheOpposite) {
  decoder.DecodeInputs(panels, "A80FFFFFE");
  EXPECT_EQ(panels.GRShape1(0).FillColor.Get(), kActiveColour);
  EXPECT_EQ(panels.GRShape1(0).Sign.Get(), kActiveSign);
  EXPECT_EQ(panels.GRShape1(19).FillColor.Get(), kInactiveColour);
  EXPECT_EQ(panels.IShape3(0).FillColor.Get(), kActiveColour);
  EXPECT_EQ(panels.ICheck2(19).BackColor.Get(), kInactiveColour);
  EXPECT_EQ(panels.GRShape2(7).FillColor.Get(), kActiveColour);
  EXPECT_EQ(panels.GRShape2(6).FillColor.Get(), kInactiveColour);
  EXPECT_EQ(panels.GRShape2(1).FillColor.Get(), kInactiveColour);
  EXPECT_EQ(panels.GRShape2(0).FillColor.Get(), kActiveColour);
  EXPECT_EQ(panels.GRShape2(7).Tag.Get(), "Dip_switch[ 4 ] firmware loading [ ON ]");
  EXPECT_EQ(panels.GRShape2(6).Tag.Get(), "Dip_switch[ 4 ] firmware loading [ OFF ]");
  decoder.DecodeInputs(panels, "");
  for (const int lamp : {6, 7}) EXPECT_EQ(panels.GRShape2(lamp).FillColor.Get(), kNoDataColour);
  EXPECT_EQ(panels.GRShape1(0).FillColor.Get(), kNoDataColour);
  EXPECT_EQ(panels.GRShape1(0).Sign.Get(), "");
}

TEST_F(Decoding, OutputsFromTheUpperByte) {
  struct Case {
    const char* Answer;
    bool Good;
    const char* States;  // inverter, voltage of the valves, voltage of the modules
  };
  const Case cases[] = {{"A0100", true, "100"}, {"A1000", true, "010"},  {"a2000", true, "001"},
                        {"A20", false, "---"},  {"A2000", true, "001"},  {"A00FF", true, "000"},
                        {"", false, "---"},     {"N0000", false, "---"}, {"AG000", true, "000"},
                        {"AFF00", true, "111"}};
  for (const Case& wanted : cases) {
    SCOPED_TRACE(wanted.Answer);
    EXPECT_EQ(decoder.DecodeOutputs(panels, wanted.Answer), wanted.Good);
    EXPECT_EQ(Outputs(), wanted.States);
    EXPECT_EQ(panels.OLabel1.Caption.Get(), wanted.Good ? "" : "[ INVALID DATA ]");
    const ui::Colour lamp = panels.GRShape1(20).FillColor;
    EXPECT_EQ(lamp == kNoDataColour, !wanted.Good);
  }
}

TEST_F(Decoding, LifeSignsMoveAtEveryAnswer) {
  for (const char* answer : {"A00000000", "A00000000", "", "", "x"}) {
    const bool before = panels.IpShape1.Visible;
    decoder.DecodeInputs(panels, answer);
    decoder.DecodeOutputs(panels, answer);
    decoder.DecodeStatus(panels, answer);
    for (const auto* sign : {&panels.IpShape1, &panels.OpShape1, &panels.ErpShape1}) {
      EXPECT_EQ(sign->Visible.Get(), !before);
    }
    EXPECT_NE(panels.IpShape1.Visible.Get(), panels.IpShape2.Visible.Get());
  }
}

class Redraws final : public ui::Observer {
 public:
  explicit Redraws(ui::PropertyOwner& owner) : owner_(owner) { owner.AddObserver(*this); }
  ~Redraws() override { owner_.RemoveObserver(*this); }
  Redraws(const Redraws&) = delete;
  Redraws& operator=(const Redraws&) = delete;
  int Count = 0;
  void PropertyChanged(const ui::PropertyBase&) override { ++Count; }
  void RefreshWanted() override { ++Count; }

 private:
  ui::PropertyOwner& owner_;
};

TEST_F(Decoding, TheSameAnswerDrawsNothingUntilItIsForgotten) {
  decoder.DecodeInputs(panels, "A00000000");
  Redraws card(panels.Frame(kCardPanel));
  Redraws box(panels.ICheck1(0));
  decoder.DecodeInputs(panels, "A00000000");
  EXPECT_EQ(card.Count + box.Count, 0);
  decoder.ClearLastAnswers();
  decoder.DecodeInputs(panels, "A00000000");
  EXPECT_EQ(card.Count, 1);
}

TEST_F(Decoding, StatusTellsErrorsInWords) {
  struct Case {
    int Firmware;
    const char* Answer;
    const char* Words;
    const char* Errors;
  };
  const Case cases[] = {
      {5, "N00", "Slave NO busy: errors = 0", ""},
      {5, "K021100", "Slave NO busy: errors = 2",
       "1100 Encoder damaged on motor-pump unit [ 0 ] \r\n  unknown\r\n"},
      {5, "E0170021103", "Slave NO busy: errors = 1", "7002 CPU error\r\n"},
      {5, "", "[ INVALID DATA ]", ""},
      {5, "Q017002", "[ INVALID DATA ]", ""},
      {5, "B017002", "Slave IS busy: errors = 1", "7002 CPU error\r\n"},
      {3, "B1017002", "Slave IS busy: errors = 1", "7002 CPU error\r\n"},
      {4, "B", "Slave IS busy: errors = 0", ""},
      {5, "KZZ", "Slave NO busy: errors = 0", ""},
      {3, "K017002", "Slave NO busy: errors = 1", "7002 CPU error\r\n"},
  };
  for (const Case& wanted : cases) {
    SCOPED_TRACE(wanted.Answer);
    firmware = wanted.Firmware;
    decoder.DecodeStatus(panels, wanted.Answer);
    EXPECT_EQ(panels.ErLabel1.Caption.Get(), wanted.Words);
    EXPECT_EQ(panels.ErText1.Text.Get(), wanted.Errors);
    EXPECT_TRUE(panels.ErText1.Enabled);
  }
}

TEST_F(Decoding, StylesShowOneKindOfControlEach) {
  for (const int style : {kButtonStyle, kLampStyle, kSquareStyle}) {
    styles.Sensor.Wanted = style;
    ApplyPanelStyle(panels, kInputPanel, styles, names);
    ApplyPanelStyle(panels, kOutputPanel, styles, names);
    EXPECT_EQ(styles.Sensor.Present, style);
    EXPECT_EQ(styles.Sensor.Wanted, 0);
    EXPECT_EQ(panels.ICheck1(0).Visible.Get(), style == kButtonStyle);
    EXPECT_EQ(panels.IShape3(19).Visible.Get(), style == kLampStyle);
    EXPECT_EQ(panels.OCheck2(4).Visible.Get(), style == kSquareStyle);
    EXPECT_TRUE(panels.ILabel3(0).Visible);
    EXPECT_FALSE(panels.ILabel3(1).Visible);
    EXPECT_EQ(panels.ICheck1(1).Tag.Get(), "");
    EXPECT_EQ(panels.OLabel3(5).Caption.Get(), "MODULE VOLTAGE");
  }
  styles.Graphic.Wanted = kRoundLamps;
  ApplyPanelStyle(panels, kCardPanel, styles, names);
  EXPECT_EQ(panels.GRShape1(0).Form.Get(), ui::kCircle);
  EXPECT_FALSE(panels.GRShape1(1).Visible);
}

TEST_F(Decoding, PointerNamesTheLampUnderIt) {
  const ui::Shape& lamp = panels.GRShape1(0);
  const double right = lamp.Left + lamp.Width;
  const double bottom = lamp.Top + lamp.Height;
  struct Case {
    double X, Y;
    const char* Words;
  };
  const Case cases[] = {{lamp.Left, lamp.Top, "CNM[1 ] shelf high"},
                        {right, bottom, "CNM[1 ] shelf high"},
                        {right + 0.5, bottom, "Machine version [-1]"},
                        {-1, -1, "Machine version [-1]"}};
  for (const Case& wanted : cases) {
    ShowSensorUnderPointer(panels, wanted.X, wanted.Y, "-1");
    EXPECT_EQ(panels.GRLabel1.Caption.Get(), wanted.Words);
  }
}

// No two lamps of the card may lie on each other, nor beyond its edge.
TEST_F(Decoding, LampsOfTheCardStandApart) {
  std::vector<const ui::Shape*> lamps;
  for (int i = 0; i < kInputBits; ++i) lamps.push_back(&panels.GRShape1(i));
  for (int i = 0; i < 2 * kPairs; ++i) lamps.push_back(&panels.GRShape2(i));
  for (const ui::Shape* one : lamps) {
    EXPECT_GE(std::min(one->Left.Get(), one->Top.Get()), 0);
    EXPECT_LE(one->Left + one->Width, panels.GRPicIOcard.ScaleWidth);
    EXPECT_LE(one->Top + one->Height, panels.GRPicIOcard.ScaleHeight);
    for (const ui::Shape* other : lamps) {
      const bool apart =
          one->Left + one->Width < other->Left || other->Left + other->Width < one->Left ||
          one->Top + one->Height < other->Top || other->Top + other->Height < one->Top;
      EXPECT_TRUE(one == other || apart) << one->FullName() << " " << other->FullName();
    }
  }
}

TEST_F(Decoding, FramesStandLowerBelowTitles) {
  panels.TopShift = kTitleShift;
  ApplyFrameSize(panels, kInputPanel, true);
  EXPECT_NEAR(panels.Frame(0).Top, kClientHeight * 5 / 96 + 200, 0.01);
  ApplyFrameSize(panels, kInputPanel, false);
  EXPECT_DOUBLE_EQ(panels.Frame(0).Top, 500);
  EXPECT_DOUBLE_EQ(panels.Frame(0).Left, 300);
  EXPECT_DOUBLE_EQ(panels.Frame(0).Width, kClientWidth - 600);
  EXPECT_DOUBLE_EQ(panels.Frame(0).Height, kClientHeight - 600);
}

}  // namespace

}  // namespace tintbench::state
