// The least a program with a window can be: one label. What bench/start-up compares with.
#include <QApplication>
#include <QLabel>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QLabel label("DURAND Marie");
    label.show();
    return QApplication::exec();
}
