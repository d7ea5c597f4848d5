// The command that looks at every page of the dialog without a screen: tour.

#include "app/commands.h"
#include "app/dialog/dialog.h"
#include "app/dialog/project.h"
#include "app/dialog/replacefile.h"
#include "app/dialog/tourguide.h"
#include "app/outcome.h"
#include "app/output.h"
#include "app/workspace.h"
#include "platform/printable.h"

#include <ovsettings/showsettingsdialog.h>
#include <suite/wdirutils.h>

#include <QtCore/QTemporaryDir>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <iostream>

namespace app {

namespace fs = std::filesystem;

namespace {

struct TourOptions {
    fs::path directory;
    bool dark = false;
    std::optional<QSize> size;
    std::string error; ///< what is wrong with the arguments; empty if nothing is
};

constexpr int kLargestSide = 10000;

std::optional<int> parseSide(std::string_view text) {
    int side = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), side);
    if (error != std::errc{} || end != text.data() + text.size() || side < 1 || side > kLargestSide)
        return std::nullopt;
    return side;
}

std::optional<QSize> parseSize(std::string_view text) {
    const auto separator = text.find('x');
    if (separator == std::string_view::npos)
        return std::nullopt;
    const auto width = parseSide(text.substr(0, separator));
    const auto height = parseSide(text.substr(separator + 1));
    if (!width || !height)
        return std::nullopt;
    return QSize(*width, *height);
}

TourOptions parseTour(Arguments arguments) {
    TourOptions tour;
    for (std::size_t index = 0; index < arguments.size(); ++index) {
        const std::string& argument = arguments[index];
        if (argument == "--dark") {
            tour.dark = true;
        } else if (argument == "--size") {
            tour.size = ++index < arguments.size() ? parseSize(arguments[index]) : std::nullopt;
            if (!tour.size) {
                tour.error = "--size takes WIDTHxHEIGHT, each from 1 to " + std::to_string(kLargestSide);
                return tour;
            }
        } else if (argument.starts_with("-") || argument.empty() || !tour.directory.empty()) {
            tour.error = "tour takes one directory, --dark and --size, not \"" + argument + '"';
            return tour;
        } else {
            tour.directory = argument;
        }
    }
    if (tour.directory.empty())
        tour.error = "tour takes the directory for the pictures";
    return tour;
}

// Copies the files, as far as they can be read; what is no file or directory, a socket perhaps, holds no
// settings. A link to a directory is not followed: it may lead anywhere, and back.
void copyFiles(const fs::path& from, const fs::path& to) {
    std::error_code unreadable;
    for (const fs::directory_entry& entry : fs::directory_iterator(from, unreadable)) {
        const fs::path target = to / entry.path().filename();
        if (entry.is_directory(unreadable)) {
            if (entry.is_symlink(unreadable))
                continue;
            fs::create_directory(target, unreadable);
            copyFiles(entry.path(), target);
        } else if (entry.is_regular_file(unreadable)) {
            fs::copy_file(entry.path(), target, unreadable);
        }
    }
}

// Looking changes nothing: the dialog, which notes each page that it shows, gets a copy of the user's
// directory.
bool moveToCopyOfUserDirectory(const fs::path& copy) {
    std::vector<std::string> directories;
    if (!Orv::WdirUtils::GetWDIRs(directories) || directories.empty())
        return false;
    if (fs::is_directory(directories.front()))
        copyFiles(directories.front(), copy);
    std::string list = copy.string();
    for (std::size_t index = 1; index < directories.size(); ++index)
        list += ";" + directories[index];
    setenv("WDIR", list.c_str(), 1);
    return true;
}

struct ColorRow {
    QPalette::ColorRole role;
    QRgb color;
    QRgb disabled;
};

constexpr std::array kDarkColors{
    ColorRow{QPalette::Window, 0xff2d2d2d, 0xff2d2d2d},
    ColorRow{QPalette::WindowText, 0xffe6e6e6, 0xff8a8a8a},
    ColorRow{QPalette::Base, 0xff1e1e1e, 0xff2d2d2d},
    ColorRow{QPalette::AlternateBase, 0xff262626, 0xff2d2d2d},
    ColorRow{QPalette::ToolTipBase, 0xff3a3a3a, 0xff3a3a3a},
    ColorRow{QPalette::ToolTipText, 0xffe6e6e6, 0xff8a8a8a},
    ColorRow{QPalette::PlaceholderText, 0xff9a9a9a, 0xff6e6e6e},
    ColorRow{QPalette::Text, 0xffe6e6e6, 0xff8a8a8a},
    ColorRow{QPalette::Button, 0xff3a3a3a, 0xff333333},
    ColorRow{QPalette::ButtonText, 0xffe6e6e6, 0xff8a8a8a},
    ColorRow{QPalette::BrightText, 0xffff5050, 0xff8a8a8a},
    ColorRow{QPalette::Link, 0xff6ab0ff, 0xff8a8a8a},
    ColorRow{QPalette::Highlight, 0xff2f65ca, 0xff4a4a4a},
    ColorRow{QPalette::HighlightedText, 0xffffffff, 0xffb0b0b0},
    ColorRow{QPalette::Light, 0xff4a4a4a, 0xff4a4a4a},
    ColorRow{QPalette::Midlight, 0xff404040, 0xff404040},
    ColorRow{QPalette::Mid, 0xff262626, 0xff262626},
    ColorRow{QPalette::Dark, 0xff1a1a1a, 0xff1a1a1a},
    ColorRow{QPalette::Shadow, 0xff000000, 0xff000000},
};

