#include "benchmarks/benchmarks.h"
#include "benchmarks/comparison.h"

#include <QtCore/QLoggingCategory>
#include <QtWidgets/QApplication>

#include <exception>
#include <iostream>
#include <vector>

namespace {

// What the command line says comes later and counts.
constexpr const char* kDefaults[] = {"--benchmark_repetitions=9", "--benchmark_min_time=0.1",
                                     "--benchmark_enable_random_interleaving=true"};

std::vector<char*> withDefaults(int argc, char** argv) {
    std::vector<char*> arguments{argv[0]};
    for (const char* argument : kDefaults)
        arguments.push_back(const_cast<char*>(argument));
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    arguments.push_back(nullptr);
    return arguments;
}

int run(int argc, char** argv) {
    auto arguments = withDefaults(argc, argv);
    int count = static_cast<int>(arguments.size()) - 1;
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data()))
        return 2;
    bench::registerReads();
    bench::registerLoads();
    bench::registerSaves();
    bench::registerDialog();
    bench::registerStartup();
    bench::registerSchemeFile();
    bench::registerObjects();
    bench::registerSheets();
    bench::registerChooser();
    bench::registerLibraries();
    bench::registerDesigns();
    bench::registerGrowth();
#ifdef OVSETTINGS_PEERS
    bench::registerPeers();
#endif
    bench::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return reporter.isWhole() ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // This platform complains of each window that it has no screen to size it by.
    QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false"));
    QApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    try {
        return run(argc, argv);
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << std::endl;
        return 1;
    }
}
