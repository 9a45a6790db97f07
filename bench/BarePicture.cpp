// The least program that writes a picture: what any program on the toolkit costs.

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

int main(int argc, char** argv) {
    QGuiApplication application(argc, argv);
    QImage image(1000, 776, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter(&image).drawText(100, 100, "A picture");
    return image.save(argc > 1 ? argv[1] : "/dev/null", "PNG") ? 0 : 1;
}
