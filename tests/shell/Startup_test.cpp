// What the command line's keys and the settings file say, in all the ways that they are written;
// and the splash.
#include <gtest/gtest.h>

#include "shell/CommandLineKeys.h"
#include "shell/SettingsFile.h"
#include "shell/TestProgram.h"

namespace tintbench::shell {
namespace {

TEST(KeyLookup, FindsAKeyAnywhereInAnyCase) {
  struct KeyCase {
    std::string Line;
    std::string Key;
    std::string Value;
  };
  const std::vector<KeyCase> cases{
      {"", "PORT", ""},
      {"ksvdebug( 15 )", "KSVDEBUG", "15"},
      {"x ksvdebug   (15)port(2:9600,n,8,1)", "PORT", "2:9600,N,8,1"},
      {"KSVDEBUG x(15)", "KSVDEBUG", ""},
      {"KSVDEBUG", "KSVDEBUG", ""},
      {"KSVDEBUG(15", "KSVDEBUG", ""},
      {"KSVDEBUG)15(", "KSVDEBUG", ""},
      {"KSVDEBUG()", "KSVDEBUG", ""},
      {"PORT x PORT(3)", "PORT", ""},  // the first place decides
  };
  for (const KeyCase& wanted : cases) {
    EXPECT_EQ(KeyLookup(wanted.Line, wanted.Key), wanted.Value) << wanted.Line;
  }
}

TEST(SettingsFile, NamesTheSerialLine) {
  struct FileCase {
    std::string Content;
    std::string Mode;
  };
  const std::vector<FileCase> cases{
      {"", ""},
      {"\r\n", "SERVICE"},
      {"MASTER", "MASTER"},
      {"  serial ,  master , x\n", "MASTER"},
      {"% a comment\r\nSERIAL,MASTER\r\n", "MASTER"},
      {"SERIAL,OTHER", "SERVICE"},
      {"SERVICE\r\nMASTER\r\n", "SERVICE"},
      {"SERIAL\r\nMASTER", "MASTER"},
      {"MASTERS", "SERVICE"},
      {std::string("\0\xff\r\r\n", 5) + "MASTER", "MASTER"},
  };
  testing::ScratchFolder folder;
  base::StandardFileSystem files;
  EXPECT_EQ(ReadSerialMode(files, folder.Path("none")), "SERVICE");
  for (const FileCase& wanted : cases) {
    EXPECT_EQ(ReadSerialMode(files, folder.Put("file", wanted.Content)), wanted.Mode)
        << wanted.Content;
  }
}

TEST(DebugLevel, OfTheCommandLineShowsItsMenuAndOpensTheLog) {
  struct LevelCase {
    std::string Line;
    bool MenuShown;
    std::string Title;
    bool LogMade;
  };
  const std::vector<LevelCase> cases{
      {"", false, "&Debug Level [ - ]", false},
      {"KSVDEBUG(0)", false, "&Debug Level [ - ]", false},
      {"KSVDEBUG(15abc)", false, "&Debug Level [ - ]", false},
      {"KSVDEBUG(level)", false, "&Debug Level [ - ]", false},
      {"KSVDEBUG(7)", true, "&Debug Level [ 7 ] ", false},
      {"KSVDEBUG(15)", true, "&Debug Level [ 15 ] ", true},
      {"KSVDEBUG(5)", true, "&Debug Level [ 5 ] ", false},
      {"KSVDEBUG(99999999999999999999)", false, "&Debug Level [ - ]", false},
  };
  for (const LevelCase& wanted : cases) {
    SCOPED_TRACE(wanted.Line);
    testing::TestProgram test;
    test.Screen.OnMainWindow = [&] {
      EXPECT_EQ(test.MainWindow().MnuKsvdbg.Visible, wanted.MenuShown);
      EXPECT_EQ(test.MainWindow().MnuKsvdbg.Enabled, wanted.MenuShown);
      EXPECT_EQ(test.MainWindow().MnuKsvdbg.Caption.Get(), wanted.Title);
      EXPECT_EQ(test.MainWindow().Debug.FrmDbg.Visible, wanted.LogMade);
      EXPECT_EQ(test.MainWindow().MMnuksvdbgEdit.Caption.Get(),
                wanted.Title == "&Debug Level [ 5 ] " ? "Edit Level[ 5 ] " : "Edit Level[ - ]");
    };
    test.Run(wanted.Line);
    EXPECT_EQ(test.Files.FileExists(test.Folder.Path("ksvdebug.txt")), wanted.LogMade);
    EXPECT_EQ(test.Files.FileExists(test.Folder.Path("xmdebug.log")), wanted.Line == "KSVDEBUG(7)");
    EXPECT_EQ(test.Folder.Get("ksvdebug.txt"), wanted.LogMade ? "#jf*: A V 5.2\r\n" : "");
  }
}

TEST(Splash, StandsForEightSecondsFromItsShowing) {
  testing::TestProgram test;
  test.Screen.OnMainWindow = [&] { EXPECT_NEAR(test.Clock.Now(), 8.0, 0.01); };
  test.Run();
  testing::TestProgram silent;
  ASSERT_EQ(silent.Machine().Tell("fault silent"), "");
  // A link-up that takes longer shows the main window as soon as it is over.
  silent.Screen.OnMainWindow = [&] { EXPECT_NEAR(silent.Clock.Now(), 2 * 5.6, 0.1); };
  silent.Run();
}

TEST(Splash, ClosesAtAKeyOrAClick) {
  base::VirtualClock clock;
  testing::NotingScreen screen(clock);
  const base::AppIdentity identity = base::MakeIdentity("TintBench", "1.2.3");
  frmSplsh byKey(screen, identity);
  EXPECT_EQ(byKey.lblProductName.Caption.Get(), "TintBench");
  EXPECT_EQ(byKey.lblVersion.Caption.Get(), "Ver. 1.2");
  screen.Show(byKey);
  byKey.PressKey('A', 0);
  EXPECT_TRUE(byKey.SplashClosed);
  frmSplsh byClick(screen, identity);
  screen.Show(byClick);
  byClick.lblVersion.Press();
  EXPECT_TRUE(byClick.SplashClosed);
  EXPECT_FALSE(byClick.Visible);
}

}  // namespace
}  // namespace tintbench::shell
