#include "tests/app/program.h"

#include <QtCore/QProcess>

#include <linux/capability.h>
#include <sys/prctl.h>

Outcome runProgram(const Words& arguments, const Circumstances& circumstances) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const auto& [name, value] : circumstances.environment) {
        if (value)
            environment.insert(QString::fromStdString(name), QString::fromStdString(*value));
        else
            environment.remove(QString::fromStdString(name));
    }
    process.setProcessEnvironment(environment);
    if (circumstances.obeysPermissions)
        process.setChildProcessModifier([] { prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE); });
    if (!circumstances.outputFile.empty())
        process.setStandardOutputFile(QString::fromStdString(circumstances.outputFile));

    QStringList words;
    for (const std::string& argument : arguments)
        words << QString::fromStdString(argument);
    process.start(OV_SETTINGS_PROGRAM, words);
    Outcome outcome;
    if (process.waitForFinished(60'000) && process.exitStatus() == QProcess::NormalExit)
        outcome.status = process.exitCode();
    outcome.out = process.readAllStandardOutput().toStdString();
    outcome.err = process.readAllStandardError().toStdString();
    return outcome;
}
