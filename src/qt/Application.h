// The toolkit's own start and end, so that whoever builds the program needn't know the toolkit.
#pragma once

#include <memory>
#include <string>

class QCoreApplication;

namespace tintbench::desktop {

enum class ApplicationKind {
  Windows,  // for a DesktopScreen
  Console,  // for serial ports without any window
};

// One at a time, made before anything else of this folder and outliving it all.
class Application {
 public:
  // `arguments` are those of main; both must outlive the application.
  Application(ApplicationKind kind, int& count, char** arguments, const std::string& title);
  ~Application();
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;

  // Serves what is pending, for a program that shows no windows.
  static void ServeEvents();

  // False if windows can't be shown because there is no display to show them on.
  static bool HasDisplay();

 private:
  std::unique_ptr<QCoreApplication> application_;
};

}  // namespace tintbench::desktop
