// An add-in that throws wherever its page key says so.

#include "ovsettings/propdialogtemplate.h"
#include "ovsettings/propertypagefactory.h"

#include <cstdlib>
#include <stdexcept>

namespace {

class Factory : public ovsettings::CPropertyPageFactory {
public:
    bool hasPage(const std::string& key) override {
        if (key == "hasPage")
            throw std::runtime_error("from hasPage");
        return true;
    }
    ovsettings::CPropDialogTemplate* createPage(const std::string& key, QWidget*) override {
        if (key == "createPage")
            throw 7;
        return nullptr;
    }
    void removePage(const std::string&) override {}
};

} // namespace

extern "C" __attribute__((visibility("default"))) ovsettings::CPropertyPageFactory* getFactory() {
    if (std::getenv("OV_TEST_THROW_IN_GET_FACTORY"))
        throw std::runtime_error("from getFactory");
    static Factory factory;
    return &factory;
}
