#include "editor/ParameterEdit.h"

#include "base/Text.h"
#include "editor/Conflicts.h"
#include "editor/EditorBench.h"
#include "editor/HelpText.h"
#include "editor/ParameterMarks.h"
#include "editor/ParameterRows.h"

namespace tintbench::editor {
namespace {

TEST(ParameterEdit, RangesHoldTheirEdges) {
  struct {
    const char* Limits;
    std::vector<const char*> Good;
    std::vector<const char*> Bad;
  } const cases[] = {
      {".,1,64,16",
       {"1", "64", "1.5", "12abc", " 7"},
       {"0", "65", "0.99", "64.1", "", "abc", "-1"}},
      {".,0,99,0", {"", "abc", "0", "99"}, {"-0.1", "100", "1e3"}},
      {".,.,.,3", {"", "-5", "x"}, {}},
      {".,0,.,0", {"0", "1e9"}, {"-1"}},
      {".,c1,c3", {"a", "abc", "   "}, {"", "abcd"}},
      {".,C0,C2,", {"", "99"}, {"100"}},
      {".,,,", {"0", "x"}, {"1", "-1"}},
      {"EDGE_1,-2.5,2.5,.", {"-2.5", "2.5"}, {"-2.6", "2.51"}},
      {"0_1,.,.,.", {"FFFF", ""}, {}},
  };
  for (const auto& c : cases) {
    const config::LimitsString limits(c.Limits);
    for (const char* value : c.Good) EXPECT_TRUE(InRange(value, limits)) << c.Limits << value;
    for (const char* value : c.Bad) EXPECT_FALSE(InRange(value, limits)) << c.Limits << value;
  }
}

TEST(ParameterEdit, StoresWhatIsNotRefused) {
  ParameterEdit edit;
  edit.SetEditParms({.Value = "2", .Conflicts = "1,02,", .Limits = ".,0,9,0"});
  const struct {
    const char* Text;
    const char* Refusal;
    const char* Stored;
  } cases[] = {{" 3 ", "", "3"},
               {"10", "PARAMETER NOT IN RANGE", ""},
               {"2", "", "2"},
               {"02", "ELEMENT ALREADY EXISTING", ""},
               {"", "ELEMENT ALREADY EXISTING", ""}};
  for (const auto& c : cases) {
    EXPECT_EQ(RefusalText(edit.Save(c.Text)), c.Refusal) << c.Text;
    EXPECT_EQ(edit.GetEditedParm(), c.Stored);
    EXPECT_EQ(edit.OkStore(), *c.Refusal == '\0');
  }
  EXPECT_EQ(edit.Save("7"), SaveVerdict::kStored);
  edit.Discard();
  EXPECT_FALSE(edit.OkStore());
  EXPECT_TRUE(NotConflicting("", ""));
  EXPECT_FALSE(NotConflicting("", ","));
}

TEST(ParameterMarks, MasksAreFourDigits) {
  const struct {
    const char* Value;
    const char* Boxes;
    const char* Read;
  } cases[] = {
      {"8", "1000????????????", "8000"},     {"", "????????????????", "0000"},
      {"FFFF", "1111111111111111", "FFFF"},  {"0a1G", "000010100001????", "0A10"},
      {"12345", "0001001000110100", "1234"},
  };
  for (const auto& c : cases) {
    std::string boxes;
    for (const MaskMark mark : ShowMask(c.Value)) {
      boxes += mark == MaskMark::kUnknown ? '?' : mark == MaskMark::kSet ? '1' : '0';
    }
    EXPECT_EQ(boxes, c.Boxes) << c.Value;
    EXPECT_EQ(ReadMask(ShowMask(c.Value)), c.Read) << c.Value;
  }
  EXPECT_EQ(OtherMarkedBox(ShowMask("FFFF"), 0), 1);
  EXPECT_EQ(OtherMarkedBox(ShowMask("8"), 1), 0);
  EXPECT_EQ(OtherMarkedBox(ShowMask("8"), 0), -1);
}

TEST(ParameterMarks, AddressesAndFunctionsAreMarkedRows) {
  const struct {
    const char* Value;
    const char* Read;
  } addresses[] = {{"", ""},      {"0102FF", "0102"}, {"200A01", "010A20"},
                   {"211G1", ""}, {"0f1", "0F"},      {"0101", "01"}};
  for (const auto& c : addresses) {
    EXPECT_EQ(ReadGroupAddresses(ShowGroupAddresses(c.Value)), c.Read) << c.Value;
  }
  EXPECT_EQ(AddressRowTexts().front() + AddressRowTexts()[9] + AddressRowTexts().back(),
            " 1) group address 0110) group address 0A32) group address 20");

  const config::SelectorCatalogue selectors;
  const auto rows = FunctionRowTexts(selectors);
  ASSERT_EQ(rows.size(), 20U);
  EXPECT_TRUE(IsReservedRow(rows[17]));
  EXPECT_FALSE(IsReservedRow(rows[16]));
  const struct {
    std::string Value;
    std::string Read;
  } functions[] = {{"", std::string(20, '0')},
                   {"1x1", "101" + std::string(17, '0')},
                   {std::string(20, '1'), std::string(20, '1')},
                   {std::string(21, '1'), std::string(20, '0')}};
  for (const auto& c : functions) {
    EXPECT_EQ(ReadFunctionalities(ShowFunctionalities(c.Value, rows.size())), c.Read) << c.Value;
  }
}

TEST(ParameterMarks, ASelectorMarksTheRowOfItsValue) {
  const config::SelectorCatalogue selectors;
  const SelectorList list = ReadSelectorList(selectors, "6", "0");
  ASSERT_EQ(list.Items.size(), 11U);
  EXPECT_EQ(list.Items.front().Value, 15);
  EXPECT_EQ(list.Selected, 10);
  EXPECT_EQ(ReadSelectorList(selectors, "6", "00").Selected, -1);
  const auto help = base::SplitFields(PlcTimesHelp(selectors), base::kCrLf);
  ASSERT_EQ(help.size(), 37U);
  EXPECT_EQ(help[36], "Line [ 4 ]  DISPENSER_BUSY: ---> no associated time.");
}

class ParameterRows : public testing::EditorBench {
 protected:
  EditParms Parms(const TablePlace& at, int parameter) {
    return EditParmsOf(model_, catalogue_, {{at, 1}, parameter});
  }
  // The element's line once the value is stored.
  std::string Stored(const TablePlace& at, int parameter, const char* value) {
    const auto step = StoreParameter(model_, catalogue_, {{at, 1}, parameter}, value);
    if (!step) return "lost";
    EditingModel model = model_;
    model.Apply(*step);
    return std::string(model.ElementLine({at, 1}));
  }

