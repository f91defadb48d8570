#include "forms/frmMain.h"
#include "shell/Application.h"
#include "shell/CommandLine.h"

#include <cstdio>

using namespace tallowmere;

int main(int argc, char** argv) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    const CommandLine commandLine = CommandLine::Parse(arguments);
    if (commandLine.outcome != CommandLine::Outcome::Run) {
        const bool wrong = commandLine.outcome == CommandLine::Outcome::Wrong;
        std::fputs(qUtf8Printable(commandLine.text), wrong ? stderr : stdout);
        return wrong ? 2 : 0;
    }
    Application application(argc, argv);
    frmMain window;
    window.show();
    return QApplication::exec();
}
