// The least that one can have of a browser: a window with one web view and a button. What our own
// program costs is measured beside it.
//
//     bare_browser FIRST_ADDRESS ADDRESS_OF_THE_BUTTON [ADDRESS...]
//
// Each further address has a window with a view of its own.

#include "AllowRoot.h"

#include <QApplication>
#include <QPushButton>
#include <QVBoxLayout>
#include <QWebEngineView>

#include <memory>
#include <vector>

namespace {
constexpr QSize kFurtherSize(640, 480);
}

int main(int argc, char** argv) {
    AllowRoot();
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 3)
        return 2;

    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    auto* button = new QPushButton(QStringLiteral("Load"), &window);
    auto* view = new QWebEngineView(&window);
    layout->addWidget(button);
    layout->addWidget(view, 1);
    QObject::connect(button, &QPushButton::clicked, view,
                     [&] { view->load(QUrl(arguments.at(2))); });
    view->load(QUrl(arguments.at(1)));
    window.resize(1280, 900);
    window.show();
    std::vector<std::unique_ptr<QWebEngineView>> further;
    for (const QString& address : arguments.mid(3)) {
        further.push_back(std::make_unique<QWebEngineView>());
        further.back()->load(QUrl(address));
        further.back()->resize(kFurtherSize);
        further.back()->show();
    }
    return QApplication::exec();
}
