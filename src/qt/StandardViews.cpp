#include "qt/StandardViews.h"

#include "qt/DlgGrMonView.h"
#include "qt/Form1View.h"
#include "qt/FormAutoView.h"
#include "qt/FormCfgView.h"
#include "qt/FormCommView.h"
#include "qt/FormDbgView.h"
#include "qt/FormEditView.h"
#include "qt/FormGHstView.h"
#include "qt/FormGMonView.h"
#include "qt/FormStatView.h"
#include "qt/FormXmodView.h"
#include "qt/SplashView.h"

namespace tintbench::desktop {

void AddStandardViews(DesktopScreen& screen) {
  screen.AddView(MakeDlgGrMonView);
  screen.AddView(MakeForm1View);
  screen.AddView(MakeFormAutoView);
  screen.AddView(MakeFormCfgView);
  screen.AddView(MakeFormCommView);
  screen.AddView(MakeFormDbgView);
  screen.AddView(MakeFormEditView);
  screen.AddView(MakeFormGHstView);
  screen.AddView(MakeFormGMonView);
  screen.AddView(MakeFormStatView);
  screen.AddView(MakeFormXmodView);
  screen.AddView(MakeSplashView);
  screen.AddView(MakeStartPanelView);
}

}  // namespace tintbench::desktop
