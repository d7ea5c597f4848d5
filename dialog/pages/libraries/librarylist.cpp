#include "dialog/pages/libraries/librarylist.h"

#include "dialog/projectfile/projectpaths.h"
#include "platform/asciicase.h"
#include "platform/environmentreferences.h"
#include "platform/paths.h"
#include "platform/remotefile.h"
#include "suite/locationmap.h"
#include "suite/projectfile.h"
#include "suite/symbollibs.h"

#include <array>
#include <utility>

namespace ovsettings {

namespace {

constexpr std::size_t kExpansionSize = 520; ///< with the end of the text

enum class Source { iniFile, project };

/// What a library becomes in a list that imports it: nobody gets a second Primary, and an ini file says
/// nothing about who may write.
int importedType(int type, Source source) {
    if (type == kPrimary || (type == kWriteable && source == Source::iniFile))
        return kReadonly;
    return type;
}

std::vector<LibraryRow> importedRows(NProjectTools::CSymbolLibs& libraries, Source source) {
    std::vector<LibraryRow> rows;
    for (const NProjectTools::ISymbolLibrary* library : libraries.GetLibList()) {
        const std::string alias = library->GetAlias();
        if (alias.empty())
            continue;
        const std::string location = library->GetLocation();
        // What is found through a name stays a name: it survives a move, and no value of the environment gets
        // into the project.
        const bool isNamed = location.find_first_of("$%") != std::string::npos;
        rows.push_back(
            {alias, isNamed ? location : library->GetFullPath(), importedType(library->GetType(), source)});
    }
    return rows;
}

/// A text whose expansion is too long stays as it is.
std::string expanded(const std::string& text) {
    std::string expansion = platform::expandEnvironmentReferences(text);
    return expansion.size() < kExpansionSize ? expansion : text;
}

/// Empty for what is no soft name, or one without a mapping.
std::string mapped(const std::string& text) {
    std::array<char, kLocationBufferSize> buffer{};
    GetHardName(text.c_str(), buffer.data());
    return buffer.data();
}

/// As mapped, with the environment references replaced first, but for a location on a server.
std::string mappedPath(const std::string& path) {
    const std::string plain = expanded(path);
    std::string hard = mapped(plain);
    if (!platform::IsRemotePath(hard) || plain == path)
        return hard;
    hard = mapped(path);
    return platform::IsRemotePath(hard) ? hard : std::string();
}

/// The path of a directory that exists, as it is spelled on disk; any other path as it stands.
std::string pathOnDisk(const std::string& path, std::string_view projectDirectory) {
    std::string looked = expanded(path);
    if (looked.empty() || looked.size() > platform::kLongestPath || looked.starts_with('$'))
        return path;
    looked = platform::platformPath(platform::expandHome(std::move(looked)));
    if (!projectDirectory.empty() && !platform::isFull(looked))
        looked = platform::MakeFilePath(platform::platformPath(projectDirectory), looked);
    const auto existing = platform::resolveExisting(looked);
    return existing && platform::isDirectory(*existing) ? platform::fullPath(*existing) : path;
}

/// What lies in the project's directory is stored relative to it, unless that is the root: all paths begin
/// there.
std::string storedLocation(const std::string& path, std::string_view projectDirectory) {
    if (platform::splitPath(projectDirectory).name.empty())
        return path;
    const std::string looked = platform::platformPath(path);
    const auto rest = platform::restBehind(looked, platform::platformPath(projectDirectory));
    return rest ? "." + path.substr(path.size() - rest->size()) : path;
}

} // namespace

void TakenAliases::add(const std::string& alias) {
    names_.insert(platform::inLowerCase(alias));
}

bool TakenAliases::contains(const std::string& alias) const {
    return names_.contains(platform::inLowerCase(alias));
}

std::string TakenAliases::addUnique(const std::string& alias) {
    std::string unique = alias;
    if (contains(alias)) {
        int& counter = counters_[platform::inLowerCase(alias)];
        do {
            unique = alias + '_' + std::to_string(++counter);
        } while (contains(unique));
    }
    add(unique);
    return unique;
}

std::optional<std::vector<LibraryRow>>
importLibraries(const std::string& path, const std::function<bool(std::size_t, std::size_t)>& progress) {
    const auto dot = path.rfind('.');
    if (dot == std::string::npos)
        return std::nullopt;
    const std::string extension = platform::inLowerCase(path.substr(dot + 1));
    NProjectTools::CSymbolLibs libraries;
    if (extension == "ini") {
        // What cannot be read is an empty list, and so is what the user has given up reading.
        libraries.Load(path, progress);
        return importedRows(libraries, Source::iniFile);
    }
    if (extension != "prj")
        return std::nullopt;
    NProjectTools::CProjectFileUtilitiesLight project(nullptr);
    if (!project.openProjectFile(path))
        return std::nullopt;
    libraries.Load(&project, progress);
    project.closeProjectFile();
    return importedRows(libraries, Source::project);
}

int storedType(const LibraryRow& row, bool isFirst) {
    return row.type == kPrimary && !isFirst ? kWriteable : row.type;
}

void storeLibraries(std::span<const LibraryRow> rows, const std::string& projectFilePath,
                    NProjectTools::CSymbolLibs& libraries) {
    libraries.Clear();
    const std::string directory = platform::directoryOf(projectFilePath);
    InitLocationMap(directory.c_str(), 0);
    platform::RememberedDirectories directories;
    const platform::RememberedDirectories::Use use(directories);
    for (const LibraryRow& row : rows) {
        const int type = storedType(row, &row == &rows.front());
        if (const std::string hard = mappedPath(row.path); !hard.empty())
            libraries.AddLibrary(row.alias, row.path, expanded(hard), type);
        else
            libraries.AddLibrary(row.alias, storedLocation(row.path, directory),
                                 pathOnDisk(row.path, directory), type);
    }
}

} // namespace ovsettings
