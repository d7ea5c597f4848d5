#pragma once

#include "dialog/pages/display/mappinggrid.h"
#include "dialog/pages/display/objectcolordialog.h"
#include "tests/display/displaypages.h"

#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QAbstractItemView>

#include <algorithm>

using Texts = std::vector<std::string>;

/// The page "Objects" over a loaded configuration.
class ObjectsPage : public DisplayPages {
protected:
    using Row = ovsettings::CMappingRow;

    ovsettings::CObjectColorDialog& openObjects() {
        objects_ = &open<ovsettings::CObjectColorDialog>();
        QApplication::processEvents(); // until the page is on the screen; what it paints later it paints at
                                       // once
        return *objects_;
    }

    ovsettings::CMappingGrid& grid(const std::string& mode = "OV") {
        return *objects_->findChild<ovsettings::CMappingGrid*>(mode == "OV" ? "schematicGrid" : "ictGrid");
    }
    std::string cell(const char* mode, const char* key, int column) {
        return grid(mode).cellText(grid(mode).rowOfKey(key)->row(), column).toStdString();
    }

    void goTo(const char* mode, const char* key, int column) {
        grid(mode).setFocus();
        grid(mode).setCurrentCell(grid(mode).rowOfKey(key)->row(), column);
    }

    /// Chooses from the list of a cell, by keys.
    void choose(const char* key, int column, const std::vector<Qt::Key>& keys) {
        goTo("OV", key, column);
        QTest::keyClick(&grid(), Qt::Key_Space);
        for (const Qt::Key pressed : keys) {
            ASSERT_NE(QApplication::activePopupWidget(), nullptr) << key << " " << column;
            QTest::keyClick(QApplication::activePopupWidget()->findChild<QAbstractItemView*>(), pressed);
        }
        QApplication::processEvents();
    }

    /// Clicks on a colour cell, and on a colour, "#rrggbb", of what it drops down.
    void chooseColor(const char* mode, const char* key, int column, const char* color) {
        testsupport::clickCell(grid(mode), grid(mode).rowOfKey(key)->row(), column);
        QWidget* popup = QApplication::activePopupWidget();
        ASSERT_NE(popup, nullptr) << key << " " << column;
        for (auto* square : popup->findChildren<QAbstractButton*>()) {
            if (square->toolTip() == QLatin1String(color))
                return QTest::mouseClick(square, Qt::LeftButton);
        }
        popup->close();
        FAIL() << "no " << color << " on offer";
    }

    void typeWidth(const char* key, const char* text) {
        goTo("OV", key, Row::kWidthColumn);
        QTest::keyClick(&grid(), Qt::Key_Delete);
        ASSERT_NE(openEditor(), nullptr) << key;
        QTest::keyClicks(openEditor(), QString::fromLatin1(text));
    }

    /// The editor in a cell of the schematic grid; a former one that is yet to be deleted is hidden.
    QLineEdit* openEditor() {
        const auto editors = grid().findChildren<QLineEdit*>();
        const auto open = std::find_if(editors.begin(), editors.end(),
                                       [](const QLineEdit* editor) { return editor->isVisible(); });
        return open == editors.end() ? nullptr : *open;
    }

    ovsettings::CObjectColorDialog* objects_ = nullptr;
};
