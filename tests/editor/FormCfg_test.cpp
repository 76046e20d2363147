// What a window of a configuration does when files fail it, and what it makes of strange ones.
#include "editor/FormCfg.h"

#include <algorithm>

#include "base/FailingFileSystem.h"
#include "base/MemoryFileSystem.h"
#include "base/ScratchFolder.h"
#include "ui/NotingScreen.h"

namespace tintbench::testing {
namespace {

using editor::FormCfg;
using editor::FormEdit;

// The window with all that it needs, on files of the test's choice.
struct CfgBench {
  CfgBench(base::FileSystem& files, const std::string& folder) : Paths(folder), Files(files) {}

  // True if the window has opened; it opens only with a file that it could read.
  bool Open(const std::string& folder, const std::string& stem, const std::string& extension) {
    Window.SetConfigName(folder, stem, extension);
    Screen.Load(Window);
    return Window.IsLoaded();
  }

  base::VirtualClock Clock{{2026, 3, 7, 9, 5, 2}};
  NotingScreen Screen{Clock};
  base::AppPaths Paths;
  base::FileSystem& Files;
  base::AppIdentity Identity = base::MakeIdentity("TintBench", "1.2.3");
  config::SelectorCatalogue Selectors;
  config::ParameterCatalogue Parameters{Selectors};
  FormEdit Editor{Screen, Selectors};
  FormCfg Window{{Screen, Files, Paths, Identity, Parameters, Editor}};
};

TEST(FormCfg, KeepsTheOldFileWholeAndTellsWhicheverOperationOfASaveFails) {
  const ScratchFolder folder;
  const std::string old = "@TAP 1 01,2,200,5,999,1\r\n";
  UnderEachDiskFault([&](FailingFileSystem& files) {
    const std::string path = folder.Put("old.cfm", old);
    CfgBench bench(files, folder.Path());
    if (bench.Open(folder.Path(), "old", "cfm")) {
      bench.Window.TabStripCfg(0).PressTab(3);
      bench.Window.CmdAdd.Press();
      bench.Screen.Paths = {path};
      bench.Screen.Answers = {ui::Answer::Yes};
      bench.Window.CmdSave.Press();
      EXPECT_FALSE(bench.Window.FrmWplease.Visible);
    }
    const std::string now = folder.Get("old.cfm");
    const bool isNew = now.starts_with("% Creation") && now.ends_with("@PDD 1\r\n");
    EXPECT_TRUE(now == old || isNew) << now;
    std::string told;
    for (const ui::Box& box : bench.Screen.Boxes) told += box.Text;
    if (files.HasFailed()) {
      EXPECT_NE(told.find("can't be "), std::string::npos) << told;
    }
    if (told.find("STORED") != std::string::npos) {
      EXPECT_TRUE(isNew);
    }
    if (!isNew && bench.Window.IsLoaded()) {
      EXPECT_EQ(bench.Window.LblUnsaved.Caption.Get(), "1 change not saved");
    }
    // With a disk that does nothing any more nothing can be tidied up.
    if (!files.Lasts) {
      EXPECT_EQ(files.List(folder.Path(), "*").size(), 1U);
    }
    std::filesystem::remove_all(folder.Path());
    std::filesystem::create_directories(folder.Path());
  });
}

TEST(FormCfg, OpensStrangeFilesOrRefusesThemInOneBox) {
  std::string many;
  for (int i = 0; i < 10000; ++i) many += "@CIR 1 " + std::to_string(i) + ",1\n";
  const struct {
    const char* Name;
    std::string Content;
    int Caps;  // tabs of the table of caps; 0 if the file is refused
  } cases[] = {
      {"empty", "", 1},
      {"a NUL", std::string("@TAP 1 0\0,2\n", 12), 1},
      {"a separator of lines", "@TAP 1 1,2|3,4\n@TAP 1 5,6\n", 2},
      {"too short and too long", "@TAP 1 1\n@TAP 1 2,,,,,,,,,,,\n@TAP 1 1,2,3\n", 3},
      {"slaves that don't exist", "@TAP 0 1,2\n@TAP 17 1,2\n@TAP x 1,2\n", 1},
      {"10000 elements of another table", many, 1},
      {"an endless line that is no data", std::string(5U << 20U, 'x'), 1},
      {"an endless data line", "@TAP 1 1," + std::string(5U << 20U, 'x'), 0},
  };
  for (const auto& file : cases) {
    SCOPED_TRACE(file.Name);
    MemoryFileSystem files;
    files.Put("/a/CONFIGUR/odd.cfm", file.Content);
    CfgBench bench(files, "/a");
    const bool open = bench.Open("/a/CONFIGUR/", "odd", "cfm");
    EXPECT_EQ(open, file.Caps > 0);
    EXPECT_EQ(bench.Screen.Boxes.size(), open ? 0U : 1U);
    if (!open) continue;
    bench.Window.TabStripCfg(0).PressTab(3);
    EXPECT_EQ(bench.Window.TabStripElem.TabCount(), file.Caps);
    bench.Window.TabStripCfg(0).PressTab(4);
    bench.Window.TxtElem.Text = "9999";
    bench.Window.CmdRemoveResume.Press();
    bench.Screen.Paths = {"/a/CONFIGUR/new.cfm"};
    bench.Window.CmdSave.Press();
    ASSERT_FALSE(bench.Screen.Boxes.empty());
    EXPECT_EQ(bench.Screen.Boxes[0].Text.substr(0, 27), "DATA SUCCESSFULLY STORED !!");
  }
}

}  // namespace
}  // namespace tintbench::testing
