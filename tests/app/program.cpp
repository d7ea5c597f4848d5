#include "tests/app/program.h"

#include "tests/support/childprocess.h"

#include <QtCore/QProcess>

#include <linux/capability.h>
#include <pty.h>
#include <sys/prctl.h>
#include <termios.h>

#include <array>

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

Outcome runOnTerminal(const Words& arguments) {
    std::vector<const char*> words{OV_SETTINGS_PROGRAM};
    for (const std::string& argument : arguments)
        words.push_back(argument.c_str());
    words.push_back(nullptr);
    termios asWritten{}; // no line end becomes two characters
    int terminal = -1;
    const pid_t child = forkpty(&terminal, nullptr, &asWritten, nullptr);
    if (child == 0) {
        execv(words.front(), const_cast<char* const*>(words.data()));
        _exit(EXIT_FAILURE);
    }
    Outcome outcome;
    std::array<char, 4096> piece;
    for (ssize_t read = 0; (read = ::read(terminal, piece.data(), piece.size())) > 0;)
        outcome.out.append(piece.data(), static_cast<std::size_t>(read));
    close(terminal);
    outcome.status = testsupport::endOfChild(child);
    return outcome;
}
