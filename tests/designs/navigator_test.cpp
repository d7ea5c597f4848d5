#include "tests/designs/designs.h"

#include <QtCore/QProcess>
#include <QtDBus/QDBusConnection>
#include <QtTest/QSignalSpy>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

/// A session bus of the test's own, which the process finds in its environment.
class SessionBus {
public:
    SessionBus() {
        process_.start(
            QStringLiteral("dbus-daemon"),
            {QStringLiteral("--session"), QStringLiteral("--print-address"), QStringLiteral("--nofork")});
        if (process_.waitForStarted() && process_.waitForReadyRead())
            qputenv("DBUS_SESSION_BUS_ADDRESS", process_.readLine().trimmed());
    }
    ~SessionBus() {
        process_.kill();
        process_.waitForFinished();
    }
    bool isRunning() const { return process_.state() == QProcess::Running; }

private:
    QProcess process_;
};

/// What a running navigator answers to.
class Navigator : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "Navigator.Addin")

public Q_SLOTS:
    Q_SCRIPTABLE void Refresh() { Q_EMIT refreshed(); }

Q_SIGNALS:
    void refreshed();
};

TEST_F(Designs, RunningNavigatorIsToldOfAStoredBlock) {
    SessionBus sessionBus;
    ASSERT_TRUE(sessionBus.isRunning());
    QDBusConnection bus =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("navigator"));
    Navigator navigator;
    ASSERT_TRUE(bus.registerObject(QStringLiteral("/Navigator/Addin/_1"), &navigator,
                                   QDBusConnection::ExportScriptableSlots));
    ASSERT_TRUE(bus.registerService(QStringLiteral("Navigator.Addin._1")));
    QSignalSpy refreshed(&navigator, &Navigator::refreshed);
    run([&](QDialog& dialog) {
        press(dialog, "Apply"); // no block is selected, so nothing was stored
        choose(dialog, "Top level block", "ADC");
        press(dialog, "OK");
    });
    ASSERT_TRUE(refreshed.count() > 0 || refreshed.wait());
    EXPECT_EQ(refreshed.count(), 1);
}

TEST_F(Designs, NobodyOnTheBusIsWaitedFor) {
    SessionBus sessionBus;
    openProject("TopBlock=ADC\n");
    EXPECT_EQ(run([](QDialog& dialog) { press(dialog, "OK"); }), 1);
}

TEST_F(Designs, ABusThatAcceptsAndStaysSilentIsNotWaitedFor) {
    const std::string path = (directory_ / "bus").string();
    sockaddr_un name{};
    name.sun_family = AF_UNIX;
    path.copy(name.sun_path, sizeof name.sun_path - 1);
    const int silent = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ASSERT_EQ(bind(silent, reinterpret_cast<const sockaddr*>(&name), sizeof name), 0);
    ASSERT_EQ(listen(silent, 1), 0);
    const testsupport::ScopedEnvironment address("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + path);
    openProject("TopBlock=ADC\n");
    EXPECT_EQ(run([](QDialog& dialog) { press(dialog, "OK"); }), 1);
    close(silent);
}

TEST_F(Designs, NoBusIsNoHindrance) {
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    qunsetenv("XDG_RUNTIME_DIR");
    openProject("TopBlock=ADC\n");
    EXPECT_EQ(run([](QDialog& dialog) { press(dialog, "OK"); }), 1);
}

} // namespace

#include "navigator_test.moc"
