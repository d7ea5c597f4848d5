// The commands that show or make a page. They stand in a module of their own, since loading the widgets takes
// longer than any other command.

#include "app/commands.h"
#include "app/dialogmodule.h"
#include "app/outcome.h"
#include "app/workspace.h"

#include <dlfcn.h>

namespace app {

namespace {

int runFromModule(const char* name, const Options& options, Arguments arguments) {
    const std::string file = (moduleDirectory() / DialogModule::kFile).string();
    // Not by platform/sharedlibrary, which says nothing of a file that is missing: which one is, the user is
    // to know.
    void* module = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    const auto command = reinterpret_cast<DialogModule::Command>(module ? dlsym(module, name) : nullptr);
    if (!command)
        return refuse(std::string("the dialog cannot be loaded: ") + dlerror());
    return command(options, arguments);
}

} // namespace

int openDialogFromModule(const Options& options, Arguments arguments) {
    return runFromModule(DialogModule::kOpenDialog, options, arguments);
}

int tourFromModule(const Options& options, Arguments arguments) {
    return runFromModule(DialogModule::kTour, options, arguments);
}

} // namespace app
