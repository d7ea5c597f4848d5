#pragma once

#include <QtCore/QRect>
#include <QtGui/QColor>
#include <QtGui/QImage>

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
