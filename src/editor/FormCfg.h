// The window that shows and changes one configuration file: tables, elements, parameters, and the
// saving under another name.
#pragma once

#include <string>
#include <vector>

#include "base/AppPaths.h"
#include "editor/CfgWindow.h"
#include "editor/ConfigDocument.h"
#include "editor/FormEdit.h"
#include "ui/Screen.h"

namespace tintbench::editor {

// What the window works with. All of it must outlive the window.
struct FormCfgParts {
  ui::Screen& Screen;
  base::FileSystem& Files;
  const base::AppPaths& Paths;
  const base::AppIdentity& Identity;
  const config::ParameterCatalogue& Parameters;
  FormEdit& Editor;
};

struct FormCfg final : CfgWindow {
  explicit FormCfg(const FormCfgParts& parts);

  // Before it is shown, modally: the file to open. A file that can't be read is told in a box, and
  // the window doesn't appear.
  void SetConfigName(const std::string& folder, const std::string& stem,
                     const std::string& extension) {
    document_.SetConfigName(folder, stem, extension);
  }

  void Form_Load() override;

 private:
  FormCfgParts work_;
  ConfigDocument document_;
};

}  // namespace tintbench::editor
