// The least that a program with a window of this toolkit can be: what ours is compared with.
#include <QApplication>
#include <QLabel>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QLabel window("TintBench");
  window.setWindowTitle("TintBench");
  window.show();
  return QApplication::exec();
}
