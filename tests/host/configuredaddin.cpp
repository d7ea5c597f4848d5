// An add-in as its author would write one, with things that outlive the dialog.

#include "orv/appconfiguration.h"
#include "ovsettings/propdialogtemplate.h"
#include "ovsettings/propertypagefactory.h"

#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

namespace {

class Leftover : public QObject {
public:
    using QObject::QObject;
    ~Leftover() override { setObjectName(QStringLiteral("gone")); }
};

void say(QWidget& page, const QString& text) {
    (new QVBoxLayout(&page))->addWidget(new QLabel(text));
}

class ConfiguredPage : public ovsettings::CPropDialogTemplateEx {
public:
    explicit ConfiguredPage(QWidget* parent) : CPropDialogTemplateEx(9001, parent) { name = "Configured"; }

    void setAppConfiguration(Orv::iAppConfiguration* appConfig) override { appConfig_ = appConfig; }

    bool OnInitDialog() override {
        Orv::iAppConfiguration::Property grid("GRID_HR");
        if (appConfig_ && appConfig_->getProperty(grid))
            say(*this, QStringLiteral("GRID_HR = ") + QString::fromStdString(grid.values.front()));
        return true;
    }

    bool onCancel() override {
        (new Leftover(qApp))->deleteLater();
        new QLabel(window());
        QTimer::singleShot(0, qApp, [] { Leftover().setObjectName(QStringLiteral("late")); });
        return true;
    }

private:
    Orv::iAppConfiguration* appConfig_ = nullptr;
};

class PlainPage : public ovsettings::CPropDialogTemplate {
public:
    explicit PlainPage(QWidget* parent) : CPropDialogTemplate(9002, parent) {}

    bool OnInitDialog() override {
        say(*this, QStringLiteral("no configuration"));
        return true;
    }
};

class Factory : public ovsettings::CFactoryEx {
public:
    Factory() {
        addPage<ConfiguredPage>("Configured");
        addPage<PlainPage>("Plain");
        addPage<PlainPage>("Dropped");
        CFactory::removePage("Dropped");
    }
};

} // namespace

extern "C" __attribute__((visibility("default"))) ovsettings::CPropertyPageFactory* getFactory() {
    static Factory factory;
    return &factory;
}
