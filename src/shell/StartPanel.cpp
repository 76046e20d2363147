#include "shell/StartPanel.h"

#include <utility>

namespace tintbench::shell {

LabelMirror::LabelMirror(ui::Label& source, std::vector<ui::Label*> images)
    : source_(&source), images_(std::move(images)) {
  source.AddObserver(*this);
}

LabelMirror::~LabelMirror() {
  if (source_ != nullptr) source_->RemoveObserver(*this);
}

void LabelMirror::PropertyChanged(const ui::PropertyBase& property) {
  if (!property.Is(source_->Caption)) return;
  for (ui::Label* image : images_) {
    image->Caption = source_->Caption.Get();
    image->Refresh();
  }
}

}  // namespace tintbench::shell
