#pragma once

#include <cstdint>
#include <optional>
#include <string>

class QFont;
class QString;

namespace Orv {
class iAppConfiguration;
}

namespace ovsettings {

class CFontsGrid;

/// The line of one stroke font: the screen font that it is mapped to, from a font key of the configuration.
class CFontMapRow {
public:
    /// Shows the caption; the mapping is shown once it is loaded.
    /// @param grid, configuration must outlive the row. @param row of the grid, from 1.
    CFontMapRow(CFontsGrid& grid, int row, std::string key, std::string caption,
                Orv::iAppConfiguration& configuration);

    /// Reads the key, as far as it has fields, and shows the row.
    void load();
    /// Writes the key. A row without a face keeps the key's other fields.
    void store() const;

    /// The mapping as a font to begin a choice with.
    QFont description() const;
    /// Maps the stroke font to another one, and shows it.
    void take(const QFont& chosen, const QString& offeredFace);
    /// Forgets the face, and nothing else.
    void remove();
    /// Empties the row's cell; the mapping stays.
    void clearCell();

    /// True if any field of the key is locked.
    bool isLocked() const;

private:
    static constexpr unsigned kItalic = 1;
    static constexpr unsigned kBold = 2;
    static constexpr unsigned kUnderline = 4;
    static constexpr unsigned kStrikeout = 8;

    struct FlagField {
        std::size_t field;
        unsigned flag;
    };
    static const FlagField kFlagFields[];

    std::optional<std::size_t> firstLockedField() const;
    void show();
    void showText(const QString& text);
    void showLock();

    CFontsGrid& grid_;
    int row_;
    std::string key_;
    std::string caption_;
    Orv::iAppConfiguration& configuration_;
    std::string face_;
    std::string style_;
    std::int32_t weight_ = 0;
    /// No part of a font here, so a choice leaves it as it is.
    std::int32_t charset_ = 0;
    unsigned flags_ = 0;
};

} // namespace ovsettings
