// Components for every way in which one can fail, and one that gives a page; the class id says which.

#include "ovsettings/propdialogtemplate.h"
#include "ovsettings/propertypagefactory.h"
#include "ovsettings/settingspagecomponent.h"

#include <QtWidgets/QLabel>

#include <string_view>

namespace {

class Page : public ovsettings::CPropDialogTemplate {
public:
    explicit Page(QWidget* parent) : CPropDialogTemplate(9003, parent) { new QLabel("of a component", this); }
};

class Component : public ovsettings::IComponent, public ovsettings::ISettingsPageComponent {
public:
    explicit Component(std::string_view classId) : kind_(classId.substr(1, 8)) {
        factory_.addPage<Page>("Page");
    }

    void* QueryInterface(const char* interfaceId) override {
        const bool has = std::string_view(interfaceId) == kInterfaceId && kind_ != "00000002";
        return has ? static_cast<ovsettings::ISettingsPageComponent*>(this) : nullptr;
    }
    long GetPageFactory(std::uintptr_t* address) override {
        if (kind_ == "00000003")
            return -5;
        *address =
            reinterpret_cast<std::uintptr_t>(static_cast<ovsettings::CPropertyPageFactory*>(&factory_));
        return 0;
    }

private:
    std::string_view kind_;
    ovsettings::CFactory factory_;
};

} // namespace

extern "C" __attribute__((visibility("default"))) ovsettings::IComponent*
createComponent(const char* classId) {
    const std::string_view id(classId);
    // They stay to the end of the process, as every component does.
    static Component good("{0000000A");
    static Component withoutInterface("{00000002");
    static Component failing("{00000003");
    if (id.starts_with("{0000000A"))
        return &good;
    if (id.starts_with("{00000002"))
        return &withoutInterface;
    return id.starts_with("{00000003") ? &failing : nullptr;
}
