// An empty dialog, up to its first picture: a program of the toolkit and nothing else.
#include <QApplication>
#include <QDialog>

#include "bench/ui/first_picture.h"

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QDialog empty;
  empty.resize(360, 640);
  return empty.exec();
}
