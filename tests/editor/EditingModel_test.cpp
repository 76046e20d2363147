#include "editor/EditingModel.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

#include "base/Text.h"
#include "editor/EditorBench.h"
#include "editor/ParameterRows.h"

namespace tintbench::editor {
namespace {

// The same table told as the file tells it: all lines as one text, all states as another.
struct PlainCell {
  int Count = 0;
  std::string Lines;
  std::string States;

  void Add(const std::string& line) {
    Lines += line + "|";
    States += "0|";
    ++Count;
  }
  void RemoveOrResume(int element) {
    const bool removed = base::GetField(element, States, "|") == "1";
    const std::string states = base::SetField(element, removed ? "0" : "1", States, "|");
    if (element <= Count) States = states;
  }
  void Store(const TablePlace& at, int element, int parameter, const std::string& value) {
    if (Lines.empty()) {
      if (element != 1) return;
      Add(EmptyParms(at));
    }
    if (element > Count) return;
    const std::string line =
        base::SetField(parameter, value, base::GetField(element, Lines, "|"), ",");
    const std::string lines = base::SetField(element, line, Lines, "|");
    if (!line.empty() && !lines.empty()) Lines = lines;
  }
  friend bool operator==(const PlainCell&, const PlainCell&) = default;
};

class RandomEdits : public testing::EditorBench {
 protected:
  using PlainModel = std::map<TablePlace, PlainCell>;

  RandomEdits() {
    for (const TablePlace& at : kTables) plain_[at] = {};
  }

  int Pick(int most) { return std::uniform_int_distribution(0, most)(random_); }

  void Step() {
    const TablePlace at = kTables[static_cast<std::size_t>(Pick(3))];
    const int element = 1 + Pick(document_.Model().ElementCount(at));
    const int kind = Pick(9);
    if (kind == 0 && document_.CanUndo()) {
      document_.Undo();
      future_.push_back(std::move(plain_));
      plain_ = std::move(past_.back());
      past_.pop_back();
      return;
    }
    if (kind == 1 && document_.CanRedo()) {
      document_.Redo();
      past_.push_back(std::move(plain_));
      plain_ = std::move(future_.back());
      future_.pop_back();
      return;
    }
    Edit(at, element, kind);
  }

  void Edit(const TablePlace& at, int element, int kind) {
    const PlainModel before = plain_;
    bool done = false;
    if (kind <= 2 && plain_[at].Count < 12) {
      done = document_.AddElement(at);
      plain_[at].Add(EmptyParms(at));
    } else if (kind <= 4) {
      done = document_.RemoveOrResume({at, element});
      plain_[at].RemoveOrResume(element);
    } else {
      const char* const values[] = {"", "1", "02", "a|b", "x,y", "7\"", "|", "-3.5"};
      const ParameterPlace place{{at, element}, 1 + Pick(TableAt(at)->Parameters)};
      const std::string value = values[Pick(7)];
      const std::string row = RowText(document_.Model(), catalogue_, place);
      done = document_.StoreParameter(place, value);
      plain_[at].Store(at, element, place.Parameter, QuotedLike(row, value));
    }
    ASSERT_EQ(done, plain_ != before);
    if (!done) return;
    past_.push_back(before);
    future_.clear();
  }

  void ExpectSame(const EditingModel& model) {
    for (const TablePlace& at : kTables) {
      const PlainCell& plain = plain_[at];
      ASSERT_EQ(model.ElementCount(at), plain.Count);
      for (int element = 1; element <= plain.Count; ++element) {
        ASSERT_EQ(model.ElementLine({at, element}), base::GetField(element, plain.Lines, "|"));
        ASSERT_EQ(model.IsRemoved({at, element}),
                  base::GetField(element, plain.States, "|") == "1");
      }
    }
  }

  // What a file of the plain model gives back: the filled lines of slave 1 in use.
  void ExpectSameBehindAFile() {
    files_.Put("/a/x", "");
    ASSERT_TRUE(document_.WriteConfigFile("/a/saved.cfm").Result);
    document_.SetConfigName("/a/", "saved", "cfm");
    ASSERT_TRUE(document_.LoadConfigFile());
    for (const TablePlace& at : kTables) {
      int kept = 0;
      for (int element = 1; element <= plain_[at].Count && at.Slave == 1; ++element) {
        const std::string line = base::GetField(element, plain_[at].Lines, "|");
        if (base::GetField(element, plain_[at].States, "|") == "1" || line.empty()) continue;
        EXPECT_EQ(document_.Model().ElementLine({at, ++kept}),
                  FillEmptyFields(catalogue_, at, line).Line);
      }
      EXPECT_EQ(document_.Model().ElementCount(at), kept);
    }
  }

  const TablePlace kTables[4] = {kCaps, kStirringTimes, kLines, {Group::kStandard, 3, 2}};
  std::mt19937 random_{20261123};
  PlainModel plain_;
  std::vector<PlainModel> past_;
  std::vector<PlainModel> future_;
};

TEST_F(RandomEdits, AreThoseOfThePlainModelAndOutliveTheirFile) {
  for (int step = 0; step < 10000 && !HasFatalFailure(); ++step) {
    Step();
    if (step % 50 == 0) ExpectSame(document_.Model());
  }
  ExpectSame(document_.Model());
  ASSERT_GT(past_.size(), 1000U);
  ExpectSameBehindAFile();
}

}  // namespace
}  // namespace tintbench::editor
