#include "bench/screenColour.h"

#include <QApplication>
#include <QWebEngineView>

/// `bench_page FILE`: the bare engine in a window of its own. Prints "painted" when its page is on the
/// screen.
int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QWebEngineView view;
    view.resize(640, 480);
    view.show();
    view.load(QUrl::fromLocalFile(QString::fromLocal8Bit(argc > 1 ? argv[1] : "")));
    endWhenPainted([&view] { return view.mapToGlobal(view.rect().center()); });
    return QApplication::exec();
}
