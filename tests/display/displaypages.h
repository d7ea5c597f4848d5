#pragma once

#include "details/appcfg/appcfg.h"
#include "orv/appconfiguration.h"
#include "ovsettings/propdialogtemplate.h"
#include "tests/support/testsupport.h"

#include <QtGui/QImage>
#include <QtWidgets/QWidget>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

/// Pages over a loaded configuration, in a window.
class DisplayPages : public testing::Test {
protected:
    /// @param sections of the site's configuration file.
    void load(const std::string& sections = {}) {
        testsupport::writeFile(installation_.site() / "orvane.xml",
                               "<configuration>" + sections + "</configuration>");
        ASSERT_TRUE(appConfig_.load());
    }

    /// Opens a page as the settings dialog does, in place of the one that is open.
    template <typename Page>
    Page& open() {
        page_.reset();
        auto page = std::make_unique<Page>(nullptr);
        Page& opened = *page;
        page_ = std::move(page);
        opened.setAppConfiguration(&appConfig_);
        opened.createWindow(&window_);
        opened.resize(opened.sizeHint());
        window_.resize(opened.size());
        opened.show();
        window_.show();
        opened.onEnter();
        return opened;
    }

    std::vector<std::string> stored(const std::string& key) const {
        std::vector<std::string> values;
        Orv::getValues(appConfig_, key, values);
        return values;
    }

    testsupport::Installation installation_;
    Orv::iAppConfiguration appConfig_;
    QWidget window_;
    std::unique_ptr<ovsettings::CPropDialogTemplateEx> page_;
};

/// The smallest rectangle around all pixels that are not of this colour.
inline QRect inkOf(const QImage& image, const QColor& paper) {
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) != paper)
                ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}
