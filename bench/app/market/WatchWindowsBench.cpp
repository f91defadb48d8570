// Opens many watch windows on pages of one server and leaves them to their waits until it is ended;
// watch_windows.py measures it: WatchWindowsBench HOST WINDOWS SECONDS
#include "app/BenchSession.h"
#include "app/forms/frmWiz.h"
#include "app/market/WatchWindows.h"
#include "app/shell/Application.h"

#include <QLineEdit>

#include <cstdio>

using namespace tallowmere;
using namespace Qt::StringLiterals;

int main(int argc, char** argv) {
    PrepareBench();
    Application application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 4) {
        std::fprintf(stderr, "usage: %s HOST WINDOWS SECONDS\n", argv[0]);
        return 2;
    }
    const QString host = arguments[1];
    BenchSession session({}, FromQt(host), WebMode::Direct);
    for (int number = 1; number <= arguments[2].toInt(); ++number) {
        frmWiz* window = session->Controllers().market.watches->CreateWiz(
            u"Page %1|%2/watched%1"_s.arg(number).arg(host));
        window->txtsecs->setText(arguments[3]);
        Q_EMIT window->SecondsLeft();
    }
    return QApplication::exec();
}
