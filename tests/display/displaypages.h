#pragma once

#include "details/widgets/ownerdrawbutton.h"
#include "tests/support/configuredpages.h"

#include <QtGui/QImage>

class DisplayPages : public ConfiguredPages {
protected:
    void load(const std::string& sections = {}) { loadSections(sections); }

    std::vector<std::string> stored(const std::string& key) const {
        std::vector<std::string> values;
        Orv::getValues(appConfig_, key, values);
        return values;
    }

    QColor previewAt(int x, int y) {
        return window_.findChild<ovsettings::OwnerDrawButton*>()->grab().toImage().pixelColor(x, y);
    }
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
