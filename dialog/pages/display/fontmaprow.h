#pragma once

#include "dialog/shell/followsconfiguration.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

class QFont;
class QString;

namespace ovsettings {

class GridWnd;

/// The line of one stroke font: the screen font that it is mapped to, from a font key of the configuration.
class CFontMapRow {
public:
    static constexpr int kStrokeFontColumn = 1;
    static constexpr int kScaleableFontColumn = 2;

    /// Shows the caption; the mapping is shown once it is loaded.
    /// @param grid, configuration must outlive the row. @param row of the grid, from 1.
    CFontMapRow(GridWnd& grid, int row, std::string key, std::string caption,
                Orv::iAppConfiguration& configuration);

    /// Reads the key, as far as it has fields, and shows the row.
    void load();
    /// Writes the key. A row without a face keeps the key's other fields.
    void store();
    /// Shows what the key holds by now, if that has changed; a mapping of the user's stays, unless the key
    /// was locked meanwhile.
    void follow(DroppedEdits& dropped);
    /// True if the mapping is another one than when it was loaded or stored.
    bool isModified() const { return mapping_ != unchanged_; }

    /// The mapping as a font to begin a choice with.
    QFont description() const;
    /// The face that the stroke font is mapped to; empty if it is not mapped.
    QString mappedFace() const;
    /// Maps the stroke font to another one, and shows it.
    void take(const QFont& chosen);
    /// Takes underline and strikeout alone, and shows them.
    void takeEffects(const QFont& chosen);
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

    struct Mapping {
        std::string face;
        std::string style;
        std::int32_t weight = 0;
        /// No part of a font here, so a choice leaves it as it is.
        std::int32_t charset = 0;
        unsigned flags = 0;

        bool operator==(const Mapping&) const = default;
    };

    struct Stored {
        std::vector<std::string> values;
        std::vector<bool> locks;

        bool operator==(const Stored&) const = default;
    };

    Stored read() const;
    static unsigned effectsOf(const QFont& font);
    /// As far as the key has fields. @return false if it ends early.
    bool readMapping();
    std::optional<std::size_t> firstLockedField() const;
    void show();
    void showText(const QString& text);
    void showLock();

    GridWnd& grid_;
    int row_;
    std::string key_;
    std::string caption_;
    Orv::iAppConfiguration& configuration_;
    Mapping mapping_;
    Mapping unchanged_; ///< as it is stored
    Stored stored_;     ///< as it was read last
};

} // namespace ovsettings