  const TablePlace kOutputs{Group::kAdvanced, 6, 1};
  const TablePlace kInputs{Group::kIndustrial, 5, 1};
  EditingModel model_;
};

TEST_F(ParameterRows, RowsTellValuesAndWhatFillsEmptyOnes) {
  model_.Append(kGen, "16,,0,\"a\"");
  std::string rows;
  for (const int parameter : {1, 2, 4, 10}) {
    rows += RowText(model_, catalogue_, {{kGen, 1}, parameter}) + ";";
  }
  EXPECT_EQ(rows, "16;[empty] def=1;\"a\";[empty] def=\"\";");
  EXPECT_EQ(RowText(model_, catalogue_, {{kCircuits, 1}, 1}), "[empty] def=?");
  std::string values;
  for (const char* row : {"16", "\"a b\"", "\"", "\"\"", "a\"", "\"\"a\"\"", "[empty] def=\"\""}) {
    values += ListRowValue(std::string(kRowSign) + row) + ";";
  }
  EXPECT_EQ(values, "16;a b;;;a\";\"a\";[empty] def=\"\";");
}

TEST_F(ParameterRows, TheEditorIsToldWhatAValueBelongsTo) {
  model_.Append(kOutputs, "0,18,0001,3");
  model_.Append(kLines, "2,4,0002,10");
  model_.Append(kInputs, "1,0,\"BAR\",0,10,5,1,8");
  const struct {
    TablePlace At;
    int Parameter;
    const char* Auxiliary;
  } cases[] = {
      {kGen, 1, ""},
      {kOutputs, 3, "BRIXEL2 card address associated ( invalid=7 )=3;=;"},
      {kLines, 4,
       "PLC-line type = END_FORMULA  [see table]=2;"
       "Brixel2 address for the PLC-line ( 0..6, 8..15, 7=invalid )=4;"},
      {kLines, 1, ""},
      {kInputs, 8, "Unit of measure=BAR;"},
      {kInputs, 10, "Check of compared edge ( 0=check_disabled, 1=check_enabled )=;"},
  };
  for (const auto& c : cases) {
    std::string shown;
    for (const auto& [label, value] : Parms(c.At, c.Parameter).Auxiliary) {
      shown += label + "=" + value + ";";
    }
    EXPECT_EQ(shown, c.Auxiliary);
  }
  const EditParms unit = Parms(kInputs, 3);
  EXPECT_EQ(unit.Value + unit.Limits + unit.Selector + unit.Conflicts, "BAR.,c1,c3.");
  EXPECT_EQ(Parms(kGen, 10).Value, "");
}

TEST_F(ParameterRows, TextsKeepTheirQuotes) {
  model_.Append(kGen, "16,\"1\",,");
  model_.Append(kStirringTimes, "1");
  const struct {
    TablePlace At;
    int Parameter;
    const char* Value;
    const char* Line;
  } cases[] = {
      {kGen, 1, "5", "5,\"1\",,"},       {kGen, 2, "5", "16,\"5\",,"},
      {kGen, 3, "5", "16,\"1\",5,"},     {kGen, 4, "5", "16,\"1\",,5"},
      {kGen, 10, "5", "lost"},           {kGen, 1, "16", "lost"},
      {kGen, 1, "a,b", "a,b,\"1\",,"},   {kStirringTimes, 1, "", "lost"},
      {kStirringTimes, 1, "a|b", "a"},   {kInputs, 3, "BAR", ",,\"BAR\",,,,,,,,,"},
      {kInputs, 1, "4", "4,,,,,,,,,,,"}, {kInputs, 13, "4", ",,,,,,,,,,,"},
  };
  for (const auto& c : cases) EXPECT_EQ(Stored(c.At, c.Parameter, c.Value), c.Line) << c.Value;
}

TEST_F(ParameterRows, OnlyNumbersOfElementsInUseConflict) {
  EXPECT_EQ(GetConflicts(model_, kCircuits, 1), "");
  for (const char* line : {"1,x", "2,x", "03,x", ",x"}) model_.Append(kCircuits, line);
  model_.Append(kGen, "1,2");
  model_.Apply(*model_.RemovingOrResuming({kCircuits, 2}));
  EXPECT_EQ(GetConflicts(model_, kCircuits, 1), "1,03,,");
  EXPECT_EQ(GetConflicts(model_, kCircuits, 2), "");
  EXPECT_EQ(GetConflicts(model_, kGen, 1), "");
}

}  // namespace
}  // namespace tintbench::editor
