#include "editor/ConfigDocument.h"

#include "editor/EditorBench.h"

namespace tintbench::editor {
namespace {

class Document : public testing::EditorBench {
 protected:
  Document() {
    Load("@GEN 1 24,12\n@TAP 1 01,2,200\n@TAP 1 02,3,200\n@TAP 2 09,3\n@FUN 1 10,\"11\"\n");
  }
  void Load(const std::string& content) {
    files_.Put("/a/m.cfg", content);
    document_.SetConfigName("/a/", "m", "cfg");
    ASSERT_TRUE(document_.LoadConfigFile());
  }
  std::string ChangesText() const {
    std::string text;
    for (const Change& change : document_.Changes()) {
      text += "VLAR"[static_cast<int>(change.Kind)] + std::to_string(change.At.Element.Element) +
              "." + std::to_string(change.At.Parameter) + " " + change.Old + ">" + change.New + ";";
    }
    return text;
  }
};

TEST_F(Document, AFileThatCannotBeReadLeavesAllAsItWas) {
  document_.StoreParameter({{kGen, 1}, 1}, "5");
  document_.SetConfigName("/a/", "none", "cfg");
  EXPECT_FALSE(document_.LoadConfigFile());
  EXPECT_EQ(ChangesText(), "V1.1 24>5;");
  EXPECT_TRUE(document_.CanUndo());
  Load("@GEN 1 1,2\n");
  EXPECT_FALSE(document_.CanUndo() || document_.CanRedo());
  EXPECT_EQ(ChangesText(), "");
}

TEST_F(Document, UndoAndRedoTellWhereTheyChanged) {
  EXPECT_FALSE(document_.Undo());
  document_.AddElement(kCaps);
  document_.RemoveOrResume({kCaps, 1});
  EXPECT_EQ(document_.Undo(), (ParameterPlace{{kCaps, 1}, 1}));
  EXPECT_EQ(document_.Undo(), (ParameterPlace{{kCaps, 3}, 1}));
  EXPECT_EQ(document_.Redo(), (ParameterPlace{{kCaps, 3}, 1}));
  document_.RemoveOrResume({kCaps, 2});
  EXPECT_FALSE(document_.Redo()) << "another edit ends what could be redone";
}

TEST_F(Document, EachChangeCanBeTakenBackByItself) {
  document_.StoreParameter({{kGen, 1}, 1}, "5");
  document_.StoreParameter({{kGen, 1}, 2}, "1,2");
  document_.StoreParameter({{kCaps, 1}, 2}, "4");
  document_.StoreParameter({{kCaps, 1}, 3}, "300");
  document_.RemoveOrResume({kCaps, 2});
  document_.AddElement(kCaps);
  document_.AddElement(kCaps);
  document_.RemoveOrResume({kCaps, 4});
  EXPECT_TRUE(document_.IsChanged({{kCaps, 1}, 2}));
  EXPECT_FALSE(document_.IsChanged({{kCaps, 1}, 1}));
  EXPECT_EQ(ChangesText(), "L1.1 24,12>5,1,2;V1.2 2>4;V1.3 200>300;R2.1 02,3,200>;A3.1 >,,,,,;");
  const char* const left[] = {"V1.2 2>4;V1.3 200>300;R2.1 02,3,200>;A3.1 >,,,,,;",
                              "V1.3 200>300;R2.1 02,3,200>;A3.1 >,,,,,;",
                              "R2.1 02,3,200>;A3.1 >,,,,,;", "A3.1 >,,,,,;", ""};
  for (const char* rest : left) {
    const Change first = document_.Changes().front();
    EXPECT_TRUE(document_.TakeBack(first));
    EXPECT_EQ(ChangesText(), rest);
    EXPECT_FALSE(document_.TakeBack(first));
  }
  document_.Undo();
  EXPECT_EQ(ChangesText(), "A3.1 >,,,,,;");
}

TEST_F(Document, FindsLettersInAllGroupsAndSlaves) {
  const auto found = [&](const char* letters, std::size_t most = 100) {
    const Findings findings = document_.Find(letters, 1, most);
    std::string text;
    for (const Finding& place : findings.Places) {
      text += "TDV"[static_cast<int>(place.In)] + place.Text + "@" +
              std::string(TableAt(place.At.Element.Table)->Tag) +
              std::to_string(place.At.Element.Table.Slave) + "." +
              std::to_string(place.At.Element.Element) + "." + std::to_string(place.At.Parameter) +
              ";";
    }
    return text + (findings.Cut ? "..." : "");
  };
  EXPECT_EQ(found(""), "");
  EXPECT_EQ(found("no such text"), "");
  EXPECT_EQ(found("@tap"), "T@TAP Caps@@TAP1.1.1;");
  EXPECT_EQ(found("PUNCHER HEIGHT"),
            "DPuncher height from shelf-lowest-position ( unit=mm, 0=missing )@@SGA1.1.13;");
  EXPECT_EQ(found("09"), "V09@@TAP2.1.1;");
  EXPECT_EQ(found("\"11"), "V\"11\"@@FUN1.1.2;");
  EXPECT_EQ(found("200"), "V200@@TAP1.1.3;V200@@TAP1.2.3;");
  EXPECT_EQ(found("200", 1), "V200@@TAP1.1.3;...");
  EXPECT_EQ(found("24,12"), "") << "what a comma parts is no value";
}

TEST_F(Document, ComparesElementsByTheirNumbers) {
  files_.Put("/a/other.cfm",
             "@GEN 1 24,13,,\n@TAP 1 3,x\n@TAP 1 1,2,200\n@TAP 1 1,5\n@TAP 2 09,3\n@TDA 1 0\n");
  document_.RemoveOrResume({kCaps, 2});
  EXPECT_TRUE(document_.Differences().empty());
  EXPECT_TRUE(document_.CompareWith("/a/other.cfm"));
  std::string text;
  for (const Difference& difference : document_.Differences()) {
    text += "VHT"[static_cast<int>(difference.Kind)] +
            std::string(TableAt(difference.At.Element.Table)->Tag) +
            std::to_string(difference.At.Element.Element) + "." +
            std::to_string(difference.At.Parameter) + " " + difference.Here + "|" +
            difference.There + ";";
  }
  EXPECT_EQ(text,
            "V@GEN1.2 12|13;V@TAP1.1 01|1;T@TAP1.1 |3,x;T@TAP3.1 |1,5;T@TDA1.1 |0;"
            "H@FUN1.1 10,\"11\"|;");
  const auto differences = document_.Differences();
  EXPECT_EQ(document_.TakeOver(differences[0]), SaveVerdict::kStored);
  EXPECT_EQ(document_.TakeOver(differences[1]), SaveVerdict::kStored);
  EXPECT_EQ(document_.TakeOver(differences[2]), std::nullopt);
  EXPECT_EQ(ChangesText(), "V1.2 12>13;V1.1 01>1;R2.1 02,3,200>;");
  Difference wrong = differences[0];
  wrong.There = "34";
  EXPECT_EQ(document_.TakeOver(wrong), SaveVerdict::kNotInRange);
  EXPECT_FALSE(document_.CompareWith("/a/none"));
  EXPECT_EQ(document_.Differences().size(), differences.size() - 2) << "the one before stays";
}

}  // namespace
}  // namespace tintbench::editor
