// brovanta_draw_icon PICTURE.svg SIZE FILE.png: one size of the program's icon, drawn when the
// program is built.
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>

int main(int argc, char** argv) {
  if (argc != 4) {
    std::fputs("Usage: brovanta_draw_icon PICTURE.svg SIZE FILE.png\n", stderr);
    return 2;
  }
  QSvgRenderer picture(QString::fromLocal8Bit(argv[1]));
  const int size = QByteArray(argv[2]).toInt();
  QImage image(size, size, QImage::Format_ARGB32);
  if (!picture.isValid() || image.isNull()) {
    std::fprintf(stderr, "brovanta_draw_icon: cannot draw %s at size %s\n", argv[1], argv[2]);
    return 1;
  }
  image.fill(Qt::transparent);
  QPainter painter(&image);
  picture.render(&painter);
  painter.end();
  if (!image.save(QString::fromLocal8Bit(argv[3]), "PNG")) {
    std::fprintf(stderr, "brovanta_draw_icon: cannot write %s\n", argv[3]);
    return 1;
  }
  return 0;
}
