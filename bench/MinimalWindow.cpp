// The least that a Qt program with a window does: what a start of ours is measured against.

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QToolBar>

#include <cryptopp/sha.h>

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    // Keeps the linker from leaving the library out.
    const CryptoPP::SHA256 hash;
    QMainWindow window;
    window.setWindowTitle(QString::fromStdString(hash.AlgorithmName()));
    window.menuBar()->addMenu(QStringLiteral("File"))->addAction(QStringLiteral("Exit"));
    window.addToolBar(QStringLiteral("Tools"))->addAction(QStringLiteral("Start"));
    window.show();
    return QApplication::exec();
}
