// The window of commands: one window with two functions, chosen before it loads, that share its
// controls.
#pragma once

#include "commands/CommWindow.h"
#include "commands/CommandMenu.h"
#include "commands/ElementSender.h"
#include "commands/MaintenanceMenu.h"
#include "commands/PurgeProcess.h"
#include "commands/ShelfAndValves.h"

namespace tintbench::commands {

struct FormComm final : CommWindow {
  explicit FormComm(const CommParts& parts);

  void SetFormFunction(FormFunction value) { function_ = value; }
  FormFunction GetFormFunction() const { return function_; }

  void Form_Load() override;
  void Form_KeyDown(ui::KeyEvent& key) override;
  void Form_QueryUnload(bool& cancel) override;

 private:
  void ConnectControls();

  FormFunction function_ = kCommandMenu;
  ElementSender sender_{*this};
  ShelfAndValves shelf_{*this, sender_};
  PurgeProcess purge_{*this, sender_, shelf_};
  CommandMenu single_{*this, shelf_};
  MaintenanceMenu multi_{*this, shelf_, purge_};
};

}  // namespace tintbench::commands
