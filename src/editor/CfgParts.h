// What the window of a configuration and its panels work with.
#pragma once

#include "base/AppIdentity.h"
#include "base/AppPaths.h"
#include "base/Files.h"
#include "config/ParameterCatalogue.h"
#include "editor/FormEdit.h"
#include "editor/Places.h"
#include "ui/Screen.h"

namespace tintbench::editor {

// All of it must outlive the window.
struct FormCfgParts {
  ui::Screen& Screen;
  base::FileSystem& Files;
  const base::AppPaths& Paths;
  const base::AppIdentity& Identity;
  const config::ParameterCatalogue& Parameters;
  FormEdit& Editor;
};

// What the panels ask of the window that they stand in.
class CfgOwner {
 public:
  virtual ~CfgOwner() = default;
  // Shows the place, and gives the keyboard to the list of parameters.
  virtual void GoTo(const ParameterPlace& at) = 0;
  // A step of editing has changed the place, which isn't shown yet.
  virtual void ShowStep(const ParameterPlace& at) = 0;
  // The comparison has begun, or ended: rows have other signs.
  virtual void ShowSigns() = 0;
  // The slave on show.
  virtual int Slave() const = 0;
};

}  // namespace tintbench::editor
