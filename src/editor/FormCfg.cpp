#include "editor/FormCfg.h"

#include "base/Text.h"

namespace tintbench::editor {

FormCfg::FormCfg(const FormCfgParts& parts)
    : work_(parts),
      document_({parts.Files, parts.Screen.Time(), parts.Identity, parts.Parameters}) {}

void FormCfg::Form_Load() {
  Caption = "VIEW / MODIFY  " + base::Bracketed(document_.Name().FullName());
  LblDateTime(0).Caption = document_.Name().Date;
  LblDateTime(1).Caption = document_.Name().Time;
}

}  // namespace tintbench::editor
