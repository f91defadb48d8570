#include "app/shell/CommandLine.h"

#include "core/shell/command_options.h"

#include <QCommandLineParser>
#include <QHash>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

CommandLine Wrong(const QString& what) {
    CommandLine result;
    result.outcome = CommandLine::Outcome::Wrong;
    result.text = u"tallowmere: "_s + what + u"\nTry --help for the options.\n"_s;
    return result;
}

CommandLine Print(const QString& text) {
    CommandLine result;
    result.outcome = CommandLine::Outcome::Print;
    result.text = text;
    return result;
}

} // namespace

CommandLine CommandLine::Parse(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    for (const CommandOption& option : kCommandOptions)
        parser.addOption({QString::fromUtf8(option.name.data(), qsizetype(option.name.size())),
                          {},
                          QString::fromUtf8(option.value.data(), qsizetype(option.value.size()))});
    if (!parser.parse(arguments))
        return Wrong(parser.errorText());
    if (parser.isSet(u"help"_s))
        return Print(QString::fromStdString(HelpText()));
    if (parser.isSet(u"version"_s))
        return Print(u"tallowmere " TALLOWMERE_VERSION "\n"_s);
    if (!parser.positionalArguments().isEmpty())
        return Wrong(u"unexpected argument '"_s + parser.positionalArguments().first() + u"'"_s);

    static const QHash<QString, WebMode> modes = {
        {u"live"_s, WebMode::Live}, {u"sample"_s, WebMode::Sample}, {u"direct"_s, WebMode::Direct}};
    const QString mode = parser.isSet(u"web"_s) ? parser.value(u"web"_s) : u"live"_s;
    if (!modes.contains(mode))
        return Wrong(u"--web takes live, sample or direct, not '"_s + mode + u"'"_s);
    for (const QString& name : {u"profile"_s, u"sites"_s}) {
        if (parser.isSet(name) && parser.value(name).isEmpty())
            return Wrong(u"--"_s + name + u" needs a value"_s);
    }
    CommandLine result;
    result.web = modes.value(mode);
    result.profile = parser.value(u"profile"_s);
    result.sites = parser.value(u"sites"_s);
    return result;
}

} // namespace tallowmere
