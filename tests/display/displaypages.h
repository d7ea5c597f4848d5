#pragma once

#include "dialog/widgets/ownerdrawbutton.h"
#include "tests/support/configuredpages.h"

#include <QtGui/QImage>
#include <QtGui/QScreen>

class DisplayPages : public ConfiguredPages {
protected:
    void load(const std::string& sections = {}) { loadSections(sections); }

    std::vector<std::string> stored(const std::string& key) const {
        std::vector<std::string> values;
        Orv::getValues(appConfig_, key, values);
        return values;
    }

    /// What the preview has painted by itself: read from the screen, since a grab would paint it.
    QColor previewAt(int x, int y) {
        const auto* preview = window_.findChild<ovsettings::OwnerDrawButton*>();
        const QPoint at = preview->mapTo(&window_, QPoint(x, y));
        const QPixmap pixel = window_.screen()->grabWindow(window_.winId(), at.x(), at.y(), 1, 1);
        return pixel.toImage().pixelColor(0, 0);
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
