// A page of a component: the unit that lengths are shown in, for reading.

#include <orv/appconfiguration.h>
#include <ovsettings/propdialogtemplate.h>
#include <ovsettings/propertypagefactory.h>
#include <ovsettings/settingspagecomponent.h>

#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

#include <cstring>

namespace {

constexpr char kClassId[] = "{6D1F0C52-8E5B-4C57-9A3E-2B7D54E0A911}";
constexpr char kPage[] = "Unit in use";

class UnitPage : public ovsettings::CPropDialogTemplateEx {
public:
    explicit UnitPage(QWidget* parent) : CPropDialogTemplateEx(2, parent) { name = kPage; }

    void setAppConfiguration(Orv::iAppConfiguration* appConfig) override { appConfig_ = appConfig; }

    bool buildTemplate() override {
        auto* layout = new QVBoxLayout(this);
        text_ = new QLabel(this);
        layout->addWidget(text_, 0, Qt::AlignTop);
        return true;
    }

    // Also when the user comes back from the page that changes it.
    bool onEnter() override {
        Orv::iAppConfiguration::Property unit("UNIT");
        if (appConfig_ && appConfig_->getProperty(unit) && !unit.values.empty())
            text_->setText(
                QStringLiteral("Lengths are shown in %1.").arg(QString::fromStdString(unit.values[0])));
        return true;
    }

private:
    Orv::iAppConfiguration* appConfig_ = nullptr;
    QLabel* text_ = nullptr;
};

class Component : public ovsettings::IComponent, public ovsettings::ISettingsPageComponent {
public:
    Component() { factory_.addPage<UnitPage>(kPage); }

    void* QueryInterface(const char* interfaceId) override {
        const bool isMine = std::strcmp(interfaceId, ISettingsPageComponent::kInterfaceId) == 0;
        return isMine ? static_cast<ISettingsPageComponent*>(this) : nullptr;
    }

    long GetPageFactory(std::uintptr_t* address) override {
        *address =
            reinterpret_cast<std::uintptr_t>(static_cast<ovsettings::CPropertyPageFactory*>(&factory_));
        return 0;
    }

private:
    ovsettings::CFactoryEx factory_;
};

} // namespace

extern "C" __attribute__((visibility("default"))) ovsettings::IComponent*
createComponent(const char* classId) {
    static Component component;
    return std::strcmp(classId, kClassId) == 0 ? &component : nullptr;
}
