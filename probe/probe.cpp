#include "app/shell/CommandLine.h"
#include "app/sites/UserSites.h"
#include "core/text/runtime_error.h"
#include "probe/Prober.h"

#include <QCoreApplication>
#include <QDateTime>

#include <array>
#include <cstdio>

using namespace tallowmere;

namespace {

constexpr int kWrongStart = 2;
constexpr auto kPause = std::chrono::seconds(1);

/// The sources and sites of the program with the rows of the user's own.
std::vector<Probe> AllProbes(const CommandLine& commandLine) {
    const Folders folders = Folders::For(commandLine.profile);
    Tables tables = Tables::Read(folders, commandLine.sites);
    const UserSites own(tables, folders.tables / "sites.toml");
    const SourceTable sources = ReadSources(folders);
    std::vector<Probe> probes = SourceProbes(sources, QDateTime::currentSecsSinceEpoch());
    for (Probe& probe : SiteProbes(tables.sites, tables.menus, tables.today, sources.userAgent))
        probes.push_back(std::move(probe));
    return probes;
}

int Run(const CommandLine& commandLine) {
    const std::vector<Probe> probes = AllProbes(commandLine);
    std::fprintf(stderr, "asking for %zu addresses\n", probes.size());
    std::array<int, 3> counts{};
    Prober prober(kPause);
    QObject::connect(
        &prober, &Prober::Answered, qApp, [&](const Probe& probe, const ProbeAnswer& answer) {
            const Verdict verdict = Judge(probe, answer, QDateTime::currentSecsSinceEpoch());
            ++counts.at(static_cast<std::size_t>(verdict.judgement));
            std::puts(ReportLine(probe, verdict).c_str());
            std::fflush(stdout);
        });
    QObject::connect(&prober, &Prober::Finished, qApp, &QCoreApplication::quit);
    prober.Start(probes);
    QCoreApplication::exec();
    std::printf("%d good, %d doubtful, %d bad\n", counts[0], counts[1], counts[2]);
    return counts[2] == 0 ? 0 : 1;
}

} // namespace

/// Asks once for every address of the tables and reports what came back. Ends with 1 when an
/// address leads nowhere.
int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const CommandLine commandLine = CommandLine::Parse(QCoreApplication::arguments());
    if (commandLine.outcome != CommandLine::Outcome::Run) {
        std::fputs("Usage: probe [--profile DIR] [--sites FILE]\n", stderr);
        return kWrongStart;
    }
    try {
        return Run(commandLine);
    } catch (const RuntimeError& error) {
        std::fprintf(stderr, "probe: %s\n", error.what());
        return kWrongStart;
    }
}
