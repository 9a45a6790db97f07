// The least program with a window: what any program on the toolkit costs.

#include <QApplication>
#include <QLabel>
#include <QMainWindow>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QMainWindow window;
    window.setCentralWidget(new QLabel("A window"));
    window.resize(1200, 840);
    window.show();
    return application.exec();
}
