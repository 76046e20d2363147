// The views of the sensor panels, for every window that carries them.
#pragma once

#include <QWidget>

#include "state/SensorPanels.h"

namespace tintbench::desktop {

class PanelArea;

// Makes the panels, with heads for the buttons above them, and puts them into `area`.
void AddSensorPanels(state::SensorPanels& panels, ui::ControlArray<ui::Button>& buttons,
                     PanelArea& area);

// Makes one panel with a title. Its least width is what it takes to read it.
QWidget* MakeSensorPanel(state::SensorPanels& panels, int panel, ui::Label& title, QWidget* parent);

}  // namespace tintbench::desktop
