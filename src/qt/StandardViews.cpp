#include "qt/StandardViews.h"

#include "qt/Form1View.h"
#include "qt/FormCommView.h"
#include "qt/FormDbgView.h"
#include "qt/SplashView.h"

namespace tintbench::desktop {

void AddStandardViews(DesktopScreen& screen) {
  screen.AddView("Form1", MakeForm1View);
  screen.AddView("FormComm", MakeFormCommView);
  screen.AddView("FormDbg", MakeFormDbgView);
  screen.AddView("frmSplsh", MakeSplashView);
  screen.AddView("StartPanel", MakeStartPanelView);
}

}  // namespace tintbench::desktop
