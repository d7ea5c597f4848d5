#include "dialog/projectfile/projectpaths.h"

#include "orv/projectconfiguration.h"
#include "orv/projectfiledata.h"
#include "platform/currentdirectory.h"
#include "platform/environmentreferences.h"
#include "platform/paths.h"
#include "platform/remotefile.h"
#include "suite/kernel.h"
#include "suite/locationmap.h"

#include <array>

namespace ovsettings {

namespace {

using LocationBuffer = std::array<char, kLocationBufferSize>;

} // namespace

std::string projectDirectory(const Orv::CProjectConfiguration& project) {
    return platform::platformPath(platform::directoryOf(project.projectFile->GetFilePath()));
}

std::string ResolvePagePath(std::string text, Orv::IProjectFileData& projectFile) {
    LocationBuffer buffer{};
    std::string expanded = platform::expandEnvironmentReferences(text);
    if (expanded.size() >= buffer.size())
        return text;
    expanded.copy(buffer.data(), expanded.size());
    text = std::move(expanded);

    GetHardName(text.c_str(), buffer.data());
    if (buffer.front() == '\0') {
        if (KernelContext* context = KernelOpenContext(projectFile.GetFilePath().c_str())) {
            KernelResolveName(text.c_str(), buffer.data(), context);
            KernelCloseContext(&context);
        }
    }
    return buffer.data();
}

bool IsFileLocationValid(const std::string& projectPath, std::string filePath) {
    InitLocationMap(projectPath.c_str(), 0);
    filePath = hardNameOf(filePath);
    if (filePath.starts_with('$'))
        return false;
    return platform::mayBeCurrent(platform::directoryOf(filePath));
}

std::string hardNameOf(const std::string& name) {
    LocationBuffer buffer{};
    return GetHardName(name.c_str(), buffer.data()) == 0 ? buffer.data() : name;
}

std::string realPathOf(const std::string& text) {
    const std::string expanded = platform::expandEnvironmentReferences(text);
    std::string path = hardNameOf(expanded);
    if (!platform::IsRemotePath(path) || expanded == text)
        return path;
    path = hardNameOf(text);
    return platform::IsRemotePath(path) ? path : text;
}

} // namespace ovsettings
