#pragma once

#include "dialog/widgets/ownerdrawbutton.h"
#include "tests/support/configuredpages.h"
#include "tests/support/ink.h"

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
