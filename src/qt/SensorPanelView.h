// The views of the sensor panels, for every window that carries their controls.
#pragma once

#include <QWidget>

#include "ui/Form.h"

namespace tintbench::desktop {

class PanelArea;

// Makes the panels that the window has, with their heads or titles if it has buttons or labels for
// them, and puts them into `area`.
void AddSensorPanels(ui::Form& form, PanelArea& area);

}  // namespace tintbench::desktop