QPalette darkPalette() {
    QPalette palette;
    for (const ColorRow& row : kDarkColors) {
        palette.setColor(row.role, QColor::fromRgb(row.color));
        palette.setColor(QPalette::Disabled, row.role, QColor::fromRgb(row.disabled));
    }
    return palette;
}

bool writeSummary(const fs::path& path, const TourGuide& guide) {
    std::string text;
    for (const TourStop& stop : guide.stops()) {
        text += platform::printable(stop.caption) + '\t' + (stop.file.empty() ? "no picture" : stop.file) +
                '\t' + (stop.pageClass.empty() ? "no page" : stop.pageClass) + '\t' +
                std::to_string(stop.size.width()) + 'x' + std::to_string(stop.size.height()) + '\n';
    }
    for (const std::string& note : guide.notes())
        text += "note: " + platform::printable(note) + '\n';
    return replaceFile(path, QByteArray::fromStdString(text));
}

// Says what is amiss first, so that a log of a failed tour ends with what counts.
int conclude(const TourOptions& tour, const TourGuide& guide) {
    for (const std::string& note : guide.notes())
        std::cout << "note: " << platform::printable(note) << '\n';
    if (!writeSummary(tour.directory / "summary.txt", guide))
        return refuse((tour.directory / "summary.txt").string() + " cannot be written");
    if (guide.stops().empty())
        return refuse("the dialog has no categories");

    int status = kDone;
    for (const std::string& caption : guide.clinging())
        status = refuse("the page of " + caption + " does not let itself be left");
    for (const TourStop& stop : guide.stops()) {
        if (stop.size.isEmpty()) {
            status = refuse("the page of " + stop.caption + " could not be reached");
            continue;
        }
        if (stop.pageClass.empty())
            status = refuse("the page of " + stop.caption + " could not be made");
        if (stop.file.empty())
            status = refuse("the picture of " + stop.caption + " could not be written");
    }
    std::cout << guide.stops().size() << " views visited, pictures in " << forOutput(tour.directory.string())
              << '\n';
    return status;
}

} // namespace

int runTour(const Options& options, Arguments arguments) {
    const TourOptions tour = parseTour(arguments);
    if (!tour.error.empty())
        return misuse(tour.error);
    std::error_code error;
    fs::create_directories(tour.directory, error);
    if (error)
        return refuse(tour.directory.string() + " cannot be made: " + error.message());
    if (const auto ready = setUpEnvironment(options); !ready)
        return refuse(ready.errorText());
    const QTemporaryDir copy;
    if (!copy.isValid())
        return refuse("no temporary directory: " + copy.errorString().toStdString());
    const bool copied = moveToCopyOfUserDirectory(copy.path().toStdString());

    // Pictures are to be the same on every machine.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication::setStyle("Fusion");
    int argumentCount = 1;
    std::string name = "orvane-settings";
    char* programArguments[] = {name.data(), nullptr};
    QApplication application(argumentCount, programArguments);
    if (tour.dark)
        QApplication::setPalette(darkPalette());

    Orv::iAppConfiguration configuration;
    const auto loaded = loadConfiguration(configuration);
    if (!loaded || !copied)
        return refuse(loaded ? "the working directories are not usable" : loaded.errorText());
    tellMissingDirectories(configuration);
    Project project;
    if (const auto opened = project.open(options); !opened)
        return refuse(opened.errorText());
    const StartPage start(configuration, options);
    // A dialog may change the current directory while it is up.
    TourGuide guide(fs::absolute(tour.directory), tour.size);
    const ScopedErrorHandler handler([&guide](const std::string& message) { guide.note(message); });
    for (bool isOpen = true; isOpen;) {
        ovsettings::showSettingsDialog(configuration, project.configuration(), options.catalogue, nullptr);
        const auto next = guide.takeUp();
        isOpen = next.has_value();
        if (next)
            startAtPage(configuration, *next);
    }
    guide.finish();
    return conclude(tour, guide);
}

} // namespace app
