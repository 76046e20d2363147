// The views of the sensor panels, for every window that carries their controls.
#pragma once

#include <QWidget>

#include "ui/Form.h"

namespace tintbench::desktop {

class PanelArea;

// Makes the panels that the window has, with heads for their buttons, and puts them into `area`.
void AddSensorPanels(ui::Form& form, PanelArea& area);

// Makes one panel, with its title. nullptr if the window doesn't have it. Its least width is what
// it takes to read it.
QWidget* MakeSensorPanel(ui::Form& form, int panel, QWidget* parent);

}  // namespace tintbench::desktop
