#include <QApplication>
#include <QMainWindow>

// A bare main window of the toolkit, with the same libraries at hand as the program: what bench/memoria.sh weighs it
// against.
int main(int argc, char** argv)
{
    QApplication applicazione(argc, argv);
    QMainWindow finestra;
    finestra.resize(1024, 700);
    finestra.show();
    return QApplication::exec();
}
