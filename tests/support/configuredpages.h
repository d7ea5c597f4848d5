#pragma once

#include "orv/appconfiguration.h"
#include "ovsettings/propdialogtemplate.h"
#include "store/appcfg.h"
#include "tests/support/configurationtext.h"
#include "tests/support/widgets.h"

/// Pages over a loaded configuration, in a window.
class ConfiguredPages : public testing::Test {
protected:
    /// Loads a configuration whose site level holds these sections.
    void loadSections(const std::string& sections) {
        testsupport::writeLevel(installation_.site(), sections);
        ASSERT_TRUE(appConfig_.load());
    }

    /// Opens a page as the settings dialog does, in place of the one that is open.
    template <typename Page>
    Page& open(Orv::CProjectConfiguration* project = nullptr) {
        delete page_;
        page_ = new Page(nullptr);
        page_->setAppConfiguration(&appConfig_);
        page_->setProjectConfiguration(project);
        page_->createWindow(&window_);
        page_->resize(page_->sizeHint());
        window_.resize(page_->size());
        page_->show();
        window_.show();
        page_->onEnter();
        return static_cast<Page&>(*page_);
    }

    /// The keys in the order in which an apply writes them.
    std::vector<std::string> keysWrittenBy(ovsettings::CPropDialogTemplate& page) {
        struct : Orv::iAppConfiguration::iEventSink {
            void propertyChanged(const std::string& key, float) override { keys.push_back(key); }
            std::vector<std::string> keys;
        } recorder;
        appConfig_.addSink(&recorder);
        EXPECT_TRUE(page.onApply());
        appConfig_.removeSink(&recorder);
        return recorder.keys;
    }

    testsupport::Installation installation_;
    Orv::iAppConfiguration appConfig_;
    QWidget window_;
    ovsettings::CPropDialogTemplateEx* page_ = nullptr;
};
