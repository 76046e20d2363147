// Forms as real windows: opening, closing, modal waits, boxes, menus, keys and the passing of time.
#include "qt/DesktopScreen.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include "qt/Boxes.h"
#include "qt/EndWatch.h"
#include "qt/EveryKind.h"

namespace tintbench::desktop {

namespace {

using Texts = std::vector<std::string>;

class Desktop : public testing::Test {
 protected:
  FormWindow& Window() { return *screen.WindowFor(form); }
  QAction& Action(const ui::Menu& menu) {
    return *Window().menuBar()->findChild<QAction*>(ToQt(menu.FullName()));
  }
  QAction* TitleOf(const ui::Menu& menu) {
    for (QAction* action : Window().menuBar()->actions()) {
      if (action->objectName() == ToQt(menu.FullName())) return action;
    }
    return nullptr;
  }
  // Runs `act` once events are served.
  static void Later(const std::function<void()>& act) { QTimer::singleShot(0, qApp, act); }
  void Show() {
    screen.Show(form);
    form.Told.clear();
  }

  base::RealClock clock;
  DesktopScreen screen{clock};
  EveryKind form;
};

TEST_F(Desktop, ShowsAWindowUnderItsName) {
  screen.Show(form);
  EXPECT_TRUE(Window().isVisible());
  EXPECT_EQ(Window().objectName(), "EveryKind");
  EXPECT_EQ(Window().windowTitle(), "Every kind");
  form.Caption = "[ other ]";
  EXPECT_EQ(Window().windowTitle(), "[ other ]");
  form.Foot.Text = "at the foot";
  EXPECT_EQ(Window().statusBar()->findChild<QLabel*>()->text(), "at the foot");
  screen.Hide(form);
  EXPECT_EQ(screen.WindowFor(form), nullptr);
  screen.Show(form);
  EXPECT_TRUE(Window().isVisible());
}

TEST_F(Desktop, CloseButtonIsARequest) {
  Show();
  form.Stays = true;
  Window().close();
  EXPECT_TRUE(Window().isVisible());
  form.Stays = false;
  Window().close();
  EXPECT_EQ(screen.WindowFor(form), nullptr);
  EXPECT_EQ(form.Told, (Texts{"unload", "unload"}));
}

TEST_F(Desktop, ModalWindowWaitsUntilItIsClosed) {
  ui::Form main("Main");
  screen.Show(main);
  FormWindow& below = *screen.WindowFor(main);
  below.resize(900, 700);
  form.Push.Click = [this] {
    screen.Unload(form);
    screen.DoEvents();
  };
  bool modal = false;
  Later([&] {
    modal = Window().windowModality() == Qt::ApplicationModal;
    EXPECT_EQ(Window().windowHandle()->transientParent(), below.windowHandle());
    EXPECT_EQ(Window().geometry(), below.geometry());
    EXPECT_TRUE(Window().windowFlags() & Qt::WindowMinMaxButtonsHint);
    // Minimised together, and back together, whichever of the two it is done to.
    Window().showMinimized();
    while (!below.isMinimized()) screen.Idle(1);
    below.showNormal();
    while (Window().isMinimized()) screen.Idle(1);
    QTest::mouseClick(WidgetOf<QPushButton>(Window(), form.Push), Qt::LeftButton);
  });
  screen.ShowModal(form);
  EXPECT_TRUE(modal);
  EXPECT_FALSE(form.Visible);
  EXPECT_EQ(screen.Front(), &main);
  screen.Unload(main);
}

struct BoxCase {
  ui::BoxButtons Buttons;
  ui::BoxIcon Icon;
  QMessageBox::Icon Shown;
  const char* Captions;  // in their order from the left
  const char* Press;     // "" is Esc, "x" the close button, "end" that the program is told to end
  ui::Answer Answer;
};

void PrintTo(const BoxCase& box, std::ostream* out) { *out << box.Captions << "/" << box.Press; }

class Boxes : public Desktop, public testing::WithParamInterface<BoxCase> {};

// Captions of the visible buttons from the left to the right.
QString CaptionsOf(const QMessageBox& box) {
  QList<QAbstractButton*> buttons = box.buttons();
  std::sort(buttons.begin(), buttons.end(),
            [](const auto* one, const auto* other) { return one->x() < other->x(); });
  QStringList captions;
  for (const QAbstractButton* button : buttons) captions << button->text().remove('&');
  return captions.join(' ');
}

TEST_P(Boxes, AskAndAnswer) {
  const BoxCase& expected = GetParam();
  screen.Title = "the program";
  QString text;
  QString captions;
  QString title;
  QMessageBox::Icon icon = QMessageBox::NoIcon;
  Later([&] {
    auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    text = box->text();
    icon = box->icon();
    title = box->windowTitle();
    captions = CaptionsOf(*box);
    const QString press = expected.Press;
    if (press.isEmpty()) QTest::keyClick(box, Qt::Key_Escape);
    if (press == "x") box->close();
    if (press == "end") screen.CloseAll();
    for (QAbstractButton* button : box->buttons()) {
      if (button->text().remove('&') == press) QTest::mouseClick(button, Qt::LeftButton);
    }
  });
  const ui::Answer answer =
      screen.Ask({.Text = "WARNING !!\r\n\r\n    <b>x</b>",
                  .Icon = expected.Icon,
                  .Buttons = expected.Buttons,
                  .Title = expected.Icon == ui::BoxIcon::Plain ? "" : "own title"});
  EXPECT_EQ(answer, expected.Answer);
  EXPECT_EQ(text, "WARNING !!\n\n    <b>x</b>");
  EXPECT_EQ(captions, expected.Captions);
  EXPECT_EQ(icon, expected.Shown);
  EXPECT_EQ(title, expected.Icon == ui::BoxIcon::Plain ? "the program" : "own title");
}

INSTANTIATE_TEST_SUITE_P(
    All, Boxes,
    testing::Values(BoxCase{ui::BoxButtons::Ok, ui::BoxIcon::Plain, QMessageBox::NoIcon, "OK", "OK",
                            ui::Answer::OK},
                    BoxCase{ui::BoxButtons::Ok, ui::BoxIcon::Stop, QMessageBox::Critical, "OK", "",
                            ui::Answer::OK},
                    BoxCase{ui::BoxButtons::OkCancel, ui::BoxIcon::Exclamation,
                            QMessageBox::Warning, "OK Cancel", "OK", ui::Answer::OK},
                    BoxCase{ui::BoxButtons::OkCancel, ui::BoxIcon::Information,
                            QMessageBox::Information, "OK Cancel", "x", ui::Answer::Cancel},
                    BoxCase{ui::BoxButtons::YesNo, ui::BoxIcon::Question, QMessageBox::Question,
                            "Yes No", "Yes", ui::Answer::Yes},
                    BoxCase{ui::BoxButtons::YesNo, ui::BoxIcon::Question, QMessageBox::Question,
                            "Yes No", "", ui::Answer::No},
                    BoxCase{ui::BoxButtons::YesNo, ui::BoxIcon::Question, QMessageBox::Question,
                            "Yes No", "end", ui::Answer::No}));

TEST_F(Desktop, AKeyHeldDownSinceBeforeABoxDoesNotAnswerIt) {
  Later([] {
    auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    QPushButton* const yes = qobject_cast<QPushButton*>(box->button(QMessageBox::Yes));
    for (const auto key : {Qt::Key_Return, Qt::Key_Space}) {
      for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent held(type, key, Qt::NoModifier, {}, true);
        QApplication::sendEvent(yes, &held);
      }
    }
    QTest::keyClick(box, Qt::Key_Escape);
  });
  EXPECT_EQ(screen.Ask({.Text = "?", .Buttons = ui::BoxButtons::YesNo}), ui::Answer::No);
}

TEST_F(Desktop, TheToolkitsQuitIsARequest) {
  screen.Show(form);
  const EndWatch watch(-1, [this] { screen.CloseAll(); });
  QEvent quit(QEvent::Quit);
  QApplication::sendEvent(qApp, &quit);
  EXPECT_TRUE(form.Visible);
  screen.Run();
  EXPECT_FALSE(form.Visible);
}

TEST_F(Desktop, QuestionTakesATextOrIsGivenUp) {
  const auto answer = [this](Qt::Key key) {
    Later([key] {
      QWidget* const box = QApplication::activeModalWidget();
      auto* const edit = box->findChild<QLineEdit*>();
      // All of it is seen, or at least its start.
      EXPECT_EQ(edit->cursorPosition(), 0);
      EXPECT_GT(edit->width(), edit->fontMetrics().horizontalAdvance(edit->text()));
      QTest::keyClicks(edit, "12");
      QTest::keyClick(box->findChild<QLineEdit*>(), key);
    });
    return screen.Ask(ui::Question{.Prompt = "a\r\nb", .Default = std::string(64, '0')});
  };
  EXPECT_EQ(answer(Qt::Key_Return), "12");
  EXPECT_EQ(answer(Qt::Key_Escape), std::nullopt);
  Later([this] { screen.CloseAll(); });
  EXPECT_EQ(screen.Ask(ui::Question{.Prompt = "?"}), std::nullopt);
}

TEST_F(Desktop, FilterTextsAndPatterns) {
  EXPECT_EQ(ParseFilter("Received (*.cfr)|*.cfr| Modified (*.cfm)|*.cfm;*.cfx|bare"),
            (std::vector<FileFilter>{{"Received (*.cfr)", {"*.cfr"}},
                                     {"Modified (*.cfm)", {"*.cfm", "*.cfx"}}}));
  EXPECT_TRUE(ParseFilter("").empty());
}

TEST_F(Desktop, FileDialogFindsNamesInAnyCase) {
  const QTemporaryDir folder;
  const QString path = folder.filePath("ONE.CFR");
  for (const QString& name : {path, folder.filePath("two.cfm")}) {
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  }
  const ui::FileRequest request{.Title = "Select a file",
                                .Filter = "Received (*.cfr)|*.cfr|Modified (*.cfm)|*.cfm",
                                .FilterIndex = 1,
                                .Folder = folder.path().toStdString()};
  QStringList names;
  Later([&] {
    auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    auto* const list = dialog->findChild<QAbstractItemView*>("listView");
    EXPECT_TRUE(
        QTest::qWaitFor([list] { return list->model()->rowCount(list->rootIndex()) == 1; }));
    names << list->model()->index(0, 0, list->rootIndex()).data().toString();
    QTest::keyClicks(dialog->findChild<QLineEdit*>("fileNameEdit"), "ONE.CFR");
    dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open)->click();
  });
  EXPECT_EQ(screen.Ask(request), path.toStdString());
  EXPECT_EQ(names, QStringList{"ONE.CFR"});
  Later([] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
  EXPECT_EQ(screen.Ask(request), std::nullopt);
}

TEST_F(Desktop, MenusFollowTheirControls) {
  Texts told;
  form.MnuFile.Click = [&] { told.push_back("file"); };
  form.MnuAct.Click = [&] { told.push_back("act"); };
  form.Item.Prepare([&](ui::Menu& item, int index) {
    item.Caption = index == 1 ? "-" : "Group " + std::to_string(index);
    item.Click = [&told, index] { told.push_back("item " + std::to_string(index)); };
  });
  Show();
  form.Item.Load(1);
  form.Item.Load(2).Checked = true;
  screen.DoEvents();
  QMenu* const menu = Window().menuBar()->findChild<QMenu*>("MnuFile");
  ASSERT_EQ(menu->actions().size(), 3);
  EXPECT_EQ(TitleOf(form.MnuFile)->text(), "&File");
  EXPECT_EQ(TitleOf(form.MnuAct)->menu(), nullptr);
  EXPECT_TRUE(menu->actions()[1]->isSeparator());
  EXPECT_TRUE(menu->actions()[2]->isChecked());
  menu->popup({0, 0});
  TitleOf(form.MnuAct)->trigger();
  menu->actions()[2]->trigger();
  EXPECT_TRUE(menu->actions()[2]->isChecked());
  menu->close();
  EXPECT_EQ(told, (Texts{"file", "act", "item 2"}));
  for (const int index : {2, 1}) form.Item.Unload(index);
  form.Item(0).Enabled = false;
  screen.DoEvents();
  ASSERT_EQ(menu->actions().size(), 1);
  EXPECT_FALSE(menu->actions()[0]->isEnabled());
  form.MnuAct.Visible = false;
  EXPECT_FALSE(TitleOf(form.MnuAct)->isVisible());
}

TEST_F(Desktop, KeysReachTheWindowFirstAndOnce) {
  int changes = 0;
  form.Field.Change = [&changes] { ++changes; };
  form.Push.Default = true;
  form.Push.Click = [this] { form.Told.push_back("default"); };
  Show();
  auto* const field = WidgetOf<QLineEdit>(Window(), form.Field);
  field->setFocus();
  QTest::keyClick(field, 'a');
  QTest::keyClick(field, Qt::Key_F1);                     // used by the window
  QTest::keyClick(field, Qt::Key_F2, Qt::ShiftModifier);  // nobody's: goes up from holder to holder
  QTest::keyClick(field, Qt::Key_Shift);
  QTest::keyClick(field, Qt::Key_Return);
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(form.Told, (Texts{"key 65+0", "key 112+0", "key 113+1", "key 13+0", "default"}));
}

TEST_F(Desktop, EscLeavesAnOpenMenuAndReachesTheWindow) {
  Show();
  QMenu* const menu = Window().menuBar()->findChild<QMenu*>("MnuFile");
  menu->popup({0, 0});
  QTest::keyClick(menu, Qt::Key_Down);
  QTest::keyClick(menu, Qt::Key_Escape);
  EXPECT_FALSE(menu->isVisible());
  EXPECT_EQ(form.Told, Texts{"key 27+0"});
}

TEST_F(Desktop, ClicksBesideTheControlsAreTheWindows) {
  Show();
  QTest::mouseClick(&Window(), Qt::LeftButton, {}, {2, Window().height() / 2});
  // A label that does nothing by itself is part of the surface.
  QTest::mouseClick(WidgetOf<QLabel>(Window(), form.Words), Qt::LeftButton);
  EXPECT_EQ(form.Told, (Texts{"click", "click"}));
}

TEST_F(Desktop, WindowStateGoesBothWays) {
  Show();
  form.WindowState = ui::kMaximisedWindow;
  EXPECT_TRUE(Window().isMaximized());
  Window().showMinimized();
  while (form.WindowState != ui::kMinimisedWindow) screen.Idle(1);
  Window().showNormal();
  while (form.WindowState != ui::kNormalWindow) screen.Idle(1);
  EXPECT_EQ(form.Told, (Texts{"state 2", "state 1", "state 0"}));
}

double ProcessorSeconds() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

TEST_F(Desktop, WaitingTakesTimeButNoProcessor) {
  Show();
  screen.DoEvents();
  const double start = clock.Now();
  const double processor = ProcessorSeconds();
  while (clock.Now() < start + 0.4) screen.Idle(start + 0.4 - clock.Now());
  EXPECT_LT(clock.Now() - start, 0.6);
  EXPECT_LT(ProcessorSeconds() - processor, 0.1);
}

TEST_F(Desktop, IdleEndsWithTheFirstEventAndServesTimers) {
  Show();
  screen.DoEvents();
  int ticks = 0;
  form.Ticker.Tick = [&ticks] { ++ticks; };
  form.Ticker.Interval = 20;
  while (ticks < 2) screen.Idle(5);
  form.Ticker.Interval = 0;
  bool served = false;
  Later([&served] { served = true; });
  const double start = clock.Now();
  while (!served) screen.Idle(10);
  EXPECT_LT(clock.Now() - start, 5);
}

TEST(DesktopOnAVirtualClock, AnHourPassesAtOnce) {
  base::VirtualClock clock;
  DesktopScreen screen(clock);
  EveryKind form;
  int ticks = 0;
  form.Ticker.Tick = [&ticks] { ++ticks; };
  form.Ticker.Interval = 60000;
  screen.Show(form);
  while (clock.Now() < 3600) screen.Idle(3600 - clock.Now());
  EXPECT_EQ(ticks, 60);
  screen.Unload(form);
}

TEST(DesktopAndItsForms, AFormMayDieBeforeItsWindow) {
  base::RealClock clock;
  DesktopScreen screen(clock);
  auto form = std::make_unique<EveryKind>();
  screen.Show(*form);
  QPointer<FormWindow> window = screen.WindowFor(*form);
  form.reset();
  EXPECT_FALSE(window->isVisible());
  window->close();
  QCoreApplication::processEvents();
}

TEST_F(Desktop, WiderTextsAreWider) {
  EXPECT_GT(screen.TextWidth(form, "Configuration "), screen.TextWidth(form, "Firmware"));
  EXPECT_GT(screen.TextWidth(form, "Firmware "), screen.TextWidth(form, "Firmware"));
}

}  // namespace

}  // namespace tintbench::desktop
